// Every change of a stored value is noted as it stands in the company, with its cause.
#include "history/Recorder.h"

#include "database/InsertIntoFile.h"
#include "history/HistoryPage.h"
#include "platform/Connection.h"
#include "structure/Duplicate.h"
#include "structure/PlantStates.h"
#include "structure/Records.h"
#include "support/BusFixture.h"
#include "support/FullDisk.h"
#include "values/UpdateParam.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace support;
using history::historyFileOf;
using history::Recorder;
using values::Causing;
using values::ValueCause;

namespace {

class HistoryRecorder : public BusFixture
{
protected:
    HistoryRecorder()
    {
        QObject::connect(&recorder, &Recorder::operationNoted,
                         [this](qint64, ValueCause purpose, int values) {
                             noted << QStringLiteral("%1:%2").arg(int(purpose)).arg(values);
                         });
        bus.setOnChecked([this](const values::CheckedValue& value) { recorder.checked(value); });
    }

    QString historyFile() const { return historyFileOf(plantFile()); }
    // "1/1/P0101 12.3 0 -> 5 1 cause", in order.
    QStringList notes(const QString& where = "1 = 1") const
    {
        if (!QFile::exists(historyFile()))
            return {};
        return column(
            historyFile(),
            "SELECT IDGrp || '/' || IDInst || '/' || IDPar || ' ' || IfNull(OldValue, '-') || ' ' || "
            "IfNull(OldState, '-') || ' -> ' || IfNull(NewValue, '-') || ' ' || IfNull(NewState, "
            "'-') || ' ' || Cause FROM tbNote WHERE " +
                where + " ORDER BY ID");
    }
    void edit(const QString& value, int state = 1, ValueCause cause = ValueCause::Edited)
    {
        const Causing causing(session.cnDatabase, cause);
        session.cnDatabase.Execute(
            QStringLiteral("UPDATE tbParametersUser SET Value = '%1', State = %2 WHERE IDGrp = 1 AND "
                           "IDInst = 1 AND IDPar = 'P0101';")
                .arg(value)
                .arg(state));
    }
    QStringList operations() const
    {
        return column(historyFile(), "SELECT Count(*) || '/' || Operation FROM tbNote GROUP BY Operation");
    }

