#include "session/Texts.h"

#include "platform/RuntimeError.h"
#include "session/Session.h"
#include "support/ApplicationFolder.h"
#include "support/Throws.h"

using namespace session;
using support::errorOf;

namespace {

class TextsTest : public testing::Test
{
protected:
    LanguageSettings language_;
    Texts texts_{language_};
};

TEST_F(TextsTest, FollowsTheLanguageAtEachFetch)
{
    const QString italian = texts_(524);
    language_ = LanguageSettings::fromIdentifier("EN_English_2000");
    EXPECT_EQ(texts_(524), "Do you really want to exit the application?");
    EXPECT_EQ(texts_(580), "Attention! You can not have more istances for this application.");
    language_ = LanguageSettings::fromIdentifier("RU_Russian_6000");
    EXPECT_NE(texts_(524), italian);
    language_ = LanguageSettings::fromIdentifier("IT_Italiano_1000");
    EXPECT_EQ(texts_(524), italian);
}

TEST_F(TextsTest, TheBaseIsANumber)
{
    language_ = LanguageSettings::fromIdentifier("EN_English_02000");
    EXPECT_EQ(texts_(13), "OK");
}

TEST_F(TextsTest, AnOffsetWithoutARowFails)
{
    for (int offset : {-1, 292, 499, 586, 1000})
        EXPECT_EQ(errorOf([&] { texts_(offset); }), platform::errors::kOutOfRange) << offset;
}

TEST_F(TextsTest, ABaseWithoutABlockFailsAtEachFetch)
{
    for (const char* identifier :
         {"FR_Français_3000", "IT_Italiano_", "IT_Italiano_abc", "IT_Italiano_1001"}) {
        language_ = LanguageSettings::fromIdentifier(identifier);
        EXPECT_EQ(errorOf([&] { texts_(13); }), platform::errors::kOutOfRange) << identifier;
        EXPECT_NE(errorOf([&] { texts_(13); }), 0) << identifier;
        EXPECT_EQ(texts_.own("common.ok"), "OK") << "the button under the box that tells it";
    }
}

TEST_F(TextsTest, TheLanguageListEndsAtItsMark)
{
    QStringList offered;
    for (int id = 1; texts_.common(id) != "End_Language"; ++id)
        offered << texts_.common(id);
    EXPECT_EQ(offered, QStringList({"IT_Italiano_1000", "EN_English_2000", "RU_Russian_6000"}));
    EXPECT_EQ(texts_.common(10), "FR_Français_3000");
    EXPECT_NE(errorOf([&] { texts_.common(5); }), 0);
}

TEST_F(TextsTest, OwnTextsHaveNames)
{
    language_ = LanguageSettings::fromIdentifier("EN_English_2000");
    EXPECT_EQ(texts_.own("common.yes"), "Yes");
    EXPECT_NE(errorOf([&] { texts_.own("no.such.text"); }), 0);
}

TEST(TextBlockTest, ReadsKeyAndTheTextBetweenTheOuterQuotes)
{
    const support::ApplicationFolder folder;
    folder.write("block.txt", "# remark\n\n1 \"a\"\n2 \" b \"\"c\" \"\nkey.x \"\"\n");
    const TextBlock block = TextBlock::fromFile(folder.file("block.txt"));
    EXPECT_EQ(block["1"], "a");
    EXPECT_EQ(block["2"], " b \"\"c\" ");
    EXPECT_EQ(block["key.x"], "");
    EXPECT_FALSE(block.contains("3"));
}

TEST(TextBlockTest, AMalformedRowFailsWithItsPlace)
{
    const support::ApplicationFolder folder;
    for (const char* bytes : {"1 a", "1 \"a", "\"a\"", "1 \"a\" b", "1 \"a\"\n1 \"b\""}) {
        folder.write("block.txt", bytes);
        EXPECT_NE(errorOf([&] { TextBlock::fromFile(folder.file("block.txt")); }), 0) << bytes;
    }
    EXPECT_EQ(errorOf([&] { TextBlock::fromFile(folder.file("none.txt")); }),
              platform::errors::kFileNotFound);
}

} // namespace
