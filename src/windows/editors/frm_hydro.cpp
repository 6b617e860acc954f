#include "windows/editors/frm_hydro.h"

#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "windows/core/field_text.h"
#include "windows/core/left_field.h"
#include "windows/core/page_guard.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_workbench.h"
#include "windows/editors/ui_frm_hydro.h"

namespace lomaris {
namespace {

constexpr int kHelpTopic = 13;

struct TextField {
  const char* Control;
  std::string HydroForm::*Text;
};

constexpr TextField kTextFields[] = {
    {"txtSimPeriod", &HydroForm::SimPeriod},       {"txtTheta", &HydroForm::Theta},
    {"txtTolerance", &HydroForm::Tolerance},       {"txtBeta", &HydroForm::Beta},
    {"txtMileAtBottom", &HydroForm::MileAtBottom}, {"txtGravity", &HydroForm::Gravity},
    {"txtSeedYear", &HydroForm::SeedYear},         {"txtLatFile", &HydroForm::LatFile},
    {"txtWitFile", &HydroForm::WitFile},           {"txtXSGFile", &HydroForm::XSGFile}};

void ShowEntries(QComboBox& list, const std::vector<std::string>& entries, int selected) {
  QStringList texts;
  for (const std::string& entry : entries) texts << ToQt(entry);
  QStringList present;
  for (int i = 0; i < list.count(); ++i) present << list.itemText(i);
  if (texts != present) {
    list.clear();
    list.addItems(texts);
  }
  list.setCurrentIndex(selected);
}

/// A label and its field, by which screen readers know it.
void ShowField(QLabel& label, QLineEdit& field, const char* caption, const char* tip) {
  label.setText(caption);
  field.setToolTip(tip);
  field.setAccessibleName(QString(caption).remove('&').remove(':'));
}

template <std::size_t N>
const char* UnitOf(const char* const (&units)[N], int entry) {
  return entry < 0 ? "" : units[entry];
}

}  // namespace

frmHydro::frmHydro(const EditorSurroundings& around)
    : ui_(std::make_unique<::Ui::frmHydro>()),
      around_(around),
      mnuBCFPopup_(new QMenu(this)),
      desk_(around, *this) {
  ui_->setupUi(this);
  start_.Picker = ui_->DTPickerStart;
  end_.Picker = ui_->DTPickerEnd;
  files_ = {{{NetworkFile::Lateral, ui_->txtLatFile, ui_->btnLatEdit, ui_->btnLatSelect},
             {NetworkFile::Withdrawal, ui_->txtWitFile, ui_->btnWitEdit, ui_->btnWitSelect},
             {NetworkFile::Library, ui_->txtXSGFile, ui_->btnXSGEdit, ui_->btnXSGSelect}}};
  for (const char* type : kUSTypes) ui_->cboUSType->addItem(type);
  for (const char* type : kDSTypes) ui_->cboDSType->addItem(type);
  SetUpGrids();
  SetIcons();
  ConnectMenus();
  ConnectPopup();
  ConnectGrids();
  ConnectForm();
  ConnectFiles();
  ConnectBranch();
  for (QTabWidget* tabs : {ui_->SSTabMainH, ui_->SSTabBranchH}) {
    GuardPages(*tabs->tabBar(), [this] { return EndGridEdits(); });
  }
  CompleteForm(kHelpTopic, around_.Store, Spreadsheet::SendToFocus);
}

/// The grids go before their sheets do.
frmHydro::~frmHydro() {
  for (Spreadsheet* grid : Grids()) delete grid;
}

void frmHydro::Initialize(const EditRequest& request) {
  if (!EndGridEdits()) return;
  const QString before = windowTitle();
  setWindowTitle(ToQt(HydroCaption(request.FileName)));
  if (FileAlreadyOpen(windowTitle(), around_.Screen)) {
    close();
    return;
  }
  if (desk_.Open(request.FileName, request.Aside)) {
    isOpen_ = true;
    ui_->SSTabMainH->setCurrentIndex(0);
    ui_->txtDescriptionH->setFocus();
    return;
  }
  setWindowTitle(before);
  if (!isOpen_) close();
}

void frmHydro::LookupsRenamed(const std::string& from, const std::string& to,
                              const std::vector<std::string>& xsects) {
  EndGridEdits();
  desk_.LookupsRenamed(from, to, xsects);
}

void frmHydro::LibrarySaved(const std::string& fileName) {
  desk_.LibrarySaved(fileName);
  ShowProfile();
}

bool frmHydro::MayClose() {
  return EndGridEdits() && desk_.QueryUnload();
}

/// Another library may be the one that the look-ups refer to now.
bool frmHydro::Save(bool saveAs) {
  const bool saved = EndGridEdits() && desk_.Save(saveAs);
  ShowProfile();
  return saved;
}

// --- The form.

void frmHydro::ConnectForm() {
  connect(ui_->txtDescriptionH, &QPlainTextEdit::textChanged, this, [this] { desk_.Edited(); });
  for (const TextField& field : kTextFields) ConnectText(findChild<QLineEdit*>(field.Control));
  ConnectDate(ui_->DTPickerStart);
  ConnectDate(ui_->DTPickerEnd);
  OnLeaving(*ui_->DTPickerEnd, [this] { desk_.EndDateLeft(); });
  OnLeaving(*ui_->txtSeedYear, [this] { desk_.SeedYearLeft(); });
}

void frmHydro::ConnectText(QLineEdit* field) {
  connect(field, &QLineEdit::textChanged, this, [this] { desk_.Edited(); });
}

void frmHydro::ConnectDate(QDateTimeEdit* picker) {
  connect(picker, &QDateTimeEdit::dateTimeChanged, this, [this] { desk_.DatesChanged(); });
}

void frmHydro::ConnectFiles() {
  for (const FileControls& file : files_) {
    connect(file.Name, &QLineEdit::textChanged, this, &frmHydro::SetFileButtons);
    connect(file.Edit, &QToolButton::clicked, this, [this, &file] { desk_.EditFile(file.File); });
    connect(file.Select, &QToolButton::clicked, this,
            [this, &file] { desk_.SelectFile(file.File); });
    OnLeaving(*file.Name, [&file] { ShowNormalised(*file.Name); });
  }
}

/// A file may have come to be, or gone, while another window was used.
void frmHydro::changeEvent(QEvent* event) {
  EditorWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) SetFileButtons();
}

