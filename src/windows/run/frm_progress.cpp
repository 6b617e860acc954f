#include "windows/run/frm_progress.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMenu>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "core/error_report.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/save_file.h"
#include "core/text.h"
#include "run/kept_directory.h"
#include "windows/core/qt_text.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"
#include "windows/run/frm_timed_dialog.h"
#include "windows/run/results_table.h"
#include "windows/run/ui_frm_progress.h"

namespace lomaris {
namespace {

constexpr const char* kSection = "ProgressStartup";
constexpr const char* kShowResultsKey = "ShowResults";
constexpr const char* kIntervalKey = "Interval";
constexpr const char* kGridKey = "Grid";
constexpr const char* kCloseCaption = "Close";

/// Platforms keep a dialog above its owner, and show no buttons in its frame unless they are named.
constexpr Qt::WindowFlags kFlags =
    Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;

constexpr int kShortestInterval = 50;  // ms, of one turn of whoever waits for the model
constexpr int kDefaultInterval = 500;  // ms

/// Sample of a row's name, as wide as its column.
constexpr const char* kRowSample = "1: Now is the time";

/// The selected cells, for another spreadsheet.
QString SelectedText(const QTableView& grid) {
  QModelIndexList cells = grid.selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  for (qsizetype i = 0; i < cells.size(); ++i) {
    if (i > 0) text += cells[i].row() == cells[i - 1].row() ? "\t" : "\r\n";
    text += cells[i].data().toString();
  }
  return text;
}

}  // namespace

frmProgress::frmProgress(lomaris::Ui& screen, Settings& settings, QWidget* owner)
    : QWidget(owner, kFlags),
      screen_(screen),
      settings_(settings),
      ui_(std::make_unique<::Ui::frmProgress>()),
      results_(new ResultsTable(this)) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_ShowWithoutActivating);
  ui_->flxGrid->setModel(results_);
  ui_->flxGrid->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  ui_->Slider1->setRange(kShortestInterval, kLongestInterval);
  ui_->splitter->setStretchFactor(1, 1);
  ui_->splitter->setSizes({1, 2});
  LoadSettings();
  Connect();
  ConnectCopies();
  ui_->lstMessages->setFocus();  // which does nothing with keys that were meant elsewhere
  ShowView();
  ShowInterval();
  setMinimumSize(size().expandedTo(minimumSizeHint()));
  GetWindowPos(*this, settings_, kSection);
  ApplyWhatsThis(*this);
}

frmProgress::~frmProgress() = default;

void frmProgress::LoadSettings() {
  const std::string results = settings_.Value(kSection, kShowResultsKey, "1");
  const std::string grid = settings_.Value(kSection, kGridKey, "True");
  const std::string interval = settings_.Value(kSection, kIntervalKey);
  ui_->chkShowResults->setChecked(results != "0");
  ui_->optGrid->setChecked(!EqualIgnoringCase(grid, "False"));
  ui_->optChart->setChecked(!ui_->optGrid->isChecked());
  ui_->Slider1->setValue(IsNumeric(interval) ? static_cast<int>(std::clamp<double>(
                                                   ToDouble(interval), 0, kLongestInterval))
                                             : kDefaultInterval);
  usersInterval_ = Interval();
}

/// The interval is the user's own: one that an idle model has lengthened is not to slow the next
/// run down.
void frmProgress::StoreSettings() {
  SaveWindowPos(*this, settings_, kSection);
  settings_.SetValue(kSection, kShowResultsKey, ShowResults() ? "1" : "0");
  settings_.SetValue(kSection, kIntervalKey, NumberText(usersInterval_));
  settings_.SetValue(kSection, kGridKey, GridOn() ? "True" : "False");
}

void frmProgress::Connect() {
  connect(ui_->btnCancel, &QPushButton::clicked, this, [this] {
    cancelRequested_ = true;
    if (ui_->btnCancel->text() == kCloseCaption) close();
  });
  connect(ui_->chkShowResults, &QCheckBox::clicked, this, [this] { showResultsChanged_ = true; });
  connect(ui_->optGrid, &QRadioButton::toggled, this, &frmProgress::ShowView);
  connect(ui_->cboColumns, &QComboBox::currentIndexChanged, this, [this](int entry) {
    emit ColumnChosen(entry);
    ChartFromGrid();
  });
  connect(ui_->Slider1, &QSlider::valueChanged, this, [this](int value) {
    usersInterval_ = value;
    ShowInterval();
  });
}

void frmProgress::ConnectCopies() {
  connect(ui_->lstMessages, &QWidget::customContextMenuRequested, this,
          &frmProgress::ShowMessagesMenu);
  connect(ui_->btnSaveMessages, &QPushButton::clicked, this, &frmProgress::SaveMessages);
  auto* copy = new QAction("&Copy", ui_->flxGrid);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  ui_->flxGrid->addAction(copy);
  connect(copy, &QAction::triggered, this,
          [this] { screen_.SetClipboardText(FromQt(SelectedText(*ui_->flxGrid))); });
}

void frmProgress::Restart(const std::string& caption) {
  setAttribute(Qt::WA_DeleteOnClose, false);
  SetCaption(caption);
  SetDateTime("Initializing...");
  SetPercent(0);
  SetTimeRemaining("Time Remaining:");
  ui_->lstMessages->clear();
  ui_->btnCancel->setText("Cancel");
  SetInterval(usersInterval_);
  SetUpGrid({}, {});
  cancelRequested_ = false;
  showResultsChanged_ = false;
}

