#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <algorithm>
#include <cstring>
#include <utility>

namespace events {

// Cuts a stream of bytes into lines. A line ends with LF, CR LF or CR alone; of a line that goes on without
// end only so many bytes are kept as any event could need.
class LineSplitter
{
public:
    explicit LineSplitter(qsizetype mostBytes) : mostBytes_(mostBytes) {}

    // Hands each line that has come to its end to `take`, without its end.
    template <class Take>
    void feed(QByteArrayView bytes, Take&& take)
    {
        const char *at = bytes.begin(), *const end = bytes.end();
        if (at != end && std::exchange(afterReturn_, false) && *at == '\n')
            ++at;
        const char *lineFeed = find(at, end, '\n'), *carriageReturn = find(at, end, '\r');
        while (at != end) {
            const char* lineEnd = std::min(lineFeed, carriageReturn);
            if (lineEnd == end) {
                keep({at, end});
                return;
            }
            give({at, lineEnd}, take);
            at = lineEnd + 1;
            if (*lineEnd == '\r') {
                afterReturn_ = at == end;
                if (at != end && *at == '\n')
                    ++at;
            }
            if (lineFeed < at)
                lineFeed = find(at, end, '\n');
            if (carriageReturn < at)
                carriageReturn = find(at, end, '\r');
        }
    }

    // The stream is through: what was cut off in mid-line is a line, too.
    template <class Take>
    void finish(Take&& take)
    {
        afterReturn_ = false;
        if (!begun_.isEmpty())
            give({}, take);
    }

private:
    static const char* find(const char* at, const char* end, char byte)
    {
        const void* found = at == end ? nullptr : std::memchr(at, byte, std::size_t(end - at));
        return found ? static_cast<const char*>(found) : end;
    }
    void keep(QByteArrayView part)
    {
        const qsizetype room = mostBytes_ - begun_.size();
        begun_.append(part.data(), std::min(room, part.size()));
    }
    template <class Take>
    void give(QByteArrayView rest, Take&& take)
    {
        if (begun_.isEmpty()) {
            take(rest);
            return;
        }
        keep(rest);
        // The line lives while it is taken, whatever the taker does.
        const QByteArray line = std::exchange(begun_, {});
        take(QByteArrayView(line));
    }

    qsizetype mostBytes_;
    QByteArray begun_;         // of a line whose end hasn't come yet
    bool afterReturn_ = false; // a line feed that comes now belongs to the carriage return before it
};

} // namespace events
