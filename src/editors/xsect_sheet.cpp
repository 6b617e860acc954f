#include "editors/xsect_sheet.h"

#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "editors/typed_values.h"

namespace lomaris {
namespace {

struct NumberColumn {
  const char* Heading;
  const char* Range;
  float XSectRec::*Value;
};

constexpr const char* kNotNegative = "0;999999";
constexpr const char* kPositive = "0.0001;999999";
constexpr int kFirstNumberCol = 4;

/// From `kFirstNumberCol` on.
constexpr NumberColumn kNumberColumns[] = {
    {"Downstream|Dist. (ft)", kPositive, &XSectRec::Length},
    {"Initial Flow|(cfs)", kPositive, &XSectRec::Flow},
    {"Initial Depth|(ft)", kPositive, &XSectRec::Depth},
    {"Dist. Inflow|(cfs)", kNotNegative, &XSectRec::Lateral},
    {"Invert Elev.|(ft msl)", "-100;9999", &XSectRec::Invert},
    {"Mannings n|Downstream", "0.01;1", &XSectRec::ManningN},
    {"Energy Loss|Coef DS", kNotNegative, &XSectRec::Loss},
    {"N1 in|N=N1-N2*Depth", kNotNegative, &XSectRec::N1},
    {"N2 in|N=N1-N2*Depth", kNotNegative, &XSectRec::N2},
    {"C1 in|A=C1*H+C2*H^C3", kNotNegative, &XSectRec::C1},
    {"C2 in|A=C1*H+C2*H^C3", kNotNegative, &XSectRec::C2},
    {"C3 in|A=C1*H+C2*H^C3", kNotNegative, &XSectRec::C3},
};
constexpr int kCols = kFirstNumberCol + static_cast<int>(std::size(kNumberColumns));

constexpr const char* kYes = "Yes";
constexpr const char* kNo = "No";

/// `change` is "insert" or "delete". Auxiliary files of old hold the numbers of cross sections
/// alone, and those move.
bool MayMoveRows(Ui& ui, std::string_view change) {
  const std::string text = fmt::format(
      "When you {0} cross sections, Auxiliary files which reference this Hydrodynamic input file "
      "may refer to the wrong cross section. This will only be a problem with legacy files created "
      "prior to Lomaris (which now store cross section names as well as node numbers).\r\n\r\nTo "
      "avoid problems with legacy Auxiliary files, before inserting cross sections you should open "
      "and then resave them with Lomaris so that cross section names can be added to the Auxiliary "
      "files.\r\n\r\nDo not {0} AND rename referenced cross sections between edits of your "
      "Auxiliary files, or the assigned cross section numbers may be incorrect.\r\n\r\nDo you want "
      "to continue?",
      change);
  return ui.ShowMessage({.Text = text,
                         .Title = "Warning",
                         .BoxIcon = Icon::Warning,
                         .BoxButtons = Buttons::YesNo}) == Answer::Yes;
}

/// False, having told it, when a name has not the length that a file takes.
bool NamesFit(const XSectRec& xsect, Ui& ui) {
  std::string text;
  if (xsect.Name.empty() || Length(xsect.Name) > 12) {
    text = "Invalid cross section name: " + xsect.Name +
           "; the length should be between 1 and 12 characters.";
  } else if (xsect.Lookup.empty() || Length(xsect.Lookup) > 8) {
    text =
        "Invalid lookup name: " + xsect.Lookup + "; the length must be between 1 and 8 characters.";
  } else {
    return true;
  }
  ui.ShowMessage({.Text = text, .Title = "Error"});
  return false;
}

bool TakeRow(XSectRec& xsect, const Sheet& sheet, int row, Ui& ui) {
  xsect.Name = TrimField(sheet.TextMatrix(row, kXSectNameCol));
  xsect.Print = EqualIgnoringCase(Trim(sheet.TextMatrix(row, kPrintCol)), kYes);
  xsect.Lookup = TrimField(sheet.TextMatrix(row, kLookupCol));
  if (!NamesFit(xsect, ui)) return false;
  int col = kFirstNumberCol;
  for (const NumberColumn& column : kNumberColumns) {
    const std::string what = xsect.Name + ", " + ReplaceAll(column.Heading, "|", " ");
    if (!TakeNumber(xsect.*column.Value, sheet.TextMatrix(row, col++), what, ui)) return false;
  }
  return true;
}

}  // namespace

void SetUpXSects(Sheet& sheet, Ui& ui) {
  std::vector<std::pair<int, std::string>> headings = {{kXSectNameCol, "Cross Section Name"},
                                                       {kPrintCol, "Print?"},
                                                       {kLookupCol, "XSG Lookup|Name"}};
  sheet = Sheet(2, kCols);
  sheet.SetNumberRows(true);
  sheet.KeepCols = true;
  sheet.SetColFormat(kXSectNameCol, {FormatKind::NumberedText});
  sheet.SetColFormat(kPrintCol, {FormatKind::Choice, std::string(kYes) + ";" + kNo});
  sheet.SetColFormat(kLookupCol, {FormatKind::NumberedText});
  for (int col = kFirstNumberCol; col < kCols; ++col) {
    const NumberColumn& column = kNumberColumns[col - kFirstNumberCol];
    headings.emplace_back(col, column.Heading);
    sheet.SetColFormat(col, {FormatKind::Number, column.Range});
  }
  sheet.SetColHeadings(headings);
  sheet.Events.BeforeRowInsert = [&ui](int, int, bool& cancel) {
    cancel = !MayMoveRows(ui, "insert");
  };
  sheet.Events.BeforeRowDelete = [&ui](int, int, bool& cancel) {
    cancel = !MayMoveRows(ui, "delete");
  };
}

void FillXSects(Sheet& sheet, const BranchRec& branch) {
  sheet.SetRows(sheet.FixedRows());
  sheet.SetRows(sheet.FixedRows() + branch.XSectCount + 1);
  for (int i = 1; i <= branch.XSectCount; ++i) {
    const XSectRec& xsect = branch.XSects[i];
    const int row = sheet.FixedRows() + i - 1;
    sheet.SetTextMatrix(row, kXSectNameCol, xsect.Name);
    sheet.SetTextMatrix(row, kPrintCol, xsect.Print ? kYes : kNo);
    sheet.SetTextMatrix(row, kLookupCol, xsect.Lookup);
    int col = kFirstNumberCol;
    for (const NumberColumn& column : kNumberColumns) {
      sheet.SetTextMatrix(row, col++, NumberText(xsect.*column.Value));
    }
  }
}

std::optional<std::vector<XSectRec>> XSectsIn(const Sheet& sheet, const BranchRec& before, Ui& ui) {
  const int count = FilledRows(sheet);
  std::vector<XSectRec> xsects;
  for (int i = 1; i <= count; ++i) {
    XSectRec xsect = i <= before.XSectCount ? before.XSects[i] : XSectRec();
    if (!TakeRow(xsect, sheet, sheet.FixedRows() + i - 1, ui)) return std::nullopt;
    xsects.push_back(std::move(xsect));
  }
  return xsects;
}

std::vector<int> RowsWithUnknownLookup(const Sheet& sheet, const XSectLibrary& library) {
  if (library.FileName.empty()) return {};
  std::set<std::string> known;
  for (int i = 1; i <= library.XSectCount; ++i) known.insert(library.XSects[i].Name);
  std::vector<int> rows;
  const int end = sheet.FixedRows() + FilledRows(sheet);
  for (int row = sheet.FixedRows(); row < end; ++row) {
    if (!known.contains(TrimField(sheet.TextMatrix(row, kLookupCol)))) rows.push_back(row);
  }
  return rows;
}

}  // namespace lomaris
