#include "values/Digits.h"

#include "platform/Guard.h"
#include "values/BitField.h"
#include "values/Failures.h"
#include "values/Numbers.h"

#include <limits>

namespace values {

using platform::guarded;

namespace {

constexpr int kDigits = 8;

int digitAt(const QString& digits, int position)
{
    const QChar digit = position < digits.size() ? digits[position] : QChar();
    if (digit < u'0' || digit > u'9')
        failTypeMismatch();
    return digit.unicode() - u'0';
}

int floorOfQuotient(int dividend, int divisor)
{
    const int quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

void requireSixteenBits(int value)
{
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max())
        failOverflow();
}

} // namespace

QString DecToBin(int& value)
{
    return guarded("Module/DecToBin", [&] {
        requireSixteenBits(value);
        QString digits;
        for (int mask = 128; mask > 0; mask /= 2) {
            const int quotient = floorOfQuotient(value, mask);
            digits += QString::number(quotient);
            if (quotient > 0)
                value -= mask;
        }
        return digits;
    });
}

int BinToDec(const QString& digits)
{
    return guarded("Module/BinToDec", [&] {
        int number = 0;
        for (int i = 0; i < kDigits; ++i)
            number += digitAt(digits, kDigits - 1 - i) << i;
        return number;
    });
}

void Compose_Byte(const QString& value, int bitFirst, int bitCount, QString& andMask, QString& orMask)
{
    andMask.clear();
    orMask.clear();
    guarded("Module/Compose_Byte", [&] {
        requireInsideByte(bitFirst, bitCount);
        int number = toInteger(toNumber(value));
        requireSixteenBits(number);
        const QString field = DecToBin(number).right(bitCount);
        const int above = kDigits - bitFirst - bitCount;
        orMask = QString(above, u'0') + field + QString(bitFirst, u'0');
        andMask = QString(above, u'1') + field + QString(bitFirst, u'1');
    });
}

} // namespace values
