#include "editors/library_desk.h"

#include <algorithm>
#include <utility>

#include "core/error_report.h"
#include "core/files.h"
#include "core/raised_flag.h"
#include "core/save_file.h"
#include "editors/saving.h"
#include "editors/typed_values.h"
#include "model/xsg_file.h"

namespace lomaris {
namespace {

constexpr int kLibraryFilter = 4;
constexpr int kStationCol = 1;
constexpr int kDepthCol = 2;
constexpr std::int32_t kRowsToFill = 20;
constexpr const char* kPointRange = "0;99999";

/// The name of which each section is known to the networks.
constexpr const char* kReferencesWarning =
    " If Yes, you must manually correct all relevant Hydrodynamic files which may reference this "
    "cross section.";

std::string JoinedTitle(const XSectLibrary& library) {
  std::string title = library.Title[1] + "\r\n" + library.Title[2] + "\r\n" + library.Title[3];
  return std::string(title, 0, title.find_last_not_of("\r\n") + 1);
}

/// Lines beyond the third go with it.
void TakeTitle(XSectLibrary& library, const std::string& text) {
  if (text == JoinedTitle(library)) return;
  std::string rest = ReplaceAll(text, "\r\n", "\n");
  for (int line = 1; line <= 3; ++line) {
    const std::size_t end = line < 3 ? std::min(rest.find('\n'), rest.size()) : rest.size();
    library.Title[line] = rest.substr(0, end);
    rest.erase(0, end + 1);
  }
}

}  // namespace

std::string LibraryCaption(const std::string& fileName) {
  return "Cross Section Library - " + fileName;
}

bool SectionNameFits(const std::string& name, Ui& ui) {
  const std::string trimmed = TrimField(name);
  std::string text;
  if (trimmed.empty() || Length(trimmed) > 8) {
    text = "The cross section name must range from 1 to 8 characters in length.";
  } else if (trimmed.find(' ') != std::string::npos) {
    text = "The cross section name must not contain blanks.";
  } else {
    return true;
  }
  ui.ShowMessage({.Text = text, .Title = "Error"});
  return false;
}

std::vector<PointFault> PointFaults(const std::vector<XSectPoint>& points) {
  std::vector<PointFault> faults;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const int point = static_cast<int>(i) + 1;
    const std::string number = NumberText(point);
    if (points[i].Station <= points[i - 1].Station) {
      faults.push_back(
          {point, "The station for point number " + number + " did not increase; please correct."});
    }
    if (points[i].Depth == points[i - 1].Depth) {
      faults.push_back({point, "The depth for point number " + number +
                                   " was identical to the prior point; please correct."});
    }
  }
  return faults;
}

LibraryDesk::LibraryDesk(const EditorSurroundings& around, LibraryView& view)
    : around_(around), view_(view) {
  SetUpGrid();
}

bool LibraryDesk::Run(const char* routine, const std::function<bool()>& action) {
  bool done = false;
  Trap(around_.Screen, routine, "Form", "frmXSect").Run([&] { done = action(); });
  return done;
}

void LibraryDesk::SetUpGrid() {
  const std::pair<int, std::string> headings[] = {{kStationCol, "Station|(ft)"},
                                                  {kDepthCol, "Depth|(ft)"}};
  points_ = Sheet(2, kDepthCol + 1);
  points_.SetNumberRows(true);
  points_.KeepCols = true;
  points_.SetColHeadings(headings);
  for (const int col : {kStationCol, kDepthCol}) {
    points_.SetColFormat(col, {FormatKind::Number, kPointRange});
  }
  points_.Events.Change = [this] {
    KeepEmptyRow(points_);
    Edited();
  };
}

void LibraryDesk::Edited() {
  if (!showing_) library_.Dirty = true;
}

bool LibraryDesk::Open(const std::string& fileName) {
  return Run("Initialize", [&] {
    XSectLibrary loaded;
    loaded.FileName = fileName;
    if (!LoadXSGFile(loaded, around_.Project, around_.Screen, fileName)) return false;
    library_ = std::move(loaded);
    renames_.clear();
    view_.SetCaption(LibraryCaption(fileName));
    const RaisedFlag ownChange(showing_);
    view_.ShowTitle(JoinedTitle(library_));
    ShowEntry(library_.XSectCount > 0 ? 1 : 0);
    return true;
  });
}

void LibraryDesk::ShowList() {
  std::vector<std::string> names;
  for (int i = 1; i <= library_.XSectCount; ++i) names.push_back(library_.XSects[i].Name);
  const RaisedFlag ownChange(showing_);
  view_.ShowList(names, number_ - 1);
}

/// Where there is no point yet, there are rows to type and to paste into.
void LibraryDesk::ShowEntry(int number) {
  number_ = number;
  const LibrarySection section = number > 0 ? library_.XSects[number] : LibrarySection();
  const RaisedFlag ownChange(showing_);
  ShowList();
  view_.ShowDescription(section.Description);
  points_.SetRows(points_.FixedRows());
  points_.SetRows(points_.FixedRows() +
                  (section.PointCount > 0 ? section.PointCount : kRowsToFill));
  for (int i = 1; i <= section.PointCount; ++i) {
    const int row = points_.FixedRows() + i - 1;
    points_.SetTextMatrix(row, kStationCol, NumberText(section.Points[i].Station));
    points_.SetTextMatrix(row, kDepthCol, NumberText(section.Points[i].Depth));
  }
}

std::vector<XSectPoint> LibraryDesk::ShownPoints() const {
  std::vector<XSectPoint> points;
  for (int i = 0; i < FilledRows(points_); ++i) {
    const int row = points_.FixedRows() + i;
    const auto number = [&](int col) {
      const std::string& text = points_.TextMatrix(row, col);
      return IsNumeric(text) ? static_cast<float>(ToDouble(text)) : 0;
    };
    points.push_back({number(kStationCol), number(kDepthCol)});
  }
  return points;
}

