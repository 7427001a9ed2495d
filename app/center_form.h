#pragma once

#include "seam/toolkit.h"

namespace trelin {

// Moves a window to the middle of the screen; one that is larger than the
// screen gets negative coordinates.
void CenterForm(Form& form);

}  // namespace trelin
