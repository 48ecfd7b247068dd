#pragma once

#include "platform/CsvField.h"

#include <QByteArray>
#include <QString>

// Texts as fields of a file's line. A control character inside a text is written as a blank: a line stays one
// line.
namespace exchange {

inline constexpr char kLineEnd[] = "\r\n"; // on every machine

// In a code page, one byte a character; "?" for what the page lacks.
QByteArray pageField(const QString& text, int codePage);
// The same, cut to a width or filled up with blanks.
QByteArray fixedField(const QString& text, int width, int codePage);
void appendFixedField(QByteArray& line, const QString& text, int width, int codePage);
// The same without blanks at its end.
QByteArray trimmedField(const QString& text, int codePage);
using platform::quotedField;

} // namespace exchange
