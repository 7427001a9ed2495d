#include "systems/host/toolkit_box.h"

#include <QAccessible>
#include <QApplication>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <memory>

#include "shared/line_pixels.h"
#include "shared/modal_loop.h"
#include "systems/host/toolkit_form.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

namespace {

constexpr int BorderPixels = 2;

using PointerHandler = std::function<void(Twips, Twips)>;

void DispatchPointer(const PointerHandler& handler, const QMouseEvent& event) {
  if (!handler) return;
  const Twips x = TwipsX(event.position().x());
  const Twips y = TwipsY(event.position().y());
  DispatchInput([handler, x, y] { handler(x, y); });
}

std::optional<BoxKey> KeyOf(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
    return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Space:
      return BoxKey::Space;
    case Qt::Key_Up:
      return BoxKey::Up;
    case Qt::Key_Down:
      return BoxKey::Down;
    case Qt::Key_PageUp:
      return BoxKey::PageUp;
    case Qt::Key_PageDown:
      return BoxKey::PageDown;
    case Qt::Key_Home:
      return BoxKey::Home;
    case Qt::Key_End:
      return BoxKey::End;
    default:
      return std::nullopt;
  }
}

}  // namespace

BoxArea::BoxArea(PictureBox& box, QWidget* pFrame) : QWidget(pFrame), box_(box) {
  setAttribute(Qt::WA_OpaquePaintEvent);  // it paints its background itself
  setMouseTracking(true);
}

void BoxArea::SetBackColor(Color color) {
  backColor_ = color;
  Refresh();
}

void BoxArea::Refresh() {
  bPainted_ = false;
  update();
}

void BoxArea::paintEvent(QPaintEvent* /*pEvent*/) {
  if (!bPainted_) Paint();
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(backColor_));
  for (const Step& step : steps_) step(painter);
}

void BoxArea::Paint() {
  steps_.clear();
  drawn_.reset();
  bPainted_ = true;  // unless the handler calls Refresh
  bPainting_ = true;
  if (!DispatchPaint(box_.OnPaint)) bPainted_ = false;
  bPainting_ = false;
}

void BoxArea::Draw(Step step) {
  if (bPainting_) steps_.push_back(std::move(step));
}

void BoxArea::Draw(const Image& image, const QImage& pixels) {
  if (bPainting_) {
    Draw([place = image.place, pixels](QPainter& painter) { painter.drawImage(place, pixels); });
    drawn_ = image;
  } else if (drawn_ != image) {
    Refresh();
  }
}

void BoxArea::keyPressEvent(QKeyEvent* pEvent) {
  const std::optional<BoxKey> key = KeyOf(*pEvent);
  if (!key || !box_.OnKey) return QWidget::keyPressEvent(pEvent);
  FormOf(*this).ShowFocus(true);
  if (*key != BoxKey::Space || !pEvent->isAutoRepeat()) DispatchKey(*key);
}

void BoxArea::DispatchKey(BoxKey key) {
  if (box_.OnKey) DispatchInput([handler = box_.OnKey, key] { handler(key); });
}

bool BoxArea::CanAct() const {
  return box_.OnKey && (role_ == BoxRole::ListItem || role_ == BoxRole::Button);
}

bool BoxArea::event(QEvent* pEvent) {
  if (pEvent->type() != ActEvent) return QWidget::event(pEvent);
  if (CanAct() && FormOf(*this).ReceivesEvents()) DispatchKey(BoxKey::Space);
  return true;
}

