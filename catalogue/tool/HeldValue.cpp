#include "catalogue/tool/HeldValue.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Words.h"

#include <cmath>

namespace catalogue {

namespace {

// Year, week and lot.
QString serialNumber(const Place& place)
{
    const unsigned number = scatter(place, QStringLiteral("serial"));
    return QStringLiteral("%1%2%3%4")
        .arg(15 + number % 6)
        .arg(1 + number / 6 % 52, 2, 10, QLatin1Char('0'))
        .arg(place.plant % 100, 2, 10, QLatin1Char('0'))
        .arg(place.instrument % 100, 2, 10, QLatin1Char('0'));
}

} // namespace

unsigned scatter(const Place& place, const QString& parameter)
{
    unsigned number = static_cast<unsigned>(place.plant * 31 + place.instrument);
    for (const QChar sign : parameter)
        number = number * 33 + sign.unicode();
    return number ^ number >> 7;
}

std::optional<QString> valueHeld(const Parameter& parameter, const Place& place)
{
    if (parameter.standard == kItsAddress)
        return place.address;
    if (parameter.standard == kItsSerialNumber)
        return serialNumber(place);
    if (parameter.spread <= 0)
        return parameter.standard;
    const int middle = *rawOf(parameter, *parameter.standard);
    const double step = std::abs(engineering(parameter, middle + 1) - engineering(parameter, middle));
    const int most = static_cast<int>(std::floor(parameter.spread / step + 1e-9));
    const int astray = static_cast<int>(scatter(place, parameter.id) % static_cast<unsigned>(2 * most + 1));
    return valueText(parameter, middle - most + astray);
}

std::optional<QString> storedValue(const Parameter& parameter, const DemoValue& value)
{
    if (!value.value || value.state == 2 || !parameter.key.startsWith(QStringLiteral("TIME")))
        return value.value;
    return storedTime(*value.value, value.origin);
}

} // namespace catalogue
