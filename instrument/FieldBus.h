#pragma once

#include "instrument/FailureModes.h"
#include "instrument/FrameReader.h"
#include "instrument/Outbox.h"
#include "instrument/Plant.h"
#include "instrument/Statistics.h"
#include "instrument/Timings.h"

namespace instrument {

// The bus of one plant behind a transparent link: hears requests, touches the memories, answers in its own
// time.
//
// The answer to a read is the bytes asked for and one checksum byte over them; to a write, the single byte
// 0x06. A request for an address or a bank that isn't there stays unanswered. Answer failures strike reads
// alone.
class FieldBus
{
public:
    FieldBus(Plant& plant, FailureModes& failures, Statistics& statistics, const Timings& timings);

    // Gives back the bytes that belong to no frame.
    QByteArray receive(char byte, qint64 nowMs);

    // Settles a frame cut short and gives back the answers that are due.
    QList<QByteArray> advance(qint64 nowMs);
    std::optional<qint64> nextDue() const;

    int idGrp() const { return plant_.idGrp; }

private:
    QByteArray settle(const Reading& reading, qint64 nowMs);
    void obey(const Request& request, qint64 nowMs);
    void answer(QByteArray bytes, qint64 nowMs);

    Plant& plant_;
    FailureModes& failures_;
    Statistics& statistics_;
    Timings timings_;
    FrameReader reader_;
    Outbox answers_;
};

} // namespace instrument
