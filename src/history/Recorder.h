#pragma once

#include "history/NoteFile.h"
#include "platform/ChangeWatcher.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QHash>
#include <QObject>
#include <memory>

namespace platform {
class Timer;
}

namespace history {

// Notes each change of a stored value of the open company, in a file beside it. A company's change is noted
// when it stands, in one transaction with the others of its own. What goes wrong in the noting is told once,
// and no more is noted until a company is opened again: nobody's work waits for it or fails with it.
class Recorder : public QObject, private platform::ChangeWatcher
{
    Q_OBJECT

public:
    Recorder(session::Session& session, platform::Clock& clock);
    ~Recorder() override;

    // What a write has read back; noted with the mark that goes at its end, or by itself when it goes on.
    void checked(const values::CheckedValue& value);
    // Deletes what is older than the log files that are kept, slice by slice beside the work.
    void purge();

    // Why nothing is noted; "" while all is well.
    const QString& failure() const { return failure_; }

signals:
    void failureChanged();
    // A job is through that has noted something: how many values it left different from before.
    void operationNoted(qint64 operation, values::ValueCause purpose, int values);

private:
    const char* table() const override { return "tbParametersUser"; }
    void opened(platform::Connection& connection, const QString& file) noexcept override;
    void closing() noexcept override;
    void statementBegins() noexcept override;
    void statementFailed() noexcept override;
    void changed(const platform::RowChange& change) noexcept override;
    void kept() noexcept override;
    void undone() noexcept override;
    void jobEnded() noexcept override;

    template <class Work>
    void attempt(Work&& work) noexcept;
    void fail(const QString& why);
    void note(NewNote note);
    void beginNotes();
    void commitNotes();
    void noteLeftChecks();
    values::ValueCause causeOf(qint64 IDGrp, qint64 IDInst, QByteArrayView IDPar);
    void endOperation();
    void purgeSlice();

    session::Session& session_;
    platform::Clock& clock_;
    std::unique_ptr<platform::Timer> tmrPurge_, tmrCommit_;
    QString company_;     // the open company's file
    bool usable_ = false; // its table has the columns
    QString failure_;
    std::unique_ptr<NoteFile> file_; // since the first note
    bool inPart_ = false;            // notes of what isn't kept yet
    qint64 begun_ = 0;               // when the file's transaction began
    qint64 time_ = 0;                // of the statement that runs
    qint64 firstNote_ = 0;           // and its first note; 0 before it
    qint64 operation_ = 0;           // of the job that runs; 0 before its first note
    bool operationKept_ = false;
    values::ValueCause purpose_ = values::ValueCause::Unknown;
    int values_ = 0;        // that the operation has changed and are kept
    int valuesPending_ = 0; // and that are not kept yet
    QHash<QString, values::CheckedValue> checks_;
};

} // namespace history
