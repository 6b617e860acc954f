#include "windows/core/editor_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QWhatsThis>

#include "windows/core/help_window.h"
#include "windows/core/kept_selection.h"
#include "windows/core/menu_status.h"
#include "windows/core/themed_icon.h"
#include "windows/core/whats_this.h"

namespace lomaris {
namespace {

constexpr ActionIcon kIcons[] = {{"mnuFileSave", "save"},     {"mnuFileSaveAs", "save_as"},
                                 {"mnuFileClose", "close"},   {"mnuEditCut", "cut"},
                                 {"mnuEditCopy", "copy"},     {"mnuEditPaste", "paste"},
                                 {"mnuHelpContents", "help"}, {"mnuHelpWhatsThis", "whats_this"}};

/// The entries of the Edit menu. Undo and Redo only show their keys: who has the focus takes them
/// on its own.
constexpr std::pair<const char*, Qt::Key> kKeys[] = {{"mnuEditUndo", Qt::Key_Z},
                                                     {"mnuEditRedo", Qt::Key_Y},
                                                     {"mnuEditCut", Qt::Key_X},
                                                     {"mnuEditCopy", Qt::Key_C},
                                                     {"mnuEditPaste", Qt::Key_V}};

}  // namespace

void EditorWindow::CompleteForm(int helpTopic, Settings& store, KeySender sendToFocus) {
  const auto offer = [this](const char* action, auto handler) {
    connect(findChild<QAction*>(action), &QAction::triggered, this, handler);
  };
  SetActionIcons(*this, kIcons);
  offer("mnuFileSave", [this] { Save(false); });
  offer("mnuFileSaveAs", [this] { Save(true); });
  offer("mnuFileSaveClose", [this] {
    if (Save(false)) close();
  });
  offer("mnuFileClose", [this] { close(); });
  for (const auto& [action, key] : kKeys) {
    offer(action, [this, sendToFocus, key = key] { sendToFocus(*this, key); });
  }
  offer("mnuHelpContents", [helpTopic, &store] { ShowHelpContents(helpTopic, store); });
  offer("mnuHelpWhatsThis", [] { QWhatsThis::enterWhatsThisMode(); });
  SubscribeMenuStatus(*this);
  ApplyWhatsThis(*this);
  KeepSelectionInMenus(*this);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // it stays also when the question fails
  if (!MayClose()) return;
  event->accept();
  emit Closing();
}

}  // namespace lomaris
