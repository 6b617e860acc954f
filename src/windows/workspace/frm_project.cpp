#include "windows/workspace/frm_project.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>

#include <fmt/format.h>

#include "core/files.h"
#include "core/program.h"
#include "core/text.h"
#include "model/file_names.h"
#include "windows/core/help_window.h"
#include "windows/core/kept_selection.h"
#include "windows/core/menu_status.h"
#include "windows/core/qt_text.h"
#include "windows/core/themed_icon.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"
#include "windows/workspace/ui_frm_project.h"

namespace lomaris {
namespace {

constexpr int kFilesTab = 0;
constexpr int kDiagramTab = 1;
constexpr std::size_t kFirstSlotItem = 5;  ///< index of slot 0 in the Edit menu
constexpr int kContentsTopic = 1;

struct ActionIcon {
  const char* Action;
  const char* Icon;
};

constexpr ActionIcon kActionIcons[] = {
    {"mnuFileNew", "new"},
    {"mnuFileOpen", "open"},
    {"mnuFileClose", "close"},
    {"mnuFileSave", "save"},
    {"mnuEditItem0", "cut"},
    {"mnuEditItem1", "copy"},
    {"mnuEditItem2", "paste"},
    {"tbBuildAux", "build_aux"},
    {"mnuRunItem0", "run_h"},
    {"mnuRunItem1", "run_q"},
    {"mnuRunItem4", "post_processor"},
    {"mnuRunItem6", "korb"},
    {"mnuHelpItem0", "help"},
    {"mnuHelpItem1", "whats_this"},
    {"tbWhatsThis", "whats_this"},
    {"mnuOpenItem0", "edit"},
    {"mnuOpenItem1", "open"},
    {"mnuOpenItem2", "create"},
    {"mnuOpenItem3", "remove"},
    {"tbFileListOpen", "open"},
    {"tbFileListClose", "remove"},
    {"tbFileListRun", "run"},
    {"tbFileListLgIcons", "large_icons"},
    {"tbFileListSmIcons", "small_icons"},
    {"tbFileListList", "list"},
    {"tbFileListDetails", "details"},
};

/// Everything that is there only while a project is open.
constexpr const char* kProjectActions[] = {
    "mnuFileSave",  "mnuFileSaveAs", "mnuFilePrint", "mnuFileClose", "mnuEditItem0", "mnuEditItem1",
    "mnuEditItem2", "mnuRunItem0",   "mnuRunItem1",  "mnuRunItem2",  "mnuRunItem6",  "tbWhatsThis"};

bool IsOneProject(const std::vector<std::string>& paths) {
  return paths.size() == 1 && EqualIgnoringCase(ExtensionOf(paths.front()), "prj");
}

QString NumberedCaption(std::size_t number, const std::string& name) {
  return QString("&%1 %2").arg(number).arg(ToQt(name).replace("&", "&&"));
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

void frmProject::SetIcons() {
  for (const ActionIcon& entry : kActionIcons) {
    findChild<QAction*>(entry.Action)->setIcon(ThemedIcon(entry.Icon));
  }
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    EditButtonOf(slot)->setIcon(ThemedIcon("edit"));
    SelectButtonOf(slot)->setIcon(ThemedIcon("select"));
  }
}

void frmProject::Offer(QAction* action, std::function<void()> handler) {
  offered_.insert(action);
  connect(action, &QAction::triggered, this, std::move(handler));
}

void frmProject::OfferFileMenu() {
  Offer(ui_->mnuFileOpen, [this] { desk_.Open(); });
  Offer(ui_->mnuFileOpenLast, [this] { desk_.OpenRecent(0); });
  Offer(ui_->mnuFileClose, [this] { desk_.Close(); });
  Offer(ui_->mnuFileSave, [this] { desk_.SaveProject(false); });
  Offer(ui_->mnuFileSaveAs, [this] { desk_.SaveProject(true); });
  Offer(ui_->mnuFileExit, [this] { close(); });
  for (std::size_t i = 0; i < RecentFiles::kMost; ++i) {
    Offer(ItemOf("mnuFileMRU", i), [this, i] { desk_.OpenRecent(i); });
  }
  for (std::size_t i = 0; i < kInputFileKinds.size(); ++i) {
    // Editors join the program one by one; a new water quality file is built from the network.
    if (kInputFileKinds[i].empty() || !desk_.OffersEditor(kInputFileKinds[i])) continue;
    Offer(ItemOf("mnuFileOpenItem", i), [this, i] { desk_.OpenInputFile(i); });
    if (kInputFileKinds[i] == "QNP") continue;
    Offer(ItemOf("mnuFileCreateItem", i), [this, i] { desk_.CreateInputFile(i); });
  }
  for (std::size_t i = desk_.OffersEditor("BMD") ? 0 : 1; i < 3; ++i) {
    Offer(ItemOf("mnuFileOutputItem", i), [this, i] { desk_.OpenOutputFile(i); });
  }
  ui_->mnuFileNew->setEnabled(false);
}

void frmProject::OfferEditMenu() {
  Offer(ui_->mnuEditItem0, [this] { SendKeystroke(Qt::Key_X); });
  Offer(ui_->mnuEditItem1, [this] { SendKeystroke(Qt::Key_C); });
  Offer(ui_->mnuEditItem2, [this] { SendKeystroke(Qt::Key_V); });
  Offer(ui_->mnuEditItem3, [this] { desk_.Replace(); });
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    Offer(ItemOf("mnuEditItem", kFirstSlotItem + slot), [this, slot] { desk_.EditSlot(slot); });
  }
  Offer(ui_->mnuOpenItem0, [this] { desk_.EditSlot(popupSlot_); });
  Offer(ui_->mnuOpenItem1, [this] { desk_.SelectExisting(popupSlot_); });
  Offer(ui_->mnuOpenItem2, [this] { desk_.CreateEmpty(popupSlot_); });
  Offer(ui_->mnuOpenItem3, [this] { desk_.RemoveFile(popupSlot_); });
}

void frmProject::OfferHelpMenu() {
  Offer(ui_->mnuHelpItem0, [this] { ShowHelpContents(kContentsTopic, settings_); });
  Offer(ui_->mnuHelpItem1, [] { QWhatsThis::enterWhatsThisMode(); });
  Offer(ui_->tbWhatsThis, [] { QWhatsThis::enterWhatsThisMode(); });
  Offer(ui_->mnuHelpItem3, [this] { desk_.OpenWebSite(); });
  Offer(ui_->mnuHelpItem4, [this] { desk_.MailTechSupport(); });
  Offer(ui_->mnuHelpItem6, [this] { ShowAbout(); });
}

void frmProject::OfferFileList() {
  FileListView* files = ui_->lvFileList;
  const auto row = [files] { return static_cast<std::size_t>(files->SelectedRow()); };
  Offer(ui_->tbFileListOpen, [this] { desk_.BrowseOtherFiles(); });
  Offer(ui_->tbFileListClose, [this, row] { desk_.CloseOtherFile(row()); });
  Offer(ui_->tbFileListRun, [this, row] { desk_.RunOtherFile(row()); });

  connect(files, &FileListView::FileActivated, this, [this, row] { desk_.RunOtherFile(row()); });
  connect(files, &FileListView::RemoveRequested, this,
          [this, row] { desk_.CloseOtherFile(row()); });
  connect(files, &FileListView::FilesDropped, this, &frmProject::OpenOrList);
  connect(files, &FileListView::SelectionChanged, this, [this, files] {
    ui_->tbFileListClose->setEnabled(files->SelectedRow() >= 0);
    ui_->tbFileListRun->setEnabled(files->SelectedRow() >= 0);
  });
}

void frmProject::OfferLooks() {
  FileListView* files = ui_->lvFileList;
  QToolBar* bar = ui_->tbFileList;
  bar->addActions({ui_->tbFileListOpen, ui_->tbFileListClose, ui_->tbFileListRun});
  bar->addSeparator();
  auto* looks = new QActionGroup(this);
  const auto offerLook = [&](QAction* action, FileListView::Look look) {
    action->setCheckable(true);
    looks->addAction(action);
    bar->addAction(action);
    Offer(action, [files, look] { files->SetLook(look); });
  };
  offerLook(ui_->tbFileListLgIcons, FileListView::Look::LargeIcons);
  offerLook(ui_->tbFileListSmIcons, FileListView::Look::SmallIcons);
  offerLook(ui_->tbFileListList, FileListView::Look::List);
  offerLook(ui_->tbFileListDetails, FileListView::Look::Details);
  ui_->tbFileListDetails->setChecked(true);
  for (QAction* action : bar->actions()) bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
}

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
  connect(text, &QLineEdit::editingFinished, this, [text] {
    const QString name = ToQt(NormaliseFileName(FromQt(text->text()), true));
    if (name != text->text()) text->setText(name);
  });
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

void frmProject::ShowRecent(const std::vector<std::string>& names) {
  for (std::size_t i = 0; i < RecentFiles::kMost; ++i) {
    QAction* item = ItemOf("mnuFileMRU", i);
    item->setVisible(i < names.size());
    if (i < names.size()) item->setText(NumberedCaption(i + 1, names[i]));
  }
  ui_->mnuFileOpenLast->setEnabled(!names.empty());
}

void frmProject::EnableOffered(QAction* action, bool enabled) {
  action->setEnabled(enabled && offered_.contains(action));
}

/// A menu opens when one of its items is offered.
void frmProject::EnableMenu(QAction* menuAction, bool enabled) {
  bool any = false;
  for (QAction* item : menuAction->menu()->actions()) {
    if (item->isSeparator()) continue;
    EnableOffered(item, enabled);
    any = any || item->isEnabled();
  }
  menuAction->setEnabled(any);
}

void frmProject::SetProjectMenus(bool enabled) {
  for (const char* name : kProjectActions) EnableOffered(findChild<QAction*>(name), enabled);
  for (const QMenu* menu :
       {ui_->mnuFileCreate, ui_->mnuFileOpenInput, ui_->mnuFileBuild, ui_->mnuFileOutput}) {
    EnableMenu(menu->menuAction(), enabled);
  }
  for (QAction* action : {ui_->tbBuildAux, ui_->mnuRunItem4, ui_->mnuEditItem16,
                          ui_->mnuDiagramItem0, ui_->mnuDiagramItem1, ui_->mnuDiagramItem3}) {
    EnableOffered(action, enabled);
  }
  ui_->mnuEdit->menuAction()->setEnabled(enabled);
  ui_->mnuRun->menuAction()->setEnabled(enabled);
  SetSlotActions();
}

void frmProject::SetSlotActions() {
  const ProjectForm form = Form();
  for (std::size_t slot = 0; slot < kFileSlotCount; ++slot) {
    const bool editable = projectOpen_ && desk_.OffersEdit(form, slot);
    EditButtonOf(slot)->setEnabled(editable);
    EnableOffered(ItemOf("mnuEditItem", kFirstSlotItem + slot), editable);
  }
  EnableOffered(ui_->mnuEditItem3, projectOpen_ && ui_->SSTabMain->currentIndex() == kFilesTab);
}

void frmProject::ShowOpenPopup(std::size_t slot) {
  popupSlot_ = slot;
  const ProjectForm form = Form();
  const bool named = !kFileSlots[slot].IsList() && NamesAFile(form.Texts[slot]);
  ui_->mnuOpenItem0->setEnabled(desk_.OffersEdit(form, slot));
  ui_->mnuOpenItem2->setEnabled(desk_.OffersEditor(kFileSlots[slot].Kind));
  ui_->mnuOpenItem3->setEnabled(named);
  const QToolButton* button = SelectButtonOf(slot);
  mnuOpenPopup_->popup(button->mapToGlobal(button->rect().bottomLeft()));
}

void frmProject::SendKeystroke(int key) {
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr || ui_->SSTabMain->currentIndex() != kFilesTab) return;
  QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier);
  QApplication::sendEvent(target, &press);
}

void frmProject::ShowTab(int tab) {
  if (showing_) return;
  if (tab == kDiagramTab) ui_->lblDiagram->setText(ToQt(desk_.LoadNetwork()));
  SetSlotActions();
}

void frmProject::ShowAbout() {
  screen_.ShowMessage(
      {.Text = fmt::format("{} {}\r\n\r\nThe preprocessor of the Tavresk river model: creates, "
                           "edits, checks and runs its input files.\r\n\r\nFree software under "
                           "the GNU General Public License, version 3 or later. It comes with "
                           "no warranty.",
                           kApplicationTitle, ProgramVersion()),
       .Title = fmt::format("About {}", kApplicationTitle),
       .BoxIcon = Icon::Information});
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

QAction* frmProject::ItemOf(const char* menu, std::size_t index) const {
  return findChild<QAction*>(QString("%1%2").arg(menu).arg(index));
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
