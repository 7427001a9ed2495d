#include <windows.h>
#include <commctrl.h>

#include <map>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

#include "systems/windows/toolkit_box.h"
#include "systems/windows/toolkit_form.h"
#include "systems/windows/toolkit_icon.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_picture.h"

namespace trelin {

// The common controls' image list knows its images by number.
struct ImageList::Native {
  struct Closer {
    void operator()(HIMAGELIST hList) const { ImageList_Destroy(hList); }
  };
  using Owner = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, Closer>;

  std::int16_t nWidth, nHeight;
  std::uint32_t mask;  // as an opaque pixel
  Owner list;
  std::map<std::string, int> numbers;
};

namespace {

std::uint32_t ToPixel(Color color) {
  const COLORREF lColor = ToColorRef(color);
  return OpaqueAlpha | static_cast<std::uint32_t>(GetRValue(lColor)) << 16U |
         static_cast<std::uint32_t>(GetGValue(lColor)) << 8U | GetBValue(lColor);
}

// The mask colour is taken out before scaling mixes it with its neighbours.
Pixels32 Prepare(const Picture::Native& picture, std::uint32_t mask, int nWidth, int nHeight) {
  Pixels32 image = picture.image;
  for (std::uint32_t& pixel : image.pixels) {
    if (!picture.bOwnMask && pixel == mask) pixel = 0;
  }
  const bool bFits = image.nWidth == nWidth && image.nHeight == nHeight;
  return bFits ? image : Scaled(image, nWidth, nHeight);
}

// The functions that add give the image's number, and a negative one without memory.
int AddProgramIcon(const ImageList::Native& native, const Picture& picture) {
  return ImageList_AddIcon(native.list.get(), MakeIcon(picture, native.nWidth).get());
}

int AddPicture(const ImageList::Native& native, const Picture::Native& picture) {
  const IconBitmaps bitmaps =
      MakeIconBitmaps(Prepare(picture, native.mask, native.nWidth, native.nHeight));
  return ImageList_Add(native.list.get(), bitmaps.colors.get(), bitmaps.mask.get());
}

}  // namespace

ImageList::ImageList(std::int16_t nWidthPixels, std::int16_t nHeightPixels, Color mask)
    : native_(std::make_unique<Native>(
          Native{nWidthPixels,
                 nHeightPixels,
                 ToPixel(mask),
                 ImageList::Native::Owner(
                     ImageList_Create(nWidthPixels, nHeightPixels, ILC_COLOR32 | ILC_MASK, 0, 8)),
                 {}})) {}

ImageList::~ImageList() = default;

std::int16_t ImageList::ImageWidth() const { return native_->nWidth; }

std::int16_t ImageList::ImageHeight() const { return native_->nHeight; }

void ImageList::Add(const std::string& sKey, const Picture& picture) {
  const int nNumber = picture.Get().bProgramIcon ? AddProgramIcon(*native_, picture)
                                                 : AddPicture(*native_, picture.Get());
  if (nNumber < 0) throw std::bad_alloc();
  native_->numbers.insert_or_assign(sKey, nNumber);
}

void ImageList::AddAgain(const std::string& sKey, const std::string& sOtherKey) {
  const auto other = native_->numbers.find(sOtherKey);
  if (other != native_->numbers.end()) native_->numbers.insert_or_assign(sKey, other->second);
}

bool ImageList::Contains(const std::string& sKey) const { return native_->numbers.contains(sKey); }

void ImageList::Draw(const std::string& sKey, PictureBox& box, Twips left, Twips top) const {
  const auto number = native_->numbers.find(sKey);
  if (number == native_->numbers.end()) return;
  const UINT dpi = BoxOf(box).Form().Dpi();
  BoxOf(box).Draw({native_->list.get(), number->second, Pixels(left, dpi), Pixels(top, dpi)});
}

}  // namespace trelin
