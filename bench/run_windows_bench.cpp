// One tick of the link to a running model with the window that watches it, from the change of the
// file to the picture on the screen, beside a bare read of the same bytes.

#include <QAbstractButton>
#include <QApplication>

#include "bench/watched_model.h"
#include "windows/run/frm_progress.h"

namespace lomaris {
namespace {

class NoSettings : public Settings {
  std::string Value(const std::string&, const std::string&,
                    const std::string& defaultValue) const override {
    return defaultValue;
  }
  void SetValue(const std::string&, const std::string&, const std::string&) override {}
};

void TickInWindow(benchmark::State& state, const char* view) {
  QuietUi ui;
  NoSettings settings;
  QWidget owner;
  frmProgress monitor(ui, settings, &owner);
  Watched watched(monitor);
  monitor.findChild<QAbstractButton*>(view)->click();
  monitor.resize(1024, 700);
  monitor.show();
  watched.Tick();
  for (auto _ : state) {
    watched.Tick();
    QApplication::processEvents();
  }
  state.SetBytesProcessed(state.iterations() * kRows * kCols * static_cast<int>(kNumberWidth));
}
BENCHMARK_CAPTURE(TickInWindow, Grid, "optGrid")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(TickInWindow, Chart, "optChart")->Unit(benchmark::kMicrosecond);

BENCHMARK(BareReadOfTheResults)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lomaris
