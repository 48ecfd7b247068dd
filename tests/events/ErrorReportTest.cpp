#include "events/ErrorReport.h"

#include "events/FakeMachine.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/ScriptedOperator.h"
#include "platform/TextFile.h"
#include "platform/VirtualClock.h"
#include "session/Session.h"
#include "support/ApplicationFolder.h"
#include "support/FullDisk.h"

#include <gmock/gmock.h>

using namespace events;
using namespace platform;
using testing::ElementsAre;

namespace {

const QString kReport = "Log/Calidora_Error_20260314090000.log";

class ErrorReportTest : public testing::Test
{
protected:
    ErrorReportTest()
    {
        session_.AppPath = folder_.path();
        session_.DbPath = "/srv/firms";
        session_.DbName = "Alfa.mdb";
        session_.DbVersion = "1.2";
        session_.CompanySet = {"Alfa S.p.A.", "Via Lunga, 2", "00100", "Borgo", "Italia",
                               "06 1",        "06 2",         "a@b",   "www",   "IT1"};
        session_.CurrentUser.IDUser = "7";
        session_.CurrentUser.Name = "ROSSI";
        session_.CurrentUser.Phone = "11";
        session_.CurrentUser.Fax = "22";
        session_.CurrentUser.MobilePhone = "33";
        session_.CurrentUser.EMail = "r@b";
    }

    QStringList report(int number = 13, const QString& description = "Type mismatch",
                       const QString& procedure = "Module/Compose_Key")
    {
        report_.Report_RuntimeError(number, description, procedure);
        return linesOf(kReport);
    }

    QStringList linesOf(const QString& name)
    {
        QString text = decode(folder_.read(name), session_.CodePage);
        EXPECT_TRUE(text.endsWith(kSystemLineEnd));
        text.chop(qsizetype(qstrlen(kSystemLineEnd)));
        return text.split(kSystemLineEnd);
    }

    static QStringList disksOf(const QStringList& lines) { return lines.filter("Spazio disponibile"); }

