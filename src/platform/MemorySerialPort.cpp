#include "platform/MemorySerialPort.h"

#include "platform/Words.h"
#include <utility>

namespace platform {

void MemorySerialPort::setPortOpen(bool open)
{
    if (open && openFailure)
        throw *openFailure;
    open_ = open;
    waiting_.clear();
}

void MemorySerialPort::Output(const QByteArray& bytes)
{
    if (!open_)
        failInWords(errors::kDeviceIo, "port.closed");
    sent_.push_back({clock_.elapsed(), bytes});
    if (onOutput)
        onOutput(bytes);
}

QByteArray MemorySerialPort::Input()
{
    return std::exchange(waiting_, {});
}

void MemorySerialPort::feed(const QByteArray& bytes)
{
    if (!open_)
        return;
    waiting_ += bytes;
    clock_.post([this] {
        if (OnComm && !waiting_.isEmpty())
            OnComm();
    });
}

void MemorySerialPort::vanish()
{
    open_ = false;
    waiting_.clear();
    clock_.post([this] {
        if (OnFault)
            OnFault(RuntimeError(errors::kDeviceIo, inWords("port.vanished")));
    });
}

QByteArray MemorySerialPort::allSent() const
{
    QByteArray all;
    for (const Sent& piece : sent_)
        all += piece.bytes;
    return all;
}

} // namespace platform
