#include "events/EventViewer.h"

#include "LogText.h"
#include "events/FilterEditor.h"
#include "platform/CodePage.h"
#include "platform/RecordingPrinters.h"
#include "platform/ScriptedOperator.h"
#include "platform/VirtualClock.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "support/ApplicationFolder.h"
#include "support/FailureRecorder.h"
#include "support/FullDisk.h"
#include "support/NamedFailure.h"
#include "support/OrdinaryUser.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace events;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class EventViewerTest : public testing::Test
{
protected:
    EventViewerTest()
    {
        session_.AppPath = folder_.path();
        session_.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
        viewer_.load();
    }
    ~EventViewerTest() override { EXPECT_EQ(operator_.pointer, platform::Pointer::Default); }

    void log(const QString& name, const QByteArray& bytes) { folder_.write("Log/" + name, bytes); }
    QStringList descriptions()
    {
        QStringList texts;
        for (int row = 0; row < viewer_.list().rowCount(); ++row)
            texts << viewer_.list().text(row, EventColumn::Description);
        return texts;
    }
    // Enough for several slices.
    void makeLongLogs()
    {
        const QByteArray first = logs::event("first");
        log("Calidora_1.log", first.repeated(12000));
        log("Calidora_2.log", logs::event("second").repeated(12000));
        log("Calidora_3.log", logs::event("last", "15/03/2026 10:20:30"));
    }
    void readToTheEnd()
    {
        while (viewer_.isLoading())
            QCoreApplication::processEvents();
    }

    const QDateTime kNow{QDate(2026, 11, 21), QTime(12, 0), Qt::UTC};
    int argc_ = 0;
    QCoreApplication application_{argc_, nullptr};
    support::ApplicationFolder folder_;
    support::FailureRecorder recorder_;
    session::Session session_;
    session::Texts texts_{session_.Language};
    platform::ScriptedOperator operator_;
    platform::VirtualClock clock_{kNow};
    platform::RecordingPrinters printers_;
    session::Printing printing_{session_, texts_, operator_, printers_};
    EventViewer viewer_{{session_, texts_, operator_, clock_, printing_}};
};

TEST_F(EventViewerTest, ReadsTheEventLogsByNameAndNothingElse)
{
    log("Calidora_20260102000000.log", logs::event("second", "02/01/2026 00:00:00"));
    log("calidora_20260103000000.log", logs::event("another program's"));
    log("Calidora_20260101000000.log", logs::event("first", "05/01/2026 00:00:00") + logs::event("then"));
    log("Calidora_Error_20260101000000.log", "---------------< Informazioni Errore >---------------\n");
    log("Other_20260101000000.log", logs::event("another program's"));
    log("Calidora_20260101000000.txt", logs::event("no log"));
    log(".Calidora_1.log", logs::event("hidden"));
    log("old Calidora_3.log", logs::event("holds the name"));
    ASSERT_TRUE(QDir(folder_.path()).mkdir("Log/Calidora_4.log"));
    EXPECT_TRUE(viewer_.Read_Log());
    EXPECT_THAT(descriptions(), ElementsAre("first", "then", "second", "holds the name"));
    EXPECT_EQ(viewer_.info(), "Total events: 4");
    EXPECT_EQ(viewer_.txtMinDate(), QDateTime(QDate(2026, 1, 2), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(viewer_.txtMaxDate(), QDateTime(QDate(2026, 3, 14), QTime(10, 20, 30), Qt::UTC));
    EXPECT_EQ(viewer_.unread(), "");
    recorder_.expectNone();
}

TEST_F(EventViewerTest, WithoutFilesTheBoundsStayAsTheyWere)
{
    EXPECT_TRUE(viewer_.Read_Log());
    EXPECT_EQ(viewer_.info(), "Total events: 0");
    EXPECT_EQ(viewer_.txtMinDate(), kNow);
    EXPECT_EQ(viewer_.txtMaxDate(), kNow);
    log("Calidora_1.log", "1no date at all\n");
    viewer_.Read_Log();
    EXPECT_EQ(viewer_.info(), "Total events: 1");
    EXPECT_EQ(viewer_.txtMinDate(), kNow);
    EXPECT_EQ(viewer_.txtMaxDate(), kNow);
}

TEST_F(EventViewerTest, AFilterNarrowsRowsAndNeitherTotalNorBounds)
{
    log("Calidora_1.log", logs::event("x").repeated(1338) + logs::event("early", "01/01/2020 00:00:00", "2") +
                              logs::event("late", "01/01/2030 00:00:00", "2"));
    viewer_.filter() = {"True", "False", "True", "False", "0", {}, {}, "0", {}, {}, "0", {}, {}};
    viewer_.Read_Log();
    EXPECT_THAT(descriptions(), ElementsAre("early", "late"));
    EXPECT_EQ(viewer_.info(), "Filter view: 2 events on 1,340");
    viewer_.filter().Warning = "False";
    viewer_.Read_Log();
    EXPECT_THAT(descriptions(), IsEmpty());
    EXPECT_EQ(viewer_.info(), "Filter view: 0 events on 1,340");
    EXPECT_EQ(viewer_.txtMinDate().date(), QDate(2020, 1, 1));
    EXPECT_EQ(viewer_.txtMaxDate().date(), QDate(2030, 1, 1));
    viewer_.All_Events();
    EXPECT_FALSE(viewer_.isFiltered());
    EXPECT_EQ(viewer_.info(), "Total events: 1,340");
}

TEST_F(EventViewerTest, ALineThatIsNoEventEndsTheLoad)
{
    log("Calidora_1.log", logs::event("good", "01/01/2020 00:00:00"));
    viewer_.Read_Log();
    log("Calidora_2.log", logs::event("kept") + "2026-11-21 INFO\n" + "\n" + logs::event("never"));
    log("Calidora_3.log", logs::event("never"));
    EXPECT_FALSE(viewer_.Read_Log());
    const auto failures = recorder_.take();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].procedure, "Module/Read_Log");
    EXPECT_EQ(failures[0].number, platform::errors::kTypeMismatch);
    EXPECT_TRUE(failures[0].description.startsWith("log.noevent: ")) << "its words are the program's";
    EXPECT_TRUE(failures[0].description.endsWith("Calidora_2.log, 3"));
    // The list shows what it has; status and bounds keep what they had.
    EXPECT_THAT(descriptions(), ElementsAre("good", "kept", ""));
    EXPECT_EQ(viewer_.info(), "Total events: 1");
    EXPECT_EQ(viewer_.txtMaxDate().date(), QDate(2020, 1, 1));
    EXPECT_FALSE(viewer_.isLoading());
    EXPECT_FALSE(viewer_.progress());
}

