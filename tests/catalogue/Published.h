#pragma once

#include "catalogue/tool/Checks.h"
#include "catalogue/tool/CompanyWriter.h"
#include "catalogue/tool/ModelWriter.h"
#include "tests/catalogue/Sources.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace catalogue::testing {

inline const QString kFolder{CALIDORA_CATALOGUE};

// The catalogue that is published, and the files made of it, once for all tests of this program.
struct Published
{
    QTemporaryDir folder;
    Catalogue catalogue = readCatalogue(kFolder);
    Demo demo = readDemo(kFolder + "/demo/freddopiano.txt");
    QString model = folder.filePath("model.mdb");
    QString company = folder.filePath("company.mdb");

    Published()
    {
        writeModel(catalogue, kFolder + "/schema.sql", model);
        writeCompany(demo, catalogue, model, company);
    }
};

inline const Published& published()
{
    static const Published kPublished;
    return kPublished;
}

// Parameters that may have no value in an instrument: texts may be empty, and a probe may be missing. As a
// list for a statement.
inline QString mayBeUnknown()
{
    QStringList ids;
    forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        if (parameter.wire == "STRING" || (!parameter.editable && !parameter.standard))
            ids << '\'' + parameter.id + '\'';
    });
    return ids.join(',');
}

inline SQLite::Database opened(const QString& file)
{
    return SQLite::Database(file.toStdString(), SQLite::OPEN_READONLY);
}

// The first column of every row.
inline QStringList column(SQLite::Database& database, const QString& sql)
{
    QStringList result;
    SQLite::Statement statement(database, sql.toStdString());
    while (statement.executeStep())
        result << QString::fromStdString(statement.getColumn(0).getString());
    return result;
}

inline int count(SQLite::Database& database, const QString& sql)
{
    return column(database, sql).value(0).toInt();
}

// How the program finds the alive frame of a group: address, alive address and read command of its master.
inline const char* const kAliveStatement =
    "SELECT DISTINCT tbGroupsUser.IDGrp, tbInstrumentsUser.Address, tbInstrument.mAliveParAddr, "
    "tbInstMem.mReadCmd "
    "FROM ((tbGroupsUser INNER JOIN tbInstrumentsUser ON tbGroupsUser.IDGrp = tbInstrumentsUser.IDGrp) INNER "
    "JOIN "
    "tbInstrument ON tbInstrumentsUser.IDItem = tbInstrument.mTag) INNER JOIN (tbParamGroup INNER JOIN "
    "(tbInstrument "
    "AS tbInstrument_1 INNER JOIN (tbParam INNER JOIN tbInstMem ON tbParam.mMemBank = tbInstMem.mID) ON "
    "tbInstrument_1.mAliveParAddr = tbParam.mAddr) ON tbParamGroup.mID = tbParam.mKeyParGroup) ON "
    "tbInstrument.mID = "
    "tbParamGroup.mKeyInst WHERE ((tbGroupsUser.IDGrp = %1) AND (tbInstrumentsUser.Address = '00'));";

} // namespace catalogue::testing
