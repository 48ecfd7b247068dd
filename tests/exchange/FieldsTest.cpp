#include "exchange/Fields.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace {

using exchange::fixedField;
using exchange::pageField;
using exchange::quotedField;
using exchange::trimmedField;

constexpr int kLatin = 1252;
constexpr int kCyrillic = 1251;

TEST(Fields, WidthsCountCharacters)
{
    EXPECT_EQ(fixedField("abc", 5, kLatin), "abc  ");
    EXPECT_EQ(fixedField("abcde", 5, kLatin), "abcde");
    EXPECT_EQ(fixedField("abcdef", 5, kLatin), "abcde");
    EXPECT_EQ(fixedField(QString(), 2, kLatin), "  ");
    EXPECT_EQ(fixedField("Жук", 4, kCyrillic), "\xC6\xF3\xEA ");
    EXPECT_EQ(fixedField("°C", 3, kLatin), "\xB0"
                                           "C ");
}

TEST(Fields, ACharacterThatThePageLacksIsOneQuestionMark)
{
    EXPECT_EQ(pageField("Ж", kLatin), "?");
    EXPECT_EQ(fixedField("a😀b", 4, kLatin), "a?b ");
}

TEST(Fields, AControlCharacterIsABlank)
{
    EXPECT_EQ(pageField("a\r\nb\tc", kLatin), "a  b c");
    EXPECT_EQ(pageField(QString("a") + QChar(0) + QChar(0x7F) + "b", kLatin), "a  b");
    EXPECT_EQ(pageField(QString("a") + QChar(0x85) + "Ж😀", kLatin), "a ??");
    EXPECT_EQ(pageField("?", kLatin), "?");
}

TEST(Fields, AByteThatThePageLeavesUndefinedGoesBackAsItCame)
{
    EXPECT_EQ(pageField(QString("a") + QChar(0x98) + "Ж", kCyrillic), "a\x98\xC6");
}

TEST(Fields, CommasKeepTheBlanksInFrontAndLoseThoseBehind)
{
    EXPECT_EQ(trimmedField("  a b  ", kLatin), "  a b");
    EXPECT_EQ(trimmedField("   ", kLatin), "");
    EXPECT_EQ(trimmedField("a\t", kLatin), "a");
}

TEST(Fields, ASpreadsheetsFieldIsQuotedWhereItMustBe)
{
    EXPECT_EQ(quotedField("plain text"), "plain text");
    EXPECT_EQ(quotedField("a,b"), "\"a,b\"");
    EXPECT_EQ(quotedField("say \"a\""), "\"say \"\"a\"\"\"");
    EXPECT_EQ(quotedField(" a"), "\" a\"");
    EXPECT_EQ(quotedField("a "), "\"a \"");
    EXPECT_EQ(quotedField("a\nb"), "a b");
    EXPECT_EQ(quotedField("Ж"), "\xD0\x96");
    EXPECT_EQ(quotedField(QString()), "");
}

} // namespace
