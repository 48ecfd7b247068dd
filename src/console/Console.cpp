#include "console/Console.h"

#include "bus/Bus.h"
#include "bus/CatalogueNumber.h"
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
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Holdings.h"
#include "structure/Jump.h"
#include "structure/ShownValue.h"
#include "structure/Structure.h"

#include <utility>

namespace console {

using namespace platform;

namespace {

const QString kLineBreak = QStringLiteral("\r\n");
const QString kBlank = QStringLiteral(" ");

// The group's master and the parameter of its type that is polled.
QString aliveStatement(int IDGrp)
{
    return QStringLiteral(R"(
        SELECT DISTINCT tbGroupsUser.IDGrp, tbInstrumentsUser.Address, tbInstrument.mAliveParAddr, tbInstMem.mReadCmd
        FROM ((tbGroupsUser
            INNER JOIN tbInstrumentsUser ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp)
            INNER JOIN tbInstrument ON tbInstrumentsUser.IDItem = tbInstrument.mTag)
            INNER JOIN (tbParamGroup
                INNER JOIN (tbInstrument AS tbInstrument_1
                    INNER JOIN (tbParam INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID)
                    ON tbInstrument_1.mAliveParAddr = tbParam.mAddr)
                ON tbParamGroup.mID = tbParam.mKeyParGroup)
            ON tbInstrument.mID = tbParamGroup.mKeyInst
        WHERE ((tbGroupsUser.IDGrp = %1) AND (tbInstrumentsUser.Address = '00'));)")
        .arg(IDGrp);
}

} // namespace

Console::Console(const Surroundings& with)
    : session_(with.session), texts_(with.texts), operator_(with.op), clock_(with.clock),
      structure_(with.structure), events_(with.events), bus_(with.bus), model_(with.model)
{
    // The answer that a doubt is about is told by the next line.
    events_.onLine = [this, known = qsizetype(0)](const QString& when, const QString& description) mutable {
        const qsizetype doubts = model_.doubts().size();
        const bool doubtful = doubts > std::exchange(known, doubts);
        const int type = doubtful ? int(events::kWarning) : events_.typeOfLine();
        model_.addLine(when, description, description == texts_(545) ? int(events::kError) : type);
    };
    QObject::connect(
        &model_, &ConsoleModel::valueWasSeen, &model_,
        [this](int, int, const QString& IDPar, const QString& value) { annotate(IDPar, value); });
    QObject::connect(&model_, &ConsoleModel::checkHasFailed, &model_, [this] {
        model_.log().annotateLast(failedCheckWords(model_.failedChecks().constLast()));
    });
}

void Console::work(const char* procedure, const std::function<void()>& command)
{
    {
        const FailureQueue::Holding holding(failures_);
        guarded(procedure, command);
    }
    failures_.tell();
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
        bus_.tryLostPort();
        const session::LineStatus status = session_.COMPort.Status;
        if (status == session::kPortClosed || status == session::kBusy)
            return refuse(texts_(status == session::kPortClosed ? 569 : 571) + kLineBreak + texts_(568));
        if (key.isEmpty())
            return;
        key_ = key;
        operator_.showFormModal(QStringLiteral("frmReadWrite"));
    });
}

void Console::load(const QString& key)
{
    guarded("frmReadWrite.Load", [&] {
        model_.setOpen(true);
        key_ = key;
        item_ = structure::Extract_Key(key);
        model_.log().clear();
        model_.log().setColumnCaptions({texts_(session::rows::kDate), texts_(session::rows::kDescription)});
        model_.forgetConcerns();
        model_.setAutoDisconnect(false);
        Set_Simulator(false);
        if (session_.COMPort.Status == session::kConnected) {
            bus_.EnableDisable_RWMenu(session::kConnected);
            Read_Events();
        } else {
            bus_.EnableDisable_RWMenu(session::kLineIdle);
            events_.deleteEvents();
        }
    });
}

void Console::unload()
{
    guarded("frmReadWrite.Form_Unload", [&] {
        model_.setOpen(false);
        bus_.parTrasm().Simulator = model_.simulatorPressed();
        model_.forgetConcerns();
        if (!structure_.selectedNode().isEmpty())
            structure_.reloadList();
    });
}

