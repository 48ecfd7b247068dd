#include "values/StringValue.h"

#include "support/FailureRecorder.h"

#include <gtest/gtest.h>

using namespace values;

namespace {

class StringValueTest : public testing::Test
{
protected:
    ~StringValueTest() override { recorder_.expectNone(); }

    support::FailureRecorder recorder_;
};

TEST_F(StringValueTest, InRussianTheInstrumentsSetIsTranslated)
{
    EXPECT_EQ(decodeString("ABC  ", "RU", 1252), QString::fromUtf16(u"\u0410\u0412\u0421"));
    EXPECT_EQ(encodeString(QString::fromUtf16(u"\u0410\u0412\u0421"), "RU", 1252, 5), "ABC  ");
    EXPECT_EQ(decodeString("\xA0\xE0", "RU", 1252), QString::fromUtf16(u"\u0411\u0414"));
    EXPECT_EQ(encodeString(QString::fromUtf16(u"\u0411\u0414"), "RU", 1252, 2), "\xA0\xE0");
}

TEST_F(StringValueTest, InTheOtherLanguagesTheBytesStay)
{
    for (const char* language : {"IT", "EN", "", "ru"}) {
        EXPECT_EQ(decodeString("\xA0", language, 1252), QString(QChar(160)));
        EXPECT_EQ(decodeString("ABC ", language, 1252), "ABC");
        EXPECT_EQ(encodeString(QString(QChar(160)), language, 1252, 1), "\xA0");
    }
    EXPECT_EQ(decodeString("\xC6", "EN", 1251), QString::fromUtf16(u"\u0416"));
    EXPECT_EQ(encodeString(QString::fromUtf16(u"\u0416"), "EN", 1251, 2), "\xC6 ");
}

TEST_F(StringValueTest, OnlyTrailingBlanksArePadding)
{
    EXPECT_EQ(decodeString("  A B  ", "EN", 1252), "  A B");
    EXPECT_EQ(decodeString("    ", "EN", 1252), "");
    EXPECT_EQ(decodeString("    ", "RU", 1252), "");
    EXPECT_EQ(decodeString("A\t ", "EN", 1252), "A\t");
    EXPECT_EQ(decodeString(QByteArray("A \0", 3), "EN", 1252), QString::fromLatin1("A \0", 3));
    EXPECT_EQ(decodeString({}, "EN", 1252), "");
}

TEST_F(StringValueTest, NullIsAllBlanks)
{
    EXPECT_EQ(encodeString(std::nullopt, "RU", 1252, 4), "    ");
    EXPECT_EQ(encodeString(std::nullopt, "EN", 1252, 4), "    ");
    EXPECT_EQ(encodeString(QString(""), "EN", 1252, 2), "  ");
}

TEST_F(StringValueTest, WhatThePageLacksIsAQuestionMark)
{
    EXPECT_EQ(encodeString(QString::fromUtf16(u"A\u4E2D"), "EN", 1252, 3), "A? ");
    EXPECT_EQ(encodeString(QString::fromUtf16(u"\u4E2D"), "RU", 1252, 1), "?");
}

TEST_F(StringValueTest, ATextBeyondItsSizeFails)
{
    EXPECT_EQ(encodeString(QString("ABCDE"), "EN", 1252, 4), QByteArray());
    recorder_.expectOne(platform::errors::kInvalidCall, "Module/Compose_Str");
}

} // namespace