    Recorder recorder{session, clock};
    QStringList noted;
};

TEST_F(HistoryRecorder, AnEditIsNotedWithWhatStoodThere)
{
    edit("5");
    EXPECT_EQ(notes(), QStringList{"1/1/P0101 12.3 0 -> 5 1 2"});
    EXPECT_EQ(column(historyFile(), "SELECT Operator FROM tbOperation"), QStringList{"TECHNICIAN"});
    EXPECT_EQ(column(historyFile(), "SELECT Time || IDParGrp FROM tbNote"),
              QStringList{QString::number(clock.now().toMSecsSinceEpoch()) + "G01"});
    edit("5");
    EXPECT_EQ(notes().size(), 1) << "nothing has changed";
    edit("5", 0, ValueCause::Reset);
    EXPECT_EQ(notes().last(), "1/1/P0101 5 1 -> 5 0 7");
    EXPECT_EQ(noted, QStringList({"2:1", "7:0"}));
    EXPECT_EQ(recorder.failure(), "");
}

TEST_F(HistoryRecorder, AnUnknownValueIsNone)
{
    values::Update_Param(session, 1, 1, "P0101", "");
    values::Update_Param(session, 1, 1, "P0101", "7");
    EXPECT_EQ(notes(), QStringList({"1/1/P0101 12.3 0 -> - 0 1", "1/1/P0101 - 0 -> 7 0 1"}));
}

TEST_F(HistoryRecorder, WhatIsTakenBackIsNotNoted)
{
    {
        platform::Transaction transaction(session.cnDatabase);
        edit("5");
    }
    EXPECT_EQ(notes(), QStringList());
    EXPECT_EQ(noted, QStringList());
    edit("6");
    EXPECT_EQ(notes(), QStringList{"1/1/P0101 12.3 0 -> 6 1 2"});
    EXPECT_EQ(operations(), QStringList{"1/1"}) << "and leaves no operation behind";
}

TEST_F(HistoryRecorder, AStatementThatFailsInsideATransactionIsNotNoted)
{
    {
        platform::Transaction transaction(session.cnDatabase);
        edit("5");
        EXPECT_ANY_THROW(session.cnDatabase.Execute(
            "UPDATE tbParametersUser SET Value = '9', State = CASE IDPar WHEN 'P0303' THEN NULL ELSE 1 END "
            "WHERE IDGrp = 1 AND IDInst = 1;"));
        transaction.commit();
    }
    EXPECT_EQ(notes(), QStringList{"1/1/P0101 12.3 0 -> 5 1 2"});
}

TEST_F(HistoryRecorder, AJobIsOneOperationHoweverOftenItCommits)
{
    {
        const Causing job(session.cnDatabase, ValueCause::Read);
        edit("6", 0, ValueCause::Read);
        edit("5");
        EXPECT_EQ(noted, QStringList());
    }
    edit("7");
    EXPECT_EQ(operations(), QStringList({"2/1", "1/2"}));
    EXPECT_EQ(noted, QStringList({"1:2", "2:1"}));
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0101';");
    EXPECT_EQ(operations().size(), 4) << "what nobody gave a purpose is a job of its own";
    EXPECT_EQ(notes().last(), "1/1/P0101 7 0 -> 7 1 0");
}

TEST_F(HistoryRecorder, TheWaysOfThePlant)
{
    structure::Records records(session, op, structure);
    ASSERT_TRUE(records.Add_Record_Db(2, "3", "1", "KT200", "NEW", "", "2A"));
    EXPECT_EQ(notes().size(), 4);
    EXPECT_EQ(notes().first(), "3/1/P1101 - - -> 4.5 0 11");
    ASSERT_TRUE(structure::PlantStates(session, texts, op, structure).Synchronize_Item("2_3_1"));
    EXPECT_EQ(notes().size(), 4);
    runOnPlant("DELETE FROM tbParametersUser WHERE IDGrp = 3 AND IDPar = 'P1101'");
    ASSERT_TRUE(structure::PlantStates(session, texts, op, structure).Synchronize_Item("2_3_1"));
    EXPECT_EQ(notes().mid(4), QStringList{"3/1/P1101 - - -> 0 2 6"});
    structure::Duplicator duplicator(session, op, structure, records, [](const char*) {});
    ASSERT_TRUE(duplicator.Duplicate_Item(structure::Duplicator::kOfInstrument, "3", "1", "2"));
    EXPECT_EQ(notes().mid(5).size(), 4);
    EXPECT_EQ(notes()[5], "2/2/P1101 - - -> 0 2 4");
    ASSERT_TRUE(records.Remove_Record_Db("1_3"));
    EXPECT_EQ(notes().mid(9).size(), 4);
    EXPECT_EQ(notes()[9], "3/1/P1101 0 2 -> - - 12");
    EXPECT_EQ(operations(), QStringList({"4/1", "1/2", "4/3", "4/4"}));
}

TEST_F(HistoryRecorder, AReadIsOneOperation)
{
    plugIn(instrument::LinkMode::Cable);
    runOnPlant("UPDATE tbParametersUser SET Value = NULL WHERE IDPar IN ('P0101', 'P0201')");
    openConsole("2_1_1");
    connectOverCable();
    noted.clear();
    console.Read_Param();
    EXPECT_EQ(noted, QStringList());
    EXPECT_TRUE(waitWhileBusy());
    ASSERT_EQ(noted.size(), 1);
    EXPECT_TRUE(noted[0].startsWith("1:"));
    EXPECT_EQ(operations().size(), 1);
    EXPECT_FALSE(notes("IDPar = 'P0101'").isEmpty());
    EXPECT_EQ(notes("Cause <> 1"), QStringList());
    const int values =
        column(historyFile(), "SELECT Count(*) FROM tbNote WHERE OldValue IS NOT NewValue")[0].toInt();
    EXPECT_EQ(noted[0], QStringLiteral("1:%1").arg(values));
}

// The marks go at the end of a write; what they go for was seen at the read-back.
TEST_F(HistoryRecorder, AWriteIsNotedWithItsChecks)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0; "
               "UPDATE tbParametersUser SET State = 1, Value = '2' WHERE IDPar = 'P0201'; "
               "UPDATE tbParametersUser SET State = 1, Value = 'NEW ROOM' WHERE IDPar = 'P0204'; "
               "UPDATE tbParametersUser SET State = 2 WHERE IDPar = 'P0203'");
    openConsole("3_1_1_G02");
    connectByHand();
    console.Write_Param();
    clock.run(21000);
    arrives("\x02\x06");
    clock.run(3000);
    arrives("OLD ROOM\x06");
    EXPECT_EQ(notes(), QStringList());
    clock.run(3000);
    EXPECT_EQ(notes(), QStringList({"1/1/P0201 2 1 -> 2 0 8", "1/1/P0203 0 2 -> 0 0 10",
                                    "1/1/P0204 NEW ROOM 1 -> NEW ROOM 0 9"}));
    EXPECT_EQ(noted, QStringList{"10:0"});
    EXPECT_EQ(operations().size(), 1);
}

