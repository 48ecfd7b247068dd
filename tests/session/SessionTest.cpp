#include "session/Session.h"

#include "support/Throws.h"

using namespace session;
using support::errorOf;

namespace {

TEST(LanguageSettingsTest, AnIdentifierIsSplitByPositionThenAtTheNextLine)
{
    const auto russian = LanguageSettings::fromIdentifier("RU_Russian_6000");
    EXPECT_EQ(russian.Code, "RU");
    EXPECT_EQ(russian.Name, "Russian");
    EXPECT_EQ(russian.Base, "6000");
    EXPECT_EQ(russian.ID, "RU_Russian_6000");

    const auto odd = LanguageSettings::fromIdentifier("ENx_a_1_2");
    EXPECT_EQ(odd.Code, "EN");
    EXPECT_EQ(odd.Name, "");
    EXPECT_EQ(odd.Base, "a_1_2");
}

TEST(LanguageSettingsTest, AnIdentifierWithoutItsSecondLineFails)
{
    for (const char* identifier : {"", "I", "IT", "IT_", "IT_Italiano", "Italiano"})
        EXPECT_NE(errorOf([=] { LanguageSettings::fromIdentifier(identifier); }), 0) << identifier;
}

TEST(RightTest, ANumberButZeroAndTrueGiveTheRight)
{
    for (const char* given : {"-1", "1", "True", "true", "2.5"})
        EXPECT_TRUE(rightOf(given)) << given;
    for (const char* refused : {"", "0", "0.0", "False", "yes"})
        EXPECT_FALSE(rightOf(refused)) << refused;
}

TEST(SessionTest, StartsInItalianWithNoCompany)
{
    const Session session;
    EXPECT_EQ(session.AppTitle, "Calidora");
    EXPECT_EQ(session.ExeName, "Calidora");
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(session.Language.ID, "IT_Italiano_1000");
    EXPECT_FALSE(session.CurrentUser.isAdministrator());
}

TEST(SessionTest, PathsLieBelowTheirFolders)
{
    Session session;
    session.AppPath = "/opt/calidora";
    session.DbPath = "/srv/firms";
    session.DbName = "Alfa.mdb";
    EXPECT_EQ(session.appFile("Log/a.log"), "/opt/calidora/Log/a.log");
    EXPECT_EQ(session.dbFile(), "/srv/firms/Alfa.mdb");
}

} // namespace