TEST_F(EventViewerTest, TakesWhatIsReallyFoundOnDisks)
{
    log("Calidora_1.log", "");
    log("Calidora_2.log", logs::event("cut off").left(126));
    log("Calidora_3.log", logs::event("returns").replace("\n", "\r\n").repeated(2));
    log("Calidora_4.log", logs::event("old").replace("\n", "\r").repeated(2));
    log("Calidora_5.log", QByteArray("\xEF\xBB\xBF") + logs::event("caf\xC3\xA9"));
    log("Calidora_6.log", logs::event("caf\x81"));
    log("Calidora_7.log", '7' + QByteArray(3 << 20, 'x')); // one line without end
    EXPECT_TRUE(viewer_.Read_Log());
    EXPECT_THAT(descriptions(),
                ElementsAre("cut", "returns", "returns", "old", "old", QString::fromUtf8("caf\xC3\xA9"),
                            QString("caf\u0081"), QString(255, 'x')));
    EXPECT_EQ(viewer_.list().text(5, EventColumn::Instrument), "BOILER");
    EXPECT_EQ(viewer_.unread(), "");
    recorder_.expectNone();
}

TEST_F(EventViewerTest, AFileThatMayNotBeReadIsNamedAndTheOthersAreShown)
{
    for (const char* name : {"Calidora_1.log", "Calidora_2.log", "Calidora_3.log"})
        log(name, logs::event(name));
    ASSERT_EQ(chmod(qPrintable(folder_.path()), 0755), 0);
    const auto read = [this] {
        const support::OrdinaryUser nobody;
        return viewer_.Read_Log();
    };
    ASSERT_EQ(chmod(folder_.file("Log/Calidora_2.log").toLocal8Bit(), 0), 0);
    EXPECT_TRUE(read());
    EXPECT_THAT(descriptions(), ElementsAre("Calidora_1.log", "Calidora_3.log"));
    EXPECT_EQ(viewer_.unread(), "Not read: Calidora_2.log (Permission denied)");
    ASSERT_EQ(chmod(folder_.file("Log/Calidora_1.log").toLocal8Bit(), 0), 0);
    read();
    EXPECT_EQ(viewer_.unread(), "Not read: Calidora_1.log (Permission denied) and 1 more");
    EXPECT_EQ(viewer_.unreadReasons(),
              "Calidora_1.log (Permission denied)\nCalidora_2.log (Permission denied)");
    recorder_.expectNone();
}

