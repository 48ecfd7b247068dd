#pragma once

#include <QByteArray>

namespace values {

// Between code page 1251, in which the operator's texts stand, and the instruments' own character set.
// Neither way changes the length. The two are no inverses: the set shares the Latin letters that look like
// Cyrillic ones.

// Display codes to instrument codes. Codes below 128 are copied; a letter that instruments lack becomes "!".
QByteArray Translate_RUChrOut(QByteArray text);

// Instrument codes to display codes. Latin letters with a Cyrillic look-alike become that; a code of 128 or
// above that stands for no letter becomes "!".
QByteArray Translate_RUChrIn(QByteArray text);

} // namespace values
