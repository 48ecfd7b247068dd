#include "history/Recorder.h"

#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "session/Session.h"
#include "values/ParamState.h"

#include <QFileInfo>

namespace history {

using platform::RowChange;
using values::ValueCause;

namespace {

constexpr int kPurgeInterval = 100;
// The values of a job come one by one; their notes go to the file together, if they come that fast.
constexpr int kCommitInterval = 500;

enum Column
{
    IDGrp,
    IDInst,
    IDPar,
    IDParGrp,
    Value,
    State,
};
const QStringList kColumns{"IDGrp", "IDInst", "IDPar", "IDParGrp", "Value", "State"};

QString keyOf(qint64 IDGrp, qint64 IDInst, const QString& IDPar)
{
    return QStringLiteral("%1_%2_").arg(IDGrp).arg(IDInst) + IDPar.toUpper();
}

bool hasColumns(const platform::Connection& company)
{
    platform::Recordset columns;
    columns.Open(QStringLiteral("PRAGMA table_info(tbParametersUser);"), company);
    QStringList names;
    for (; !columns.Eof(); columns.MoveNext())
        names << columns.text(QStringLiteral("name"));
    return names.mid(0, kColumns.size()) == kColumns;
}

bool same(const std::optional<QByteArrayView>& one, const std::optional<QByteArrayView>& other)
{
    return one.has_value() == other.has_value() && (!one || *one == *other);
}

std::optional<int> stateIn(bool there, qint64 state)
{
    return there ? std::optional(int(state)) : std::nullopt;
}

} // namespace

Recorder::Recorder(session::Session& session, platform::Clock& clock)
    : session_(session), clock_(clock), tmrPurge_(clock.makeTimer()), tmrCommit_(clock.makeTimer())
{
    tmrPurge_->onTick = [this] { purgeSlice(); };
    tmrCommit_->onTick = [this] {
        if (!inPart_)
            commitNotes();
    };
    session_.cnDatabase.watch(this);
}

Recorder::~Recorder()
{
    session_.cnDatabase.watch(nullptr);
}

// The open company
// ----------------------------------------------------------------------------------------------------

void Recorder::opened(platform::Connection& connection, const QString& file) noexcept
{
    company_ = file;
    usable_ = false;
    if (!failure_.isEmpty())
        fail({});
    attempt([&] { usable_ = hasColumns(connection); });
}

void Recorder::closing() noexcept
{
    tmrPurge_->stop();
    undone(); // what the company hasn't kept
    commitNotes();
    file_.reset();
    company_.clear();
    checks_.clear();
    endOperation();
}

template <class Work>
void Recorder::attempt(Work&& work) noexcept
{
    if (!failure_.isEmpty())
        return;
    try {
        work();
    } catch (const platform::RuntimeError& error) {
        fail(error.description);
    } catch (const std::exception& error) {
        fail(QString::fromUtf8(error.what()));
    }
}

// Told behind the statement that is under way.
void Recorder::fail(const QString& why)
{
    failure_ = why;
    file_.reset();
    inPart_ = false;
    tmrCommit_->stop();
    QMetaObject::invokeMethod(this, &Recorder::failureChanged, Qt::QueuedConnection);
}

// Noting
// -------------------------------------------------------------------------------------------------------------

void Recorder::statementBegins() noexcept
{
    time_ = 0;
    firstNote_ = 0;
}

void Recorder::statementFailed() noexcept
{
    if (file_ && inPart_ && firstNote_ != 0)
        attempt([this] { file_->removeFrom(firstNote_); });
}

void Recorder::changed(const RowChange& change) noexcept
{
    if (!usable_)
        return;
    attempt([&] {
        const bool was = change.kind != RowChange::Kind::Inserted;
        const bool stays = change.kind != RowChange::Kind::Deleted;
        NewNote one;
        one.oldValue = change.formerText(Value);
        one.newValue = change.newText(Value);
        one.oldState = stateIn(was, change.formerInteger(State));
        one.newState = stateIn(stays, change.newInteger(State));
        if (was && stays && one.oldState == one.newState && same(one.oldValue, one.newValue))
            return;
        one.IDGrp = was ? change.formerInteger(IDGrp) : change.newInteger(IDGrp);
        one.IDInst = was ? change.formerInteger(IDInst) : change.newInteger(IDInst);
        one.IDPar = (was ? change.formerText(IDPar) : change.newText(IDPar)).value_or(QByteArrayView());
        one.IDParGrp =
            (was ? change.formerText(IDParGrp) : change.newText(IDParGrp)).value_or(QByteArrayView());
        one.cause = causeOf(one.IDGrp, one.IDInst, one.IDPar);
        note(one);
        if (!same(one.oldValue, one.newValue))
            ++valuesPending_;
    });
}

// The marks that go at the end of a write go for what its read-back showed.
ValueCause Recorder::causeOf(qint64 IDGrp, qint64 IDInst, QByteArrayView IDPar)
{
    const auto cause = ValueCause(session_.cnDatabase.purpose());
    if (cause != ValueCause::Cleared)
        return cause;
    const auto check = checks_.find(keyOf(IDGrp, IDInst, QString::fromUtf8(IDPar)));
    if (check == checks_.end())
        return cause;
    const bool confirmed = check->confirmed;
    checks_.erase(check);
    return confirmed ? ValueCause::CheckedOk : ValueCause::CheckedError;
}

void Recorder::note(NewNote one)
{
    beginNotes();
    one.operation = operation_;
    one.time = time_;
    const qint64 number = file_->add(one);
    if (firstNote_ == 0)
        firstNote_ = number;
}

void Recorder::beginNotes()
{
    if (time_ == 0)
        time_ = clock_.now().toMSecsSinceEpoch();
    if (!file_)
        file_ = std::make_unique<NoteFile>(historyFileOf(company_));
    if (!file_->inTransaction()) {
        file_->begin();
        begun_ = clock_.elapsed();
    }
    if (!inPart_)
        file_->beginPart();
    inPart_ = true;
    if (operation_ == 0) {
        operation_ = file_->addOperation(time_, session_.CurrentUser.Name);
        operationKept_ = false;
        purpose_ = ValueCause(session_.cnDatabase.purpose());
    }
}

void Recorder::kept() noexcept
{
    if (!file_ || !inPart_)
        return;
    attempt([this] {
        file_->keepPart();
        inPart_ = false;
        operationKept_ = true;
        values_ += std::exchange(valuesPending_, 0);
    });
    const bool inJob = session_.cnDatabase.inJob();
    if (inJob && clock_.elapsed() - begun_ < kCommitInterval) {
        tmrCommit_->start(kCommitInterval);
        return;
    }
    commitNotes();
    if (!inJob)
        endOperation();
}

// All that is kept; what waits for its end waits on.
void Recorder::commitNotes()
{
    tmrCommit_->stop();
    if (file_ && file_->inTransaction())
        attempt([this] { file_->commit(); });
}

void Recorder::undone() noexcept
{
    valuesPending_ = 0;
    if (!file_ || !inPart_)
        return;
    attempt([this] {
        file_->undoPart();
        inPart_ = false;
    });
    if (!operationKept_)
        operation_ = 0;
}

void Recorder::jobEnded() noexcept
{
    if (!checks_.isEmpty())
        attempt([this] { noteLeftChecks(); });
    checks_.clear();
    if (!inPart_)
        commitNotes();
    endOperation();
}

void Recorder::endOperation()
{
    const qint64 operation = std::exchange(operation_, 0);
    const int values = std::exchange(values_, 0);
    valuesPending_ = 0;
    if (operation != 0 && operationKept_)
        emit operationNoted(operation, purpose_, values);
    operationKept_ = false;
}

// Read back
// ----------------------------------------------------------------------------------------------------------

void Recorder::checked(const values::CheckedValue& value)
{
    checks_.insert(keyOf(value.IDGrp, value.IDInst, value.IDPar), value);
}

// A write that was given up leaves the marks as they are; what it has read back is noted all the same.
void Recorder::noteLeftChecks()
{
    time_ = 0;
    for (const values::CheckedValue& check : std::as_const(checks_)) {
        const QByteArray IDPar = check.IDPar.toUtf8(), IDParGrp = check.IDParGrp.toUtf8();
        const QByteArray value = check.value.value_or(QString()).toUtf8();
        NewNote one;
        one.IDGrp = check.IDGrp;
        one.IDInst = check.IDInst;
        one.IDPar = IDPar;
        one.IDParGrp = IDParGrp;
        if (check.value)
            one.oldValue = one.newValue = value;
        one.oldState = one.newState = int(values::ParamState::Changed);
        one.cause = check.confirmed ? ValueCause::CheckedOk : ValueCause::CheckedError;
        note(one);
    }
    file_->keepPart();
    inPart_ = false;
    operationKept_ = true;
}

// Old notes
// ----------------------------------------------------------------------------------------------------------

void Recorder::purge()
{
    if (session_.LogSet.DelLog != 0 && !company_.isEmpty() && QFileInfo::exists(historyFileOf(company_)))
        tmrPurge_->start(kPurgeInterval);
}

void Recorder::purgeSlice()
{
    if (file_ && file_->inTransaction())
        return; // the notes of a job come first
    const QDateTime oldest = clock_.now().date().startOfDay().addDays(-session_.LogSet.LogDays);
    bool more = false;
    attempt([&] {
        if (!file_)
            file_ = std::make_unique<NoteFile>(historyFileOf(company_));
        more = file_->removeOlder(oldest.toMSecsSinceEpoch());
    });
    if (!more)
        tmrPurge_->stop();
}

} // namespace history
