// Calls that come in: every row of the call's table, by modem and by cable.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace images = bus::images;

namespace {

class AlarmsTest : public BusFixture
{
protected:
    AlarmsTest() { mark(); }
    void takeCall()
    {
        arrives("ATD\r");
        arrives("<Plant 1><Unit 2><Alarm A><Alarm B>");
        clock.run(5000);
        arrives("<Plant 1><End>");
        clock.run(5000);
        EXPECT_EQ(status(), 0);
    }
    QStringList alarmLines() const
    {
        QStringList lines;
        for (const QString& line : logLines())
            lines << line.left(1) + '/' + line.mid(20, 3).trimmed() + '/' + line.mid(23, 50).trimmed() + '/' +
                         line.mid(73, 50).trimmed() + '/' + descriptionOf(line);
        return lines;
    }
};

TEST_F(AlarmsTest, AModemsCallIsAnsweredAndTakenDown)
{
    arrives("\r\nRING\r\n");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortBusy);
    EXPECT_EQ(panels.text(Panel::Info), "Incaming allarms...");
    clock.run(1500);
    arrives("RING");
    EXPECT_TRUE(bus.received().isEmpty()) << "a second ring is thrown away";
    clock.run(1500);
    EXPECT_EQ(bus.actionCode(), ActionCode::CallAnswering);
    EXPECT_EQ(sent(), QStringList{"3000 ATA|<0D>"});
    arrives("CONN");
    arrives("ECT 2400");
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    EXPECT_TRUE(bus.received().isEmpty());
    clock.run(4000);
    arrives("<Plant 1><Unit 2>");
    clock.run(4999);
    arrives("<Alarm A>");
    clock.run(4999);
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    clock.run(1);
    EXPECT_EQ(bus.actionCode(), ActionCode::SecondBlock);
    EXPECT_EQ(sent().last(), "16999 OK");
    EXPECT_EQ(events(), QStringList{"2/1/Plant 1/Unit 2/Alarm A"});
    clock.run(14000);
    arrives("<Plant 1><End>");
    clock.run(4999);
    EXPECT_EQ(bus.actionCode(), ActionCode::SecondBlock);
    clock.run(1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(panels.text(Panel::Info), "Attention! Allarms recivied.");
    EXPECT_EQ(alarmLines(), QStringList({"2/1/Plant 1/Unit 2/Alarm A", "2/1/Plant 1//End"}));
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(logged(), QStringList()) << "alarms don't go to the console's list";
    EXPECT_EQ(sent().size(), 2) << "nobody hangs up";
}

TEST_F(AlarmsTest, OnTheCableTheInstrumentDials)
{
    arrives("xxATD");
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    EXPECT_EQ(sent(), QStringList{"0 CONNECT"});
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(panels.text(Panel::Info), "Incaming allarms...");
    EXPECT_TRUE(bus.received().isEmpty());
}

TEST_F(AlarmsTest, TheWordsAreFoundInPiecesAndAmongNoise)
{
    arrivesByteByByte("zRIRING");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
}

TEST_F(AlarmsTest, OfBothWordsTheDialledOneHasTheLastSay)
{
    for (const char* text : {"RING ATD", "ATD RING"}) {
        arrives(text);
        EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock) << text;
        bus.truncateConnection();
    }
}

TEST_F(AlarmsTest, NoiseThatWasLeftCompletesTheWordLater)
{
    arrives("RIN");
    clock.run(3600 * 1000);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    arrives("G");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
}

TEST_F(AlarmsTest, ACallThatNeverConnectsTimesOut)
{
    arrives("RING");
    clock.run(62999);
    EXPECT_EQ(status(), 2);
    clock.run(1);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kRest);
    EXPECT_EQ(alarmLines(), QStringList{"3/2///Time out connection! The operation is aborted."});
    arrives("RING");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting) << "reachable again";
}

TEST_F(AlarmsTest, ACallWithoutBlocksStillEnds)
{
    arrives("ATD");
    clock.run(5000);
    failures.expectOne(platform::errors::kInvalidCall, "Module/Extract_Event_Allarm");
    EXPECT_EQ(sent().last(), "5000 OK");
    clock.run(14999);
    EXPECT_EQ(bus.actionCode(), ActionCode::SecondBlock);
    clock.run(1);
    failures.expectOne(platform::errors::kInvalidCall, "Module/Extract_Event_Allarm");
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_TRUE(logFiles().isEmpty());
}

TEST_F(AlarmsTest, AMissingSecondBlockKeepsTheFirst)
{
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(20000);
    failures.expectOne(platform::errors::kInvalidCall, "Module/Extract_Event_Allarm");
    EXPECT_EQ(alarmLines(), QStringList{"2/1/P/U/A"});
}

