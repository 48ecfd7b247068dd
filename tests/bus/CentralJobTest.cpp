#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;

namespace {

class CentralJobTest : public BusFixture
{
};

TEST_F(CentralJobTest, ReadsAParameterGroupOverTheModem)
{
    plugIn(instrument::LinkMode::Modem);
    runOnPlant("UPDATE tbParametersUser SET Value = '9.9', State = 1 WHERE IDPar = 'P0101'");
    openConsole("3_1_1_G01");
    connectOverModem();
    console.Read_Param();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(value(1, 1, "P0101"), "12.3");
    EXPECT_EQ(state(1, 1, "P0101"), "0");
    console.Disconnect();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(session.COMPort.Status, 0);
    EXPECT_EQ(logFiles().size(), 1);
    EXPECT_EQ(column(plantFile(), "SELECT Count(*) FROM tbEvent"), QStringList{"0"});
}

TEST_F(CentralJobTest, WritesWhatChangedInThreePassesOverTheCable)
{
    instrument::VirtualInstrument& device = plugIn(instrument::LinkMode::Cable);
    runOnPlant("UPDATE tbParametersUser SET State = 0; "
               "UPDATE tbParametersUser SET Value = '0', State = 1 WHERE IDPar = 'P0202'; "
               "UPDATE tbParametersUser SET Value = '2', State = 1 WHERE IDPar = 'P0201'; "
               "UPDATE tbParametersUser SET Value = 'NEW ROOM', State = 1 WHERE IDPar = 'P0204'");
    openConsole("3_1_1_G02");
    connectOverCable();
    console.Write_Param();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(state(1, 1, "P0202"), "0");
    EXPECT_TRUE(model.failedChecks().isEmpty()) << model.failedChecks().size();
    const instrument::Memory& memory = device.plants().front().instruments.at("00");
    EXPECT_EQ(memory.read(17, 64, 1), QByteArray("\x02"));
    EXPECT_EQ(memory.read(17, 66, 8), QByteArray("NEW ROOM"));
    EXPECT_EQ(memory.eeproms().at(33).mid(26, 8), QByteArray("NEW ROOM"));
    console.Disconnect();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(session.COMPort.Status, 0);
}

} // namespace