TEST_F(EventViewerTest, AFileThatBreaksOffIsNamedAndTheOthersAreShown)
{
    // Its bytes can't be read, whoever asks.
    for (const char* name : {"Log/Calidora_2.log", "Log/Calidora_4.log"})
        ASSERT_TRUE(QFile::link("/proc/self/mem", folder_.file(name)));
    log("Calidora_1.log", logs::event("first"));
    log("Calidora_3.log", logs::event("third"));
    EXPECT_TRUE(viewer_.Read_Log());
    EXPECT_THAT(descriptions(), ElementsAre("first", "third"));
    EXPECT_EQ(viewer_.info(), "Total events: 2");
    const QStringList reasons = viewer_.unreadReasons().split('\n');
    ASSERT_EQ(reasons.size(), 2);
    EXPECT_TRUE(reasons[0].startsWith("Calidora_2.log ("));
    EXPECT_TRUE(reasons[1].startsWith("Calidora_4.log ("));
    EXPECT_EQ(viewer_.unread(), "Not read: " + reasons[0] + " and 1 more");
    ASSERT_TRUE(QFile::remove(folder_.file("Log/Calidora_4.log")));
    viewer_.Read_Log();
    EXPECT_EQ(viewer_.unread(), "Not read: " + reasons[0]);
    recorder_.expectNone();
}

TEST_F(EventViewerTest, AFileThatVanishesAfterTheListingIsNamed)
{
    makeLongLogs();
    viewer_.Read_Log();
    ASSERT_TRUE(viewer_.isLoading());
    ASSERT_TRUE(QFile::remove(folder_.file("Log/Calidora_2.log")));
    readToTheEnd();
    EXPECT_EQ(viewer_.info(), "Total events: 12,001");
    EXPECT_EQ(descriptions().last(), "last");
    EXPECT_THAT(viewer_.unread().toStdString(), HasSubstr("Calidora_2.log"));
    recorder_.expectNone();
}

TEST_F(EventViewerTest, ALongLoadGoesOnSliceBySlice)
{
    makeLongLogs();
    QSignalSpy changed(&viewer_, &EventViewer::changed);
    EXPECT_TRUE(viewer_.Read_Log());
    EXPECT_TRUE(viewer_.isLoading());
    EXPECT_EQ(operator_.pointer, platform::Pointer::Hourglass);
    EXPECT_EQ(viewer_.progress(), 33); // of the files
    EXPECT_GT(viewer_.list().rowCount(), 0);
    EXPECT_LT(viewer_.list().rowCount(), 12000);
    EXPECT_EQ(viewer_.info(), ""); // nothing is known yet
    EXPECT_THAT(viewer_.narrowed().toStdString(), HasSubstr("Reading"));
    readToTheEnd();
    EXPECT_GE(changed.size(), 3);
    EXPECT_EQ(viewer_.list().rowCount(), 24001);
    EXPECT_EQ(viewer_.info(), "Total events: 24,001");
    EXPECT_EQ(viewer_.narrowed(), "");
    EXPECT_EQ(viewer_.txtMaxDate().date(), QDate(2026, 3, 15));
}

TEST_F(EventViewerTest, ANewLoadGivesTheFormerOneUp)
{
    makeLongLogs();
    viewer_.Read_Log();
    viewer_.Read_Log();
    readToTheEnd();
    EXPECT_EQ(viewer_.list().rowCount(), 24001);
    EXPECT_EQ(viewer_.info(), "Total events: 24,001");
}

TEST_F(EventViewerTest, TheWindowsEndEndsTheLoad)
{
    makeLongLogs();
    viewer_.list().clickColumn(EventColumn::Date);
    viewer_.list().setNeedle("first");
    viewer_.list().setSpan(EventModel::Span{1, 2});
    viewer_.Read_Log();
    viewer_.unload();
    EXPECT_FALSE(viewer_.isLoading());
    EXPECT_EQ(viewer_.list().rowCount(), 0);
    EXPECT_EQ(viewer_.list().store().size(), 0u);
    EXPECT_EQ(viewer_.list().sortColumn(), -1);
    EXPECT_FALSE(viewer_.list().isNarrowed());
    EXPECT_EQ(operator_.pointer, platform::Pointer::Default);
    QCoreApplication::processEvents();
    EXPECT_EQ(viewer_.list().rowCount(), 0);
    viewer_.filter().Active = "True";
    viewer_.load();
    EXPECT_FALSE(viewer_.isFiltered());
    EXPECT_EQ(viewer_.info(), "");
}

