#include "instrument/FrameReader.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

constexpr qint64 kSilence = 1000;

CommandSet commandsOfTwoInstruments()
{
    CommandSet commands;
    for (const QByteArray address : {"00", "01"}) {
        commands.add(address, 0x52, CommandKind::Read);
        commands.add(address, 0x57, CommandKind::Write);
    }
    return commands;
}

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

Request readOf(const char* address, quint8 memoryAddress, quint8 length)
{
    return {address, CommandKind::Read, 0x52, memoryAddress, length, {}};
}

Request writeOf(const char* address, quint8 memoryAddress, quint8 length, const char* data)
{
    return {address, CommandKind::Write, 0x57, memoryAddress, length, hex(data)};
}

struct Row
{
    const char* what;
    const char* bytes;
    QList<Request> requests;
    const char* strayBytes;
    int badChecksums;
};

// Every row is settled by a silence behind its bytes.
const Row kRows[] = {
    {"a read of two bytes", "30 30 52 10 02 3B", {readOf("00", 0x10, 2)}, "", 0},
    {"a write of two bytes", "30 31 57 10 02 2C 01 08", {writeOf("01", 0x10, 2, "2C01")}, "", 0},
    {"an alive poll", "30 30 52 05 01 47", {readOf("00", 0x05, 1)}, "", 0},
    {"a merged bit field whose sum wraps", "30 31 57 10 01 4D E9", {writeOf("01", 0x10, 1, "4D")}, "", 0},
    {"two frames in one lump",
     "30 30 52 10 02 3B 30 31 57 10 01 4D E9",
     {readOf("00", 0x10, 2), writeOf("01", 0x10, 1, "4D")},
     "",
     0},
    {"a zero byte among the data", "30 30 57 00 02 00 00 46", {writeOf("00", 0, 2, "0000")}, "", 0},
    {"a write without the data its length tells", "30 30 57 10 02 36", {writeOf("00", 0x10, 2, "")}, "", 0},
    {"a write with one byte of two", "30 30 57 10 02 7F B7", {writeOf("00", 0x10, 2, "7F")}, "", 0},
    {"rubbish before a frame", "FF 30 00 30 30 52 10 02 3B", {readOf("00", 0x10, 2)}, "FF 30 00", 0},
    {"an address character too many", "30 30 30 52 10 02 3B", {readOf("00", 0x10, 2)}, "30", 0},
    {"a read whose sum doesn't close", "30 30 52 10 02 3C", {}, "30 30 52 10 02 3C", 1},
    {"a good frame behind a bad one",
     "30 30 52 10 02 00 30 30 52 05 01 47",
     {readOf("00", 0x05, 1)},
     "30 30 52 10 02 00",
     1},
    {"a read cut off", "30 30 52 10", {}, "30 30 52 10", 1},
    {"an unknown address", "30 32 52 10 02 39", {}, "30 32 52 10 02 39", 0},
    {"an unknown command", "30 30 53 10 02 3A", {}, "30 30 53 10 02 3A", 0},
    {"words of the link dialogue", "2B 2B 2B", {}, "2B 2B 2B", 0},
};

void expectReading(const Row& row, const Reading& reading)
{
    EXPECT_EQ(reading.requests, row.requests);
    EXPECT_EQ(reading.strayBytes.toHex(' '), hex(row.strayBytes).toHex(' '));
    EXPECT_EQ(reading.badChecksums, row.badChecksums);
}

void append(Reading& whole, const Reading& part)
{
    whole.requests += part.requests;
    whole.strayBytes += part.strayBytes;
    whole.badChecksums += part.badChecksums;
}

TEST(FrameReader, ReadsBytesInOneLump)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        FrameReader reader(commandsOfTwoInstruments(), kSilence);
        Reading reading = reader.receive(hex(row.bytes), 0);
        append(reading, reader.advance(kSilence));
        expectReading(row, reading);
        EXPECT_FALSE(reader.nextDue());
    }
}

TEST(FrameReader, ReadsBytesOneByOne)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        FrameReader reader(commandsOfTwoInstruments(), kSilence);
        Reading reading;
        qint64 now = 0;
        for (const char byte : hex(row.bytes))
            append(reading, reader.receive(QByteArray(1, byte), now += 10));
        append(reading, reader.advance(now + kSilence));
        expectReading(row, reading);
    }
}

TEST(FrameReader, WaitsForSilenceAlone)
{
    FrameReader reader(commandsOfTwoInstruments(), kSilence);
    EXPECT_FALSE(reader.nextDue());
    reader.receive(hex("30 30 57 10 02 36"), 500);
    EXPECT_EQ(reader.nextDue(), 1500);
    EXPECT_TRUE(reader.advance(1499).requests.isEmpty());
    EXPECT_EQ(reader.advance(1500).requests.size(), 1);
}

TEST(FrameReader, SettlesAFrameCutShortWhenTheNextBytesComeAfterTheSilence)
{
    FrameReader reader(commandsOfTwoInstruments(), kSilence);
    reader.receive(hex("30 30 57 10 02 36"), 0);
    const Reading reading = reader.receive(hex("30 30 52 05 01 47"), 3000);
    EXPECT_EQ(reading.requests, (QList<Request>{writeOf("00", 0x10, 2, ""), readOf("00", 0x05, 1)}));
}

TEST(FrameReader, ForgetsWhatItHoldsWhenCleared)
{
    FrameReader reader(commandsOfTwoInstruments(), kSilence);
    reader.receive(hex("30 30 52"), 0);
    reader.clear();
    EXPECT_FALSE(reader.nextDue());
    EXPECT_EQ(reader.receive(hex("30 30 52 05 01 47"), 1).requests.size(), 1);
}

} // namespace
