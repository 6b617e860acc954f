#include "windows/core/qt_ui.h"

#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>

#include "core/files.h"
#include "core/program.h"
#include "windows/core/file_dialog.h"
#include "windows/core/frm_select.h"
#include "windows/core/message_text.h"
#include "windows/core/qt_text.h"

namespace lomaris {
namespace {

constexpr int kInputBoxWidth = 420;  // pixels

// A text of more characters than this has a box that is wider than others instead of endlessly
// high.
constexpr int kLongText = 1500;
constexpr int kLongTextWidth = 760;  // pixels

/// Shows the ordinary pointer over a dialog that opens while the hourglass is on.
class OrdinaryPointer {
 public:
  OrdinaryPointer() : wasBusy_(QApplication::overrideCursor() != nullptr) {
    if (wasBusy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~OrdinaryPointer() {
    if (wasBusy_) QApplication::restoreOverrideCursor();
  }
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;

 private:
  bool wasBusy_;
};

struct AnswerButton {
  Answer Means;
  QMessageBox::StandardButton Button;
};

constexpr AnswerButton kAnswerButtons[] = {
    {Answer::Ok, QMessageBox::Ok},         {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Abort, QMessageBox::Abort},   {Answer::Retry, QMessageBox::Retry},
    {Answer::Ignore, QMessageBox::Ignore}, {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No},
};

QMessageBox::StandardButton ButtonOf(Answer answer) {
  return std::ranges::find(kAnswerButtons, answer, &AnswerButton::Means)->Button;
}

/// What a kind of box offers. Without a default of its own the first button is the default.
struct ButtonRow {
  std::vector<Answer> Answers;
  Answer OnEscape;  ///< what closing the box means
};

ButtonRow RowOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      break;
    case Buttons::OkCancel:
      return {{Answer::Ok, Answer::Cancel}, Answer::Cancel};
    case Buttons::YesNo:
      return {{Answer::Yes, Answer::No}, Answer::No};
    case Buttons::YesNoCancel:
      return {{Answer::Yes, Answer::No, Answer::Cancel}, Answer::Cancel};
    case Buttons::AbortRetryIgnore:
      return {{Answer::Abort, Answer::Retry, Answer::Ignore}, Answer::Abort};
  }
  return {{Answer::Ok}, Answer::Ok};
}

QMessageBox::Icon IconOf(Icon icon) {
  constexpr QMessageBox::Icon kIcons[] = {QMessageBox::NoIcon, QMessageBox::Information,
                                          QMessageBox::Question, QMessageBox::Warning,
                                          QMessageBox::Critical};
  return kIcons[static_cast<std::size_t>(icon)];
}

QString TitleOf(const std::string& title) {
  return ToQt(title.empty() ? kApplicationTitle : std::string_view(title));
}

}  // namespace

QWidget* QtUi::DialogParent() {
  QWidget* window = QApplication::activeWindow();
  if (window != nullptr && window->isModal()) return window;
  // Not the splash, which deletes itself and what belongs to it.
  if (window != nullptr && window->windowType() == Qt::Window) lastActive_ = window;
  return lastActive_ != nullptr && lastActive_->isVisible() ? lastActive_ : nullptr;
}

Answer QtUi::ShowMessage(const MessageBox& box) {
  const OrdinaryPointer pointer;
  QMessageBox window(DialogParent());
  window.setWindowTitle(TitleOf(box.Title));
  window.setIcon(IconOf(box.BoxIcon));
  window.setTextFormat(Qt::PlainText);
  const QString text = MessageText(box.Text);
  window.setText(text);
  if (text.size() > kLongText) {
    if (auto* label = window.findChild<QLabel*>("qt_msgbox_label")) {
      label->setMinimumWidth(kLongTextWidth);
    }
  }
  const ButtonRow row = RowOf(box.BoxButtons);
  for (const Answer answer : row.Answers) window.addButton(ButtonOf(answer));
  window.setDefaultButton(ButtonOf(box.DefaultAnswer.value_or(row.Answers.front())));
  window.setEscapeButton(ButtonOf(row.OnEscape));
  const int pressed = window.exec();
  const auto button = std::ranges::find(kAnswerButtons, pressed, [](const AnswerButton& each) {
    return static_cast<int>(each.Button);
  });
  return button == std::end(kAnswerButtons) ? row.OnEscape : button->Means;
}

std::string QtUi::AskText(const InputBox& box) {
  const OrdinaryPointer pointer;
  QInputDialog window(DialogParent());
  window.setWindowTitle(TitleOf(box.Title));
  window.setLabelText(MessageText(box.Prompt));
  window.setTextValue(ToQt(box.Proposal));
  auto* prompt = window.findChild<QLabel*>();
  prompt->setTextFormat(Qt::PlainText);
  prompt->setWordWrap(true);
  prompt->setMinimumWidth(kInputBoxWidth);
  return window.exec() == QDialog::Accepted ? FromQt(window.textValue()) : std::string();
}

std::vector<std::string> QtUi::AskFile(const FileDialog& dialog) {
  const OrdinaryPointer pointer;
  std::vector<std::string> files = ShowFileDialog(dialog, DialogParent(), *this);
  if (!files.empty()) MoveToFolderOf(files.front());
  return files;
}

std::optional<std::size_t> QtUi::PickFromList(const std::string& caption,
                                              const std::vector<std::string>& rows) {
  const OrdinaryPointer pointer;
  frmSelect window(ToQt(caption), rows, DialogParent());
  return window.exec() == QDialog::Accepted ? window.PickedRow() : std::nullopt;
}

void QtUi::SetBusyPointer(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtUi::ResetPointers() {
  while (QApplication::overrideCursor() != nullptr) QApplication::restoreOverrideCursor();
  for (QWidget* window : QApplication::topLevelWidgets()) window->unsetCursor();
}

void QtUi::DoEvents() {
  QApplication::processEvents();
}

void QtUi::Beep() {
  QApplication::beep();
}

void QtUi::SetClipboardText(const std::string& text) {
  QApplication::clipboard()->setText(ToQt(text));
}

std::string QtUi::ClipboardText() {
  return FromQt(QApplication::clipboard()->text());
}

}  // namespace lomaris
