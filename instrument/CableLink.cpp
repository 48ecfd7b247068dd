#include "instrument/CableLink.h"

namespace instrument {

void CableLink::receive(char byte, qint64 nowMs)
{
    if (phase_ == Phase::Call)
        call_->receive(byte, nowMs);
    const QByteArray loose = isTransparent() ? host_.passOn(byte, nowMs) : QByteArray(1, byte);
    for (const char looseByte : loose)
        hear(looseByte, nowMs);
}

void CableLink::hear(char byte, qint64 nowMs)
{
    const bool rings = ring_.sees(byte);
    const bool connects = connect_.sees(byte);
    const bool escapes = escape_.sees(byte);
    const bool hangsUp = hangUp_.sees(byte);

    // A "RING" is answered in every phase: a program that was cut off raises its connection anew.
    if (rings && !host_.strike(Failure::ModemSilent)) {
        enter(Phase::Answering);
        reply("ATA\r", nowMs);
    } else if (connects && (phase_ == Phase::Answering || phase_ == Phase::Calling)) {
        connected(nowMs);
    } else if (escapes && !host_.strike(Failure::ModemSilent)) {
        if (phase_ != Phase::Idle)
            enter(Phase::Escaped);
        reply("\r", nowMs);
    } else if (hangsUp && phase_ == Phase::Escaped) {
        enter(Phase::Idle);
    }
}

void CableLink::connected(qint64 nowMs)
{
    if (phase_ == Phase::Calling) {
        enter(Phase::Call);
        call_.emplace(report_, timings_, nowMs);
    } else if (host_.openCabledPlant()) {
        enter(Phase::Data);
    }
}

void CableLink::enter(Phase phase)
{
    if (phase_ == Phase::Data && phase != Phase::Data)
        host_.closePlant();
    phase_ = phase;
    giveUpMs_.reset();
    call_.reset();
}

void CableLink::call(const AlarmReport& report, qint64 nowMs)
{
    report_ = report;
    enter(Phase::Calling);
    giveUpMs_ = nowMs + timings_.callPatience;
    host_.note(QStringLiteral("calling in"));
    host_.transmit("ATD\r");
}

void CableLink::dropCarrier(qint64)
{
    enter(Phase::Idle);
}

void CableLink::reset()
{
    enter(Phase::Idle);
    replies_.clear();
    for (WordWatch* watch : {&ring_, &connect_, &escape_, &hangUp_})
        watch->reset();
}

void CableLink::advance(qint64 nowMs)
{
    for (const QByteArray& text : replies_.takeDue(nowMs))
        host_.transmit(text);
    if (giveUpMs_ && nowMs >= *giveUpMs_) {
        host_.note(QStringLiteral("nobody answers the call"));
        enter(Phase::Idle);
    }
    if (!call_)
        return;
    for (const QByteArray& block : call_->advance(nowMs))
        host_.transmit(block);
    if (call_->isOver(nowMs)) {
        host_.note(call_->isAcknowledged() ? QStringLiteral("call ended")
                                           : QStringLiteral("call ended, no \"OK\" came"));
        enter(Phase::Idle);
    }
}

std::optional<qint64> CableLink::nextDue() const
{
    const std::optional<qint64> due = earlier(replies_.nextDue(), giveUpMs_);
    return call_ ? earlier(due, call_->nextDue()) : due;
}

void CableLink::reply(const QByteArray& text, qint64 nowMs)
{
    replies_.put(nowMs + timings_.modemReply, text);
}

} // namespace instrument
