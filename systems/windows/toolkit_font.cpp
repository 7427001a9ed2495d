#include "systems/windows/toolkit_font.h"

#include <cmath>
#include <map>
#include <tuple>

#include "systems/windows/handle.h"

namespace trelin {

namespace {

constexpr float PointsPerInch = 72;
constexpr UINT UsualDpi = 96;

// MS Sans Serif comes in the sizes of the usual screen only; the other one is
// the same letters as outlines.
const char* FaceAt(UINT dpi) { return dpi == UsualDpi ? "MS Sans Serif" : "Microsoft Sans Serif"; }

HFONT MakeFont(const LabelFont& font, UINT dpi) {
  LOGFONTA logical{};
  logical.lfHeight =
      -static_cast<LONG>(std::lround(font.points * static_cast<float>(dpi) / PointsPerInch));
  logical.lfWeight = font.bBold ? FW_BOLD : FW_NORMAL;
  logical.lfUnderline = font.bUnderline;
  logical.lfCharSet = DEFAULT_CHARSET;
  lstrcpyA(logical.lfFaceName, FaceAt(dpi));
  return CreateFontIndirectA(&logical);
}

}  // namespace

HFONT FontOf(const LabelFont& font, UINT dpi) {
  static std::map<std::tuple<float, bool, bool, UINT>, ObjectOwner<HFONT>> fonts;
  ObjectOwner<HFONT>& made = fonts[{font.points, font.bBold, font.bUnderline, dpi}];
  if (made == nullptr) made.reset(MakeFont(font, dpi));
  return made.get();
}

}  // namespace trelin
