// What comes in between: bytes that wait behind a block against a tick that is due, and timers that are left
// over from what the line did before. The loop may deliver in either order.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
using Order = platform::VirtualClock::Order;
namespace answers = platform::answers;
namespace images = bus::images;

namespace {

class OrderOfEvents : public BusFixture, public testing::WithParamInterface<Order>
{
protected:
    OrderOfEvents()
    {
        clock.setOrder(GetParam());
        mark();
    }
    // The program blocks for a while, as in a beep, and so long after the beginning of it these bytes come
    // in.
    void arrivesWhileBlocked(const QByteArray& bytes, qint64 milliseconds)
    {
        clock.post([=, this] {
            port.feed(bytes);
            clock.block(double(milliseconds) / 1000);
        });
        clock.run(1);
        clock.settle();
    }
    QStringList alarms() const
    {
        QStringList lines;
        for (const QString& line : logLines())
            lines << line.mid(23, 50).trimmed() + '/' + line.mid(73, 50).trimmed() + '/' +
                         descriptionOf(line);
        return lines;
    }
};

TEST_P(OrderOfEvents, AFirstBlockThatCameDuringABlockIsTakenBeforeTheDueTick)
{
    arrives("ATD");
    clock.run(4900);
    arrivesWhileBlocked("<P><U><A>", 200);
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    EXPECT_EQ(sent(), QStringList{"0 CONNECT"});
    clock.run(5000);
    EXPECT_EQ(events(), QStringList{"2/1/P/U/A"});
    EXPECT_EQ(bus.actionCode(), ActionCode::SecondBlock);
}

TEST_P(OrderOfEvents, ASecondBlockThatCameDuringABlockIsTakenBeforeTheDueTick)
{
    arrives("ATD<P><U><A>");
    arrives("<P><U><A>");
    clock.run(5000 + 14900);
    arrivesWhileBlocked("<P><End>", 200);
    EXPECT_EQ(bus.actionCode(), ActionCode::SecondBlock);
    clock.run(5000);
    EXPECT_EQ(alarms(), QStringList({"P/U/A", "P//End"}));
}

TEST_P(OrderOfEvents, AConnectThatCameDuringABlockBeatsTheDueTimeOut)
{
    openConsole("1_1");
    console.Connect();
    for (int step = 0; step < 5; ++step)
        arrives("OK"), clock.run(2000);
    arrives("O");
    ASSERT_EQ(bus.actionCode(), ActionCode::Dialling);
    clock.run(49900);
    arrivesWhileBlocked("CONNECT", 200);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(logged().last(), "Connected.");
}

TEST_P(OrderOfEvents, ARingThatCameDuringABlockBeatsTheDuePoll)
{
    openConsole("1_1");
    connectByHand();
    clock.run(29900);
    arrivesWhileBlocked("RING", 200);
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
    EXPECT_TRUE(frames().isEmpty());
    clock.run(60000);
    EXPECT_EQ(frames().value(0), "ATA") << "no poll went out before";
}

TEST_P(OrderOfEvents, AnEndThatCameDuringABlockStopsTheClock)
{
    openConsole("1_1");
    connectByHand();
    console.Disconnect();
    clock.run(900);
    arrivesWhileBlocked("\r", 200);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.text(Panel::Info), "");
}

TEST_P(OrderOfEvents, ACallThatCameDuringTheBeepsHoldsThem)
{
    arrives("ATD<P><U><A>");
    arrives("<P><U><A>");
    clock.run(20000);
    failures.take();
    ASSERT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    op.onBeep = [&] {
        if (op.beeps == 2)
            port.feed("ATD");
        EXPECT_FALSE(bus.actionCode() >= ActionCode::CallWaiting) << "a call holds the beeping's breath";
    };
    clock.run(3000);
    clock.run(1);
    EXPECT_EQ(op.beeps, 3);
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    arrives("<P><U><B>");
    clock.run(5000);
    arrives("<P><End>");
    clock.run(4999);
    EXPECT_EQ(op.beeps, 3);
    clock.run(10000);
    EXPECT_GT(op.beeps, 3) << "behind the call it goes on";
    EXPECT_TRUE(alarms().contains("P/U/B"));
}

TEST_P(OrderOfEvents, ASecondCallBeforeTheAcknowledgementIsTakenOverBothLinks)
{
    for (const instrument::LinkMode link : {instrument::LinkMode::Modem, instrument::LinkMode::Cable})
        for (const qint64 delay : {500, 2500, 4500}) {
            SCOPED_TRACE(delay);
            for (const QString& name : logFiles())
                QFile::remove(file("Log/" + name));
            instrument::VirtualInstrument& device = plugIn(link);
            device.call({"<P><U><First>", "<P><End 1>", delay}, clock.elapsed());
            device.call({"<P><U><Second>", "<P><End 2>", delay}, clock.elapsed());
            clock.run(180000);
            EXPECT_EQ(alarms(), QStringList({"P/U/First", "P//End 1", "P/U/Second", "P//End 2"}));
            EXPECT_GT(op.beeps, 3);
            bus.Delete_Allarms();
        }
}

TEST_P(OrderOfEvents, BytesThatATickHasTakenAreNotTakenTwice)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    console.Read_Param();
    clock.run(2900);
    arrivesWhileBlocked("ab", 200);
    EXPECT_EQ(frames().size(), 1);
    EXPECT_EQ(bus.received(), "ab");
    arrives("c");
    EXPECT_EQ(logged().last(), "Parameter value: " + value(1, 1, "P0104"));
}

