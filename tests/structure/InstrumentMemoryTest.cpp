#include "structure/InstrumentMemory.h"

#include <gtest/gtest.h>

using structure::Extract_Key;
using structure::InstrumentMemory;

namespace {

const QString kOne = "4_1_2_G01_P0101";    // a parameter
const QString kOther = "4_1_12_G01_P0101"; // of an instrument whose number begins alike

class InstrumentMemoryTest : public testing::Test
{
protected:
    InstrumentMemoryTest()
    {
        QObject::connect(&memory, &InstrumentMemory::changed, [this] { ++told; });
    }
    void doubt(const QString& key) { memory.remember({key, "Set", "ALPHA", "Measures", "5", "7"}); }
    QStringList doubted() const
    {
        QStringList keys;
        for (const auto& [key, write] : memory.unconfirmed())
            keys << key;
        return keys;
    }

    InstrumentMemory memory;
    int told = 0;
};

TEST_F(InstrumentMemoryTest, KnowsWhatTheInstrumentHeldLast)
{
    EXPECT_EQ(memory.valueOf(kOne), std::nullopt);
    memory.see("1", "2", "P0101", "5");
    EXPECT_EQ(memory.valueOf(kOne), "5");
    EXPECT_EQ(memory.valueOf(kOther), std::nullopt);
    memory.see("1", "2", "P0101", "6");
    EXPECT_EQ(memory.valueOf(kOne), "6");
    EXPECT_EQ(told, 0) << "no write was in doubt";
}

TEST_F(InstrumentMemoryTest, AReadEndsTheDoubtAboutItsOwnWrite)
{
    doubt(kOne);
    doubt(kOther);
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(memory.isUnconfirmed(kOne));
    memory.see("1", "2", "P0101", "5");
    EXPECT_EQ(told, 3);
    EXPECT_EQ(doubted(), QStringList{kOther});
    EXPECT_FALSE(memory.isUnconfirmed(kOne));
}

TEST_F(InstrumentMemoryTest, AValueThatIsMadeEqualIsKnownUnlessItsWriteIsInDoubt)
{
    memory.keepEqual(Extract_Key(kOne), "5");
    EXPECT_EQ(memory.valueOf(kOne), "5");
    doubt(kOther);
    memory.keepEqual(Extract_Key(kOne), "6");
    EXPECT_EQ(memory.valueOf(kOne), "6") << "another one is in doubt";
    memory.keepEqual(Extract_Key(kOther), "7");
    EXPECT_EQ(memory.valueOf(kOther), std::nullopt);
    EXPECT_EQ(doubted(), QStringList{kOther});
}

TEST_F(InstrumentMemoryTest, WhatGoesAwayIsForgottenAndNothingBesideIt)
{
    const struct
    {
        const char* key;
        QStringList left;
    } kRows[] = {
        {"4_1_2_G01_P0101", {kOther}},
        {"4_1_2_G01_P0102", {kOther, kOne}},
        {"3_1_2_G01", {kOther}},
        {"3_1_2_G02", {kOther, kOne}},
        {"2_1_2", {kOther}},
        {"2_1_1", {kOther, kOne}},
        {"1_1", {}},
        {"1_2", {kOther, kOne}},
    };
    for (const auto& row : kRows) {
        doubt(kOne);
        doubt(kOther);
        told = 0;
        memory.forgetBelow(row.key);
        EXPECT_EQ(doubted(), row.left) << row.key;
        EXPECT_EQ(told, row.left.size() < 2 ? 1 : 0) << row.key;
    }
}

TEST_F(InstrumentMemoryTest, WithAnInstrumentGoesWhatItHeld)
{
    for (const char* IDInst : {"2", "12"})
        memory.see("1", IDInst, "P0101", "5");
    memory.see("11", "2", "P0101", "6");
    memory.forgetBelow("2_1_2");
    EXPECT_EQ(memory.valueOf(kOne), std::nullopt);
    EXPECT_EQ(memory.valueOf(kOther), "5");
    memory.forgetBelow("1_1");
    EXPECT_EQ(memory.valueOf(kOther), std::nullopt);
    EXPECT_EQ(memory.valueOf("4_11_2_G01_P0101"), "6");
}

TEST_F(InstrumentMemoryTest, EachCompanyHasItsOwn)
{
    memory.turnTo("First");
    doubt(kOne);
    memory.see("1", "12", "P0101", "5");
    told = 0;
    memory.turnTo("First");
    EXPECT_EQ(told, 0);
    memory.turnTo("Second");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(doubted(), QStringList());
    EXPECT_EQ(memory.valueOf(kOther), std::nullopt);
    doubt(kOther);
    memory.turnTo("First");
    EXPECT_EQ(doubted(), QStringList{kOne});
    EXPECT_EQ(memory.valueOf(kOther), "5");
    memory.turnTo("Second");
    EXPECT_EQ(doubted(), QStringList{kOther});
}

} // namespace
