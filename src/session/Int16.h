#pragma once

#include <QString>

namespace session {

// The 16-bit number that a text holds: blanks around, a sign, digits with a point or a comma, an exponent;
// halves go to the even neighbour. A text that holds no number is a type mismatch, a number beyond 16 bits an
// overflow.
qint16 toInt16(const QString& text);

} // namespace session
