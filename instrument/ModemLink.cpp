#include "instrument/ModemLink.h"

namespace instrument {

namespace {

constexpr int kMostRings = 12;

} // namespace

void ModemLink::receive(char byte, qint64 nowMs)
{
    if (commandMode_) {
        receiveCommandByte(byte, nowMs);
        return;
    }
    if (carrier_ == Carrier::Call)
        call_->receive(byte, nowMs);
    const QByteArray loose = isTransparent() ? host_.passOn(byte, nowMs) : QByteArray(1, byte);
    for (const char looseByte : loose)
        if (escape_.sees(looseByte))
            escape(nowMs);
}

void ModemLink::receiveCommandByte(char byte, qint64 nowMs)
{
    if (escape_.sees(byte)) {
        escape(nowMs);
    } else if (byte == '\r') {
        const QByteArray command = line_.trimmed().toUpper();
        line_.clear();
        obey(command, nowMs);
    } else {
        line_ += byte;
    }
}

// A number that is being dialled is abandoned; a connection that stands goes on behind the command mode.
void ModemLink::escape(qint64 nowMs)
{
    commandMode_ = true;
    line_.clear();
    if (carrier_ == Carrier::Dialling || carrier_ == Carrier::Answering)
        hangUp();
    if (!host_.strike(Failure::ModemSilent))
        reply("OK\r\n", nowMs);
}

void ModemLink::obey(const QByteArray& command, qint64 nowMs)
{
    const qsizetype start = command.indexOf("AT");
    if (start < 0 || host_.strike(Failure::ModemSilent))
        return;
    if (echo_)
        reply(command.mid(start) + '\r', nowMs);

    const QByteArray body = command.mid(start + 2);
    if (body.startsWith('D'))
        dial(body.mid(1), nowMs);
    else if (body == "A")
        answerCall(nowMs);
    else
        reply(obeySetting(body) ? "\r\nOK\r\n" : "\r\nERROR\r\n", nowMs);
}

bool ModemLink::obeySetting(const QByteArray& command)
{
    if (command == "H" || command == "H0") {
        hangUp();
    } else if (command == "Z") {
        hangUp();
        echo_ = true;
    } else if (command == "E0" || command == "E1") {
        echo_ = command == "E1";
    } else {
        return command.isEmpty() || command.startsWith("&D") || command.startsWith("&K");
    }
    return true;
}

void ModemLink::dial(const QByteArray& phone, qint64 nowMs)
{
    hangUp();
    if (host_.strike(Failure::NoCarrier) || !host_.openDialledPlant(phone)) {
        host_.note(QStringLiteral("nobody answers \"%1\"").arg(QString::fromLatin1(phone)));
        replies_.put(nowMs + timings_.connect, "\r\nNO CARRIER\r\n");
        return;
    }
    carrier_ = Carrier::Dialling;
    stepMs_ = nowMs + timings_.connect;
}

void ModemLink::answerCall(qint64 nowMs)
{
    if (carrier_ != Carrier::Ringing) {
        reply("\r\nNO CARRIER\r\n", nowMs);
        return;
    }
    carrier_ = Carrier::Answering;
    stepMs_ = nowMs + timings_.connect;
}

void ModemLink::hangUp()
{
    if (carrier_ == Carrier::Plant || carrier_ == Carrier::Dialling)
        host_.closePlant();
    carrier_ = Carrier::None;
    commandMode_ = true;
    stepMs_.reset();
    call_.reset();
}

void ModemLink::dropCarrier(qint64 nowMs)
{
    if (isIdle())
        return;
    hangUp();
    reply("\r\nNO CARRIER\r\n", nowMs);
}

void ModemLink::reset()
{
    hangUp();
    replies_.clear();
    line_.clear();
    escape_.reset();
    echo_ = true;
}

bool ModemLink::isIdle() const
{
    return carrier_ == Carrier::None;
}

void ModemLink::call(const AlarmReport& report, qint64 nowMs)
{
    report_ = report;
    carrier_ = Carrier::Ringing;
    rings_ = 0;
    stepMs_ = nowMs;
    host_.note(QStringLiteral("calling in"));
}

void ModemLink::advance(qint64 nowMs)
{
    for (const QByteArray& text : replies_.takeDue(nowMs))
        host_.transmit(text);
    if (stepMs_ && nowMs >= *stepMs_) {
        if (carrier_ == Carrier::Ringing)
            ringDue(nowMs);
        else
            connectDue(nowMs);
    }
    if (call_)
        callDue(nowMs);
}

void ModemLink::connectDue(qint64 nowMs)
{
    stepMs_.reset();
    commandMode_ = false;
    escape_.reset();
    host_.transmit("\r\nCONNECT 2400\r\n");
    if (carrier_ == Carrier::Answering) {
        carrier_ = Carrier::Call;
        call_.emplace(report_, timings_, nowMs);
    } else {
        carrier_ = Carrier::Plant;
    }
}

void ModemLink::ringDue(qint64 nowMs)
{
    if (rings_++ == kMostRings) {
        host_.note(QStringLiteral("nobody answers the call"));
        hangUp();
        return;
    }
    host_.transmit("\r\nRING\r\n");
    stepMs_ = nowMs + timings_.ring;
}

void ModemLink::callDue(qint64 nowMs)
{
    for (const QByteArray& block : call_->advance(nowMs))
        host_.transmit(block);
    if (!call_->isOver(nowMs))
        return;
    host_.note(call_->isAcknowledged() ? QStringLiteral("call ended")
                                       : QStringLiteral("call ended, no \"OK\" came"));
    dropCarrier(nowMs);
}

std::optional<qint64> ModemLink::nextDue() const
{
    const std::optional<qint64> due = earlier(replies_.nextDue(), stepMs_);
    return call_ ? earlier(due, call_->nextDue()) : due;
}

void ModemLink::reply(const QByteArray& text, qint64 nowMs)
{
    replies_.put(nowMs + timings_.modemReply, text);
}

} // namespace instrument
