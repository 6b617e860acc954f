#include "windows/core/kept_selection.h"

#include <QFocusEvent>
#include <QLineEdit>

namespace lomaris {
namespace {

/// A line edit drops its selection when the menu bar takes the focus; this puts it back.
class KeptSelection : public QObject {
 public:
  explicit KeptSelection(QLineEdit& field) : QObject(&field), field_(field) {
    field.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    const bool isFocus = event->type() == QEvent::FocusOut || event->type() == QEvent::FocusIn;
    if (!isFocus || static_cast<QFocusEvent*>(event)->reason() != Qt::MenuBarFocusReason) {
      return false;
    }
    if (event->type() == QEvent::FocusOut) {
      start_ = field_.selectionStart();
      length_ = static_cast<int>(field_.selectedText().size());
    } else if (start_ >= 0) {
      field_.setSelection(start_, length_);
    }
    return false;
  }

 private:
  QLineEdit& field_;
  int start_ = -1;
  int length_ = 0;
};

}  // namespace

void KeepSelectionInMenus(QWidget& window) {
  for (QLineEdit* field : window.findChildren<QLineEdit*>()) new KeptSelection(*field);
}

}  // namespace lomaris
