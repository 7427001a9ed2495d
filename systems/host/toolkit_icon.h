#pragma once

#include <QImage>
#include <string_view>

namespace trelin {

// Qt leaves the mask of an icon of 16 or 24 bits a pixel aside. Returns the
// picture at nIndex of the icon file, as Qt has read it, with its mask; one of
// another depth as it is. Throws std::runtime_error with the reason when the
// mask is cut off.
QImage WithIconMask(const QImage& image, std::string_view sFile, int nIndex);

}  // namespace trelin
