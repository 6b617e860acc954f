// The commands of the grid on a table as large as the program allows, each as one step that can be
// undone, beside a bare pass over the same texts: the limit to come close to.

#include <charconv>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/quiet_ui.h"
#include "core/numbers.h"
#include "spreadsheet/chart_data.h"
#include "spreadsheet/sheet_commands.h"
#include "spreadsheet/sheet_queries.h"

namespace lomaris {
namespace {

constexpr int kCols = 10;
constexpr int kRows = static_cast<int>(kMostCells) / kCols;

/// Answers every question with one text, and holds a clipboard.
class AnsweringUi : public QuietUi {
 public:
  std::string AskText(const InputBox&) override { return "1.5"; }
  void SetClipboardText(const std::string& text) override { clipboard_ = text; }
  std::string ClipboardText() override { return clipboard_; }

 private:
  std::string clipboard_;
};

std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (int i = 0; i < kRows * kCols; ++i) {
    texts.push_back(NumberText(12.5F + static_cast<float>(i % 1787) * 0.37F));
  }
  return texts;
}

void SetAll(Sheet& sheet, const std::vector<std::string>& texts) {
  sheet.AsStep([&] {
    auto text = texts.begin();
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kCols; ++col) sheet.SetTextMatrix(row, col, *text++);
    }
    return true;
  });
}

struct Desk {
  Sheet Table{kRows, kCols, 0, 0};
  AnsweringUi Person;
  CopiedDates Copied;
  SheetCommands Commands{Table, Person, Copied};

  Desk() {
    for (int col = 0; col < kCols; ++col) Table.SetColFormat(col, {FormatKind::Number});
    SetAll(Table, Texts());
    Commands.Run(SheetCommand::SelectAll);
  }
};

void SetAllCells(benchmark::State& state) {
  const std::vector<std::string> texts = Texts();
  Desk desk;
  for (auto _ : state) {
    SetAll(desk.Table, texts);
    state.PauseTiming();
    desk.Commands.Run(SheetCommand::Clear);
    state.ResumeTiming();
  }
}
BENCHMARK(SetAllCells)->Unit(benchmark::kMillisecond);

/// A command on all cells; undone outside the measurement, so that each run meets the same cells.
void OnAllCells(benchmark::State& state, SheetCommand command) {
  Desk desk;
  desk.Commands.Run(SheetCommand::Copy);
  if (command == SheetCommand::Paste) desk.Commands.Run(SheetCommand::Clear);
  for (auto _ : state) {
    desk.Commands.Run(command);
    state.PauseTiming();
    if (!desk.Table.Undo()) state.SkipWithError("not a step");
    state.ResumeTiming();
  }
  if (desk.Person.Boxes() > 0) state.SkipWithError("the command was refused");
}
BENCHMARK_CAPTURE(OnAllCells, Paste, SheetCommand::Paste)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OnAllCells, Fill, SheetCommand::Fill)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OnAllCells, Multiply, SheetCommand::Multiply)->Unit(benchmark::kMillisecond);

void UndoAndRedoOfAllCells(benchmark::State& state) {
  Desk desk;
  desk.Commands.Run(SheetCommand::Multiply);
  for (auto _ : state) {
    desk.Table.Undo();
    desk.Table.Redo();
  }
}
BENCHMARK(UndoAndRedoOfAllCells)->Unit(benchmark::kMillisecond);

void StatisticsOfAllCells(benchmark::State& state) {
  const Desk desk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(StatisticsOf(desk.Table, desk.Table.SelectedArea()));
  }
}
BENCHMARK(StatisticsOfAllCells)->Unit(benchmark::kMillisecond);

/// Beside the statistics, which read the same numbers and keep none.
void ChartOfAllCells(benchmark::State& state) {
  const Desk desk;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ReadChart(desk.Table, desk.Table.SelectedArea(), {}));
  }
}
BENCHMARK(ChartOfAllCells)->Unit(benchmark::kMillisecond);

void FindInAllCells(benchmark::State& state) {
  const Desk desk;
  for (auto _ : state) benchmark::DoNotOptimize(FindNext(desk.Table, "not there", {}));
}
BENCHMARK(FindInAllCells)->Unit(benchmark::kMillisecond);

/// The rival of Multiply: each text to a number and back, into a text of its own.
void RivalOfMultiply(benchmark::State& state) {
  const std::vector<std::string> texts = Texts();
  for (auto _ : state) {
    std::vector<std::string> out(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      double value = 0;
      std::from_chars(texts[i].data(), texts[i].data() + texts[i].size(), value);
      char buffer[32];
      const char* const first = buffer;
      const char* const end =
          std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value * 1.5)).ptr;
      out[i].assign(first, end);
    }
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(RivalOfMultiply)->Unit(benchmark::kMillisecond);

/// The rival of setting, pasting and filling: the texts copied into a vector.
void RivalOfSetting(benchmark::State& state) {
  const std::vector<std::string> texts = Texts();
  for (auto _ : state) {
    std::vector<std::string> out(texts);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(RivalOfSetting)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace lomaris
