#pragma once

#include <QtGlobal>

namespace instrument {

// The waits of the virtual instrument, all in milliseconds.
struct Timings
{
    qint64 answer = 40;          // from a request to its answer
    qint64 silence = 1000;       // silence that ends a frame cut short
    qint64 modemReply = 100;     // from an AT command to its reply
    qint64 connect = 1500;       // from dialling or answering to "CONNECT"
    qint64 ring = 4000;          // from one "RING" to the next
    qint64 callBlock = 1000;     // from "CONNECT" or "OK" to the block of an alarm call behind it
    qint64 callPatience = 60000; // how long a caller waits for "CONNECT" or "OK" before it gives up
    qint64 callEnd = 8000;       // from the last block to the caller's hanging up
    qint64 second = 1000;        // one second of a schedule

    // The same waits, `speed` times shorter.
    Timings fasterBy(double speed) const;
};

} // namespace instrument
