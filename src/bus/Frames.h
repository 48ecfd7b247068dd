#pragma once

#include <QByteArray>

namespace bus {

// The requests of the line: address, command, memory address, length, data, checksum. All raw bytes; no
// start, no end, a request is complete by its length alone, and a zero is a byte like any other.
//
// `address` goes out exactly as stored, whatever its length. The other fields are one byte each: a number
// outside 0 to 255 throws an invalid call, for the procedure that builds the frame to report.

constexpr int kAddressSize = 2; // as it usually is
constexpr int kReadRequestSize = kAddressSize + 4;

// One's complement of the low byte of the sum: a frame's bytes, checksum included, add up to 0xFF in the low
// byte. Of no bytes at all it is 0xFF.
char Calculate_CheckSum(const QByteArray& text);

// `length` is the number of bytes wanted.
QByteArray readRequest(const QByteArray& address, int command, int memoryAddress, int length);

// `length` is the parameter's size, which needn't be the number of data bytes: a value without an encoder
// sends none.
QByteArray writeRequest(const QByteArray& address, int command, int memoryAddress, int length,
                        const QByteArray& data);

} // namespace bus