TEST_F(EventViewerTest, ALaterSliceMayFailToo)
{
    makeLongLogs();
    log("Calidora_3.log", "no event\n");
    EXPECT_TRUE(viewer_.Read_Log());
    readToTheEnd();
    recorder_.expectOne(platform::errors::kTypeMismatch, "Module/Read_Log");
    EXPECT_EQ(viewer_.list().rowCount(), 24000);
    EXPECT_EQ(viewer_.info(), "");
}

TEST_F(EventViewerTest, WithoutTheFolderTheLoadFails)
{
    ASSERT_TRUE(QDir(folder_.file("Log")).removeRecursively());
    EXPECT_FALSE(viewer_.Read_Log());
    recorder_.expectOne(platform::errors::kPathNotFound, "Module/Read_Log");
    session_.Language = session::LanguageSettings::fromIdentifier(support::kNoLanguage);
    EXPECT_FALSE(viewer_.Read_Log());
    recorder_.expectUnder("Module/Read_Log");
}

TEST_F(EventViewerTest, TellsHowManyEventsANarrowedListShows)
{
    log("Calidora_1.log", logs::event("fire").repeated(1200) + logs::event("door"));
    viewer_.Read_Log();
    viewer_.list().setNeedle("fire");
    EXPECT_EQ(viewer_.narrowed(), "Shown: 1,200");
    EXPECT_EQ(viewer_.info(), "Total events: 1,201");
}

TEST_F(EventViewerTest, ChecksAllAndNone)
{
    log("Calidora_1.log", logs::event("x").repeated(3));
    viewer_.Read_Log();
    viewer_.Check_List();
    EXPECT_EQ(viewer_.list().checkedCount(), 3);
    viewer_.UnCheck_List();
    EXPECT_EQ(viewer_.list().checkedCount(), 0);
}

TEST_F(EventViewerTest, TheFiltersWindowIsModal)
{
    QSignalSpy changed(&viewer_, &EventViewer::changed);
    viewer_.Filter_Events();
    EXPECT_THAT(operator_.forms, ElementsAre("modal frmEventFilter"));
    EXPECT_EQ(changed.size(), 1);
    operator_.onModal = [](const QString&) { support::breakDown(); };
    viewer_.Filter_Events();
    recorder_.expectOne(platform::errors::kDeviceIo, "frmEventViewer/Filter_Events");
}

TEST_F(EventViewerTest, TheBoundsBeginAtThisSecondOfTheWall)
{
    clock_.run(5678);
    viewer_.load();
    EXPECT_EQ(viewer_.txtMinDate(), QDateTime(QDate(2026, 11, 21), QTime(12, 0, 5), Qt::UTC));
    EXPECT_EQ(viewer_.txtMaxDate(), viewer_.txtMinDate());
}

TEST_F(EventViewerTest, TheStatusFollowsTheLanguage)
{
    log("Calidora_1.log", logs::event("x"));
    viewer_.Read_Log();
    session_.Language = session::LanguageSettings::fromIdentifier("IT_Italiano_1000");
    viewer_.relabel();
    EXPECT_EQ(viewer_.info(), texts_(247) + " 1");
    EXPECT_EQ(viewer_.list().text(0, EventColumn::Type), "Informazione");
}

TEST_F(EventViewerTest, ShowsOneEventWholeAndAsksForItsPlace)
{
    log("Calidora_1.log", logs::event("first") + logs::event("second", "15/03/2026 00:00:00", "2"));
    viewer_.Read_Log();
    QStringList asked;
    QObject::connect(&viewer_, &EventViewer::placeWanted,
                     [&](const QString& equipment, const QString& instrument) {
                         asked << equipment << instrument;
                         viewer_.setPlace("here");
                     });
    QString place;
    operator_.onModal = [&](const QString&) { place = viewer_.place(); };
    viewer_.Show_Event(1);
    EXPECT_THAT(asked, ElementsAre("PLANT", "BOILER"));
    EXPECT_THAT(viewer_.shownEvent(),
                ElementsAre("Warning", "2026/03/15 00:00:00", "READ/WRITE", "PLANT", "BOILER", "second"));
    EXPECT_EQ(viewer_.shownType(), 2);
    EXPECT_EQ(place, "here");
    EXPECT_THAT(operator_.forms, ElementsAre("modal frmEventText"));
    for (const int row : {-1, 2})
        viewer_.Show_Event(row);
    EXPECT_EQ(operator_.forms.size(), 1);
    viewer_.disconnect();
    viewer_.Show_Event(0); // nobody leads the plant there
    EXPECT_EQ(place, "");
    operator_.onModal = [](const QString&) { support::breakDown(); };
    viewer_.Show_Event(0);
    recorder_.expectOne(platform::errors::kDeviceIo, "frmEventViewer/Show_Event");
}

