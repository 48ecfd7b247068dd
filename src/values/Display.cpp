#include "values/Display.h"

#include "values/NumberMask.h"
#include "values/TimeText.h"

namespace values {

namespace {

// Written with points, although filled values use colons.
QString placeholder(Kind kind)
{
    switch (kind) {
    case Kind::Real:
    case Kind::TimeH:
        return QStringLiteral("--");
    case Kind::TimeHM:
        return QStringLiteral("--.--");
    case Kind::TimeHMS:
        return QStringLiteral("--.--.--");
    default:
        return {};
    }
}

} // namespace

QString displayValue(const std::optional<QString>& value, const ValueForm& form, const EnumText& enumText,
                     const QString& otherwise)
{
    if (form.kind == Kind::Other)
        return otherwise;
    if (!value)
        return placeholder(form.kind);
    switch (form.kind) {
    case Kind::Real: {
        const QString number = formatMask(*value, form.mask);
        return form.unit ? number + u' ' + *form.unit : number;
    }
    case Kind::Enum:
        return enumText(*value);
    case Kind::String:
        return *value;
    default:
        return formatTime(*value, *timeFormOf(form.kind));
    }
}

QString displayValue(const std::optional<QString>& value, const QString& keyType, const QString& mask,
                     const std::optional<QString>& unit, const EnumText& enumText, const QString& otherwise)
{
    return displayValue(value, ValueForm{kindOf(keyType), mask, unit}, enumText, otherwise);
}

QString displayTyped(const std::optional<QString>& value, const ValueForm& form, const EnumText& enumText)
{
    ValueForm typed = form;
    typed.unit = form.unit.value_or(QString());
    return displayValue(value, typed, enumText, {});
}

} // namespace values
