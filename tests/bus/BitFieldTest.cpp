// The write of a bit field: the old byte is asked for, merged and sent back. P0202 lies in bits 2 to 4 of its
// byte.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;

namespace {

class BitFieldTest : public BusFixture
{
protected:
    void beginWrite()
    {
        runOnPlant("UPDATE tbParametersUser SET State = 1, Value = '3' WHERE IDPar = 'P0202'");
        openConsole("4_1_1_G02_P0202");
        connectByHand();
        console.Write_Param();
    }
};

TEST_F(BitFieldTest, ABitFieldIsMergedIntoTheOldByteBehindAGuardTime)
{
    beginWrite();
    clock.run(3000);
    EXPECT_EQ(bus.actionCode(), ActionCode::MergingRam);
    EXPECT_TRUE(frames().isEmpty());
    clock.run(3000);
    EXPECT_EQ(frames().last(), QByteArray::fromHex("30 30 11 41 01 4C"));
    arrives("\xF1");
    EXPECT_EQ(frames().size(), 1) << "one byte more makes the answer";
    arrives("\x06");
    EXPECT_EQ(sent().last().section(' ', 0, 0), "9000");
    EXPECT_EQ(frames().last(), QByteArray::fromHex("30 30 12 41 01 ED 5E")) << "F1 with 011 in bits 4 to 2";
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingRam);
    clock.run(2999);
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingRam);
    clock.run(1);
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingEeprom);
    clock.run(3000);
    EXPECT_EQ(bus.actionCode(), ActionCode::MergingEeprom);
    clock.run(3000);
    EXPECT_EQ(frames().last(), QByteArray::fromHex("30 30 11 41 01 4C")) << "the old byte is the RAM's";
    arrives(QByteArray("\x00\x06", 2));
    EXPECT_EQ(frames().last(), QByteArray::fromHex("30 30 21 19 01 0C 58"));
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingEeprom);
}

TEST_F(BitFieldTest, WhatComesDuringTheGuardTimeOfABitFieldIsDiscardedBehindIt)
{
    beginWrite();
    clock.run(6000);
    port.onOutput = [this](const QByteArray&) { port.feed("an echo"); };
    port.feed("\x01\x06");
    port.feed("rubbish");
    clock.settle();
    clock.settle();
    port.onOutput = nullptr;
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingRam);
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_EQ(frames().size(), 2);
}

TEST_F(BitFieldTest, ABitFieldWithoutAnAnswerStallsUntilEscape)
{
    beginWrite();
    clock.run(3600 * 1000);
    EXPECT_EQ(bus.actionCode(), ActionCode::MergingRam);
    EXPECT_EQ(frames().size(), 1);
    bus.abandonOperation();
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(state(1, 1, "P0202"), "1");
}

} // namespace
