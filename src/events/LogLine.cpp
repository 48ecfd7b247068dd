#include "events/LogLine.h"

#include <algorithm>
#include <cstring>

namespace events {

namespace {

// Most of a line is blanks that fill up a field: they go many at a time.
QByteArrayView trimmed(QByteArrayView text)
{
    static constexpr char kBlanks[] = "                                ";
    constexpr qsizetype kCount = sizeof kBlanks - 1;
    const char *begin = text.begin(), *end = text.end();
    while (end - begin >= kCount && std::memcmp(end - kCount, kBlanks, kCount) == 0)
        end -= kCount;
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
