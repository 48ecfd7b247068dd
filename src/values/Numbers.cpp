#include "values/Numbers.h"

#include "values/Failures.h"
#include "values/NumberScanner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace values {

namespace {

// The text of a number in place, so that reading it back needs no memory of its own.
class DecimalText
{
public:
    explicit DecimalText(double number)
    {
        if (!std::isfinite(number))
            failOverflow();
        end_ = std::to_chars(characters_.begin(), characters_.end(), number, std::chars_format::general,
                             std::numeric_limits<double>::digits10)
                   .ptr;
    }

    QString text() const
    {
        QString text = QString::fromLatin1(characters_.data(), end_ - characters_.data());
        return text.replace(u'e', u'E');
    }

    double readBack() const
    {
        double number = 0;
        std::from_chars(characters_.data(), end_, number);
        return number;
    }

private:
    std::array<char, 32> characters_;
    const char* end_;
};

// Integers below this have at most 15 digits: they are their own text, exactly.
constexpr double kFifteenDigits = 1E15;

std::optional<qint64> plainInteger(double number)
{
    if (std::abs(number) < kFifteenDigits && number == std::trunc(number))
        return static_cast<qint64>(number);
    return std::nullopt;
}

} // namespace

bool isNumeric(QStringView text)
{
    return scanNumber(text).reading == Reading::Number;
}

double toNumber(QStringView text)
{
    const Scanned scanned = scanNumber(text);
    if (scanned.reading == Reading::NoNumber)
        failTypeMismatch();
    if (scanned.reading == Reading::TooLarge)
        failOverflow();
    return scanned.number;
}

QString toText(double number)
{
    if (const auto integer = plainInteger(number))
        return QString::number(*integer);
    return DecimalText(number).text();
}

double toFifteenDigits(double number)
{
    if (const auto integer = plainInteger(number))
        return static_cast<double>(*integer);
    return DecimalText(number).readBack();
}

StoredNumber toStored(double number)
{
    if (const auto integer = plainInteger(number))
        return {QString::number(*integer), static_cast<double>(*integer)};
    const DecimalText text(number);
    return {text.text(), text.readBack()};
}

double roundHalfEven(double number)
{
    const double below = std::floor(number);
    const double part = number - below;
    if (part != 0.5)
        return part < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

int toInteger(double number)
{
    const double rounded = roundHalfEven(number);
    if (!(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max()))
        failOverflow();
    return static_cast<int>(rounded);
}

} // namespace values
