#include "database/CompanyCopies.h"
#include "database/SafekeepingFixture.h"

#include <QFileInfo>

using namespace support;
using database::SafetyCopies;

namespace {

constexpr qint64 kDay = 24LL * 60 * 60 * 1000;

class SafetyCopiesTest : public SafekeepingFixture
{
protected:
    SafetyCopiesTest()
    {
        QObject::connect(&database, &database::Database::opened, &copies, &SafetyCopies::companyOpened);
        QDir().mkpath(file("Data/Safety"));
    }

    QStringList safety() { return names("Data/Safety"); }
    void connectAndWait()
    {
        ASSERT_TRUE(connectPlant());
        clock.run(60000);
        EXPECT_FALSE(copies.isCopying());
    }
    void change(const QString& name)
    {
        session.cnDatabase.Execute("UPDATE tbGroupsUser SET Name = '" + name + "' WHERE IDGrp = 1;");
    }
    void nextDay() { clock.run(kDay + 1000); }

    SafetyCopies copies{session, clock};
    QSignalSpy made{&copies, &SafetyCopies::made};
};

TEST_F(SafetyCopiesTest, TheFirstConnectMakesOne)
{
    connectAndWait();
    EXPECT_EQ(safety(), QStringList{"Plant_20260314090000.bak"});
    const QString copy = file("Data/Safety/Plant_20260314090000.bak");
    EXPECT_EQ(groupsOf(copy), groupsOf(plantFile()));
    EXPECT_EQ(column(copy, "PRAGMA integrity_check"), QStringList{"ok"});
    EXPECT_EQ(QFileInfo(copy).size(), QFileInfo(plantFile()).size());
    EXPECT_FALSE(QFile::permissions(copy) & (QFile::ReadOther | QFile::WriteOther));
    EXPECT_EQ(made.count(), 1);
    EXPECT_EQ(made[0][0], copy);
}

TEST_F(SafetyCopiesTest, WithoutTheFolderNoneIsMade)
{
    QDir(file("Data/Safety")).removeRecursively();
    connectAndWait();
    EXPECT_FALSE(QDir(file("Data")).exists("Safety"));
    EXPECT_EQ(made.count(), 0);
}

TEST_F(SafetyCopiesTest, TheConnectItselfIsNotHeldUp)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_TRUE(copies.isCopying());
    EXPECT_EQ(made.count(), 0);
}

TEST_F(SafetyCopiesTest, OneADayIsEnough)
{
    connectAndWait();
    change("CHANGED");
    clock.run(kDay - 61000);
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(copies.isCopying()) << "not yet older than a day";
    clock.run(1000);
    connectAndWait();
    EXPECT_FALSE(copies.isCopying());
    EXPECT_EQ(safety().size(), 1) << "a day old to the second";
    clock.run(1000);
    connectAndWait();
    ASSERT_EQ(safety().size(), 2);
    EXPECT_TRUE(groupsOf(file("Data/Safety/" + safety()[0])).startsWith("GRP1"));
    EXPECT_TRUE(groupsOf(file("Data/Safety/" + safety()[1])).startsWith("CHANGED"));
}

TEST_F(SafetyCopiesTest, AnUnchangedCompanyNeedsNone)
{
    connectAndWait();
    nextDay();
    connectAndWait();
    EXPECT_EQ(safety().size(), 1);
    change("CHANGED");
    connectAndWait();
    EXPECT_EQ(safety().size(), 2);
}

TEST_F(SafetyCopiesTest, TheLastSevenAreKept)
{
    QStringList expected;
    for (int day = 0; day < 9; ++day) {
        connectAndWait();
        expected << database::safetyName(plantFile(), clock.now().addSecs(-60)).section('/', -1);
        change(QString::number(day));
        nextDay();
    }
    EXPECT_EQ(safety(), expected.mid(2));
}

TEST_F(SafetyCopiesTest, OtherFilesAndOtherCompaniesCopiesStay)
{
    QStringList others{"Plant.bak", "Plant_1.bak", "Plant_20200101000000.bak.old",
                       "Plant_old_20200101000000.bak", "Plan_20200101000000.bak"};
    for (const QString& name : others)
        write("Data/Safety/" + name, "other");
    write("Data/Safety/Plant_20260313000000.bak.part", "left by a killed program");
    write("Data/Safety/Other_20260313000000.bak.part", "other");
    connectAndWait();
    EXPECT_EQ(made.count(), 1) << "none of them is this company's";
    others << "Plant_20260314090000.bak"
           << "Other_20260313000000.bak.part";
    others.sort();
    EXPECT_EQ(safety(), others);
}

