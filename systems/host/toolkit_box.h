#pragma once

#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "seam/toolkit.h"

namespace trelin {

// The inside of a picture box: what the program paints and the pointer meets.
// It keeps what the program drew, step by step, so that a repaint of the container,
// which Qt extends to all that lies in it, raises no paint event of the box.
class BoxArea : public QWidget {
 public:
  // A picture of an image list that the box shows.
  struct Image {
    const ImageList* list;
    std::string sKey;
    QPoint place;
    bool operator==(const Image&) const = default;
  };

  BoxArea(PictureBox& box, QWidget* pFrame);

  void SetBackColor(Color color);
  Color BackColor() const { return backColor_; }
  void Refresh();

  // For accessibility clients; the widget's accessible name is the name.
  void SetRole(BoxRole role) { role_ = role; }
  void SetSelected(bool bSelected);
  BoxRole Role() const { return role_; }
  bool Selected() const { return bSelected_; }
  bool CanAct() const;  // as Space does, when asked by ActEvent
  static constexpr QEvent::Type ActEvent = QEvent::User;
  void DispatchKey(BoxKey key);

  void LoseCapture();  // to a message box

  // Draws it while the box is being painted, else has the box painted anew
  // unless this is what was drawn last.
  void Draw(const Image& image, const QImage& pixels);

  using Step = std::function<void(QPainter&)>;
  void Draw(Step step);  // nothing unless the box is being painted

  // Turns the scroll bar in the box, if there is one.
  std::function<void(QWheelEvent&)> OnWheel;

 protected:
  bool event(QEvent* pEvent) override;
  void paintEvent(QPaintEvent* pEvent) override;
  void resizeEvent(QResizeEvent* /*pEvent*/) override { Refresh(); }
  void keyPressEvent(QKeyEvent* pEvent) override;
  void focusInEvent(QFocusEvent* pEvent) override;
  void focusOutEvent(QFocusEvent* pEvent) override;
  void mousePressEvent(QMouseEvent* pEvent) override;
  void mouseDoubleClickEvent(QMouseEvent* /*pEvent*/) override {}  // is no press
  void mouseMoveEvent(QMouseEvent* pEvent) override;
  void mouseReleaseEvent(QMouseEvent* pEvent) override;
  void wheelEvent(QWheelEvent* pEvent) override;

 private:
  void Paint();

  PictureBox& box_;
  std::vector<Step> steps_;
  bool bPainted_ = false;
  bool bPainting_ = false;
  std::optional<Image> drawn_;  // last among the steps
  Color backColor_ = Color::ButtonFace;
  BoxRole role_ = BoxRole::Pane;
  bool bSelected_ = false;
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
