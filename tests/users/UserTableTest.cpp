#include "users/UserTable.h"

#include "support/CompanyFixture.h"

namespace {

class UserTableTest : public support::CompanyFixture
{
protected:
    QStringList users() const
    {
        return support::column(plantFile(),
                               "SELECT IDUser || ' ' || Name || ' ' || State || ' ' || "
                               "coalesce(Password, 'none') || UpgradeDb || Settings || Modify || "
                               "EventViewer || ReadWrite FROM tbUsers ORDER BY IDUser");
    }
};

TEST_F(UserTableTest, TheAdministratorIsMadeWithoutPasswordAndRights)
{
    runOnPlant("DELETE FROM tbUsers");
    ASSERT_TRUE(connectTo("Plant.mdb"));
    users::Create_Admin_Profile(session);
    EXPECT_EQ(users(), QStringList{"0 ADMINISTRATOR 0 none00000"});
    users::Create_Admin_Profile(session);
    failures.expectUnder("Module/Create_Admin_Profile");
    EXPECT_EQ(users().size(), 1);
}

TEST_F(UserTableTest, OnlyACompanyWithoutAnyOperatorGetsOne)
{
    runOnPlant("DELETE FROM tbUsers WHERE IDUser <> '3'");
    ASSERT_TRUE(connectTo("Plant.mdb"));
    users::makeSureOfAnOperator(session);
    EXPECT_EQ(users().size(), 1) << "the one who is there counts, also disabled";
    session.cnDatabase.Execute("DELETE FROM tbUsers");
    users::makeSureOfAnOperator(session);
    EXPECT_EQ(users(), QStringList{"0 ADMINISTRATOR 0 none00000"});
}

TEST_F(UserTableTest, AFailedReadingKeepsTheFormerRecords)
{
    ASSERT_TRUE(connectTo("Plant.mdb"));
    session.cnDatabase.Execute("DROP TABLE tbUsers");
    EXPECT_THROW(users::requery(session), platform::RuntimeError);
    EXPECT_EQ(session.rsUsers.RecordCount(), 4);
    EXPECT_TRUE(users::find(session, "2"));
    EXPECT_EQ(session.rsUsers.text("Name"), "GUEST");
    EXPECT_TRUE(users::find(session, "1")) << "also behind the one who was found";
    EXPECT_FALSE(users::find(session, "9"));
    EXPECT_FALSE(users::find(session, "' OR '1'='1"));
}

TEST_F(UserTableTest, RecordsAreReadByName)
{
    ASSERT_TRUE(connectTo("Plant.mdb"));
    users::requery(session);
    QStringList names;
    for (; !session.rsUsers.Eof(); session.rsUsers.MoveNext())
        names << session.rsUsers.text("Name");
    EXPECT_EQ(names, (QStringList{"ADMINISTRATOR", "FORMER", "GUEST", "TECHNICIAN"}));
}

TEST_F(UserTableTest, ARightIsTheTextOfItsNumber)
{
    EXPECT_EQ(users::rightText(-1), "-1");
    EXPECT_EQ(users::rightText(0), "0");
    EXPECT_EQ(users::rightText(7), "7");
    EXPECT_EQ(users::rightText(QVariant()), "0");
    EXPECT_EQ(users::rightText("True"), "-1");
    EXPECT_EQ(users::rightText("yes"), "0");
    EXPECT_EQ(users::rightText(""), "0");
}

TEST_F(UserTableTest, OnlyTheStateZeroIsEnabled)
{
    EXPECT_TRUE(users::isEnabled(0));
    EXPECT_TRUE(users::isEnabled("0"));
    for (const QVariant& state :
         {QVariant(1), QVariant(-1), QVariant(32767), QVariant(), QVariant(""), QVariant("x")})
        EXPECT_FALSE(users::isEnabled(state)) << qPrintable(state.toString());
}

} // namespace
