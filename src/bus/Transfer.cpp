// The sender: each tick of tmrAction takes the next record, sends one frame and hands the turn over.

#include "bus/Transfer.h"

#include "bus/CatalogueNumber.h"
#include "bus/ConsoleView.h"
#include "bus/Frames.h"
#include "platform/CodePage.h"
#include "platform/Operator.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "values/Coding.h"
#include "values/RecordCoding.h"
#include "values/StringValue.h"

namespace bus {

bool Transfer::open(const QString& statement)
{
    const platform::BusyPointer busy(line_.op);
    close();
    rsWork_.Open(statement, line_.session.cnDatabase);
    if (rsWork_.RecordCount() > 0)
        return true;
    rsWork_.Close();
    return false;
}

void Transfer::beginRead(bool bankRead, const QString& itemKey)
{
    BankRead_ = bankRead;
    causing_ = std::make_unique<values::Causing>(line_.session.cnDatabase, values::ValueCause::Read);
    begin(ActionCode::Reading, itemKey);
    line_.log(line_.texts(559));
    line_.console.operationBegan(ProgressMax_, 1);
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::beginWrite(const QString& itemKey)
{
    causing_ = std::make_unique<values::Causing>(line_.session.cnDatabase, values::ValueCause::Cleared);
    begin(ActionCode::WritingRam, itemKey);
    line_.log(line_.texts(560));
    line_.log(line_.texts(563));
    line_.console.operationBegan(ProgressMax_, 3);
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::begin(ActionCode code, const QString& itemKey)
{
    line_.EnableDisable_RWMenu(session::kBusy);
    line_.console.setProgress(0);
    line_.console.showProgress(true);
    line_.tmrPolling.stop();
    line_.parTrasm.ItemKey = itemKey;
    ProgressMax_ = rsWork_.RecordCount();
    ProgressCount_ = 0;
    rsWork_.MoveFirst();
    rsWork_.MovePrevious();
    line_.code = code;
}

void Transfer::close()
{
    rsWork_.Close();
    ProgressMax_ = 0;
    ProgressCount_ = 0;
    requested_ = false;
    causing_.reset();
    line_.console.showProgress(false);
    line_.console.operationEnded();
}

bool Transfer::takeNextRecord(bool awaitsAnswer, PassEnd atEnd)
{
    requested_ = false;
    rsWork_.MoveNext();
    if (rsWork_.Eof()) {
        (this->*atEnd)();
        return false;
    }
    ++ProgressCount_;
    line_.console.setProgress(ProgressCount_ * 100 / ProgressMax_);
    line_.console.recordBegan(awaitsAnswer);
    return true;
}

void Transfer::readNext()
{
    if (!takeNextRecord(true, &Transfer::endRead))
        return;
    if (!BankRead_)
        logParameter(547);
    requestParameter();
}

void Transfer::checkNext()
{
    if (!takeNextRecord(true, &Transfer::endWrite))
        return;
    logParameter(547);
    requestParameter();
}

void Transfer::writeRamNext()
{
    if (!takeNextRecord(false, &Transfer::goOnWithEeprom))
        return;
    logParameter(553);
    // All that the parameter needs in both passes is looked at before its first byte leaves.
    if (hasEeprom())
        eepromRequest({});
    if (isBitField())
        prepareBitField(ActionCode::MergingRam);
    else
        line_.send(ramRequest(dataBytes()));
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::writeEepromNext()
{
    if (!takeNextRecord(false, &Transfer::goOnWithCheck))
        return;
    logParameter(554);
    // A command of 0 says that the parameter lives in RAM only; a bit field is written whatever it says.
    if (isBitField())
        prepareBitField(ActionCode::MergingEeprom);
    else if (hasEeprom())
        line_.send(eepromRequest(dataBytes()));
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::prepareBitField(ActionCode merging)
{
    oldByteRequest();
    merging == ActionCode::MergingRam ? ramRequest({}) : eepromRequest({});
    values::Compose_Byte(rsWork_.text("Value"), number("mBitFirst"), number("mBitCount"), AndMask_, OrMask_);
    line_.code = merging;
}

void Transfer::requestOldByte()
{
    request(oldByteRequest());
    line_.console.answerAwaited();
}

void Transfer::requestParameter()
{
    const QByteArray frame = readRequest(address(), number("mReadCmd"), number("mAddr"), number("mSize"));
    log(line_.texts(550) + QLatin1Char(' ') + rsWork_.text("mSize") + QLatin1Char(' ') + line_.texts(551) +
        QLatin1Char(' ') + rsWork_.text("mAddr") + QLatin1Char(' ') + line_.texts(552) + QLatin1Char(' ') +
        rsWork_.text("Address"));
    request(frame);
    log(line_.texts(546));
}

void Transfer::request(const QByteArray& frame)
{
    stoodWaiting_ = line_.strReceive.size();
    line_.send(frame);
    requested_ = true;
}

void Transfer::rewind(ActionCode code, int text)
{
    line_.console.setProgress(0);
    ProgressCount_ = 0;
    rsWork_.MoveFirst();
    rsWork_.MovePrevious();
    line_.code = code;
    line_.strReceive.clear();
    line_.log(line_.texts(text));
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::endRead()
{
    close();
    line_.strReceive.clear();
    line_.code = ActionCode::Idle;
    line_.log(line_.texts(561));
    onEnd_();
}

void Transfer::endWrite()
{
    const auto causing = std::move(causing_); // the marks go with the operation
    close();
    line_.strReceive.clear();
    line_.code = ActionCode::Idle;
    // Whatever the comparisons said: a parameter that logged an error loses its mark all the same.
    structure::Restore_Item(line_.session, line_.op, line_.parTrasm.ItemKey);
    line_.log(line_.texts(562));
    onEnd_();
}

QByteArray Transfer::oldByteRequest() const
{
    return readRequest(address(), number("mReadCmd"), number("mAddr"), number("mSize"));
}

QByteArray Transfer::ramRequest(const QByteArray& data) const
{
    return writeRequest(address(), number("mWriteCmd"), number("mAddr"), number("mSize"), data);
}

QByteArray Transfer::eepromRequest(const QByteArray& data) const
{
    return writeRequest(address(), number("WriteCmdEE"), number("mWriteAddr"), number("mSize"), data);
}

QByteArray Transfer::dataBytes() const
{
    if (rsWork_.text("mType") == QLatin1String("STRING"))
        return values::encodeString(rsWork_.optionalText("Value"), line_.session.Language.Code,
                                    line_.session.CodePage, number("mSize"));
    return values::Extract_EngVal(rsWork_.text("Value"), values::codingOf(rsWork_));
}

QByteArray Transfer::address() const
{
    return platform::encode(rsWork_.text("Address"), line_.session.CodePage);
}

int Transfer::number(const char* field) const
{
    return catalogueNumber(rsWork_, field, line_.texts);
}

void Transfer::log(const QString& text)
{
    line_.log(text, rsWork_.text("DesInst"));
}

void Transfer::logParameter(int openingText)
{
    log(line_.texts(openingText) + rsWork_.text("DesParGrp") + line_.texts(548) + rsWork_.text("DesPar") +
        line_.texts(549));
}

} // namespace bus
