// The sender: each tick of tmrAction takes the next record of rsWork, sends one frame and hands the turn
// over.

#include "bus/Bus.h"
#include "bus/ConsoleView.h"
#include "bus/Frames.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "values/Coding.h"
#include "values/RecordCoding.h"
#include "values/StringValue.h"

namespace bus {

using namespace platform;

namespace {

// NULL is the empty text.
QString valueText(const Recordset& record)
{
    return record.text("Value");
}

std::optional<QString> optionalValue(const Recordset& record)
{
    return record["Value"].isNull() ? std::nullopt : std::make_optional(valueText(record));
}

} // namespace

void Bus::tmrAction_Timer()
{
    guarded("frmMain.tmrAction_Timer", [this] {
        tmrAction_->stop();
        dispatchAction();
    });
}

void Bus::dispatchAction()
{
    switch (ActionCode_) {
    case ActionCode::SimulatorRaising:
        return connectionUp();
    case ActionCode::Reading:
        return readPass();
    case ActionCode::WritingRam:
        return ramPass();
    case ActionCode::WritingEeprom:
        return eepromPass();
    case ActionCode::Checking:
        return checkPass();
    case ActionCode::MergingRam:
    case ActionCode::MergingEeprom:
        return requestOldByte();
    case ActionCode::ModemSetup:
        return sendNextModemCommand();
    case ActionCode::CallWaiting:
        return answerCall();
    case ActionCode::FirstBlock:
        return takeFirstBlock();
    case ActionCode::SecondBlock:
        return takeSecondBlock();
    case ActionCode::Idle:
    case ActionCode::SimulatorClosing:
    case ActionCode::Polling:
    case ActionCode::Dialling:
    case ActionCode::HangingUp:
    case ActionCode::CallAnswering:
        return;
    }
}

void Bus::beginRead(bool bankRead, const QString& itemKey)
{
    BankRead_ = bankRead;
    beginOperation(ActionCode::Reading, itemKey);
    log(texts_(559));
    console_.operationBegan(ProgressMax_, 1);
    tmrAction_->start(intervals::kFrame);
}

void Bus::beginWrite(const QString& itemKey)
{
    beginOperation(ActionCode::WritingRam, itemKey);
    log(texts_(560));
    log(texts_(563));
    console_.operationBegan(ProgressMax_, 3);
    tmrAction_->start(intervals::kFrame);
}

void Bus::beginOperation(ActionCode code, const QString& itemKey)
{
    EnableDisable_RWMenu(2);
    console_.setProgress(0);
    console_.showProgress(true);
    tmrPolling_->stop();
    ParTrasm_.ItemKey = itemKey;
    ProgressMax_ = session_.rsWork.RecordCount();
    ProgressCount_ = 0;
    session_.rsWork.MoveFirst();
    session_.rsWork.MovePrevious();
    ActionCode_ = code;
}

bool Bus::takeNextRecord(bool awaitsAnswer, const std::function<void()>& atEnd)
{
    Recordset& records = session_.rsWork;
    if (records.Eof() && records.Bof())
        return false;
    records.MoveNext();
    if (records.Eof()) {
        atEnd();
        return false;
    }
    ++ProgressCount_;
    console_.setProgress(ProgressCount_ * 100 / ProgressMax_);
    console_.recordBegan(awaitsAnswer);
    return true;
}

void Bus::readPass()
{
    if (!takeNextRecord(true, [this] { endReadPass(); }))
        return;
    if (!BankRead_)
        logParameter(547);
    requestParameter();
}

void Bus::checkPass()
{
    if (!takeNextRecord(true, [this] { endCheckPass(); }))
        return;
    logParameter(547);
    requestParameter();
}

void Bus::ramPass()
{
    if (!takeNextRecord(false, [this] { rewind(ActionCode::WritingEeprom, 564); }))
        return;
    logParameter(553);
    if (record().text("mType") == QLatin1String("BIT"))
        prepareBitField(ActionCode::MergingRam);
    else
        send(writeRequest(address(), record().number("mWriteCmd"), record().number("mAddr"),
                          record().number("mSize"), dataBytes()));
    tmrAction_->start(intervals::kFrame);
}

void Bus::eepromPass()
{
    if (!takeNextRecord(false, [this] { rewind(ActionCode::Checking, 565); }))
        return;
    logParameter(554);
    // A command of 0 says that the parameter lives in RAM only; a bit field is written whatever it says.
    if (record().text("mType") == QLatin1String("BIT"))
        prepareBitField(ActionCode::MergingEeprom);
    else if (record().number("WriteCmdEE") != 0)
        send(writeRequest(address(), record().number("WriteCmdEE"), record().number("mWriteAddr"),
                          record().number("mSize"), dataBytes()));
    tmrAction_->start(intervals::kFrame);
}

void Bus::prepareBitField(ActionCode merging)
{
    values::Compose_Byte(valueText(record()), record().number("mBitFirst"), record().number("mBitCount"),
                         AndMask_, OrMask_);
    ActionCode_ = merging;
}

void Bus::rewind(ActionCode code, int text)
{
    console_.setProgress(0);
    ProgressCount_ = 0;
    session_.rsWork.MoveFirst();
    session_.rsWork.MovePrevious();
    ActionCode_ = code;
    strReceive_.clear();
    log(texts_(text));
    tmrAction_->start(intervals::kFrame);
}

void Bus::endReadPass()
{
    closeOperation();
    log(texts_(561));
    commonEnd();
}

void Bus::endCheckPass()
{
    closeOperation();
    // Whatever the comparisons said: a parameter that logged an error loses its mark all the same.
    structure::Restore_Item(session_, operator_, ParTrasm_.ItemKey);
    log(texts_(562));
    commonEnd();
}

void Bus::closeOperation()
{
    console_.showProgress(false);
    console_.operationEnded();
    ProgressMax_ = 0;
    ProgressCount_ = 0;
    session_.rsWork.Close();
    strReceive_.clear();
    ActionCode_ = ActionCode::Idle;
}

void Bus::commonEnd()
{
    if (console_.autoDisconnectPressed()) {
        lowerLink();
    } else {
        EnableDisable_RWMenu(1);
        tmrPolling_->start(intervals::kPolling);
    }
}

void Bus::requestParameter()
{
    const QByteArray request = readRequest(address(), record().number("mReadCmd"), record().number("mAddr"),
                                           record().number("mSize"));
    logRecord(texts_(550) + QLatin1Char(' ') + record().text("mSize") + QLatin1Char(' ') + texts_(551) +
              QLatin1Char(' ') + record().text("mAddr") + QLatin1Char(' ') + texts_(552) + QLatin1Char(' ') +
              record().text("Address"));
    send(request);
    logRecord(texts_(546));
}

void Bus::requestOldByte()
{
    send(readRequest(address(), record().number("mReadCmd"), record().number("mAddr"),
                     record().number("mSize")));
    console_.answerAwaited();
}

void Bus::logParameter(int openingText)
{
    logRecord(texts_(openingText) + record().text("DesParGrp") + texts_(548) + record().text("DesPar") +
              texts_(549));
}

QByteArray Bus::dataBytes() const
{
    if (record().text("mType") == QLatin1String("STRING"))
        return values::encodeString(optionalValue(record()), session_.Language.Code, session_.CodePage,
                                    record().number("mSize"));
    return values::Extract_EngVal(valueText(record()), values::codingOf(record()));
}

QByteArray Bus::address() const
{
    return encode(record().text("Address"), session_.CodePage);
}

const Recordset& Bus::record() const
{
    return session_.rsWork;
}

} // namespace bus
