#include <QImage>
#include <algorithm>
#include <memory>
#include <unordered_map>

#include "systems/host/toolkit_box.h"
#include "systems/host/toolkit_measure.h"
#include "systems/host/toolkit_picture.h"

namespace trelin {

struct ImageList::Native {
  QSize size;
  QRgb mask;
  std::unordered_map<std::string, QImage> images;
};

namespace {

// Of a picture without transparency. A pixel that is opaque or nothing is the
// same multiplied by its opacity.
QImage WithoutColor(const QImage& picture, QRgb color) {
  QImage image = picture.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    auto* pLine = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::replace(pLine, pLine + image.width(), color, qRgba(0, 0, 0, 0));
  }
  image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
  return image;
}

// The mask colour is taken out before scaling mixes it with its neighbours.
QImage Prepare(const QImage& own, QRgb mask, QSize size) {
  const QImage image = own.hasAlphaChannel() ? own : WithoutColor(own, mask);
  return image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
      .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Of thousands of pictures few are drawn: one without transparency that needs no scaling
// is kept as it is, and prepared whenever it is drawn.
bool IsKeptAsItIs(const QImage& own, QSize size) {
  return !own.hasAlphaChannel() && own.size() == size;
}

}  // namespace

ImageList::ImageList(std::int16_t nWidthPixels, std::int16_t nHeightPixels, Color mask)
    : native_(std::make_unique<Native>()) {
  native_->size = QSize(nWidthPixels, nHeightPixels);
  native_->mask = ToQColor(mask).rgb();
}

ImageList::~ImageList() = default;

std::int16_t ImageList::ImageWidth() const {
  return static_cast<std::int16_t>(native_->size.width());
}

std::int16_t ImageList::ImageHeight() const {
  return static_cast<std::int16_t>(native_->size.height());
}

void ImageList::Add(const std::string& sKey, const Picture& picture) {
  const QImage& own = picture.Get().image;
  native_->images.insert_or_assign(
      sKey, IsKeptAsItIs(own, native_->size) ? own : Prepare(own, native_->mask, native_->size));
}

void ImageList::AddAgain(const std::string& sKey, const std::string& sOtherKey) {
  const auto other = native_->images.find(sOtherKey);
  if (other != native_->images.end()) native_->images.insert_or_assign(sKey, other->second);
}

bool ImageList::Contains(const std::string& sKey) const { return native_->images.contains(sKey); }

void ImageList::Draw(const std::string& sKey, PictureBox& box, Twips left, Twips top) const {
  const auto image = native_->images.find(sKey);
  if (image == native_->images.end()) return;
  const QImage& kept = image->second;
  AreaOf(box).Draw({this, sKey, QPoint(PixelsX(left), PixelsY(top))},
                   kept.hasAlphaChannel() ? kept : Prepare(kept, native_->mask, native_->size));
}

}  // namespace trelin