// Export
// ------------------------------------------------------------------------------------------------------------

class EventExportTest : public EventViewerTest
{
protected:
    EventExportTest()
    {
        session_.DirExport = folder_.file("Data");
        log("Calidora_1.log", logs::event("first") + logs::event("sec,ond \"q\" \x07.") +
                                  logs::event("third", "15/03/2026 00:00:00", "3"));
        viewer_.Read_Log();
        viewer_.Check_List();
    }
    void exportTo(const QString& name, int form)
    {
        operator_.chooseFile(name, form);
        operator_.expect(texts_(509));
        viewer_.Export_List();
        recorder_.expectNone();
        EXPECT_TRUE(operator_.done());
        EXPECT_EQ(operator_.unexpected, QStringList());
    }
    const QString kFile = folder_.file("Data/events.txt");
};

TEST_F(EventExportTest, FixedColumnsWithABlankBetweenThem)
{
    exportTo(kFile, 1);
    const QList<QByteArray> lines = folder_.read("Data/events.txt").split('\n');
    ASSERT_EQ(lines.size(), 5);
    const QByteArray heading =
        QByteArray("Type").leftJustified(21) + QByteArray("Date").leftJustified(20) +
        QByteArray("Source").leftJustified(21) + QByteArray("Equipment").leftJustified(51) +
        QByteArray("Instrument").leftJustified(51) + QByteArray("Description").leftJustified(255) + '\r';
    EXPECT_EQ(lines[0], heading);
    const QByteArray third = QByteArray("Error").leftJustified(21) + "2026/03/15 00:00:00 " +
                             QByteArray("READ/WRITE").leftJustified(21) +
                             QByteArray("PLANT").leftJustified(51) + QByteArray("BOILER").leftJustified(51) +
                             QByteArray("third").leftJustified(255) + '\r';
    EXPECT_EQ(lines[3], third);
    EXPECT_EQ(lines[4], "");
    EXPECT_EQ(operator_.boxes.back().icon, platform::Icon::Information);
}

TEST_F(EventExportTest, CommasWithoutQuotesInTheListsOrder)
{
    viewer_.list().clickColumn(EventColumn::Description);
    viewer_.list().clickColumn(EventColumn::Description);
    viewer_.list().setData(viewer_.list().index(2, 0), Qt::Unchecked, Qt::CheckStateRole); // "first"
    exportTo(folder_.file("Data/events.csv"), 2);
    EXPECT_EQ(folder_.read("Data/events.csv"),
              "Type,Date,Source,Equipment,Instrument,Description\r\n"
              "Error,2026/03/15 00:00:00,READ/WRITE,PLANT,BOILER,third\r\n"
              "Information,2026/03/14 10:20:30,READ/WRITE,PLANT,BOILER,sec,ond \"q\"  .\r\n");
}

TEST_F(EventExportTest, OnlyWhatTheListShowsIsExported)
{
    viewer_.list().setNeedle("third");
    exportTo(folder_.file("Data/events.csv"), 2);
    EXPECT_EQ(folder_.read("Data/events.csv").count('\n'), 2);
}

TEST_F(EventExportTest, WithNothingCheckedItAsksForRows)
{
    viewer_.UnCheck_List();
    operator_.expect(texts_(532));
    viewer_.Export_List();
    EXPECT_EQ(operator_.boxes.back().icon, platform::Icon::Information);
    EXPECT_TRUE(operator_.fileRequests.empty());
}

