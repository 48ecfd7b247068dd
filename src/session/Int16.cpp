#include "session/Int16.h"

#include "platform/RuntimeError.h"

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
        fail(errors::kTypeMismatch, QStringLiteral("'%1' is not a number.").arg(text));
    // What is too large for a double comes back as infinity, which overflows as well.
    const double number =
        std::nearbyint(match.captured(1).replace(QLatin1Char(','), QLatin1Char('.')).toDouble());
    using Limits = std::numeric_limits<qint16>;
    if (!(number >= Limits::min() && number <= Limits::max()))
        fail(errors::kOverflow, QStringLiteral("'%1' doesn't fit into 16 bits.").arg(text));
    return qint16(number);
}

} // namespace session