bool LibraryDesk::TakePoints(std::vector<XSectPoint>& points) {
  const LibrarySection& before = library_.XSects[number_];
  const int count = FilledRows(points_);
  for (int i = 1; i <= count; ++i) {
    const int row = points_.FixedRows() + i - 1;
    XSectPoint point = i <= before.PointCount ? before.Points[i] : XSectPoint();
    const std::string which = before.Name + ", point " + NumberText(i);
    if (!TakeNumber(point.Station, points_.TextMatrix(row, kStationCol), which, around_.Screen) ||
        !TakeNumber(point.Depth, points_.TextMatrix(row, kDepthCol), which, around_.Screen)) {
      return false;
    }
    points.push_back(point);
  }
  return true;
}

/// Points as they came from the file are left alone: a library of another program can be looked
/// through, and its other sections edited.
bool LibraryDesk::FaultsPass(const std::vector<XSectPoint>& points) {
  const LibrarySection& before = library_.XSects[number_];
  const std::vector<PointFault> faults = PointFaults(points);
  if (faults.empty() || std::ranges::equal(points, before.Points)) return true;
  around_.Screen.ShowMessage(
      {.Text = faults.front().Text, .Title = "Error in Cross Section " + before.Name});
  return false;
}

/// Stores the entry on view. False, having told it, when a point is refused; the entry is then as
/// it was.
bool LibraryDesk::TakeEntry() {
  if (number_ == 0) return true;
  LibrarySection& section = library_.XSects[number_];
  std::vector<XSectPoint> points;
  if (!TakePoints(points)) return false;
  if (!FaultsPass(points)) return false;
  section.Description = view_.Description();
  section.PointCount = static_cast<std::int32_t>(points.size());
  section.Points = BoundedArray<XSectPoint>(1, section.PointCount);
  std::copy(points.begin(), points.end(), section.Points.begin());
  return true;
}

bool LibraryDesk::SelectEntry(int entry) {
  if (showing_) return true;
  return Run("cboXSect_Click", [&] {
    const bool taken = TakeEntry();
    if (taken) {
      ShowEntry(entry + 1);
    } else {
      ShowList();
    }
    return taken;
  });
}

bool LibraryDesk::Write(bool saveAs) {
  const ProjectData& project = around_.Project;
  const std::string name = NameToSaveUnder(library_.FileName, library_.OnDisk, saveAs,
                                           kLibraryFilter, project.FileName, around_);
  if (name.empty() || !TakeEntry()) return false;
  if (around_.Windows.EditsFile(name) && !SameFile(name, library_.FileName, project.FileName)) {
    around_.Screen.ShowMessage({.Text = kOpenOnce});
    return false;
  }
  TakeTitle(library_, view_.Title());
  if (!SaveXSGFile(library_, around_.Project, around_.Screen, name)) return false;
  view_.SetCaption(LibraryCaption(name));
  const bool saved = SaveRenames();
  around_.Windows.LibrarySaved(name);
  return saved;
}

bool LibraryDesk::Save(bool saveAs) {
  return Run("mnuFileSave_Click", [&] { return Write(saveAs); });
}

bool LibraryDesk::QueryUnload() {
  return Run("Form_QueryUnload", [&] {
    if (!library_.Dirty) return true;
    const Answer answer = AskToSaveChanges("Cross Section Library", around_.Screen);
    if (answer == Answer::No) TakeRenamesBack(true);
    return answer == Answer::Yes ? Write(false) : answer == Answer::No;
  });
}

bool LibraryDesk::Agreed(const std::string& question) {
  return around_.Screen.ShowMessage({.Text = question + kReferencesWarning,
                                     .Title = "Warning",
                                     .BoxIcon = Icon::Warning,
                                     .BoxButtons = Buttons::YesNo}) == Answer::Yes;
}

std::optional<SectionName> LibraryDesk::AskedName(const std::string& title,
                                                  const SectionName& proposal) {
  std::optional<SectionName> asked = view_.AskName(title, proposal);
  if (!asked || !SectionNameFits(asked->Name, around_.Screen)) return std::nullopt;
  asked->Name = TrimField(asked->Name);
  if (asked->Name == proposal.Name || !IsTaken(asked->Name)) return asked;
  around_.Screen.ShowMessage(
      {.Text = "The library has a cross section " + asked->Name + " already.", .Title = "Error"});
  return std::nullopt;
}

void LibraryDesk::Add() {
  Run("btnAdd_Click", [&] {
    if (!TakeEntry()) return false;
    const std::optional<SectionName> asked = AskedName("Add Cross Section", {});
    if (!asked) return false;
    library_.XSects.Resize(library_.XSectCount + 1);
    ++library_.XSectCount;
    LibrarySection& section = library_.XSects[library_.XSectCount];
    section.Name = asked->Name;
    section.Description = asked->Description;
    library_.Dirty = true;
    ShowEntry(library_.XSectCount);
    return true;
  });
}

void LibraryDesk::Delete() {
  if (number_ == 0) return;
  Run("btnDelete_Click", [&] {
    if (!Agreed("Are you sure you want to PERMANENTLY delete cross section " +
                library_.XSects[number_].Name + " from the Cross Section Library?")) {
      return false;
    }
    const auto place = library_.XSects.begin() + (number_ - 1);
    std::move(place + 1, library_.XSects.end(), place);
    --library_.XSectCount;
    library_.XSects.Resize(library_.XSectCount);
    library_.Dirty = true;
    ShowEntry(Min(number_, static_cast<int>(library_.XSectCount)));
    return true;
  });
}

}  // namespace lomaris
