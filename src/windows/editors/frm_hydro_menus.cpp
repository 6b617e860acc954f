// The menus, tool bar and buttons of the hydrodynamic editor.

#include "windows/core/themed_icon.h"
#include "windows/editors/frm_hydro.h"
#include "windows/editors/ui_frm_hydro.h"

namespace lomaris {
namespace {

constexpr const char* kSection = "HNPStartup";
constexpr const char* kShowProfileKey = "ShowProfile";

constexpr ActionIcon kActionIcons[] = {
    {"mnuBCFPopupItem0", "edit"}, {"mnuBCFPopupItem1", "open"}, {"mnuBCFPopupItem2", "create"}};

}  // namespace

void frmHydro::SetIcons() {
  SetActionIcons(*this, kActionIcons);
  for (const FileControls& file : files_) {
    file.Edit->setIcon(ThemedIcon("edit"));
    file.Select->setIcon(ThemedIcon("open"));
  }
  ui_->btnUSSelect->setIcon(ThemedIcon("select"));
  ui_->btnDSSelect->setIcon(ThemedIcon("select"));
}

void frmHydro::ConnectMenus() {
  const auto offer = [this](QAction* action, auto handler) {
    connect(action, &QAction::triggered, this, handler);
  };
  offer(ui_->mnuEditAddBranch, [this] { WithBranch(&HydroDesk::AddBranch); });
  offer(ui_->mnuEditDeleteBranch, [this] { WithBranch(&HydroDesk::DeleteBranch); });
  offer(ui_->mnuEditRenameBranch, [this] { desk_.RenameBranch(); });
  connect(ui_->btnAddBranch, &QPushButton::clicked, ui_->mnuEditAddBranch, &QAction::trigger);
  connect(ui_->btnDeleteBranch, &QPushButton::clicked, ui_->mnuEditDeleteBranch, &QAction::trigger);
  connect(ui_->btnRenameBranch, &QPushButton::clicked, ui_->mnuEditRenameBranch, &QAction::trigger);
  ui_->mnuViewProfile->setChecked(around_.Store.Value(kSection, kShowProfileKey, "1") == "1");
  ui_->plotProfile->setVisible(ui_->mnuViewProfile->isChecked());
  offer(ui_->mnuViewProfile, [this](bool visible) { ShowPicture(visible); });
}

void frmHydro::WithBranch(void (HydroDesk::*action)()) {
  if (EndGridEdits()) (desk_.*action)();
}

void frmHydro::ShowPicture(bool visible) {
  ui_->plotProfile->setVisible(visible);
  around_.Store.SetValue(kSection, kShowProfileKey, visible ? "1" : "0");
}

void frmHydro::ConnectPopup() {
  mnuBCFPopup_->setObjectName("mnuBCFPopup");
  QAction* const entries[] = {ui_->mnuBCFPopupItem0, ui_->mnuBCFPopupItem1, ui_->mnuBCFPopupItem2};
  for (int i = 0; i < 3; ++i) {
    mnuBCFPopup_->addAction(entries[i]);
    connect(entries[i], &QAction::triggered, this,
            [this, i] { desk_.RunBoundary(static_cast<BoundaryAction>(i), isPopupUpstream_); });
  }
  connect(ui_->btnUSSelect, &QToolButton::clicked, this,
          [this] { ShowPopup(ui_->btnUSSelect, true); });
  connect(ui_->btnDSSelect, &QToolButton::clicked, this,
          [this] { ShowPopup(ui_->btnDSSelect, false); });
}

void frmHydro::ShowPopup(QToolButton* button, bool isUpstream) {
  isPopupUpstream_ = isUpstream;
  int action = 0;
  for (QAction* entry : mnuBCFPopup_->actions()) {
    entry->setEnabled(desk_.OffersBoundary(static_cast<BoundaryAction>(action++), isUpstream));
  }
  mnuBCFPopup_->popup(button->mapToGlobal(button->rect().bottomLeft()));
}

}  // namespace lomaris
