#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace platform {

// The text with blanks for its control characters: a line stays one line.
QString withoutControls(const QString& text);

// A field of a comma separated file in UTF-8, in quotes where commas, quotes or blanks at an end make them
// needed (RFC 4180).
QByteArray quotedField(const QString& text);
// A whole line with its end.
QByteArray csvLine(const QStringList& cells);

} // namespace platform