TEST_F(AlarmsTest, TheBlocksAreReadInTheMachinesCodePage)
{
    session.CodePage = 1251;
    arrives("ATD");
    arrives("<\xCA><U><A>");
    clock.run(5000);
    EXPECT_EQ(events(), QStringList{QStringLiteral("2/1/К/U/A")});
}

TEST_F(AlarmsTest, ItBeepsUntilAcknowledged)
{
    int announced = 0;
    bus.onAlarms = [&] { ++announced; };
    takeCall();
    EXPECT_EQ(announced, 1);
    const qint64 start = clock.elapsed();
    std::vector<qint64> beepsAt;
    op.onBeep = [&] { beepsAt.push_back(clock.elapsed() - start); };
    clock.run(2999);
    EXPECT_EQ(op.beeps, 0);
    clock.run(1);
    EXPECT_EQ(op.beeps, 3);
    EXPECT_EQ(beepsAt, (std::vector<qint64>{3000, 4000, 5000}));
    clock.run(60000);
    EXPECT_GE(op.beeps, 30);
    bus.Delete_Allarms();
    EXPECT_EQ(op.forms, QStringList{"modal frmMessage"});
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kRest);
    EXPECT_EQ(panels.text(Panel::Info), "");
    const int beeps = op.beeps;
    clock.run(3600 * 1000);
    EXPECT_EQ(op.beeps, beeps);
}

TEST_F(AlarmsTest, WithNoAlarmWaitingNothingIsShown)
{
    panels.setText(Panel::Info, "CONNECTED 0:00:01");
    bus.Delete_Allarms();
    EXPECT_TRUE(op.forms.isEmpty());
    EXPECT_EQ(panels.text(Panel::Info), "CONNECTED 0:00:01");
}

TEST_F(AlarmsTest, ALaterCallWhileNotAcknowledgedOnlySetsItAgain)
{
    takeCall();
    clock.run(10000);
    takeCall();
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(logFiles().size(), 2);
    bus.Delete_Allarms();
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kRest);
}

TEST_F(AlarmsTest, ACallThatComesDuringTheBeepsWaitsForTheirEnd)
{
    takeCall();
    std::vector<ActionCode> codes;
    op.onBeep = [&] {
        codes.push_back(bus.actionCode());
        if (codes.size() == 2)
            port.feed("ATD");
    };
    clock.run(3000);
    EXPECT_EQ(codes, (std::vector{ActionCode::Idle, ActionCode::Idle, ActionCode::Idle}));
    clock.run(1);
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
}

TEST_F(AlarmsTest, WhileAPollIsOutARingIsNotSeen)
{
    openConsole("1_1");
    connectByHand();
    clock.run(30000);
    ASSERT_EQ(bus.actionCode(), ActionCode::Polling);
    arrives("RING");
    EXPECT_EQ(bus.actionCode(), ActionCode::Polling);
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(bus.received().isEmpty()) << "it counts as the poll's answer";
}

// The time-out of an attempt that the operator gave up is still armed when an instrument dials.
TEST_F(AlarmsTest, ADialledCallStopsTheTimeOut)
{
    openConsole("1_1");
    console.Connect();
    bus.abandonOperation();
    ASSERT_EQ(bus.actionCode(), ActionCode::Idle);
    arrives("ATD");
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    clock.run(70000);
    failures.take(); // it never said anything
    for (const QString& line : logLines())
        EXPECT_NE(descriptionOf(line), texts(583));
}

TEST_F(AlarmsTest, TheVirtualInstrumentCallsInOverBothLinks)
{
    for (const instrument::LinkMode link : {instrument::LinkMode::Modem, instrument::LinkMode::Cable}) {
        instrument::VirtualInstrument& device = plugIn(link);
        device.call({"<Market><Room 1><High temperature><Door open>", "<Market><End>"}, clock.elapsed());
        clock.settle();
        EXPECT_EQ(status(), 2);
        ASSERT_TRUE(waitWhileBusy());
        bus.Delete_Allarms();
        clock.run(60000);
    }
    EXPECT_EQ(alarmLines(), QStringList({"2/1/Market/Room 1/High temperature", "2/1/Market/Room 1/Door open",
                                         "2/1/Market//End", "2/1/Market/Room 1/High temperature",
                                         "2/1/Market/Room 1/Door open", "2/1/Market//End"}));
}

// A report that comes while the notice of the former one stands has not been seen.
TEST_F(AlarmsTest, AReportThatComesBehindTheNoticeIsAnnouncedOn)
{
    takeCall();
    op.onModal = [this](const QString&) { takeCall(); };
    bus.Delete_Allarms();
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(panels.text(Panel::Info), "Attention! Allarms recivied.");
    const int beeps = op.beeps;
    clock.run(10000);
    EXPECT_GT(op.beeps, beeps);
    op.onModal = nullptr;
    bus.Delete_Allarms();
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kRest);
}