void frmProgress::OfferClose() {
  ui_->btnCancel->setText(kCloseCaption);
  SetTimeRemaining({});
  setAttribute(Qt::WA_DeleteOnClose);
}

void frmProgress::closeEvent(QCloseEvent* event) {
  cancelRequested_ = true;
  StoreSettings();
  event->accept();
}

// --- What the run shows

/// In front of the other windows, but the user's keys stay where they are.
void frmProgress::ShowWindow() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
}

std::string frmProgress::Caption() const {
  return FromQt(windowTitle());
}

void frmProgress::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

bool frmProgress::ShowResults() const {
  return ui_->chkShowResults->isChecked();
}

bool frmProgress::GridOn() const {
  return ui_->optGrid->isChecked();
}

int frmProgress::Interval() const {
  return ui_->Slider1->value();
}

void frmProgress::SetInterval(int milliseconds) {
  const QSignalBlocker notTheUser(ui_->Slider1);
  ui_->Slider1->setValue(milliseconds);
  ShowInterval();
}

void frmProgress::ShowInterval() {
  ui_->lblIntervalValue->setText(QString("%1 ms").arg(Interval()));
  ui_->Slider1->setToolTip(
      QString("Set number of milliseconds between updates (currently is %1)").arg(Interval()));
}

void frmProgress::SetDateTime(const std::string& text) {
  ui_->lblDateTime->setText(ToQt(text));
}

void frmProgress::SetPercent(float percent) {
  ui_->ProgressBar->setValue(static_cast<int>(WholePercent(percent)));
}

void frmProgress::SetTimeRemaining(const std::string& text) {
  ui_->lblTimeRemaining->setText(ToQt(text));
}

void frmProgress::AddMessage(const std::string& text) {
  ui_->lstMessages->appendPlainText(ToQt(text));
}

void frmProgress::ShowTimedDialog(const std::string& title, const std::string& text, int seconds) {
  HideSplash();
  frmTimedDialog dialog(ToQt(title), ToQt(text), seconds, isVisible() ? this : parentWidget());
  dialog.exec();
}

// --- Results

void frmProgress::SetUpGrid(const std::vector<std::string>& titles,
                            const std::vector<std::string>& rowLabels) {
  const QSignalBlocker notTheUser(ui_->cboColumns);
  results_->SetUp(titles, rowLabels);
  gridIsCurrent_ = false;
  ui_->MSChart1->SetRowLabels(results_->RowLabels());
  ui_->MSChart1->Clear();
  ui_->cboColumns->clear();
  for (std::size_t i = 1; i < titles.size(); ++i) ui_->cboColumns->addItem(ToQt(titles[i]));
  if (titles.empty()) return;
  const int rowNames = QFontMetrics(parentWidget()->font()).horizontalAdvance(kRowSample);
  ui_->flxGrid->resizeColumnsToContents();
  ui_->flxGrid->setColumnWidth(0, rowNames);
}

void frmProgress::ShowColumn(int column, std::span<const float> values) {
  results_->SetColumn(column, values);
  gridIsCurrent_ = true;
}

void frmProgress::EndUpdate() {
  if (gridIsCurrent_) results_->Announce();
}

void frmProgress::ShowChart(std::span<const float> values, double axisMaximum) {
  ui_->MSChart1->ShowValues(ui_->cboColumns->currentText(), values, axisMaximum);
  gridIsCurrent_ = false;
}

/// The view that comes up shows nothing rather than an earlier state.
void frmProgress::ShowView() {
  ui_->flxGrid->setVisible(GridOn());
  ui_->MSChart1->setVisible(!GridOn());
  ui_->cboColumns->setVisible(!GridOn());
  if (!gridIsCurrent_) results_->Blank();
  if (!GridOn()) ChartFromGrid();
}

/// Until the model sends the chosen column again, or after it has ended.
void frmProgress::ChartFromGrid() {
  const std::span<const float> values = results_->Column(ui_->cboColumns->currentIndex() + 1);
  if (!gridIsCurrent_ || values.empty()) {
    ui_->MSChart1->Clear();
    return;
  }
  float largest = 0;
  for (const float value : values) {
    if (std::isfinite(value)) largest = std::max(largest, value);
  }
  ui_->MSChart1->ShowValues(ui_->cboColumns->currentText(), values, AxisMaximum(largest));
}

// --- Messages

void frmProgress::ShowMessagesMenu(const QPoint& place) {
  const std::unique_ptr<QMenu> menu(ui_->lstMessages->createStandardContextMenu());
  menu->addSeparator();
  menu->addAction("&Save As...", this, &frmProgress::SaveMessages);
  menu->exec(ui_->lstMessages->mapToGlobal(place));
}

void frmProgress::SaveMessages() {
  Trap(screen_, "SaveMessages", "Form", "frmProgress").Run([this] {
    const KeptDirectory users;
    const std::string name = SaveFile("Text files (*.txt)|*.txt|", "messages.txt", 0,
                                      "Save Messages As", {}, screen_, settings_);
    if (name.empty()) return;
    const std::string text = FromQt(ui_->lstMessages->toPlainText()) + '\n';
    WriteWholeFile(name, ReplaceAll(text, "\n", std::string(kLineBreak)), Backup::None);
  });
}

}  // namespace lomaris