    support::ApplicationFolder folder_;
    session::Session session_;
    VirtualClock clock_;
    FakeMachine machine_;
    ErrorReport report_{session_, clock_, machine_};
};

TEST_F(ErrorReportTest, TellsEverythingLineForLine)
{
    const QStringList expected{
        "---------------< Informazioni Errore >---------------",
        "Errore N°: 13",
        "Descrizione: Type mismatch",
        "Nome della funzione che ha generato l'errore: Module/Compose_Key",
        "",
        "---------------< Informazioni Calidora >---------------",
        "Versione programma: 0.1.0",
        "Percorso installazione: " + folder_.path(),
        "",
        "---------------< Informazioni Sistema >---------------",
        "Sistema operativo: Debian GNU/Linux 12 (bookworm)   ver. 6.1 (Build 0-18-amd64)",
        "CPU: Intel(R) Core(TM) i5",
        "RAM totale: 16,384,000 KB",
        "RAM libera: 999KB",
        "Spazio disponibile sull'unità / 1,000 KB di 1,000 KB",
        "Spazio disponibile sull'unità /srv 2 KB di 1,234,567 KB",
        "",
        "---------------< Informazioni Società >---------------",
        "Percorso e nome del database: /srv/firms/Alfa.mdb",
        "Versione database: 1.2",
        "",
        "Ragione sociale: Alfa S.p.A.",
        "Indirizzo: Via Lunga, 2",
        "C.A.P.: 00100",
        "Località: Borgo",
        "Nazione: Italia",
        "Telefono: 06 1",
        "Fax: 06 2",
        "E-mail: a@b",
        "Sito WEB: www",
        "Partita I.V.A.: IT1",
        "",
        "Operatore connesso: ROSSI",
        "Telefono: 11",
        "Fax: 22",
        "Cellulare: 33",
        "E-mail: r@b",
    };
    const QStringList lines = report();
    ASSERT_EQ(lines.size(), 37);
    for (qsizetype line = 0; line < lines.size(); ++line)
        EXPECT_EQ(lines[line].toStdString(), expected[line].toStdString()) << "line " << line + 1;
}

TEST_F(ErrorReportTest, TheAdministratorAndNobodyHaveNoNumbers)
{
    for (const char* user : {"0", ""}) {
        session_.CurrentUser.IDUser = user;
        const QStringList lines = report();
        EXPECT_EQ(lines.size(), 33) << user;
        EXPECT_EQ(lines.last(), "Operatore connesso: ROSSI");
    }
}

TEST_F(ErrorReportTest, WithoutACompanyOnlyTheHeadingsStand)
{
    session_.DbPath.clear();
    session_.DbName.clear();
    session_.DbVersion.clear();
    session_.CompanySet = {};
    session_.CurrentUser = {};
    const QStringList lines = report();
    ASSERT_EQ(lines.size(), 32);
    EXPECT_EQ(lines[17], "Percorso e nome del database: ");
    EXPECT_EQ(lines[18], "Versione database: ");
    EXPECT_EQ(lines[20], "Ragione sociale: ");
    EXPECT_EQ(lines[29], "Partita I.V.A.: ");
    EXPECT_EQ(lines[31], "Operatore connesso: ");
}

struct DiskRow
{
    const char* application; // "" for the test's own folder, which lies on "/"
    const char* database;
    QStringList mountPoints;
};

class ErrorReportDisksTest : public ErrorReportTest, public testing::WithParamInterface<DiskRow>
{
};

TEST_P(ErrorReportDisksTest, EachDiskIsToldOnce)
{
    const QString application = GetParam().application;
    if (!application.isEmpty())
        session_.AppPath = QString(application).replace("@", folder_.path());
    session_.DbPath = GetParam().database;
    QStringList mountPoints;
    for (const QString& line : disksOf(report()))
        mountPoints << line.section(' ', 3, 3);
    EXPECT_EQ(mountPoints, GetParam().mountPoints);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ErrorReportDisksTest,
    testing::Values(DiskRow{"", "/srv/firms", {"/", "/srv"}}, DiskRow{"", "/home/firms", {"/"}},
                    DiskRow{"", "", {"/"}}, DiskRow{"", "\\\\server\\firms", {"/"}},
                    DiskRow{"", "//server/firms", {"/"}}, DiskRow{"/@", "/srv/firms", {"/srv"}},
                    DiskRow{"/@", "/home/firms", {"/"}}, DiskRow{"/@", "//server/firms", {}}));

// A machine with one disk, measured to the byte.
class OneDisk : public Machine
{
public:
    FileSystem disk;
    FileSystem fileSystemOf(const QString&) const override { return disk; }
};

TEST_F(ErrorReportTest, SizesOfADiskAreRounded)
{
    OneDisk machine;
    machine.disk = FileSystem{"/", 1'535, 1'536};
    ErrorReport(session_, clock_, machine).Report_RuntimeError(1, "x", "Module/Main");
    EXPECT_EQ(disksOf(linesOf(kReport)), QStringList("Spazio disponibile sull'unità / 1 KB di 2 KB"));
    machine.disk = FileSystem{"/", 1'048'063, 3'000'000'000'000};
    ErrorReport(session_, clock_, machine).Report_RuntimeError(1, "x", "Module/Main");
    EXPECT_EQ(disksOf(linesOf(kReport)),
              QStringList("Spazio disponibile sull'unità / 1,023 KB di 2,929,687,500 KB"));
}

TEST_F(ErrorReportTest, NumbersAreDecimalAndSigned)
{
    EXPECT_EQ(report(errors::kDatabase)[1], "Errore N°: -2147467259");
    EXPECT_EQ(report(0)[1], "Errore N°: 0");
}

TEST_F(ErrorReportTest, PlaceholdersInTheTextsStayAsTheyAre)
{
    const QStringList lines = report(1, "50 %1 %2", "frmMain.tmr%1_Timer");
    EXPECT_EQ(lines[2], "Descrizione: 50 %1 %2");
    EXPECT_EQ(lines[3], "Nome della funzione che ha generato l'errore: frmMain.tmr%1_Timer");
}

TEST_F(ErrorReportTest, IsWrittenInTheMachinesCodePage)
{
    session_.CodePage = 1251;
    EXPECT_EQ(report(1, "Ошибка à")[2], "Descrizione: Ошибка ?");
    EXPECT_TRUE(folder_.read(kReport).contains("Societ? >"));
}

TEST_F(ErrorReportTest, TheSecondOfASecondReplacesTheFirst)
{
    report(1);
    EXPECT_EQ(report(2)[1], "Errore N°: 2");
    clock_.run(1000);
    report_.Report_RuntimeError(3, "", "");
    EXPECT_THAT(folder_.names("Log"),
                ElementsAre("Calidora_Error_20260314090000.log", "Calidora_Error_20260314090001.log"));
}

TEST_F(ErrorReportTest, WhatCantBeWrittenIsLostQuietly)
{
    session_.DbPath = "/absent/firms";
    report_.Report_RuntimeError(1, "", "");
    EXPECT_THAT(folder_.names("Log"), ElementsAre());

    session_.DbPath.clear();
    {
        support::FullDisk full(100);
        report_.Report_RuntimeError(1, "", "");
    }
    EXPECT_THAT(folder_.names("Log"), ElementsAre());

    QDir(folder_.file("Log")).removeRecursively();
    report_.Report_RuntimeError(1, "", "");
    EXPECT_FALSE(folder_.has("Log"));
}

class FailureHookTest : public ErrorReportTest
{
protected:
    FailureHookTest() : former_(setFailureHook({}))
    {
        installFailureHook(session_, operator_, clock_, machine_);
    }
    ~FailureHookTest() override { setFailureHook(former_); }

