#include "events/EventLog.h"

#include "platform/ScriptedOperator.h"
#include "platform/TextFile.h"
#include "platform/VirtualClock.h"
#include "session/Session.h"
#include "support/ApplicationFolder.h"
#include "support/FailureRecorder.h"
#include "support/FullDisk.h"

#include <ctime>
#include <gmock/gmock.h>

using namespace events;
using namespace platform;
using testing::ElementsAre;

namespace {

constexpr int kLineLength = 378;
const QDateTime kWhen(QDate(2026, 3, 14), QTime(9, 5, 7));

class EventLogTest : public testing::Test
{
protected:
    EventLogTest()
    {
        folder_.write("Data/firm.mdb", "");
        session_.AppPath = folder_.path();
        session_.cnDatabase.Open(folder_.file("Data/firm.mdb"));
        session_.cnDatabase.Execute("CREATE TABLE tbEvent (IDType INTEGER, Date_Reg TEXT, Source INTEGER, "
                                    "Equipment TEXT, Instrument TEXT, Description TEXT)");
    }

    void add(const QString& equipment, const QString& instrument, const QString& description)
    {
        log_.Add_Event_Db(kWarning, kWhen, kAlarms, equipment, instrument, description);
    }

    Recordset events()
    {
        Recordset rows;
        rows.Open("SELECT * FROM tbEvent", session_.cnDatabase);
        return rows;
    }

    // The lines of the one log file, each without its end.
    QList<QByteArray> flushedLines()
    {
        log_.CreateLog_App();
        const QStringList names = folder_.names("Log");
        EXPECT_EQ(names.size(), 1);
        QByteArray bytes = names.isEmpty() ? QByteArray() : folder_.read("Log/" + names.first());
        EXPECT_TRUE(bytes.endsWith(kSystemLineEnd));
        bytes.chop(qsizetype(qstrlen(kSystemLineEnd)));
        return bytes.replace(kSystemLineEnd, "\n").split('\n');
    }

    support::ApplicationFolder folder_;
    support::FailureRecorder recorder_;
    session::Session session_;
    ScriptedOperator operator_;
    VirtualClock clock_{QDateTime(QDate(2026, 3, 14), QTime(9, 5, 8))};
    EventLog log_{session_, operator_, clock_};
};

TEST_F(EventLogTest, AnEventGoesToTheConsoleAndToTheTable)
{
    QStringList shown;
    log_.onLine = [&](const QString& when, const QString& description) { shown << when << description; };
    log_.Add_Event(kInformation, kWhen, kReadWrite, "Cella 1", "", "Connected.");
    EXPECT_EQ(shown, QStringList({"2026/03/14 09:05:07", "Connected."}));
    const Recordset rows = events();
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.number("IDType"), 1);
    EXPECT_EQ(rows.text("Date_Reg"), "2026-03-14 09:05:07");
    EXPECT_EQ(rows.number("Source"), 2);
    EXPECT_EQ(rows.text("Equipment"), "Cella 1");
    EXPECT_TRUE(rows["Instrument"].isNull());
    EXPECT_EQ(rows.text("Description"), "Connected.");
}

TEST_F(EventLogTest, AnEventOfAlarmsReachesTheTableAlone)
{
    int lines = 0;
    log_.onLine = [&](const QString&, const QString&) { ++lines; };
    add("Cella", "Sonda", "Alta");
    EXPECT_EQ(lines, 0);
    EXPECT_EQ(events().RecordCount(), 1);
}

TEST_F(EventLogTest, EachFieldIsStoredAsItIsAndAnEmptyTextAsNull)
{
    log_.Add_Event_Db(kError, kWhen, kReadWrite, "", "d'oro %1", "");
    const Recordset rows = events();
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.text("IDType"), "3");
    EXPECT_EQ(rows.text("Date_Reg"), "2026-03-14 09:05:07");
    EXPECT_EQ(rows.text("Source"), "2");
    EXPECT_TRUE(rows["Equipment"].isNull());
    EXPECT_EQ(rows.text("Instrument"), "d'oro %1");
    EXPECT_TRUE(rows["Description"].isNull());
}

TEST_F(EventLogTest, ALongDescriptionIsStoredWhole)
{
    const QString description = QString(300, 'x') + "'";
    add("", "", description);
    EXPECT_EQ(events().text("Description"), description);
}

