// The watchers: the time-out, the connection clock, the alive poll, Escape.
#include "bus/Frames.h"
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace answers = platform::answers;
namespace images = bus::images;

namespace {

const char* const kQuestion = "If you wish to interrupt the reading/writing operation press Yes,\r\nif you "
                              "wish to disconnect press No,\r\n"
                              "if you wish to abort the command press Cancel.";

class SupervisionTest : public BusFixture
{
protected:
    SupervisionTest() { openConsole("1_1"); }
    void escape(int answer)
    {
        op.expect(kQuestion, answer);
        console.interrupt();
        EXPECT_EQ(op.boxes.back().buttons, platform::Buttons::YesNoCancel);
    }
    void awaitAnswer()
    {
        console.Read_Param();
        clock.run(3000);
        EXPECT_EQ(frames().size(), 1);
    }
};

TEST_F(SupervisionTest, TheTimeOutEndsEverythingWithItsEventInTheLog)
{
    console.Connect();
    model.showProgress(true);
    arrives("x");
    clock.run(60000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_FALSE(model.progressVisible());
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_EQ(bus.parTrasm().IDGrp, "");
    EXPECT_EQ(events(), QStringList());
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[1].startsWith("314/03/2026 09:01:032  GRP1 "));
    EXPECT_EQ(descriptionOf(lines[1]), "Time out connection! The operation is aborted.");
    EXPECT_TRUE(model.commands().Connect);
}

TEST_F(SupervisionTest, TheClockCountsSecondsMinutesAndHours)
{
    connectByHand();
    const std::pair<int, const char*> rows[] = {{1, "0:00:01"},      {59, "0:00:59"},      {60, "0:01:00"},
                                                {423, "0:07:03"},    {3599, "0:59:59"},    {3600, "1:00:00"},
                                                {36000, "10:00:00"}, {360000, "100:00:00"}};
    int second = 0;
    for (const auto& [at, shown] : rows) {
        clock.run((at - second) * 1000);
        second = at;
        EXPECT_EQ(panels.text(Panel::Info), QString("CONNECTED ") + shown);
    }
}

TEST_F(SupervisionTest, TheClockStartsAnewWithEachConnection)
{
    connectByHand();
    clock.run(90000);
    console.Disconnect();
    arrives("\r");
    connectByHand();
    clock.run(1000);
    EXPECT_EQ(panels.text(Panel::Info), "CONNECTED 0:00:01");
}

TEST_F(SupervisionTest, APollGoesOutThirtySecondsBehindEachAnswer)
{
    connectByHand();
    const QByteArray poll = bus::readRequest("00", 1, 0, 1);
    clock.run(29999);
    EXPECT_TRUE(frames().isEmpty());
    clock.run(1);
    EXPECT_EQ(frames(), QList<QByteArray>{poll});
    clock.run(5000);
    arrives("a");
    clock.run(60000);
    EXPECT_EQ(frames().size(), 1) << "one character doesn't arm the poll";
    arrives("b");
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_EQ(bus.actionCode(), ActionCode::Polling);
    clock.run(29999);
    EXPECT_EQ(frames().size(), 1);
    clock.run(1);
    EXPECT_EQ(frames().size(), 2);
    arrives("any two or more");
    clock.run(30000);
    EXPECT_EQ(frames(), QList<QByteArray>(3, poll));
}

TEST_F(SupervisionTest, AnUnansweredPollIsNotNoticed)
{
    connectByHand();
    clock.run(12 * 3600 * 1000);
    EXPECT_EQ(frames().size(), 1);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(panels.text(Panel::Info), "CONNECTED 12:00:00");
}

TEST_F(SupervisionTest, AnOperationHoldsThePollAndItsEndArmsIt)
{
    openConsole("4_1_1_G01_P0101");
    connectByHand();
    clock.run(29000);
    console.Read_Param();
    clock.run(60000);
    EXPECT_EQ(sent().size(), 1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Reading);
    arrives("ab");
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    clock.run(29999);
    EXPECT_EQ(sent().size(), 1);
    clock.run(1);
    EXPECT_EQ(sent().size(), 2);
}

TEST_F(SupervisionTest, EscapeOnAnIdleLineDoesNothing)
{
    console.interrupt();
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(SupervisionTest, EscapeYesClearsTheWaitAndLeavesALiveConnection)
{
    connectByHand();
    awaitAnswer();
    arrives("half");
    escape(answers::kYes);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_FALSE(model.progressVisible());
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(events().last(), "3/2/GRP1/-/Current operation has been cancelled.");
    EXPECT_TRUE(logFiles().isEmpty());
    clock.run(30000);
    EXPECT_EQ(frames().size(), 2) << "the poll is armed";
    mark();
    awaitAnswer();
}

TEST_F(SupervisionTest, EscapeYesBeforeADueTickLeavesTheTickNothingToDo)
{
    connectByHand();
    console.Read_Param();
    clock.run(2000);
    escape(answers::kYes);
    clock.run(20000);
    EXPECT_TRUE(frames().isEmpty());
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
}

TEST_F(SupervisionTest, EscapeNoCutsWithoutAHangUp)
{
    connectByHand();
    awaitAnswer();
    escape(answers::kNo);
    EXPECT_EQ(sent().last(), "3000 00<01><00>@^|+++");
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
    EXPECT_EQ(bus.parTrasm().Name, "");
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(descriptionOf(logLines().last()), "The operation has been cancelled and connection truncated.");
    EXPECT_EQ(logLines().last().left(1), "3");
    EXPECT_EQ(logLines().last().mid(23, 4), "GRP1");
    clock.run(120000);
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_EQ(frames().size(), 2);
}

TEST_F(SupervisionTest, APollAlreadyArmedGoesOutOnceMoreOnTheDeadLine)
{
    connectByHand();
    clock.run(10000);
    escape(answers::kNo);
    clock.run(600000);
    EXPECT_EQ(sent(), QStringList({"10000 +++", "30000 "})) << "of the emptied connection no frame is left";
    EXPECT_EQ(bus.actionCode(), ActionCode::Polling);
    EXPECT_EQ(status(), 0);
}

TEST_F(SupervisionTest, EscapeCancelLetsTheOperationGoOn)
{
    connectByHand();
    awaitAnswer();
    const QStringList before = logged();
    escape(answers::kCancel);
    EXPECT_EQ(bus.actionCode(), ActionCode::Reading);
    EXPECT_EQ(logged(), before);
    arrives(QByteArray(65, '\0'));
    EXPECT_EQ(logged().last(), "Parameter value: OK");
}

TEST_F(SupervisionTest, EscapeYesWhileALinkIsRaisedDoesNotStopTheTimeOut)
{
    console.Connect();
    escape(answers::kYes);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    clock.run(60000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(logged().last(), "Time out connection! The operation is aborted.");
}

// The time-out of the attempt is still armed; a log of its own, in the same second, would take the
// connection's place.
TEST_F(SupervisionTest, ALinkThatEscapeKeptAndThatIsHungUpHasNoTimeOutAnyMore)
{
    console.Connect();
    escape(answers::kYes);
    clock.run(50000);
    console.Disconnect();
    arrives("OK");
    ASSERT_EQ(status(), 0);
    const QStringList lines = logLines();
    EXPECT_EQ(descriptionOf(lines[lines.size() - 2]), "Disconnected.");
    clock.run(60000);
    EXPECT_EQ(logLines(), lines);
}

// A call that is answered over a connection by hand and never speaks takes the connection's clock with it.
TEST_F(SupervisionTest, TheTimeOutStopsTheClockOfTheConnection)
{
    openConsole("1_1");
    connectByHand();
    clock.run(2000);
    EXPECT_EQ(panels.text(bus::Panel::Info), "CONNECTED 0:00:02");
    arrives("RING");
    clock.run(63000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.text(bus::Panel::Info), "");
    clock.run(5000);
    EXPECT_EQ(panels.text(bus::Panel::Info), "");
}

TEST_F(SupervisionTest, EscapeNoWhileALinkIsRaisedCutsItAndTheTimeOutStillTells)
{
    console.Connect();
    clock.run(1000);
    escape(answers::kNo);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(logLines().size(), 2);
    clock.run(60000);
    EXPECT_EQ(logLines().size(), 3);
    EXPECT_EQ(descriptionOf(logLines().last()), "Time out connection! The operation is aborted.");
    EXPECT_EQ(logLines().last().mid(23, 50).trimmed(), "");
}

TEST_F(SupervisionTest, EscapeWorksInEveryStateOfAConnection)
{
    struct
    {
        const char* name;
        std::function<void()> reach;
    } const states[] = {
        {"idle", [] {}},
        {"polling", [this] { clock.run(30000); }},
        {"read begun", [this] { console.Read_Param(); }},
        {"read awaited", [this] { console.Read_Param(), clock.run(3000); }},
        {"write begun", [this] { console.Write_Param(); }},
        {"eeprom", [this] { console.Write_Param(), waitFor(ActionCode::WritingEeprom); }},
        {"check", [this] { console.Write_Param(), waitFor(ActionCode::Checking), clock.run(3000); }},
        {"closing", [this] { console.Disconnect(); }},
    };
    for (const auto& row : states)
        for (const int answer : {answers::kYes, answers::kNo, answers::kCancel}) {
            SCOPED_TRACE(row.name);
            runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201'");
            connectByHand();
            row.reach();
            const ActionCode code = bus.actionCode();
            const int before = status();
            escape(answer);
            EXPECT_EQ(bus.actionCode(), answer == answers::kCancel ? code : ActionCode::Idle);
            EXPECT_EQ(status(), answer == answers::kCancel ? before : answer == answers::kYes ? 1 : 0);
            if (status() != 0)
                bus.truncateConnection();
            clock.run(61000);
        }
}

} // namespace
