#include "values/Cyrillic.h"

#include "platform/CodePage.h"

#include <gtest/gtest.h>
#include <set>

using namespace values;

namespace {

uchar out(int code)
{
    return static_cast<uchar>(Translate_RUChrOut(QByteArray(1, static_cast<char>(code)))[0]);
}

uchar in(int code)
{
    return static_cast<uchar>(Translate_RUChrIn(QByteArray(1, static_cast<char>(code)))[0]);
}

QByteArray page1251(const char16_t* text)
{
    return platform::encode(QString::fromUtf16(text), 1251);
}

TEST(CyrillicTest, TheTablesHaveTheirEntries)
{
    int outEntries = 0, inEntries = 0, inLowerHalf = 0;
    for (int code = 128; code < 256; ++code) {
        outEntries += out(code) != '!';
        inEntries += in(code) != '!';
    }
    for (int code = 0; code < 128; ++code)
        inLowerHalf += in(code) != code;
    EXPECT_EQ(outEntries, 66);
    EXPECT_EQ(inEntries, 47);
    EXPECT_EQ(inLowerHalf, 30);
}

TEST(CyrillicTest, LettersGoOutUnderTheInstrumentsCodes)
{
    const struct
    {
        const char16_t* letters;
        std::vector<int> codes;
    } rows[] = {
        {u"\u0401\u0451", {162, 181}},
        {u"\u0410\u0411\u0412\u0413\u0414\u0415", {65, 160, 66, 161, 224, 69}},
        {u"\u0426\u0429\u0434\u0444\u0446\u0449", {225, 226, 227, 228, 229, 230}},
        {u"\u042C\u042D\u042E\u042F", {98, 175, 176, 177}},
        {u"\u044C\u044D\u044E\u044F", {196, 197, 198, 199}},
        {u"\u0443\u0445\u0440\u0441", {121, 120, 112, 99}},
    };
    for (const auto& row : rows) {
        const QByteArray translated = Translate_RUChrOut(page1251(row.letters));
        ASSERT_EQ(size_t(translated.size()), row.codes.size());
        for (size_t i = 0; i < row.codes.size(); ++i)
            EXPECT_EQ(static_cast<uchar>(translated[int(i)]), row.codes[i]);
    }
}

TEST(CyrillicTest, TheInTableIsTheOutTableReadBackwards)
{
    for (int code = 128; code < 256; ++code) {
        if (in(code) != '!') {
            EXPECT_EQ(out(in(code)), code);
        }
    }
}

TEST(CyrillicTest, EveryLetterReturnsAsItselfButTheSoftSign)
{
    std::set<int> strangers;
    for (int code = 128; code < 256; ++code) {
        if (out(code) != '!' && in(out(code)) != code)
            strangers.insert(code);
    }
    EXPECT_EQ(strangers, std::set<int>{220});
    EXPECT_EQ(out(220), 98);
    EXPECT_EQ(in(98), 226);
}

TEST(CyrillicTest, LatinLettersComeInAsTheirLookAlikes)
{
    EXPECT_EQ(Translate_RUChrIn("ABC"), QByteArray("\xC0\xC2\xD1"));
    EXPECT_EQ(Translate_RUChrOut("\xC0\xC2\xD1"), "ABC");
    EXPECT_EQ(Translate_RUChrIn("MTXmtxkpy"),
              page1251(u"\u041C\u0422\u0425\u043C\u0442\u0445\u043A\u0440\u0443"));
}

TEST(CyrillicTest, SixLatinLettersHaveNoWayBack)
{
    const QByteArray shown = Translate_RUChrIn("IJSijs");
    EXPECT_EQ(shown, page1251(u"\u0406\u0408\u0405\u0456\u0458\u0455"));
    EXPECT_EQ(Translate_RUChrOut(shown), "!!!!!!");
}

// Four small letters have codes of their own in the upper half and share none with the Latin look-alike.
TEST(CyrillicTest, SmallLettersThatLookLatinComeBackFromTheirOwnCodes)
{
    EXPECT_EQ(Translate_RUChrIn("hkmt"), page1251(u"\u043D\u043A\u043C\u0442"));
    EXPECT_EQ(Translate_RUChrOut(page1251(u"\u043D\u043A\u043C\u0442")), QByteArray("\xBD\xBA\xBC\xBF"));
}

TEST(CyrillicTest, TheRestOfTheLowerHalfIsCopiedBothWays)
{
    for (int code = 0; code < 128; ++code) {
        EXPECT_EQ(out(code), code);
        if (code < 'A') {
            EXPECT_EQ(in(code), code);
        }
    }
    EXPECT_EQ(Translate_RUChrIn("12.5 -+/()%"), "12.5 -+/()%");
    EXPECT_EQ(Translate_RUChrIn("DFGLNQRUVWZ"), "DFGLNQRUVWZ");
}

TEST(CyrillicTest, TheLengthStays)
{
    const QByteArray bytes("\0A\xA0\xFF ", 5);
    EXPECT_EQ(Translate_RUChrIn(bytes), QByteArray("\0\xC0\xC1! ", 5));
    EXPECT_EQ(Translate_RUChrOut(QByteArray("\0A\xA0\xFF ", 5)), QByteArray("\0A!\xC7 ", 5));
    EXPECT_EQ(Translate_RUChrIn({}), QByteArray());
}

} // namespace
