// The menus, pop-ups and pages of the water quality editor.

#include <algorithm>

#include "windows/core/themed_icon.h"
#include "windows/editors/frm_qual.h"
#include "windows/editors/ui_frm_qual.h"

namespace lomaris {
namespace {

constexpr ActionIcon kActionIcons[] = {
    {"mnuBCFPopupItem0", "edit"}, {"mnuBCFPopupItem1", "open"}, {"mnuBCFPopupItem2", "create"},
    {"mnuMetItem0", "edit"},      {"mnuMetItem1", "open"},      {"mnuMetItem2", "open_plus"},
    {"mnuMetItem3", "create"},    {"mnuMetItem4", "open_minus"}};

}  // namespace

void frmQual::ConnectMenus() {
  SetActionIcons(*this, kActionIcons);
  for (const FileControls& file : files_) {
    file.Edit->setIcon(ThemedIcon("edit"));
    file.Select->setIcon(ThemedIcon("open"));
  }
  for (QToolButton* button : {ui_->btnMetFileSelect, ui_->btnUSSelect, ui_->btnDSSelect}) {
    button->setIcon(ThemedIcon("select"));
  }
  connect(ui_->mnuEditResetDefault, &QAction::triggered, this, &frmQual::ResetToDefaults);
  connect(ui_->mnuEditNetworkNames, &QAction::triggered, this, [this] {
    if (EndEdits()) desk_.TakeNetworkNames();
  });
  connect(ui_->mnuEdit, &QMenu::aboutToShow, this,
          [this] { ui_->mnuEditNetworkNames->setEnabled(desk_.OffersNetworkNames()); });
  connect(ui_->SSTabMainQ, &QTabWidget::currentChanged, this, &frmQual::ShowPage);

  const std::vector<QAction*> met = {ui_->mnuMetItem0, ui_->mnuMetItem1, ui_->mnuMetItem2,
                                     ui_->mnuMetItem3, ui_->mnuMetItem4};
  mnuMetPopup_ = PopUp("mnuMetPopup", met);
  for (std::size_t i = 0; i < met.size(); ++i) {
    connect(met[i], &QAction::triggered, this,
            [this, i] { desk_.RunMet(static_cast<MetAction>(i)); });
  }
  connect(ui_->btnMetFileSelect, &QToolButton::clicked, this, &frmQual::ShowMetPopup);

  const std::vector<QAction*> boundary = {ui_->mnuBCFPopupItem0, ui_->mnuBCFPopupItem1,
                                          ui_->mnuBCFPopupItem2, ui_->mnuBCFPopupItem3};
  mnuBCFPopup_ = PopUp("mnuBCFPopup", boundary);
  for (std::size_t i = 0; i < boundary.size(); ++i) {
    connect(boundary[i], &QAction::triggered, this,
            [this, i] { desk_.RunBoundary(static_cast<QualBoundary>(i), isPopupUpstream_); });
  }
  connect(ui_->btnUSSelect, &QToolButton::clicked, this,
          [this] { ShowBoundaryPopup(ui_->btnUSSelect, true); });
  connect(ui_->btnDSSelect, &QToolButton::clicked, this,
          [this] { ShowBoundaryPopup(ui_->btnDSSelect, false); });
}

QMenu* frmQual::PopUp(const char* name, const std::vector<QAction*>& entries) {
  auto* menu = new QMenu(this);
  menu->setObjectName(name);
  for (QAction* entry : entries) menu->addAction(entry);
  return menu;
}

void frmQual::ShowMetPopup() {
  int action = 0;
  for (QAction* entry : mnuMetPopup_->actions()) {
    entry->setEnabled(desk_.OffersMet(static_cast<MetAction>(action++)));
  }
  const QToolButton* button = ui_->btnMetFileSelect;
  mnuMetPopup_->popup(button->mapToGlobal(button->rect().bottomLeft()));
}

void frmQual::ShowBoundaryPopup(QToolButton* button, bool isUpstream) {
  isPopupUpstream_ = isUpstream;
  int action = 0;
  for (QAction* entry : mnuBCFPopup_->actions()) {
    entry->setEnabled(desk_.OffersBoundary(static_cast<QualBoundary>(action++), isUpstream));
  }
  mnuBCFPopup_->popup(button->mapToGlobal(button->rect().bottomLeft()));
}

/// The tabs of the branches belong to the pages that show one.
void frmQual::ShowPage(int page) {
  const QWidget* shown = ui_->SSTabMainQ->widget(page);
  const bool isOfBranch =
      shown->isAncestorOf(ui_->ssBranchKinetics) || shown->isAncestorOf(ui_->ssXSectKinetics) ||
      shown->isAncestorOf(ui_->ssInitialCond) || shown->isAncestorOf(ui_->ssLateralInflows) ||
      shown->isAncestorOf(ui_->ssPlotted);
  ui_->lblBranchQ->setVisible(isOfBranch);
  ui_->SSTabBranchQ->setVisible(isOfBranch);
  const auto grid = std::ranges::find_if(
      coefficients_, [&](const CoefficientGrid& each) { return shown->isAncestorOf(each.Grid); });
  const bool hasCoefficients = grid != coefficients_.end();
  ui_->mnuEditResetDefault->setEnabled(hasCoefficients);
  ui_->lblParameter->setVisible(hasCoefficients);
  if (hasCoefficients) ShowParameter(*grid);
}

}  // namespace lomaris
