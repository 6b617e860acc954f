#include "windows/core/frm_help.h"

#include <QCloseEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>

#include "ui_frm_help.h"
#include "windows/core/themed_icon.h"
#include "windows/core/whats_this.h"
#include "windows/core/window_placement.h"

namespace lomaris {
namespace {

constexpr int kContentsTopic = 1;
constexpr int kPageMargin = 14;  // pixels

QUrl UrlOf(const HelpPage& page) {
  return QUrl::fromLocalFile(page.Path);
}

}  // namespace

frmHelp::frmHelp(const QString& folder, Settings& settings, QWidget* parent)
    : QWidget(parent, Qt::Window),
      ui_(std::make_unique<::Ui::frmHelp>()),
      settings_(settings),
      pages_(LoadHelpPages(folder)) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  ui_->btnBack->setIcon(ThemedIcon("back"));
  ui_->btnForward->setIcon(ThemedIcon("forward"));
  ui_->btnHome->setIcon(ThemedIcon("home"));
  ui_->splitter->setStretchFactor(1, 1);
  ui_->splitter->setSizes({240, 640});
  ui_->txtPage->document()->setDocumentMargin(kPageMargin);
  ApplyWhatsThis(*this);
  Connect();
  AddShortcuts();
  ListPages();
  GetWindowPos(*this, settings_);
}

frmHelp::~frmHelp() = default;

void frmHelp::ShowTopic(int topic) {
  auto page = std::ranges::find(pages_, topic, &HelpPage::Topic);
  if (page == pages_.end()) page = pages_.begin();
  if (page == pages_.end()) {
    ui_->txtPage->setPlainText("The help pages are not beside the program.");
  } else {
    ui_->txtPage->setSource(UrlOf(*page));
  }
}

void frmHelp::changeEvent(QEvent* event) {
  const bool shows = ui_->txtPage != nullptr && ui_->txtPage->source().isValid();
  if (event->type() == QEvent::PaletteChange && shows) ShowPageAgain();
  QWidget::changeEvent(event);
}

void frmHelp::closeEvent(QCloseEvent* event) {
  SaveWindowPos(*this, settings_);
  event->accept();
}

void frmHelp::Connect() {
  connect(ui_->btnBack, &QToolButton::clicked, ui_->txtPage, &QTextBrowser::backward);
  connect(ui_->btnForward, &QToolButton::clicked, ui_->txtPage, &QTextBrowser::forward);
  connect(ui_->btnHome, &QToolButton::clicked, this, [this] { ShowTopic(kContentsTopic); });
  connect(ui_->txtPage, &QTextBrowser::backwardAvailable, ui_->btnBack, &QWidget::setEnabled);
  connect(ui_->txtPage, &QTextBrowser::forwardAvailable, ui_->btnForward, &QWidget::setEnabled);
  connect(ui_->txtPage, &QTextBrowser::sourceChanged, this, &frmHelp::SelectInList);
  connect(ui_->txtPage, &QTextBrowser::sourceChanged, this, &frmHelp::MarkHits);
  connect(ui_->lstPages, &QListWidget::currentRowChanged, this, &frmHelp::ShowListedPage);
  connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::ListPages);
  connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::MarkHits);
  connect(ui_->txtSearch, &QLineEdit::returnPressed, this, [this] {
    ui_->lstPages->setCurrentRow(0);
    ui_->lstPages->setFocus();
  });
  ui_->btnBack->setEnabled(false);
  ui_->btnForward->setEnabled(false);
}

void frmHelp::AddShortcuts() {
  auto* search = new QShortcut(QKeySequence::Find, this);
  connect(search, &QShortcut::activated, this, [this] {
    ui_->txtSearch->setFocus();
    ui_->txtSearch->selectAll();
  });
  auto* leave = new QShortcut(Qt::Key_Escape, this);
  connect(leave, &QShortcut::activated, this, &QWidget::close);
}

void frmHelp::ListPages() {
  const QSignalBlocker blocker(ui_->lstPages);
  const QStringList words = SearchWords(ui_->txtSearch->text());
  ui_->lstPages->clear();
  for (const HelpPage& page : pages_) {
    if (!HoldsAll(page, words)) continue;
    auto* item = new QListWidgetItem(page.Title, ui_->lstPages);
    item->setData(Qt::UserRole, UrlOf(page));
  }
  SelectInList(ui_->txtPage->source());
}

void frmHelp::ShowListedPage(int row) {
  if (row < 0) return;
  ui_->txtPage->setSource(ui_->lstPages->item(row)->data(Qt::UserRole).toUrl());
}

/// The list follows the links of the pages.
void frmHelp::SelectInList(const QUrl& shown) {
  const QSignalBlocker blocker(ui_->lstPages);
  const QUrl page = shown.adjusted(QUrl::RemoveFragment);
  int current = -1;
  for (int row = 0; row < ui_->lstPages->count(); ++row) {
    if (ui_->lstPages->item(row)->data(Qt::UserRole).toUrl() == page) current = row;
  }
  ui_->lstPages->setCurrentRow(current);
}

void frmHelp::MarkHits() {
  QList<QTextEdit::ExtraSelection> hits;
  QTextCharFormat mark;
  mark.setBackground(palette().brush(QPalette::Highlight));
  mark.setForeground(palette().brush(QPalette::HighlightedText));
  for (const QString& word : SearchWords(ui_->txtSearch->text())) {
    QTextDocument* page = ui_->txtPage->document();
    for (QTextCursor hit = page->find(word); !hit.isNull(); hit = page->find(word, hit)) {
      hits.append({hit, mark});
    }
  }
  ui_->txtPage->setExtraSelections(hits);
}

/// A page keeps the colours that links and hits had when it was loaded.
void frmHelp::ShowPageAgain() {
  const int place = ui_->txtPage->verticalScrollBar()->value();
  ui_->txtPage->reload();
  ui_->txtPage->verticalScrollBar()->setValue(place);
}

}  // namespace lomaris
