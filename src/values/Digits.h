#pragma once

#include <QString>

namespace values {

// Digit strings: a byte as eight characters "0" and "1", the most significant bit first. Each procedure
// reports its failure under its own name and leaves with the empty result.

// The digits of a 16-bit integer, which is consumed: what remains in `value` is what eight subtractions leave
// of it. Outside 0 to 255 the quotients stand as they come, so a digit may be above 1, negative, or more than
// one character. Fails with an overflow beyond 16 bits.
QString DecToBin(int& value);

// The number of exactly eight characters; further ones are ignored. Any decimal digit counts with its value.
// Fails with a type mismatch at a missing character or one that is no digit; the result is then 0.
int BinToDec(const QString& digits);

// The masks that put a number into the bits `bitFirst` to `bitFirst + bitCount - 1` of a byte: (old AND
// andMask) OR orMask sets the field and leaves the other bits. The number's digits beyond the field's width
// are dropped; no scale is applied. Fails when `value` isn't a 16-bit number or the field reaches beyond the
// byte; both masks are then empty, so that no earlier parameter's mask stands in.
void Compose_Byte(const QString& value, int bitFirst, int bitCount, QString& andMask, QString& orMask);

} // namespace values