TEST_F(HistoryRecorder, AWriteThatIsGivenUpIsNotedAsFarAsItWasReadBack)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0; "
               "UPDATE tbParametersUser SET State = 1, Value = NULL WHERE IDPar = 'P0201'; "
               "UPDATE tbParametersUser SET State = 1, Value = 'NEW ROOM' WHERE IDPar = 'P0204'");
    openConsole("3_1_1_G02");
    connectByHand();
    console.Write_Param();
    clock.run(21000);
    arrives("\x02\x06");
    bus.abandonOperation();
    EXPECT_EQ(notes(), QStringList{"1/1/P0201 - 1 -> - 1 9"});
    EXPECT_EQ(state(1, 1, "P0201"), "1");
    // The next operation doesn't take that for its own.
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    EXPECT_EQ(notes().last(), "1/1/P0204 NEW ROOM 1 -> NEW ROOM 0 0");
}

// Failures
// ---------------------------------------------------------------------------------------------------------

TEST_F(HistoryRecorder, ADamagedFileStopsTheNotesAndNothingElse)
{
    QFile damaged(historyFile());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(5000, 'x'));
    damaged.close();
    int count = 0;
    const QCoreApplication application(count, nullptr); // who delivers what is told
    int told = 0;
    QObject::connect(&recorder, &Recorder::failureChanged, [&] { ++told; });
    edit("5");
    edit("6");
    EXPECT_EQ(value(1, 1, "P0101"), "6");
    EXPECT_FALSE(recorder.failure().isEmpty());
    QCoreApplication::sendPostedEvents(&recorder);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(QFileInfo(historyFile()).size(), 5000) << "it is left as it is";
    EXPECT_EQ(noted, QStringList());
    // Another try with the next opening.
    QFile::remove(historyFile());
    connectPlant();
    QCoreApplication::sendPostedEvents(&recorder);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(recorder.failure(), "");
    edit("7");
    EXPECT_EQ(notes().size(), 1);
}

TEST_F(HistoryRecorder, ALockedFileStopsTheNotes)
{
    edit("5");
    edit("6");
    EXPECT_EQ(notes().size(), 2);
    SQLite::Database holder(historyFile().toStdString(), SQLite::OPEN_READWRITE);
    holder.exec("BEGIN IMMEDIATE");
    edit("7");
    EXPECT_EQ(value(1, 1, "P0101"), "7");
    EXPECT_TRUE(recorder.failure().contains("Plant.history")) << qPrintable(recorder.failure());
    holder.exec("ROLLBACK");
    edit("8");
    EXPECT_EQ(value(1, 1, "P0101"), "8");
    EXPECT_EQ(notes().size(), 2) << "no gap that nobody was told of";
}

TEST_F(HistoryRecorder, WhereNoFileCanBeMadeTheWorkGoesOn)
{
    QDir().mkpath(historyFile());
    edit("5");
    edit("6");
    EXPECT_EQ(value(1, 1, "P0101"), "6");
    EXPECT_TRUE(recorder.failure().contains("Plant.history")) << qPrintable(recorder.failure());
}

