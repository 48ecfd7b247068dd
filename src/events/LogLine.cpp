#include "events/LogLine.h"

#include <algorithm>
#include <cstring>

namespace events {

namespace {

// Most of a line is blanks that fill up a field: they go eight at a time.
QByteArrayView trimmed(QByteArrayView text)
{
    constexpr quint64 kBlanks = 0x2020202020202020;
    const char *begin = text.begin(), *end = text.end();
    for (quint64 last; end - begin >= 8; end -= 8) {
        std::memcpy(&last, end - 8, sizeof last);
        if (last != kBlanks)
            break;
    }
    while (end != begin && end[-1] == ' ')
        --end;
    while (begin != end && *begin == ' ')
        ++begin;
    return {begin, end};
}

QByteArrayView field(QByteArrayView line, qsizetype at, qsizetype width)
{
    if (line.size() <= at)
        return {};
    return trimmed(line.sliced(at, std::min(width, line.size() - at)));
}

} // namespace

bool LogLine::isEvent(QByteArrayView line)
{
    return !line.isEmpty() && line[0] >= '0' && line[0] <= '9';
}

LogLine::LogLine(QByteArrayView line)
    : type(line[0] - '0'), dateText(field(line, 1, 19)), source(field(line, 20, 3)),
      equipment(field(line, 23, 50)), instrument(field(line, 73, 50)), description(field(line, 123, 255))
{
    when = stampOf(dateText);
}

} // namespace events