    ScriptedOperator operator_;

private:
    FailureHook former_;
};

TEST_F(FailureHookTest, AFailedProcedureShowsTheBoxAndLeavesTheReport)
{
    operator_.expect("Division by zero");
    EXPECT_EQ(guarded("frmMain.tmrAction_Timer", []() -> int { fail(11, "Division by zero"); }), 0);
    ASSERT_EQ(operator_.boxes.size(), 1u);
    EXPECT_EQ(operator_.boxes[0].icon, Icon::Critical);
    EXPECT_EQ(operator_.boxes[0].buttons, Buttons::Ok);
    EXPECT_EQ(operator_.boxes[0].title, "Calidora");
    const QStringList lines = linesOf(kReport);
    EXPECT_EQ(lines[1], "Errore N°: 11");
    EXPECT_EQ(lines[3], "Nome della funzione che ha generato l'errore: frmMain.tmrAction_Timer");
}

TEST_F(FailureHookTest, ASilentFailureLeavesTheReportAlone)
{
    reportFailure({53, "File not found", "Module/Read_Configuration", true});
    EXPECT_TRUE(operator_.boxes.empty());
    EXPECT_EQ(linesOf(kReport)[1], "Errore N°: 53");
}

TEST_F(FailureHookTest, ALostBoxStillLeavesTheReport)
{
    class Speechless : public ScriptedOperator
    {
        int messageBox(const QString&, Buttons, Icon, const QString&) override { fail(5, "no words"); }
    } speechless;
    installFailureHook(session_, speechless, clock_, machine_);
    guarded("Module/Work", [] { fail(11, "Division by zero"); });
    EXPECT_EQ(linesOf(kReport)[1], "Errore N°: 11");
}

TEST_F(FailureHookTest, ALostReportStillShowsItsBox)
{
    QDir(folder_.file("Log")).removeRecursively();
    operator_.expect("x");
    guarded("Module/Work", [] { fail(5, "x"); });
    EXPECT_TRUE(operator_.done());
}

} // namespace
