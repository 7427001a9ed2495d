#include "systems/windows/toolkit_text_fit.h"

#include "seam/toolkit.h"
#include "systems/windows/handle.h"
#include "systems/windows/toolkit_font.h"
#include "systems/windows/toolkit_measure.h"
#include "systems/windows/toolkit_text.h"

namespace trelin {

namespace {

constexpr UINT UsualDpi = 96;

// In the font that is selected into the context.
CountFitting FittingIn(HDC hContext, int nWidth) {
  return [hContext, nWidth](std::u16string_view sPart) {
    int nFitting = 0;
    SIZE all{};
    GetTextExtentExPointW(hContext, reinterpret_cast<const wchar_t*>(sPart.data()),
                          static_cast<int>(sPart.size()), nWidth, &nFitting, nullptr, &all);
    return static_cast<std::size_t>(nFitting);
  };
}

}  // namespace

int LineHeight(HDC hContext) {
  TEXTMETRICA metrics{};
  GetTextMetricsA(hContext, &metrics);
  return metrics.tmHeight;
}

LabelLines LinesIn(const std::string& sText, HDC hContext, SIZE size) {
  return BreakIntoLines(ToUtf16(sText), size.cy / LineHeight(hContext),
                        FittingIn(hContext, size.cx));
}

std::int32_t LabelLinesCutOff(const std::string& sText, const LabelFont& font, Twips width,
                              Twips height) {
  const MemoryContextOwner context(CreateCompatibleDC(nullptr));
  SelectObject(context.get(), FontOf(font, UsualDpi));
  return LinesBeyond(ToUtf16(sText), Pixels(height, UsualDpi) / LineHeight(context.get()),
                     FittingIn(context.get(), Pixels(width, UsualDpi)));
}

}  // namespace trelin
