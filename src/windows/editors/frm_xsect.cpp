#include "windows/editors/frm_xsect.h"

#include <QPushButton>
#include <QSignalBlocker>
#include <map>

#include "windows/core/qt_text.h"
#include "windows/core/qt_workbench.h"
#include "windows/core/themed_icon.h"
#include "windows/editors/frm_add_xsect.h"
#include "windows/editors/ui_frm_xsect.h"

namespace lomaris {
namespace {

constexpr int kHelpTopic = 12;
constexpr int kTitleLines = 3;
constexpr const char* kSection = "XSGStartup";
constexpr const char* kShowDrawing = "ShowDrawing";

constexpr ActionIcon kActionIcons[] = {{"mnuEditAdd", "create"},
                                       {"mnuEditDelete", "remove"},
                                       {"mnuEditRename", "edit"},
                                       {"mnuViewPrevious", "back"},
                                       {"mnuViewNext", "forward"}};

/// So that a field shows so many lines, with room for the last one's descent.
int HeightOfLines(const QPlainTextEdit& field, int lines) {
  const int spacing = field.fontMetrics().lineSpacing();
  return lines * spacing + spacing / 2 + 2 * field.frameWidth() +
         static_cast<int>(field.document()->documentMargin());
}

}  // namespace

frmXSect::frmXSect(const EditorSurroundings& around)
    : around_(around), ui_(std::make_unique<::Ui::frmXSect>()), desk_(around, *this) {
  ui_->setupUi(this);
  SetLooks();
  ConnectMenus();
  ConnectFields();
  ConnectGrid();
  ui_->mnuViewDrawing->setChecked(around_.Store.Value(kSection, kShowDrawing, "1") != "0");
  EnableEntry();
  CompleteForm(kHelpTopic, around_.Store, Spreadsheet::SendToFocus);
}

/// The grid goes before its sheet does.
frmXSect::~frmXSect() {
  delete ui_->ssXSect;
}

void frmXSect::SetLooks() {
  SetActionIcons(*this, kActionIcons);
  ui_->txtDescription->setFixedHeight(HeightOfLines(*ui_->txtDescription, kTitleLines));
}

void frmXSect::ConnectMenus() {
  const auto offer = [this](QAction* action, auto handler) {
    connect(action, &QAction::triggered, this, handler);
  };
  Offer(ui_->mnuEditAdd, &LibraryDesk::Add);
  Offer(ui_->mnuEditDelete, &LibraryDesk::Delete);
  Offer(ui_->mnuEditRename, &LibraryDesk::Rename);
  offer(ui_->mnuViewPrevious, [this] { ui_->cboXSect->setCurrentIndex(entry_ - 1); });
  offer(ui_->mnuViewNext, [this] { ui_->cboXSect->setCurrentIndex(entry_ + 1); });
  connect(ui_->mnuViewDrawing, &QAction::toggled, this, &frmXSect::ShowDrawing);
  connect(ui_->mnuViewSameScale, &QAction::toggled, ui_->picXSect, &SectionDrawing::SetSameScale);
}

void frmXSect::Offer(QAction* action, void (LibraryDesk::*routine)()) {
  connect(action, &QAction::triggered, this, [this, routine] {
    if (ui_->ssXSect->EndEdit()) (desk_.*routine)();
  });
}

void frmXSect::ConnectFields() {
  connect(ui_->txtDescription, &QPlainTextEdit::textChanged, this, [this] { desk_.Edited(); });
  connect(ui_->txtXSectDescription, &QLineEdit::textEdited, this, [this] { desk_.Edited(); });
  connect(ui_->cboXSect, &QComboBox::currentIndexChanged, this, &frmXSect::SelectEntry);
  connect(ui_->btnAdd, &QPushButton::clicked, ui_->mnuEditAdd, &QAction::trigger);
  connect(ui_->btnDelete, &QPushButton::clicked, ui_->mnuEditDelete, &QAction::trigger);
  connect(ui_->btnRename, &QPushButton::clicked, ui_->mnuEditRename, &QAction::trigger);
}

void frmXSect::ConnectGrid() {
  Spreadsheet* grid = ui_->ssXSect;
  grid->Attach(desk_.Points(), around_.Screen, around_.Store, around_.Session.Copied);
  for (int col = desk_.Points().FixedCols(); col < desk_.Points().Cols(); ++col) {
    grid->SetColWidthText(col, "99999.999");
  }
  connect(grid, &Spreadsheet::Refreshed, this, &frmXSect::FollowGrid);
  connect(grid, &Spreadsheet::CurrentRowChanged, this, &frmXSect::FollowRow);
  connect(ui_->picXSect, &SectionDrawing::PointPicked, this, [this, grid](int point) {
    grid->ShowCell(desk_.Points().FixedRows() + point - 1, desk_.Points().FixedCols());
  });
}

void frmXSect::Initialize(const EditRequest& request) {
  SetCaption(LibraryCaption(request.FileName));
  const bool isNew = request.FileName.empty();  // of these there may be several
  if ((!isNew && FileAlreadyOpen(windowTitle(), around_.Screen)) || !desk_.Open(request.FileName)) {
    close();
    return;
  }
  ui_->cboXSect->setFocus();
}

bool frmXSect::HasUnsavedChanges() {
  return !ui_->ssXSect->EndEdit() || desk_.Library().Dirty;
}

bool frmXSect::MayClose() {
  return ui_->ssXSect->EndEdit() && desk_.QueryUnload();
}

std::string frmXSect::Title() const {
  if (!ui_->txtDescription->document()->isModified()) return title_;
  return FromQt(ui_->txtDescription->toPlainText());
}

void frmXSect::ShowTitle(const std::string& title) {
  title_ = title;
  ui_->txtDescription->setPlainText(ToQt(title));
}

std::string frmXSect::Description() const {
  return FromQt(ui_->txtXSectDescription->text());
}

void frmXSect::ShowDescription(const std::string& description) {
  ui_->txtXSectDescription->setText(ToQt(description));
  ui_->txtXSectDescription->setCursorPosition(0);
}

void frmXSect::ShowList(const std::vector<std::string>& names, int selected) {
  QStringList shown;
  for (const std::string& name : names) shown << ToQt(name);
  const QSignalBlocker quiet(ui_->cboXSect);
  if (shown != names_) {
    names_ = std::move(shown);
    ui_->cboXSect->clear();
    ui_->cboXSect->addItems(names_);
  }
  ui_->cboXSect->setCurrentIndex(selected);
  entry_ = selected;
  EnableEntry();
}

/// Without an entry there is nothing to type in.
void frmXSect::EnableEntry() {
  for (QWidget* control : std::initializer_list<QWidget*>{
           ui_->cboXSect, ui_->txtXSectDescription, ui_->btnDelete, ui_->btnRename, ui_->ssXSect}) {
    control->setEnabled(entry_ >= 0);
  }
  ui_->mnuEditDelete->setEnabled(entry_ >= 0);
  ui_->mnuEditRename->setEnabled(entry_ >= 0);
  ui_->mnuViewPrevious->setEnabled(entry_ > 0);
  ui_->mnuViewNext->setEnabled(entry_ + 1 < names_.size());
}

std::optional<SectionName> frmXSect::AskName(const std::string& title,
                                             const SectionName& proposal) {
  frmAddXSect dialog(ToQt(title), proposal, around_.Screen, this);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Entered();
}

void frmXSect::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

bool frmXSect::Save(bool saveAs) {
  return ui_->ssXSect->EndEdit() && desk_.Save(saveAs);
}

/// The list goes back to the entry on view when that cannot be left.
void frmXSect::SelectEntry(int entry) {
  if (ui_->ssXSect->EndEdit()) {
    desk_.SelectEntry(entry);
    return;
  }
  const QSignalBlocker quiet(ui_->cboXSect);
  ui_->cboXSect->setCurrentIndex(entry_);
}

void frmXSect::FollowGrid() {
  const std::vector<XSectPoint> points = desk_.ShownPoints();
  const std::vector<PointFault> faults = PointFaults(points);
  std::map<int, QString> marks;
  for (const PointFault& fault : faults) {
    QString& mark = marks[desk_.Points().FixedRows() + fault.Point - 1];
    mark += (mark.isEmpty() ? "" : "\n") + ToQt(fault.Text);
  }
  ui_->ssXSect->SetMark([marks](int row, int) {
    const auto mark = marks.find(row);
    return mark == marks.end() ? QString() : mark->second;
  });
  ui_->picXSect->ShowPoints(points, faults);
  FollowRow();
}

void frmXSect::FollowRow() {
  ui_->picXSect->MarkPoint(ui_->ssXSect->CurrentRow() - desk_.Points().FixedRows() + 1);
}

void frmXSect::ShowDrawing(bool visible) {
  ui_->picXSect->setVisible(visible);
  ui_->mnuViewSameScale->setEnabled(visible);
  around_.Store.SetValue(kSection, kShowDrawing, visible ? "1" : "0");
}

}  // namespace lomaris
