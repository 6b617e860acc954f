// What the water quality editor does with the branch on view, and with a network that changes.

#include <utility>

#include "core/raised_flag.h"
#include "core/text.h"
#include "editors/qual_desk.h"
#include "editors/qual_network.h"

namespace lomaris {
namespace {

// Columns of `ssPlotted`.
constexpr int kPlottedNameCol = 1;
constexpr int kPlottedNetworkNameCol = 2;
constexpr int kPlottedPrintCol = 3;
constexpr const char* kYes = "Yes";
constexpr const char* kOtherName = "The network has another name for this cross section.";

constexpr const char* kOtherShape =
    "The network has other branches or cross sections now than this Water Quality input file, "
    "which would not fit it any more.\r\n\r\n";
constexpr const char* kOtherPlaces =
    "The network has other cross sections now than this Water Quality input file, or has them in "
    "another order, though as many in each branch.\r\n\r\n";
constexpr const char* kFollowQuestion =
    "Do you want the branches and cross sections of this file to follow the network's? Cross "
    "sections are matched by name within their branch; a new one gets the values of the one before "
    "it, and a new branch gets default values.";
constexpr const char* kStayingPlaces = " If you answer No, the values stay where they are.";

}  // namespace

void QualDesk::ShowBranch(const QualBranchForm& form) {
  const RaisedFlag ownChange(showing_);
  view_.ShowBranch(form);
}

std::vector<std::string> QualDesk::BranchNames() const {
  std::vector<std::string> names;
  for (int i = 1; i <= Qual().BranchCount; ++i) names.push_back(Qual().Branches[i].Name);
  return names;
}

void QualDesk::ListBranches(int selected) {
  listed_ = BranchNames();
  const RaisedFlag ownChange(showing_);
  view_.ShowBranchList(listed_, selected);
}

/// All of them in the list, and one in the fields and grids, the last one for one that is gone.
void QualDesk::ShowBranches(int entry) {
  entry = Min(Max(entry, 0), Qual().BranchCount - 1);
  ListBranches(entry);
  ShowEntry(entry);
}

void QualDesk::ShowEntry(int entry) {
  branch_ = entry + 1;
  std::vector<CoefficientSheet::Place> branch;
  std::vector<CoefficientSheet::Place> kinetics;
  std::vector<CoefficientSheet::Place> initial;
  std::vector<CoefficientSheet::Place> lateral;
  if (branch_ > 0) {
    const QualBranchRec& record = Qual().Branches[branch_];
    branch.push_back({record.Name, record.BranchKinetics});
    for (const QualXSectRec& xsect : record.XSects) {
      kinetics.push_back({xsect.Name, xsect.XSectKinetics});
      initial.push_back({xsect.Name, xsect.InitialConc});
      lateral.push_back({xsect.Name, xsect.LateralConc});
    }
  }
  branchKinetics_.Fill(std::move(branch));
  xsectKinetics_.Fill(std::move(kinetics));
  initial_.Fill(std::move(initial));
  lateral_.Fill(std::move(lateral));
  FillPlotted();
  shownBranch_ = branch_ > 0 ? BranchFormOf(Qual(), around_.Hydro, branch_) : QualBranchForm();
  ShowBranch(shownBranch_);
}

/// The names are those of the file, and beside them the network's, which they should be.
void QualDesk::FillPlotted() {
  const std::pair<int, std::string> headings[] = {
      {kPlottedNameCol, "Cross Section"},
      {kPlottedNetworkNameCol, "Name in Hydro-|dynamic Input"},
      {kPlottedPrintCol, "Print?"}};
  plotted_.SetRows(plotted_.FixedRows());
  plotted_.SetCols(kPlottedPrintCol + 1);
  plotted_.SetNumberRows(true);
  plotted_.KeepRows = true;
  plotted_.KeepCols = true;
  plotted_.ReadOnlyCols = kPlottedPrintCol - 1;
  plotted_.SetColHeadings(headings);
  plotted_.SetColFormat(kPlottedPrintCol, {FormatKind::Choice, "Yes;No"});
  if (branch_ == 0) return;
  const QualBranchRec& record = Qual().Branches[branch_];
  plotted_.SetRows(plotted_.FixedRows() + record.XSectCount);
  for (int i = 1; i <= record.XSectCount; ++i) {
    const int row = plotted_.FixedRows() + i - 1;
    plotted_.SetTextMatrix(row, kPlottedNameCol, record.XSects[i].Name);
    plotted_.SetTextMatrix(row, kPlottedPrintCol, record.XSects[i].Print ? kYes : "No");
  }
  FillNetworkNames();
}

void QualDesk::FillNetworkNames() {
  const BranchRec& branch = around_.Hydro.Branches[branch_];
  const int count = Min(Qual().Branches[branch_].XSectCount, branch.XSectCount);
  for (int i = 1; i <= count; ++i) {
    const int row = plotted_.FixedRows() + i - 1;
    plotted_.SetDerivedText(row, kPlottedNetworkNameCol, branch.XSects[i].Name);
  }
}

std::string QualDesk::PlottedRemark(int row, int col) const {
  if (col != kPlottedNameCol || row < plotted_.FixedRows()) return {};
  const bool isNetworks =
      plotted_.TextMatrix(row, kPlottedNameCol) == plotted_.TextMatrix(row, kPlottedNetworkNameCol);
  return isNetworks ? "" : kOtherName;
}

void QualDesk::TakePlotted() {
  QualBranchRec& record = Qual().Branches[branch_];
  for (int i = 1; i <= record.XSectCount; ++i) {
    const std::string& text = plotted_.TextMatrix(plotted_.FixedRows() + i - 1, kPlottedPrintCol);
    record.XSects[i].Print = EqualIgnoringCase(text, kYes);
  }
}

/// From then on a name that is as before again is another one than the record has.
void QualDesk::TakeBoundaryFields() {
  const QualBranchForm form = view_.Branch();
  StoreBranchFields(form, shownBranch_, Qual().Branches[branch_]);
  shownBranch_ = form;
}

/// Takes the branch on view into the record. False: something was refused.
bool QualDesk::TakeBranch() {
  if (branch_ == 0) return true;
  for (CoefficientSheet* sheet : {&branchKinetics_, &xsectKinetics_, &initial_, &lateral_}) {
    if (!sheet->Take(around_.Screen)) return false;
  }
  QualBranchRec& record = Qual().Branches[branch_];
  record.BranchKinetics = branchKinetics_.ValuesOf(0);
  std::size_t place = 0;
  for (QualXSectRec& xsect : record.XSects) {
    xsect.XSectKinetics = xsectKinetics_.ValuesOf(place);
    xsect.InitialConc = initial_.ValuesOf(place);
    xsect.LateralConc = lateral_.ValuesOf(place);
    ++place;
  }
  TakePlotted();
  TakeBoundaryFields();
  return true;
}

bool QualDesk::SelectBranch(int entry) {
  if (showing_ || entry + 1 == branch_) return true;
  return Run("SSTabBranchQ_Click", [&] {
    if (!TakeBranch()) return false;
    ShowEntry(entry);
    return true;
  });
}

/// With a network that has no record for each of its cross sections a file could not be read again;
/// and as many cross sections as before may be others. False: the user keeps branches that do not
/// fit, and so they are not saved.
bool QualDesk::FollowNetwork() {
  const HydroInput& hydro = around_.Hydro;
  NetworkNames now = NamesOf(hydro);
  if (!hydro.HydroLoaded || now == network_) return true;
  const bool fits = FitsNetwork(Qual(), hydro);
  const bool isAnother = now.FileName != network_.FileName && now.XSects != network_.XSects;
  if (!fits || isAnother || !KeepsPlaces(network_, now)) {
    const std::string which =
        isAnother ? "The network is that of " + hydro.FileName + " now.\r\n\r\n" : "";
    const Answer answer =
        around_.Screen.ShowMessage({.Text = which + (fits ? kOtherPlaces : kOtherShape) +
                                            kFollowQuestion + (fits ? kStayingPlaces : ""),
                                    .Title = "Warning",
                                    .BoxIcon = Icon::Warning,
                                    .BoxButtons = Buttons::YesNo});
    const bool follows = answer == Answer::Yes && view_.EndEdits() && TakeBranch();
    keepsBranches_ = !follows && (!fits || answer == Answer::Yes);
    if (keepsBranches_) return false;
    if (follows) {
      lomaris::FollowNetwork(Qual(), network_, hydro, catalogue_);
      Edited();
      ShowBranches(branch_ - 1);
    }
  }
  network_ = std::move(now);
  return true;
}

/// Brings what the window says of the network itself up to date.
void QualDesk::ShowNetwork() {
  QualForm form = view_.Form();
  form.SimPeriod = FormOf(Qual(), around_.Hydro).SimPeriod;
  if (form != view_.Form()) ShowForm(form);
  if (branch_ == 0 || branch_ > Qual().BranchCount) return ShowBranches(branch_ - 1);
  if (listed_ != BranchNames()) ListBranches(branch_ - 1);
  FillNetworkNames();
  TakeBoundaryFields();
  shownBranch_ = BranchFormOf(Qual(), around_.Hydro, branch_);
  if (shownBranch_ != view_.Branch()) ShowBranch(shownBranch_);
}

void QualDesk::Activated() {
  if (!open_ || showing_) return;
  Run("Form_Activate", [&] {
    FollowProjectsNames();
    keepsBranches_ = keepsBranches_ && NamesOf(around_.Hydro) != network_;
    if (keepsBranches_ || !FollowNetwork()) return false;
    if (around_.Hydro.HydroLoaded) ShowNetwork();
    return true;
  });
}

bool QualDesk::OffersNetworkNames() const {
  return open_ && FitsNetwork(Qual(), around_.Hydro) && !HasNetworkNames(Qual(), around_.Hydro);
}

void QualDesk::TakeNetworkNames() {
  if (!OffersNetworkNames()) return;
  Run("mnuEditNetworkNames_Click", [&] {
    if (!TakeBranch()) return false;
    lomaris::TakeNetworkNames(Qual(), around_.Hydro);
    Edited();
    ShowBranches(branch_ - 1);
    return true;
  });
}

}  // namespace lomaris
