#pragma once

#include "instrument/CommandSet.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace instrument {

// One request as it stood on the line, its checksum verified and removed.
struct Request
{
    QByteArray address; // two characters
    CommandKind kind = CommandKind::Unknown;
    quint8 command = 0;
    quint8 memoryAddress = 0;
    quint8 length = 0; // the Length byte; a write may carry fewer data bytes than it says
    QByteArray data;   // empty for a read

    bool operator==(const Request&) const = default;
};

// What a run of bytes turned out to be.
struct Reading
{
    QList<Request> requests;
    QByteArray strayBytes; // bytes that no frame claimed, in their order
    int badChecksums = 0;  // openings of a frame whose sum did not close
};

// Cuts the bytes of the line into requests.
//
// A frame has no start and no end mark, so it is found by its opening (an address and a command that somebody
// on this bus understands), its length and its checksum; a byte that leads nowhere is let go and the search
// starts at the next. A write whose data are fewer than its Length byte says is complete when the line falls
// silent: it is taken if its own sum closes. Bytes come one at a time or in any lump; time is the caller's,
// in milliseconds.
class FrameReader
{
public:
    FrameReader(CommandSet commands, qint64 silenceMs);

    Reading receive(const QByteArray& bytes, qint64 nowMs);

    // Settles what is left over when the line has been silent for long enough; nothing before that.
    Reading advance(qint64 nowMs);

    // When the bytes at hand are settled by silence; nothing while none are at hand.
    std::optional<qint64> nextDue() const;

    void clear();

private:
    enum class Line
    {
        Open,
        Silent
    };

    void scan(Line line, Reading& reading);
    bool readFrame(Line line, Reading& reading);
    void letGoOne(Reading& reading);
    void take(CommandKind kind, qsizetype size, Reading& reading);

    CommandSet commands_;
    qint64 silenceMs_;
    QByteArray pending_;
    qint64 lastByteMs_ = 0;
};

} // namespace instrument
