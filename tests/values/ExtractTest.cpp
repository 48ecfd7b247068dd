#include "CodingRows.h"

#include "support/FailureRecorder.h"

#include <gtest/gtest.h>

using namespace values;
namespace errors = platform::errors;

namespace {

class ExtractTest : public testing::Test
{
protected:
    ~ExtractTest() override { recorder_.expectNone(); }

    support::FailureRecorder recorder_;
};

struct Row
{
    const char* value;
    ParameterCoding coding;
    QByteArray raw;
};

void expectRows(std::initializer_list<Row> rows)
{
    for (const auto& row : rows)
        EXPECT_EQ(Extract_EngVal(row.value, row.coding).toHex(' '), row.raw.toHex(' '))
            << row.coding.Type.toStdString() << ' ' << row.value;
}

TEST_F(ExtractTest, Bytes)
{
    const auto ones = onLine("BYTE", "REAL", 0, 255, 0, 255, 0, 255);
    expectRows({
        {"12.3", tenths("BYTE"), bytes({123})},
        {"12,3", tenths("BYTE"), bytes({123})},
        {"0", tenths("BYTE"), bytes({0})},
        {"25.5", tenths("BYTE"), bytes({255})}, // the limits of the value bound the operator, not the frame
        {"2.5", ones, bytes({2})},              // halves to the even neighbour
        {"3.5", ones, bytes({4})},
        {"-0.5", ones, bytes({0})},
        {"255.5", onLine("BYTE", "REAL", 0, 255, 0, 255.25, 0, 255), bytes({255})},
        {"3", onLine("BYTE", "ENUM", 0, 255, 0, 255, 0, 9), bytes({3})},
        {"5", onLine("BYTE", "REAL", 7, 7, 0, 10, 0, 10), bytes({7})}, // no counts: the low end
    });
}

TEST_F(ExtractTest, TimesOfOneByte)
{
    expectRows({
        {"02:30:00", fiveMinutes("BYTE", "TIME_HM"), bytes({30})},
        {"21:15:00", fiveMinutes("BYTE", "TIME_HM"), bytes({255})},
        {"00:00:00", fiveMinutes("BYTE", "TIME_HM"), bytes({0})},
        {"02:34:59", fiveMinutes("BYTE", "TIME_HM"), bytes({30})}, // cut, not rounded
        {"-1:59:00", onLine("BYTE", "TIME_HM", 0, 255, -60, 195, 0, 195), bytes({0})},
        {"02:30:00", fiveMinutes("BYTE", "TIME_H"), {}},
        {"02:30:00", fiveMinutes("BYTE", "TIME_HMS"), {}},
    });
}

TEST_F(ExtractTest, AnUnknownValueIsAllOnes)
{
    expectRows({
        {"", tenths("BYTE"), bytes({255})},
        {"", fiveMinutes("BYTE", "TIME_H"), bytes({255})},
        {"", fiveMinutes("BYTE", "TIME_HM"), bytes({255})},
        {"", fiveMinutes("BYTE", "TIME_HMS"), bytes({255})},
        {"", word("WORD_L"), bytes({255, 255})},
        {"", word("WORD_H"), bytes({255, 255})},
    });
}

TEST_F(ExtractTest, Words)
{
    const auto ones = [](const char* type) { return onLine(type, "REAL", 0, 65535, 0, 65535, 0, 65535); };
    expectRows({
        {"466", word("WORD_L"), bytes({0x34, 0x12})},
        {"466", word("WORD_H"), bytes({0x12, 0x34})},
        {"0", word("WORD_H"), bytes({0, 0})},
        {"6553.5", word("WORD_L"), bytes({0xFF, 0xFF})},
        {"256.5", ones("WORD_L"), bytes({0, 1})},
        {"257.5", ones("WORD_H"), bytes({1, 2})},
    });
}

TEST_F(ExtractTest, TheOtherTypesHaveNoEncoder)
{
    for (const char* type : {"BCD", "S_BYTE", "BIT", "INT_L", "INT_H", "STRING", "", "byte"})
        for (const char* value : {"1", "", "no number"})
            expectRows({{value, tenths(type), {}}});
}

struct FailureRow
{
    const char* value;
    ParameterCoding coding;
    int error;
};

TEST_F(ExtractTest, WhatCannotBeEncodedFailsWithoutBytes)
{
    const auto ones = onLine("BYTE", "REAL", 0, 255, 0, 255, 0, 255);
    const auto words = onLine("WORD_L", "REAL", 0, 65535, 0, 65535, 0, 65535);
    const FailureRow rows[] = {
        {"256", ones, errors::kInvalidCall},
        {"255.5", ones, errors::kInvalidCall},
        {"-1", ones, errors::kInvalidCall},
        {"1E+12", ones, errors::kOverflow},
        {"65536", words, errors::kInvalidCall},
        {"-1", words, errors::kInvalidCall},
        {"255.5", words, errors::kInvalidCall}, // the low byte rounds to 256, without a carry
        {"abc", ones, errors::kTypeMismatch},
        {"--", words, errors::kTypeMismatch},
        {"5", onLine("BYTE", "REAL", 0, 255, 10, 10, 0, 25), errors::kDivisionByZero},
        {"10", onLine("BYTE", "REAL", 0, 255, 10, 10, 0, 25), errors::kDivisionByZero},
        {"5", onLine("WORD_H", "REAL", 0, 255, 10, 10, 0, 25), errors::kDivisionByZero},
        {"25:0:00", fiveMinutes("BYTE", "TIME_HM"), errors::kTypeMismatch},
        {"2:30:00", fiveMinutes("BYTE", "TIME_HM"), errors::kTypeMismatch},
        {"02", fiveMinutes("BYTE", "TIME_HM"), errors::kTypeMismatch},
        {"23:00:00", fiveMinutes("BYTE", "TIME_HM"), errors::kInvalidCall},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Extract_EngVal(row.value, row.coding), QByteArray()) << row.value;
        recorder_.expectOne(row.error, "Module/Extract_EngVal");
    }
}