TEST_F(EventExportTest, ACancelIsTold)
{
    operator_.chooseFile({});
    operator_.expect(texts_(502));
    viewer_.Export_List();
    ASSERT_EQ(operator_.fileRequests.size(), 1u);
    EXPECT_EQ(operator_.fileRequests[0].title, "Save as");
    EXPECT_EQ(operator_.fileRequests[0].filter, texts_(249));
    EXPECT_EQ(operator_.fileRequests[0].folder, session_.DirExport);
    EXPECT_EQ(session_.DirExport, folder_.file("Data"));
    recorder_.expectNone();
}

TEST_F(EventExportTest, TheFolderIsKeptAndAMissingOneGivesTheLogs)
{
    session_.DirExport = folder_.file("gone");
    exportTo(kFile, 1);
    EXPECT_EQ(operator_.fileRequests[0].folder, folder_.file("Log"));
    EXPECT_EQ(session_.DirExport, folder_.file("Data"));
}

TEST_F(EventExportTest, ShowsItsProgress)
{
    log("Calidora_1.log", logs::event("x").repeated(200));
    viewer_.Read_Log();
    viewer_.Check_List();
    QList<int> shown;
    QObject::connect(&viewer_, &EventViewer::changed, [&] { shown << viewer_.progress().value_or(-1); });
    exportTo(kFile, 1);
    ASSERT_EQ(shown.size(), 102); // once each percent
    EXPECT_EQ(shown.first(), 0);
    EXPECT_EQ(shown[50], 50);
    EXPECT_EQ(shown[100], 100);
    EXPECT_EQ(shown.last(), -1);
}

TEST_F(EventExportTest, AFolderThatTakesNoFileFailsAndNothingIsLeft)
{
    ASSERT_TRUE(QDir(folder_.path()).mkdir("Data/events.txt")); // a folder of that name
    operator_.chooseFile(kFile);
    viewer_.Export_List();
    recorder_.expectUnder("frmEventViewer/Export_List");
    EXPECT_FALSE(viewer_.progress());
    EXPECT_EQ(folder_.names("Data"), QStringList());
}

TEST_F(EventExportTest, AReadOnlyFolderIsToldAndTheFormerFileStays)
{
    folder_.write("Data/events.txt", "former");
    ::chmod(qPrintable(folder_.path()), 0755);
    ::chmod(qPrintable(folder_.file("Data")), 0555);
    operator_.chooseFile(kFile);
    {
        const support::OrdinaryUser nobody;
        viewer_.Export_List();
    }
    ::chmod(qPrintable(folder_.file("Data")), 0755);
    ASSERT_EQ(recorder_.failures().size(), 1u);
    EXPECT_THAT(recorder_.failures()[0].description.toStdString(), HasSubstr("events.txt"));
    recorder_.expectOne(platform::errors::kPermissionDenied, "frmEventViewer/Export_List");
    EXPECT_EQ(folder_.read("Data/events.txt"), "former");
    EXPECT_EQ(folder_.names("Data"), QStringList{"events.txt"});
    EXPECT_FALSE(viewer_.progress());
}

// Who has the former file open goes on reading it; the new one stands whole under its name.
TEST_F(EventExportTest, AFileThatAnotherProgramHoldsIsReplacedWhole)
{
    folder_.write("Data/events.txt", "former");
    QFile held(kFile);
    ASSERT_TRUE(held.open(QIODevice::ReadWrite));
    ASSERT_EQ(::flock(held.handle(), LOCK_EX | LOCK_NB), 0);
    exportTo(kFile, 1);
    EXPECT_EQ(held.readAll(), "former");
    EXPECT_EQ(folder_.read("Data/events.txt").count('\n'), 4);
}

TEST_F(EventExportTest, AFullDiskLeavesTheFormerFile)
{
    log("Calidora_1.log", logs::event("x").repeated(3000));
    viewer_.Read_Log();
    viewer_.Check_List();
    folder_.write("Data/events.txt", "former");
    operator_.chooseFile(kFile);
    {
        const support::FullDisk full(100000);
        viewer_.Export_List();
    }
    recorder_.expectOne(platform::errors::kDiskFull, "frmEventViewer/Export_List");
    EXPECT_EQ(folder_.read("Data/events.txt"), "former");
    EXPECT_EQ(folder_.names("Data"), QStringList{"events.txt"});
    EXPECT_FALSE(viewer_.progress());
}

// Print
// ------------------------------------------------------------------------------------------------------------

