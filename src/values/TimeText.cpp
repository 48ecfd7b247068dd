#include "values/TimeText.h"

#include "values/Numbers.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace values {

namespace {

constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;

// One or two digits below the limit.
std::optional<int> field(const QString& text, int limit)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (text.isEmpty() || text.size() > 2 || !digits)
        return std::nullopt;
    const int number = text.toInt();
    return number < limit ? std::optional(number) : std::nullopt;
}

QString twoDigits(int number)
{
    return QString::number(number).rightJustified(2, u'0');
}

} // namespace

std::optional<TimeForm> timeFormOf(const QString& keyType)
{
    if (!keyType.startsWith(QLatin1String("TIME_H")))
        return std::nullopt;
    if (keyType == QLatin1String("TIME_H"))
        return TimeForm::H;
    if (keyType == QLatin1String("TIME_HM"))
        return TimeForm::HM;
    if (keyType == QLatin1String("TIME_HMS"))
        return TimeForm::HMS;
    return std::nullopt;
}

std::optional<TimeOfDay> parseTime(const QString& text)
{
    const QStringList fields = text.split(u':');
    if (fields.size() < 2 || fields.size() > 3)
        return std::nullopt;
    const auto hour = field(fields[0], 24);
    const auto minute = field(fields[1], 60);
    const auto second = fields.size() == 3 ? field(fields[2], 60) : std::optional(0);
    if (!hour || !minute || !second)
        return std::nullopt;
    return TimeOfDay{*hour, *minute, *second};
}

QString composeTime(double seconds, TimeForm form)
{
    const double hours = std::floor(seconds / kSecondsPerHour);
    if (form == TimeForm::H)
        return normalizeTime(toText(hours) + QLatin1String(":00:00"));

    const double minutes = (seconds - hours * kSecondsPerHour) / kSecondsPerMinute;
    const QString hoursAndMinutes = toText(hours) + u':' + toText(minutes);
    if (form == TimeForm::HM)
        return normalizeTime(hoursAndMinutes + QLatin1String(":00"));

    const double rest = seconds - minutes * kSecondsPerMinute - hours * kSecondsPerHour;
    return normalizeTime(hoursAndMinutes + u':' + toText(rest));
}

QString normalizeTime(const QString& text)
{
    return formatTime(text, TimeForm::HMS);
}

QString formatTime(const QString& text, TimeForm form)
{
    const auto time = parseTime(text);
    if (!time)
        return text;
    switch (form) {
    case TimeForm::H:
        return twoDigits(time->hour);
    case TimeForm::HM:
        return twoDigits(time->hour) + u':' + twoDigits(time->minute);
    case TimeForm::HMS:
        break;
    }
    return twoDigits(time->hour) + u':' + twoDigits(time->minute) + u':' + twoDigits(time->second);
}

} // namespace values