void BoxArea::SetSelected(bool bSelected) {
  if (std::exchange(bSelected_, bSelected) == bSelected) return;
  QAccessibleEvent event(this,
                         bSelected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
  QAccessible::updateAccessibility(&event);
}

void BoxArea::focusInEvent(QFocusEvent* /*pEvent*/) { Refresh(); }

void BoxArea::focusOutEvent(QFocusEvent* /*pEvent*/) { Refresh(); }

void BoxArea::mousePressEvent(QMouseEvent* pEvent) {
  bPressed_ = true;
  DispatchPointer(box_.OnMouseDown, *pEvent);
}

void BoxArea::mouseMoveEvent(QMouseEvent* pEvent) { DispatchPointer(box_.OnMouseMove, *pEvent); }

void BoxArea::mouseReleaseEvent(QMouseEvent* pEvent) {
  const bool bClicked = bPressed_ && rect().contains(pEvent->position().toPoint());
  bPressed_ = false;
  DispatchPointer(box_.OnMouseUp, *pEvent);
  if (bClicked) DispatchInput(box_.OnClick);
}

void BoxArea::LoseCapture() {
  bPressed_ = false;
  releaseMouse();
  DispatchPaint(box_.OnLoseCapture);
}

void BoxArea::wheelEvent(QWheelEvent* pEvent) {
  OnWheel ? OnWheel(*pEvent) : pEvent->ignore();  // on to the container
}

BoxFrame::BoxFrame(PictureBox& box, QWidget* pContainer)
    : QFrame(pContainer), area_(new BoxArea(box, this)) {
  SetBorder(BoxBorder::None);
}

void BoxFrame::SetBorder(BoxBorder border) {
  setFrameStyle(border == BoxBorder::Sunken ? QFrame::WinPanel | QFrame::Sunken : QFrame::NoFrame);
  setLineWidth(BorderPixels);
  area_->setGeometry(contentsRect());
}

void BoxFrame::resizeEvent(QResizeEvent* /*pEvent*/) { area_->setGeometry(contentsRect()); }

BoxArea& AreaOf(const PictureBox& box) { return static_cast<BoxArea&>(*box.Get().area); }

namespace {

std::unique_ptr<Control::Native> MakeBox(PictureBox& box, Control& container) {
  auto* pFrame = new BoxFrame(box, container.Get().area);
  return std::make_unique<Control::Native>(pFrame, &pFrame->Area());
}

}  // namespace

PictureBox::PictureBox(Control& container) : Control(MakeBox(*this, container)) {}

void PictureBox::SetBorder(BoxBorder border) {
  static_cast<BoxFrame&>(*native_->widget).SetBorder(border);
}

void PictureBox::SetBackColor(Color color) { AreaOf(*this).SetBackColor(color); }

Color PictureBox::BackColor() const { return AreaOf(*this).BackColor(); }

Color PictureBox::ForeColor() const { return Color::ButtonText; }

void PictureBox::Line(Twips x1, Twips y1, Twips x2, Twips y2, Color color) {
  const QPoint from(PixelsX(x1), PixelsY(y1));
  const QPoint to(PixelsX(x2), PixelsY(y2));
  const bool bHorizontal = from.y() == to.y();
  const auto [nFirst, nCount] =
      bHorizontal ? LinePixels(from.x(), to.x()) : LinePixels(from.y(), to.y());
  const QRect line =
      bHorizontal ? QRect(nFirst, from.y(), nCount, 1) : QRect(from.x(), nFirst, 1, nCount);
  AreaOf(*this).Draw([line, color](QPainter& painter) { painter.fillRect(line, ToQColor(color)); });
}

void PictureBox::DrawFocusRectangle(Twips left, Twips top, Twips width, Twips height) {
  QStyleOptionFocusRect option;
  option.rect = QRect(PixelsX(left), PixelsY(top), PixelsX(width), PixelsY(height));
  option.backgroundColor = ToQColor(BackColor());
  AreaOf(*this).Draw([option](QPainter& painter) {
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter);
  });
}

bool PictureBox::ShowsFocus() const { return HasFocus() && FormOf(AreaOf(*this)).ShowsFocus(); }

void PictureBox::Refresh() { AreaOf(*this).Refresh(); }

void PictureBox::SetRole(BoxRole role) { AreaOf(*this).SetRole(role); }

void PictureBox::SetAccessibleName(const std::string& sName) {
  AreaOf(*this).setAccessibleName(ToQString(sName));
}

void PictureBox::SetSelected(bool bSelected) { AreaOf(*this).SetSelected(bSelected); }

void PictureBox::CapturePointer() { AreaOf(*this).grabMouse(); }

void PictureBox::ReleasePointer() { AreaOf(*this).releaseMouse(); }

}  // namespace trelin
