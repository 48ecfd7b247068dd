#include "values/NumberScanner.h"

#include <QVarLengthArray>
#include <algorithm>
#include <charconv>
#include <limits>

namespace values {

namespace {

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

    Scanned number() const
    {
        double number = 0;
        const auto result = std::from_chars(plain_.begin(), plain_.end(), number);
        if (result.ec != std::errc::result_out_of_range)
            return {Reading::Number, number};
        return isLarge() ? Scanned{Reading::TooLarge} : Scanned{Reading::Number, 0};
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

} // namespace

Scanned scanNumber(QStringView text)
{
    Scanner scanner(text);
    return scanner.scan() ? scanner.number() : Scanned{Reading::NoNumber};
}

} // namespace values
