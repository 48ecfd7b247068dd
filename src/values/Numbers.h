#pragma once

#include <QString>
#include <QStringView>

namespace values {

// Numbers as texts, the same on every machine: the decimal separator is the point, a typed comma is read as
// one, and the locale is never asked.

// Blanks around, an optional sign, digits with at most one point or comma, an optional exponent; nothing
// else. A number too large for a double is none.
bool isNumeric(QStringView text);

// The number that a text holds. Throws a type mismatch when it isn't numeric, an overflow when it is too
// large.
double toNumber(QStringView text);

// Up to 15 significant digits without trailing zeros; "1E+15" from there up, "1E-05" below 0.0001; zero has
// no sign. Throws an overflow for a number that isn't finite.
QString toText(double number);

// The number that toText would leave behind: what is compared is what is stored.
double toFifteenDigits(double number);

// Both at once, for a value that is stored as the text and judged by the number.
struct StoredNumber
{
    QString text;
    double number = 0;
};
StoredNumber toStored(double number);

// To the nearest integer, halves to the even neighbour.
double roundHalfEven(double number);

// roundHalfEven into 32 bits; throws an overflow when it doesn't fit.
int toInteger(double number);

} // namespace values
