#pragma once

#include <QStringView>

namespace values {

// The catalogue's wire tag, read once so that the coding switches on a code instead of comparing texts.
enum class WireType
{
    Byte,
    SignedByte,
    Bit,
    Bcd,
    WordLowFirst,
    WordHighFirst,
    IntLowFirst,
    IntHighFirst,
    Other
};

// Tags are compared exactly; "STRING" and any unknown one are Other.
WireType wireTypeOf(QStringView tag);

} // namespace values
