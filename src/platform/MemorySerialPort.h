#pragma once

#include "platform/SerialPort.h"
#include "platform/VirtualClock.h"

#include <optional>
#include <vector>

namespace platform {

// A serial port that ends in memory: what the program sends goes to `onOutput` and into a log with its time,
// what a peer feeds arrives as receive events. Opening, writing and the whole device can be broken on
// purpose.
class MemorySerialPort : public SerialPort
{
public:
    struct Sent
    {
        qint64 at;
        QByteArray bytes;
    };

    explicit MemorySerialPort(VirtualClock& clock) : clock_(clock) {}

    bool PortOpen() const override { return open_; }
    void setPortOpen(bool open) override;
    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;

    // Bytes come in, as one arrival. They are lost while the port is closed.
    void feed(const QByteArray& bytes);
    // The device disappears while it is open.
    void vanish();

    // The next openings fail with this.
    std::optional<RuntimeError> openFailure;
    std::function<void(const QByteArray&)> onOutput;

    const std::vector<Sent>& sent() const { return sent_; }
    QByteArray allSent() const;
    void forgetSent() { sent_.clear(); }

private:
    VirtualClock& clock_;
    bool open_ = false;
    QByteArray waiting_;
    std::vector<Sent> sent_;
};

} // namespace platform
