#include "support/BusFixture.h"

using namespace support;
using bus::Panel;
using platform::RuntimeError;
namespace errors = platform::errors;
namespace images = bus::images;

namespace {

class LineTest : public BusFixture
{
protected:
    void close()
    {
        EXPECT_TRUE(bus.Close_COMConnection());
        panels.setPicture(Panel::COMSet, 0);
    }
};

TEST_F(LineTest, TheSettingsGoToThePortAndToItsPanel)
{
    session.COMPort.Port = 6;
    session.COMPort.Speed = 5;
    session.COMPort.FlowCtrl = 2;
    EXPECT_TRUE(bus.Set_COMPort());
    EXPECT_EQ(port.CommPort(), 7);
    EXPECT_EQ(port.Settings(), "9600,N,8,1");
    EXPECT_EQ(port.Handshaking(), 2);
    EXPECT_EQ(panels.text(Panel::COMSet), "COM7:9600,N,8,1");
}

TEST_F(LineTest, APortThatOpensIsIdle)
{
    close();
    EXPECT_TRUE(bus.Open_COMConnection());
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
}

TEST_F(LineTest, OpeningAnOpenPortLeavesTheStatusUntouched)
{
    session.COMPort.Status = session::kBusy;
    EXPECT_TRUE(bus.Open_COMConnection());
    EXPECT_EQ(status(), 2);
}

TEST_F(LineTest, ClosingShowsItAndClosingTwiceChangesNothing)
{
    EXPECT_TRUE(bus.Close_COMConnection());
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortClosed);
    session.COMPort.Status = session::kLineIdle;
    panels.setPicture(Panel::COMSet, images::kRest);
    EXPECT_TRUE(bus.Close_COMConnection());
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kRest);
}

TEST_F(LineTest, APortThatCantBeHadIsToldToTheOperator)
{
    struct
    {
        int number;
        const char* message;
    } const rows[] = {
        {8002, "Port COM3 does not exist."},
        {8005, "Port COM3 is olready opened by another application."},
        {8013, "Port COM3 is olready opened by another application."},
    };
    session.COMPort.Port = 2;
    for (const auto& row : rows) {
        close();
        port.openFailure = RuntimeError(row.number, "no");
        op.expect(row.message);
        EXPECT_FALSE(bus.Open_COMConnection());
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        EXPECT_EQ(op.boxes.back().title, "Calidora");
        EXPECT_EQ(status(), -1);
        EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortClosed);
    }
}

TEST_F(LineTest, AnyOtherRefusalOfThePortIsAFailure)
{
    close();
    port.openFailure = RuntimeError(errors::kPermissionDenied, "Access denied, join the group.");
    EXPECT_FALSE(bus.Open_COMConnection());
    failures.expectOne(errors::kPermissionDenied, "Module/Open_COMConnection");
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(status(), -1);
}

TEST_F(LineTest, WithoutAPortTheConsoleDoesNotOpenAndALaterOpeningHelps)
{
    close();
    structure.selectItem("1_1");
    op.expect("COM port not available.\r\nIt is not possible to open the template in this moment.");
    console.ReadWrite_Item();
    EXPECT_TRUE(op.forms.isEmpty());
    EXPECT_TRUE(bus.Open_COMConnection());
    EXPECT_EQ(status(), 0);
}

TEST_F(LineTest, APortThatVanishesWhileIdleIsClosed)
{
    openConsole("1_1");
    port.vanish();
    clock.settle();
    failures.expectOne(errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortClosed);
    EXPECT_TRUE(logFiles().isEmpty());
    EXPECT_EQ(logged(), QStringList());
}

TEST_F(LineTest, APortThatVanishesWhileConnectingEndsTheConnection)
{
    openConsole("1_1");
    console.Connect();
    port.vanish();
    clock.run(70000);
    failures.expectOne(errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(bus.actionCode(), bus::ActionCode::Idle);
    EXPECT_EQ(logged().last(), "The port has vanished: the cable or adapter was pulled out.");
    EXPECT_EQ(logLines().size(), 2);
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(bus.parTrasm().Name, "");
}

TEST_F(LineTest, APortThatVanishesUnderAReadLeavesTheRestUnread)
{
    openConsole("1_1");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    EXPECT_EQ(frames().size(), 1);
    port.vanish();
    clock.run(120000);
    failures.expectOne(errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_EQ(frames().size(), 1);
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(panels.text(Panel::Info), "");
    EXPECT_FALSE(model.progressVisible());
    EXPECT_FALSE(model.commands().Disconnect);
    EXPECT_EQ(logFiles().size(), 1);
}

TEST_F(LineTest, AWriteOntoAPortJustGoneIsReportedAndThenTheLineComesToRest)
{
    openConsole("1_1");
    connectByHand();
    console.Write_Param();
    clock.run(2999);
    port.vanish();
    clock.run(60000);
    EXPECT_TRUE(frames().isEmpty());
    failures.expectOne(errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(state(1, 1, "P0201"), "1");
}

TEST_F(LineTest, TheLineServesAgainWhenThePortIsBack)
{
    openConsole("1_1");
    port.vanish();
    clock.settle();
    failures.take();
    EXPECT_TRUE(bus.Open_COMConnection());
    openConsole("1_1");
    connectByHand();
    EXPECT_EQ(status(), 1);
}

TEST_F(LineTest, SettingsThatThePortRefusesAreFalse)
{
    using Settings = session::COMPortSettings;
    const std::pair<const char*, qint16 Settings::*> fields[] = {{"speed", &Settings::Speed},
                                                                 {"data bits", &Settings::DataBit},
                                                                 {"parity", &Settings::Parity},
                                                                 {"stop bits", &Settings::StopBit},
                                                                 {"handshaking", &Settings::FlowCtrl}};
    for (const auto& [name, field] : fields)
        for (const qint16 value : {qint16(-1), qint16(99)}) {
            session.COMPort = {};
            session.COMPort.*field = value;
            EXPECT_FALSE(bus.Set_COMPort()) << name;
            failures.expectOne(errors::kInvalidCall, "Module/Set_COMPort");
            EXPECT_EQ(panels.text(Panel::COMSet), "COM1:2400,N,8,1") << "what is in force";
            EXPECT_EQ(port.Settings(), name == QByteArray("handshaking") ? "2400,N,8,1" : port.Settings());
        }
    for (qint16 handshaking = 0; handshaking <= 3; ++handshaking) {
        session.COMPort = {};
        session.COMPort.FlowCtrl = handshaking;
        EXPECT_TRUE(bus.Set_COMPort());
        EXPECT_EQ(port.Handshaking(), handshaking);
    }
}

TEST_F(LineTest, APortThatVanishesKeepsTheChoiceOfAClosedConsole)
{
    openConsole("1_1");
    connectByHand();
    console.unload();
    port.vanish();
    clock.settle();
    failures.take();
    EXPECT_TRUE(bus.parTrasm().Simulator);
    EXPECT_EQ(bus.parTrasm().IDGrp, "");
}

} // namespace