TEST_F(SafetyCopiesTest, ACopyFromTheFutureSaysNothingAboutToday)
{
    write("Data/Safety/Plant_20990101000000.bak", "the clock was wrong");
    connectAndWait();
    EXPECT_EQ(made.count(), 1);
    connectAndWait();
    EXPECT_EQ(made.count(), 1) << "that of today counts";
}

TEST_F(SafetyCopiesTest, WhatIsWrittenMeanwhileIsInTheCopy)
{
    runOnPlant("CREATE TABLE tbFiller (a); INSERT INTO tbFiller WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
               "SELECT i + 1 FROM n WHERE i < 5000) SELECT hex(randomblob(400)) FROM n;");
    ASSERT_TRUE(connectPlant());
    clock.run(150);
    ASSERT_TRUE(copies.isCopying());
    change("MEANWHILE");
    {
        platform::Transaction transaction(session.cnDatabase);
        session.cnDatabase.Execute("UPDATE tbGroupsUser SET Description = 'IN A TRANSACTION'");
        clock.run(500);
        EXPECT_TRUE(copies.isCopying()) << "nothing is copied in the middle of a change";
        transaction.commit();
    }
    clock.run(60000);
    ASSERT_EQ(made.count(), 1);
    const QString copy = made[0][0].toString();
    EXPECT_TRUE(groupsOf(copy).startsWith("MEANWHILE"));
    EXPECT_EQ(column(copy, "SELECT DISTINCT Description FROM tbGroupsUser"), QStringList{"IN A TRANSACTION"});
    EXPECT_EQ(column(copy, "PRAGMA integrity_check"), QStringList{"ok"});
    nextDay();
    connectAndWait();
    EXPECT_EQ(made.count(), 1) << "the copy is as new as the company";
}

TEST_F(SafetyCopiesTest, AClosedCompanyEndsItsCopyAndTheNextConnectMakesItAnew)
{
    ASSERT_TRUE(connectPlant());
    ASSERT_TRUE(copies.isCopying());
    database.Disconnect_Database();
    clock.run(60000);
    EXPECT_FALSE(copies.isCopying());
    EXPECT_EQ(safety(), QStringList());
    connectAndWait();
    EXPECT_EQ(made.count(), 1);
}

TEST_F(SafetyCopiesTest, ConnectingAgainAtOnceBeginsAnew)
{
    ASSERT_TRUE(connectPlant());
    connectAndWait();
    EXPECT_EQ(made.count(), 1);
    EXPECT_EQ(safety().size(), 1);
}

TEST_F(SafetyCopiesTest, AnEndOfTheProgramLeavesNoPart)
{
    {
        SafetyCopies ending(session, clock);
        QObject::disconnect(&database, &database::Database::opened, &copies, nullptr);
        ASSERT_TRUE(connectPlant());
        ending.companyOpened();
        ASSERT_TRUE(ending.isCopying());
        EXPECT_EQ(safety().size(), 1);
    }
    EXPECT_EQ(safety(), QStringList());
    session.cnDatabase.Execute("UPDATE tbGroupsUser SET Name = 'GOES ON'");
}

TEST_F(SafetyCopiesTest, AFullDiskIsReportedOnceAndLeavesNothing)
{
    ASSERT_TRUE(connectPlant());
    {
        const FullDisk disk(16384);
        clock.run(60000);
    }
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "Module/Make_SafetyCopy");
    EXPECT_EQ(safety(), QStringList());
    change("GOES ON");
    EXPECT_FALSE(copies.isCopying());
}

TEST_F(SafetyCopiesTest, ABackupRestartsTheCopy)
{
    ASSERT_TRUE(connectPlant());
    op.chooseFile(file("Backup/Plant.bak"));
    op.expect("Copy of backup completed successfully.");
    safekeeping.Backup_Database();
    EXPECT_TRUE(copies.isCopying());
    clock.run(60000);
    EXPECT_EQ(made.count(), 1);
    EXPECT_EQ(safety().size(), 1);
}

} // namespace
