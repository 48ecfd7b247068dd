#include "values/Digits.h"

#include "support/FailureRecorder.h"

#include <gtest/gtest.h>

using namespace values;
namespace errors = platform::errors;

namespace {

class DigitsTest : public testing::Test
{
protected:
    ~DigitsTest() override { recorder_.expectNone(); }

    support::FailureRecorder recorder_;
};

TEST_F(DigitsTest, EveryByteGoesThereAndBackAndIsConsumed)
{
    for (int byte = 0; byte < 256; ++byte) {
        int value = byte;
        const QString digits = DecToBin(value);
        EXPECT_EQ(digits, QString::number(byte, 2).rightJustified(8, '0'));
        EXPECT_EQ(value, 0);
        EXPECT_EQ(BinToDec(digits), byte);
    }
}

struct DecimalRow
{
    int value;
    const char* digits;
    int left;
};

TEST_F(DigitsTest, OutsideAByteTheQuotientsStandAsTheyCome)
{
    const DecimalRow rows[] = {
        {256, "22222222", 1},
        {300, "22347132446", 45},
        {-1, "-1-1-1-1-1-1-1-1", -1},
        {-129, "-2-3-5-9-17-33-65-129", -129},
    };
    for (const auto& row : rows) {
        int value = row.value;
        EXPECT_EQ(DecToBin(value).toStdString(), row.digits);
        EXPECT_EQ(value, row.left);
    }
}

TEST_F(DigitsTest, SixteenBitsAreTheEnd)
{
    int value = 32767;
    EXPECT_FALSE(DecToBin(value).isEmpty());
    value = 32768;
    EXPECT_EQ(DecToBin(value), QString());
    recorder_.expectOne(errors::kOverflow, "Module/DecToBin");
    value = -32769;
    EXPECT_EQ(DecToBin(value), QString());
    recorder_.expectOne(errors::kOverflow, "Module/DecToBin");
}

TEST_F(DigitsTest, ReadsExactlyEightCharacters)
{
    EXPECT_EQ(BinToDec("01001101"), 77);
    EXPECT_EQ(BinToDec("010011011"), 77);
    EXPECT_EQ(BinToDec("00000009"), 9);
    EXPECT_EQ(BinToDec("99999999"), 9 * 255);
}

TEST_F(DigitsTest, AMissingDigitFails)
{
    for (const char* digits :
         {"", "1001101", "0100110x", "0100 101", "\u0661\u0661\u0661\u0661\u0661\u0661\u0661\u0661"}) {
        EXPECT_EQ(BinToDec(QString::fromUtf8(digits)), 0);
        recorder_.expectOne(errors::kTypeMismatch, "Module/BinToDec");
    }
}

struct MaskRow
{
    const char* value;
    int bitFirst, bitCount;
    const char* andMask;
    const char* orMask;
};

TEST_F(DigitsTest, MasksOfAField)
{
    const MaskRow rows[] = {
        {"3", 2, 3, "11101111", "00001100"},
        {"0", 2, 3, "11100011", "00000000"},
        {"77", 0, 8, "01001101", "01001101"},
        {"1", 7, 1, "11111111", "10000000"},
        {"0", 7, 1, "01111111", "00000000"},
        {"9", 0, 3, "11111001", "00000001"}, // digits beyond the width are dropped
        {"2.5", 0, 3, "11111010", "00000010"},
        {"3.5", 0, 3, "11111100", "00000100"}, // halves to the even neighbour
        {"5", 3, 0, "11111111", "00000000"},
        {" 1 ", 0, 1, "11111111", "00000001"},
    };
    for (const auto& row : rows) {
        QString andMask, orMask;
        Compose_Byte(row.value, row.bitFirst, row.bitCount, andMask, orMask);
        EXPECT_EQ(andMask.toStdString(), row.andMask) << row.value;
        EXPECT_EQ(orMask.toStdString(), row.orMask) << row.value;
    }
}

TEST_F(DigitsTest, AnyFieldIsSetAndTheOtherBitsStay)
{
    for (int first = 0; first < 8; ++first) {
        for (int count = 1; first + count <= 8; ++count) {
            const int field = ((1 << count) - 1) << first;
            for (int number = 0; number < 1 << count; ++number) {
                QString andMask, orMask;
                Compose_Byte(QString::number(number), first, count, andMask, orMask);
                const int andByte = BinToDec(andMask);
                const int orByte = BinToDec(orMask);
                for (int old = 0; old < 256; ++old)
                    ASSERT_EQ((old & andByte) | orByte, (old & ~field) | number << first);
            }
        }
    }
}

TEST_F(DigitsTest, AFieldOrValueThatDoesNotFitFailsAndLeavesNoMask)
{
    const struct
    {
        const char* value;
        int bitFirst, bitCount, error;
    } rows[] = {
        {"1", 6, 3, errors::kInvalidCall},  {"1", 8, 1, errors::kInvalidCall},
        {"1", -1, 2, errors::kInvalidCall}, {"1", 0, -1, errors::kInvalidCall},
        {"1", 0, 9, errors::kInvalidCall},  {"1", 2147483647, 2147483647, errors::kInvalidCall},
        {"", 0, 1, errors::kTypeMismatch},  {"x", 0, 1, errors::kTypeMismatch},
        {"32768", 0, 1, errors::kOverflow}, {"1E+12", 0, 1, errors::kOverflow},
    };
    for (const auto& row : rows) {
        QString andMask = "11111111", orMask = "11111111";
        Compose_Byte(row.value, row.bitFirst, row.bitCount, andMask, orMask);
        EXPECT_TRUE(andMask.isEmpty());
        EXPECT_TRUE(orMask.isEmpty());
        recorder_.expectOne(row.error, "Module/Compose_Byte");
    }
}

} // namespace
