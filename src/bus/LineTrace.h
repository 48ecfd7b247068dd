#pragma once

#include "bus/ActionCode.h"
#include "platform/Forward.h"

#include <QByteArray>
#include <QObject>
#include <deque>

namespace bus {

// What a piece of the line's traffic is.
enum class TraceKind
{
    Dialogue, // words of the modem, or said in its place
    Read,
    Write,
    Poll,
    Answer,
    Alarm, // a call's blocks and what answers them
    Stray, // came when nobody waited for it
};

// What left in one output, or came in with one arrival.
struct TraceEvent
{
    qint64 number = 0; // of all events since the start
    qint64 at = 0;     // milliseconds since the epoch
    qint64 gap = -1;   // milliseconds since the event before; -1 for the first
    bool sent = false;
    ActionCode code = ActionCode::Idle; // what the line was doing
    QByteArray bytes;
    int wanted = 0; // an answer: bytes asked for
    int before = 0; // an answer: bytes of it that had come before
};

TraceKind kindOf(const TraceEvent& event);

// The last events of the line, in memory alone. It listens: the port is not touched, and an event costs the
// same whether somebody looks on or not.
class LineTrace : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMostEvents = 100'000;

    explicit LineTrace(const platform::Clock& clock) : clock_(clock) {}

    void sent(const QByteArray& bytes, ActionCode code);
    void received(const QByteArray& bytes, ActionCode code);

    const std::deque<TraceEvent>& events() const { return events_; }

signals:
    void recorded();

private:
    void record(TraceEvent event);

    const platform::Clock& clock_;
    std::deque<TraceEvent> events_;
    qint64 count_ = 0;
    int wanted_ = 0;
    int came_ = 0; // of the answer to the last request
};

} // namespace bus
