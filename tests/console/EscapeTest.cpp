// Escape's question stands in a box, and the line goes on behind it: an answer counts for the state in which
// the question was asked.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
namespace answers = platform::answers;

namespace {

class EscapeTest : public BusFixture
{
protected:
    EscapeTest() { openConsole("4_1_1_G01_P0101"); }
    // Escape is pressed, and while the box stands something happens.
    void escape(int answer, const std::function<void()>& meanwhile)
    {
        bool stands = true;
        op.onBox = [&](const QString&) {
            if (std::exchange(stands, false)) {
                meanwhile();
                before_ = frames().size();
            }
        };
        op.expect(texts(572) + "\r\n" + texts(573) + "\r\n" + texts(574), answer);
        console.interrupt();
        op.onBox = nullptr;
        failures.take();
    }
    void expectNothingDone(int statusNow)
    {
        EXPECT_EQ(status(), statusNow);
        EXPECT_EQ(frames().size(), before_);
        EXPECT_EQ(logged().last(), "Meanwhile the line had gone on: the answer had no effect.");
        for (const QString& line : events() + logLines())
            EXPECT_FALSE(line.contains(texts(502)) || line.contains(texts(575))) << line.toStdString();
    }
    void expectCallsAreSeen()
    {
        arrives("RING");
        EXPECT_EQ(bus.actionCode(), ActionCode::CallWaiting);
        clock.run(70000);
        failures.take();
    }

private:
    qsizetype before_ = 0;
};

TEST_F(EscapeTest, AnOperationThatEndedLeavesItsConnection)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        connectByHand();
        console.Read_Param();
        clock.run(3000);
        escape(answer, [this] {
            arrives("ab");
            clock.run(3000);
            EXPECT_EQ(status(), 1);
        });
        expectNothingDone(1);
        clock.run(30000);
        EXPECT_EQ(bus.actionCode(), ActionCode::Polling) << "the connection lives on";
        bus.truncateConnection();
        for (const QString& name : logFiles())
            QFile::remove(file("Log/" + name));
    }
}

TEST_F(EscapeTest, AnAttemptThatTimedOutMakesNoConnection)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        console.Connect();
        escape(answer, [this] { clock.run(61000); });
        expectNothingDone(0);
        clock.run(60000);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        EXPECT_EQ(logFiles().size(), 1);
        expectCallsAreSeen();
        for (const QString& name : logFiles())
            QFile::remove(file("Log/" + name));
    }
}

TEST_F(EscapeTest, AConnectionThatHasComeUpStays)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        if (!model.simulatorPressed())
            console.Set_Simulator(true);
        console.Connect();
        escape(answer, [this] {
            arrives("ATA");
            clock.run(3000);
        });
        expectNothingDone(1);
        EXPECT_EQ(bus.parTrasm().Name, "GRP1");
        console.Disconnect();
        arrives("\r");
        mark();
    }
}

TEST_F(EscapeTest, APortThatVanishedStaysClosed)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        EXPECT_TRUE(bus.Open_COMConnection());
        console.load("1_1");
        connectByHand();
        escape(answer, [this] {
            port.vanish();
            clock.settle();
        });
        expectNothingDone(-1);
    }
}

TEST_F(EscapeTest, ACallThatEndedIsOver)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        arrives("ATD");
        escape(answer, [this] {
            arrives("<P><U><A>");
            clock.run(5000);
            arrives("<P><End>");
            clock.run(5000);
        });
        expectNothingDone(0);
        bus.Delete_Allarms();
        clock.run(60000);
        expectCallsAreSeen();
    }
}

TEST_F(EscapeTest, AConnectionThatWasClosedStaysClosed)
{
    connectByHand();
    console.Disconnect();
    escape(answers::kYes, [this] { arrives("\r"); });
    expectNothingDone(0);
    clock.run(60000);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
}

TEST_F(EscapeTest, AnotherConnectionThanTheOneAskedAboutIsNotCut)
{
    connectByHand();
    escape(answers::kNo, [this] {
        bus.truncateConnection();
        connectByHand();
        for (const QString& name : logFiles())
            QFile::remove(file("Log/" + name));
    });
    expectNothingDone(1);
}

