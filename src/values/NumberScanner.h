#pragma once

#include <QStringView>

namespace values {

// What a text holds by the grammar of numbers (see Numbers.h).
enum class Reading
{
    Number,
    NoNumber,
    TooLarge // a number by its form, beyond the largest double
};

struct Scanned
{
    Reading reading = Reading::NoNumber;
    double number = 0;
};

// Fails never; a number too small for a double is zero.
Scanned scanNumber(QStringView text);

} // namespace values
