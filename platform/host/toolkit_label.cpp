#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <memory>

#include "platform/host/toolkit_font.h"
#include "platform/host/toolkit_measure.h"
#include "platform/host/toolkit_native.h"
#include "platform/host/toolkit_text_fit.h"
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
    QPainter painter(this);
    QRect line(0, 0, width(), fontMetrics().lineSpacing());
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

void Label::SetFont(const LabelFont& font) { LabelOf(*this).setFont(FontOf(font)); }

void Label::SetCaption(const std::string& sCaption) { LabelOf(*this).setText(ToQString(sCaption)); }

std::string Label::Caption() const { return FromQString(LabelOf(*this).text()); }

}  // namespace trelin
