#pragma once

#include "instrument/FrameReader.h"

#include <vector>

namespace instrument {

// A request with the moment at which its last byte came.
struct SeenRequest
{
    qint64 atMs = 0;
    int idGrp = 0;
    Request request;
};

// What the virtual instrument has seen of the line since it began.
struct Statistics
{
    std::vector<SeenRequest> requests; // every request whose sum closed, oldest first
    int badChecksums = 0;
    qint64 strayBytes = 0; // bytes of a transparent line that belonged to no frame
    qint64 bytesIn = 0;
    qint64 bytesOut = 0;

    std::vector<SeenRequest> writes() const;

    // The shortest time between two requests that follow each other; nothing below two requests.
    std::optional<qint64> shortestGapMs() const;
};

} // namespace instrument
