#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <limits>
#include <memory>

#include "shared/modal_loop.h"
#include "shared/wheel_turns.h"
#include "systems/host/toolkit_box.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

namespace {

class ScrollWidget : public QScrollBar {
 public:
  ScrollWidget(ScrollBar& owner, BoxArea* pContainer);

  void Turn(QWheelEvent& event);

 protected:
  void wheelEvent(QWheelEvent* pEvent) override { Turn(*pEvent); }

 private:
  ScrollBar& owner_;
  int nPressed_ = 0;  // the value at which the thumb was pressed
  WheelTurns turns_;
};

ScrollWidget::ScrollWidget(ScrollBar& owner, BoxArea* pContainer)
    : QScrollBar(Qt::Vertical, pContainer), owner_(owner) {
  setRange(0, std::numeric_limits<std::int16_t>::max());
  setPageStep(1);
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QScrollBar::sliderPressed, this, [this] { nPressed_ = value(); });
  connect(this, &QScrollBar::valueChanged, this,
          [this] { DispatchInput(isSliderDown() ? owner_.OnScroll : owner_.OnChange); });
  connect(this, &QScrollBar::sliderReleased, this, [this] {
    if (value() != nPressed_) DispatchInput(owner_.OnChange);
  });
}

void ScrollWidget::Turn(QWheelEvent& event) {
  event.accept();
  if (!isEnabled()) return;
  setValue(value() - turns_.NotchesOf(event.angleDelta().y()) * singleStep());
}

ScrollWidget& ScrollOf(const ScrollBar& scrollBar) {
  return static_cast<ScrollWidget&>(*scrollBar.Get().widget);
}

std::int16_t ToInt16(int n) { return static_cast<std::int16_t>(n); }  // set from such

}  // namespace

ScrollBar::ScrollBar(PictureBox& container)
    : Control(std::make_unique<Native>(new ScrollWidget(*this, &AreaOf(container)))) {
  AreaOf(container).OnWheel = [widget = QPointer(&ScrollOf(*this))](QWheelEvent& event) {
    widget ? widget->Turn(event) : event.ignore();
  };
}

void ScrollBar::SetMin(std::int16_t nMin) {
  const QSignalBlocker noEvent(ScrollOf(*this));
  ScrollOf(*this).setMinimum(nMin);
}

void ScrollBar::SetMax(std::int16_t nMax) {
  const QSignalBlocker noEvent(ScrollOf(*this));
  ScrollOf(*this).setMaximum(nMax);
}

void ScrollBar::SetSmallChange(std::int16_t nChange) { ScrollOf(*this).setSingleStep(nChange); }

void ScrollBar::SetLargeChange(std::int16_t nChange) { ScrollOf(*this).setPageStep(nChange); }

std::int16_t ScrollBar::Max() const { return ToInt16(ScrollOf(*this).maximum()); }

std::int16_t ScrollBar::LargeChange() const { return ToInt16(ScrollOf(*this).pageStep()); }

void ScrollBar::SetValue(std::int16_t nValue) {
  const std::int16_t nBefore = Value();
  {
    const QSignalBlocker noEvent(ScrollOf(*this));
    ScrollOf(*this).setValue(nValue);
  }
  if (Value() != nBefore) Raise(OnChange);
}

std::int16_t ScrollBar::Value() const { return ToInt16(ScrollOf(*this).value()); }

}  // namespace trelin