TEST_F(EventLogTest, TheConsolesLineRewritesTheDate)
{
    QString when = "2026-12-31 23:59:58";
    EXPECT_TRUE(log_.Add_Event_ReadWrite(when, "x"));
    EXPECT_EQ(when, "2026/12/31 23:59:58");
    recorder_.expectNone();

    QString rubbish = "yesterday";
    EXPECT_FALSE(log_.Add_Event_ReadWrite(rubbish, "x"));
    EXPECT_EQ(rubbish, "yesterday");
    recorder_.expectOne(errors::kTypeMismatch, "Module/Add_Event_ReadWrite");
}

TEST_F(EventLogTest, WithoutACompanyEventsAreKeptForTheNextLog)
{
    session_.cnDatabase.Close();
    add("Cella", "Sonda", "Prima");
    add("Cella", QString(60, 'x'), "");
    const auto lines = flushedLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], QByteArray("214/03/2026 09:05:071  ") + QByteArray("Cella").leftJustified(50) +
                            QByteArray("Sonda").leftJustified(50) + QByteArray("Prima").leftJustified(255));
    EXPECT_EQ(lines[1].size(), kLineLength);
    EXPECT_EQ(lines[1].mid(73, 50), QByteArray(50, 'x'));
    log_.deleteEvents();
    QFile::remove(folder_.file("Log/Calidora_20260314090508.log"));
    log_.CreateLog_App();
    EXPECT_TRUE(folder_.names("Log").isEmpty()) << "nothing goes out twice";
    recorder_.expectNone();
}

TEST_F(EventLogTest, WhatNoCompanyTookIsOwed)
{
    session_.cnDatabase.Close();
    EXPECT_FALSE(log_.owes());
    add("", "", "x");
    EXPECT_TRUE(log_.owes());
    log_.CreateLog_App();
    EXPECT_FALSE(log_.owes());
}

TEST_F(EventLogTest, WhatWasKeptStandsInFrontOfTheTable)
{
    session_.cnDatabase.Close();
    add("P", "U", "kept");
    session_.cnDatabase.Open(folder_.file("Data/firm.mdb"));
    add("P", "U", "stored");
    const auto lines = flushedLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].mid(123).trimmed(), "kept");
    EXPECT_EQ(lines[1].mid(123).trimmed(), "stored");
    EXPECT_EQ(events().RecordCount(), 1);
}

TEST_F(EventLogTest, WhatCouldNotBeWrittenStaysKept)
{
    session_.cnDatabase.Close();
    add("P", "U", "kept");
    {
        const support::FullDisk full(0);
        log_.CreateLog_App();
    }
    EXPECT_FALSE(recorder_.take().empty());
    EXPECT_EQ(flushedLines().value(0).mid(123).trimmed(), "kept");
}

TEST_F(EventLogTest, AnInsertThatFailsIsReported)
{
    session_.cnDatabase.Execute("DROP TABLE tbEvent");
    add("", "", "");
    EXPECT_EQ(recorder_.take().at(0).procedure, "Module/Add_Event_Db");
}

TEST_F(EventLogTest, EachFieldOfALineHasItsColumn)
{
    add("Cella", "Sonda", "Alta temperatura");
    const auto lines = flushedLines();
    ASSERT_EQ(lines.size(), 1);
    const QByteArray& line = lines[0];
    EXPECT_EQ(line.size(), kLineLength);
    EXPECT_EQ(line.mid(0, 1), "2");
    EXPECT_EQ(line.mid(1, 19), "14/03/2026 09:05:07");
    EXPECT_EQ(line.mid(20, 3), "1  ");
    EXPECT_EQ(line.mid(23, 50), QByteArray("Cella").leftJustified(50));
    EXPECT_EQ(line.mid(73, 50), QByteArray("Sonda").leftJustified(50));
    EXPECT_EQ(line.mid(123, 255), QByteArray("Alta temperatura").leftJustified(255));
    EXPECT_EQ(folder_.names("Log"), QStringList("Calidora_20260314090508.log"));
}

TEST_F(EventLogTest, NullsAreBlanks)
{
    add("", "", "");
    const auto lines = flushedLines();
    EXPECT_EQ(lines[0].mid(23), QByteArray(355, ' '));
}

TEST_F(EventLogTest, AnHourThatSummerTimeLeavesOutIsKept)
{
    const QByteArray former = qgetenv("TZ");
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    session_.cnDatabase.Execute(
        "INSERT INTO tbEvent (IDType, Date_Reg, Source) VALUES (2, '2026-03-29 02:30:00', 1)");
    EXPECT_EQ(flushedLines()[0].mid(1, 19), "29/03/2026 02:30:00");
    QString when = "2026-03-29 02:30:00";
    EXPECT_TRUE(log_.Add_Event_ReadWrite(when, ""));
    EXPECT_EQ(when, "2026/03/29 02:30:00");
    former.isNull() ? qunsetenv("TZ") : qputenv("TZ", former);
    tzset();
}

