#pragma once

#include "events/LogLine.h"

#include <memory>
#include <vector>

namespace events {

// An event as the store keeps it; the texts are bytes of the files' code page and live as long as the store's
// row.
struct StoredEvent
{
    Stamp when;
    int type;                // 1 information, 2 warning, 3 error
    int source;              // 1 alarms, 2 read/write, 0 anything else
    QByteArrayView dateText; // only for an event whose date can't be read
    QByteArrayView equipment, instrument, description;
};

// Events by the million, each no longer than its texts.
class EventStore
{
public:
    void append(const LogLine& line);
    void clear();

    quint32 size() const { return quint32(rows_.size()); }
    StoredEvent at(quint32 row) const;
    Stamp when(quint32 row) const;
    int type(quint32 row) const { return rows_[row][kTypeAt]; }
    int source(quint32 row) const { return rows_[row][kSourceAt]; }
    // Whether every event has a date.
    bool allDated() const { return undated_ == 0; }

private:
    static constexpr int kTypeAt = sizeof(Stamp), kSourceAt = kTypeAt + 1, kLengthsAt = kSourceAt + 1,
                         kTextsAt = kLengthsAt + 4;

    char* room(qsizetype bytes);

    std::vector<std::unique_ptr<char[]>> blocks_;
    qsizetype left_ = 0; // free bytes at the end of the last block
    std::vector<const char*> rows_;
    quint32 undated_ = 0;
};

} // namespace events
