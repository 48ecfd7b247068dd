// Connecting a group, what is refused, the toggles, the window that closes and comes back.
#include "console/Console.h"

#include "bus/Frames.h"
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using platform::Icon;

namespace {

class ConsoleTest : public BusFixture
{
protected:
    // The next box tells this.
    void refuses(const QString& message) { op.expect(message); }
};

// Opening
TEST_F(ConsoleTest, ItOpensOnTheSelectedItemAndOnTheSelectedNode)
{
    structure.selectItem("2_1_1");
    console.ReadWrite_Item();
    EXPECT_EQ(console.chosenKey(), "2_1_1");
    EXPECT_EQ(op.forms, QStringList{"modal frmReadWrite"});
    structure.selectNode("1_2");
    console.ReadWrite_Node();
    EXPECT_EQ(console.chosenKey(), "1_2");
}

TEST_F(ConsoleTest, ItTellsWhereItStandsBelowTheGroup)
{
    const std::pair<const char*, QString> kRows[] = {
        {"1_1", {}},
        {"2_1_1", "INST11"},
        {"3_1_1_G02", QStringLiteral("INST11 \u203a States")},
        {"4_1_1_G02_P0201", QStringLiteral("INST11 \u203a States \u203a EN MOD")},
    };
    for (const auto& [key, path] : kRows) {
        structure.clickNode(structure::parentKey(key));
        openConsole(key);
        EXPECT_EQ(console.itemPath(), path) << key;
        console.unload();
    }
}

TEST_F(ConsoleTest, WithoutASelectionNothingHappens)
{
    structure.clearAll();
    console.ReadWrite_Item();
    console.ReadWrite_Node();
    EXPECT_TRUE(op.forms.isEmpty());
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(ConsoleTest, AClosedOrBusyPortRefusesTheWindow)
{
    structure.selectItem("2_1_1");
    const std::pair<int, QString> rows[] = {{-1, "COM port not available."}, {2, "COM port is busy."}};
    for (const auto& [status, reason] : rows) {
        session.COMPort.Status = session::LineStatus(status);
        for (int way = 0; way < 2; ++way) {
            refuses(reason + "\r\nIt is not possible to open the template in this moment.");
            way == 0 ? console.ReadWrite_Item() : console.ReadWrite_Node();
            EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
        }
    }
    EXPECT_TRUE(op.forms.isEmpty());
}

TEST_F(ConsoleTest, OnAnIdleLineItBeginsWithAnEmptyTable)
{
    runOnPlant("INSERT INTO tbEvent (IDType, Date_Reg, Source) VALUES (1, '2026-01-01 00:00:00', 2)");
    model.setAutoDisconnect(true);
    openConsole("1_1");
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(status(), 0);
    EXPECT_FALSE(model.autoDisconnectPressed());
    EXPECT_EQ(model.log().headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Date");
    EXPECT_EQ(model.log().headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Description");
    EXPECT_EQ(console.groupName(), "GRP1");
    EXPECT_TRUE(logFiles().isEmpty());
}

TEST_F(ConsoleTest, ReopenedOnALiveConnectionItShowsWhatWasLogged)
{
    openConsole("4_1_1_G01_P0101");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    arrives("ab");
    clock.run(3000);
    EXPECT_TRUE(console.mayClose());
    console.unload();
    clock.run(10000);
    EXPECT_EQ(status(), 1);
    openConsole("2_1_1");
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(logged(),
              QStringList({"*** CONNECTION TO: GRP1 ***", "Connected.", "--- Reading process start ---",
                           "Group parameters detected: [Measures] - parameter: [EN T1]",
                           "Reading request of 1 bytes from address 0 from instrument 00",
                           "Waiting for ready...", "Parameter value: 9.7", "--- Reading process end ---"}));
    EXPECT_EQ(model.log().text(0, 0), "2026/03/14 09:00:00");
    EXPECT_FALSE(model.progressVisible());
    EXPECT_EQ(model.progress(), 100);
    EXPECT_TRUE(model.simulatorPressed()) << "the choice survives the window";
    EXPECT_TRUE(model.commands().Read);
}

TEST_F(ConsoleTest, AnEventWithoutADescriptionIsAnEmptyLine)
{
    openConsole("1_1");
    connectByHand();
    runOnPlant("DELETE FROM tbEvent; INSERT INTO tbEvent (IDType, Date_Reg, Source) VALUES (1, '2026-01-02 "
               "03:04:05', 2)");
    EXPECT_TRUE(console.Read_Events());
    EXPECT_EQ(logged(), QStringList{""});
    EXPECT_EQ(model.log().text(0, 0), "2026/01/02 03:04:05");
}

TEST_F(ConsoleTest, ABusyLineKeepsTheWindowOpen)
{
    openConsole("1_1");
    EXPECT_TRUE(console.mayClose());
    connectByHand();
    EXPECT_TRUE(console.mayClose());
    console.Read_Param();
    EXPECT_FALSE(console.mayClose());
    bus.abandonOperation();
    EXPECT_TRUE(console.mayClose());
}

TEST_F(ConsoleTest, ClosingRefreshesTheListOfTheSelectedNode)
{
    structure.selectNode("3_1_1_G01");
    openConsole("4_1_1_G01_P0101");
    const int before = structure.list().rowCount();
    console.unload();
    EXPECT_EQ(structure.list().rowCount(), 7);
    EXPECT_NE(before, 7);
}

// Connecting
TEST_F(ConsoleTest, ConnectFillsTheRecordOfTheConnection)
{
    openConsole("4_1_1_G01_P0101");
    console.Connect();
    const bus::ParTrasm& connection = bus.parTrasm();
    EXPECT_EQ(connection.IDGrp, "1");
    EXPECT_EQ(connection.Name, "GRP1");
    EXPECT_EQ(connection.Phone, "0551234567");
    EXPECT_EQ(connection.AliveFrame, bus::readRequest("00", 1, 0, 1));
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(op.pointer, platform::Pointer::ArrowHourglass);
    EXPECT_FALSE(model.commands().Exit);
}

TEST_F(ConsoleTest, AGroupWithoutAMasterThatAnswersPollsIsRefused)
{
    const std::pair<const char*, const char*> rows[] = {
        {"1_2", "UPDATE tbInstrumentsUser SET Address = '01' WHERE IDGrp = 2"},
        {"1_2", "UPDATE tbInstrumentsUser SET Address = NULL WHERE IDGrp = 2"},
        {"1_2", "UPDATE tbInstrumentsUser SET Address = '00', IDItem = 'ALIEN' WHERE IDGrp = 2"},
        {"1_2", "UPDATE tbInstrumentsUser SET Address = '00', IDItem = 'KT200' WHERE IDGrp = 2; "
                "UPDATE tbInstrument SET mAliveParAddr = 250 WHERE mTag = 'KT200'"},
    };
    for (const auto& [key, sql] : rows) {
        runOnPlant(sql);
        openConsole(key);
        refuses("Attention! No possibility to connect to group: ALPHA\r\nNo present instrument.");
        console.Connect();
        EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
        EXPECT_EQ(status(), 0);
        EXPECT_EQ(bus.parTrasm().Name, "ALPHA") << "the record is left filled";
    }
    EXPECT_TRUE(port.sent().empty());
    EXPECT_EQ(events(), QStringList());
}

TEST_F(ConsoleTest, ASecondConnectionIsRefusedByTheNameOfTheFirst)
{
    openConsole("1_1");
    connectByHand();
    openConsole("1_2");
    for (const int status : {1, 2}) {
        session.COMPort.Status = session::LineStatus(status);
        refuses("Attention! Connection already opened on group: GRP1\r\nActive connection must be closed in "
                "advance.");
        console.Connect();
    }
    EXPECT_EQ(bus.parTrasm().IDGrp, "1");
}

TEST_F(ConsoleTest, AnotherGroupsItemsAreNeitherReadNorWritten)
{
    openConsole("1_1");
    connectByHand();
    console.unload();
    openConsole("2_2_1");
    for (int command = 0; command < 2; ++command) {
        refuses("Attention! Connection already opened on group: GRP1\r\nActive connection must be closed in "
                "advance.");
        command == 0 ? console.Read_Param() : console.Write_Param();
    }
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 1);
    clock.run(29000);
    EXPECT_TRUE(frames().isEmpty());
}

TEST_F(ConsoleTest, DisconnectWithoutAConnectionIsTold)
{
    openConsole("1_1");
    refuses("Attention! No connections are opened.");
    console.Disconnect();
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    EXPECT_TRUE(port.sent().empty());
}

TEST_F(ConsoleTest, AConnectOnAPortThatIsGoneIsToldAndSendsNothing)
{
    openConsole("1_1");
    bus.Close_COMConnection();
    refuses("COM port not available.");
    console.Connect();
    EXPECT_EQ(status(), -1);
}

TEST_F(ConsoleTest, TheGroupIsFoundOrGivesTwoEmptyTexts)
{
    QString name = "x", phone = "y";
    console.Search_Group(3, name, phone);
    EXPECT_EQ(name, "O'Hara");
    EXPECT_EQ(phone, "");
    console.Search_Group(2, name, phone);
    EXPECT_EQ(name, "ALPHA");
    EXPECT_EQ(phone, "") << "NULL";
    console.Search_Group(99, name, phone);
    EXPECT_EQ(name, "");
    EXPECT_EQ(console.Search_AliveParGrp(99), "");
    EXPECT_EQ(console.Search_AliveParGrp(1), QByteArray::fromHex("30 30 01 00 01"));
}

// Toggles
TEST_F(ConsoleTest, TheSimulatorFlipsAndLoadingOnlyShowsIt)
{
    openConsole("1_1");
    EXPECT_FALSE(model.simulatorPressed());
    console.Set_Simulator(true);
    EXPECT_EQ(bus.parTrasm().Simulator, true);
    EXPECT_TRUE(model.simulatorPressed());
    console.Set_Simulator(false);
    EXPECT_TRUE(model.simulatorPressed());
    console.Set_Simulator(true);
    EXPECT_EQ(bus.parTrasm().Simulator, false);
    EXPECT_FALSE(model.simulatorPressed());
}

TEST_F(ConsoleTest, BehindAConnectionTheFirstClickFindsAnEmptiedFieldUnderAPressedButton)
{
    openConsole("1_1");
    connectByHand();
    console.Disconnect();
    arrives("\r");
    EXPECT_EQ(bus.parTrasm().Simulator, false);
    EXPECT_TRUE(model.simulatorPressed());
    console.Set_Simulator(true);
    EXPECT_TRUE(model.simulatorPressed());
    console.Set_Simulator(true);
    EXPECT_FALSE(model.simulatorPressed());
}

TEST_F(ConsoleTest, ClosingKeepsTheSimulatorsButtonForTheNextTime)
{
    openConsole("1_1");
    connectByHand();
    console.Disconnect();
    arrives("\r");
    console.unload();
    EXPECT_EQ(bus.parTrasm().Simulator, true);
    openConsole("1_2");
    EXPECT_TRUE(model.simulatorPressed());
}

TEST_F(ConsoleTest, AutoDisconnectFlips)
{
    openConsole("1_1");
    console.Set_AutoDisconnect();
    EXPECT_TRUE(model.autoDisconnectPressed());
    console.Set_AutoDisconnect();
    EXPECT_FALSE(model.autoDisconnectPressed());
}

// A click on Disconnect waits until the window has settled; meanwhile an instrument may have called, or the
// port may have gone.
TEST_F(ConsoleTest, ADisconnectThatComesIntoACallLeavesTheCall)
{
    openConsole("2_1_1");
    connectByHand();
    arrives("ATD");
    op.expect(texts(571));
    console.Disconnect();
    EXPECT_EQ(bus.actionCode(), bus::ActionCode::FirstBlock);
    arrives("<P><U><A>");
    clock.run(5000);
    EXPECT_EQ(frames(), QList<QByteArray>({"CONNECT", "OK"}));
}

TEST_F(ConsoleTest, ADisconnectOnAPortThatVanishedLocksNothing)
{
    openConsole("2_1_1");
    connectByHand();
    port.vanish();
    clock.settle();
    failures.take();
    op.expect(texts(539));
    console.Disconnect();
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(bus.actionCode(), bus::ActionCode::Idle);
}

TEST_F(ConsoleTest, AnInstrumentsCableConnectionThatCannotBeConfirmedIsNone)
{
    openConsole("2_1_1");
    console.Set_Simulator(true);
    console.Connect();
    arrives("ATA");
    port.onOutput = [](const QByteArray&) {
        platform::fail(platform::errors::kDeviceIo, "It takes nothing.");
    };
    clock.run(3000);
    failures.expectOne(platform::errors::kDeviceIo, "frmMain.tmrAction_Timer");
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(bus.actionCode(), bus::ActionCode::SimulatorRaising) << "Escape ends it";
    clock.run(5000);
    EXPECT_EQ(panels.text(bus::Panel::Info), "") << "no clock runs";
    clock.run(60000);
    EXPECT_EQ(status(), 0) << "the time-out ends it, too";
}

// A second command that fails while the first one's refusal stands is told behind it, once.
TEST_F(ConsoleTest, AFailureInsideARefusalIsToldBehindIt)
{
    openConsole("2_1_1");
    connectByHand();
    bool first = true;
    op.onBox = [&](const QString&) {
        if (!std::exchange(first, false))
            return;
        session.COMPort.Status = session::kConnected;
        port.onOutput = [](const QByteArray&) {
            platform::fail(platform::errors::kDeviceIo, "It takes nothing.");
        };
        console.Disconnect();
        EXPECT_TRUE(failures.failures().empty());
    };
    op.expect(texts(535) + " GRP1\r\n" + texts(536));
    console.Connect();
    failures.expectOne(platform::errors::kDeviceIo, "frmReadWrite/Disconnect");
}

} // namespace
