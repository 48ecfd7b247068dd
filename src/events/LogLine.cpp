#include "events/LogLine.h"

#include <algorithm>
#include <cstring>

namespace events {

namespace {

constexpr char kBlanks[] = "                                ";

// The end of a text without the blanks behind it, as far as they come in whole
// lots.
template <qsizetype lot>
const char* withoutLots(const char* begin, const char* end)
{
    static_assert(lot < qsizetype(sizeof kBlanks));
    while (end - begin >= lot && std::memcmp(end - lot, kBlanks, lot) == 0)
        end -= lot;
    return end;
}

// Most of a line is blanks that fill up a field: they go many at a time.
QByteArrayView trimmed(QByteArrayView text)
{
    const char *begin = text.begin(), *end = text.end();
    end = withoutLots<1>(begin, withoutLots<8>(begin, withoutLots<32>(begin, end)));
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
