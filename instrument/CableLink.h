#pragma once

#include "instrument/AlarmCall.h"
#include "instrument/Link.h"

namespace instrument {

// The instrument's modem port on a direct cable: it believes in a modem, and the program plays one.
//
// "RING" is answered with "ATA" + CR, "CONNECT" opens the link, "+++" is answered with one CR, "ATH" + CR
// closes the link. To call in, the instrument dials with "ATD" + CR and waits for "CONNECT".
class CableLink : public Link
{
public:
    CableLink(LinkHost& host, const Timings& timings) : host_(host), timings_(timings) {}

    void receive(char byte, qint64 nowMs) override;
    void advance(qint64 nowMs) override;
    std::optional<qint64> nextDue() const override;
    void call(const AlarmReport& report, qint64 nowMs) override;
    bool isIdle() const override { return phase_ == Phase::Idle; }
    bool isTransparent() const override { return phase_ == Phase::Data; }
    void dropCarrier(qint64 nowMs) override;
    void reset() override;

private:
    enum class Phase
    {
        Idle,
        Answering,
        Data,
        Escaped,
        Calling,
        Call
    };

    void hear(char byte, qint64 nowMs);
    void connected(qint64 nowMs);
    void enter(Phase phase);
    void reply(const QByteArray& text, qint64 nowMs);

    LinkHost& host_;
    Timings timings_;
    Outbox replies_;
    Phase phase_ = Phase::Idle;
    WordWatch ring_{"RING"};
    WordWatch connect_{"CONNECT"};
    WordWatch escape_{"+++"};
    WordWatch hangUp_{"ATH\r"};
    AlarmReport report_;
    std::optional<qint64> giveUpMs_;
    std::optional<AlarmCall> call_;
};

} // namespace instrument
