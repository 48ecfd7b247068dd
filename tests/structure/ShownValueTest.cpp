#include "structure/ShownValue.h"

#include "support/CompanyFixture.h"

namespace {

class ShownValueTest : public support::CompanyFixture
{
protected:
    ShownValueTest() { connectPlant(); }

    QString shown(const QString& IDPar, const std::optional<QString>& value)
    {
        return structure::shownValue(session, IDPar, value);
    }
};

TEST_F(ShownValueTest, IsWhatTheListShows)
{
    EXPECT_EQ(shown("P1101", "20.5"), "20.5 °C");
    EXPECT_EQ(shown("P0201", "1"), "On");
    EXPECT_EQ(shown("P0204", "O'HARA"), "O'HARA");
}

TEST_F(ShownValueTest, WithoutWordsItIsAsItIsStored)
{
    EXPECT_EQ(shown("P0201", "77"), "77");
    EXPECT_EQ(shown("P0201", "x"), "x");
    EXPECT_EQ(shown("nowhere", "5"), "5");
    const std::pair<const char*, const char*> kNothing[] = {
        {"P1101", "--"}, {"P0201", ""}, {"P0204", ""}, {"nowhere", ""}};
    for (const auto& [IDPar, words] : kNothing) {
        EXPECT_EQ(shown(IDPar, std::nullopt), words) << IDPar;
        EXPECT_EQ(shown(IDPar, ""), words) << IDPar;
    }
}

TEST_F(ShownValueTest, OnlyAChoiceHasWords)
{
    const auto words = [&](const char* IDPar, const char* value) {
        return structure::choiceWords(session, IDPar, value);
    };
    EXPECT_EQ(words("P0201", "1"), "On");
    EXPECT_EQ(words("P0201", "0"), "Off");
    EXPECT_EQ(words("P0201", "77"), "");
    EXPECT_EQ(words("P0201", "x"), "");
    EXPECT_EQ(words("P1101", "1"), "");
    EXPECT_EQ(words("nowhere", "1"), "");
}

TEST_F(ShownValueTest, AParameterIsCalledAsTheCatalogueSays)
{
    EXPECT_EQ(structure::parameterName(session, "P0201", "otherwise"), "EN MOD");
    EXPECT_EQ(structure::parameterName(session, "nowhere", "otherwise"), "otherwise");
}

TEST_F(ShownValueTest, NothingIsRaisedWhereTheCatalogueCantBeRead)
{
    database.Disconnect_Database();
    EXPECT_EQ(shown("P1101", "20.5"), "20.5");
    EXPECT_EQ(structure::choiceWords(session, "P0201", "1"), "");
    EXPECT_EQ(structure::parameterName(session, "P0201", "otherwise"), "otherwise");
}

} // namespace
