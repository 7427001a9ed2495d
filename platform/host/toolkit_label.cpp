#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <memory>

#include "platform/host/toolkit_measure.h"
#include "platform/host/toolkit_native.h"
#include "platform/modal_loop.h"

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
  void paintEvent(QPaintEvent* /*pEvent*/) override {
    const int nLineHeight = fontMetrics().lineSpacing();
    const int nLines = std::max(1, height() / nLineHeight);
    QPainter painter(this);
    painter.setClipRect(0, 0, width(), nLines * nLineHeight);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text());
  }
  void mousePressEvent(QMouseEvent* pEvent) override {
    KeepFromContainer(*pEvent);
    DispatchInput(label_.OnMouseDown);
  }
  void mouseMoveEvent(QMouseEvent* pEvent) override { KeepFromContainer(*pEvent); }
  void mouseReleaseEvent(QMouseEvent* pEvent) override { KeepFromContainer(*pEvent); }

 private:
  void KeepFromContainer(QMouseEvent& event) const {
    event.setAccepted(static_cast<bool>(label_.OnMouseDown));
  }

  Label& label_;
};

QLabel& LabelOf(const Label& label) { return static_cast<QLabel&>(*label.Get().widget); }

}  // namespace

Label::Label(Control& container)
    : Control(std::make_unique<Native>(new LabelWidget(*this, container.Get().area))) {}

void Label::SetFont(const LabelFont& font) {
  QFont qtFont = QApplication::font();
  qtFont.setPointSizeF(static_cast<double>(font.points));
  qtFont.setBold(font.bBold);
  qtFont.setUnderline(font.bUnderline);
  LabelOf(*this).setFont(qtFont);
}

void Label::SetCaption(const std::string& sCaption) { LabelOf(*this).setText(ToQString(sCaption)); }

std::string Label::Caption() const { return FromQString(LabelOf(*this).text()); }

}  // namespace trelin
