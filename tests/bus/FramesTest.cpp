#include "bus/Frames.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>
#include <random>

using namespace bus;

namespace {

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

int lowByteOfSum(const QByteArray& bytes)
{
    int sum = 0;
    for (const char byte : bytes)
        sum += static_cast<uchar>(byte);
    return sum & 0xFF;
}

TEST(FramesTest, ReadsTwoBytes)
{
    EXPECT_EQ(readRequest("00", 0x52, 0x10, 2), hex("30 30 52 10 02 3B"));
}

TEST(FramesTest, WritesTwoBytes)
{
    EXPECT_EQ(writeRequest("01", 0x57, 0x10, 2, hex("2C 01")), hex("30 31 57 10 02 2C 01 08"));
}

TEST(FramesTest, PollsWhetherAGroupIsAlive)
{
    EXPECT_EQ(readRequest("00", 0x52, 0x05, 1), hex("30 30 52 05 01 47"));
}

TEST(FramesTest, WritesAMergedByteWhoseSumPasses255)
{
    EXPECT_EQ(writeRequest("01", 0x57, 0x10, 1, hex("4D")), hex("30 31 57 10 01 4D E9"));
}

TEST(FramesTest, TheChecksumOfNothingIsAllOnes)
{
    EXPECT_EQ(Calculate_CheckSum({}), '\xFF');
}

TEST(FramesTest, AZeroIsAByteLikeAnyOther)
{
    EXPECT_EQ(Calculate_CheckSum(QByteArray(3, '\0')), '\xFF');
    const QByteArray frame = writeRequest("00", 0, 0, 2, QByteArray(2, '\0'));
    EXPECT_EQ(frame, hex("30 30 00 00 02 00 00 9D"));
}

TEST(FramesTest, AnUnknownValueSendsNoDataUnderTheFullLength)
{
    EXPECT_EQ(writeRequest("01", 0x57, 0x10, 2, {}), hex("30 31 57 10 02 35"));
}

TEST(FramesTest, TheAddressGoesOutAsStored)
{
    EXPECT_EQ(readRequest("", 0x52, 0x10, 2).size(), 4);
    EXPECT_TRUE(readRequest("1F3", 0x52, 0x10, 2).startsWith("1F3\x52"));
    EXPECT_TRUE(readRequest("\xE9 ", 0x52, 0x10, 2).startsWith("\xE9 \x52"));
}

TEST(FramesTest, EveryFieldTakesAWholeByte)
{
    EXPECT_EQ(readRequest("00", 255, 255, 255), hex("30 30 FF FF FF A2"));
}

TEST(FramesTest, AFieldOutsideOneByteFails)
{
    struct
    {
        int command, memoryAddress, length;
    } const rows[] = {{256, 0, 0}, {-1, 0, 0}, {0, 256, 0}, {0, -1, 0}, {0, 0, 256}, {0, 0, -1}};
    for (const auto& row : rows) {
        try {
            readRequest("00", row.command, row.memoryAddress, row.length);
            ADD_FAILURE() << row.command << ' ' << row.memoryAddress << ' ' << row.length;
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.number, platform::errors::kInvalidCall);
        }
        EXPECT_THROW(writeRequest("00", row.command, row.memoryAddress, row.length, "x"),
                     platform::RuntimeError);
    }
}

TEST(FramesTest, TheBytesOfAnyFrameAddUpToAllOnes)
{
    std::mt19937 random(2006);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 2000; ++round) {
        QByteArray data;
        for (int size = byte(random); size > 0; --size)
            data += static_cast<char>(byte(random));
        EXPECT_EQ(lowByteOfSum(data + Calculate_CheckSum(data)), 0xFF);
        EXPECT_EQ(lowByteOfSum(readRequest("0A", byte(random), byte(random), byte(random))), 0xFF);
        EXPECT_EQ(lowByteOfSum(writeRequest("0A", byte(random), byte(random), byte(random), data)), 0xFF);
    }
}

} // namespace
