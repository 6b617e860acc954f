#include "windows/spreadsheet/cell_editor.h"

#include <QApplication>
#include <algorithm>
#include <limits>
#include <utility>

#include "core/error_report.h"
#include "core/raised_flag.h"
#include "spreadsheet/cell_checks.h"
#include "windows/core/browse_for_file.h"
#include "windows/core/qt_dates.h"
#include "windows/core/qt_text.h"
#include "windows/spreadsheet/key_kinds.h"

namespace lomaris {
namespace {

constexpr int kRefusalShown = 1000;  // milliseconds
constexpr const char* kAllFiles = "All files (*.*)|*.*";

constexpr int kPassingKeys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};

bool IsTab(int key) {
  return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

/// Two digits of a year mean 1930 to 2029, but for those of the year that the cell held.
QDateTime InCentury(const QDateTime& typed, const QDateTime& before) {
  const int year = typed.date().year() % 100;
  const int yearBefore = before.date().year();
  int meant = year < 30 ? 2000 + year : 1900 + year;
  if (year == yearBefore % 100) meant = yearBefore;
  return typed.addYears(meant - typed.date().year());
}

}  // namespace

CellEditor::CellEditor(Sheet& sheet, Ui& screen, Settings& settings, QWidget& ground)
    : QObject(&ground),
      sheet_(sheet),
      screen_(screen),
      settings_(settings),
      ground_(ground),
      text_(new QLineEdit(&ground)),
      choice_(new QComboBox(&ground)),
      list_(choice_->view()),
      date_(new QDateTimeEdit(&ground)) {
  text_->setObjectName("Text1");
  text_->setFrame(false);
  choice_->setObjectName("Combo1");
  text_->setMaxLength(std::numeric_limits<int>::max());
  date_->setObjectName("DTPicker1");
  date_->setTimeSpec(Qt::UTC);  // every hour of every day exists
  date_->setDateRange({100, 1, 1}, {9999, 12, 31});
  date_->setDisplayFormat("MM/dd/yy HH:mm");
  date_->setCalendarPopup(true);
  for (QWidget* control : {static_cast<QWidget*>(text_), static_cast<QWidget*>(choice_),
                           static_cast<QWidget*>(date_)}) {
    control->setAccessibleName(tr("Cell"));
    control->hide();
    control->installEventFilter(this);
  }
  list_->installEventFilter(this);
  connect(date_->findChild<QLineEdit*>(), &QLineEdit::textEdited, this,
          [this] { yearTyped_ |= date_->currentSection() == QDateTimeEdit::YearSection; });
  connect(choice_, &QComboBox::activated, this, &CellEditor::End);
  refusal_.setSingleShot(true);
  connect(&refusal_, &QTimer::timeout, this, &CellEditor::EndRefusal);
}

void CellEditor::Open(CellPlace place, const QRect& where, EditStart start, const QString& typed) {
  if (!End() || !sheet_.CanEdit(place.Row, place.Col)) return;
  place_ = place;
  where_ = where;
  moved_ = false;
  const FormatKind kind = sheet_.FormatOf(place.Row, place.Col).Kind;
  if (!KeyAllowed(kind, FromQt(typed))) return screen_.Beep();
  if (kind == FormatKind::Choice) return OpenChoice(typed);
  const bool isDate = kind == FormatKind::DateTime && start != EditStart::Typed;
  const std::optional<ModelDateTime> dateTime =
      isDate ? sheet_.DateOf(place.Row, place.Col) : std::nullopt;
  if (dateTime) return OpenDate(*dateTime);
  OpenText(start, typed);
  if (kind == FormatKind::FileName && start == EditStart::DoubleClick) AskFileName();
}

void CellEditor::OpenText(EditStart start, const QString& typed) {
  const bool byKey = start == EditStart::Typed;
  text_->setText(byKey ? QString() : ToQt(sheet_.TextMatrix(place_.Row, place_.Col)));
  textBefore_.reset();
  if (!byKey) textBefore_ = text_->text();
  Show(*text_);
  if (byKey) TakeTyped(typed);
}

/// The cell's item is looked for in any case where none is just the same. A key that is typed looks
/// for its item, as it does in the open list.
void CellEditor::OpenChoice(const QString& typed) {
  Trap trap(screen_, "mnuEditItem_Click", "Form", "Spreadsheet");
  const StepEnd end = trap.Run([&] {
    choice_->clear();
    for (const std::string& item : Choices(sheet_.FormatOf(place_.Row, place_.Col), screen_)) {
      choice_->addItem(ToQt(item));
    }
  });
  if (end != StepEnd::Done) return;
  const QString text = ToQt(sheet_.TextMatrix(place_.Row, place_.Col));
  const int same = choice_->findText(text);
  choice_->setCurrentIndex(same < 0 ? choice_->findText(text, Qt::MatchFixedString) : same);
  Show(*choice_);
  choice_->showPopup();
  if (!typed.isEmpty()) list_->keyboardSearch(typed);
}

void CellEditor::OpenDate(ModelDateTime dateTime) {
  date_->setDateTime(DateToQt(dateTime));
  dateBefore_ = date_->dateTime();
  yearTyped_ = false;
  Show(*date_);
}

void CellEditor::AskFileName() {
  const QString before = text_->text();
  BrowseForFile(kAllFiles, *text_, screen_, settings_);
  if (text_->text() == before) {
    GiveUp();
  } else {
    End();
  }
}

void CellEditor::Show(QWidget& control) {
  open_ = &control;
  MoveTo(where_);
  control.show();
  control.setFocus();
}

void CellEditor::MoveTo(const QRect& where) {
  where_ = where;
  if (!IsOpen()) return;
  QSize size = where.size();
  if (open_ != text_) size = size.expandedTo(open_->sizeHint());
  open_->setGeometry(QRect(where.topLeft(), size));
}

void CellEditor::Close() {
  QWidget* const control = std::exchange(open_, nullptr);
  if (control->hasFocus()) ground_.parentWidget()->setFocus();
  control->hide();
}

void CellEditor::GiveUp() {
  if (!IsOpen()) return;
  if (IsRefused()) EndRefusal();
  Close();
}

/// A text that is none of the items stays until one is chosen.
bool CellEditor::Store() {
  if (open_ == text_) return StoreText();
  if (open_ == date_) return StoreDate();
  return choice_->currentIndex() < 0 ||
         sheet_.EndEdit(place_.Row, place_.Col, FromQt(choice_->currentText()));
}

/// A text that was only looked at is stored from the cell: the control may not have shown it as it
/// is. A cell is one line of one cell.
bool CellEditor::StoreText() {
  if (text_->text() == textBefore_) {
    return sheet_.EndEdit(place_.Row, place_.Col,
                          std::string(sheet_.TextMatrix(place_.Row, place_.Col)));
  }
  QString text = text_->text().replace("\r\n", " ");
  for (const char separator : {'\t', '\r', '\n'}) text.replace(separator, ' ');
  return sheet_.EndEdit(place_.Row, place_.Col, FromQt(text));
}

/// A date that was only looked at stays what it is, and nothing has changed: the control does not
/// know its seconds, and a text that is a date in another form keeps it.
bool CellEditor::StoreDate() {
  date_->interpretText();
  QDateTime date = date_->dateTime();
  if (date == dateBefore_) return true;
  if (yearTyped_) date = InCentury(date, dateBefore_);
  return sheet_.EndEdit(place_.Row, place_.Col, DateFromQt(date));
}

void CellEditor::FollowLines(Axis axis, int first) {
  moved_ |= first <= (axis == Axis::Rows ? place_.Row : place_.Col);
}

bool CellEditor::IsLost() const {
  return IsOpen() && (moved_ || !sheet_.CanEdit(place_.Row, place_.Col));
}

/// What the owner does on a change may close the control on its own, by hiding the table for one.
bool CellEditor::End() {
  if (!IsOpen() || ending_) return true;
  if (IsLost()) GiveUp();
  if (!IsOpen()) return true;
  if (IsRefused()) return false;
  const RaisedFlag ending(ending_);
  bool stored = false;
  Trap trap(screen_, "EndEdit", "Form", "Spreadsheet");
  if (trap.Run([&] { stored = Store(); }) != StepEnd::Done) return false;
  if (!IsOpen()) return true;
  if (stored) {
    Close();
  } else {
    ShowRefusal();
  }
  return stored;
}

/// Shows the refusal without waiting for its end, so that a window can be closed meanwhile.
void CellEditor::ShowRefusal() {
  screen_.Beep();
  refused_ = text_->text();
  QPalette palette = text_->palette();
  palette.setColor(QPalette::Base, Qt::red);
  palette.setColor(QPalette::Text, Qt::white);
  text_->setPalette(palette);
  text_->setReadOnly(true);
  text_->setText(tr("Invalid!"));
  refusal_.start(kRefusalShown);
}

void CellEditor::EndRefusal() {
  refusal_.stop();
  text_->setPalette({});
  text_->setReadOnly(false);
  text_->setText(refused_);
  if (text_->isVisible()) text_->setFocus();
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
  const bool list = watched == list_;
  if (!IsOpen() || (watched != open_ && !list)) return false;
  const bool input = event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod;
  if (input && IsLost()) {
    GiveUp();
    return true;
  }
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();  // while a cell is edited, all keys are its own
      return list;
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(*event);
      return list ? TakeListKey(key) : TakeKey(key);
    }
    case QEvent::InputMethod: {
      const QString typed = static_cast<QInputMethodEvent*>(event)->commitString();
      return watched == text_ && !typed.isEmpty() && TakeTyped(typed);
    }
    case QEvent::Wheel:
      event->ignore();  // it scrolls the table, and changes nothing
      return !list;
    case QEvent::FocusOut:
      if (!list) FocusLost(static_cast<QFocusEvent*>(event)->reason());
      return false;
    default:
      return false;
  }
}

