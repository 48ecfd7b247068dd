// The table of what belongs together: pictures that agree, and each with one thing broken.
#include "line/Picture.h"

#include "bus/StatusPanels.h"

#include <gtest/gtest.h>

using namespace line;
using bus::ActionCode;

namespace {

Picture idle()
{
    return {};
}

Picture connected()
{
    Picture picture;
    picture.status = picture.consoleStatus = session::kConnected;
    picture.comSet = bus::images::kPortBusy;
    picture.info = "CONNECTED 0:00:07";
    picture.commands = console::statesFor(session::kConnected, {});
    picture.dueIn[kConnection] = 1000;
    picture.dueIn[kPolling] = 30000;
    picture.parTrasm.IDGrp = picture.raisedForGroup = "1";
    picture.parTrasm.AliveFrame = "frame";
    picture.company = picture.raisedFor = 1;
    return picture;
}

Picture reading()
{
    Picture picture = connected();
    picture.status = picture.consoleStatus = session::kBusy;
    picture.code = ActionCode::Reading;
    picture.commands = statesFor(session::kBusy, picture.commands);
    picture.pointer = platform::Pointer::ArrowHourglass;
    picture.dueIn[kPolling].reset();
    picture.dueIn[kAction] = 3000;
    picture.operating = picture.progressVisible = true;
    return picture;
}

Picture called()
{
    Picture picture;
    picture.status = session::kBusy;
    picture.code = ActionCode::FirstBlock;
    picture.comSet = bus::images::kPortBusy;
    picture.info = "Incaming allarms...";
    picture.dueIn[kAction] = 5000;
    return picture;
}

struct Break
{
    const char* name;
    Picture (*from)();
    void (*change)(Picture&);
    const char* trouble; // what is said of it
};

void PrintTo(const Break& it, std::ostream* out)
{
    *out << it.name;
}

class BrokenPicture : public testing::TestWithParam<Break>
{
};

TEST(PictureTest, WhatBelongsTogetherAgrees)
{
    for (const Picture& picture : {idle(), connected(), reading(), called()})
        EXPECT_EQ(disagreement(picture).toStdString(), "");
}

TEST(PictureTest, AnAlarmThatWaitsMayBeSaid)
{
    Picture picture = idle();
    picture.allarm = bus::images::kAlarm;
    picture.info = "Attention! Allarms recivied.";
    picture.dueIn[kAlarm] = 3000;
    EXPECT_EQ(disagreement(picture).toStdString(), "");
    picture.dueIn[kAlarm].reset();
    EXPECT_TRUE(disagreement(picture).contains("tmrAllarm"));
}

TEST_P(BrokenPicture, IsSeen)
{
    Picture picture = GetParam().from();
    GetParam().change(picture);
    EXPECT_TRUE(disagreement(picture).contains(GetParam().trouble)) << disagreement(picture).toStdString();
}

const Break kBreaks[] = {
    {"ALockedLine", idle, [](Picture& p) { p.status = session::kBusy; }, "no row of the table"},
    {"APortThatIsGone", idle, [](Picture& p) { p.portOpen = false; }, "port and status"},
    {"ATransaction", idle, [](Picture& p) { p.transaction = true; }, "transaction"},
    {"TheSessionsRecords", idle, [](Picture& p) { p.recordsOpen = true; }, "session's records"},
    {"ABoxInABox", idle, [](Picture& p) { p.failureBoxes = 2; }, "inside the telling"},
    {"RecordsWithoutAPass", idle, [](Picture& p) { p.operating = true; }, "no pass owns"},
    {"APassWithoutRecords", reading, [](Picture& p) { p.operating = p.progressVisible = false; },
     "without records"},
    {"TheClockOfAnIdleLine", idle, [](Picture& p) { p.dueIn[kConnection] = 1; }, "tmrConnection runs"},
    {"NoPoll", connected, [](Picture& p) { p.dueIn[kPolling].reset(); }, "tmrPolling doesn't run"},
    {"APollInAnOperation", reading, [](Picture& p) { p.dueIn[kPolling] = 1; }, "tmrPolling runs"},
    {"ACallThatNothingEnds", called, [](Picture& p) { p.dueIn[kAction].reset(); }, "tmrAction doesn't run"},
    {"APollInACall", called, [](Picture& p) { p.dueIn[kPolling] = 1; }, "tmrPolling runs"},
    {"AnIdleLineWithAConnection", idle, [](Picture& p) { p.parTrasm.AliveFrame = "frame"; },
     "ParTrasm names"},
    {"AConnectionWithoutAName", connected, [](Picture& p) { p.parTrasm = {}; }, "ParTrasm is empty"},
    {"APictureInUse", idle, [](Picture& p) { p.comSet = bus::images::kPortBusy; }, "panel COMSet shows 27"},
    {"ATextLeftOver", idle, [](Picture& p) { p.info = "CONNECTED 0:00:07"; }, "panel Info of an idle"},
    {"ACallsTextLeftOver", connected, [](Picture& p) { p.info = "Incaming allarms..."; },
     "panel Info of a conn"},
    {"AClockInACall", called, [](Picture& p) { p.info = "CONNECTED 0:00:07"; }, "panel Info of a call"},
    {"AConsoleThatStayedBehind", connected, [](Picture& p) { p.consoleStatus = session::kLineIdle; },
     "stands on another status"},
    {"ACommandTooMany", connected, [](Picture& p) { p.commands.Connect = true; }, "not those of the status"},
    {"ACommandInAnOperation", reading, [](Picture& p) { p.commands.Read = true; }, "while the line is busy"},
    {"AProgressBar", connected, [](Picture& p) { p.progressVisible = true; }, "progress bar"},
    {"AnHourglass", idle, [](Picture& p) { p.pointer = platform::Pointer::ArrowHourglass; }, "pointer waits"},
    {"AnArrow", reading, [](Picture& p) { p.pointer = platform::Pointer::Default; }, "pointer doesn't wait"},
    {"AnotherCompany", connected, [](Picture& p) { p.company = 2; }, "company and group"},
    {"AnotherGroup", connected, [](Picture& p) { p.parTrasm.IDGrp = "2"; }, "company and group"},
    {"APassThatStandsStill", reading,
     [](Picture& p) {
         p.code = ActionCode::WritingRam;
         p.dueIn[kAction].reset();
     },
     "nothing moves"},
};

INSTANTIATE_TEST_SUITE_P(One, BrokenPicture, testing::ValuesIn(kBreaks),
                         [](const auto& it) { return std::string(it.param.name); });

} // namespace
