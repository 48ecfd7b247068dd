#pragma once

#include "instrument/CommandSet.h"
#include "instrument/Memory.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <vector>

namespace instrument {

// What an instrument has to tell when it calls in: two runs of "<field>", as bytes of the line.
// An empty block is not sent.
struct AlarmReport
{
    QByteArray firstBlock;
    QByteArray secondBlock;
    // Milliseconds from "CONNECT" or "OK" to the block behind it; none told: the usual ones.
    std::optional<qint64> blockDelay = std::nullopt;

    bool operator==(const AlarmReport&) const = default;
};

struct ScheduledCall
{
    qint64 afterSeconds = 0; // counted from the start of the virtual instrument
    AlarmReport report;

    bool operator==(const ScheduledCall&) const = default;
};

// One group of instruments on one bus behind one line.
struct Plant
{
    int idGrp = 0;
    QByteArray phone;                         // as dialled; may be empty
    std::map<QByteArray, Memory> instruments; // by bus address, two characters
    std::vector<ScheduledCall> calls;

    // The commands that somebody on this bus understands.
    CommandSet commands() const;

    bool operator==(const Plant&) const = default;
};

using Plants = std::vector<Plant>;

} // namespace instrument