void frmHydro::SetFileButtons() {
  for (const FileControls& file : files_) file.Edit->setEnabled(desk_.OffersEdit(file.File));
}

HydroForm frmHydro::Form() const {
  HydroForm form = shown_;
  const QPlainTextEdit* description = ui_->txtDescriptionH;
  if (description->document()->isModified()) form.Description = FromQt(description->toPlainText());
  form.StartDate = start_.Value();
  form.EndDate = end_.Value();
  for (const TextField& field : kTextFields) {
    form.*field.Text = FromQt(findChild<QLineEdit*>(field.Control)->text());
  }
  return form;
}

void frmHydro::ShowForm(const HydroForm& form) {
  if (Form().Description != form.Description) {
    ui_->txtDescriptionH->setPlainText(ToQt(form.Description));
  }
  start_.Show(form.StartDate);
  end_.Show(form.EndDate);
  for (const TextField& field : kTextFields) {
    ShowText(*findChild<QLineEdit*>(field.Control), form.*field.Text);
  }
  shown_ = form;
  ui_->txtDescriptionH->document()->setModified(false);
  SetFileButtons();
}

void frmHydro::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

// --- The branch on view.

void frmHydro::ConnectBranch() {
  const auto changed = &QComboBox::currentIndexChanged;
  connect(ui_->cboBranchH, changed, this, &frmHydro::SelectBranch);
  connect(ui_->cboUSType, changed, this, [this] {
    ShowUnits();
    desk_.Edited();
  });
  connect(ui_->cboDSType, changed, this, [this] { desk_.ChooseDSType(); });
  connect(ui_->cboDSBranch, changed, this, [this] { desk_.ChooseDSBranch(); });
  connect(ui_->cboXSectName, changed, this, [this] { desk_.Edited(); });
  for (QLineEdit* field :
       {ui_->txtUSValue, ui_->txtUSFile, ui_->txtConflAngle, ui_->txtDSValue, ui_->txtDSFile}) {
    ConnectText(field);
  }
  for (QLineEdit* field : {ui_->txtUSValue, ui_->txtDSValue}) {
    OnLeaving(*field, [this] { desk_.ConstantLeft(); });
  }
  for (QLineEdit* field : {ui_->txtUSFile, ui_->txtDSFile}) {
    OnLeaving(*field, [field] { ShowNormalised(*field); });
  }
}

