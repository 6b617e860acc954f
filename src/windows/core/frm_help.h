#pragma once

#include <QUrl>
#include <QWidget>
#include <memory>

#include "core/ports/settings.h"
#include "windows/core/help_pages.h"

namespace Ui {
class frmHelp;
}

namespace lomaris {

/// The contents pages of the help, with a search over all of them.
class frmHelp : public QWidget {
  Q_OBJECT

 public:
  /// `folder` holds the pages and "topics.txt". `settings` outlive the window, which keeps its
  /// place there.
  frmHelp(const QString& folder, Settings& settings, QWidget* parent = nullptr);
  ~frmHelp() override;

  /// Shows the page of a topic; of an unknown one, the first page.
  void ShowTopic(int topic);

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Connect();
  void AddShortcuts();
  void ListPages();
  void ShowListedPage(int row);
  void SelectInList(const QUrl& shown);
  void MarkHits();
  void ShowPageAgain();

  std::unique_ptr<::Ui::frmHelp> ui_;
  Settings& settings_;
  QList<HelpPage> pages_;
};

}  // namespace lomaris
