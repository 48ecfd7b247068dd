#pragma once

#include "structure/CompanyReader.h"
#include "values/Kind.h"
#include "values/ValueCause.h"

#include <QString>
#include <map>
#include <optional>
#include <vector>

namespace history {

// One note as it is shown.
struct ShownNote
{
    qint64 number = 0;
    qint64 operation = 0;
    qint64 time = 0; // milliseconds since 1970, UTC
    QString key;     // of the parameter's node
    QString place;   // "GRP1\INST11\States", as far as it is still there
    QString parameter;
    std::optional<QString> oldValue, newValue; // as stored
    QString oldShown, newShown;
    std::optional<int> oldState, newState; // none: the value wasn't there, or isn't any more
    QString operatorName;
    values::ValueCause cause = values::ValueCause::Unknown;
};

// What is asked for.
struct PageRequest
{
    QString company; // its file
    QString language;
    QString key;                     // of the element; what is below it counts
    bool lastOperation = false;      // only the notes of the newest one
    bool failedChecks = false;       // only what was read back otherwise than written
    std::optional<qint64> operation; // only this one, and only values that became others
};

// The notes of an element, the newest first.
struct HistoryPage
{
    static constexpr int kMostNotes = 20'000;

    std::vector<ShownNote> notes;
    bool more = false;                       // older ones are left out
    values::Kind kind = values::Kind::Other; // of the one parameter that was asked for
    std::map<int, QString> choices;          // and of an ENUM its words
    QString failure;                         // why the reading broke off; "" if it didn't
};

// Never raises. A company without notes has an empty page.
HistoryPage readHistory(const PageRequest& request, const structure::StopFlag& stop);

} // namespace history