TEST_F(EventLogTest, FieldsAreCutToTheirWidth)
{
    add(QString(51, 'e'), QString(99, 'i'), QString(256, 'd'));
    const auto lines = flushedLines();
    EXPECT_EQ(lines[0].mid(23), QByteArray(50, 'e') + QByteArray(50, 'i') + QByteArray(255, 'd'));
}

TEST_F(EventLogTest, AFieldNeverBreaksItsLine)
{
    add("a\r\nb", "c\td", QString("e") + QChar(u'\0') + "f");
    add("à\U0001F525Ж", "", "");
    const auto lines = flushedLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].mid(23, 4), "a  b");
    EXPECT_EQ(lines[0].mid(73, 3), "c d");
    EXPECT_EQ(lines[0].mid(123, 3), "e f");
    for (const QByteArray& line : lines)
        EXPECT_EQ(line.size(), kLineLength);
}

TEST_F(EventLogTest, LinesAreWrittenInTheMachinesCodePage)
{
    session_.CodePage = 1251;
    add("Цех", "", "");
    EXPECT_EQ(flushedLines()[0].mid(23, 4), "\xD6\xE5\xF5 ");
}

TEST_F(EventLogTest, AFlushKeepsTheOrderAndTheRows)
{
    for (const char* text : {"c", "a", "b"})
        add("", "", text);
    const auto lines = flushedLines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0][123], 'c');
    EXPECT_EQ(lines[1][123], 'a');
    EXPECT_EQ(lines[2][123], 'b');
    EXPECT_EQ(events().RecordCount(), 3) << "emptying the table is the caller's";
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 0);
}

TEST_F(EventLogTest, AnEmptyTableMakesNoFile)
{
    log_.CreateLog_App();
    EXPECT_THAT(folder_.names("Log"), ElementsAre());
    EXPECT_EQ(operator_.pointer, Pointer::Default);
    recorder_.expectNone();
}

TEST_F(EventLogTest, TheSecondFlushOfASecondReplacesTheFirst)
{
    add("", "", "first");
    log_.CreateLog_App();
    log_.deleteEvents();
    add("", "", "second");
    EXPECT_EQ(flushedLines()[0].mid(123, 6), "second");
    log_.deleteEvents();
    add("", "", "third");
    clock_.run(1000);
    log_.CreateLog_App();
    EXPECT_EQ(folder_.names("Log").size(), 2);
}

TEST_F(EventLogTest, AFailedFlushLeavesNoFileAndTheDefaultPointer)
{
    add("", "", "x");
    {
        support::FullDisk full(100);
        log_.CreateLog_App();
    }
    recorder_.expectOne(errors::kDiskFull, "Module/CreateLog_App");
    EXPECT_THAT(folder_.names("Log"), ElementsAre());
    EXPECT_EQ(operator_.pointer, Pointer::Default);

    QDir(folder_.file("Log")).removeRecursively();
    log_.CreateLog_App();
    recorder_.expectOne(errors::kPathNotFound, "Module/CreateLog_App");
    EXPECT_EQ(operator_.pointer, Pointer::Default);
}

// More lines than the disk takes, in a company that is smaller than they are.
class FullDiskFlush : public EventLogTest
{
protected:
    static constexpr int kEvents = 1000;
    static constexpr int kWritten = 300;

    FullDiskFlush()
    {
        session_.cnDatabase.BeginTrans();
        for (int event = 0; event < kEvents; ++event)
            add("", "", QString::number(event));
        session_.cnDatabase.CommitTrans();
    }
    void flushOnFullDisk()
    {
        const support::FullDisk full(kWritten * (kLineLength + 1) + 200);
        log_.CreateLog_App();
        recorder_.expectOne(errors::kDiskFull, "Module/CreateLog_App");
    }
    QStringList logged(const QString& name) const
    {
        QStringList descriptions;
        const QByteArray bytes = folder_.read("Log/" + name);
        EXPECT_EQ(bytes.size() % (kLineLength + 1), 0) << "no line is cut off";
        for (qsizetype at = 0; at < bytes.size(); at += kLineLength + 1)
            descriptions << QString::fromLatin1(bytes.mid(at + 123, 255)).trimmed();
        return descriptions;
    }
    static QStringList numbers(int from, int to)
    {
        QStringList numbers;
        for (int number = from; number < to; ++number)
            numbers << QString::number(number);
        return numbers;
    }
};

