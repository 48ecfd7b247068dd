#include "session/Configuration.h"

#include "platform/TextFile.h"
#include "session/Session.h"
#include "support/ApplicationFolder.h"
#include "support/FailureRecorder.h"
#include "support/FullDisk.h"

#include <gmock/gmock.h>
#include <random>

using namespace session;
using namespace platform;

namespace {

const QByteArray kFirstRun = "[Language]\nID=IT_Italiano_1000\n"
                             "[Toolbar]\nView=-1\nIcons=-1\n"
                             "[ListBus]\nView=-1\nCol1Width=-1\nCol2Width=-1\nCol3Width=-1\n"
                             "[TreeBus]\nVisible=-1\nWidth=-1\n"
                             "[Log]\nDelLog=-1\nDelLogRuntimeErr=-1\nDelLogInstErr=-1\nLogDays=180\n"
                             "[Database]\nName=\nPath=@/Data\n"
                             "[Directory]\nBackup=@/Data\nExport=@/Log\nImport=@/Data\n"
                             "[COMPort]\nPort=0\nSpeed=3\nDataBit=3\nParity=2\nStopBit=0\nFlowCtrl=0\n";

class ConfigurationTest : public testing::Test
{
protected:
    ConfigurationTest() { session_.AppPath = folder_.path(); }

    bool read(const QByteArray& bytes)
    {
        folder_.write("Calidora.ini", bytes);
        return Read_Configuration(session_);
    }

    void expectUnseenFailure(int number)
    {
        const auto failures = recorder_.take();
        ASSERT_EQ(failures.size(), 1u);
        EXPECT_EQ(failures[0].number, number);
        EXPECT_EQ(failures[0].procedure, "Module/Read_Configuration");
        EXPECT_TRUE(failures[0].silent);
        EXPECT_FALSE(failures[0].description.isEmpty());
    }

