#pragma once

#include "instrument/VirtualInstrument.h"

#include <algorithm>
#include <vector>

namespace instrument {

// A virtual instrument in virtual time, with everything that it says written down.
class Bench
{
public:
    struct Said
    {
        qint64 atMs = 0;
        QByteArray bytes;
    };

    explicit Bench(Plants plants, const Options& options = {}) : peer(std::move(plants), options)
    {
        peer.send = [this](const QByteArray& bytes) { said.push_back({now, bytes}); };
        peer.log = [this](const QString& note) { notes += note; };
    }

    // Hands in bytes, lets time pass and gives back all that was said meanwhile.
    QByteArray say(const QByteArray& bytes, qint64 waitMs = 2000)
    {
        const std::size_t before = said.size();
        peer.receive(bytes, now);
        pass(waitMs);
        return saidSince(before);
    }

    QByteArray wait(qint64 waitMs)
    {
        const std::size_t before = said.size();
        pass(waitMs);
        return saidSince(before);
    }

    VirtualInstrument peer;
    qint64 now = 0;
    std::vector<Said> said;
    QStringList notes;

private:
    void pass(qint64 waitMs)
    {
        const qint64 end = now + waitMs;
        for (auto due = peer.nextDue(); due && *due <= end; due = peer.nextDue()) {
            now = std::max(now, *due);
            peer.advance(now);
        }
        now = end;
        peer.advance(now);
    }

    QByteArray saidSince(std::size_t before) const
    {
        QByteArray all;
        std::for_each(said.begin() + std::ptrdiff_t(before), said.end(),
                      [&](const Said& one) { all += one.bytes; });
        return all;
    }
};

inline QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

// A bank of four bytes at 0x10, 2C 01 00 00, read with 0x52 and written with 0x57; an EEPROM behind 0x45.
inline Memory smallMemory()
{
    Memory memory;
    memory.addBank({0x52, 0x57, 0x10, hex("2C010000")});
    memory.addEeprom(0x45);
    return memory;
}

inline Plant smallPlant(int idGrp = 1, const QByteArray& phone = {})
{
    return {idGrp, phone, {{"00", smallMemory()}, {"01", smallMemory()}}, {}};
}

inline const QByteArray kReadTwo = hex("30305210023B"); // two bytes at 0x10 of "00"
inline const QByteArray kAnswerOfTwo = hex("2C01D2");   // and what stands there
inline const AlarmReport kReport{"<Plant 1><Unit 2><Alarm A><Alarm B>", "<Plant 1><End of report>"};

} // namespace instrument
