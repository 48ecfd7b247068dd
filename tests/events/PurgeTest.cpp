#include "events/Purge.h"

#include "platform/ScriptedOperator.h"
#include "platform/VirtualClock.h"
#include "session/Session.h"
#include "support/ApplicationFolder.h"
#include "support/FailureRecorder.h"

#include <gmock/gmock.h>

using namespace events;
using namespace platform;
using testing::ElementsAre;

namespace {

class PurgeTest : public testing::Test
{
protected:
    PurgeTest()
    {
        session_.AppPath = folder_.path();
        session_.LogSet.LogDays = 10;
    }

    void make(const QStringList& names)
    {
        for (const QString& name : names)
            folder_.write("Log/" + name, "x");
    }

    QStringList left() const { return folder_.names("Log"); }

    support::ApplicationFolder folder_;
    support::FailureRecorder recorder_;
    session::Session session_;
    ScriptedOperator operator_;
    VirtualClock clock_{QDateTime(QDate(2026, 3, 14), QTime(0, 0, 1))};
    LogPurge purge_{session_, operator_, clock_};
};

TEST_F(PurgeTest, WhatIsNotEnabledDoesNothing)
{
    make({"Calidora_20000101000000.log"});
    purge_.Delete_Log(false, true);
    EXPECT_EQ(left().size(), 1);
    EXPECT_TRUE(operator_.forms.isEmpty());
}

TEST_F(PurgeTest, AgeCountsInCalendarDays)
{
    make({"Calidora_20260303235959.log", "Calidora_20260304000000.log", "Calidora_20260304235959.log",
          "Calidora_20270101000000.log"});
    purge_.Delete_Log(true, false);
    EXPECT_THAT(left(), ElementsAre("Calidora_20260304000000.log", "Calidora_20260304235959.log",
                                    "Calidora_20270101000000.log"));
    recorder_.expectNone();
}

struct FlagsRow
{
    qint16 reports;
    qint16 events;
    QStringList left;
};

class PurgeFlagsTest : public PurgeTest, public testing::WithParamInterface<FlagsRow>
{
};

TEST_P(PurgeFlagsTest, EachKindHasItsOwnFlag)
{
    make({"Calidora_20200101000000.log", "Calidora_Error_20200101000000.log"});
    session_.LogSet.DelLog = 0;
    session_.LogSet.DelLogRuntimeErr = GetParam().reports;
    session_.LogSet.DelLogInstErr = GetParam().events;
    purge_.Delete_Log(true, false);
    EXPECT_EQ(left(), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(
    Flags, PurgeFlagsTest,
    testing::Values(FlagsRow{-1, -1, {}}, FlagsRow{1, 1, {}},
                    FlagsRow{0, -1, {"Calidora_Error_20200101000000.log"}},
                    FlagsRow{-1, 0, {"Calidora_20200101000000.log"}},
                    FlagsRow{0, 0, {"Calidora_20200101000000.log", "Calidora_Error_20200101000000.log"}}));

TEST_F(PurgeTest, AllTakesEveryFileOfThisProgramWhateverTheFlags)
{
    session_.LogSet = {0, 0, 0, 365};
    make({"Calidora_20260314000000.log", "Calidora_Error_20260314000000.log", "Calidora_nodate.log",
          "Old_Calidora_x.log", "Other_20200101000000.log", "Readme_Log.txt", "Calidora_20200101000000.txt",
          "Calidora.log"});
    purge_.Delete_Log(true, true);
    EXPECT_THAT(left(), ElementsAre("Calidora.log", "Calidora_20200101000000.txt", "Other_20200101000000.log",
                                    "Readme_Log.txt"));
    recorder_.expectNone();
}

TEST_F(PurgeTest, ANameOfAnotherProgramIsSkippedBeforeItsDateIsLookedAt)
{
    make({"Another.log", "Calidora_20200101000000.log"});
    purge_.Delete_Log(true, false);
    EXPECT_THAT(left(), ElementsAre("Another.log"));
    recorder_.expectNone();
}

class PurgeBadNameTest : public PurgeTest, public testing::WithParamInterface<const char*>
{
};

TEST_P(PurgeBadNameTest, EndsThePurgeAndLeavesTheRest)
{
    session_.LogSet.DelLogInstErr = 0;
    session_.LogSet.DelLogRuntimeErr = -1;
    make({"Calidora_Error_20200101000000.log", GetParam(), "Calidora_zError_20200101000000.log"});
    purge_.Delete_Log(true, false);
    recorder_.expectOne(errors::kTypeMismatch, "Module/Delete_Log");
    EXPECT_EQ(operator_.forms.last(), "unload frmReadLogFiles");
    EXPECT_EQ(operator_.pointer, Pointer::Default);
    EXPECT_TRUE(left().contains(GetParam()));
    EXPECT_TRUE(left().contains("Calidora_zError_20200101000000.log"));
}

INSTANTIATE_TEST_SUITE_P(Names, PurgeBadNameTest,
                         testing::Values("Calidora_x.log", "Calidora_x20261301000000.log",
                                         "Calidora_x20260230000000.log", "Calidora_x 2026010000000.log",
                                         "Calidora_x20200101.log", "Calidora_x-2020101000000.log"));

TEST_F(PurgeTest, EachFileIsShownInItsTurn)
{
    make({"b.log", "Calidora_20260314000000.log", "A.log"});
    std::vector<std::pair<int, std::string>> shown;
    purge_.onFile = [&](int percent, const QString& text) {
        shown.emplace_back(percent, text.toStdString());
    };
    purge_.Delete_Log(true, false);
    EXPECT_THAT(shown, ElementsAre(std::pair(33, std::string("(1/3) A.log")),
                                   std::pair(66, std::string("(2/3) b.log")),
                                   std::pair(100, std::string("(3/3) Calidora_20260314000000.log"))));
    EXPECT_EQ(operator_.forms, QStringList({"show frmReadLogFiles", "unload frmReadLogFiles"}));
    EXPECT_EQ(operator_.pointer, Pointer::Default);
}

TEST_F(PurgeTest, AnEmptyFolderIsSoonDone)
{
    purge_.Delete_Log(true, true);
    EXPECT_EQ(operator_.forms, QStringList({"show frmReadLogFiles", "unload frmReadLogFiles"}));
    recorder_.expectNone();
}

TEST_F(PurgeTest, AMissingFolderFails)
{
    QDir(folder_.file("Log")).removeRecursively();
    purge_.Delete_Log(true, true);
    recorder_.expectOne(errors::kPathNotFound, "Module/Delete_Log");
    EXPECT_EQ(operator_.forms.last(), "unload frmReadLogFiles");
}

TEST_F(PurgeTest, AFileThatVanishedMeanwhileEndsThePurge)
{
    make({"Calidora_20200101000000.log", "Calidora_20200102000000.log"});
    purge_.onFile = [&](int, const QString&) {
        QFile::remove(folder_.file("Log/Calidora_20200101000000.log"));
    };
    purge_.Delete_Log(true, false);
    recorder_.expectOne(errors::kFileNotFound, "Module/Delete_Log");
    EXPECT_THAT(left(), ElementsAre("Calidora_20200102000000.log"));
}

} // namespace