bool CellEditor::TakeKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  if (key.key() == Qt::Key_Escape) {
    GiveUp();
  } else if (IsEnter(key.key())) {
    Finish(Qt::Key_Down, Qt::NoModifier);
  } else if (IsTab(key.key())) {
    Finish(key.key(), modifiers);
  } else if (std::ranges::count(kPassingKeys, key.key()) > 0 && !(modifiers & Qt::AltModifier)) {
    Finish(key.key(), modifiers);
  } else {
    return open_ == text_ && IsTyped(key) && TakeTyped(key.text());
  }
  return true;
}

/// The keys of the open list that end the edit; the others choose within it. An item that is only
/// where the list has its focus, as the first one of a list without the cell's text, is not chosen.
bool CellEditor::TakeListKey(const QKeyEvent& key) {
  if (!IsEnter(key.key()) && !IsTab(key.key()) && key.key() != Qt::Key_Escape) return false;
  const QModelIndex item = list_->currentIndex();
  if (key.key() != Qt::Key_Escape && list_->selectionModel()->isSelected(item)) {
    choice_->setCurrentIndex(item.row());
  }
  choice_->hidePopup();
  return TakeKey(key);
}

/// False: the control takes the text as it comes.
bool CellEditor::TakeTyped(const QString& typed) {
  const FormatKind kind = sheet_.FormatOf(place_.Row, place_.Col).Kind;
  if (!KeyAllowed(kind, FromQt(typed))) {
    screen_.Beep();
  } else if (!text_->isReadOnly()) {
    text_->insert(ToQt(AsTyped(kind, FromQt(typed))));
  }
  return true;
}

void CellEditor::Finish(int key, Qt::KeyboardModifiers modifiers) {
  if (End()) emit KeyPassed(key, modifiers);
}

/// The focus may go to a menu, to a list of the control itself and to another window; elsewhere it
/// goes when the cell takes the text.
void CellEditor::FocusLost(Qt::FocusReason reason) {
  constexpr Qt::FocusReason kPassing[] = {Qt::PopupFocusReason, Qt::MenuBarFocusReason,
                                          Qt::ActiveWindowFocusReason};
  const bool passing = std::ranges::count(kPassing, reason) > 0 ||
                       QApplication::activePopupWidget() != nullptr || !ground_.isVisible();
  if (passing || End()) return;
  QTimer::singleShot(0, text_, [this] {
    if (open_ == text_ && text_->isVisible()) text_->setFocus();
  });
}

}  // namespace lomaris
