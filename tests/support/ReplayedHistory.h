#pragma once

#include "history/NoteFile.h"
#include "support/CompanyFixture.h"

#include <map>

// The value history played over the values of a company's start.
namespace support {

using PlantValues = std::map<QString, QString>; // "1/2/P0101" -> "value|state"

inline PlantValues valuesOf(const QString& company)
{
    PlantValues values;
    for (const QString& row :
         column(company,
                "SELECT IDGrp || '/' || IDInst || '/' || IDPar || '>' || IfNull(Value, '-') || '|' || State "
                "FROM tbParametersUser"))
        values[row.section('>', 0, 0)] = row.section('>', 1);
    return values;
}

// Each note must also tell what stood there before it.
inline void replayHistory(const QString& company, PlantValues& values)
{
    const QStringList notes =
        column(history::historyFileOf(company),
               "SELECT IDGrp || '/' || IDInst || '/' || IDPar || '>' || IfNull(OldValue, '-') || '|' || "
               "IfNull(OldState, '') || '>' || IfNull(NewValue, '-') || '|' || IfNull(NewState, '') "
               "FROM tbNote "
               "ORDER BY ID");
    for (const QString& row : notes) {
        const QString key = row.section('>', 0, 0), before = row.section('>', 1, 1),
                      after = row.section('>', 2);
        const auto found = values.find(key);
        ASSERT_EQ(found == values.end() ? "-|" : found->second, before) << qPrintable(row);
        if (after == "-|")
            values.erase(key);
        else
            values[key] = after;
    }
}

} // namespace support
