#include <QGuiApplication>
#include <QScreen>
#include <array>
#include <cmath>

#include "shared/code_page.h"
#include "systems/host/toolkit_measure.h"

namespace trelin {

namespace {

// The classic system colours as 0xRRGGBB, by index.
constexpr std::array<QRgb, 25> SystemColors = {
    0xD4D0C8, 0x3A6EA5, 0x0A246A, 0x808080, 0xD4D0C8,  // scroll bar to menu
    0xFFFFFF, 0x000000, 0x000000, 0x000000, 0xFFFFFF,  // window to caption text
    0xD4D0C8, 0xD4D0C8, 0x808080, 0x0A246A, 0xFFFFFF,  // active border to highlight text
    0xD4D0C8, 0x808080, 0x808080, 0x000000, 0xD4D0C8,  // button face to inactive caption text
    0xFFFFFF, 0x404040, 0xD4D0C8, 0x000000, 0xFFFFE1,  // button highlight to tip background
};

const QScreen& PrimaryScreen() { return *QGuiApplication::primaryScreen(); }

}  // namespace

float Screen::TwipsPerPixelX() {
  return static_cast<float>(TwipsPerInch / PrimaryScreen().logicalDotsPerInchX());
}

float Screen::TwipsPerPixelY() {
  return static_cast<float>(TwipsPerInch / PrimaryScreen().logicalDotsPerInchY());
}

Twips Screen::Width() { return TwipsX(PrimaryScreen().geometry().width()); }

Twips Screen::Height() { return TwipsY(PrimaryScreen().geometry().height()); }

// The program has colours of its own here, see toolkit_setup.
bool Screen::SystemColorsOnly() { return false; }

int PixelsX(Twips x) { return static_cast<int>(std::lround(x / Screen::TwipsPerPixelX())); }

int PixelsY(Twips y) { return static_cast<int>(std::lround(y / Screen::TwipsPerPixelY())); }

Twips TwipsX(double pixels) { return static_cast<Twips>(pixels) * Screen::TwipsPerPixelX(); }

Twips TwipsY(double pixels) { return static_cast<Twips>(pixels) * Screen::TwipsPerPixelY(); }

QColor ToQColor(Color color) {
  const auto lColor = static_cast<std::uint32_t>(color);
  if ((lColor & SystemColorBit) != 0) return QColor::fromRgb(SystemColors.at(lColor & 0xFFU));
  return QColor(static_cast<int>(lColor & 0xFFU), static_cast<int>(lColor >> 8U & 0xFFU),
                static_cast<int>(lColor >> 16U & 0xFFU));
}

QString ToQString(const std::string& sText) { return QString::fromStdString(ToUtf8(sText)); }

std::string FromQString(const QString& text) { return FromUtf8(text.toStdString()); }

}  // namespace trelin
