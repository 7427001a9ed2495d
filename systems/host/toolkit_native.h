#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "seam/toolkit.h"

namespace trelin {

// A control's widget. The control deletes it, unless the container was
// destroyed first and took it along.
struct Control::Native {
  explicit Native(QWidget* pWidget, QWidget* pArea = nullptr)
      : widget(pWidget), area(pArea != nullptr ? pArea : pWidget) {}
  ~Native() { delete widget.data(); }
  Native(const Native&) = delete;
  Native& operator=(const Native&) = delete;

  QPointer<QWidget> widget;  // the whole control
  QPointer<QWidget> area;    // what takes input and holds children; within a border
};

}  // namespace trelin
