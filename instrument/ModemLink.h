#pragma once

#include "instrument/AlarmCall.h"
#include "instrument/Link.h"

namespace instrument {

// The operator's modem with the plant's telephone behind it: AT commands, dialling, "RING" for a call.
//
// "+++" has no terminator and needs no guard time; on a transparent link it is looked for among the bytes
// that belong to no frame. Commands are echoed until "ATE0".
class ModemLink : public Link
{
public:
    ModemLink(LinkHost& host, const Timings& timings) : host_(host), timings_(timings) {}

    void receive(char byte, qint64 nowMs) override;
    void advance(qint64 nowMs) override;
    std::optional<qint64> nextDue() const override;
    void call(const AlarmReport& report, qint64 nowMs) override;
    bool isIdle() const override;
    bool isTransparent() const override { return carrier_ == Carrier::Plant && !commandMode_; }
    void dropCarrier(qint64 nowMs) override;
    void reset() override;

private:
    enum class Carrier
    {
        None,
        Dialling,
        Plant,
        Ringing,
        Answering,
        Call
    };

    void receiveCommandByte(char byte, qint64 nowMs);
    void escape(qint64 nowMs);
    void obey(const QByteArray& command, qint64 nowMs);
    bool obeySetting(const QByteArray& command);
    void dial(const QByteArray& phone, qint64 nowMs);
    void answerCall(qint64 nowMs);
    void hangUp();
    void connectDue(qint64 nowMs);
    void ringDue(qint64 nowMs);
    void callDue(qint64 nowMs);
    void reply(const QByteArray& text, qint64 nowMs);

    LinkHost& host_;
    Timings timings_;
    Outbox replies_;
    Carrier carrier_ = Carrier::None;
    bool commandMode_ = true;
    bool echo_ = true;
    QByteArray line_;
    WordWatch escape_{"+++"};
    std::optional<qint64> stepMs_; // when dialling or answering is done, or the next "RING" is due
    int rings_ = 0;
    AlarmReport report_;
    std::optional<AlarmCall> call_;
};

} // namespace instrument
