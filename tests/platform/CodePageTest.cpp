#include "platform/CodePage.h"

#include <QStringDecoder>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QByteArray everyByte()
{
    QByteArray bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

class EveryPage : public testing::TestWithParam<int>
{
};

TEST_P(EveryPage, TakesEveryByteThereAndBack)
{
    const QString text = decode(everyByte(), GetParam());
    EXPECT_EQ(text.size(), 256);
    EXPECT_EQ(encode(text, GetParam()), everyByte());
}

TEST_P(EveryPage, KeepsAscii)
{
    const QByteArray ascii = everyByte().first(128);
    EXPECT_EQ(decode(ascii, GetParam()), QString::fromLatin1(ascii));
}

bool isStandIn(const QString& text)
{
    return text.isEmpty() || text[0] == QChar::ReplacementCharacter ||
           text[0].category() == QChar::Other_PrivateUse;
}

// The desktop's own converter is the independent source, where it knows the page and both know the byte.
TEST_P(EveryPage, AgreesWithTheDesktopsConverter)
{
    const QByteArray name = "windows-" + QByteArray::number(GetParam());
    if (!QStringDecoder(name.constData()).isValid())
        GTEST_SKIP() << "no converter for " << name.constData();
    int compared = 0;
    for (const char byte : everyByte()) {
        QStringDecoder decoder(name.constData());
        const QString expected = decoder(QByteArray(1, byte));
        const QString decoded = decode(QByteArray(1, byte), GetParam());
        if (isStandIn(expected) || isStandIn(decoded))
            continue;
        EXPECT_EQ(decoded, expected) << int(static_cast<uchar>(byte));
        ++compared;
    }
    EXPECT_GT(compared, 240);
}

TEST_P(EveryPage, GivesAQuestionMarkForWhatItLacks)
{
    EXPECT_EQ(encode(QStringLiteral("a\u4E2Db"), GetParam()), "a?b");
}

INSTANTIATE_TEST_SUITE_P(CodePage, EveryPage,
                         testing::Values(874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258));

TEST(CodePageTest, KnowsTheLettersOfThePages)
{
    EXPECT_EQ(encode(QStringLiteral("\u0416"), 1251), "\xC6");
    EXPECT_EQ(decode("\xA8\xB8", 1251), QStringLiteral("\u0401\u0451"));
    EXPECT_EQ(encode(QStringLiteral("\u20AC"), 1252), "\x80");
    EXPECT_EQ(encode(QStringLiteral("\u20AC"), 1251), "\x88");
    EXPECT_EQ(encode(QStringLiteral("\u0416"), 1252), "?");
    EXPECT_EQ(encode(QStringLiteral("\u00B0C"), 1252), "\xB0"
                                                       "C");
}

TEST(CodePageTest, ACharacterOfTwoHalvesIsOneQuestionMark)
{
    EXPECT_EQ(encode(QStringLiteral("a\U0001F600b"), 1252), "a?b");
    EXPECT_EQ(encode(QString(QChar(0xD83D)), 1252), "?");
}

TEST(CodePageTest, AByteWithoutACharacterStaysItself)
{
    EXPECT_EQ(decode("\x98", 1251), QString(QChar(0x98)));
    EXPECT_EQ(decode("\xFF", 1253), QString(QChar(0xF7FF)));
}

TEST(CodePageTest, EmptyStaysEmpty)
{
    EXPECT_TRUE(encode(QString(), 1252).isEmpty());
    EXPECT_TRUE(decode(QByteArray(), 1252).isEmpty());
}

TEST(CodePageTest, AnUnknownPageCountsAs1252)
{
    EXPECT_EQ(encode(QStringLiteral("\u20AC"), 932), "\x80");
}

struct CharsetRow
{
    int charset;
    int page;
};

TEST(CodePageTest, TheCharacterSetGivesThePage)
{
    const CharsetRow rows[] = {{204, 1251}, {238, 1250}, {161, 1253}, {162, 1254}, {177, 1255}, {178, 1256},
                               {222, 874},  {0, 1252},   {128, 1252}, {129, 1252}, {134, 1252}, {136, 1252}};
    for (const auto& row : rows)
        EXPECT_EQ(codePageOf(row.charset), row.page) << row.charset;
}

} // namespace
