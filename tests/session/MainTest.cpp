#include "session/Main.h"

#include "platform/ScriptedOperator.h"
#include "platform/VirtualClock.h"
#include "session/CommandStates.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "support/FailureRecorder.h"
#include "support/NamedFailure.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace session;
using platform::answers::kNo;
using platform::answers::kYes;
using testing::ElementsAre;

namespace {

// Main with everybody it calls replaced by a note in `steps`.
class MainTest : public testing::Test
{
protected:
    MainTest()
    {
        session.AppPath = folder_.path();
        session.Language = LanguageSettings::fromIdentifier("EN_English_2000");
        QDir(folder_.path()).mkpath("Data");
        QDir(folder_.path()).mkpath("Log");
    }

    MainServices services()
    {
        MainServices services;
        services.Read_Configuration = [this] { return note("read configuration"), configured; };
        services.Write_Configuration = [this] {
            return note("write configuration of '" + session.DbName + "'"), true;
        };
        services.anotherInstanceRuns = [this] { return note("instance?"), secondInstance; };
        services.folderIsClosed = [this] { return folderClosed; };
        services.Connect_Database = [this](const QString& path) {
            note("connect " + path);
            if (leavesWhileConnecting)
                main.Unload();
            return connects;
        };
        services.Disconnect_Database = [this] {
            note("disconnect");
            session.DbName.clear();
        };
        services.Delete_Log = [this](bool enabled, bool all) {
            note(QString("purge %1 %2").arg(enabled).arg(all));
        };
        services.Set_COMPort = [this] { return note("set port"), true; };
        services.Open_COMConnection = [this] { return note("open port"), true; };
        services.Close_COMConnection = [this] { return note("close port"), true; };
        services.makeSureOfAnOperator = [this] { note("an operator?"); };
        services.selectAboveRoot = [this] { note("above root"); };
        services.applyTreeMenus = [this] { note("tree menus"); };
        services.showCaption = [this] { note("caption of '" + session.CurrentUser.Name + "'"); };
        services.valuesWaiting = [this] { return waiting; };
        services.endProgram = [this] { note("end"); };
        return services;
    }

    // Services and windows in one sequence: each note first takes what was asked of the windows until then.
    void note(const QString& step)
    {
        takeForms();
        steps << step;
    }
    void takeForms()
    {
        steps << op.forms;
        op.forms.clear();
    }
    std::vector<QString> run()
    {
        goesOn = main.run();
        takeForms();
        return {steps.begin(), steps.end()};
    }
    void comesIn(const QString& name)
    {
        session.CurrentUser.IDUser = "7";
        session.CurrentUser.Name = name;
        main.loggedIn();
    }
    // The commands as with no company, and "Enter".
    void expectTheGateClosed()
    {
        EXPECT_EQ(session.CurrentUser.IDUser, "");
        for (const char* key :
             {"Tree", "View", "Refresh", "Property", "Expand", "EventViewer", "Parent", "New"})
            EXPECT_FALSE(commands.buttonEnabled(key)) << key;
        for (const char* key : {"Enter", "Settings", "OpenDb", "CloseDb", "About", "Exit"})
            EXPECT_TRUE(commands.buttonEnabled(key)) << key;
        for (const Place place : {Place::Tree, Place::List}) {
            EXPECT_TRUE(commands.menuEnabled(place, "mnuEnter"));
            EXPECT_TRUE(commands.menuEnabled(place, "mnuRestoreDb"));
            for (const char* name :
                 {"mnuCommands", "mnuRefresh", "mnuProperty", "mnuUsers", "mnuBackupDb", "mnuFind"})
                EXPECT_FALSE(commands.menuEnabled(place, name)) << name;
        }
    }
    void makeMarker(const QString& name) { QFile(session.appFile(name)).open(QIODevice::WriteOnly); }

