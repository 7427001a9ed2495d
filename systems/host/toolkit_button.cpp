#include <QKeyEvent>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <memory>

#include "systems/host/toolkit_form.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

namespace {

// Within a dark frame while it is the one that answers Enter.
class ButtonWidget : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  // Qt would have an arrow move the focus to another control.
  void keyPressEvent(QKeyEvent* pEvent) override {
    const bool bArrow = pEvent->key() >= Qt::Key_Left && pEvent->key() <= Qt::Key_Down;
    bArrow ? pEvent->ignore() : QPushButton::keyPressEvent(pEvent);
  }
  // Qt would click by its access key later, and leave the focus where it is.
  bool event(QEvent* pEvent) override {
    if (pEvent->type() != QEvent::Shortcut) return QPushButton::event(pEvent);
    setFocus(Qt::ShortcutFocusReason);
    click();
    return true;
  }
  void mouseDoubleClickEvent(QMouseEvent* /*pEvent*/) override {}  // is no press
  void paintEvent(QPaintEvent* /*pEvent*/) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (FormOf(*this).AnswersEnter(*this)) {
      painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
      option.rect.adjust(1, 1, -1, -1);
    }
    painter.drawControl(QStyle::CE_PushButton, option);
  }
};

QPushButton& ButtonOf(const Button& button) {
  return static_cast<QPushButton&>(*button.Get().widget);
}

}  // namespace

Button::Button(Form& form) : Control(std::make_unique<Native>(new ButtonWidget(form.Get().area))) {
  QPushButton& button = ButtonOf(*this);
  QObject::connect(&button, &QPushButton::clicked, &button, [this] { DispatchInput(OnClick); });
}

void Button::SetCaption(const std::string& sCaption) {
  ButtonOf(*this).setText(ToQString(sCaption));
}

std::string Button::Caption() const { return FromQString(ButtonOf(*this).text()); }

void Button::SetDefault() { FormOf(*native_->widget).SetDefault(ButtonOf(*this)); }

void Button::SetCancel() { FormOf(*native_->widget).SetCancel(ButtonOf(*this)); }

}  // namespace trelin
