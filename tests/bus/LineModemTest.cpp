// The modem dialogue, spoken by the test: every word of the program, the moment it leaves and what it waits
// for.
#include "bus/Frames.h"
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace images = bus::images;

namespace {

class LineModemTest : public BusFixture
{
protected:
    LineModemTest()
    {
        openConsole("1_1");
        mark();
    }
    void answer(const QByteArray& reply)
    {
        arrives(reply);
        clock.run(2000);
    }
    // Up to the last command before dialling.
    void setUp()
    {
        console.Connect();
        for (int step = 1; step <= 5; ++step)
            answer("OK");
    }
    void connect()
    {
        setUp();
        arrives("O");
        arrives("CONNECT");
        EXPECT_EQ(status(), 1);
    }
};

TEST_F(LineModemTest, TheSetUpLeavesWordByWordInItsTime)
{
    setUp();
    EXPECT_EQ(sent(), QStringList({"0 +++", "3000 ATH|<0D>", "5000 AT|<0D>", "7000 ATZ|<0D>",
                                   "9000 ATE0|<0D>", "11000 AT&D0|<0D>", "13000 AT&K0|<0D>"}));
    EXPECT_EQ(bus.actionCode(), ActionCode::ModemSetup);
    EXPECT_EQ(status(), 2);
}

TEST_F(LineModemTest, WhileTheLinkIsRaisedTheLineShowsItIsInUse)
{
    console.Connect();
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortBusy);
    EXPECT_EQ(op.pointer, platform::Pointer::ArrowHourglass);
    EXPECT_EQ(logged(), QStringList{"*** CONNECTION TO: GRP1 ***"});
    EXPECT_EQ(events(), QStringList{"1/2/GRP1/-/*** CONNECTION TO: GRP1 ***"});
}

TEST_F(LineModemTest, AnyCharacterBehindTheLastCommandDials)
{
    setUp();
    arrives("K");
    EXPECT_EQ(bus.actionCode(), ActionCode::Dialling);
    EXPECT_EQ(sent().last(), "13000 AT&K0|<0D>|ATD0551234567|<0D>");
    EXPECT_EQ(logged().last(), "Compose phone number: 0551234567");
}

TEST_F(LineModemTest, TheTailOfTheLastReplyIsEnoughToDial)
{
    console.Connect();
    for (int step = 1; step <= 4; ++step)
        answer("OK");
    arrives("OK");
    clock.run(2000);
    arrives("\r");
    EXPECT_EQ(bus.actionCode(), ActionCode::Dialling);
}

TEST_F(LineModemTest, ConnectRaisesTheConnection)
{
    setUp();
    arrives("\r\nOK\r\n");
    clock.run(1500);
    arrives("\r\nCONNECT 2400\r\n");
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_EQ(logged().last(), "Connected.");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    clock.run(1000);
    EXPECT_EQ(panels.text(Panel::Info), "CONNECTED 0:00:01");
    clock.run(28999);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    clock.run(1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Polling);
    EXPECT_EQ(frames().last(), bus::readRequest("00", 1, 0, 1));
}

TEST_F(LineModemTest, AWordMayStandAnywhereAndArriveInPieces)
{
    const QByteArrayList replies[] = {
        {"OK"}, {"O", "K"}, {"ATH\r\r\nOK\r\n"}, {"xxO", "Kyy"}, {"\r", "\n", "O", "K"}};
    for (const QByteArrayList& pieces : replies) {
        console.Connect();
        for (const QByteArray& piece : pieces) {
            EXPECT_EQ(sent().size(), 2);
            arrives(piece);
        }
        clock.run(1999);
        EXPECT_EQ(sent().size(), 2);
        clock.run(1);
        EXPECT_EQ(sent().last(), "5000 AT|<0D>");
        clock.run(60000);
        ASSERT_EQ(status(), 0);
        mark();
    }
}

TEST_F(LineModemTest, ErrorIsNoAnswerAtAll)
{
    console.Connect();
    answer("ERROR");
    EXPECT_EQ(sent().size(), 2);
    EXPECT_EQ(bus.received(), "ERROR");
}

