#include "console/ConsoleModel.h"

#include "platform/Clock.h"
#include "session/Texts.h"

namespace console {

namespace {

constexpr int kLongWait = 6; // seconds, twice the protocol's own pace

QString minutesAndSeconds(int seconds)
{
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QString placeOf(const QString& instrument, const QString& group, const QString& parameter)
{
    QStringList steps{instrument, group, parameter};
    steps.removeAll(QString());
    return steps.join(QStringLiteral(" \u203a "));
}

} // namespace

void ConsoleModel::addLine(const QString& when, const QString& description, int type)
{
    emit lineAdded(log_.add(when, description, type));
}

void ConsoleModel::setAutoDisconnect(bool pressed)
{
    autoDisconnect_ = pressed;
    emit changed();
}

void ConsoleModel::setSimulator(bool pressed)
{
    simulator_ = pressed;
    emit changed();
}

QString ConsoleModel::activity(const session::Texts& texts, const Situation& situation) const
{
    if (operation_.running())
        return operationWords(texts);
    const QString outcome = outcomeWords(texts);
    const QString state = stateWords(texts, situation);
    return outcome.isEmpty() ? state : outcome + QLatin1Char(' ') + state;
}

QString ConsoleModel::operationWords(const session::Texts& texts) const
{
    const qint64 now = clock_.elapsed();
    QStringList parts;
    if (operation_.passes() > 1 && operation_.record() > 0)
        parts << texts.own(QStringLiteral("progress.pass")).arg(operation_.pass()).arg(operation_.passes());
    if (operation_.record() > 0)
        parts
            << texts.own(QStringLiteral("progress.item")).arg(operation_.record()).arg(operation_.records());
    if (const std::optional<int> waiting = operation_.secondsWaiting(now))
        parts << texts
                     .own(*waiting < kLongWait ? QStringLiteral("progress.waiting")
                                               : QStringLiteral("progress.silent"))
                     .arg(*waiting);
    parts << texts.own(QStringLiteral("progress.left")).arg(minutesAndSeconds(operation_.secondsLeft(now)));
    return parts.join(QStringLiteral("  \u00b7  "));
}

QString ConsoleModel::outcomeWords(const session::Texts& texts) const
{
    if (outcome_.records == 0)
        return {};
    const QString words =
        texts.own(outcome_.write ? QStringLiteral("outcome.written") : QStringLiteral("outcome.read"))
            .arg(outcome_.done)
            .arg(outcome_.records);
    if (!outcome_.whole)
        return words + texts.own(QStringLiteral("outcome.interrupted"));
    const int failed = outcome_.records - outcome_.done;
    return words + (failed > 0 ? texts.own(QStringLiteral("outcome.failed")).arg(failed)
                               : texts.own(QStringLiteral("outcome.good")));
}

QString ConsoleModel::stateWords(const session::Texts& texts, const Situation& situation) const
{
    const auto own = [&texts](const char* name) { return texts.own(QLatin1String(name)); };
    if (situation.portClosed)
        return own("console.hint.noport");
    if (situation.callComesIn)
        return own("console.hint.call");
    switch (status_) {
    case session::kConnected:
        return situation.otherGroup.isEmpty()
                   ? own("console.hint.connected")
                   : own("console.hint.other").arg(situation.otherGroup, situation.group);
    case session::kBusy:
        return own(situation.closing ? "progress.closing" : "progress.dialling")
            .arg((clock_.elapsed() - busySince_) / 1000);
    default:
        if (simulator_)
            return own("console.hint.cable").arg(situation.group);
        return situation.phone.isEmpty() ? own("console.hint.nophone").arg(situation.group)
                                         : own("console.hint.connect").arg(situation.phone);
    }
}

void ConsoleModel::forgetConcerns()
{
    failedChecks_.clear();
    doubts_.clear();
    changedValues_.reset();
    outcome_ = {};
    emit concernsChanged();
}

void ConsoleModel::applyStatus(session::LineStatus status)
{
    if (status == session::kBusy && status_ != session::kBusy)
        busySince_ = clock_.elapsed();
    if (status == session::kBusy && status_ == session::kLineIdle)
        outcome_ = {};
    status_ = status;
    commands_ = statesFor(status, commands_);
    emit changed();
}

void ConsoleModel::showProgress(bool visible)
{
    progressVisible_ = visible;
    emit changed();
}

void ConsoleModel::setProgress(int percent)
{
    progress_ = percent;
    emit changed();
}

void ConsoleModel::operationBegan(int records, int passes)
{
    outcome_ = {};
    operation_.begin(records, passes, clock_.elapsed());
    changedValues_ = passes == 1 ? std::optional(0) : std::nullopt;
    emit changed();
}

std::optional<int> ConsoleModel::changedValues() const
{
    return showChanges_ && status_ != session::kBusy ? changedValues_ : std::nullopt;
}

void ConsoleModel::setChangedValues(int values)
{
    changedValues_ = values;
    emit changed();
}

void ConsoleModel::showChanges() const
{
    if (changedValues().value_or(0) > 0)
        showChanges_();
}

void ConsoleModel::recordBegan(bool awaitsAnswer)
{
    operation_.takeRecord(awaitsAnswer, clock_.elapsed());
    emit changed();
}

void ConsoleModel::answerAwaited()
{
    operation_.awaitAnswer(clock_.elapsed());
    emit changed();
}

void ConsoleModel::operationEnded()
{
    if (!operation_.running())
        return;
    outcome_ = {operation_.passes() > 1, operation_.records(), operation_.done(), operation_.allTaken()};
    operation_.end();
    emit changed();
    emit operationOver();
}

void ConsoleModel::answerCame()
{
    operation_.answerCame();
    emit changed();
}

void ConsoleModel::checkFailed(const bus::FailedCheck& check)
{
    failedChecks_.append({placeOf(check.instrument, check.group, check.parameter), check});
    emit checkHasFailed(check);
    emit concernsChanged();
}

void ConsoleModel::valueSeen(int IDGrp, int IDInst, const QString& IDPar, const QString& value)
{
    emit valueWasSeen(IDGrp, IDInst, IDPar, value);
}

void ConsoleModel::answerDoubtful(const QString& instrument, const QString& group, const QString& parameter,
                                  int bytes)
{
    doubts_.append({placeOf(instrument, group, parameter), bytes});
    emit concernsChanged();
}

} // namespace console
