// The menus, tool bars and buttons of the project window: what they do and when they are offered.

#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>
#include <functional>
#include <utility>

#include <fmt/format.h>

#include "core/program.h"
#include "model/file_names.h"
#include "windows/core/help_window.h"
#include "windows/core/keystroke.h"
#include "windows/core/qt_text.h"
#include "windows/core/themed_icon.h"
#include "windows/workspace/frm_project.h"
#include "windows/workspace/ui_frm_project.h"
#include "workspace/file_slots.h"

namespace lomaris {
namespace {

constexpr std::size_t kFirstSlotItem = 5;  ///< index of slot 0 in the Edit menu
constexpr int kContentsTopic = 1;
constexpr std::size_t kRunItems[] = {0, 1, 2, 4, 6};

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

QString NumberedCaption(std::size_t number, const std::string& name) {
  return QString("&%1 %2").arg(number).arg(ToQt(name).replace("&", "&&"));
}

}  // namespace

void frmProject::SetIcons() {
  SetActionIcons(*this, kActionIcons);
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
    // Editors join the program one by one.
    if (kInputFileKinds[i].empty() || !desk_.OffersEditor(kInputFileKinds[i])) continue;
    Offer(ItemOf("mnuFileOpenItem", i), [this, i] { desk_.OpenInputFile(i); });
    Offer(ItemOf("mnuFileCreateItem", i), [this, i] { desk_.CreateInputFile(i); });
  }
  if (desk_.OffersEditor("QNP")) Offer(ui_->mnuFileBuildItem1, [this] { desk_.BuildQNP(); });
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

void frmProject::OfferRunMenu(RunMenu& runs) {
  runs_ = &runs;
  for (const std::size_t index : kRunItems) {
    Offer(ItemOf("mnuRunItem", index), [this, index] { runs_->RunItem(static_cast<int>(index)); });
  }
  SetProjectMenus(projectOpen_);
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
  EnableOffered(ui_->mnuEditItem3,
                projectOpen_ && ui_->SSTabMain->currentWidget() == ui_->tabFiles);
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
  if (target == nullptr || ui_->SSTabMain->currentWidget() != ui_->tabFiles) return;
  lomaris::SendKeystroke(*target, key);
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

QAction* frmProject::ItemOf(const char* menu, std::size_t index) const {
  return findChild<QAction*>(QString("%1%2").arg(menu).arg(index));
}

}  // namespace lomaris