struct Line
{
    int LW, HW;
    double LR, HR;
};

TEST_F(ExtractTest, WritesTheByteThatWasRead)
{
    const Line lines[] = {
        {0, 255, 0, 25.5}, {0, 255, -40, 215}, {0, 200, -10, 10}, {0, 255, 100, 0}, {0, 7, 0, 1}};
    for (const auto& line : lines) {
        for (int code = 0; code < 256; ++code) {
            const auto coding = onLine("BYTE", "REAL", line.LW, line.HW, line.LR, line.HR, 0, 1e9);
            EXPECT_EQ(Extract_EngVal(Compose_EngVal(bytes({code}), coding), coding), bytes({code}));
        }
    }
}

TEST_F(ExtractTest, WritesTheWordThatWasRead)
{
    const Line lines[] = {
        {0, 65535, 0, 6553.5}, {0, 65535, 0, 65535}, {0, 65535, -3276.8, 3276.7}, {0, 10, 0, 1}};
    for (const auto& line : lines) {
        for (const char* type : {"WORD_L", "WORD_H"}) {
            const auto coding = onLine(type, "REAL", line.LW, line.HW, line.LR, line.HR, 0, 1e9);
            for (int word = 0; word < 65536; ++word) {
                const QByteArray raw = bytes({word & 255, word >> 8});
                ASSERT_EQ(Extract_EngVal(Compose_EngVal(raw, coding), coding), raw);
            }
        }
    }
}

// On a line whose steps have no short decimals a word may come back a hair below its own count. Where that
// count is a multiple of 256 the high byte then loses one and the low byte rounds to 256, which is no byte.
TEST_F(ExtractTest, AWordAHairBelowAMultipleOf256Fails)
{
    const auto coding = onLine("WORD_H", "REAL", 0, 65535, -1, 1, 0, 1);
    const QString value = Compose_EngVal(bytes({2, 0}), coding);
    EXPECT_EQ(value, "-0.984374761577783");
    EXPECT_EQ(Extract_EngVal(value, coding), QByteArray());
    recorder_.expectOne(errors::kInvalidCall, "Module/Extract_EngVal");
}

TEST_F(ExtractTest, EveryWholeMinuteOfADayGoesThereAndBack)
{
    for (int code = 0; code < 240; ++code) {
        const auto coding = onLine("BYTE", "TIME_HM", 0, 240, 0, 86400, 0, 86399);
        EXPECT_EQ(Extract_EngVal(Compose_EngVal(bytes({code}), coding), coding), bytes({code}));
    }
}

TEST_F(ExtractTest, TextsArePaddedWithBlanks)
{
    EXPECT_EQ(Compose_Str("", 4), "    ");
    EXPECT_EQ(Compose_Str("ABCD", 4), "ABCD");
    EXPECT_EQ(Compose_Str("AB", 4), "AB  ");
    EXPECT_EQ(Compose_Str("", 0), "");
    EXPECT_EQ(Compose_Str(QByteArray("A\0B", 3), 4), QByteArray("A\0B ", 4));
}

TEST_F(ExtractTest, ATextBeyondItsSizeFails)
{
    EXPECT_EQ(Compose_Str("ABCDE", 4), QByteArray());
    recorder_.expectOne(errors::kInvalidCall, "Module/Compose_Str");
    EXPECT_EQ(Compose_Str("", -1), QByteArray());
    recorder_.expectOne(errors::kInvalidCall, "Module/Compose_Str");
}

} // namespace
