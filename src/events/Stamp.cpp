#include "events/Stamp.h"

namespace events {

namespace {

constexpr qsizetype kLength = 19;
constexpr Stamp kDay = 1'000'000;
constexpr int kNoNumber = -10'000; // so low that no digits beside it lift it above 0

int twoDigits(const char* text)
{
    const unsigned tens = uchar(text[0]) - '0', ones = uchar(text[1]) - '0';
    return tens > 9 || ones > 9 ? kNoNumber : int(tens * 10 + ones);
}

bool isParted(const char* text)
{
    return text[2] == '/' && text[5] == '/' && text[10] == ' ' && text[13] == ':' && text[16] == ':';
}

Stamp packed(int year, int month, int day, int hour, int minute, int second)
{
    return ((Stamp(year) * 100 + month) * 100 + day) * kDay + (hour * 100 + minute) * 100 + second;
}

} // namespace

Stamp stampOf(QByteArrayView text)
{
    const char* at = text.data();
    if (text.size() != kLength || !isParted(at))
        return kNoStamp;
    const int day = twoDigits(at), month = twoDigits(at + 3);
    const int year = twoDigits(at + 6) * 100 + twoDigits(at + 8);
    const int hour = twoDigits(at + 11), minute = twoDigits(at + 14), second = twoDigits(at + 17);
    if (year < 0 || !QDate::isValid(year, month, day) || !QTime::isValid(hour, minute, second))
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
