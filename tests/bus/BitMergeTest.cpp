#include "bus/BitMerge.h"

#include "support/Throws.h"
#include "values/Digits.h"

using bus::mergeBits;

namespace {

TEST(BitMergeTest, TheFieldGoesInAndItsNeighboursStay)
{
    struct
    {
        int old;
        const char* andMask;
        const char* orMask;
        int merged;
    } const rows[] = {
        {0xF1, "11101111", "00001100", 0xED}, {0x00, "11101111", "00001100", 0x0C},
        {0xFF, "11101111", "00001100", 0xEF}, {0xFF, "11111110", "00000000", 0xFE},
        {0xFE, "11111111", "00000001", 0xFF}, {0x5A, "11111111", "00000000", 0x5A},
        {0x5A, "00000000", "00000000", 0x00}, {0x5A, "00000000", "10100101", 0xA5},
        {0x00, "11111111", "11111111", 0xFF},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mergeBits(uchar(row.old), row.andMask, row.orMask), row.merged) << row.old;
}

TEST(BitMergeTest, EveryFieldOfEveryByte)
{
    for (int first = 0; first < 8; ++first)
        for (int count = 1; first + count <= 8; ++count)
            for (int old = 0; old < 256; old += 5) {
                const int value = old % (1 << count);
                QString andMask, orMask;
                values::Compose_Byte(QString::number(value), first, count, andMask, orMask);
                const int mask = ((1 << count) - 1) << first;
                EXPECT_EQ(mergeBits(uchar(old ^ 0x3C), andMask, orMask),
                          ((old ^ 0x3C) & ~mask) | (value << first))
                    << first << ' ' << count << ' ' << old;
            }
}

TEST(BitMergeTest, MasksThatAreNotKnownFail)
{
    using support::errorOf;
    EXPECT_EQ(errorOf([] { mergeBits(0, "", ""); }), platform::errors::kTypeMismatch);
    EXPECT_EQ(errorOf([] { mergeBits(0, "11111111", "0"); }), platform::errors::kTypeMismatch);
    EXPECT_EQ(errorOf([] { mergeBits(0, "111111111", "00000000"); }), platform::errors::kTypeMismatch);
}

} // namespace