TEST_F(EscapeTest, TheSameOperationAtItsNextRecordIsTheSame)
{
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    const auto goOn = [this] {
        arrives("ab");
        clock.run(3000);
    };
    escape(answers::kYes, goOn);
    EXPECT_EQ(logged().last(), "Current operation has been cancelled.");
    EXPECT_EQ(status(), 1);
    EXPECT_FALSE(bus.isOperating());
    console.Read_Param();
    clock.run(3000);
    escape(answers::kNo, goOn);
    EXPECT_EQ(status(), 0);
    EXPECT_FALSE(bus.isOperating());
}

TEST_F(EscapeTest, CancelIsNeverTooLate)
{
    console.Connect();
    escape(answers::kCancel, [this] { clock.run(61000); });
    EXPECT_EQ(logged().last(), texts(583));
}

// A call is nobody's operation: what has come of it is kept, and no connection stays behind.
TEST_F(EscapeTest, ACallThatIsBrokenOffKeepsItsAlarms)
{
    for (const int answer : {answers::kYes, answers::kNo}) {
        arrives("ATD");
        arrives("<P><U><A><B");
        escape(answer, [] {});
        EXPECT_EQ(status(), 0);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        EXPECT_EQ(logLines().value(0).mid(23, 50).trimmed(), "P");
        EXPECT_EQ(descriptionOf(logLines().value(0)), "A");
        EXPECT_EQ(panels.picture(bus::Panel::Allarm), bus::images::kAlarm);
        EXPECT_EQ(panels.text(bus::Panel::Info), "Attention! Allarms recivied.");
        bus.Delete_Allarms();
        clock.run(60000);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        for (const QString& name : logFiles())
            QFile::remove(file("Log/" + name));
    }
}

// Every way out of an operation closes its records.
TEST_F(EscapeTest, NoWayOutLeavesTheRecordsOpen)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Yes", [this] { escape(answers::kYes, [] {}); }},
        {"No", [this] { escape(answers::kNo, [] {}); }},
        {"end", [this] { arrives("ab"), clock.run(3000); }},
        {"vanished", [this] { port.vanish(), clock.settle(), failures.take(), bus.Open_COMConnection(); }},
        {"company", [this] { bus.cutLine(); }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        openConsole("4_1_1_G01_P0101");
        if (status() != 1)
            connectByHand();
        console.Read_Param();
        clock.run(3000);
        ASSERT_TRUE(bus.isOperating());
        arrives("x");
        ASSERT_EQ(bus.received(), "x");
        leave();
        EXPECT_FALSE(bus.isOperating());
        EXPECT_TRUE(bus.received().isEmpty());
        EXPECT_FALSE(model.progressVisible());
        structure.selectNode("3_1_1_G01");
        console.unload();
        EXPECT_EQ(structure.list().rowCount(), 7) << "the list of the plant is filled behind it";
    }
}

TEST_F(EscapeTest, NothingToWriteLeavesNoRecordsOpen)
{
    connectByHand();
    op.expect("There are not parameters to upgrade.");
    console.Write_Param();
    EXPECT_FALSE(bus.isOperating());
    structure.selectNode("3_1_1_G01");
    console.unload();
    EXPECT_EQ(structure.list().rowCount(), 7);
}

TEST_F(EscapeTest, APortThatTakesNothingIsCutAllTheSame)
{
    connectByHand();
    port.onOutput = [](const QByteArray&) {
        platform::fail(platform::errors::kDeviceIo, "It takes nothing.");
    };
    op.expect(texts(572) + "\r\n" + texts(573) + "\r\n" + texts(574), answers::kNo);
    console.interrupt();
    failures.expectOne(platform::errors::kDeviceIo, "frmReadWrite.lvwItems_KeyDown");
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(model.status(), 0);
    EXPECT_EQ(logFiles().size(), 1);
    expectCallsAreSeen();
}

} // namespace