TEST_F(HistoryRecorder, AFullDiskStopsTheNotesAndNothingElse)
{
    edit("5");
    {
        const FullDisk full(rlim_t(QFileInfo(plantFile()).size()) + 100'000);
        for (int i = 0; i < 100; ++i)
            edit(QString(3000, QChar('a' + i % 26)));
        EXPECT_FALSE(recorder.failure().isEmpty());
        EXPECT_EQ(value(1, 1, "P0101"), QString(3000, QChar('a' + 99 % 26)));
    }
    // What was noted before can be read, and belongs together.
    const QStringList kept =
        column(historyFile(), "SELECT IfNull(OldValue, '-') || '>' || NewValue FROM tbNote ORDER BY ID");
    ASSERT_GT(kept.size(), 1);
    for (qsizetype i = 1; i < kept.size(); ++i)
        EXPECT_EQ(kept[i].section('>', 0, 0), kept[i - 1].section('>', 1));
}

TEST_F(HistoryRecorder, AnUpgradeWritesIntoAnotherFile)
{
    QFile::copy(plantFile(), file("Data/Next.mdb"));
    runSql(file("Data/Next.mdb"), "DELETE FROM tbParametersUser");
    database::insertIntoFile(session.cnDatabase, "tbParametersUser", file("Data/Next.mdb"));
    EXPECT_NE(column(file("Data/Next.mdb"), "SELECT Count(*) FROM tbParametersUser"), QStringList{"0"});
    EXPECT_EQ(notes(), QStringList());
}

TEST_F(HistoryRecorder, AFileOfANewerProgramIsLeftAlone)
{
    runSql(historyFile(), "CREATE TABLE tbNote (Other TEXT); PRAGMA user_version = 2;");
    edit("5");
    EXPECT_EQ(value(1, 1, "P0101"), "5");
    EXPECT_TRUE(recorder.failure().endsWith("was written by a newer version of the program."))
        << qPrintable(recorder.failure());
}

TEST_F(HistoryRecorder, AFileWithOtherTablesIsNoHistory)
{
    runSql(historyFile(), "CREATE TABLE tbNote (Other TEXT);");
    edit("5");
    EXPECT_EQ(value(1, 1, "P0101"), "5");
    EXPECT_FALSE(recorder.failure().isEmpty());
}

TEST_F(HistoryRecorder, WhoOnlyLooksMakesNoFile)
{
    EXPECT_FALSE(QFile::exists(historyFile()));
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = State;");
    EXPECT_FALSE(QFile::exists(historyFile()));
    edit("5");
    EXPECT_EQ(QFile::permissions(historyFile()) &
                  (QFile::ReadOther | QFile::WriteOther | QFile::WriteGroup | QFile::ReadGroup),
              QFile::ReadGroup);
    database.Disconnect_Database();
    EXPECT_FALSE(QFile::exists(historyFile() + "-wal")) << "a closed company leaves one file";
}

TEST_F(HistoryRecorder, EachCompanyHasItsOwn)
{
    edit("5");
    QFile::copy(plantFile(), file("Data/Other.mdb"));
    ASSERT_TRUE(connectTo("Other.mdb"));
    logIn(kTechnician);
    edit("6");
    EXPECT_EQ(notes().size(), 1);
    EXPECT_EQ(column(file("Data/Other.history"), "SELECT OldValue || NewValue FROM tbNote"),
              QStringList{"56"});
    EXPECT_EQ(historyFileOf("/a.b/c.d.mdb"), "/a.b/c.d.history");
}

TEST_F(HistoryRecorder, OldNotesGoWithTheDaysOfTheLogs)
{
    session.LogSet.LogDays = 10;
    session.LogSet.DelLog = -1;
    edit("5");
    clock.run(24 * 3600 * 1000);
    edit("6");
    clock.run(qint64(9) * 24 * 3600 * 1000);
    recorder.purge();
    clock.run(1000);
    EXPECT_EQ(notes().size(), 2) << "ten days are kept";
    clock.run(24 * 3600 * 1000);
    session.LogSet.DelLog = 0;
    recorder.purge();
    clock.run(1000);
    EXPECT_EQ(notes().size(), 2) << "nothing is deleted where no log is";
    session.LogSet.DelLog = -1;
    recorder.purge();
    clock.run(1000);
    EXPECT_EQ(notes(), QStringList{"1/1/P0101 5 1 -> 6 1 2"});
    EXPECT_EQ(column(historyFile(), "SELECT ID FROM tbOperation"), QStringList{"2"});
    clock.run(qint64(20) * 24 * 3600 * 1000);
    recorder.purge();
    clock.run(1000);
    EXPECT_EQ(notes(), QStringList());
    EXPECT_EQ(column(historyFile(), "SELECT ID FROM tbOperation"), QStringList());
    edit("7");
    EXPECT_EQ(notes().size(), 1);
}

TEST_F(HistoryRecorder, APurgeWaitsForAJobAndTakesSlices)
{
    edit("5");
    {
        platform::Transaction transaction(session.cnDatabase);
        for (int i = 0; i < 6000; ++i)
            edit(QString::number(i));
        transaction.commit();
    }
    clock.run(qint64(400) * 24 * 3600 * 1000);
    recorder.purge();
    {
        platform::Transaction transaction(session.cnDatabase);
        edit("new");
        clock.run(1000);
        transaction.commit();
    }
    EXPECT_EQ(notes().size(), 6002);
    clock.run(1000);
    EXPECT_EQ(notes().size(), 1);
    EXPECT_EQ(recorder.failure(), "");
}

TEST_F(HistoryRecorder, WithoutAFileAPurgeMakesNone)
{
    recorder.purge();
    clock.run(1000);
    EXPECT_FALSE(QFile::exists(historyFile()));
}

} // namespace
