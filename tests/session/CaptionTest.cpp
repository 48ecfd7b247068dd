#include "session/Caption.h"

#include "session/Session.h"
#include "session/Texts.h"

#include <gtest/gtest.h>

namespace {

TEST(Caption, TellsTheCompanyAndWhoWorksWithIt)
{
    session::Session session;
    session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
    const session::Texts texts(session.Language);
    EXPECT_EQ(session::mainCaption(session, texts), "Calidora");
    session.DbName = "Plant.mdb";
    EXPECT_EQ(session::mainCaption(session, texts), "Calidora - Database: Plant.mdb");
    session.CurrentUser.IDUser = "1";
    session.CurrentUser.Name = "O'HARA";
    EXPECT_EQ(session::mainCaption(session, texts), "Calidora - Database: Plant.mdb - User: O'HARA");
    session.DbName.clear();
    EXPECT_EQ(session::mainCaption(session, texts), "Calidora");
}

} // namespace
