#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/NumberMask.h"
#include "values/Numbers.h"
#include "values/TimeText.h"

#include <QStringBuilder>
#include <algorithm>
#include <cmath>

namespace property {

using platform::guarded;

namespace {

constexpr int kNotNumeric = 516;
constexpr int kNotInList = 528;
constexpr int kCheckNumbers = 529;
constexpr int kOutOfRange = 530;

bool isWrongNumber(const QString& text)
{
    return !text.isEmpty() && !values::isNumeric(text);
}

const char* validateName(const QString& field)
{
    if (field == QLatin1String("txtVal1"))
        return "frmProperty.txtVal1_Validate";
    if (field == QLatin1String("txtVal2"))
        return "frmProperty.txtVal2_Validate";
    return "frmProperty.txtVal3_Validate";
}

// Temperatures go up to the next half degree, never to the nearest one.
double upToHalfDegree(double number)
{
    const double whole = std::floor(number);
    const double part = number - whole;
    if (part == 0)
        return number;
    return part <= 0.5 ? whole + 0.5 : whole + 1;
}

} // namespace

// Leaving a field
// --------------------------------------------------------------------------------------------------

bool PropertyModel::validate(const QString& field)
{
    if (field == QLatin1String("cbxValEnum"))
        return controls_.listIndex >= 0;
    for (const NumberField& number : numberFields()) {
        if (field != QLatin1String(number.name))
            continue;
        return guarded(validateName(field), [&] {
            const QString& text = (controls_.*number.text).text;
            const SpinButton& spin = controls_.*number.spin;
            if (isWrongNumber(text))
                return refuse(texts_(kNotNumeric));
            return text.isEmpty() || isInRange(text, spin) || refuse(rangeMessage(spin.Min, spin.Max));
        });
    }
    return true;
}

bool PropertyModel::isInRange(const QString& text, const SpinButton& spin) const
{
    const double number = values::toNumber(text);
    return number >= spin.Min && number <= spin.Max;
}

QString PropertyModel::rangeMessage(double low, double high) const
{
    return texts_(526) % u' ' % values::toText(low) % u' ' % texts_(527) % u' ' % values::toText(high) % u'.';
}

// Always false. The focus goes to the field first, so that it stands there when the box has gone.
bool PropertyModel::refuse(const QString& message, const QString& field)
{
    if (!field.isEmpty())
        emit focusWanted(field);
    session_.strMsg = message;
    operator_.messageBox(session_.strMsg, platform::Buttons::Ok, platform::Icon::Exclamation,
                         session_.AppTitle);
    return false;
}

// Saving a parameter
// -----------------------------------------------------------------------------------------------

std::optional<PropertyModel::NewValue> PropertyModel::newValue()
{
    if (KeyType_ == QLatin1String("STRING")) {
        const QString& text = controls_.txtValStr1.text;
        return NewValue{text.isEmpty() ? std::nullopt : std::optional(text), text};
    }
    if (KeyType_ == QLatin1String("ENUM"))
        return newEnum();
    if (KeyType_ == QLatin1String("REAL"))
        return newReal();
    if (KeyType_ == QLatin1String("TIME_H"))
        return newHour();
    if (KeyType_ == QLatin1String("TIME_HM"))
        return newTime(2);
    if (KeyType_ == QLatin1String("TIME_HMS"))
        return newTime(3);
    return std::nullopt;
}

std::optional<PropertyModel::NewValue> PropertyModel::newEnum()
{
    if (controls_.listIndex < 0) {
        refuse(texts_(kNotInList), QStringLiteral("cbxValEnum"));
        return std::nullopt;
    }
    const EnumEntry& entry = controls_.entries.at(std::size_t(controls_.listIndex));
    return NewValue{QString::number(entry.value), entry.text};
}

std::optional<PropertyModel::NewValue> PropertyModel::newReal()
{
    static const QString kField = QStringLiteral("txtVal1");
    QString& text = controls_.txtVal1.text;
    if (isWrongNumber(text)) {
        refuse(texts_(kNotNumeric), kField);
        return std::nullopt;
    }
    if (text.isEmpty())
        return NewValue{std::nullopt, QStringLiteral("--")};
    text = values::toText(values::toNumber(text));
    emit changed();
    const double number = values::toNumber(text);
    if (number < LowLimit_ || number > HighLimit_) {
        refuse(rangeMessage(LowLimit_, HighLimit_), kField);
        return std::nullopt;
    }
    if (Unit_ == QStringLiteral("°C")) {
        text = values::toText(upToHalfDegree(number));
        emit changed();
    }
    return NewValue{text, values::formatMask(text, DP_) % u' ' % Unit_};
}

std::optional<PropertyModel::NewValue> PropertyModel::newHour()
{
    static const QString kField = QStringLiteral("txtVal1");
    const QString& hour = controls_.txtVal1.text;
    if (isWrongNumber(hour)) {
        refuse(texts_(kNotNumeric), kField);
        return std::nullopt;
    }
    if (hour.isEmpty())
        return NewValue{std::nullopt, QStringLiteral("--")};
    const SpinButton& spin = controls_.updVal1;
    if (!isInRange(hour, spin)) {
        refuse(rangeMessage(spin.Min, spin.Max), kField);
        return std::nullopt;
    }
    return composedTime(kField);
}

// Two or three fields that are filled together or empty together.
std::optional<PropertyModel::NewValue> PropertyModel::newTime(int count)
{
    const std::vector<NumberField> fields(numberFields().begin(), numberFields().begin() + count);
    const QString last = QLatin1String(fields.back().name);
    const auto textOf = [&](const NumberField& field) -> const QString& {
        return (controls_.*field.text).text;
    };
    if (std::all_of(fields.begin(), fields.end(), [&](auto& field) { return textOf(field).isEmpty(); }))
        return NewValue{std::nullopt, count == 2 ? QStringLiteral("--.--") : QStringLiteral("--.--.--")};
    if (!std::all_of(fields.begin(), fields.end(),
                     [&](auto& field) { return values::isNumeric(textOf(field)); })) {
        refuse(texts_(kCheckNumbers), last);
        return std::nullopt;
    }
    if (!std::all_of(fields.begin(), fields.end(),
                     [&](auto& field) { return isInRange(textOf(field), controls_.*field.spin); })) {
        refuse(texts_(kOutOfRange), last);
        return std::nullopt;
    }
    return composedTime(last);
}

// Numbers such as "1.5" or "1e1" are in range and make no time of day all the same.
std::optional<PropertyModel::NewValue> PropertyModel::composedTime(const QString& field)
{
    const QString composed =
        controls_.txtVal1.text % u':' % controls_.txtVal2.text % u':' % controls_.txtVal3.text;
    if (!values::parseTime(composed)) {
        refuse(texts_(kCheckNumbers), field);
        return std::nullopt;
    }
    return NewValue{values::normalizeTime(composed),
                    values::formatTime(composed, *values::timeFormOf(KeyType_))};
}

} // namespace property
