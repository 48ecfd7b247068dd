#pragma once

#include "bus/ActionCode.h"
#include "platform/MemorySerialPort.h"

#include <deque>

namespace line {

// The port of a world. It looks at each thing that is sent: whether the state tells it, and whether it is
// time for it; and it knows of each byte that came in behind which request it came.
class LinePort : public platform::MemorySerialPort
{
public:
    explicit LinePort(platform::VirtualClock& clock) : MemorySerialPort(clock), clock_(clock) {}

    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;
    void setPortOpen(bool open) override;

    // An arrival.
    void comes(const QByteArray& bytes);
    void gone();

    // The next output fails.
    bool failNext = false;
    // What the program is doing, and what it holds of what came in before.
    std::function<bus::ActionCode()> code;
    std::function<QByteArray()> received;
    std::function<QByteArray()> aliveFrame;
    std::function<void(const QString&)> violate;
    std::function<void(bus::ActionCode code, const QByteArray& bytes)> onSent;
    std::function<void(const QByteArray& bytes)> onComes;

    // How many bytes the request in hand asks for, and the one before; 0 for none.
    int requestSize() const { return requestSize_; }
    int formerSize() const { return formerSize_; }
    int requests() const { return requests_; }
    // Whether the first bytes of what the program holds all came behind the request in hand.
    bool isOwnAnswer(int bytes) const;
    // What the program held at its last look at the port.
    const QByteArray& held() const { return held_; }
    // What an operation before asked for has no answer any more.
    void forgetRequest() { codeOfRequest_ = bus::ActionCode::Idle; }

private:
    void look(bus::ActionCode code, const QByteArray& bytes);
    void lookAtFrame(bus::ActionCode code, const QByteArray& bytes);

    platform::VirtualClock& clock_;
    std::deque<int> waitingTags_; // of bytes that wait in the port: the request behind which each came
    std::deque<int> heldTags_;    // of those that the program holds
    QByteArray held_;
    int requests_ = 0;
    int requestSize_ = 0;
    int formerSize_ = 0;
    int arrivals_ = 0;
    int arrivalsAtRequest_ = -1;
    bus::ActionCode codeOfRequest_ = bus::ActionCode::Idle;
    std::optional<qint64> lastFrame_;
    std::optional<qint64> lastCommand_;
    QByteArray lastSent_;
};

} // namespace line
