#include "systems/host/toolkit_text_fit.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "seam/toolkit.h"
#include "systems/host/toolkit_font.h"
#include "systems/host/toolkit_measure.h"

namespace trelin {

namespace {

constexpr float UsualDpi = 96;
constexpr float PointsPerInch = 72;

// Halves the range in which the answer lies.
std::size_t CountFittingIn(const QFontMetrics& metrics, const QString& text, int nWidth) {
  qsizetype nFitting = 0;
  for (qsizetype nTooMany = text.size() + 1; nTooMany - nFitting > 1;) {
    const qsizetype nMiddle = nFitting + (nTooMany - nFitting) / 2;
    const bool bFits = metrics.horizontalAdvance(text.first(nMiddle)) <= nWidth;
    (bFits ? nFitting : nTooMany) = nMiddle;
  }
  return static_cast<std::size_t>(nFitting);
}

CountFitting FittingIn(const QFontMetrics& metrics, int nWidth) {
  return [metrics, nWidth](std::u16string_view sText) {
    const auto nLength = static_cast<qsizetype>(sText.size());
    return CountFittingIn(metrics, QString::fromUtf16(sText.data(), nLength), nWidth);
  };
}

int UsualPixels(float size, float sizesPerInch) {
  return static_cast<int>(std::lround(size * UsualDpi / sizesPerInch));
}

}  // namespace

LabelLines LinesIn(const QString& text, const QFont& font, QSize size) {
  const QFontMetrics metrics(font);
  return BreakIntoLines(text.toStdU16String(), size.height() / metrics.height(),
                        FittingIn(metrics, size.width()));
}

std::int32_t LabelLinesCutOff(const std::string& sText, const LabelFont& font, Twips width,
                              Twips height) {
  QFont usual = FontOf(font);
  usual.setPixelSize(UsualPixels(font.points, PointsPerInch));
  const QFontMetrics metrics(usual);
  return LinesBeyond(ToQString(sText).toStdU16String(),
                     UsualPixels(height, TwipsPerInch) / metrics.height(),
                     FittingIn(metrics, UsualPixels(width, TwipsPerInch)));
}

}  // namespace trelin
