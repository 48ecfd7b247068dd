#include "console/Console.h"

#include "bus/Bus.h"
#include "bus/Frames.h"
#include "bus/Statements.h"
#include "bus/StatusPanels.h"
#include "console/ConsoleModel.h"
#include "events/EventLog.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

namespace console {

using namespace platform;

namespace {

const QString kLineBreak = QStringLiteral("\r\n");
const QString kBlank = QStringLiteral(" ");

} // namespace

Console::Console(const Surroundings& with)
    : session_(with.session), texts_(with.texts), operator_(with.op), clock_(with.clock),
      structure_(with.structure), events_(with.events), bus_(with.bus), model_(with.model)
{
    events_.onLine = [this](const QString& when, const QString& description) {
        model_.addLine(when, description);
    };
}

void Console::ReadWrite_Item()
{
    openOn(structure_.selectedItem(), "Module/ReadWrite_Item");
}

void Console::ReadWrite_Node()
{
    openOn(structure_.selectedNode(), "frmTreeBus/ReadWrite_Node");
}

void Console::openOn(const QString& key, const char* procedure)
{
    guarded(procedure, [&] {
        if (!session::rightOf(session_.CurrentUser.ReadWrite))
            return;
        const int status = session_.COMPort.Status;
        if (status == -1 || status == 2) {
            session_.strMsg = texts_(status == -1 ? 569 : 571) + kLineBreak + texts_(568);
            operator_.messageBox(session_.strMsg, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
            return;
        }
        if (key.isEmpty())
            return;
        session_.ClipKey = key;
        operator_.showFormModal(QStringLiteral("frmReadWrite"));
    });
}

void Console::load()
{
    guarded("frmReadWrite.Load", [&] {
        item_ = structure::Extract_Key(session_.ClipKey);
        model_.log().clear();
        model_.log().setColumnCaptions({texts_(241), texts_(103)});
        model_.forgetFailedChecks();
        model_.setAutoDisconnect(false);
        Set_Simulator(false);
        if (session_.COMPort.Status == 1) {
            bus_.EnableDisable_RWMenu(1);
            Read_Events();
        } else {
            bus_.EnableDisable_RWMenu(0);
            events_.deleteEvents();
        }
    });
}

void Console::unload()
{
    guarded("frmReadWrite.Form_Unload", [&] {
        bus_.parTrasm().Simulator = model_.simulatorPressed() ? QStringLiteral("-1") : QString();
        model_.forgetFailedChecks();
        if (!structure_.selectedNode().isEmpty())
            structure_.Load_Items_ListBus(structure_.selectedNode());
    });
}

bool Console::mayClose() const
{
    return session_.COMPort.Status != 2;
}

void Console::Connect()
{
    guarded("frmReadWrite/Connect", [&] {
        const int status = session_.COMPort.Status;
        if (status == 1 || status == 2)
            return sayConnected();
        if (status == -1) {
            operator_.messageBox(texts_(569), Buttons::Ok, Icon::Exclamation, session_.AppTitle);
            return;
        }
        bus::ParTrasm& connection = bus_.parTrasm();
        connection.IDGrp = item_.IDGrp;
        Search_Group(item_.IDGrp.toInt(), connection.Name, connection.Phone);
        connection.AliveFrame = Search_AliveParGrp(item_.IDGrp.toInt());
        if (connection.AliveFrame.isEmpty()) {
            session_.strMsg = texts_(537) + kBlank + connection.Name + kLineBreak + texts_(538);
            operator_.messageBox(session_.strMsg, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
            return;
        }
        connection.AliveFrame += bus::Calculate_CheckSum(connection.AliveFrame);
        bus_.EnableDisable_RWMenu(2);
        events_.Add_Event(events::kInformation, clock_.now(), events::kReadWrite, connection.Name, {},
                          texts_(556) + kBlank + connection.Name + kBlank + texts_(558));
        bus_.raiseLink();
    });
}

void Console::Disconnect()
{
    guarded("frmReadWrite/Disconnect", [&] {
        if (session_.COMPort.Status == 0) {
            operator_.messageBox(texts_(539), Buttons::Ok, Icon::Exclamation, session_.AppTitle);
            return;
        }
        bus_.lowerLink();
    });
}

void Console::sayConnected()
{
    session_.strMsg = texts_(535) + kBlank + bus_.parTrasm().Name + kLineBreak + texts_(536);
    operator_.messageBox(session_.strMsg, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
}

void Console::Search_Group(int IDGrp, QString& Name, QString& Phone)
{
    guarded("frmReadWrite/Search_Group", [&] {
        Name.clear();
        Phone.clear();
        Recordset group;
        group.Open(QStringLiteral("SELECT * FROM tbGroupsUser WHERE IDGrp = ") + QString::number(IDGrp),
                   session_.cnDatabase);
        if (group.Eof())
            return;
        Name = group.text("Name");
        Phone = group.text("Phone");
    });
}

QByteArray Console::Search_AliveParGrp(int IDGrp)
{
    return guarded("frmReadWrite/Search_AliveParGrp", [&]() -> QByteArray {
        BusyPointer busy(operator_);
        if (session_.rsWork.State() == Recordset::Opened)
            session_.rsWork.Close();
        session_.strSQL =
            QStringLiteral(
                "SELECT DISTINCT tbGroupsUser.IDGrp, tbInstrumentsUser.Address, tbInstrument.mAliveParAddr, "
                "tbInstMem.mReadCmd FROM ((tbGroupsUser INNER JOIN tbInstrumentsUser ON tbGroupsUser.IDGrp = "
                "tbInstrumentsUser.IDGrp) INNER JOIN tbInstrument ON tbInstrumentsUser.IDItem = "
                "tbInstrument.mTag) "
                "INNER JOIN (tbParamGroup INNER JOIN (tbInstrument AS tbInstrument_1 INNER JOIN (tbParam "
                "INNER JOIN "
                "tbInstMem ON tbParam.mMemBank = tbInstMem.mID) ON tbInstrument_1.mAliveParAddr = "
                "tbParam.mAddr) ON "
                "tbParamGroup.mID = tbParam.mKeyParGroup) ON tbInstrument.mID = tbParamGroup.mKeyInst WHERE "
                "((tbGroupsUser.IDGrp = ") +
            QString::number(IDGrp) + QStringLiteral(") AND (tbInstrumentsUser.Address = '00'));");
        Recordset& master = session_.rsWork;
        master.Open(session_.strSQL, session_.cnDatabase);
        QByteArray frame;
        if (!master.Eof()) {
            // The first five bytes of a one-byte read; the checksum is the caller's.
            frame = bus::readRequest(encode(master.text("Address"), session_.CodePage),
                                     master.number("mReadCmd"), master.number("mAliveParAddr"), 1);
            frame.chop(1);
        }
        master.Close();
        return frame;
    });
}

QString Console::groupName()
{
    QString name, phone;
    Search_Group(item_.IDGrp.toInt(), name, phone);
    return name;
}

QString Console::itemPath() const
{
    QStringList captions;
    if (!item_.IDInst.isEmpty())
        captions << structure_.tree().captionOf(structure::Compose_Key(3, item_.IDGrp, item_.IDInst, {}));
    if (!item_.IDParGrp.isEmpty())
        captions << structure_.tree().captionOf(
            structure::Compose_Key(4, item_.IDGrp, item_.IDInst, item_.IDParGrp));
    if (const structure::ListItem* parameter = structure_.list().item(session_.ClipKey);
        !item_.IDPar.isEmpty() && parameter)
        captions << parameter->text;
    return captions.join(QStringLiteral(" \u203a "));
}

void Console::Set_Simulator(bool toggle)
{
    QString& chosen = bus_.parTrasm().Simulator;
    if (toggle)
        chosen = chosen.isEmpty() ? QStringLiteral("-1") : QString();
    model_.setSimulator(!chosen.isEmpty());
}

void Console::Set_AutoDisconnect()
{
    model_.setAutoDisconnect(!model_.autoDisconnectPressed());
}

bool Console::otherGroupConnected()
{
    if (item_.IDGrp == bus_.parTrasm().IDGrp)
        return false;
    sayConnected();
    return true;
}

bool Console::openOperation(const QString& statement)
{
    BusyPointer busy(operator_);
    if (session_.rsWork.State() == Recordset::Opened)
        session_.rsWork.Close();
    session_.strSQL = statement;
    session_.rsWork.Open(session_.strSQL, session_.cnDatabase);
    return session_.rsWork.RecordCount() > 0;
}

void Console::Read_Param()
{
    guarded("frmReadWrite/Read_Param", [&] {
        if (otherGroupConnected())
            return;
        const bool banks = item_.IDParGrp.isEmpty() && item_.IDPar.isEmpty();
        const QString filter = bus::operationFilter(item_.IDGrp, item_.IDInst, item_.IDParGrp, item_.IDPar);
        const QString& language = session_.Language.Code;
        if (openOperation(banks ? bus::bankStatement(language, filter)
                                : bus::parameterStatement(language, filter)))
            bus_.beginRead(banks, session_.ClipKey);
        else
            bus_.EnableDisable_RWMenu(1);
    });
}

void Console::Write_Param()
{
    guarded("frmReadWrite/Write_Param", [&] {
        if (otherGroupConnected())
            return;
        const QString filter = bus::operationFilter(item_.IDGrp, item_.IDInst, item_.IDParGrp, item_.IDPar);
        if (openOperation(bus::writeStatement(session_.Language.Code, filter))) {
            bus_.beginWrite(session_.ClipKey);
            return;
        }
        bus_.EnableDisable_RWMenu(1);
        operator_.messageBox(texts_(540), Buttons::Ok, Icon::Information, session_.AppTitle);
    });
}

bool Console::Read_Events()
{
    return guarded("frmReadWrite/Read_Events", [&] {
        BusyPointer busy(operator_);
        Recordset events;
        events.Open(QStringLiteral("SELECT * FROM tbEvent"), session_.cnDatabase);
        if (events.RecordCount() > 0)
            model_.showProgress(true);
        for (int done = 1; !events.Eof(); events.MoveNext(), ++done) {
            model_.setProgress(done * 100 / events.RecordCount());
            QString when = events.text("Date_Reg");
            events_.Add_Event_ReadWrite(when, events.text("Description"));
        }
        model_.showProgress(false);
        return true;
    });
}

void Console::interrupt()
{
    guarded("frmReadWrite.lvwItems_KeyDown", [&] {
        if (session_.COMPort.Status != 1 && session_.COMPort.Status != 2)
            return;
        session_.strMsg = texts_(572) + kLineBreak + texts_(573) + kLineBreak + texts_(574);
        session_.Answer =
            operator_.messageBox(session_.strMsg, Buttons::YesNoCancel, Icon::Question, session_.AppTitle);
        if (session_.Answer == answers::kYes)
            bus_.abandonOperation();
        else if (session_.Answer == answers::kNo)
            bus_.truncateConnection();
    });
}

} // namespace console
