#pragma once

#include <QImage>

#include "seam/toolkit.h"

namespace trelin {

struct Picture::Native {
  QImage image;  // with an alpha channel when the picture has a mask or transparency of its own
};

}  // namespace trelin
