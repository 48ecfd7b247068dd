#include "bus/LineTrace.h"

#include "bus/Frames.h"
#include "platform/Clock.h"

#include <utility>

namespace bus {

namespace {

// A merged bit field asks for the old byte and writes the new one in the same code.
TraceKind kindOfRequest(const TraceEvent& event)
{
    switch (event.code) {
    case ActionCode::Reading:
    case ActionCode::Checking:
        return TraceKind::Read;
    case ActionCode::WritingRam:
    case ActionCode::WritingEeprom:
        return TraceKind::Write;
    case ActionCode::MergingRam:
    case ActionCode::MergingEeprom:
        return event.bytes.size() == kReadRequestSize ? TraceKind::Read : TraceKind::Write;
    case ActionCode::Polling:
        return TraceKind::Poll;
    case ActionCode::FirstBlock:
    case ActionCode::SecondBlock:
        return TraceKind::Alarm;
    default:
        return TraceKind::Dialogue;
    }
}

TraceKind kindOfArrival(const TraceEvent& event)
{
    switch (event.code) {
    case ActionCode::Idle:
        return event.bytes.contains("RING") || event.bytes.contains("ATD") ? TraceKind::Dialogue
                                                                           : TraceKind::Stray;
    case ActionCode::Reading:
    case ActionCode::WritingRam:
    case ActionCode::WritingEeprom:
    case ActionCode::Checking:
    case ActionCode::MergingRam:
    case ActionCode::MergingEeprom:
    case ActionCode::Polling:
        return TraceKind::Answer;
    case ActionCode::FirstBlock:
    case ActionCode::SecondBlock:
        return TraceKind::Alarm;
    default:
        return TraceKind::Dialogue;
    }
}

} // namespace

TraceKind kindOf(const TraceEvent& event)
{
    return event.sent ? kindOfRequest(event) : kindOfArrival(event);
}

void LineTrace::sent(const QByteArray& bytes, ActionCode code)
{
    TraceEvent event;
    event.sent = true;
    event.code = code;
    event.bytes = bytes;
    const TraceKind kind = kindOf(event);
    if ((kind == TraceKind::Read || kind == TraceKind::Poll) && bytes.size() >= kReadRequestSize) {
        wanted_ = uchar(bytes[bytes.size() - 2]); // the length stands before the checksum
        came_ = 0;
    }
    record(std::move(event));
}

void LineTrace::received(const QByteArray& bytes, ActionCode code)
{
    TraceEvent event;
    event.code = code;
    event.bytes = bytes;
    event.wanted = wanted_;
    event.before = came_;
    came_ += int(bytes.size());
    record(std::move(event));
}

void LineTrace::record(TraceEvent event)
{
    event.number = count_++;
    event.at = clock_.now().toMSecsSinceEpoch();
    event.gap = events_.empty() ? -1 : event.at - events_.back().at;
    if (int(events_.size()) == kMostEvents)
        events_.pop_front();
    events_.push_back(std::move(event));
    emit recorded();
}

} // namespace bus
