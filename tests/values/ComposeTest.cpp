#include "CodingRows.h"

#include "support/FailureRecorder.h"

#include <gtest/gtest.h>
#include <limits>

using namespace values;
namespace errors = platform::errors;

namespace {

class ComposeTest : public testing::Test
{
protected:
    ~ComposeTest() override { recorder_.expectNone(); }

    support::FailureRecorder recorder_;
};

struct Row
{
    QByteArray raw;
    ParameterCoding coding;
    const char* text;
};

void expectRows(std::initializer_list<Row> rows)
{
    for (const auto& row : rows)
        EXPECT_EQ(Compose_EngVal(row.raw, row.coding).toStdString(), row.text)
            << row.coding.Type.toStdString() << ' ' << row.raw.toHex().constData();
}

TEST_F(ComposeTest, Bytes)
{
    expectRows({
        {bytes({123}), tenths("BYTE"), "12.3"},
        {bytes({50}), tenths("BYTE"), "5"},
        {bytes({250}), tenths("BYTE"), "25"},
        {bytes({49}), tenths("BYTE"), ""},
        {bytes({251}), tenths("BYTE"), ""},
        {bytes({255}), tenths("BYTE"), ""},
        {bytes({123, 7, 8}), tenths("BYTE"), "12.3"},
    });
}

TEST_F(ComposeTest, ALowLimitOfZeroOrBelowIsNotTested)
{
    expectRows({
        {bytes({0}), onLine("BYTE", "REAL", 0, 255, -10, 245, 0, 200), "-10"},
        {bytes({0}), onLine("BYTE", "REAL", 0, 255, -10, 245, -5, 200), "-10"},
        {bytes({0}), onLine("BYTE", "REAL", 0, 255, -10, 245, 0.5, 200), ""},
    });
}

TEST_F(ComposeTest, SignedBytesUnwrapThroughTheLowEnd)
{
    expectRows({
        {bytes({246}), signedByte(), "-10"},
        {bytes({100}), signedByte(), "100"},
        {bytes({101}), signedByte(), ""},
        {bytes({0}), signedByte(), "0"},
        {bytes({128}), signedByte(), "-128"},
        {bytes({206}), onLine("S_BYTE", "REAL", -128, 127, -12.8, 12.7, -10, 10), "-5"},
    });
}

// Below a positive low end the remainder keeps the sign: no wrap to the top.
TEST_F(ComposeTest, AByteBelowItsLowEndKeepsTheSign)
{
    expectRows({{bytes({3}), onLine("BYTE", "REAL", 10, 20, 0, 100, 0, 100), "-70"}});
}

TEST_F(ComposeTest, TheLimitIsComparedWithTheText)
{
    // 3 * 0.1 is a hair above 0.3; its text isn't.
    expectRows({{bytes({3}), onLine("BYTE", "REAL", 0, 10, 0, 1, 0, 0.3), "0.3"}});
    EXPECT_GT(3 * 0.1, 0.3);
}

TEST_F(ComposeTest, TimesOfOneByte)
{
    expectRows({
        {bytes({30}), fiveMinutes("BYTE", "TIME_HM"), "02:30:00"},
        {bytes({30}), fiveMinutes("BYTE", "TIME_H"), "02:00:00"},
        {bytes({30}), fiveMinutes("BYTE", "TIME_HMS"), "02:30:00"},
        {bytes({30}), fiveMinutes("S_BYTE", "TIME_HM"), "02:30:00"},
        {bytes({255}), fiveMinutes("BYTE", "TIME_HM"), "21:15:00"},
        {bytes({0}), fiveMinutes("BYTE", "TIME_H"), "00:00:00"},
        {bytes({2}), onLine("BYTE", "TIME_HM", 0, 255, 0, 255 * 3630, 0, 1e6), "02:01:00"},
    });
}

TEST_F(ComposeTest, TimesThatAreNoTimeOfDayStayAsComposed)
{
    expectRows({
        {bytes({25}), onLine("BYTE", "TIME_H", 0, 255, 0, 918000, 0, 918000), "25:00:00"},
        {bytes({3}), onLine("BYTE", "TIME_HM", 0, 255, 0, 2550, 0, 2550), "0:0.5:00"},
        {bytes({0}), onLine("BYTE", "TIME_HM", 0, 255, -60, 195, 0, 195), "-1:59:00"},
    });
}

TEST_F(ComposeTest, TimesAreLimitedInSeconds)
{
    auto coding = fiveMinutes("BYTE", "TIME_HM");
    coding.LL = 600;
    coding.HL = 86340 / 10;
    expectRows({{bytes({1}), coding, ""}, {bytes({2}), coding, "00:10:00"}, {bytes({29}), coding, ""}});
}

TEST_F(ComposeTest, WordsKnowNoTime)
{
    expectRows({{bytes({0, 1}), onLine("WORD_H", "TIME_HM", 0, 65535, 0, 65535, 0, 65535), "1"}});
}

TEST_F(ComposeTest, BitFieldsHaveNoLimits)
{
    auto outside = bits(2, 3);
    outside.LL = 5;
    outside.HL = 1;
    auto shifted = bits(0, 8);
    shifted.LW = 10;
    shifted.HW = 20;
    shifted.HR = 100;
    expectRows({
        {bytes({44}), bits(2, 3), "3"},
        {bytes({44}), outside, "3"},
        {bytes({0xFF}), bits(7, 1), "1"},
        {bytes({0x7F}), bits(7, 1), "0"},
        {bytes({0xA5}), bits(0, 8), "165"},
        {bytes({0xA5}), bits(4, 4), "10"},
        {bytes({0xFF}), bits(3, 0), "0"},
        {bytes({3}), shifted, "-70"},
    });
}

TEST_F(ComposeTest, Bcd)
{
    expectRows({
        {bytes({0x01, 0x23}), bcd(), "12.3"},
        {bytes({0xF1, 0x23}), bcd(), "-12.3"},
        {bytes({0x91, 0x23}), bcd(), "12.3"},
        {bytes({0xA1, 0x23}), bcd(), "-12.3"},
        {bytes({0x09, 0x00}), bcd(), "90"},
        {bytes({0x09, 0x01}), bcd(), ""},
        {bytes({0x00, 0x1F}), bcd(), "2.5"}, // a nibble above 9 counts with its value
        {bytes({0x00, 0x10}), onLine("BCD", "REAL", 0, 999, 0, 99.9, 5, 90), "1"}, // no low test
        {bytes({0x01, 0x23}), onLine("BCD", "REAL", 100, 1099, 0, 99.9, 0, 90), "2.3"},
        {bytes({0xFF, 0xFF}), bcd(), "-166.5"},
    });
}

TEST_F(ComposeTest, Words)
{
    expectRows({
        {bytes({0x34, 0x12}), word("WORD_L"), "466"},
        {bytes({0x12, 0x34}), word("WORD_H"), "466"},
        {bytes({0x34, 0x12}), word("INT_L"), "466"},
        {bytes({0x12, 0x34}), word("INT_H"), "466"},
        {bytes({0xFF, 0xFF}), word("WORD_L"), ""},
        {bytes({0xF6, 0xFF}), integer("INT_L"), ""},
        {bytes({0, 0}), onLine("WORD_L", "REAL", 0, 65535, 0, 65535, 1, 65535), ""},
        {bytes({0, 0}), onLine("WORD_L", "REAL", 0, 65535, 0, 65535, 0, 65535), "0"},
        {bytes({0xFF, 0xFF}), onLine("INT_H", "REAL", -32768, 32767, -32768, 32767, -32768, 70000), "65535"},
    });
}

TEST_F(ComposeTest, AnyOtherTypeIsEmpty)
{
    for (const char* type : {"STRING", "", "byte", "WORD", "BYTE "})
        expectRows({{bytes({1, 2}), tenths(type), ""}});
}

TEST_F(ComposeTest, TooFewBytesFail)
{
    const std::pair<QByteArray, ParameterCoding> rows[] = {
        {{}, tenths("BYTE")},
        {{}, signedByte()},
        {{}, bits(0, 1)},
        {{}, bcd()},
        {bytes({1}), bcd()},
        {bytes({1}), word("WORD_L")},
        {bytes({1}), word("WORD_H")},
        {{}, integer("INT_L")},
        {{}, integer("INT_H")},
    };
    for (const auto& [raw, coding] : rows) {
        EXPECT_EQ(Compose_EngVal(raw, coding), QString());
        recorder_.expectOne(errors::kInvalidCall, "Module/Compose_EngVal");
    }
}

TEST_F(ComposeTest, AScaleWithoutCountsFails)
{
    for (const char* type : {"BYTE", "S_BYTE", "BIT", "BCD", "WORD_L", "WORD_H", "INT_L", "INT_H"}) {
        EXPECT_EQ(Compose_EngVal(bytes({1, 2}), onLine(type, "REAL", 7, 7, 0, 10, 0, 10)), QString());
        recorder_.expectOne(errors::kDivisionByZero, "Module/Compose_EngVal");
    }
}

TEST_F(ComposeTest, ABitFieldBeyondItsByteFails)
{
    for (const auto& coding : {bits(6, 3), bits(8, 1), bits(-1, 1), bits(0, 9), bits(0, -1)}) {
        EXPECT_EQ(Compose_EngVal(bytes({1}), coding), QString());
        recorder_.expectOne(errors::kInvalidCall, "Module/Compose_EngVal");
    }
}

TEST_F(ComposeTest, AnyLineOfAnyWidthIsTakenInDoubles)
{
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    expectRows({
        {bytes({255}), onLine("BYTE", "REAL", least, most, 0, 4294967295.0, 0, 1e9), "255"},
        {bytes({0, 0}), onLine("WORD_L", "REAL", least, most, 0, 4294967295.0, 0, 1e10), "2147483648"},
        {bytes({0x10, 0x00}), onLine("BCD", "REAL", most, least, 0, 4294967295.0, 0, 1e10), "2147483647"},
    });
}

} // namespace