TEST_F(LineModemTest, WhatComesDuringTheGuardTimeIsTakenInOneGoBehindIt)
{
    clock.post([this] { console.Connect(); });
    clock.settle();
    port.feed("O");
    port.feed("K");
    clock.settle();
    clock.run(2000);
    EXPECT_EQ(sent(), QStringList({"0 +++", "3000 ATH|<0D>", "5000 AT|<0D>"}));
}

TEST_F(LineModemTest, ASilentModemEndsInTheTimeOutAMinuteBehindTheFirstCommand)
{
    console.Connect();
    clock.run(59999);
    EXPECT_EQ(status(), 2);
    clock.run(1);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(clock.elapsed(), 63000);
    EXPECT_EQ(sent().size(), 2);
    EXPECT_EQ(logged().last(), "Time out connection! The operation is aborted.");
}

TEST_F(LineModemTest, ANumberThatDoesntAnswerEndsInTheTimeOut)
{
    setUp();
    arrives("OK");
    arrives("NO CARRIER");
    clock.run(60000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(sent().last(), "13000 AT&K0|<0D>|ATD0551234567|<0D>") << "no hang-up is sent";
}

TEST_F(LineModemTest, AnEmptyPhoneNumberIsDialledAllTheSame)
{
    runOnPlant("UPDATE tbGroupsUser SET Phone = NULL WHERE IDGrp = 1");
    setUp();
    arrives("OK");
    EXPECT_EQ(sent().last(), "13000 AT&K0|<0D>|ATD|<0D>");
    EXPECT_EQ(logged().last(), "Compose phone number: ");
    arrives("CONNECT");
    EXPECT_EQ(status(), 1);
}

TEST_F(LineModemTest, TheHangUpAndItsEndSteps)
{
    connect();
    clock.run(7000);
    mark();
    console.Disconnect();
    EXPECT_EQ(bus.actionCode(), ActionCode::HangingUp);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
    EXPECT_EQ(sent(), QStringList({"0 +++", "3000 ATH|<0D>"}));
    clock.run(1);
    const QString duration = panels.text(Panel::Info);
    arrives("O");
    EXPECT_EQ(status(), 2);
    arrives("K");
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(logged(), QStringList({"*** DISCONNECTION TO: GRP1 ***", "Disconnected.", duration}));
    EXPECT_TRUE(duration.startsWith("CONNECTED 0:00:")) << duration.toStdString();
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_EQ(bus.parTrasm().AliveFrame, "");
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(logLines().size(), 6);
    for (const QString& line : logLines())
        EXPECT_EQ(line.mid(23, 50).trimmed(), "GRP1");
    clock.run(120000);
    EXPECT_EQ(panels.text(Panel::Info), "") << "the clock of the connection stands";
    EXPECT_EQ(sent().size(), 2) << "nothing polls any more";
}

TEST_F(LineModemTest, AHangUpThatNobodyConfirmsWaitsForever)
{
    connect();
    console.Disconnect();
    clock.run(24 * 3600 * 1000);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(bus.actionCode(), ActionCode::HangingUp);
    op.expect("If you wish to interrupt the reading/writing operation press Yes,\r\nif you wish to "
              "disconnect press "
              "No,\r\nif you wish to abort the command press Cancel.",
              platform::answers::kNo);
    console.interrupt();
    EXPECT_EQ(status(), 0);
}

// Never a whole day: it begins with the new one.
TEST_F(LineModemTest, AGuardTimeThatWouldSpanMidnightBeginsBehindIt)
{
    const std::pair<qint64, const char*> rows[] = {
        {1000, "4000 ATH|<0D>"}, {3000, "6000 ATH|<0D>"}, {3001, "3000 ATH|<0D>"}, {1, "3001 ATH|<0D>"}};
    constexpr qint64 kDay = 24 * 3600 * 1000;
    for (const auto& [before, hangUp] : rows) {
        const qint64 sinceMidnight = clock.now().time().msecsSinceStartOfDay();
        clock.run(kDay - sinceMidnight - before);
        mark();
        console.Connect();
        EXPECT_EQ(sent(), QStringList({"0 +++", hangUp})) << before;
        clock.run(70000);
    }
}

} // namespace
