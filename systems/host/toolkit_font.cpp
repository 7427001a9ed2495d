#include "systems/host/toolkit_font.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>

namespace trelin {

namespace {

// MS Sans Serif, or what comes nearest to it.
QString FindFamily() {
  const QStringList families = QFontDatabase::families();
  for (const char* pFamily : {"MS Sans Serif", "Microsoft Sans Serif", "Arial", "Liberation Sans",
                              "Arimo", "Nimbus Sans", "DejaVu Sans"}) {
    if (families.contains(QLatin1String(pFamily))) return QLatin1String(pFamily);
  }
  return QGuiApplication::font().family();
}

}  // namespace

QFont FontOf(const LabelFont& font) {
  static const QString family = FindFamily();
  QFont made(family);
  made.setPointSizeF(static_cast<double>(font.points));
  made.setBold(font.bBold);
  made.setUnderline(font.bUnderline);
  return made;
}

}  // namespace trelin
