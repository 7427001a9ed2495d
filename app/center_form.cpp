#include "app/center_form.h"

namespace trelin {

void CenterForm(Form& form) {
  form.Move((Screen::Width() - form.Width()) / 2.0F, (Screen::Height() - form.Height()) / 2.0F);
}

}  // namespace trelin
