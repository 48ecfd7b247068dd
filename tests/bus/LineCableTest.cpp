// The dialogue on the direct cable, where the program plays the modem.
#include "bus/Frames.h"
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace images = bus::images;

namespace {

class LineCableTest : public BusFixture
{
protected:
    LineCableTest()
    {
        openConsole("1_1");
        console.Set_Simulator(true);
        mark();
    }
};

TEST_F(LineCableTest, RingAtaConnect)
{
    console.Connect();
    EXPECT_EQ(sent(), QStringList{"0 RING"});
    EXPECT_EQ(bus.actionCode(), ActionCode::SimulatorRaising);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortBusy);
    clock.run(500);
    arrives("xAT");
    arrives("A");
    clock.run(2999);
    EXPECT_EQ(status(), 2);
    clock.run(1);
    EXPECT_EQ(sent(), QStringList({"0 RING", "3500 CONNECT"}));
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_TRUE(bus.received().isEmpty());
    EXPECT_EQ(logged(), QStringList({"*** CONNECTION TO: GRP1 ***", "Connected."}));
    clock.run(30000);
    EXPECT_EQ(frames().last(), QByteArray::fromHex("30 30 01 00 01 9D"));
    EXPECT_EQ(frames().last(), bus::readRequest("00", 1, 0, 1));
}

TEST_F(LineCableTest, TheTimeOutIsOffFromTheAnswerOn)
{
    console.Connect();
    clock.run(59000);
    arrives("ATA\r");
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    clock.run(60000);
    EXPECT_EQ(status(), 1);
}

TEST_F(LineCableTest, ASilentCableEndsInTheTimeOut)
{
    console.Connect();
    arrives("AT");
    clock.run(60000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(sent(), QStringList{"0 RING"});
}

TEST_F(LineCableTest, AnyCharacterEndsTheConnection)
{
    for (const QByteArray& reply : {QByteArray("\r"), QByteArray("z"), QByteArray(1, '\0')}) {
        connectByHand();
        console.Disconnect();
        EXPECT_EQ(bus.actionCode(), ActionCode::SimulatorClosing);
        EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
        EXPECT_EQ(sent(), QStringList{"0 +++"});
        clock.run(400);
        arrives(reply);
        EXPECT_EQ(sent(), QStringList({"0 +++", "400 ATH|<0D>"}));
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        EXPECT_EQ(status(), 0);
        EXPECT_EQ(logged().mid(0, 2), QStringList({"*** DISCONNECTION TO: GRP1 ***", "Disconnected."}));
        clock.run(1000);
    }
}

TEST_F(LineCableTest, TheEndStepsLogTheDurationThatTheClockShowed)
{
    connectByHand();
    clock.run(5000);
    console.Disconnect();
    arrives("\r");
    EXPECT_EQ(logged(),
              QStringList({"*** DISCONNECTION TO: GRP1 ***", "Disconnected.", "CONNECTED 0:00:05"}));
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[4].size(), 378);
    EXPECT_EQ(descriptionOf(lines[4]), "CONNECTED 0:00:05");
    EXPECT_EQ(bus.parTrasm().Simulator, false) << "the record is emptied, the button stays";
    EXPECT_TRUE(model.simulatorPressed());
}

TEST_F(LineCableTest, ANameThatTheCodePageLacksKeepsTheWidthOfItsLines)
{
    runOnPlant(QStringLiteral("UPDATE tbGroupsUser SET Name = 'Cold \U00010348 Зал' WHERE IDGrp = 1"));
    connectByHand();
    console.Disconnect();
    arrives("\r");
    ASSERT_EQ(logLines().size(), 5);
    for (const QString& line : logLines()) {
        EXPECT_EQ(line.size(), 378);
        EXPECT_EQ(line.mid(23, 50).trimmed(), "Cold ? ???");
    }
}

TEST_F(LineCableTest, AConnectionShorterThanASecondHasNoDuration)
{
    connectByHand();
    console.Disconnect();
    arrives("\r");
    EXPECT_EQ(logged().last(), "");
    EXPECT_EQ(descriptionOf(logLines().last()), "");
}

TEST_F(LineCableTest, ASilentEndWaitsForTheOperator)
{
    connectByHand();
    console.Disconnect();
    clock.run(3600 * 1000);
    EXPECT_EQ(bus.actionCode(), ActionCode::SimulatorClosing);
    EXPECT_EQ(status(), 2);
}

TEST_F(LineCableTest, TheVirtualInstrumentSpeaksTheSameDialogue)
{
    instrument::VirtualInstrument& device = plugIn(instrument::LinkMode::Cable);
    console.Connect();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_TRUE(device.isConnected());
    console.Disconnect();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_FALSE(device.isConnected());
    EXPECT_EQ(status(), 0);
}

} // namespace
