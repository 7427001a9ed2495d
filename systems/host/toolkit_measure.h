#pragma once

#include <QColor>
#include <QString>
#include <string>

#include "seam/toolkit.h"

// Measures, colours and texts of the program in Qt's terms, and back.
namespace trelin {

int PixelsX(Twips x);  // the nearest pixel
int PixelsY(Twips y);
Twips TwipsX(double pixels);
Twips TwipsY(double pixels);

QColor ToQColor(Color color);

QString ToQString(const std::string& sText);
std::string FromQString(const QString& text);

}  // namespace trelin
