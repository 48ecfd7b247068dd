#pragma once

#include "exchange/DataTrace.h"

#include <QFile>
#include <optional>

namespace exchange {

// The lines of a data trace, one at a time; empty ones are left out. LF ends a line, a CR before it is no
// part of it. However large the file and whatever it holds, a few lines are in memory.
//
// A file that can't be read fails, and so does a line so long that this is no data trace at all.
class TraceReader
{
public:
    static constexpr qint64 kLongestLine = 65536;

    TraceReader(const QString& path, int codePage);

    std::optional<TraceLine> next();
    // Of the line that came last: its number from 1, empty ones counted, and its length in bytes.
    qint64 number() const { return number_; }
    qint64 length() const { return length_; }
    // About how many lines the file has.
    qint64 lines() const { return file_.size() / kTraceLength; }
    void rewind();

private:
    [[noreturn]] void fail(int number) const;

    QFile file_;
    int codePage_;
    qint64 number_ = 0;
    qint64 length_ = 0;
};

} // namespace exchange