    bool configured = true;
    int waiting = 0; // values that are not written yet
    bool secondInstance = false;
    bool folderClosed = false;
    bool leavesWhileConnecting = false;
    bool connects = true;
    bool goesOn = false;
    QStringList steps;
    Session session;
    Texts texts{session.Language};
    platform::ScriptedOperator op;
    platform::VirtualClock clock;
    structure::Structure structure{session, texts, op};
    CommandStates commands{session};
    Main main{{session, texts, op, clock, commands, services()}};
    support::FailureRecorder failures;

private:
    QTemporaryDir folder_;
};

TEST_F(MainTest, AFailureStandsUnderItsProceduresName)
{
    session.Language = LanguageSettings::fromIdentifier(support::kNoLanguage);
    main.Close_Database();
    failures.expectUnder("Module/Close_Database");
    main.leave();
    failures.expectUnder("frmMain.mnuExit_Click");
    main.LogInOut();
    failures.expectUnder("Module/LogInOut");
    EXPECT_TRUE(main.QueryUnload()) << "a question that can't be asked keeps nobody here";
    failures.expectUnder("frmMain.QueryUnload");
    MainServices failing = services();
    failing.Write_Configuration = []() -> bool { support::breakDown(); };
    Main another({session, texts, op, clock, commands, failing});
    another.Unload();
    failures.expectUnder("frmMain.Unload");
}

TEST_F(MainTest, StartsInItsOrderWithoutACompany)
{
    EXPECT_THAT(run(), ElementsAre("show frmPresentation", "read configuration", "unload frmPresentation",
                                   "instance?", "show frmMain", "disable frmTreeBus", "disable frmListBus",
                                   "set port", "open port"));
    EXPECT_TRUE(goesOn);
    EXPECT_EQ(clock.elapsed(), 2000);
    EXPECT_FALSE(commands.buttonEnabled("Refresh"));
    EXPECT_TRUE(commands.buttonEnabled("Settings"));
    EXPECT_TRUE(commands.menuEnabled(Place::Tree, "mnuRestoreDb"));
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuBackupDb"));
}

// The clock of seconds starts anew at midnight: the splash would stand for a day.
TEST_F(MainTest, TheSplashDoesNotWaitOverMidnight)
{
    for (const auto& [begin, waited] :
         {std::pair(QTime(23, 59, 59, 500), 2500), std::pair(QTime(23, 59, 57, 900), 2000)}) {
        platform::VirtualClock night(QDateTime(QDate(2026, 11, 21), begin));
        Main atNight({session, texts, op, night, commands, services()});
        ASSERT_TRUE(atNight.run());
        EXPECT_EQ(night.elapsed(), waited);
    }
}

TEST_F(MainTest, OpensTheLastCompanyPurgesAndAsksForTheLogin)
{
    session.DbPath = "/plants";
    session.DbName = "demo.mdb";
    session.LogSet.DelLog = 0;
    op.onModal = [this](const QString&) {
        expectTheGateClosed();
        comesIn("ROSSI");
    };
    const std::vector<QString> seen = run();
    EXPECT_THAT(std::vector<QString>(seen.end() - 10, seen.end()),
                ElementsAre("show frmMain", "connect /plants/demo.mdb", "purge 0 0", "an operator?",
                            "caption of ''", "modal frmLogInOut", "tree menus", "caption of 'ROSSI'",
                            "set port", "open port"));
    EXPECT_TRUE(goesOn);
    EXPECT_TRUE(commands.buttonEnabled("Refresh"));
    EXPECT_FALSE(commands.buttonEnabled("Parent"));
    EXPECT_TRUE(commands.menuEnabled(Place::List, "mnuBackupDb"));
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuNew")) << "nothing is selected";
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuUsers"));
}

TEST_F(MainTest, ALoginClosedWithoutAnOperatorLeavesTheCompanyOpenAndTheCommandsClosed)
{
    session.DbPath = "/plants";
    session.DbName = "demo.mdb";
    const std::vector<QString> seen = run();
    EXPECT_THAT(std::vector<QString>(seen.end() - 3, seen.end()),
                ElementsAre("modal frmLogInOut", "set port", "open port"));
    EXPECT_TRUE(goesOn);
    EXPECT_EQ(session.DbName, "demo.mdb");
    expectTheGateClosed();
}

TEST_F(MainTest, TheLoginsExitEndsTheStartAtOnce)
{
    session.DbPath = "/plants";
    session.DbName = "demo.mdb";
    op.onModal = [this](const QString&) { main.endProgram(); };
    const std::vector<QString> seen = run();
    EXPECT_THAT(std::vector<QString>(seen.end() - 2, seen.end()), ElementsAre("modal frmLogInOut", "end"));
    EXPECT_FALSE(goesOn);
    EXPECT_EQ(session.DbName, "demo.mdb") << "it doesn't disconnect";
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(MainTest, AnotherLoginClosesTheWindowsAndBeginsAboveTheRoot)
{
    session.DbName = "demo.mdb";
    comesIn("ROSSI");
    steps.clear();
    op.expect(texts(513) + "\r\n" + texts(514), kNo);
    main.LogInOut();
    EXPECT_TRUE(steps.isEmpty());
    EXPECT_EQ(session.CurrentUser.Name, "ROSSI");
    EXPECT_EQ(op.boxes[0].buttons, platform::Buttons::YesNo);

    op.expect(texts(513) + "\r\n" + texts(514), kYes);
    op.onModal = [this](const QString&) { expectTheGateClosed(); };
    main.LogInOut();
    takeForms();
    EXPECT_EQ(steps, (QStringList{"unload all", "above root", "caption of ''", "modal frmLogInOut"}));
    EXPECT_EQ(session.CurrentUser.Name, "");
}

TEST_F(MainTest, WithoutACompanyThereIsNothingToLogInTo)
{
    op.expect(texts(504));
    main.LogInOut();
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Exclamation);
    EXPECT_TRUE(op.forms.isEmpty());
}

TEST_F(MainTest, NobodyWorksWithACompanyThatIsLost)
{
    session.DbName = "demo.mdb";
    comesIn("ROSSI");
    session.DbName.clear();
    main.companyLost();
    EXPECT_EQ(session.CurrentUser.IDUser, "");
    EXPECT_FALSE(commands.buttonEnabled("Enter"));
    EXPECT_FALSE(commands.menuEnabled(Place::Tree, "mnuEnter"));
}

TEST_F(MainTest, ACompanyThatDoesNotOpenLeavesTheProgramRunningWithNone)
{
    session.DbPath = "/plants";
    session.DbName = "gone.mdb";
    connects = false;
    const std::vector<QString> seen = run();
    EXPECT_THAT(std::vector<QString>(seen.end() - 4, seen.end()),
                ElementsAre("connect /plants/gone.mdb", "disconnect", "set port", "open port"));
    EXPECT_TRUE(goesOn);
    EXPECT_FALSE(commands.buttonEnabled("Tree"));
}

TEST_F(MainTest, AFirstRunTakesBothMarkersAndAsksTheLanguageOnce)
{
    configured = false;
    makeMarker("Data/Readme_Data.txt");
    makeMarker("Log/Readme_Log.txt");
    run();
    EXPECT_EQ(steps.count("modal frmLanguage"), 1);
    EXPECT_EQ(steps.mid(0, 3),
              (QStringList{"show frmPresentation", "read configuration", "modal frmLanguage"}));
    EXPECT_FALSE(QFile::exists(session.appFile("Data/Readme_Data.txt")));
    EXPECT_FALSE(QFile::exists(session.appFile("Log/Readme_Log.txt")));
    EXPECT_EQ(session.Language.ID, "IT_Italiano_1000");
    EXPECT_EQ(session.DbPath, session.appFile("Data"));
    EXPECT_EQ(session.DirExport, session.appFile("Log"));
}

// What can't be deleted is told; the language is asked for all the same. As somebody who may not delete it,
// in a process of its own.
TEST_F(MainTest, AMarkerThatStaysIsToldAndTheStartGoesOn)
{
    configured = false;
    makeMarker("Data/Readme_Data.txt");
    const auto readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup;
    QFile::setPermissions(session.AppPath, readOnly);
    QFile::setPermissions(session.appFile("Data"), readOnly);
    const auto start = [this] {
        if (geteuid() == 0 && setuid(65534) != 0)
            return false;
        run();
        const auto told = failures.take();
        return told.size() == 1 && told[0].procedure == "Module/Main" &&
               told[0].number == platform::errors::kPermissionDenied && steps.contains("modal frmLanguage") &&
               steps.contains("show frmMain");
    };
    EXPECT_EXIT(std::exit(start() ? 0 : 1), testing::ExitedWithCode(0), "");
    QFile::setPermissions(session.appFile("Data"), readOnly | QFile::WriteOwner);
    QFile::setPermissions(session.AppPath, readOnly | QFile::WriteOwner);
}

TEST_F(MainTest, ThePurgeFollowsItsSwitch)
{
    session.DbName = "demo.mdb";
    session.DbPath = "/plants";
    session.LogSet.DelLog = -1;
    run();
    EXPECT_EQ(steps.count("purge 1 0"), 1);
}

TEST_F(MainTest, AFirstRunWithoutMarkersAsksNothing)
{
    configured = false;
    run();
    EXPECT_FALSE(steps.contains("modal frmLanguage"));
    EXPECT_EQ(session.Language.Code, "IT");
}

TEST_F(MainTest, AConfiguredRunLeavesTheMarkersAlone)
{
    makeMarker("Data/Readme_Data.txt");
    run();
    EXPECT_FALSE(steps.contains("modal frmLanguage"));
    EXPECT_TRUE(QFile::exists(session.appFile("Data/Readme_Data.txt")));
}

TEST_F(MainTest, ASecondInstanceSaysSoAfterTheSplashAndEndsAtOnce)
{
    secondInstance = true;
    op.expect(texts(580) + "\r\n" + texts(581));
    EXPECT_THAT(run(), ElementsAre("show frmPresentation", "read configuration", "unload frmPresentation",
                                   "instance?"));
    EXPECT_FALSE(goesOn);
    EXPECT_EQ(clock.elapsed(), 2000);
    ASSERT_EQ(op.boxes.size(), 1u);
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(op.boxes[0].title, "Calidora");
}

TEST_F(MainTest, AFolderThatTakesNoFilesIsToldAndTheStartGoesOn)
{
    folderClosed = true;
    const QString words = texts.own("start.closed").arg(QDir::toNativeSeparators(session.AppPath));
    op.expect(words);
    run();
    EXPECT_TRUE(goesOn);
    EXPECT_TRUE(op.done());
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(op.boxes[0].title, "Calidora");
    EXPECT_TRUE(steps.contains("show frmMain"));
}

// An Exit in a window that the start shows: there is nothing left to wait for, and the port stays closed.
TEST_F(MainTest, LeavingInTheMiddleOfTheStartEndsIt)
{
    session.DbPath = "/plants";
    session.DbName = "demo.mdb";
    leavesWhileConnecting = true;
    const std::vector<QString> seen = run();
    EXPECT_FALSE(goesOn);
    EXPECT_THAT(seen, testing::Not(testing::Contains("open port")));
    EXPECT_THAT(seen, testing::Not(testing::Contains("set port")));
    EXPECT_THAT(seen, testing::Contains("close port"));
}

TEST_F(MainTest, ClosingWithoutACompanySaysThatThereIsNone)
{
    op.expect(texts(504));
    main.Close_Database();
    EXPECT_TRUE(op.done());
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(MainTest, ClosingACompanyAsksAndThenClosesEverythingOfIt)
{
    session.DbName = "demo.mdb";
    op.expect(texts(503), kNo);
    main.Close_Database();
    EXPECT_TRUE(steps.isEmpty());

    op.expect(texts(503), kYes);
    main.Close_Database();
    takeForms();
    EXPECT_EQ(steps, (QStringList{"disconnect", "unload all"}));
    EXPECT_FALSE(commands.buttonEnabled("View"));
}

TEST_F(MainTest, LeavingByCommandAsksOnceAndClosesByCode)
{
    op.expect(texts(524), kYes);
    main.leave();
    EXPECT_EQ(op.forms, QStringList{"unload frmMain"});
    EXPECT_TRUE(main.QueryUnload());
    EXPECT_EQ(op.boxes.size(), 1u);
}

TEST_F(MainTest, LeavingByCommandWithNoStays)
{
    op.expect(texts(524), kNo);
    main.leave();
    EXPECT_TRUE(op.forms.isEmpty());
}

TEST_F(MainTest, LeavingTellsHowManyValuesWait)
{
    for (const int values : {0, 1, 12}) {
        waiting = values;
        op.expect(texts(524), kNo);
        main.leave();
        EXPECT_EQ(op.questions.back().more, values == 0 ? QString() : texts.own("exit.waiting").arg(values));
    }
}

TEST_F(MainTest, TheCloseBoxAsksOnceAndNoRefuses)
{
    op.expect(texts(524), kNo);
    EXPECT_FALSE(main.QueryUnload());
    op.expect(texts(524), kYes);
    EXPECT_TRUE(main.QueryUnload());
    EXPECT_EQ(op.boxes.size(), 2u);
    EXPECT_TRUE(op.unexpected.isEmpty());
}

TEST_F(MainTest, LeavingAnOpenConnectionIsToldInALineOfItsOwn)
{
    for (const LineStatus live : {kConnected, kBusy}) {
        session.COMPort.Status = live;
        op.expect(texts(524) + "\r\nA connection is open. It will be cut.", kNo);
        main.leave();
        op.expect(texts(524) + "\r\nA connection is open. It will be cut.", kNo);
        EXPECT_FALSE(main.QueryUnload());
    }
    session.COMPort.Status = kPortClosed;
    op.expect(texts(524), kNo);
    main.leave();
    EXPECT_TRUE(op.unexpected.isEmpty());
}

TEST_F(MainTest, TheMainWindowUnloadsInItsOrderAndRemembersTheCompany)
{
    session.DbName = "demo.mdb";
    main.Unload();
    takeForms();
    EXPECT_EQ(steps,
              (QStringList{"unload all", "write configuration of 'demo.mdb'", "disconnect", "close port"}));
    EXPECT_EQ(session.DbName, "");
}

TEST_F(MainTest, AFailureInTheStartIsReportedUnderItsName)
{
    session.Language.Base = "9000";
    secondInstance = true;
    run();
    const auto taken = failures.take();
    ASSERT_EQ(taken.size(), 1u);
    EXPECT_EQ(taken[0].procedure, "Module/Main");
}

} // namespace
