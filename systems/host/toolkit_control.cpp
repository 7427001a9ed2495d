#include "systems/host/toolkit_form.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_native.h"

namespace trelin {

Control::Control(std::unique_ptr<Native> native) : native_(std::move(native)) {
  if (native_->widget->isWindow()) return;
  native_->area->installEventFilter(native_->widget->window());  // the form answers keys
  native_->widget->resize(0, 0);                                 // until SetBounds
  native_->widget->show();
}

Control::~Control() = default;

void Control::SetBounds(Twips left, Twips top, Twips width, Twips height) {
  native_->widget->setGeometry(PixelsX(left), PixelsY(top), PixelsX(width), PixelsY(height));
}

Twips Control::Left() const { return TwipsX(native_->widget->x()); }

Twips Control::Top() const { return TwipsY(native_->widget->y()); }

// The frame is a window's; other widgets have none.
Twips Control::Width() const { return TwipsX(native_->widget->frameGeometry().width()); }

Twips Control::Height() const { return TwipsY(native_->widget->frameGeometry().height()); }

void Control::SetVisible(bool bVisible) { native_->widget->setVisible(bVisible); }

void Control::SetEnabled(bool bEnabled) { native_->widget->setEnabled(bEnabled); }

void Control::SetTabIndex(std::int16_t nIndex) {
  native_->area->setProperty(TabIndexProperty, static_cast<int>(nIndex));
}

void Control::SetTabStop(bool bStop) { native_->area->setProperty(TabStopProperty, bStop); }

void Control::SetFocus() { FormOf(*native_->area).GiveFocus(*native_->area); }

bool Control::HasFocus() const { return FormOf(*native_->area).focusWidget() == native_->area; }

}  // namespace trelin