/// A branch whose cells or fields are refused stays on view.
void frmHydro::SelectBranch(int entry) {
  if (!EndGridEdits()) {
    const QSignalBlocker ownChange(ui_->cboBranchH);
    ui_->cboBranchH->setCurrentIndex(entry_);
  } else if (desk_.SelectBranch(entry)) {
    entry_ = entry;
  }
}

void frmHydro::ShowBranchList(const std::vector<std::string>& names, int selected) {
  const QSignalBlocker ownChange(ui_->cboBranchH);
  ShowEntries(*ui_->cboBranchH, names, selected);
  entry_ = selected;
  const bool isBranch = selected >= 0;
  for (QWidget* control : std::initializer_list<QWidget*>{
           ui_->cboBranchH, ui_->btnRenameBranch, ui_->btnDeleteBranch, ui_->SSTabBranchH}) {
    control->setEnabled(isBranch);
  }
  ui_->mnuEditRenameBranch->setEnabled(isBranch);
  ui_->mnuEditDeleteBranch->setEnabled(isBranch);
}

BranchForm frmHydro::Branch() const {
  BranchForm form = shownBranch_;
  form.USType = ui_->cboUSType->currentIndex();
  form.USValue = FromQt(ui_->txtUSValue->text());
  form.USFile = FromQt(ui_->txtUSFile->text());
  form.DSType = ui_->cboDSType->currentIndex();
  form.DSAngle = FromQt(ui_->txtConflAngle->text());
  form.DSValue = FromQt(ui_->txtDSValue->text());
  form.DSFile = FromQt(ui_->txtDSFile->text());
  form.DSBranch = ui_->cboDSBranch->currentIndex();
  form.XSectName = ui_->cboXSectName->currentIndex();
  return form;
}

void frmHydro::ShowBranch(const BranchForm& form) {
  ui_->cboUSType->setCurrentIndex(form.USType);
  ShowText(*ui_->txtUSValue, form.USValue);
  ShowText(*ui_->txtUSFile, form.USFile);
  ui_->cboDSType->setCurrentIndex(form.DSType);
  ShowText(*ui_->txtConflAngle, form.DSAngle);
  ShowText(*ui_->txtDSValue, form.DSValue);
  ShowText(*ui_->txtDSFile, form.DSFile);
  ShowEntries(*ui_->cboDSBranch, form.DSBranches, form.DSBranch);
  ShowEntries(*ui_->cboXSectName, form.XSectNames, form.XSectName);
  shownBranch_ = form;
  ShowUnits();
  ShowDownstream();
}

void frmHydro::ShowUnits() {
  ui_->lblUSUnit->setText(UnitOf(kUSUnits, ui_->cboUSType->currentIndex()));
  ui_->lblDSUnit->setText(UnitOf(kDSUnits, ui_->cboDSType->currentIndex()));
}

void frmHydro::ShowDownstream() {
  const BranchForm& form = shownBranch_;
  const DownstreamLook& look = LookOf(form.DSType);
  ShowField(*ui_->lblConflAngle, *ui_->txtConflAngle, look.AngleLabel, look.AngleTip);
  ShowField(*ui_->lblDSValue, *ui_->txtDSValue, look.ValueLabel, look.ValueTip);
  ui_->lblAngleUnit->setText(look.AngleUnit);
  ui_->txtDSValue->setEnabled(form.CanEditDSValue);
  ui_->txtDSFile->setEnabled(look.OffersFile);
  ui_->btnDSSelect->setEnabled(look.OffersFile);
  ui_->lblXSectName->setVisible(form.XSectNameVisible);
  ui_->cboXSectName->setVisible(form.XSectNameVisible);
}

}  // namespace lomaris
