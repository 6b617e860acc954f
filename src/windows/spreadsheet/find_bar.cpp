#include "windows/spreadsheet/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

#include "spreadsheet/sheet_queries.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

QToolButton* AddButton(QLayout& layout, const char* name, const QString& caption,
                       const QString& toolTip) {
  auto* button = new QToolButton;
  button->setObjectName(name);
  button->setText(caption);
  button->setToolTip(toolTip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  layout.addWidget(button);
  return button;
}

}  // namespace

FindBar::FindBar(const Sheet& sheet, QWidget* parent)
    : QWidget(parent), sheet_(sheet), text_(new QLineEdit), outcome_(new QLabel) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  auto* label = new QLabel(tr("Find:"));
  label->setBuddy(text_);
  layout->addWidget(label);
  layout->addWidget(text_, 2);
  text_->setObjectName("txtFind");
  text_->setAccessibleName(tr("Text to find"));
  text_->setToolTip(tr("Text to find in the cells, whatever its case"));
  text_->installEventFilter(this);
  const auto* next = AddButton(*layout, "btnFindNext", tr("Next"), tr("Find the next cell (F3)"));
  const auto* before =
      AddButton(*layout, "btnFindPrevious", tr("Previous"), tr("Find the cell before (Shift+F3)"));
  outcome_->setObjectName("lblFound");
  layout->addWidget(outcome_, 1);
  const auto* close = AddButton(*layout, "btnFindClose", tr("Close"), tr("Close (Esc)"));
  connect(next, &QToolButton::clicked, this, [this] { FindNext(false); });
  connect(before, &QToolButton::clicked, this, [this] { FindNext(true); });
  connect(close, &QToolButton::clicked, this, &FindBar::Close);
  connect(text_, &QLineEdit::textChanged, outcome_, &QLabel::clear);
  hide();
}

void FindBar::Open() {
  show();
  text_->setFocus();
  text_->selectAll();
}

void FindBar::FindNext(bool backward) {
  if (text_->text().isEmpty()) return Open();
  const CellPlace from{sheet_.Selected().Row, sheet_.Selected().Col};
  const std::string text = FromQt(text_->text());
  const std::optional<CellPlace> found =
      backward ? FindPrevious(sheet_, text, from) : lomaris::FindNext(sheet_, text, from);
  outcome_->setText(found ? QString() : tr("Not found"));
  if (found) emit Found(found->Row, found->Col);
  if (!found) show();
}

void FindBar::Close() {
  hide();
  emit Closed();
}

bool FindBar::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (!enter && key.key() != Qt::Key_F3 && key.key() != Qt::Key_Escape) return false;
  event->accept();
  if (event->type() == QEvent::ShortcutOverride) return true;
  if (key.key() == Qt::Key_Escape) {
    Close();
  } else {
    FindNext(key.modifiers().testFlag(Qt::ShiftModifier));
  }
  return true;
}

}  // namespace lomaris
