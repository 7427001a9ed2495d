#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <memory>

#include "shared/modal_loop.h"
#include "shared/tooltip_text.h"
#include "systems/host/toolkit_font.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"
#include "systems/host/toolkit_text_fit.h"

namespace trelin {

namespace {

// A press that the program does not want goes through to the container.
class LabelWidget : public QLabel {
 public:
  LabelWidget(Label& label, QWidget* pContainer) : QLabel(pContainer), label_(label) {
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
  }

 protected:
  bool event(QEvent* pEvent) override {
    if (pEvent->type() != QEvent::ToolTip) return QLabel::event(pEvent);
    ShowTooltip(static_cast<QHelpEvent&>(*pEvent).globalPos());
    return true;
  }
  void paintEvent(QPaintEvent* /*pEvent*/) override {
    QPainter painter(this);
    QRect line(0, 0, width(), fontMetrics().height());
    for (const std::u16string& sLine : LinesIn(text(), font(), size()).lines) {
      painter.drawText(line, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                       QString::fromStdU16String(sLine));
      line.translate(0, line.height());
    }
  }
  void mousePressEvent(QMouseEvent* pEvent) override {
    KeepFromContainer(*pEvent);
    DispatchInput(label_.OnMouseDown);
  }
  void mouseDoubleClickEvent(QMouseEvent* pEvent) override { KeepFromContainer(*pEvent); }
  void mouseMoveEvent(QMouseEvent* pEvent) override { KeepFromContainer(*pEvent); }
  void mouseReleaseEvent(QMouseEvent* pEvent) override { KeepFromContainer(*pEvent); }

 private:
  void ShowTooltip(const QPoint& point) {
    if (HasTooltip(LinesIn(text(), font(), size()), label_.OnMouseDown))
      QToolTip::showText(point, RichTooltip(), this, rect());
    else
      QToolTip::hideText();
  }

  // As rich text: Qt would look for tags in a plain one.
  QString RichTooltip() const {
    const auto linesIn = [this](int nHeight) {
      return LinesIn(text(), QToolTip::font(), QSize(width(), nHeight));
    };
    const std::u16string sShown =
        TooltipText(screen()->size().height(), std::u16string::npos, linesIn);
    return Qt::convertFromPlainText(QString::fromStdU16String(sShown), Qt::WhiteSpacePre);
  }

  void KeepFromContainer(QMouseEvent& event) const {
    event.setAccepted(static_cast<bool>(label_.OnMouseDown));
  }

  Label& label_;
};

QLabel& LabelOf(const Label& label) { return static_cast<QLabel&>(*label.Get().widget); }

}  // namespace

Label::Label(Control& container)
    : Control(std::make_unique<Native>(new LabelWidget(*this, container.Get().area))) {}

void Label::SetFont(const LabelFont& font) { LabelOf(*this).setFont(FontOf(font)); }

void Label::SetCaption(const std::string& sCaption) { LabelOf(*this).setText(ToQString(sCaption)); }

void Label::Announce() const {
  QAccessibleEvent event(native_->widget, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

std::string Label::Caption() const { return FromQString(LabelOf(*this).text()); }

}  // namespace trelin