TEST_F(EventExportTest, PrintsTheCheckedRowsOnTheChosenPrinter)
{
    session_.CompanySet[session::Company] = "ACME";
    operator_.onModal = [this](const QString& form) {
        EXPECT_EQ(form, "frmPrinters");
        printing_.choose("Office", 2);
    };
    viewer_.Print_List();
    ASSERT_EQ(printers_.jobs.size(), 1u);
    EXPECT_EQ(printers_.jobs[0].orientation, platform::Orientation::Landscape);
    EXPECT_EQ(printers_.jobs[0].title, "Event Viewer");
    EXPECT_EQ(printers_.jobs[0].order.copies, 2);
    EXPECT_EQ(printers_.jobs[0].font, "Courier New");
    EXPECT_EQ(printers_.jobs[0].pages[0][1], "Event Viewer - ACME - 21/11/2026 - Page 1");
    recorder_.expectNone();
    operator_.onModal = [](const QString&) { support::breakDown(); };
    viewer_.Print_List();
    recorder_.expectOne(platform::errors::kDeviceIo, "frmEventViewer/Print_List");
}

TEST_F(EventExportTest, WithNothingCheckedNothingIsPrinted)
{
    viewer_.UnCheck_List();
    operator_.expect(texts_(532));
    viewer_.Print_List();
    EXPECT_EQ(operator_.forms, QStringList());
}

class FilterEditorTest : public EventViewerTest
{
protected:
    FilterEditorTest()
    {
        log("Calidora_1.log", logs::event("early", "02/01/2026 03:04:05") + logs::event("warn", kLate, "2") +
                                  logs::event("late", kLate));
        viewer_.Read_Log();
        editor_.load();
    }
    static constexpr char kLate[] = "14/03/2026 10:20:30";
    const QDateTime kMin{QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC};
    const QDateTime kMax{QDate(2026, 3, 14), QTime(10, 20, 30), Qt::UTC};
    FilterEditor editor_{viewer_};
};

TEST_F(FilterEditorTest, BeginsWithEverythingAndTheBoundsOfAllEvents)
{
    const FilterControls rest{true, true, true, 0, {}, {}, 0, 0, kMin, kMax};
    EXPECT_EQ(editor_.controls(), rest);
    EXPECT_FALSE(editor_.Changed());
    EXPECT_FALSE(editor_.applyEnabled());
}

