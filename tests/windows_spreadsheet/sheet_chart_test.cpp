#include "windows/spreadsheet/sheet_chart.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "support/scripted_ui.h"

namespace lomaris {
namespace {

class SheetChartTest : public testing::Test {
 protected:
  SheetChartTest() {
    for (const char* row : {"1\tx\t10", "2\t2\t20", "3\t3\t30"}) sheet_.AddItem(row);
    sheet_.SetColFormat(2, {FormatKind::Number, "0;30.5"});
    sheet_.Events.LinesMoved = std::bind_front(&SheetChart::FollowLines, &chart_);
    chart_.resize(600, 400);
    chart_.show();
  }

  void Choose(const char* action) { chart_.findChild<QAction*>(action)->trigger(); }
  bool Opens(const char* menu) {
    QTest::keyClick(&chart_, Qt::Key_F10, Qt::ShiftModifier);
    auto* opened = chart_.findChild<QMenu*>(menu);
    return opened->isVisible() && opened->close();
  }
  std::string Cells() const {
    std::string cells;
    for (int row = 1; row < sheet_.Rows(); ++row) cells += sheet_.TextMatrix(row, 2) + ' ';
    return cells;
  }
  QPoint Pixel(double key, double value) {
    const auto* plot = chart_.findChild<Plot*>();
    return QPointF(plot->xAxis->coordToPixel(key), plot->yAxis->coordToPixel(value)).toPoint();
  }

  Sheet sheet_{1, 3};
  ScriptedUi ui_;
  ChartState state_;
  SheetChart chart_{sheet_, ui_, state_};
};

TEST_F(SheetChartTest, AnXYChartThatCannotBeDrawnIsToldAndShownAsLines) {
  state_.Type = ChartType::XY;
  EXPECT_TRUE(chart_.ShowArea({1, 1, 3, 2}));
  EXPECT_EQ(ui_.LastMessage(), "X values must be in a date format or numeric: x");
  EXPECT_EQ(state_.Type, ChartType::Line);
  Choose("mnuChartType4");
  EXPECT_EQ(ui_.Messages.size(), 2U);
  EXPECT_TRUE(chart_.findChild<QAction*>("mnuChartType0")->isChecked());
  EXPECT_FALSE(chart_.ShowArea({1, 1, 1, 1}));
  EXPECT_EQ(ui_.LastMessage(), "No numbers are selected.");
}

TEST_F(SheetChartTest, TheMenuChangesTheStateAndReturns) {
  ASSERT_TRUE(chart_.ShowArea({1, 1, 3, 2}));
  EXPECT_TRUE(Opens("mnuChart"));
  auto* rows = chart_.findChild<QAction*>("mnuChartRows");
  QStringList captions{rows->text()};
  for (int times = 0; times < 2; ++times) {
    rows->trigger();
    captions << rows->text();
  }
  EXPECT_EQ(captions.join('|'), "&Data Series in Rows|Data in Columns|Data in Rows");
  for (const char* type : {"mnuChartType1", "mnuChartType2", "mnuChartType3"}) {
    QApplication::clipboard()->clear();
    Choose(type);
    Choose("mnuChartCopy");
    EXPECT_FALSE(QApplication::clipboard()->pixmap().isNull());
  }
  EXPECT_EQ(state_.Type, ChartType::Pie);
  EXPECT_FALSE(chart_.findChild<QAction*>("mnuChartEdit")->isEnabled());
  const QSignalSpy returned(&chart_, &SheetChart::ReturnRequested);
  QTest::keyClick(&chart_, Qt::Key_Escape);
  EXPECT_EQ(returned.size(), 1);
}

TEST_F(SheetChartTest, PointsAreChangedByMouseAndByKeys) {
  ASSERT_TRUE(chart_.ShowArea({1, 2, 3, 2}));
  auto* plot = chart_.findChild<Plot*>();
  plot->replot();
  Choose("mnuChartEdit");
  EXPECT_TRUE(Opens("mnuChartPoint"));
  const auto drag = [&](const QPoint& from, const QPoint& to) {
    QTest::mousePress(plot, Qt::LeftButton, {}, from);
    QTest::mouseMove(plot, to);
    QTest::mouseRelease(plot, Qt::LeftButton, {}, to);
  };
  const double perPixel = plot->yAxis->range().size() / plot->axisRect()->height();
  drag(Pixel(2, 20), Pixel(2, 25));
  EXPECT_NEAR(ToDouble(sheet_.TextMatrix(2, 2)), 25, perPixel);
  const double top = plot->yAxis->range().upper;
  drag(Pixel(1, 10), Pixel(1, 90));
  EXPECT_EQ(ui_.Beeps, 1) << "beyond the cell's range";
  EXPECT_EQ(plot->yAxis->range().upper, top) << "the point stays at the edge";
  QTest::mousePress(plot, Qt::LeftButton, {}, Pixel(3, 30));
  QTest::mouseMove(plot, Pixel(3, 20));
  QTest::keyClick(&chart_, Qt::Key_Delete);
  QTest::mouseRelease(plot, Qt::RightButton, {}, Pixel(3, 20));
  Choose("mnuChartPointStop");
  QTest::mouseMove(plot, Pixel(3, 15));
  QTest::mouseRelease(plot, Qt::LeftButton, {}, Pixel(3, 15));
  EXPECT_TRUE(sheet_.Rows() == 4 && sheet_.TextMatrix(3, 2) == "30");
  Choose("mnuChartEdit");
  const std::pair<const char*, std::string> keys[] = {
      {"Ctrl+Z", "10 20 30 "},      {"Right", "10 20 30 "},     {"Up", "10 20.1 30 "},
      {"Ins", "10 15.05 20.1 30 "}, {"Down", "10 15 20.1 30 "}, {"Del", "10 20.1 30 "},
      {"Esc", "10 20.1 30 "},       {"Del", "10 20.1 30 "}};
  for (const auto& [key, cells] : keys) {
    QTest::keySequence(&chart_, QKeySequence(key));
    EXPECT_EQ(Cells(), cells) << key;
    EXPECT_EQ(plot->graph(0)->dataCount(), sheet_.Rows() - 1);
  }
}

}  // namespace
}  // namespace lomaris