    support::ApplicationFolder folder_;
    support::FailureRecorder recorder_;
    Session session_;
};

TEST_F(ConfigurationTest, AFirstRunsValuesAreWrittenLineForLine)
{
    applyFirstRunDefaults(session_);
    ASSERT_TRUE(Write_Configuration(session_));
    QByteArray expected = kFirstRun;
    expected.replace("@", folder_.path().toUtf8()).replace("\n", kSystemLineEnd);
    EXPECT_EQ(folder_.read("Calidora.ini"), expected);
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, FirstRunDefaultsReplaceEveryValue)
{
    ASSERT_TRUE(
        read("[Language]\nID=RU_Russian_6000\n[Toolbar]\nView=0\nIcons=0\n[ListBus]\nView=3\na=1\nb=2\nc=3\n"
             "[TreeBus]\nVisible=0\nWidth=9\n[Log]\na=0\nb=0\nc=0\nd=7\n[Database]\nName=A.mdb\nPath=/x\n"
             "[Directory]\na=/x\nb=/y\nc=/z\n[COMPort]\na=1\nb=1\nc=1\nd=1\ne=1\nf=1\n"));
    session_.DbVersion = "1.0";
    session_.COMPort.Status = session::kBusy;
    applyFirstRunDefaults(session_);
    EXPECT_EQ(session_.DbVersion, "");
    EXPECT_EQ(session_.COMPort.Status, 0);
    ASSERT_TRUE(Write_Configuration(session_));
    QByteArray expected = kFirstRun;
    expected.replace("@", folder_.path().toUtf8()).replace("\n", kSystemLineEnd);
    EXPECT_EQ(folder_.read("Calidora.ini"), expected);
}

TEST_F(ConfigurationTest, WhatIsWrittenComesBack)
{
    session_.Language = LanguageSettings::fromIdentifier("RU_Russian_6000");
    session_.ToolbarSet = {0, 1};
    session_.ListBusSet = {3, 1200, 2300, -1};
    session_.TreeBusSet = {0, 32767};
    session_.LogSet = {0, -1, 0, 365};
    session_.DbName = "Società = d'oro.mdb";
    session_.DbPath = "/srv/a=b";
    session_.DirBackup = "/b";
    session_.DirExport = "";
    session_.DirImport = " /i ";
    session_.COMPort = {15, 7, 2, 1, 2, 1, session::kBusy};
    ASSERT_TRUE(Write_Configuration(session_));

    Session next;
    next.AppPath = folder_.path();
    ASSERT_TRUE(Read_Configuration(next));
    EXPECT_EQ(next.Language.Code, "RU");
    EXPECT_EQ(next.Language.Name, "Russian");
    EXPECT_EQ(next.Language.Base, "6000");
    EXPECT_EQ(next.ToolbarSet.View, 0);
    EXPECT_EQ(next.ToolbarSet.Icons, 1);
    EXPECT_EQ(next.ListBusSet.View, 3);
    EXPECT_EQ(next.ListBusSet.Col2Width, 2300);
    EXPECT_EQ(next.TreeBusSet.Width, 32767);
    EXPECT_EQ(next.LogSet.DelLogRuntimeErr, -1);
    EXPECT_EQ(next.LogSet.LogDays, 365);
    EXPECT_EQ(next.DbName, session_.DbName);
    EXPECT_EQ(next.DbPath, "/srv/a=b");
    EXPECT_EQ(next.DirExport, "");
    EXPECT_EQ(next.DirImport, " /i ");
    EXPECT_EQ(next.COMPort.Port, 15);
    EXPECT_EQ(next.COMPort.FlowCtrl, 1);
    EXPECT_EQ(next.COMPort.Status, 0) << "the state of the line is not stored";
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, ANameBeyondTheCodePageIsNotLost)
{
    session_.CodePage = 1251;
    session_.DbName = "Завод № 1.mdb";
    ASSERT_TRUE(Write_Configuration(session_));
    EXPECT_TRUE(folder_.read("Calidora.ini").contains("\xC7\xE0\xE2\xEE\xE4"));
    session_.DbName = "Завод à.mdb";
    ASSERT_TRUE(Write_Configuration(session_));
    session_.DbName.clear();
    ASSERT_TRUE(Read_Configuration(session_));
    EXPECT_EQ(session_.DbName, "Завод à.mdb");
    EXPECT_EQ(session_.Language.ID, "IT_Italiano_1000");
}

TEST_F(ConfigurationTest, WhatLiesOutsideItsRangeHealsToTheDefault)
{
    struct Row
    {
        const char* stored;
        const char* healed;
    };
    const Row rows[] = {
        {"[ListBus]\nView=-2\na=-2\nb=-3\nc=-32768\n", "[ListBus]\nView=-1\na=-1\nb=-1\nc=-1\n"},
        {"[ListBus]\nView=4\na=0\nb=32767\nc=-1\n", "[ListBus]\nView=-1\na=0\nb=32767\nc=-1\n"},
        {"[ListBus]\nView=9\na=1\nb=1\nc=1\n", "[ListBus]\nView=-1\na=1\nb=1\nc=1\n"},
        {"[ListBus]\nView=3\na=1\nb=1\nc=1\n", "[ListBus]\nView=3\na=1\nb=1\nc=1\n"},
        {"[ListBus]\nView=0\na=1\nb=1\nc=1\n", "[ListBus]\nView=0\na=1\nb=1\nc=1\n"},
        {"[TreeBus]\nVisible=-1\nWidth=-2\n", "[TreeBus]\nVisible=-1\nWidth=-1\n"},
        {"[TreeBus]\nVisible=5\nWidth=0\n", "[TreeBus]\nVisible=5\nWidth=0\n"},
        {"[Log]\na=7\nb=7\nc=7\nd=0\n", "[Log]\na=7\nb=7\nc=7\nd=180\n"},
        {"[Log]\na=7\nb=7\nc=7\nd=366\n", "[Log]\na=7\nb=7\nc=7\nd=180\n"},
        {"[Log]\na=7\nb=7\nc=7\nd=1\n", "[Log]\na=7\nb=7\nc=7\nd=1\n"},
        {"[Log]\na=7\nb=7\nc=7\nd=365\n", "[Log]\na=7\nb=7\nc=7\nd=365\n"},
        {"[COMPort]\na=16\nb=13\nc=4\nd=5\ne=3\nf=4\n", "[COMPort]\na=0\nb=3\nc=3\nd=2\ne=0\nf=0\n"},
        {"[COMPort]\na=-1\nb=-1\nc=-1\nd=-1\ne=-1\nf=-1\n", "[COMPort]\na=0\nb=3\nc=3\nd=2\ne=0\nf=0\n"},
        {"[COMPort]\na=15\nb=12\nc=0\nd=4\ne=2\nf=3\n", "[COMPort]\na=15\nb=12\nc=0\nd=4\ne=2\nf=3\n"},
    };
    const auto valuesOf = [](const QByteArray& section) {
        QStringList values;
        for (const QByteArray& line : section.split('\n'))
            values << QString::fromLatin1(line.mid(line.indexOf('=') + 1));
        return values;
    };
    for (const Row& row : rows) {
        applyFirstRunDefaults(session_);
        ASSERT_TRUE(read(row.stored)) << row.stored;
        ASSERT_TRUE(Write_Configuration(session_));
        const QByteArray header = QByteArray(row.stored).split('\n').first() + '\n';
        const QByteArray written = folder_.read("Calidora.ini").replace(kSystemLineEnd, "\n");
        const QStringList expected = valuesOf(row.healed);
        EXPECT_EQ(valuesOf(written.mid(written.indexOf(header))).mid(0, expected.size() - 1),
                  expected.mid(0, expected.size() - 1))
            << row.stored;
    }
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, ANameThatWouldBreakItsLineIsNotRemembered)
{
    applyFirstRunDefaults(session_);
    session_.DbName = "a\n[COMPort]\nb.mdb";
    session_.DbPath = QString("/plants\r/x");
    session_.DirBackup = "/tab\tis text";
    ASSERT_TRUE(Write_Configuration(session_));
    ASSERT_TRUE(Read_Configuration(session_));
    EXPECT_EQ(session_.DbName, "");
    EXPECT_EQ(session_.DbPath, "");
    EXPECT_EQ(session_.DirBackup, "/tab\tis text");
    EXPECT_EQ(session_.DirExport, folder_.file("Log"));
    EXPECT_EQ(session_.COMPort.Speed, 3);
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, OnlyTheOrderOfTheKeysCounts)
{
    ASSERT_TRUE(read("[Toolbar]\nIcons=5\nView=6\n[Directory]\nImport=/1\n=/2\nx=/3\n"));
    EXPECT_EQ(session_.ToolbarSet.View, 5);
    EXPECT_EQ(session_.ToolbarSet.Icons, 6);
    EXPECT_EQ(session_.DirBackup, "/1");
    EXPECT_EQ(session_.DirExport, "/2");
    EXPECT_EQ(session_.DirImport, "/3");
}

TEST_F(ConfigurationTest, TheLastOfARepeatedHeaderWins)
{
    ASSERT_TRUE(read("[Toolbar]\nView=1\nIcons=2\n[Toolbar]\nView=3\nIcons=4\n"));
    EXPECT_EQ(session_.ToolbarSet.View, 3);
    EXPECT_EQ(session_.ToolbarSet.Icons, 4);
}

TEST_F(ConfigurationTest, WhatIsNoHeaderIsSkipped)
{
    ASSERT_TRUE(
        read("; remark\n\n[toolbar]\nView=8\n[Toolbar] \n [Toolbar]\n"
             "[Toolbar]\nView=1\nIcons=2\nExtra=3\n[Unknown]\nView=9\n[TreeBus]\nVisible=0\nWidth=7"));
    EXPECT_EQ(session_.ToolbarSet.View, 1);
    EXPECT_EQ(session_.ToolbarSet.Icons, 2);
    EXPECT_EQ(session_.TreeBusSet.Width, 7);
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, OnlyTheFirstEqualsSignSeparates)
{
    ASSERT_TRUE(read("[Database]\nName=a=b==.mdb\nPath==/x\n"));
    EXPECT_EQ(session_.DbName, "a=b==.mdb");
    EXPECT_EQ(session_.DbPath, "=/x");
}

TEST_F(ConfigurationTest, AnEmptyNameKeepsItsPath)
{
    session_.DbName = "former.mdb";
    ASSERT_TRUE(read("[Database]\r\nName=\r\nPath=/srv/firms\r\n"));
    EXPECT_EQ(session_.DbName, "");
    EXPECT_EQ(session_.DbPath, "/srv/firms");
}

TEST_F(ConfigurationTest, AnEmptyFileIsReadToItsEnd)
{
    EXPECT_TRUE(read(""));
    recorder_.expectNone();
}

TEST_F(ConfigurationTest, AMissingFileIsReportedWithoutABox)
{
    EXPECT_FALSE(Read_Configuration(session_));
    expectUnseenFailure(errors::kFileNotFound);
}

TEST_F(ConfigurationTest, AFolderInItsPlaceIsReportedWithoutABox)
{
    QDir(folder_.path()).mkdir("Calidora.ini");
    EXPECT_FALSE(Read_Configuration(session_));
    EXPECT_EQ(recorder_.take().size(), 1u);
}

struct MalformedRow
{
    const char* bytes;
    int number;
};

class MalformedConfigurationTest : public ConfigurationTest, public testing::WithParamInterface<MalformedRow>
{
};

TEST_P(MalformedConfigurationTest, IsReportedWithoutABox)
{
    EXPECT_FALSE(read(GetParam().bytes)) << GetParam().bytes;
    expectUnseenFailure(GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Files, MalformedConfigurationTest,
    testing::Values(MalformedRow{"[Language]\nID=IT_Italiano\n", errors::kInvalidCall},
                    MalformedRow{"[Language]\nID=\n", errors::kInvalidCall},
                    MalformedRow{"[Toolbar]\nView=x\nIcons=0\n", errors::kTypeMismatch},
                    MalformedRow{"[Toolbar]\nView=\nIcons=0\n", errors::kTypeMismatch},
                    MalformedRow{"[Toolbar]\nView=True\nIcons=0\n", errors::kTypeMismatch},
                    MalformedRow{"[Toolbar]\nView=32768\nIcons=0\n", errors::kOverflow},
                    MalformedRow{"[Toolbar]\nView\nIcons=0\n", errors::kInvalidCall},
                    MalformedRow{"[Toolbar]\n\nIcons=0\n", errors::kInvalidCall},
                    MalformedRow{"[Toolbar]\nView=1\n", kInputPastEnd},
                    MalformedRow{"[Toolbar]\nView=1\n[ListBus]\nView=1\n", errors::kInvalidCall},
                    MalformedRow{"[COMPort]", kInputPastEnd},
                    MalformedRow{"a\x01z\n", errors::kInvalidCall}));

TEST_F(ConfigurationTest, ValuesBeforeTheFailureStandUntilTheDefaultsCome)
{
    EXPECT_FALSE(read("[Toolbar]\nView=0\nIcons=bad\n"));
    EXPECT_EQ(session_.ToolbarSet.View, 0);
    applyFirstRunDefaults(session_);
    EXPECT_EQ(session_.ToolbarSet.View, -1);
}

TEST_F(ConfigurationTest, BinaryRubbishAndGiantsFailCleanly)
{
    std::mt19937 random(20260314);
    QByteArray rubbish(64 * 1024, '\0');
    for (char& byte : rubbish)
        byte = char(random());
    EXPECT_FALSE(read(rubbish));
    expectUnseenFailure(errors::kInvalidCall);

    QFile giant(folder_.file("Calidora.ini"));
    ASSERT_TRUE(giant.resize(100 * 1024 * 1024));
    EXPECT_FALSE(Read_Configuration(session_));
    expectUnseenFailure(errors::kInvalidCall);
}

TEST_F(ConfigurationTest, AFailedWriteLeavesTheFormerFile)
{
    folder_.write("Calidora.ini", "former");
    session_.DirImport = QString(5000, 'x');
    bool written = true;
    {
        support::FullDisk full(1000);
        written = Write_Configuration(session_);
    }
    EXPECT_FALSE(written);
    EXPECT_EQ(folder_.read("Calidora.ini"), "former");
    const auto failures = recorder_.take();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].number, errors::kDiskFull);
    EXPECT_EQ(failures[0].procedure, "Module/Write_Configuration");
    EXPECT_FALSE(failures[0].silent);
}

TEST_F(ConfigurationTest, AMissingFolderFailsTheWrite)
{
    session_.AppPath = folder_.file("none");
    EXPECT_FALSE(Write_Configuration(session_));
    recorder_.expectOne(errors::kPathNotFound, "Module/Write_Configuration");
}

} // namespace
