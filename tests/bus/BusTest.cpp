// What holds for every code and every operation.
#include "bus/Frames.h"
#include "support/BusFixture.h"

#include <random>

using namespace support;
using bus::ActionCode;
using bus::Panel;

namespace {

class BusTest : public BusFixture
{
};

TEST_F(BusTest, AtTheStartTheLineIsIdleAndTheAlarmPanelRests)
{
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(panels.picture(Panel::Allarm), bus::images::kRest);
    clock.run(24 * 3600 * 1000);
    EXPECT_TRUE(port.sent().empty()) << "an idle line is silent";
}

TEST_F(BusTest, TheStatusSetsPointerAndConsole)
{
    const std::pair<int, platform::Pointer> rows[] = {{-1, platform::Pointer::Default},
                                                      {0, platform::Pointer::Default},
                                                      {1, platform::Pointer::Default},
                                                      {2, platform::Pointer::ArrowHourglass}};
    for (const auto& [status, pointer] : rows) {
        op.setPointer(platform::Pointer::Hourglass);
        bus.EnableDisable_RWMenu(session::LineStatus(status));
        EXPECT_EQ(session.COMPort.Status, status);
        EXPECT_EQ(op.pointer, pointer) << status;
        EXPECT_EQ(model.status(), status);
    }
}

// Each code that a connection goes through, fed with junk of every kind: nothing is sent but what the code's
// own row allows, nothing fails that has no cause, and Escape always leads home.
TEST_F(BusTest, JunkInEveryCodeLeavesAWayHome)
{
    const QByteArrayList junk = {QByteArray(1, '\0'), QByteArray(300, '\xFF'), "OKOK", "NO CARRIER\r\n",
                                 QByteArray(3, '\r')};
    struct
    {
        ActionCode code;
        bool simulator;
        std::function<void()> reach;
    } const codes[] = {
        {ActionCode::SimulatorRaising, true, [this] { console.Connect(); }},
        {ActionCode::ModemSetup, false, [this] { console.Connect(); }},
        {ActionCode::SimulatorClosing, true, [this] { connectByHand(), console.Disconnect(); }},
        {ActionCode::Reading, true, [this] { connectByHand(), console.Read_Param(), clock.run(3000); }},
        {ActionCode::WritingRam, true, [this] { connectByHand(), console.Write_Param(); }},
        {ActionCode::WritingEeprom, true,
         [this] { connectByHand(), console.Write_Param(), waitFor(ActionCode::WritingEeprom); }},
        {ActionCode::Checking, true,
         [this] { connectByHand(), console.Write_Param(), waitFor(ActionCode::Checking), clock.run(3000); }},
        {ActionCode::Polling, true, [this] { connectByHand(), clock.run(30000); }},
        {ActionCode::CallWaiting, true, [this] { arrives("RING"); }},
        {ActionCode::CallAnswering, true, [this] { arrives("RING"), clock.run(3000); }},
        {ActionCode::FirstBlock, true, [this] { arrives("ATD"); }},
        {ActionCode::SecondBlock, true, [this] { arrives("ATD<P><U><A>"), clock.run(5000); }},
    };
    for (const auto& row : codes)
        for (const QByteArray& bytes : junk) {
            SCOPED_TRACE(int(row.code));
            runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201'");
            openConsole("1_1");
            if (model.simulatorPressed() != row.simulator)
                console.Set_Simulator(true);
            row.reach();
            ASSERT_EQ(bus.actionCode(), row.code);
            arrives(bytes);
            clock.run(30000);
            failures.take(); // an alarm block of junk fails in its own procedure
            if (status() > 0)
                bus.truncateConnection();
            clock.run(70000);
            failures.take();
            arrives(QByteArray(1, ' '));
            EXPECT_EQ(status(), 0);
            bus.Delete_Allarms();
        }
}

TEST_F(BusTest, NoFrameLeavesEarlierThanItsInterval)
{
    instrument::VirtualInstrument& device = plugIn(instrument::LinkMode::Cable);
    const char* const items[] = {"1_1", "2_1_1", "3_1_1_G02", "4_1_1_G01_P0104", "4_1_1_G02_P0202"};
    std::mt19937 random(4100);
    const auto pick = [&](int count) { return int(random() % uint(count)); };
    openConsole(items[0]);
    connectOverCable();
    mark();
    for (int round = 0; round < 60; ++round) {
        if (pick(4) == 0)
            device.failures().set(instrument::Failure(pick(6)), 1 + pick(4000), 1);
        openConsole(items[pick(5)]);
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1 WHERE IDPar LIKE 'P0_0%1'")
                       .arg(1 + pick(4)));
        pick(2) ? console.Read_Param() : console.Write_Param();
        clock.run(pick(40000));
        if (status() == 2 && pick(3) > 0)
            clock.runUntil([this] { return status() != 2; }, 120000);
        if (status() == 2)
            bus.abandonOperation();
        clock.run(pick(2) * pick(70000));
    }
    failures.take();
    op.unexpected.removeAll("There are not parameters to upgrade.");
    qint64 before = -3000;
    for (const platform::MemorySerialPort::Sent& frame : port.sent()) {
        EXPECT_GE(frame.at - before, 3000);
        before = frame.at;
    }
    EXPECT_GT(device.statistics().requests.size(), 100u);
    EXPECT_EQ(device.statistics().badChecksums, 0);
}

TEST_F(BusTest, TheWholeGroupReadsBackWhatTheInstrumentsHold)
{
    plugIn(instrument::LinkMode::Modem);
    const QString all =
        "SELECT IDInst || IDPar || '=' || IfNull(Value, '-') FROM tbParametersUser WHERE IDGrp = 1 AND "
        "IDPar NOT IN ('P0102', 'P0107', 'P0303') ORDER BY 1";
    const QStringList known = column(plantFile(), all);
    runOnPlant("UPDATE tbParametersUser SET Value = '1' WHERE IDGrp = 1");
    openConsole("1_1");
    connectOverModem();
    console.Read_Param();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(column(plantFile(), all), known);
}

} // namespace
