#pragma once

#include <QFrame>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <functional>

#include "platform/toolkit.h"

namespace trelin {

// The inside of a picture box: what the program paints and the pointer meets.
class BoxArea : public QWidget {
 public:
  BoxArea(PictureBox& box, QWidget* pFrame);

  void SetBackColor(Color color);
  Color BackColor() const { return backColor_; }

  // Null unless the box is being painted.
  QPainter* CurrentPainter() const { return pPainter_; }

  // Turns the scroll bar in the box, if there is one.
  std::function<void(QWheelEvent&)> OnWheel;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
  void mousePressEvent(QMouseEvent* pEvent) override;
  void mouseMoveEvent(QMouseEvent* pEvent) override;
  void mouseReleaseEvent(QMouseEvent* pEvent) override;
  void wheelEvent(QWheelEvent* pEvent) override;

 private:
  void TakeFocus();

  PictureBox& box_;
  Color backColor_ = Color::ButtonFace;
  QPainter* pPainter_ = nullptr;
  bool bPressed_ = false;
};

// A picture box with its border, which the area fills up.
class BoxFrame : public QFrame {
 public:
  BoxFrame(PictureBox& box, QWidget* pContainer);

  BoxArea& Area() const { return *area_; }
  void SetBorder(BoxBorder border);

 protected:
  void resizeEvent(QResizeEvent* pEvent) override;

 private:
  BoxArea* area_;  // a child
};

BoxArea& AreaOf(const PictureBox& box);

}  // namespace trelin
