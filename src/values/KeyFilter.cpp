#include "values/KeyFilter.h"

#include <algorithm>

namespace values {

namespace {

bool consistsOf(const QString& typed, const QString& others)
{
    return std::all_of(typed.begin(), typed.end(), [&](QChar character) {
        return (character >= u'0' && character <= u'9') || others.contains(character);
    });
}

} // namespace

std::optional<QString> filterNumberKey(const QString& typed, const QString& KeyType, const QString& DP)
{
    QString signs;
    if (KeyType == QLatin1String("REAL"))
        signs = DP.size() == 1 ? QStringLiteral("-") : QStringLiteral("-,.");
    else if (!KeyType.startsWith(QLatin1String("TIME_H")))
        return filterTextKey(typed);
    return consistsOf(typed, signs) ? std::optional(typed) : std::nullopt;
}

QString filterTextKey(const QString& typed)
{
    return typed.toUpper();
}

} // namespace values
