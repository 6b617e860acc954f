// One page of the grid on the screen, of tables whose rows grow by ten: a page costs the same. The
// rival draws as many texts with a bare painter.

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>

#include <benchmark/benchmark.h>

#include "bench/quiet_ui.h"
#include "core/numbers.h"
#include "windows/core/qt_text.h"
#include "windows/spreadsheet/spreadsheet.h"

namespace lomaris {
namespace {

constexpr int kCols = 10;
constexpr QSize kPage(1024, 700);

class NoSettings : public Settings {
 public:
  std::string Value(const std::string&, const std::string&,
                    const std::string& defaultValue) const override {
    return defaultValue;
  }
  void SetValue(const std::string&, const std::string&, const std::string&) override {}
};

std::string TextOf(int row, int col) {
  return NumberText(12.5F + static_cast<float>((row * kCols + col) % 1787) * 0.37F);
}

/// A table with a row of heads and numbers at its rows.
struct Desk {
  Sheet Table;
  QuietUi Person;
  NoSettings Store;
  CopiedDates Copied;
  Spreadsheet Shown;
  QTableView* Grid = nullptr;
  QImage Page{kPage, QImage::Format_ARGB32_Premultiplied};

  explicit Desk(int rows) : Table(rows + 1, kCols + 1) {
    Table.SetNumberRows(true);
    for (int row = 0; row <= rows; ++row) {
      for (int col = 1; col <= kCols; ++col) Table.SetTextMatrix(row, col, TextOf(row, col));
    }
    Shown.Attach(Table, Person, Store, Copied);
    Shown.resize(kPage);
    Shown.show();
    QApplication::processEvents();
    Grid = Shown.findChild<QTableView*>();
    Grid->verticalScrollBar()->setValue(rows / 2);
  }

  void Paint() { Shown.render(&Page); }
};

/// By the number of cells.
void PaintPage(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)) / kCols);
  for (auto _ : state) desk.Paint();
}
BENCHMARK(PaintPage)->Arg(3'500)->Arg(35'000)->Arg(350'000)->Unit(benchmark::kMicrosecond);

void ScrollPage(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)) / kCols);
  QScrollBar& bar = *desk.Grid->verticalScrollBar();
  for (auto _ : state) {
    bar.setValue(bar.value() >= bar.maximum() ? 0 : bar.value() + bar.pageStep());
    QApplication::processEvents();
  }
}
BENCHMARK(ScrollPage)->Arg(3'500)->Arg(35'000)->Arg(350'000)->Unit(benchmark::kMicrosecond);

/// A step down with Shift held, the selection reaching to the middle of the table.
void ExtendSelection(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0)) / kCols;
  Desk desk(rows);
  for (auto _ : state) {
    const Selection now = desk.Table.Selected();
    const int end = now.RowSel == rows / 2 ? rows / 2 + 1 : rows / 2;
    desk.Table.Select({1, 1, end, kCols / 2});
    desk.Table.Events.Refresh(false);
    QApplication::processEvents();
  }
}
BENCHMARK(ExtendSelection)->Arg(35'000)->Arg(350'000)->Unit(benchmark::kMicrosecond);

/// The rival: the texts of a page and of its heads, each into a place of its own.
void RivalOfPaintPage(benchmark::State& state) {
  const Desk desk(3'500);
  const int rowHeight = desk.Grid->rowHeight(0);
  const int rows = desk.Grid->viewport()->height() / rowHeight + 1;
  const int width = kPage.width() / (kCols + 1);
  QImage page(kPage, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&page);
    painter.fillRect(page.rect(), Qt::white);
    for (int row = 0; row <= rows; ++row) {
      for (int col = 0; col <= kCols; ++col) {
        painter.drawText(QRect(col * width, row * rowHeight, width, rowHeight),
                         Qt::AlignRight | Qt::AlignVCenter, ToQt(TextOf(row, col)));
      }
    }
  }
}
BENCHMARK(RivalOfPaintPage)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lomaris
