#include "users/Login.h"

#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

namespace {

class LoginTest : public support::CompanyFixture
{
protected:
    void open()
    {
        ASSERT_TRUE(connectTo("Plant.mdb"));
        login.Load();
    }
    QStringList names()
    {
        QStringList names;
        for (const users::Login::Entry& entry : login.entries())
            names << entry.Name + '/' + entry.IDUser;
        return names;
    }
    int entryOf(const QString& IDUser)
    {
        for (int entry = 0; entry < int(login.entries().size()); ++entry) {
            if (login.entries()[std::size_t(entry)].IDUser == IDUser)
                return entry;
        }
        return -1;
    }
    void expectNobody()
    {
        EXPECT_EQ(session.CurrentUser.IDUser, "");
        EXPECT_EQ(session.CurrentUser.Name, "");
        EXPECT_FALSE(session::rightOf(session.CurrentUser.Modify));
    }

    QStringList ways;
    users::Login login{{session,
                        texts,
                        op,
                        {[this] { ways << "in as " + session.CurrentUser.Name; },
                         [this] {
                             ways << "disconnect";
                             database.Disconnect_Database();
                         },
                         [this] { ways << "lost"; }, [this] { ways << "end"; }}}};
};

TEST_F(LoginTest, OffersNobodyAndThenTheEnabledByName)
{
    open();
    EXPECT_EQ(names(), (QStringList{"/-1", "ADMINISTRATOR/0", "GUEST/2", "TECHNICIAN/1"}));
}

TEST_F(LoginTest, ReadsTheOperatorsAfreshEachTime)
{
    open();
    runOnPlant("UPDATE tbUsers SET State = 1 WHERE IDUser = '1'; "
               "INSERT INTO tbUsers (IDUser, Name) VALUES ('9', 'A''BAR')");
    login.Load();
    EXPECT_EQ(names(), (QStringList{"/-1", "A'BAR/9", "ADMINISTRATOR/0", "GUEST/2"}));
}

TEST_F(LoginTest, AnOperatorWithoutANameGoesByTheNumber)
{
    runOnPlant("INSERT INTO tbUsers (IDUser, Name) VALUES ('8', NULL), ('08', '')");
    open();
    EXPECT_EQ(names().mid(1, 2), (QStringList{"8/8", "08/08"}));
    EXPECT_TRUE(login.cmdConnect_Click(2, ""));
    EXPECT_EQ(session.CurrentUser.IDUser, "08");
}

TEST_F(LoginTest, TheCompanysNameIsCutToItsField)
{
    runOnPlant("DELETE FROM tbCompanySettings; INSERT INTO tbCompanySettings (Company) VALUES ('" +
               QString(45, 'X') + "')");
    open();
    EXPECT_EQ(login.company(), QString(40, 'X'));
}

TEST_F(LoginTest, LetsInWithEverythingOfTheRecord)
{
    runOnPlant("UPDATE tbUsers SET Phone = '1', Fax = '2', MobilePhone = '3', EMail = '4', UpgradeDb = 0, "
               "Settings = 5, "
               "EventViewer = 'True', ReadWrite = 'x' WHERE IDUser = '1'");
    open();
    EXPECT_TRUE(login.cmdConnect_Click(entryOf("1"), ""));
    const session::UserRecord& user = session.CurrentUser;
    EXPECT_EQ(user.IDUser, "1");
    EXPECT_EQ(user.Name, "TECHNICIAN");
    EXPECT_EQ(user.Phone + user.Fax + user.MobilePhone + user.EMail, "1234");
    EXPECT_EQ(user.UpgradeDb, "0");
    EXPECT_EQ(user.Settings, "5");
    EXPECT_EQ(user.Modify, "-1");
    EXPECT_EQ(user.EventViewer, "-1");
    EXPECT_EQ(user.ReadWrite, "0");
    EXPECT_EQ(ways, QStringList{"in as TECHNICIAN"});
    EXPECT_EQ(op.forms.last(), "unload frmLogInOut");
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(LoginTest, WhatIsNotKnownOfTheOperatorIsEmpty)
{
    open();
    EXPECT_TRUE(login.cmdConnect_Click(entryOf("0"), ""));
    const session::UserRecord& user = session.CurrentUser;
    EXPECT_TRUE(user.isAdministrator());
    EXPECT_EQ(user.Phone + user.Fax + user.MobilePhone + user.EMail, "");
    EXPECT_EQ(user.Modify, "0");
}

TEST_F(LoginTest, TheWholePasswordCountsWithItsCase)
{
    open();
    op.forms.clear();
    for (const char* wrong : {"", "secret", "SECRET", "Secre", "Secret ", "Secretx", "' OR '1'='1"}) {
        op.expect(texts(523));
        EXPECT_FALSE(login.cmdConnect_Click(entryOf("2"), wrong)) << wrong;
        expectNobody();
    }
    EXPECT_TRUE(op.forms.isEmpty()) << "the window stays";
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(op.boxes[0].title, "Calidora");
    EXPECT_TRUE(login.cmdConnect_Click(entryOf("2"), "Secret"));
    EXPECT_EQ(session.CurrentUser.Name, "GUEST");
}

TEST_F(LoginTest, NoPasswordIsMetByNothingOnly)
{
    open();
    op.expect(texts(523));
    EXPECT_FALSE(login.cmdConnect_Click(entryOf("1"), " "));
    EXPECT_TRUE(ways.isEmpty());
}

TEST_F(LoginTest, TheEmptyLineIsNobody)
{
    open();
    for (const int entry : {0, -1, 99}) {
        op.expect(texts(523));
        EXPECT_FALSE(login.cmdConnect_Click(entry, "")) << entry;
    }
    expectNobody();
}

TEST_F(LoginTest, WhoFailsIsOutAlsoWhenSomebodyWasIn)
{
    open();
    EXPECT_TRUE(login.cmdConnect_Click(entryOf("1"), ""));
    op.expect(texts(523));
    EXPECT_FALSE(login.cmdConnect_Click(entryOf("2"), "wrong"));
    expectNobody();
}

TEST_F(LoginTest, ACompanyWithoutOperatorsLetsNobodyIn)
{
    runOnPlant("DELETE FROM tbUsers");
    open();
    EXPECT_EQ(names(), QStringList{"/-1"});
    EXPECT_FALSE(login.SearchUser("0", ""));
}

TEST_F(LoginTest, DisconnectClosesTheCompanyAndSaysSoWhereThereIsNone)
{
    open();
    login.cmdDisconnect_Click();
    EXPECT_EQ(ways, (QStringList{"disconnect", "lost"}));
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(op.forms.last(), "unload frmLogInOut");
    ways.clear();
    op.forms.clear();
    op.expect(texts(504));
    login.cmdDisconnect_Click();
    EXPECT_TRUE(ways.isEmpty() && op.forms.isEmpty());
}

TEST_F(LoginTest, ExitEndsTheProgramWithoutAQuestion)
{
    open();
    login.cmdExit_Click();
    EXPECT_EQ(ways, QStringList{"end"});
    EXPECT_EQ(op.forms.last(), "unload frmLogInOut");
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(session.DbName, "Plant.mdb");
}

TEST_F(LoginTest, AFailureStandsUnderItsProceduresName)
{
    open();
    session.cnDatabase.Execute("DROP TABLE tbUsers");
    login.Load();
    failures.expectUnder("frmLogInOut.Load");
    EXPECT_EQ(names(), QStringList{"/-1"});
    session.rsUsers.Close();
    session.rsUsers.Open("SELECT '2' AS IDUser", session.cnDatabase);
    EXPECT_FALSE(login.SearchUser("2", ""));
    failures.expectUnder("frmLogInOut/SearchUser");
    users::Login failing(
        {session, texts, op, {support::breakDown, support::breakDown, {}, support::breakDown}});
    failing.cmdDisconnect_Click();
    failures.expectUnder("frmLogInOut.cmdDisconnect_Click");
    failing.cmdExit_Click();
    failures.expectUnder("frmLogInOut.cmdExit_Click");
    session.Language = session::LanguageSettings::fromIdentifier(support::kNoLanguage);
    failing.cmdConnect_Click(0, "");
    failures.expectUnder("frmLogInOut.cmdConnect_Click");
}

} // namespace
