#pragma once

#include <QFont>
#include <QSize>
#include <QString>

#include "shared/label_lines.h"

namespace trelin {

// The lines of a text that have room in a size in pixels.
LabelLines LinesIn(const QString& text, const QFont& font, QSize size);

}  // namespace trelin
