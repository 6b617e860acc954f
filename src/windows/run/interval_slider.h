#pragma once

#include <QSlider>

namespace lomaris {

/// A slider of milliseconds. Its places stand for equal ratios: half a second and a second are as
/// far apart as half a minute and a minute, so that the short intervals can be told apart as well.
class IntervalSlider : public QSlider {
  Q_OBJECT

 public:
  explicit IntervalSlider(QWidget* parent = nullptr);

 protected:
  void initStyleOption(QStyleOptionSlider* option) const override;
  void sliderChange(SliderChange change) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int ValueAt(int x) const;
};

}  // namespace lomaris
