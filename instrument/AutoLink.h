#pragma once

#include "instrument/CableLink.h"
#include "instrument/ModemLink.h"

namespace instrument {

// Becomes a modem or a direct cable by what the program says first: "+++" or "AT" asks for a modem, "RING"
// plays one. It decides anew whenever no connection stands, so that the operator may change his mind between
// two connections.
class AutoLink : public Link
{
public:
    AutoLink(LinkHost& host, const Timings& timings) : modem_(host, timings), cable_(host, timings) {}

    void receive(char byte, qint64 nowMs) override;
    void advance(qint64 nowMs) override { current_->advance(nowMs); }
    std::optional<qint64> nextDue() const override { return current_->nextDue(); }
    void call(const AlarmReport& report, qint64 nowMs) override { current_->call(report, nowMs); }
    bool isIdle() const override { return current_->isIdle(); }
    bool isTransparent() const override { return current_->isTransparent(); }
    void dropCarrier(qint64 nowMs) override { current_->dropCarrier(nowMs); }
    void reset() override;

private:
    QByteArray wordOfTheOtherKind(char byte);
    void become(Link& link);

    ModemLink modem_;
    CableLink cable_;
    Link* current_ = &modem_;
    WordWatch ring_{"RING"};
    WordWatch escape_{"+++"};
    WordWatch attention_{"AT"};
};

} // namespace instrument
