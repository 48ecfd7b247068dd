#pragma once

#include "instrument/Plant.h"

#include <QString>

namespace instrument {

// The bytes with which an instrument keeps a text: Latin letters as they are, Cyrillic ones in the
// instrument's own repertoire, where many of them share the Latin letter of the same look. What it can't show
// is "?".
QByteArray instrumentCharacters(const QString& text);

// The bytes of a text that goes to the operator's screen: code page 1251 for Cyrillic letters, Latin-1 for
// the rest.
QByteArray screenCharacters(const QString& text);

// A report in one line: "<Plant 1><Unit 2><Alarm A> | <Plant 1><End of report>". Without the "|" part the
// second block is the plant's name of the first and "<End of report>"; with nothing behind "|" there is no
// second block. "\xHH" is one byte.
AlarmReport reportFromText(const QString& text);

// The same, such that reportFromText gives the report back.
QString textFromReport(const AlarmReport& report);

} // namespace instrument
