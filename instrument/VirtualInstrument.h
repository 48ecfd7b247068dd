#pragma once

#include "instrument/FieldBus.h"
#include "instrument/Link.h"

#include <deque>
#include <functional>
#include <memory>

namespace instrument {

enum class LinkMode
{
    Modem, // a modem stands on the line, the plants behind its telephone
    Cable, // the instrument's modem port stands on the line, and the program plays the modem
    Auto   // by what the program says first
};

struct Options
{
    LinkMode link = LinkMode::Auto;
    Timings timings;
    // The plant on the cable, and the one that answers a number that is no plant's. None told: the first
    // plant on the cable; "NO CARRIER" to an unknown number, unless there is one plant only.
    std::optional<int> group;
};

// The peer at the far end of the program's serial line: plants of instruments, and the link that leads to
// them.
//
// It has no timer, no port and no thread. The caller hands in the bytes and the time, in milliseconds on any
// clock that doesn't run backwards, and calls `advance` no later than `nextDue` tells. What it says leaves
// through `send`, during `receive` or `advance`, in runs that would reach the other side in one lump.
class VirtualInstrument : private LinkHost
{
public:
    explicit VirtualInstrument(Plants plants, const Options& options = {}, qint64 startMs = 0);
    ~VirtualInstrument() override;

    std::function<void(const QByteArray&)> send;
    std::function<void(const QString&)> log;

    void receive(const QByteArray& bytes, qint64 nowMs);
    void advance(qint64 nowMs);
    // The moment at which something is to be done or said by itself; nothing when only bytes can set it in
    // motion.
    std::optional<qint64> nextDue() const;

    // Is due to call in from now on, and does so as soon as the link is idle.
    void call(const AlarmReport& report, qint64 nowMs);
    // Breaks the connection off, as a telephone line does.
    void dropCarrier(qint64 nowMs) { link_->dropCarrier(nowMs); }
    // As after a power cut: no connection, no dialogue, nothing left to be said. Memories, faults and figures
    // stay.
    void restart() { setLinkMode(options_.link); }
    // Becomes another kind of link; a connection that stands is forgotten.
    void setLinkMode(LinkMode mode);

    bool isConnected() const { return bus_ && link_->isTransparent(); }
    // The plant on the line, while one is.
    std::optional<int> connectedGroup() const;

    FailureModes& failures() { return failures_; }
    const Statistics& statistics() const { return statistics_; }
    Plants& plants() { return plants_; }
    const Plants& plants() const { return plants_; }

private:
    struct DueCall
    {
        qint64 atMs = 0;
        AlarmReport report;
    };

    void transmit(const QByteArray& bytes) override;
    bool openDialledPlant(const QByteArray& phone) override { return open(plantBehind(phone)); }
    bool openCabledPlant() override { return open(plantOnCable()); }
    void closePlant() override;
    QByteArray passOn(char byte, qint64 nowMs) override;
    std::optional<qint64> strike(Failure failure) override { return failures_.strike(failure); }
    void note(const QString& text) override;

    bool open(Plant* plant);
    Plant* plantBehind(const QByteArray& phone);
    Plant* plantOnCable();
    Plant* plantOf(int idGrp);
    void beginDueCall(qint64 nowMs);

    Plants plants_;
    Options options_;
    FailureModes failures_;
    Statistics statistics_;
    std::unique_ptr<Link> link_;
    std::unique_ptr<FieldBus> bus_;
    std::deque<DueCall> calls_; // in order of time
};

} // namespace instrument
