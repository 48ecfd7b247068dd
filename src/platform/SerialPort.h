#pragma once

#include "platform/RuntimeError.h"

#include <QByteArray>
#include <functional>

namespace platform {

// The serial port as the bus sees it. Text mode carries bytes 1:1.
//
// Opening fails with 8002 (no such port), 8005 (held by another program) or another number with words of its
// own; writing to a closed or broken port fails. OnComm comes once for every arrival, never from inside
// another call; OnFault comes once when an open port breaks (the adapter was pulled out): the port is closed
// by then.
class SerialPort
{
public:
    virtual ~SerialPort() = default;

    int CommPort() const { return commPort_; }
    QString Settings() const { return settings_; }
    int Handshaking() const { return handshaking_; }
    void setCommPort(int number) { commPort_ = number; }
    // "9600,N,8,1": speed, parity letter, data bits, stop bits. Taken at the next opening.
    // A text that names no line parameters is refused.
    void setSettings(const QString& settings);
    // 0 none, 1 Xon/Xoff, 2 hardware, 3 both; anything else is refused.
    void setHandshaking(int value);

    virtual bool PortOpen() const = 0;
    virtual void setPortOpen(bool open) = 0;
    // Writes all bytes before it returns.
    virtual void Output(const QByteArray& bytes) = 0;
    // Takes everything that waits, also what has not been announced yet.
    virtual QByteArray Input() = 0;

    std::function<void()> OnComm;
    std::function<void(const RuntimeError&)> OnFault;

private:
    int commPort_ = 1;
    QString settings_;
    int handshaking_ = 0;
};

// The settings text taken apart. Fails on a text that names no line parameters.
struct LineSettings
{
    int speed = 0;
    char parity = 'N';
    int dataBits = 8;
    QString stopBits = QStringLiteral("1");

    static LineSettings parse(const QString& text);
};

} // namespace platform
