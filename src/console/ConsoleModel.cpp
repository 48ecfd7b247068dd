#include "console/ConsoleModel.h"

#include "platform/Clock.h"
#include "session/Texts.h"

namespace console {

namespace {

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

void ConsoleModel::addLine(const QString& when, const QString& description)
{
    emit lineAdded(log_.add(when, description));
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

QString ConsoleModel::activity(const session::Texts& texts, const QString& group) const
{
    const qint64 now = clock_.elapsed();
    if (operation_.running()) {
        QStringList parts;
        if (operation_.record() > 0)
            parts << texts.own(QStringLiteral("progress.item"))
                         .arg(operation_.record())
                         .arg(operation_.records());
        if (const std::optional<int> waiting = operation_.secondsWaiting(now))
            parts << texts.own(QStringLiteral("progress.waiting")).arg(*waiting);
        parts
            << texts.own(QStringLiteral("progress.left")).arg(minutesAndSeconds(operation_.secondsLeft(now)));
        return parts.join(QStringLiteral("  \u00b7  "));
    }
    switch (status_) {
    case session::kConnected:
        return texts.own(QStringLiteral("console.hint.connected"));
    case session::kBusy:
        return texts.own(QStringLiteral("progress.dialling")).arg((now - busySince_) / 1000);
    default:
        return texts.own(QStringLiteral("console.hint.connect")).arg(group);
    }
}

void ConsoleModel::forgetConcerns()
{
    failedChecks_.clear();
    doubts_.clear();
    changedValues_.reset();
    emit concernsChanged();
}

void ConsoleModel::applyStatus(session::LineStatus status)
{
    if (status == session::kBusy && status_ != session::kBusy)
        busySince_ = clock_.elapsed();
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
    operation_.end();
    emit changed();
}

void ConsoleModel::checkFailed(const QString& instrument, const QString& group, const QString& parameter)
{
    failedChecks_ << placeOf(instrument, group, parameter);
    emit concernsChanged();
}

void ConsoleModel::answerDoubtful(const QString& instrument, const QString& group, const QString& parameter,
                                  int bytes)
{
    doubts_.append({placeOf(instrument, group, parameter), bytes});
    emit concernsChanged();
}

} // namespace console
