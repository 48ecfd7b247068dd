// The receiver: answers to the requests of a transfer, recognised by their length alone.

#include "bus/BitMerge.h"
#include "bus/CatalogueNumber.h"
#include "bus/ConsoleView.h"
#include "bus/Frames.h"
#include "bus/Statements.h"
#include "bus/Transfer.h"
#include "platform/Guard.h"
#include "platform/Words.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/NodeKey.h"
#include "values/Coding.h"
#include "values/RecordCoding.h"
#include "values/StringValue.h"
#include "values/UpdateParam.h"

namespace bus {

using platform::failInWords;
using platform::Recordset;
using platform::errors::kInvalidCall;

// More than mSize bytes are an answer. What lies behind the first mSize is dropped.
bool Transfer::takeAnswer()
{
    if (!requested_ || line_.strReceive.size() <= number("mSize"))
        return false;
    line_.strReceive.truncate(number("mSize"));
    line_.console.answerCame();
    tellDoubt();
    return true;
}

// What stood in the buffer when the request left was taken for a part of the answer.
void Transfer::tellDoubt()
{
    if (stoodWaiting_ == 0)
        return;
    const bool bank = line_.code == ActionCode::Reading && BankRead_;
    line_.console.answerDoubtful(rsWork_.text("DesInst"), bank ? QString() : rsWork_.text("DesParGrp"),
                                 bank ? QString() : rsWork_.text("DesPar"), int(stoodWaiting_));
    stoodWaiting_ = 0;
}

void Transfer::receiveValue()
{
    if (!takeAnswer())
        return;
    const int failuresBefore = platform::failuresReported();
    if (BankRead_) {
        Extract_Param();
    } else {
        const QString value = decode(line_.strReceive, rsWork_);
        log(line_.texts(session::rows::kParameterValue) + QLatin1Char(' ') + value);
        if (values::Update_Param(line_.session, rsWork_.number("IDGrp"), rsWork_.number("IDInst"),
                                 rsWork_.text("IDPar"), value))
            tellSeen(value);
    }
    if (platform::failuresReported() == failuresBefore)
        line_.console.recordDone();
    line_.strReceive.clear();
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::receiveCheck()
{
    if (!takeAnswer())
        return;
    const int failuresBefore = platform::failuresReported();
    const QString value = decode(line_.strReceive, rsWork_);
    const QVariant wanted = rsWork_["Value"];
    const bool equal = wanted.isNull() ? value.isEmpty() : value == wanted.toString();
    // An answer that nobody could read confirms nothing.
    const bool readable = platform::failuresReported() == failuresBefore;
    const bool confirmed = equal && readable;
    log(line_.texts(confirmed ? 13 : 545));
    if (line_.onChecked)
        line_.onChecked({rsWork_.number("IDGrp"), rsWork_.number("IDInst"), rsWork_.text("IDPar"),
                         rsWork_.text("IDParGrp"), rsWork_.optionalText("Value"), confirmed});
    if (readable)
        tellSeen(value);
    if (confirmed)
        line_.console.recordDone();
    else
        tellFailedCheck(readable ? std::make_optional(value) : std::nullopt);
    line_.strReceive.clear();
    line_.tmrAction.start(intervals::kFrame);
}

void Transfer::tellSeen(const QString& value)
{
    line_.console.valueSeen(rsWork_.number("IDGrp"), rsWork_.number("IDInst"), rsWork_.text("IDPar"), value);
}

void Transfer::tellFailedCheck(const std::optional<QString>& found)
{
    line_.console.checkFailed({rsWork_.text("DesInst"), rsWork_.text("DesParGrp"), rsWork_.text("DesPar"),
                               structure::parameterKey(rsWork_.text("IDGrp"), rsWork_.text("IDInst"),
                                                       rsWork_.text("IDParGrp"), rsWork_.text("IDPar")),
                               rsWork_.optionalText("Value"), found});
}

void Transfer::receiveOldByte()
{
    if (!takeAnswer())
        return;
    const bool ram = line_.code == ActionCode::MergingRam;
    if (line_.strReceive.isEmpty())
        failInWords(kInvalidCall, "bits.nobyte");
    const int merged = mergeBits(static_cast<unsigned char>(line_.strReceive[0]), AndMask_, OrMask_);
    const QByteArray byte(1, char(merged));
    const QByteArray frame = ram ? ramRequest(byte) : eepromRequest(byte);
    line_.Delay(kGuardSeconds);
    line_.send(frame);
    line_.code = ram ? ActionCode::WritingRam : ActionCode::WritingEeprom;
    line_.strReceive.clear();
    line_.tmrAction.start(intervals::kFrame);
}

QString Transfer::decode(const QByteArray& raw, const Recordset& record) const
{
    if (record.text("mType") == QLatin1String("STRING"))
        return values::decodeString(raw, line_.session.Language.Code, line_.session.CodePage);
    return values::Compose_EngVal(raw, values::codingOf(record));
}

void Transfer::Extract_Param()
{
    platform::guarded("frmMain/Extract_Param", [&] {
        Recordset parameters;
        parameters.Open(parameterStatement(line_.session.Language.Code,
                                           bankFilter(rsWork_.text("IDGrp"), rsWork_.text("IDInst"),
                                                      rsWork_.text("mMemBank"))),
                        line_.session.cnDatabase);
        std::vector<BankValue> values;
        const auto failure = decodeBank(parameters, number("mAddr"), values);
        // The values in front of one that failed are stored.
        if (!store(values))
            return;
        if (failure)
            throw *failure;
        log(line_.texts(session::rows::kParameterValue) + QLatin1Char(' ') + line_.texts(13));
    });
}

std::optional<platform::RuntimeError> Transfer::decodeBank(Recordset& parameters, int bankAddress,
                                                           std::vector<BankValue>& values) const
{
    try {
        for (; !parameters.Eof(); parameters.MoveNext()) {
            const int offset = catalogueNumber(parameters, "mAddr", line_.texts) - bankAddress;
            if (offset < 0)
                failInWords(kInvalidCall, "catalogue.bank", {parameters.text("IDPar")});
            const QByteArray field =
                line_.strReceive.mid(offset, catalogueNumber(parameters, "mSize", line_.texts));
            values.push_back({parameters.number("IDGrp"), parameters.number("IDInst"),
                              parameters.text("IDPar"), decode(field, parameters)});
        }
    } catch (const platform::RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

bool Transfer::store(const std::vector<BankValue>& values)
{
    platform::Connection& company = line_.session.cnDatabase;
    platform::Transaction transaction(company);
    for (const BankValue& one : values) {
        if (!values::Update_Param(line_.session, one.IDGrp, one.IDInst, one.IDPar, one.value) &&
            !company.inTransaction())
            return false;
    }
    transaction.commit();
    for (const BankValue& one : values)
        line_.console.valueSeen(one.IDGrp, one.IDInst, one.IDPar, one.value);
    return true;
}

} // namespace bus