// What comes while a failure's box stands belongs to the second block.
TEST_F(AlarmsTest, WhatComesDuringABoxIsKept)
{
    const platform::FailureHook former = platform::setFailureHook([this](const platform::Failure&) {
        if (bus.actionCode() == ActionCode::SecondBlock)
            arrives("<P><End>");
    });
    arrives("ATD");
    arrives("<P><U>");
    clock.run(5000);
    platform::setFailureHook(former);
    EXPECT_EQ(sent().last(), "5000 OK") << "it doesn't wait for the box";
    EXPECT_EQ(bus.received(), "<P><End>");
    clock.run(5000);
    EXPECT_EQ(alarmLines(), QStringList{"2/1/P//End"});
}

// A box that nobody closes holds up neither the call nor the next one.
TEST_F(AlarmsTest, ABoxThatStandsAllNightLosesNoCall)
{
    bool standing = false;
    const platform::FailureHook former = platform::setFailureHook([&](const platform::Failure&) {
        ASSERT_FALSE(standing) << "one at a time";
        standing = true;
        clock.run(60000);
        takeCall();
        standing = false;
    });
    arrives("ATD");
    clock.run(5000);
    platform::setFailureHook(former);
    EXPECT_EQ(alarmLines().filter("Alarm").size(), 4) << "two calls, one behind each of the two boxes";
}

TEST_F(AlarmsTest, BeepsThatWouldSpanMidnightGoOnBehindIt)
{
    takeCall();
    bus.Delete_Allarms();
    panels.setPicture(Panel::Allarm, images::kRest);
    const qint64 untilMidnight = 24 * 3600 * 1000 - clock.now().time().msecsSinceStartOfDay();
    clock.run(untilMidnight - 20000);
    takeCall();
    std::vector<QTime> beeps;
    op.onBeep = [&] { beeps.push_back(clock.now().time()); };
    clock.run(18000);
    ASSERT_GE(beeps.size(), 6u);
    EXPECT_LT(clock.now().time(), QTime(1, 0)) << "no day was waited";
    EXPECT_EQ(clock.now().date(), QDate(2026, 3, 15));
}

TEST_F(AlarmsTest, ACallsTimeOutLeavesTheChoiceOfAClosedConsoleAlone)
{
    openConsole("1_1");
    console.Set_Simulator(true);
    console.unload();
    arrives("RING");
    clock.run(63000);
    EXPECT_EQ(status(), 0);
    EXPECT_TRUE(bus.parTrasm().Simulator);
    openConsole("1_1");
    EXPECT_TRUE(model.simulatorPressed());
}

TEST_F(AlarmsTest, ACallsTimeOutMakesNoChoiceForAClosedConsole)
{
    arrives("RING");
    clock.run(63000);
    EXPECT_FALSE(bus.parTrasm().Simulator);
}

TEST_F(AlarmsTest, NoiseIsKeptToItsLast64KB)
{
    arrives(QByteArray(70000, 'x') + "RI");
    EXPECT_EQ(bus.received().size(), 65536);
    EXPECT_TRUE(bus.received().endsWith("xRI"));
    arrives("NG");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
}

// The line is blocked for nobody: whatever fails, a call has an end.
class CallsOnABrokenHouse : public AlarmsTest
{
protected:
    void failOn(const QByteArray& word)
    {
        port.onOutput = [word](const QByteArray& bytes) {
            if (bytes == word)
                platform::fail(platform::errors::kDeviceIo, "The port takes nothing.");
        };
    }
};

TEST_F(CallsOnABrokenHouse, AnAlarmThatTheCompanyDoesNotTakeGoesToTheLogAllTheSame)
{
    session.cnDatabase.Execute("ALTER TABLE tbEvent RENAME TO Gone");
    takeCall();
    EXPECT_EQ(alarmLines(),
              QStringList({"2/1/Plant 1/Unit 2/Alarm A", "2/1/Plant 1/Unit 2/Alarm B", "2/1/Plant 1//End"}));
    failures.expectUnder("Module/Add_Event_Db");
    session.cnDatabase.Execute("ALTER TABLE Gone RENAME TO tbEvent");
    takeCall();
    EXPECT_EQ(alarmLines().size(), 6) << "and goes there once";
}

TEST_F(CallsOnABrokenHouse, ACallThatCannotBeAnsweredEndsByTheTimeOut)
{
    failOn("ATA");
    arrives("RING");
    clock.run(3000);
    failures.expectOne(platform::errors::kDeviceIo, "frmMain.tmrAction_Timer");
    EXPECT_EQ(status(), 2);
    clock.run(60000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
}

TEST_F(CallsOnABrokenHouse, ABlockThatCannotBeAnsweredEndsTheCallAndIsKept)
{
    failOn("OK");
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(5000);
    failures.expectOne(platform::errors::kDeviceIo, "frmMain.tmrAction_Timer");
    clock.run(15000);
    failures.take();
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(alarmLines(), QStringList{"2/1/P/U/A"});
}

} // namespace
