#include "bus/Frames.h"

#include "platform/Words.h"

#include <numeric>

namespace bus {

namespace {

char toByte(int field)
{
    if (field < 0 || field > 255)
        platform::failInWords(platform::errors::kInvalidCall, "value.invalid");
    return static_cast<char>(field);
}

QByteArray header(const QByteArray& address, int command, int memoryAddress, int length)
{
    return address + toByte(command) + toByte(memoryAddress) + toByte(length);
}

QByteArray withCheckSum(QByteArray frame)
{
    return frame.append(Calculate_CheckSum(frame));
}

} // namespace

char Calculate_CheckSum(const QByteArray& text)
{
    const uint sum = std::accumulate(text.begin(), text.end(), 0u, [](uint sum, char byte) {
        return (sum & 0xFF) + static_cast<uchar>(byte);
    });
    return static_cast<char>(~sum & 0xFF);
}

QByteArray readRequest(const QByteArray& address, int command, int memoryAddress, int length)
{
    return withCheckSum(header(address, command, memoryAddress, length));
}

QByteArray writeRequest(const QByteArray& address, int command, int memoryAddress, int length,
                        const QByteArray& data)
{
    return withCheckSum(header(address, command, memoryAddress, length) + data);
}

} // namespace bus
