#include "systems/host/toolkit_text_fit.h"

#include <QFontMetrics>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "seam/toolkit.h"
#include "systems/host/toolkit_font.h"
#include "systems/host/toolkit_measure.h"

namespace trelin {

namespace {

constexpr float UsualDpi = 96;
constexpr float PointsPerInch = 72;

// Most texts fit as a whole; else halves the range in which the answer lies.
std::size_t CountFittingIn(const QFontMetrics& metrics, const QString& text, int nWidth) {
  if (metrics.horizontalAdvance(text) <= nWidth) return static_cast<std::size_t>(text.size());
  qsizetype nFitting = 0;
  for (qsizetype nTooMany = text.size(); nTooMany - nFitting > 1;) {
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

QFont UsualFont(const LabelFont& font) {
  QFont usual = FontOf(font);
  usual.setPixelSize(UsualPixels(font.points, PointsPerInch));
  return usual;
}

// How wide characters of the code page are at the most, wherever they stand: a pair of
// them is kerned by less than a pixel. Each is measured when it first comes.
class CharacterWidths {
 public:
  explicit CharacterWidths(const LabelFont& font) : font_(font) {}

  const LabelFont& Font() const { return font_; }

  // False also for some texts that fit, and those with control characters: they are to be
  // measured.
  bool ShowFit(std::string_view sText, int nWidth) {
    for (const char c : sText) {
      const auto nCode = static_cast<unsigned char>(c);
      if (nCode < ' ') return false;
      int& nMost = widths_[nCode];
      if (nMost == 0) nMost = QFontMetrics(UsualFont(font_)).horizontalAdvance(ToQString({c})) + 1;
      nWidth -= nMost;
    }
    return nWidth >= 0;
  }

 private:
  LabelFont font_;
  std::array<int, 256> widths_{};
};

// The menu has few fonts.
CharacterWidths& WidthsIn(const LabelFont& font) {
  static std::vector<CharacterWidths> all;
  const auto known = std::find_if(all.begin(), all.end(), [&font](const CharacterWidths& widths) {
    return widths.Font() == font;
  });
  return known != all.end() ? *known : all.emplace_back(font);
}

}  // namespace

LabelLines LinesIn(const QString& text, const QFont& font, QSize size) {
  const QFontMetrics metrics(font);
  return BreakIntoLines(text.toStdU16String(), size.height() / metrics.height(),
                        FittingIn(metrics, size.width()));
}

// To measure a text in whole takes fifty times as long as to add up its characters.
std::int32_t LabelLinesCutOff(const std::string& sText, const LabelFont& font, Twips width,
                              Twips height) {
  const int nWidth = UsualPixels(width, TwipsPerInch);
  if (WidthsIn(font).ShowFit(sText, nWidth)) return 0;
  const QFontMetrics metrics(UsualFont(font));
  return LinesBeyond(ToQString(sText).toStdU16String(),
                     UsualPixels(height, TwipsPerInch) / metrics.height(),
                     FittingIn(metrics, nWidth));
}

}  // namespace trelin
