#include "events/Stamp.h"

namespace events {

namespace {

constexpr char kForm[] = "00/00/0000 00:00:00";
constexpr qsizetype kLength = sizeof kForm - 1;
constexpr Stamp kDay = 1'000'000;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool hasForm(QByteArrayView text)
{
    if (text.size() != kLength)
        return false;
    for (qsizetype i = 0; i < kLength; ++i) {
        if (isDigit(kForm[i]) ? !isDigit(text[i]) : text[i] != kForm[i])
            return false;
    }
    return true;
}

int number(QByteArrayView text, qsizetype at, int digits)
{
    int number = 0;
    for (qsizetype i = at; i < at + digits; ++i)
        number = number * 10 + (text[i] - '0');
    return number;
}

Stamp packed(int year, int month, int day, int hour, int minute, int second)
{
    return ((Stamp(year) * 100 + month) * 100 + day) * kDay + (hour * 100 + minute) * 100 + second;
}

} // namespace

Stamp stampOf(QByteArrayView text)
{
    if (!hasForm(text))
        return kNoStamp;
    const int day = number(text, 0, 2), month = number(text, 3, 2), year = number(text, 6, 4);
    const int hour = number(text, 11, 2), minute = number(text, 14, 2), second = number(text, 17, 2);
    if (!QDate::isValid(year, month, day) || !QTime::isValid(hour, minute, second))
        return kNoStamp;
    return packed(year, month, day, hour, minute, second);
}

Stamp stampOf(const QDate& date, const QTime& time)
{
    return packed(date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second());
}

QDate dateOf(Stamp stamp)
{
    const int day = int(stamp / kDay);
    return {day / 10000, day / 100 % 100, day % 100};
}

QTime timeOf(Stamp stamp)
{
    const int time = int(stamp % kDay);
    return {time / 10000, time / 100 % 100, time % 100};
}

std::array<char, 19> sortableText(Stamp stamp)
{
    // Where each digit stands, from the last one to the first.
    static constexpr std::size_t kPlaces[] = {18, 17, 15, 14, 12, 11, 9, 8, 6, 5, 3, 2, 1, 0};
    auto text = std::to_array(
        {'0', '0', '0', '0', '/', '0', '0', '/', '0', '0', ' ', '0', '0', ':', '0', '0', ':', '0', '0'});
    for (const std::size_t place : kPlaces) {
        text[place] = char('0' + stamp % 10);
        stamp /= 10;
    }
    return text;
}

} // namespace events
