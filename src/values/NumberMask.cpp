#include "values/NumberMask.h"

#include "values/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace values {

namespace {

struct Mask
{
    bool usable = false;
    bool grouped = false;
    qsizetype wholeLeast = 0;
    qsizetype decimalsLeast = 0;
    qsizetype decimalsMost = 0;
};

Mask parseMask(const QString& text)
{
    Mask mask;
    bool inDecimals = false;
    for (const QChar character : text) {
        if (character == u'.' && !inDecimals) {
            inDecimals = true;
        } else if (character == u',' && !inDecimals) {
            mask.grouped = true;
        } else if (character == u'0' && inDecimals) {
            mask.decimalsLeast = ++mask.decimalsMost;
        } else if (character == u'0') {
            ++mask.wholeLeast;
        } else if (character == u'#' && inDecimals) {
            ++mask.decimalsMost;
        } else if (character == u'#') {
            // Digits before the least ones are shown only when they are there.
            mask.wholeLeast += mask.wholeLeast > 0;
        } else {
            return {};
        }
        mask.usable = true;
    }
    return mask;
}

// A number without its sign, as decimal digits; the point stands after `whole` of them.
struct Decimal
{
    std::string digits;
    qsizetype whole = 0;
};

Decimal decimalOf(double number)
{
    constexpr int kDigits = std::numeric_limits<double>::digits10;
    char text[32];
    const auto end =
        std::to_chars(text, text + sizeof text, std::abs(number), std::chars_format::scientific, kDigits - 1)
            .ptr;
    const auto exponentSign = std::find(text, end, 'e') + 1;
    int exponent = 0;
    std::from_chars(*exponentSign == '+' ? exponentSign + 1 : exponentSign, end, exponent);

    std::string digits(1, text[0]);
    digits.append(text + 2, kDigits - 1);
    Decimal decimal{digits, exponent + 1};
    if (decimal.whole < 0) {
        decimal.digits.insert(0, static_cast<size_t>(-decimal.whole), '0');
        decimal.whole = 0;
    }
    const auto most = static_cast<size_t>(decimal.whole);
    if (decimal.digits.size() < most)
        decimal.digits.append(most - decimal.digits.size(), '0');
    return decimal;
}

void roundHalfAway(Decimal& decimal, qsizetype decimals)
{
    const auto kept = static_cast<size_t>(decimal.whole + decimals);
    if (kept >= decimal.digits.size()) {
        decimal.digits.append(kept - decimal.digits.size(), '0');
        return;
    }
    const bool up = decimal.digits[kept] >= '5';
    decimal.digits.resize(kept);
    if (!up)
        return;
    const auto grows =
        std::find_if(decimal.digits.rbegin(), decimal.digits.rend(), [](char digit) { return digit != '9'; });
    std::fill(decimal.digits.rbegin(), grows, '0');
    if (grows != decimal.digits.rend()) {
        ++*grows;
    } else {
        decimal.digits.insert(0, 1, '1');
        ++decimal.whole;
    }
}

QString wholePart(const Decimal& decimal, const Mask& mask)
{
    QString whole = QString::fromLatin1(decimal.digits.data(), decimal.whole);
    while (whole.startsWith(u'0'))
        whole.remove(0, 1);
    whole = whole.rightJustified(mask.wholeLeast, u'0');
    if (mask.grouped) {
        for (qsizetype place = whole.size() - 3; place > 0; place -= 3)
            whole.insert(place, u',');
    }
    return whole;
}

QString decimalPart(const Decimal& decimal, const Mask& mask)
{
    QString decimals = QString::fromStdString(decimal.digits.substr(static_cast<size_t>(decimal.whole)));
    while (decimals.size() > mask.decimalsLeast && decimals.endsWith(u'0'))
        decimals.chop(1);
    return decimals;
}

} // namespace

bool groupsDigits(const QString& mask)
{
    return parseMask(mask).grouped;
}

QString formatMask(const QString& value, const QString& maskText)
{
    if (!isNumeric(value))
        return value;
    const double number = toNumber(value);
    const Mask mask = parseMask(maskText);
    if (!mask.usable)
        return toText(number);

    Decimal decimal = decimalOf(number);
    roundHalfAway(decimal, mask.decimalsMost);
    const bool zero = decimal.digits.find_first_not_of('0') == std::string::npos;
    QString text = wholePart(decimal, mask);
    if (maskText.contains(u'.'))
        text += u'.' + decimalPart(decimal, mask);
    return number < 0 && !zero ? u'-' + text : text;
}

} // namespace values
