#pragma once

#include "history/NoteFile.h"
#include "support/CompanyFixture.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <map>

// The value history played over the values of a company's start.
namespace support {

using PlantValues = std::map<QString, QString>; // "1/2/P0101" -> "value|state"

// A value may hold any character that an instrument sends, a zero byte, too.
inline QString valueIn(const SQLite::Column& value, const SQLite::Column& state)
{
    return (value.isNull() ? QStringLiteral("-") : QString::fromStdString(value.getString())) + u'|' +
           QString::fromStdString(state.getString());
}

inline PlantValues valuesOf(const QString& company)
{
    PlantValues values;
    const SQLite::Database engine(company.toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement row(
        engine, "SELECT IDGrp || '/' || IDInst || '/' || IDPar, Value, State FROM tbParametersUser");
    while (row.executeStep())
        values[QString::fromStdString(row.getColumn(0))] = valueIn(row.getColumn(1), row.getColumn(2));
    return values;
}

// Each note must also tell what stood there before it.
inline void replayHistory(const QString& company, PlantValues& values)
{
    const QString nothing = QStringLiteral("-|");
    const SQLite::Database engine(history::historyFileOf(company).toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement note(engine,
                           "SELECT IDGrp || '/' || IDInst || '/' || IDPar, OldValue, OldState, NewValue, "
                           "NewState FROM tbNote ORDER BY ID");
    while (note.executeStep()) {
        const QString key = QString::fromStdString(note.getColumn(0));
        const QString before = valueIn(note.getColumn(1), note.getColumn(2)),
                      after = valueIn(note.getColumn(3), note.getColumn(4));
        const auto found = values.find(key);
        ASSERT_EQ(found == values.end() ? nothing : found->second, before)
            << qPrintable(key) << " became " << qPrintable(after);
        if (after == nothing)
            values.erase(key);
        else
            values[key] = after;
    }
}

} // namespace support
