#pragma once

#include <QWidget>
#include <memory>

#include "core/ports/settings.h"
#include "core/ports/ui.h"
#include "run/monitor_view.h"

namespace Ui {
class frmProgress;
}

namespace lomaris {

class ResultsTable;

/// The window that watches a run. Closing it during the run asks the model to stop and takes the
/// window off the screen; it lives on, and listens, until its owner deletes it. Closed after the
/// run, it deletes itself.
class frmProgress : public QWidget, public MonitorView {
  Q_OBJECT

 public:
  /// `owner` is the window that it stands above. All of these outlive it.
  frmProgress(lomaris::Ui& screen, Settings& settings, QWidget* owner);
  ~frmProgress() override;

  /// Makes it ready for another run: empty, without requests, its button reading "Cancel".
  void Restart(const std::string& caption);

  /// The run is over: its button reads "Close".
  void OfferClose();

  void ShowWindow() override;
  std::string Caption() const override;
  void SetCaption(const std::string& caption) override;
  bool CancelRequested() const override { return cancelRequested_; }
  void ResetCancel() override { cancelRequested_ = false; }
  bool ShowResultsChanged() const override { return showResultsChanged_; }
  void ResetShowResultsChanged() override { showResultsChanged_ = false; }
  bool ShowResults() const override;
  bool GridOn() const override;
  int Interval() const override;
  void SetInterval(int milliseconds) override;
  void SetDateTime(const std::string& text) override;
  void SetPercent(float percent) override;
  void SetTimeRemaining(const std::string& text) override;
  void AddMessage(const std::string& text) override;
  void SetUpGrid(const std::vector<std::string>& titles,
                 const std::vector<std::string>& rowLabels) override;
  void BeginUpdate() override {}
  void EndUpdate() override;
  void ShowColumn(int column, std::span<const float> values) override;
  void ShowChart(std::span<const float> values, double axisMaximum) override;
  void ShowTimedDialog(const std::string& title, const std::string& text, int seconds) override;
  void HideSplash() override { emit BoxOpens(); }

 signals:
  /// Another entry of `cboColumns`, counted from 0.
  void ColumnChosen(int entry);
  /// A box is about to open, before which nothing must stand.
  void BoxOpens();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LoadSettings();
  void StoreSettings();
  void Connect();
  void ConnectCopies();
  void ShowView();
  void ChartFromGrid();
  void ShowInterval();
  void ShowMessagesMenu(const QPoint& place);
  void SaveMessages();

  lomaris::Ui& screen_;
  Settings& settings_;
  std::unique_ptr<::Ui::frmProgress> ui_;
  ResultsTable* results_;
  bool cancelRequested_ = false;
  bool showResultsChanged_ = false;
  bool gridIsCurrent_ = false;  ///< the last update went into the grid
  int usersInterval_ = 0;       ///< ms, that the user has set last
};

}  // namespace lomaris
