// Each procedure of line and console reports a failure under its own name.
#include "support/BusFixture.h"
#include "support/NamedFailure.h"
#include "values/UpdateParam.h"

using support::breakDown;
using support::kNoLanguage;
using support::NamedFailure;

namespace {

class ConsoleFailureNames : public support::BusFixture
{
protected:
    void lose(const QString& table)
    {
        session.cnDatabase.Execute("ALTER TABLE " + table + " RENAME TO Gone");
    }
    void breakPanels()
    {
        QObject::connect(&panels, &bus::StatusPanels::changed, [] { breakDown(); });
    }
    void connect()
    {
        openConsole("2_1_1");
        connectByHand();
    }
    void selectOnPort(int status)
    {
        structure.selectItem("2_1_1");
        structure.selectNode("2_1_1");
        session.COMPort.Status = session::LineStatus(status);
        setLanguage(kNoLanguage);
    }
    void openBroken(const QString& table)
    {
        openConsole("2_1_1");
        lose(table);
    }

    const std::vector<NamedFailure> rows{
        {"Module/Set_COMPort", [this] { breakPanels(), bus.Set_COMPort(); }},
        {"Module/Close_COMConnection", [this] { breakPanels(), bus.Close_COMConnection(); }},
        {"Module/Update_Param",
         [this] {
             lose("tbParametersUser");
             EXPECT_FALSE(values::Update_Param(session, 1, 1, "P0101", "1"));
         }},
        {"Module/ReadWrite_Item", [this] { selectOnPort(-1), console.ReadWrite_Item(); }},
        {"frmTreeBus/ReadWrite_Node", [this] { selectOnPort(-1), console.ReadWrite_Node(); }},
        {"frmReadWrite.Load", [this] { setLanguage(kNoLanguage), openConsole("2_1_1"); }},
        {"frmReadWrite.Form_Unload",
         [this] {
             openConsole("2_1_1");
             QObject::connect(&model, &console::ConsoleModel::concernsChanged, [] { breakDown(); });
             console.unload();
         }},
        {"frmReadWrite/Connect",
         [this] {
             openConsole("2_1_1");
             session.COMPort.Status = session::kPortClosed;
             setLanguage(kNoLanguage);
             console.Connect();
         }},
        {"frmReadWrite/Disconnect",
         [this] { openConsole("2_1_1"), setLanguage(kNoLanguage), console.Disconnect(); }},
        {"frmReadWrite/Search_Group",
         [this] {
             openBroken("tbGroupsUser");
             op.expect("Attention! No possibility to connect to group: \r\nNo present instrument.");
             console.Connect();
         }},
        {"frmReadWrite/Search_AliveParGrp",
         [this] {
             openBroken("tbInstMem");
             op.expect("Attention! No possibility to connect to group: GRP1\r\nNo present instrument.");
             console.Connect();
         }},
        {"frmReadWrite/Write_Param",
         [this] {
             connect();
             lose("tbParam");
             console.Write_Param();
         }},
        {"frmReadWrite/Read_Events",
         [this] {
             lose("tbEvent");
             EXPECT_FALSE(console.Read_Events());
         }},
        {"frmReadWrite.lvwItems_KeyDown",
         [this] {
             openConsole("2_1_1");
             session.COMPort.Status = session::kBusy;
             setLanguage(kNoLanguage);
             console.interrupt();
         }},
        {"frmMain.tmrConnection_Timer", [this] { connect(), setLanguage(kNoLanguage), clock.run(1000); }},
        {"frmMain.tmrPolling_Timer", [this] { connect(), port.setPortOpen(false), clock.run(31000); }},
        {"frmMain.tmrTimeOut_Timer",
         [this] {
             openConsole("2_1_1");
             console.Connect();
             setLanguage(kNoLanguage);
             clock.run(61000);
         }},
        {"frmMain.tmrAllarm_Timer",
         [this] {
             op.onBeep = [] { breakDown(); };
             arrives("ATD");
             arrives("<Plant><Unit><Alarm>");
             clock.run(30000);
         }},
        {"Module/Delete_Allarms",
         [this] {
             op.onModal = [](const QString&) { breakDown(); };
             panels.setPicture(bus::Panel::Allarm, bus::images::kAlarm);
             bus.Delete_Allarms();
             EXPECT_EQ(panels.picture(bus::Panel::Allarm), bus::images::kAlarm) << "still to be seen";
         }},
    };
};

class ConsoleFailureName : public ConsoleFailureNames, public testing::WithParamInterface<int>
{
};

TEST_P(ConsoleFailureName, IsTheProceduresOwn)
{
    const NamedFailure& row = rows.at(std::size_t(GetParam()));
    row.provoke();
    failures.expectUnder(row.procedure);
}

INSTANTIATE_TEST_SUITE_P(Procedures, ConsoleFailureName, testing::Range(0, 19));

} // namespace