TEST_F(FullDiskFlush, KeepsInTheTableWhatDidntReachTheDisk)
{
    flushOnFullDisk();
    EXPECT_EQ(events().RecordCount(), kEvents) << "emptying the table is the caller's";
    log_.deleteEvents();
    EXPECT_EQ(folder_.names("Log"), QStringList("Calidora_20260314090508.log"));
    EXPECT_EQ(logged("Calidora_20260314090508.log"), numbers(0, kWritten));
    ASSERT_EQ(events().RecordCount(), kEvents - kWritten);
    EXPECT_EQ(events().text("Description"), QString::number(kWritten));
    EXPECT_EQ(operator_.pointer, Pointer::Default);
}

TEST_F(FullDiskFlush, TheNextFlushBringsTheRestAndNothingTwice)
{
    flushOnFullDisk();
    log_.deleteEvents();
    log_.deleteEvents(); // a console that opens meanwhile
    add("", "", "later");
    clock_.run(1000);
    log_.CreateLog_App();
    log_.deleteEvents();
    EXPECT_EQ(logged("Calidora_20260314090509.log"), numbers(kWritten, kEvents) << "later");
    EXPECT_EQ(events().RecordCount(), 0);
    log_.CreateLog_App();
    EXPECT_EQ(folder_.names("Log").size(), 2);
    add("", "", "new");
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 0) << "the table is emptied again without a flush";
    recorder_.expectNone();
}

// Another program holds the company just when the table is emptied: the lines are on the disk already.
TEST_F(FullDiskFlush, RowsThatStayBehindTheirLinesDontGoOutTwice)
{
    log_.CreateLog_App();
    Connection other;
    other.Open(folder_.file("Data/firm.mdb"));
    other.BeginTrans();
    EXPECT_THROW(log_.deleteEvents(), RuntimeError);
    other.RollbackTrans();
    add("", "", "later");
    clock_.run(1000);
    log_.CreateLog_App();
    log_.deleteEvents();
    EXPECT_EQ(logged("Calidora_20260314090508.log"), numbers(0, kEvents));
    EXPECT_EQ(logged("Calidora_20260314090509.log"), QStringList("later"));
    EXPECT_EQ(events().RecordCount(), 0);
}

TEST_F(FullDiskFlush, TwoFailedFlushesKeepTheRestOfBoth)
{
    flushOnFullDisk();
    log_.deleteEvents();
    clock_.run(1000);
    flushOnFullDisk();
    flushOnFullDisk(); // in the same second, and without an emptying: it goes on where it stood
    log_.deleteEvents();
    ASSERT_EQ(events().RecordCount(), kEvents - 3 * kWritten);
    EXPECT_EQ(events().text("Description"), QString::number(3 * kWritten));
}

TEST_F(FullDiskFlush, AnotherCompanysTableIsItsOwn)
{
    flushOnFullDisk();
    session_.DbName = "other.mdb";
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 0);
}

TEST_F(FullDiskFlush, ACompanyThatComesBackStillHoldsWhatItsFlushLeft)
{
    flushOnFullDisk();
    const QString here = folder_.file("Data/firm.mdb"), there = folder_.file("Data/other.mdb");
    session_.DbName = "firm.mdb";
    log_.CreateLog_App();
    recorder_.expectNone();
    add("", "", "later");
    QDir(folder_.file("Log")).removeRecursively();
    log_.CreateLog_App();
    recorder_.expectOne(errors::kPathNotFound, "Module/CreateLog_App");
    const auto change = [&](const QString& path, const QString& name) {
        session_.cnDatabase.Close();
        session_.cnDatabase.Open(path);
        session_.DbName = name;
    };
    QFile::copy(here, there);
    change(there, "other.mdb");
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 0);
    change(here, "firm.mdb");
    log_.deleteEvents(); // a console that opens
    ASSERT_EQ(events().RecordCount(), 1);
    EXPECT_EQ(events().text("Description"), "later");
}

TEST_F(EventLogTest, AFlushThatCantBeginKeepsEveryRow)
{
    add("", "", "x");
    EXPECT_FALSE(log_.owes());
    QDir(folder_.file("Log")).removeRecursively();
    log_.CreateLog_App();
    recorder_.expectOne(errors::kPathNotFound, "Module/CreateLog_App");
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 1);
    EXPECT_TRUE(log_.owes());
    QDir(folder_.path()).mkdir("Log");
    EXPECT_EQ(flushedLines().size(), 1);
    EXPECT_FALSE(log_.owes());
    log_.deleteEvents();
    EXPECT_EQ(events().RecordCount(), 0);
}

} // namespace
