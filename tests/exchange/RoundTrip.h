#pragma once

#include "support/CompanyFixture.h"

namespace exchange {

// What of the second group is not as in the first one, "" for nothing: the ids of the groups, the numbers of
// the instruments and the marks are left out, which stand at 1, 2, 3 and 0 in the second.
inline QString groupsDiffer(const QString& company, int source, int copy)
{
    const auto all = [&](int group) {
        QStringList rows =
            support::column(company, QString("SELECT quote(Name) || quote(Description) || quote(Phone) "
                                             "FROM tbGroupsUser WHERE IDGrp = %1")
                                         .arg(group));
        rows += support::column(
            company, QString("SELECT Row_Number() OVER (ORDER BY IDInst) || quote(IDItem) || quote(Name) || "
                             "quote(Description) || quote(Address) FROM tbInstrumentsUser WHERE IDGrp = %1 "
                             "ORDER BY IDInst")
                         .arg(group));
        rows += support::column(
            company,
            QString("SELECT Dense_Rank() OVER (ORDER BY IDInst) || quote(IDPar) || quote(IDParGrp) || "
                    "quote(Value) FROM tbParametersUser WHERE IDGrp = %1 ORDER BY IDInst, IDPar")
                .arg(group));
        return rows;
    };
    const QStringList before = all(source), after = all(copy);
    if (before != after)
        return "before: " + before.join('\n') + "\nafter: " + after.join('\n');
    const QStringList numbers = support::column(
        company, QString("SELECT IDInst - Row_Number() OVER (ORDER BY IDInst) FROM tbInstrumentsUser "
                         "WHERE IDGrp = %1")
                     .arg(copy));
    if (numbers.count("0") != numbers.size())
        return "instruments are not numbered 1, 2, 3";
    const QStringList marks = support::column(
        company, QString("SELECT State FROM tbParametersUser WHERE IDGrp = %1 AND State <> 0").arg(copy));
    return marks.isEmpty() ? QString() : "marks: " + marks.join(',');
}

} // namespace exchange
