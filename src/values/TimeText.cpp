#include "values/TimeText.h"

#include "values/Numbers.h"

#include <QStringView>
#include <cmath>

namespace values {

namespace {

constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;

// The text up to the next colon, which goes too.
QStringView takeField(QStringView& rest)
{
    const qsizetype colon = rest.indexOf(u':');
    const QStringView field = colon < 0 ? rest : rest.first(colon);
    rest = colon < 0 ? QStringView() : rest.mid(colon + 1);
    return field;
}

// One or two digits below the limit.
std::optional<int> numberBelow(int limit, QStringView field)
{
    if (field.isEmpty() || field.size() > 2)
        return std::nullopt;
    int number = 0;
    for (const QChar digit : field) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number < limit ? std::optional(number) : std::nullopt;
}

QString twoDigits(int number)
{
    const QChar digits[] = {QChar(u'0' + number / 10), QChar(u'0' + number % 10)};
    return QString(digits, 2);
}

} // namespace

std::optional<TimeForm> timeFormOf(Kind kind)
{
    switch (kind) {
    case Kind::TimeH:
        return TimeForm::H;
    case Kind::TimeHM:
        return TimeForm::HM;
    case Kind::TimeHMS:
        return TimeForm::HMS;
    default:
        return std::nullopt;
    }
}

std::optional<TimeForm> timeFormOf(const QString& keyType)
{
    return timeFormOf(kindOf(keyType));
}

std::optional<TimeOfDay> parseTime(const QString& text)
{
    if (text == QLatin1String("0"))
        return TimeOfDay{};
    const auto colons = text.count(u':');
    if (colons < 1 || colons > 2)
        return std::nullopt;
    QStringView rest(text);
    const auto hour = numberBelow(24, takeField(rest));
    const auto minute = numberBelow(60, takeField(rest));
    const auto second = colons == 2 ? numberBelow(60, takeField(rest)) : std::optional(0);
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