bool Console::mayClose() const
{
    return session_.COMPort.Status != session::kBusy;
}

void Console::Connect()
{
    work("frmReadWrite/Connect", [&] {
        bus_.tryLostPort();
        const session::LineStatus status = session_.COMPort.Status;
        if (status == session::kConnected || status == session::kBusy)
            return sayConnected();
        if (status == session::kPortClosed)
            return refuse(texts_(569));
        bus::ParTrasm& connection = bus_.parTrasm();
        connection.IDGrp = item_.IDGrp;
        Search_Group(item_.IDGrp.toInt(), connection.Name, connection.Phone);
        connection.AliveFrame = Search_AliveParGrp(item_.IDGrp.toInt());
        if (connection.AliveFrame.isEmpty())
            return refuse(texts_(537) + kBlank + connection.Name + kLineBreak + texts_(538));
        connection.AliveFrame += bus::Calculate_CheckSum(connection.AliveFrame);
        bus_.EnableDisable_RWMenu(session::kBusy);
        events_.Add_Event(events::kInformation, clock_.now(), events::kReadWrite, connection.Name, {},
                          texts_(556) + kBlank + connection.Name + kBlank + texts_(session::rows::kStars));
        bus_.raiseLink();
    });
}

void Console::Disconnect()
{
    work("frmReadWrite/Disconnect", [&] {
        if (session_.COMPort.Status <= session::kLineIdle)
            return refuse(texts_(539));
        // The click came before the line was called, or began something.
        if (session_.COMPort.Status == session::kBusy)
            return refuse(texts_(571));
        bus_.lowerLink();
    });
}

void Console::sayConnected()
{
    refuse(texts_(535) + kBlank + bus_.parTrasm().Name + kLineBreak + texts_(536));
}

void Console::refuse(const QString& message)
{
    operator_.messageBox(message, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
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
        Recordset master;
        master.Open(aliveStatement(IDGrp), session_.cnDatabase);
        if (master.Eof())
            return {};
        // The first five bytes of a one-byte read; the checksum is the caller's.
        QByteArray frame = bus::readRequest(encode(master.text("Address"), session_.CodePage),
                                            bus::catalogueNumber(master, "mReadCmd", texts_),
                                            bus::catalogueNumber(master, "mAliveParAddr", texts_), 1);
        frame.chop(1);
        return frame;
    });
}

Situation Console::situation()
{
    using bus::ActionCode;
    const ActionCode code = bus_.actionCode();
    Situation now;
    now.group = group_;
    now.phone = phone_;
    now.otherGroup = lineIsElsewhere() ? bus_.parTrasm().Name : QString();
    now.portClosed = session_.COMPort.Status == session::kPortClosed;
    now.callComesIn = bus_.isCallTaken();
    now.closing = code == ActionCode::SimulatorClosing || code == ActionCode::HangingUp;
    return now;
}

bool Console::lineIsElsewhere() const
{
    return session_.COMPort.Status == session::kConnected && item_.IDGrp != bus_.parTrasm().IDGrp;
}

int Console::unwritten()
{
    try {
        return key_.isEmpty() ? 0 : structure::holdingsOf(session_, key_).changed;
    } catch (const RuntimeError&) {
        return 0; // what is read next fails in its own name
    }
}

void Console::tellReplaced()
{
    const int replaced = std::exchange(unwrittenBefore_, 0) - unwritten();
    if (replaced <= 0)
        return;
    QString when = clock_.now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    events_.Add_Event_ReadWrite(when, texts_.own(QStringLiteral("console.replaced.after")).arg(replaced));
    model_.log().setTypeOfLast(events::kWarning);
}

// The end of a connection empties its record, while the button keeps the operator's choice.
void Console::keepSimulator()
{
    if (model_.isOpen() && session_.COMPort.Status == session::kLineIdle)
        bus_.parTrasm().Simulator = model_.simulatorPressed();
}

