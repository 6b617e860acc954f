#include "windows/workspace/frm_project.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolButton>

#include "core/files.h"
#include "core/text.h"
#include "windows/core/field_text.h"
#include "windows/core/kept_selection.h"
#include "windows/core/menu_status.h"
#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"
#include "windows/workspace/ui_frm_project.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr int kFilesTab = 0;
constexpr int kDiagramTab = 1;

bool IsOneProject(const std::vector<std::string>& paths) {
  return paths.size() == 1 && EqualIgnoringCase(ExtensionOf(paths.front()), "prj");
}

}  // namespace

frmProject::frmProject(ProjectData& project, HydroInput& hydro, const Tables& tables,
                       lomaris::Ui& screen, Settings& settings, Shell& desktop,
                       QtWorkbench& workbench, QWidget* parent)
    : QMainWindow(parent),
      ui_(std::make_unique<::Ui::frmProject>()),
      screen_(screen),
      settings_(settings),
      mnuOpenPopup_(new QMenu(this)),
      desk_({project, hydro, tables, screen, settings, desktop, workbench}, *this) {
  ui_->setupUi(this);
  mnuOpenPopup_->setObjectName("mnuOpenPopup");
  mnuOpenPopup_->addActions(
      {ui_->mnuOpenItem0, ui_->mnuOpenItem1, ui_->mnuOpenItem2, ui_->mnuOpenItem3});
  SetIcons();
  OfferFileMenu();
  OfferEditMenu();
  OfferHelpMenu();
  OfferFileList();
  OfferLooks();
  ConnectSlots();
  SubscribeMenuStatus(*this);
  ApplyWhatsThis(*this);
  KeepSelectionInMenus(*this);
  workbench.SetProjectWindow(this, [this] { desk_.LoadForm(); });
  setMinimumSize(size());
  desk_.Start();
}

frmProject::~frmProject() = default;

void frmProject::ConnectSlots() {
  ui_->txtDescription->viewport()->setAcceptDrops(false);  // files are for the window
  connect(ui_->txtDescription, &QPlainTextEdit::textChanged, this, [this] {
    if (!showing_) desk_.FieldEdited();
  });
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    if (!kFileSlots[slot].IsList()) {
      ConnectText(TextOf(slot));
    }
    connect(EditButtonOf(slot), &QToolButton::clicked, this,
            [this, slot] { desk_.EditSlot(slot); });
    connect(SelectButtonOf(slot), &QToolButton::clicked, this,
            [this, slot] { ShowOpenPopup(slot); });
  }
  connect(ui_->SSTabMain, &QTabWidget::currentChanged, this, &frmProject::ShowTab);
}

void frmProject::ConnectText(QLineEdit* text) {
  connect(text, &QLineEdit::textChanged, this, [this] {
    if (showing_) return;
    desk_.FieldEdited();
    SetSlotActions();
  });
  connect(text, &QLineEdit::returnPressed, this, [text] { ShowNormalised(*text); });
  text->installEventFilter(this);
}

/// A slot that was left empty says so; not yet when a menu is opened, from which a name may come.
bool frmProject::eventFilter(QObject* watched, QEvent* event) {
  auto* text = qobject_cast<QLineEdit*>(watched);
  if (text != nullptr && event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::MenuBarFocusReason && reason != Qt::PopupFocusReason) ShowNormalised(*text);
  }
  return QMainWindow::eventFilter(watched, event);
}

bool frmProject::MayLeaveProject() {
  return runs_ == nullptr || runs_->MayLeaveProject();
}

ProjectForm frmProject::Form() const {
  ProjectForm form;
  form.Description = FromQt(ui_->txtDescription->toPlainText());
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    if (!kFileSlots[slot].IsList()) {
      form.Texts[slot] = FromQt(TextOf(slot)->text());
      continue;
    }
    const QComboBox* list = ListOf(slot);
    for (int row = 0; row < list->count(); ++row) {
      form.Lists[slot].Rows.push_back(FromQt(list->itemText(row)));
    }
    form.Lists[slot].Selected = list->currentIndex();
  }
  form.OtherFiles = ui_->lvFileList->Files();
  return form;
}

void frmProject::ShowForm(const ProjectForm& form, bool projectOpen) {
  showing_ = true;
  if (FromQt(ui_->txtDescription->toPlainText()) != form.Description) {
    ui_->txtDescription->setPlainText(ToQt(form.Description));
  }
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    if (!kFileSlots[slot].IsList()) {
      if (FromQt(TextOf(slot)->text()) != form.Texts[slot]) {
        TextOf(slot)->setText(ToQt(form.Texts[slot]));
      }
      continue;
    }
    QComboBox* list = ListOf(slot);
    list->clear();
    for (const std::string& row : form.Lists[slot].Rows) {
      list->addItem(ToQt(row));
    }
    list->setCurrentIndex(form.Lists[slot].Selected);
  }
  ui_->lvFileList->SetFiles(form.OtherFiles);
  projectOpen_ = projectOpen;
  ui_->stackMain->setCurrentWidget(projectOpen ? ui_->pageProject : ui_->PictureWallpaper);
  ui_->StatusBar->clearMessage();
  showing_ = false;
  SetProjectMenus(projectOpen);
}

void frmProject::ShowFilesTab() {
  ui_->SSTabMain->setCurrentIndex(kFilesTab);
  ui_->txtDescription->setFocus();
}

void frmProject::FocusSlot(std::size_t slot) {
  QWidget* control = TextOf(slot);
  if (kFileSlots[slot].IsList()) control = ListOf(slot);
  control->setFocus();
}

std::string frmProject::Caption() const {
  return FromQt(windowTitle());
}

void frmProject::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

void frmProject::ShowTab(int tab) {
  if (showing_) return;
  if (tab == kDiagramTab) ui_->lblDiagram->setText(ToQt(desk_.LoadNetwork()));
  SetSlotActions();
}

void frmProject::closeEvent(QCloseEvent* event) {
  if (!desk_.QueryUnload()) {
    event->ignore();
    return;
  }
  StorePosition(settings_, "MainStartup", PositionOf(*this));
  DeleteTempFiles();
  event->accept();
}

void frmProject::dragEnterEvent(QDragEnterEvent* event) {
  const std::vector<std::string> paths = DroppedFiles(*event);
  if (projectOpen_ ? paths.empty() : !IsOneProject(paths)) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void frmProject::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  OpenOrList(DroppedFiles(*event));
}

/// A project is opened; anything else joins the other files of the project that is open. After the
/// drop has ended: where the files come from is not to wait for our questions.
void frmProject::OpenOrList(const std::vector<std::string>& paths) {
  QTimer::singleShot(0, this, [this, paths] {
    if (IsOneProject(paths)) {
      desk_.OpenProject(paths.front());
    } else if (projectOpen_) {
      desk_.AddOtherFiles(paths);
    }
  });
}

QLineEdit* frmProject::TextOf(std::size_t slot) const {
  return findChild<QLineEdit*>(QString("txtFile%1").arg(slot));
}

QComboBox* frmProject::ListOf(std::size_t slot) const {
  return findChild<QComboBox*>(QString("cboFile%1").arg(slot));
}

QToolButton* frmProject::EditButtonOf(std::size_t slot) const {
  return findChild<QToolButton*>(QString("btnBrowse%1").arg(slot));
}

QToolButton* frmProject::SelectButtonOf(std::size_t slot) const {
  return findChild<QToolButton*>(QString("btnBrowseSelect%1").arg(slot));
}

}  // namespace lomaris
