#pragma once

#include "platform/Statement.h"
#include "values/ValueCause.h"

#include <QByteArrayView>
#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <optional>

namespace history {

// Where the notes of a company stand: beside it, under its name.
QString historyFileOf(const QString& company);

// A change as it is noted. Texts are UTF-8 and live as long as whoever hands them over.
struct NewNote
{
    qint64 operation = 0;
    qint64 time = 0; // milliseconds since 1970, UTC
    qint64 IDGrp = 0;
    qint64 IDInst = 0;
    QByteArrayView IDPar;
    QByteArrayView IDParGrp;
    std::optional<QByteArrayView> oldValue, newValue;
    std::optional<int> oldState, newState; // none: the value wasn't there, or isn't any more
    values::ValueCause cause = values::ValueCause::Unknown;
};

// The file of a company's notes, for the one who writes it. It is made when it is missing. What is written
// stands in it with the commit, without waiting for the disk: the company's own commit has done that.
//
// Every failure is a RuntimeError.
class NoteFile
{
public:
    explicit NoteFile(const QString& file);

    void begin();
    void commit();
    bool inTransaction() const;
    // A part of the transaction that is kept in it or taken back.
    void beginPart();
    void keepPart();
    void undoPart();

    // A job of the operator, before its notes. Returns its number.
    qint64 addOperation(qint64 time, const QString& operatorName);
    // Returns the note's number; a later one is greater.
    qint64 add(const NewNote& note);
    // Takes back that note and all behind it.
    void removeFrom(qint64 number);
    // Deletes a slice of the notes from before that time, oldest first; false when none is left.
    bool removeOlder(qint64 time);

private:
    void prepare();
    template <class Work>
    auto run(Work&& work);

    QString file_;
    SQLite::Database database_;
    std::optional<SQLite::Statement> addOperation_;
    platform::PreparedStatement add_;
};

} // namespace history
