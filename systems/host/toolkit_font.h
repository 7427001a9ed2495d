#pragma once

#include <QFont>

#include "seam/toolkit.h"

namespace trelin {

// The font at the screen's resolution. Needs Qt's application object, but no
// QApplication.
QFont FontOf(const LabelFont& font);

}  // namespace trelin
