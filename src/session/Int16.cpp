#include "session/Int16.h"

#include "platform/Words.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace session {

using namespace platform;

namespace {

bool isDigitOrMinus(QChar character)
{
    return (character >= QLatin1Char('0') && character <= QLatin1Char('9')) || character == QLatin1Char('-');
}

// What nearly all numbers are, and what needs no pattern.
std::optional<qint16> plainNumber(const QString& text)
{
    bool fits = false;
    const qint16 number = text.toShort(&fits);
    return fits && std::all_of(text.begin(), text.end(), isDigitOrMinus) ? std::optional(number)
                                                                         : std::nullopt;
}

} // namespace

qint16 toInt16(const QString& text)
{
    if (const std::optional<qint16> plain = plainNumber(text))
        return *plain;
    static const QRegularExpression kNumber(QRegularExpression::anchoredPattern(
        QStringLiteral(" *([+-]?([0-9]+[.,]?[0-9]*|[.,][0-9]+)([eE][+-]?[0-9]+)?) *")));
    const auto match = kNumber.match(text);
    if (!match.hasMatch())
        failInWords(errors::kTypeMismatch, "number.none", {text});
    // What is too large for a double comes back as infinity, which overflows as well.
    const double number =
        std::nearbyint(match.captured(1).replace(QLatin1Char(','), QLatin1Char('.')).toDouble());
    using Limits = std::numeric_limits<qint16>;
    if (!(number >= Limits::min() && number <= Limits::max()))
        failInWords(errors::kOverflow, "number.large", {text});
    return qint16(number);
}

} // namespace session
