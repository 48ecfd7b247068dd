#include "session/Int16.h"

#include "platform/Words.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace session {

using namespace platform;

qint16 toInt16(const QString& text)
{
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