TEST_F(FilterEditorTest, AChangeReachesTheListWithApplyOnly)
{
    QSignalSpy shown(&editor_, &FilterEditor::shown);
    FilterControls controls = editor_.controls();
    controls.chkInfo = false;
    editor_.change(controls);
    EXPECT_TRUE(editor_.Changed());
    EXPECT_TRUE(editor_.applyEnabled());
    EXPECT_EQ(shown.size(), 1);
    EXPECT_FALSE(viewer_.isFiltered());
    editor_.cmdApply();
    EXPECT_TRUE(viewer_.isFiltered());
    EXPECT_THAT(descriptions(), ElementsAre("warn"));
    EXPECT_FALSE(editor_.Changed());
    EXPECT_FALSE(editor_.applyEnabled());
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(FilterEditorTest, StoresEveryControlAsItsText)
{
    const FilterControls controls{false,
                                  true,
                                  false,
                                  2,
                                  "PLANT",
                                  "BOILER",
                                  1,
                                  1,
                                  {QDate(2026, 2, 3), QTime(4, 5, 6), Qt::UTC},
                                  {QDate(2027, 3, 4), QTime(15, 6, 7), Qt::UTC}};
    editor_.change(controls);
    editor_.cmdOK();
    const EventFilter& filter = viewer_.filter();
    EXPECT_THAT((QStringList{filter.Active, filter.Info, filter.Warning, filter.Error, filter.Source,
                             filter.Equipment, filter.Instrument, filter.FromMode, filter.FromDate,
                             filter.FromTime, filter.ToMode, filter.ToDate, filter.ToTime}),
                ElementsAre("True", "False", "True", "False", "2", "PLANT", "BOILER", "1", "03/02/2026",
                            "04:05:06", "1", "04/03/2027", "15:06:07"));
    EXPECT_THAT(descriptions(), ElementsAre("warn"));
    FilterEditor again(viewer_);
    again.load();
    EXPECT_EQ(again.controls(), controls);
    EXPECT_FALSE(again.Changed());
}

TEST_F(FilterEditorTest, ASideWithoutALimitShowsTheBound)
{
    FilterControls controls = editor_.controls();
    controls.cbxFrom = 1;
    controls.from = controls.from.addDays(5);
    controls.to = controls.to.addDays(5); // nobody can, while the side has no limit
    editor_.change(controls);
    EXPECT_EQ(editor_.controls().from, kMin.addDays(5));
    EXPECT_EQ(editor_.controls().to, kMax);
    controls.cbxFrom = 0;
    controls.cbxTo = 1;
    editor_.change(controls);
    EXPECT_EQ(editor_.controls().from, kMin);
    EXPECT_EQ(editor_.controls().to, kMax.addDays(5));
}

TEST_F(FilterEditorTest, AStoredSideWithoutALimitFollowsTheBounds)
{
    viewer_.filter() = {"True", "True",       "True",     "True", "0", {}, {},
                        "0",    "01/01/1999", "00:00:00", "0",    {},  {}};
    editor_.load();
    EXPECT_EQ(editor_.controls().from, kMin);
    EXPECT_EQ(editor_.controls().to, kMax);
}

TEST_F(FilterEditorTest, RestoreTakesTheFilterBack)
{
    viewer_.filter() = {"True", "False",      "False",    "False", "1",          "A",       "B",
                        "1",    "01/01/1999", "00:00:00", "1",     "01/01/1999", "00:00:00"};
    viewer_.Read_Log();
    EXPECT_THAT(descriptions(), IsEmpty());
    editor_.load();
    editor_.cmdReset();
    const FilterControls rest{true, true, true, 0, {}, {}, 0, 0, kMin, kMax};
    EXPECT_EQ(editor_.controls(), rest);
    EXPECT_TRUE(editor_.applyEnabled());
    EXPECT_TRUE(viewer_.isFiltered()); // until it is applied
    editor_.cmdOK();
    EXPECT_FALSE(viewer_.isFiltered());
    EXPECT_EQ(viewer_.info(), "Total events: 3");
}

TEST_F(FilterEditorTest, WithoutAChangeNothingIsReadAgain)
{
    log("Calidora_2.log", logs::event("new"));
    editor_.change(editor_.controls());
    EXPECT_FALSE(editor_.Changed());
    editor_.cmdApply();
    editor_.cmdOK();
    EXPECT_EQ(viewer_.list().rowCount(), 3);
    EXPECT_FALSE(viewer_.isFiltered());
}

TEST_F(FilterEditorTest, FindsNamesOfFiftyCharactersOfAnyScript)
{
    const QStringList names{
        QString(50, QChar(u'W')),          QStringLiteral("Ж").repeated(50),
        QStringLiteral("Ὀ").repeated(50),  QStringLiteral("مصنع ").repeated(10).trimmed() + QChar(u'.'),
        QStringLiteral("冷").repeated(50), QString::fromUcs4(U"\U0001F9CA").repeated(25),
    };
    for (const int codePage : {1252, 1251}) {
        session_.CodePage = codePage;
        for (const QString& name : names) {
            const QByteArray bytes = platform::encode(name, codePage).left(50);
            log("Calidora_1.log", logs::line("1", "14/03/2026 10:20:30", "2", bytes, bytes, "found") + '\n' +
                                      logs::event("other"));
            FilterControls controls = editor_.controls();
            controls.txtEquipment = controls.txtInstrument = name;
            editor_.change(controls);
            editor_.cmdApply();
            const bool inPage = platform::decode(bytes, codePage) == name;
            EXPECT_EQ(descriptions(), inPage ? QStringList{"found"} : QStringList()) << qPrintable(name);
            EXPECT_EQ(viewer_.filter().Equipment, name);
            EXPECT_EQ(viewer_.filter().Instrument, name);
        }
    }
    recorder_.expectNone();
}

TEST_F(FilterEditorTest, ASpanThatEndsBeforeItBeginsIsSeen)
{
    FilterControls controls = editor_.controls();
    controls.cbxFrom = controls.cbxTo = 1;
    controls.from = controls.to;
    editor_.change(controls);
    EXPECT_FALSE(editor_.isEmptySpan());
    controls.from = controls.to.addSecs(1);
    editor_.change(controls);
    EXPECT_TRUE(editor_.isEmptySpan());
    editor_.cmdOK();
    EXPECT_THAT(descriptions(), IsEmpty());
    controls.cbxTo = 0;
    editor_.change(controls);
    EXPECT_FALSE(editor_.isEmptySpan());
    controls.cbxTo = 1;
    controls.cbxFrom = 0;
    controls.to = controls.from.addDays(-900);
    editor_.change(controls);
    EXPECT_FALSE(editor_.isEmptySpan());
}

} // namespace
