#include "instrument/Memory.h"

#include "Bench.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(Memory, ReadsWhatABankHolds)
{
    const Memory memory = smallMemory();
    const struct
    {
        const char* what;
        quint8 command;
        int address;
        int length;
        std::optional<QByteArray> bytes;
    } rows[] = {
        {"the whole bank", 0x52, 0x10, 4, hex("2C010000")}, {"its middle", 0x52, 0x11, 2, hex("0100")},
        {"beyond its end", 0x52, 0x12, 4, hex("0000FFFF")}, {"before its start", 0x52, 0x0F, 2, std::nullopt},
        {"behind its end", 0x52, 0x14, 1, std::nullopt},    {"another command", 0x53, 0x10, 1, std::nullopt},
        {"a write command", 0x57, 0x10, 1, std::nullopt},   {"no byte at all", 0x52, 0x10, 0, QByteArray()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(memory.read(row.command, row.address, row.length), row.bytes) << row.what;
}

TEST(Memory, WritesWhereTheCommandLeads)
{
    Memory memory = smallMemory();
    EXPECT_TRUE(memory.write(0x57, 0x11, hex("AABB")));
    EXPECT_EQ(memory.read(0x52, 0x10, 4), hex("2CAABB00"));
    EXPECT_TRUE(memory.write(0x45, 0x10, hex("77")));
    EXPECT_EQ(memory.byteBehind(0x45, 0x10), 0x77);
    EXPECT_EQ(memory.read(0x52, 0x10, 4), hex("2CAABB00")) << "an EEPROM write leaves the RAM alone";
    EXPECT_FALSE(memory.write(0x58, 0x10, hex("01")));
    EXPECT_FALSE(memory.write(0x57, 0x20, hex("01")));
}

TEST(Memory, DropsWhatLiesBeyondTheEnd)
{
    Memory memory = smallMemory();
    EXPECT_TRUE(memory.write(0x57, 0x13, hex("0A0B0C")));
    EXPECT_EQ(memory.read(0x52, 0x10, 4), hex("2C01000A"));
    EXPECT_TRUE(memory.write(0x45, 0xFF, hex("0D0E")));
    EXPECT_EQ(memory.byteBehind(0x45, 0xFF), 0x0D);
    EXPECT_EQ(memory.byteBehind(0x45, 0x00), 0xFF);
}

TEST(Memory, SetsABankThatNoCommandWrites)
{
    Memory memory;
    ASSERT_FALSE(memory.addBank({0x52, std::nullopt, 0, hex("0000")}));
    EXPECT_TRUE(memory.set(0x52, 1, hex("09")));
    EXPECT_EQ(memory.read(0x52, 0, 2), hex("0009"));
    EXPECT_FALSE(memory.set(0x52, 2, hex("09")));
}

TEST(Memory, RefusesABankThatCanNotBe)
{
    const struct
    {
        const char* what;
        Bank bank;
        bool isRefused;
    } rows[] = {
        {"beside another", {0x52, 0x57, 0x14, hex("00")}, false},
        {"the same place under another command", {0x53, 0x57, 0x10, hex("00")}, false},
        {"over another", {0x52, 0x57, 0x13, hex("0000")}, true},
        {"beyond the address space", {0x52, 0x57, 0xFF, hex("0000")}, true},
        {"no byte", {0x52, 0x57, 0x20, {}}, true},
        {"the whole address space", {0x54, 0x57, 0, QByteArray(256, 0)}, false},
        {"before the address space", {0x52, 0x57, -1, hex("00")}, true},
    };
    for (const auto& row : rows) {
        Memory memory = smallMemory();
        EXPECT_EQ(memory.addBank(row.bank).has_value(), row.isRefused) << row.what;
    }
}

} // namespace
