#include "windows/editors/frm_qual.h"

#include <QEvent>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>

#include "windows/core/field_text.h"
#include "windows/core/left_field.h"
#include "windows/core/page_guard.h"
#include "windows/core/qt_text.h"
#include "windows/core/qt_workbench.h"
#include "windows/editors/ui_frm_qual.h"

namespace lomaris {
namespace {

constexpr int kHelpTopic = 16;

/// "Temp - Temperature".
QString ConstituentLine(const Tables& tables, int constituent) {
  return ToQt(tables.ConstituentShort[constituent + 1] + " - " +
              tables.ConstituentLong[constituent + 1]);
}

}  // namespace

frmQual::frmQual(const EditorSurroundings& around)
    : ui_(std::make_unique<::Ui::frmQual>()),
      around_(around),
      progress_(new QProgressBar),
      desk_(around, *this) {
  ui_->setupUi(this);
  start_.Picker = ui_->DTPickerStart;
  end_.Picker = ui_->DTPickerEnd;
  files_ = {{{QualFile::Lateral, ui_->txtLatFile, ui_->btnLatEdit, ui_->btnLatSelect},
             {QualFile::HeatLoads, ui_->txtPowFile, ui_->btnPowEdit, ui_->btnPowSelect}}};
  for (int i = 1; i <= kQualConstituents; ++i) {
    auto* line = new QListWidgetItem(ConstituentLine(around.SharedTables, i));
    line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    line->setCheckState(Qt::Unchecked);
    ui_->lstModelParameters->addItem(line);
  }
  // The boxes of a list have the colour of its ground, which hides empty ones in a dark palette.
  ui_->lstModelParameters->viewport()->setBackgroundRole(QPalette::Window);
  ui_->SSTabBranchQ->setShape(QTabBar::RoundedSouth);
  ui_->SSTabBranchQ->setExpanding(false);
  ui_->StatusBar->addPermanentWidget(progress_);
  progress_->hide();
  SetUpGrids();
  ConnectForm();
  ConnectFiles();
  ConnectBranch();
  ConnectMenus();
  CompleteForm(kHelpTopic, around_.Store, &Spreadsheet::SendToFocus);
  ShowPage(0);
}

/// The grids go before their sheets do.
frmQual::~frmQual() {
  for (Spreadsheet* grid : Grids()) delete grid;
}

void frmQual::Initialize(const EditRequest& request) {
  if (!EndEdits()) return;
  const QString before = windowTitle();
  setWindowTitle(ToQt(QualCaption(request.FileName)));
  if (FileAlreadyOpen(windowTitle(), around_.Screen)) {
    close();
    return;
  }
  if (desk_.Open(request.FileName, request.Aside)) {
    isOpen_ = true;
    ForgetFilters();
    ui_->SSTabMainQ->setCurrentIndex(0);
    ui_->txtDescriptionQ->setFocus();
    return;
  }
  setWindowTitle(before);
  if (!isOpen_) close();
}

/// A file may have come to be, or gone, while another window was used, and the network may have
/// changed. The question about it waits until the window stands there.
void frmQual::changeEvent(QEvent* event) {
  EditorWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  SetFileButtons();
  QTimer::singleShot(0, this, [this] {
    if (isActiveWindow()) desk_.Activated();
  });
}

// --- The form.

void frmQual::ConnectForm() {
  connect(ui_->txtDescriptionQ, &QPlainTextEdit::textChanged, this, [this] { desk_.Edited(); });
  for (const PickedDate* date : {&start_, &end_}) {
    connect(date->Picker, &QDateTimeEdit::dateTimeChanged, this, [this] { desk_.Edited(); });
  }
  OnLeaving(*ui_->DTPickerStart, [this] { desk_.StartDateLeft(); });
  OnLeaving(*ui_->DTPickerEnd, [this] { desk_.EndDateLeft(); });
  connect(ui_->lstModelParameters, &QListWidget::itemChanged, this, [this] { desk_.Edited(); });
  connect(ui_->btnSelectAllBypass, &QPushButton::clicked, this,
          [this] { desk_.CalculateAll(true); });
  connect(ui_->btnSelectNoneBypass, &QPushButton::clicked, this,
          [this] { desk_.CalculateAll(false); });
}

void frmQual::ConnectFiles() {
  for (const FileControls& file : files_) {
    connect(file.Name, &QLineEdit::textChanged, this, [this] {
      desk_.Edited();
      SetFileButtons();
    });
    connect(file.Edit, &QToolButton::clicked, this, [this, &file] { desk_.EditFile(file.File); });
    connect(file.Select, &QToolButton::clicked, this,
            [this, &file] { desk_.SelectFile(file.File); });
    OnLeaving(*file.Name, [&file] { ShowNormalised(*file.Name); });
  }
}

void frmQual::SetFileButtons() {
  for (const FileControls& file : files_) file.Edit->setEnabled(desk_.OffersEdit(file.File));
}

QualForm frmQual::Form() const {
  QualForm form = shown_;
  const QPlainTextEdit* description = ui_->txtDescriptionQ;
  if (description->document()->isModified()) form.Description = FromQt(description->toPlainText());
  form.StartDate = start_.Value();
  form.EndDate = end_.Value();
  form.LatFile = FromQt(ui_->txtLatFile->text());
  form.PowFile = FromQt(ui_->txtPowFile->text());
  form.MetFile = ui_->cboMetFileQ->currentIndex();
  for (int i = 0; i < kQualConstituents; ++i) {
    const bool isChecked = ui_->lstModelParameters->item(i)->checkState() == Qt::Checked;
    form.Calculated[static_cast<std::size_t>(i)] = isChecked;
  }
  return form;
}

void frmQual::ShowForm(const QualForm& form) {
  if (Form().Description != form.Description) {
    ui_->txtDescriptionQ->setPlainText(ToQt(form.Description));
  }
  start_.Show(form.StartDate);
  end_.Show(form.EndDate);
  ShowText(*ui_->txtSimPeriod, form.SimPeriod);
  ShowText(*ui_->txtLatFile, form.LatFile);
  ShowText(*ui_->txtPowFile, form.PowFile);
  ui_->cboMetFileQ->clear();
  for (const std::string& name : form.MetFiles) ui_->cboMetFileQ->addItem(ToQt(name));
  ui_->cboMetFileQ->setCurrentIndex(form.MetFile);
  for (int i = 0; i < kQualConstituents; ++i) {
    const bool isChecked = form.Calculated[static_cast<std::size_t>(i)];
    ui_->lstModelParameters->item(i)->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
  }
  shown_ = form;
  ui_->txtDescriptionQ->document()->setModified(false);
  SetFileButtons();
}

void frmQual::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

/// Painted at once, without letting the user do anything meanwhile.
void frmQual::ShowProgress(int percent) {
  progress_->setVisible(percent < 100);
  progress_->setValue(percent);
  progress_->repaint();
}

// --- The branch on view.

void frmQual::ConnectBranch() {
  connect(ui_->SSTabBranchQ, &QTabBar::currentChanged, this, &frmQual::SelectBranch);
  for (QLineEdit* field : {ui_->txtUSFile, ui_->txtDSFile}) {
    connect(field, &QLineEdit::textChanged, this, [this] { desk_.Edited(); });
  }
  for (QTabBar* bar : {ui_->SSTabMainQ->tabBar(), ui_->SSTabBranchQ}) {
    GuardPages(*bar, [this] { return EndEdits(); });
  }
}

/// A branch whose cells are refused stays on view.
void frmQual::SelectBranch(int entry) {
  if (EndEdits() && desk_.SelectBranch(entry)) {
    entry_ = entry;
  } else {
    const QSignalBlocker ownChange(ui_->SSTabBranchQ);
    ui_->SSTabBranchQ->setCurrentIndex(entry_);
  }
}

void frmQual::ShowBranchList(const std::vector<std::string>& names, int selected) {
  const QSignalBlocker ownChange(ui_->SSTabBranchQ);
  while (ui_->SSTabBranchQ->count() > 0) ui_->SSTabBranchQ->removeTab(0);
  for (const std::string& name : names) {
    ui_->SSTabBranchQ->addTab(ToQt(name).replace("&", "&&"));
  }
  ui_->SSTabBranchQ->setCurrentIndex(selected);
  entry_ = selected;
}

QualBranchForm frmQual::Branch() const {
  QualBranchForm form = shownBranch_;
  form.USFile = FromQt(ui_->txtUSFile->text());
  form.DSFile = FromQt(ui_->txtDSFile->text());
  return form;
}

void frmQual::ShowBranch(const QualBranchForm& form) {
  ShowText(*ui_->txtUSFile, form.USFile);
  ShowText(*ui_->txtDSFile, form.DSFile);
  ui_->txtUSFile->setEnabled(form.NeedsUSFile);
  ui_->txtDSFile->setEnabled(form.NeedsDSFile);
  shownBranch_ = form;
  for (const CoefficientGrid& grid : coefficients_) SetColumnWidths(grid);
}

}  // namespace lomaris
