#include <QPushButton>
#include <QStyleOptionButton>
#include <memory>

#include "platform/host/toolkit_form.h"
#include "platform/host/toolkit_measure.h"
#include "platform/host/toolkit_native.h"

namespace trelin {

namespace {

// Drawn as the default button while it is the one that answers Enter.
class ButtonWidget : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void initStyleOption(QStyleOptionButton* pOption) const override {
    QPushButton::initStyleOption(pOption);
    const auto& form = static_cast<const FormWidget&>(*window());
    pOption->features.setFlag(QStyleOptionButton::DefaultButton, form.AnswersEnter(*this));
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
