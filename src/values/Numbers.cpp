#include "values/Numbers.h"

#include "platform/RuntimeError.h"

#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace values {

using platform::fail;
namespace errors = platform::errors;

namespace {

enum class Reading
{
    Number,
    NoNumber,
    TooLarge
};

struct Parsed
{
    Reading reading;
    double number = 0;
};

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isSign(QChar character)
{
    return character == u'+' || character == u'-';
}

// Takes a text apart into the plain spelling that the standard library reads.
class Scanner
{
public:
    explicit Scanner(QStringView text) : rest_(text) {}

    bool scan()
    {
        skipBlanks();
        takeSign();
        const bool mantissa = takeMantissa();
        const bool exponent = takeExponent();
        skipBlanks();
        return mantissa && exponent && rest_.isEmpty();
    }

    Parsed number() const
    {
        double number = 0;
        const auto result = std::from_chars(plain_.begin(), plain_.end(), number);
        if (result.ec != std::errc::result_out_of_range)
            return {Reading::Number, number};
        return isLarge() ? Parsed{Reading::TooLarge} : Parsed{Reading::Number, 0};
    }

private:
    void skipBlanks()
    {
        while (rest_.startsWith(u' '))
            rest_ = rest_.mid(1);
    }

    QChar take()
    {
        const QChar character = rest_.front();
        rest_ = rest_.mid(1);
        return character;
    }

    void takeSign()
    {
        if (!rest_.isEmpty() && isSign(rest_.front()) && take() == u'-')
            plain_.append('-');
    }

    bool takeDigits()
    {
        const auto before = plain_.size();
        while (!rest_.isEmpty() && isDigit(rest_.front()))
            plain_.append(take().toLatin1());
        return plain_.size() > before;
    }

    bool takeMantissa()
    {
        bool digits = takeDigits();
        if (rest_.startsWith(u'.') || rest_.startsWith(u',')) {
            take();
            plain_.append('.');
            digits = takeDigits() || digits;
        }
        return digits;
    }

    bool takeExponent()
    {
        mantissaEnd_ = plain_.size();
        if (!rest_.startsWith(u'e', Qt::CaseInsensitive))
            return true;
        take();
        plain_.append('e');
        if (!rest_.isEmpty() && isSign(rest_.front()))
            plain_.append(take().toLatin1());
        return takeDigits();
    }

    // Tells a number beyond the largest double from one so small that it reads as zero: by the decimal place
    // of its first digit other than 0.
    bool isLarge() const
    {
        const auto end = plain_.begin() + mantissaEnd_;
        const auto point = std::find(plain_.begin(), end, '.');
        const auto first = std::find_if(plain_.begin(), end, [](char c) { return c >= '1' && c <= '9'; });
        return (point - first) + exponent() > 0;
    }

    long long exponent() const
    {
        if (mantissaEnd_ == plain_.size())
            return 0;
        const char* first = plain_.begin() + mantissaEnd_ + 1;
        const bool negative = *first == '-';
        if (isSign(QLatin1Char(*first)))
            ++first;
        long long size = 0;
        if (std::from_chars(first, plain_.end(), size).ec == std::errc::result_out_of_range)
            size = std::numeric_limits<int>::max();
        return negative ? -size : size;
    }

    QStringView rest_;
    QVarLengthArray<char, 64> plain_;
    qsizetype mantissaEnd_ = 0;
};

Parsed parse(QStringView text)
{
    Scanner scanner(text);
    return scanner.scan() ? scanner.number() : Parsed{Reading::NoNumber};
}

// The text of a number in place, so that reading it back needs no memory of its own.
struct DecimalText
{
    explicit DecimalText(double number)
    {
        if (!std::isfinite(number))
            fail(errors::kOverflow, QStringLiteral("Overflow"));
        // Adding a zero turns the negative zero into the plain one.
        end = std::to_chars(characters.data(), characters.data() + characters.size(), number + 0.0,
                            std::chars_format::general, std::numeric_limits<double>::digits10)
                  .ptr;
    }

    std::array<char, 32> characters;
    char* end;
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
    return parse(text).reading == Reading::Number;
}

double toNumber(QStringView text)
{
    const Parsed parsed = parse(text);
    if (parsed.reading == Reading::NoNumber)
        fail(errors::kTypeMismatch, QStringLiteral("Type mismatch"));
    if (parsed.reading == Reading::TooLarge)
        fail(errors::kOverflow, QStringLiteral("Overflow"));
    return parsed.number;
}

QString toText(double number)
{
    if (const auto integer = plainInteger(number))
        return QString::number(*integer);
    DecimalText text(number);
    std::replace(text.characters.data(), text.end, 'e', 'E');
    return QString::fromLatin1(text.characters.data(), text.end - text.characters.data());
}

double toFifteenDigits(double number)
{
    if (const auto integer = plainInteger(number))
        return static_cast<double>(*integer);
    const DecimalText text(number);
    double readBack = 0;
    std::from_chars(text.characters.data(), text.end, readBack);
    return readBack;
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
        fail(errors::kOverflow, QStringLiteral("Overflow"));
    return static_cast<int>(rounded);
}

} // namespace values
