#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

// Text to and from the single-byte pages 874 and 1250 to 1258; any other number counts as 1252. The tables
// are the program's own, so that files and lines read alike on every machine.

// The page of a locale's character set (204 Cyrillic: 1251, 161 Greek: 1253, ...). Sets without a page of
// their own here, the double-byte ones among them, give 1252.
int codePageOf(int charset);

// One byte a character; a character that the page lacks becomes "?".
QByteArray encode(const QString& text, int codePage);

// One character a byte, also for bytes that the page leaves undefined: encode(decode(bytes)) gives the bytes
// again.
QString decode(const QByteArray& bytes, int codePage);

} // namespace platform