INSTANTIATE_TEST_SUITE_P(Both, OrderOfEvents, testing::Values(Order::TimersFirst, Order::EventsFirst));

// Leftovers
class LeftoverTimers : public BusFixture
{
protected:
    LeftoverTimers() { openConsole("1_1"); }
    void escape(int answer)
    {
        op.expect(texts(572) + "\r\n" + texts(573) + "\r\n" + texts(574), answer);
        console.interrupt();
    }
};

TEST_F(LeftoverTimers, AnOldPollDoesNotGoOutWhileTheNextLinkIsRaised)
{
    connectByHand();
    clock.run(10000);
    escape(answers::kNo);
    openConsole("1_1");
    console.Set_Simulator(true);
    console.Set_Simulator(true);
    ASSERT_FALSE(model.simulatorPressed());
    console.Connect();
    mark();
    clock.run(30000);
    EXPECT_EQ(sent(), QStringList());
    EXPECT_EQ(bus.actionCode(), ActionCode::ModemSetup);
}

TEST_F(LeftoverTimers, AnOldTickRaisesNoLinkThatNeverAnswered)
{
    console.Set_Simulator(true);
    console.Connect();
    arrives("ATA");
    escape(answers::kNo);
    clock.run(1000);
    console.Connect();
    EXPECT_EQ(frames().last(), "RING");
    clock.run(10000);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(bus.actionCode(), ActionCode::SimulatorRaising);
}

TEST_F(LeftoverTimers, APollDoesNotFireIntoACall)
{
    for (const char* word : {"RING", "ATD"}) {
        openConsole("1_1");
        connectByHand();
        clock.run(29000);
        arrives(word);
        const ActionCode code = bus.actionCode();
        clock.run(2000);
        EXPECT_EQ(bus.actionCode(), code);
        arrives("CONNECT");
        clock.run(60000);
        failures.take();
        EXPECT_EQ(status(), word == QByteArray("RING") ? 2 : 0);
        clock.run(60000);
        failures.take();
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        bus.Delete_Allarms();
    }
}

TEST_F(LeftoverTimers, AnOldTimeOutDoesNotEndACallThatWaitsForItsAnswer)
{
    console.Set_Simulator(true);
    console.Connect();
    escape(answers::kNo);
    clock.run(59000);
    arrives("RING");
    clock.run(3000);
    EXPECT_EQ(bus.actionCode(), ActionCode::CallAnswering);
    EXPECT_EQ(status(), 2);
}

TEST_F(LeftoverTimers, ThePollOfAnAttemptThatTimedOutDoesNotLockTheLine)
{
    console.Set_Simulator(true);
    console.Connect();
    clock.run(45000);
    escape(answers::kYes);
    clock.run(120000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    arrives("RING");
    EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
}

TEST_F(LeftoverTimers, BehindTheLastPollOfACutLineACallIsSeen)
{
    connectByHand();
    escape(answers::kNo);
    clock.run(40000);
    ASSERT_EQ(bus.actionCode(), ActionCode::Polling);
    arrives("noise");
    clock.run(60000);
    EXPECT_EQ(bus.received(), "noise") << "it re-arms no poll";
    arrives("ATD");
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
}

TEST_F(LeftoverTimers, ACallOverALiveConnectionEndsItForClockPanelsAndConsole)
{
    connectByHand();
    clock.run(5000);
    arrives("ATD");
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(model.status(), 2);
    EXPECT_FALSE(model.commands().Read);
    EXPECT_EQ(panels.text(Panel::Info), "Incaming allarms...");
    clock.run(3000);
    EXPECT_EQ(panels.text(Panel::Info), "Incaming allarms...") << "the clock stands";
    EXPECT_EQ(bus.parTrasm().Name, "");
    arrives("<P><U><A>");
    clock.run(5000);
    arrives("<P><End>");
    clock.run(5000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(model.status(), 0);
    EXPECT_TRUE(model.commands().Connect);
    EXPECT_FALSE(model.commands().Disconnect);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    EXPECT_EQ(panels.text(Panel::Info), "Attention! Allarms recivied.");
    clock.run(60000);
    EXPECT_EQ(panels.text(Panel::Info), "Attention! Allarms recivied.");
    QStringList lines;
    for (const QString& line : logLines())
        lines << line.mid(23, 50).trimmed() + '/' + descriptionOf(line);
    EXPECT_EQ(lines, QStringList({"GRP1/*** CONNECTION TO: GRP1 ***", "GRP1/Connected.", "GRP1/Disconnected.",
                                  "GRP1/CONNECTED 0:00:05", "P/A", "P/End"}));
}

TEST_F(LeftoverTimers, ACallOnAnIdleLineLeavesTheConsoleAsItIs)
{
    const console::ConsoleStates before = model.commands();
    arrives("ATD<P><U><A>");
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(model.commands(), before);
    clock.run(30000);
    failures.take();
    EXPECT_EQ(model.commands(), before);
}

TEST_F(LeftoverTimers, AnAttemptThatCannotEvenBeginEndsByTheTimeOut)
{
    for (const bool cable : {false, true}) {
        if (model.simulatorPressed() != cable)
            console.Set_Simulator(true);
        port.onOutput = [](const QByteArray&) {
            platform::fail(platform::errors::kDeviceIo, "It takes nothing.");
        };
        console.Connect();
        failures.expectOne(platform::errors::kDeviceIo, "frmReadWrite/Connect");
        EXPECT_EQ(status(), 2);
        clock.run(60000);
        EXPECT_EQ(status(), 0);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        port.onOutput = nullptr;
    }
}

} // namespace