// Beside the number of a choice its words.
void Console::annotate(const QString& IDPar, const QString& value)
{
    if (!model_.isOpen() || model_.log().lastDescription() != texts_(543) + kBlank + value)
        return;
    if (const QString words = structure::choiceWords(session_, IDPar, value); !words.isEmpty())
        model_.log().annotateLast(QLatin1Char('(') + words + QLatin1Char(')'));
}

QString Console::failedCheckWords(const ConsoleModel::Failed& failed) const
{
    const QString IDPar = structure::Extract_Key(failed.check.key).IDPar;
    const QString found = failed.check.found ? structure::shownValue(session_, IDPar, failed.check.found)
                                             : texts_.own(QStringLiteral("write.failed.unread"));
    return texts_.own(QStringLiteral("write.failed.values"))
        .arg(failed.item, structure::shownValue(session_, IDPar, failed.check.expected), found);
}

void Console::showParameter(const QString& key)
{
    structure::jumpTo(structure_, key);
}

QString Console::groupName()
{
    Search_Group(item_.IDGrp.toInt(), group_, phone_);
    return group_;
}

QString Console::itemPath() const
{
    QStringList captions;
    if (!item_.IDInst.isEmpty())
        captions << structure_.tree().captionOf(structure::Compose_Key(3, item_.IDGrp, item_.IDInst, {}));
    if (!item_.IDParGrp.isEmpty())
        captions << structure_.tree().captionOf(
            structure::Compose_Key(4, item_.IDGrp, item_.IDInst, item_.IDParGrp));
    if (const structure::ListItem* parameter = structure_.list().item(key_);
        !item_.IDPar.isEmpty() && parameter)
        captions << parameter->text;
    return captions.join(QStringLiteral(" \u203a "));
}

void Console::Set_Simulator(bool toggle)
{
    bool& chosen = bus_.parTrasm().Simulator;
    if (toggle)
        chosen = !chosen;
    model_.setSimulator(chosen);
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

void Console::Read_Param()
{
    work("frmReadWrite/Read_Param", [&] {
        if (otherGroupConnected())
            return;
        const bool banks = item_.IDParGrp.isEmpty() && item_.IDPar.isEmpty();
        const QString filter = bus::operationFilter(item_.IDGrp, item_.IDInst, item_.IDParGrp, item_.IDPar);
        const QString& language = session_.Language.Code;
        unwrittenBefore_ = unwritten();
        const QString statement =
            banks ? bus::bankStatement(language, filter) : bus::parameterStatement(language, filter);
        if (!bus_.beginRead(statement, banks, key_))
            bus_.EnableDisable_RWMenu(session::kConnected);
    });
}

void Console::Write_Param()
{
    work("frmReadWrite/Write_Param", [&] {
        if (otherGroupConnected())
            return;
        unwrittenBefore_ = 0;
        const QString filter = bus::operationFilter(item_.IDGrp, item_.IDInst, item_.IDParGrp, item_.IDPar);
        if (bus_.beginWrite(bus::writeStatement(session_.Language.Code, filter), key_))
            return;
        bus_.EnableDisable_RWMenu(session::kConnected);
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
            model_.log().setTypeOfLast(events.number("IDType"));
        }
        model_.showProgress(false);
        return true;
    });
}

void Console::interrupt()
{
    guarded("frmReadWrite.lvwItems_KeyDown", [&] {
        if (session_.COMPort.Status <= session::kLineIdle)
            return;
        const int state = bus_.changes();
        const int answer =
            operator_.messageBox(texts_(572) + kLineBreak + texts_(573) + kLineBreak + texts_(574),
                                 Buttons::YesNoCancel, Icon::Question, session_.AppTitle);
        if (answer != answers::kYes && answer != answers::kNo)
            return;
        // The line goes on behind the box: an answer about a state that is over does nothing.
        if (bus_.changes() != state)
            return sayTooLate();
        work("frmReadWrite.lvwItems_KeyDown",
             [&] { answer == answers::kYes ? bus_.abandonOperation() : bus_.truncateConnection(); });
    });
}

void Console::sayTooLate()
{
    QString when = clock_.now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    events_.Add_Event_ReadWrite(when, texts_.own(QStringLiteral("escape.late")));
}

} // namespace console
