#include "values/Display.h"

#include "values/NumberMask.h"
#include "values/TimeText.h"

namespace values {

namespace {

// Written with points, although filled values use colons.
QString placeholder(TimeForm form)
{
    switch (form) {
    case TimeForm::H:
        return QStringLiteral("--");
    case TimeForm::HM:
        return QStringLiteral("--.--");
    case TimeForm::HMS:
        break;
    }
    return QStringLiteral("--.--.--");
}

QString displayReal(const std::optional<QString>& value, const QString& mask,
                    const std::optional<QString>& unit)
{
    if (!value)
        return QStringLiteral("--");
    const QString number = formatMask(*value, mask);
    return unit ? number + u' ' + *unit : number;
}

} // namespace

QString displayValue(const std::optional<QString>& value, const QString& keyType, const QString& mask,
                     const std::optional<QString>& unit,
                     const std::function<QString(const QString&)>& enumText, const QString& otherwise)
{
    if (keyType == QLatin1String("REAL"))
        return displayReal(value, mask, unit);
    if (keyType == QLatin1String("ENUM"))
        return value ? enumText(*value) : QString();
    if (keyType == QLatin1String("STRING"))
        return value.value_or(QString());
    if (const auto form = timeFormOf(keyType))
        return value ? formatTime(*value, *form) : placeholder(*form);
    return otherwise;
}

} // namespace values
