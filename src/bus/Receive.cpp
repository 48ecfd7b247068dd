// What comes in on the line: gathered in strReceive and read according to ActionCode.

#include "bus/BitMerge.h"
#include "bus/Bus.h"
#include "bus/ConsoleView.h"
#include "bus/Frames.h"
#include "bus/Statements.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/SerialPort.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "values/Coding.h"
#include "values/RecordCoding.h"
#include "values/StringValue.h"
#include "values/UpdateParam.h"

namespace bus {

using namespace platform;

void Bus::comCalidora_OnComm()
{
    // A box that the handler opens runs an event loop of its own: what arrives meanwhile waits for its end.
    if (receiving_) {
        arrivedMeanwhile_ = true;
        return;
    }
    receiving_ = true;
    do {
        arrivedMeanwhile_ = false;
        guarded("frmMain.comCalidora_OnComm", [this] { receive(); });
    } while (arrivedMeanwhile_);
    receiving_ = false;
}

void Bus::receive()
{
    strReceive_ += comCalidora_.Input();
    switch (ActionCode_) {
    case ActionCode::Idle:
        return scanForCall();
    case ActionCode::SimulatorRaising:
        if (strReceive_.contains("ATA")) {
            tmrTimeOut_->stop();
            tmrAction_->start(intervals::kFrame);
        }
        return;
    case ActionCode::SimulatorClosing:
        return endConnectionOnCable();
    case ActionCode::Reading:
        return receiveRead();
    case ActionCode::Checking:
        return receiveCheck();
    case ActionCode::MergingRam:
    case ActionCode::MergingEeprom:
        return receiveOldByte();
    case ActionCode::Polling:
        if (strReceive_.size() > 1) {
            strReceive_.clear();
            tmrPolling_->start(intervals::kPolling);
        }
        return;
    case ActionCode::ModemSetup:
        return receiveModemSetup();
    case ActionCode::Dialling:
        if (strReceive_.contains("CONNECT"))
            connectionUp();
        return;
    case ActionCode::HangingUp:
        if (strReceive_.contains("OK")) {
            strReceive_.clear();
            ActionCode_ = ActionCode::Idle;
            tmrConnection_->stop();
            connectionDown();
        }
        return;
    case ActionCode::CallAnswering:
        return receiveCallConnect();
    case ActionCode::FirstBlock:
    case ActionCode::SecondBlock:
        tmrAction_->start(intervals::kSilence);
        return;
    case ActionCode::WritingRam:
    case ActionCode::WritingEeprom:
    case ActionCode::CallWaiting:
        break;
    }
    strReceive_.clear();
}

// An answer is recognised by its length alone: more than mSize bytes. What lies behind the first mSize is
// dropped.
bool Bus::takeAnswer()
{
    const Recordset& records = session_.rsWork;
    const bool current = records.State() == Recordset::Opened && !records.Bof() && !records.Eof();
    const int size = current ? record().number("mSize") : 0;
    if (!current || strReceive_.size() <= size)
        return false;
    strReceive_.truncate(size);
    return true;
}

void Bus::receiveRead()
{
    if (!takeAnswer())
        return;
    if (BankRead_) {
        Extract_Param();
    } else {
        const QString value = decode(strReceive_, record());
        logRecord(texts_(543) + QLatin1Char(' ') + value);
        Update_Param(record(), value);
    }
    strReceive_.clear();
    tmrAction_->start(intervals::kFrame);
}

void Bus::receiveCheck()
{
    if (!takeAnswer())
        return;
    const QString value = decode(strReceive_, record());
    const QVariant& wanted = record()["Value"];
    const bool equal = wanted.isNull() ? value.isEmpty() : value == wanted.toString();
    logRecord(texts_(equal ? 13 : 545));
    if (!equal)
        console_.checkFailed(record().text("DesInst"), record().text("DesParGrp"), record().text("DesPar"));
    strReceive_.clear();
    tmrAction_->start(intervals::kFrame);
}

void Bus::receiveOldByte()
{
    if (!takeAnswer())
        return;
    const bool ram = ActionCode_ == ActionCode::MergingRam;
    if (strReceive_.isEmpty())
        fail(errors::kInvalidCall, QStringLiteral("The bit field has no byte."));
    const int merged = mergeBits(static_cast<unsigned char>(strReceive_[0]), AndMask_, OrMask_);
    const QByteArray request = writeRequest(address(), record().number(ram ? "mWriteCmd" : "WriteCmdEE"),
                                            record().number(ram ? "mAddr" : "mWriteAddr"),
                                            record().number("mSize"), QByteArray(1, char(merged)));
    Delay(kGuardSeconds);
    send(request);
    ActionCode_ = ram ? ActionCode::WritingRam : ActionCode::WritingEeprom;
    strReceive_.clear();
    tmrAction_->start(intervals::kFrame);
}

QString Bus::decode(const QByteArray& raw, const Recordset& record) const
{
    if (record.text("mType") == QLatin1String("STRING"))
        return values::decodeString(raw, session_.Language.Code, session_.CodePage);
    return values::Compose_EngVal(raw, values::codingOf(record));
}

bool Bus::Update_Param(const Recordset& record, const QString& value)
{
    return values::Update_Param(session_, record.number("IDGrp"), record.number("IDInst"),
                                record.text("IDPar"), value);
}

void Bus::Extract_Param()
{
    guarded("frmMain/Extract_Param", [&] {
        const Recordset& bank = record();
        Recordset parameters;
        parameters.Open(
            parameterStatement(session_.Language.Code,
                               bankFilter(bank.text("IDGrp"), bank.text("IDInst"), bank.text("mMemBank"))),
            session_.cnDatabase);
        Transaction transaction(session_.cnDatabase);
        try {
            storeBank(parameters, bank.number("mAddr"));
        } catch (const RuntimeError&) {
            // The values in front of the one that failed stay.
            transaction.commit();
            throw;
        }
        transaction.commit();
        logRecord(texts_(543) + QLatin1Char(' ') + texts_(13));
    });
}

void Bus::storeBank(Recordset& parameters, int bankAddress)
{
    for (; !parameters.Eof(); parameters.MoveNext()) {
        const int offset = parameters.number("mAddr") - bankAddress;
        if (offset < 0)
            fail(errors::kInvalidCall,
                 QStringLiteral("Parameter %1 lies before its bank.").arg(parameters.text("IDPar")));
        const QByteArray field = strReceive_.mid(offset, parameters.number("mSize"));
        Update_Param(parameters, decode(field, parameters));
    }
}

} // namespace bus
