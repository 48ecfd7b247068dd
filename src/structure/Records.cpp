#include "structure/Records.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Words.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/NodeKey.h"
#include "structure/UpdateProgress.h"
#include "values/ValueCause.h"

#include <QStringBuilder>
#include <limits>

namespace structure {

using platform::guarded;
using platform::Transaction;
using session::Compose_SqlText;
using session::composeTextOrNull;

Records::Records(session::Session& session, platform::Operator& op, Structure& structure)
    : session_(session), operator_(op), structure_(structure)
{
}

// Numbers
// -----------------------------------------------------------------------------------------------------------

int Records::IDMax_Grp()
{
    return guarded("Module/IDMax_Grp", [&] {
        return nextNumber(QStringLiteral("SELECT Max(IDGrp) AS IDMax FROM tbGroupsUser;"));
    });
}

int Records::IDMax_Inst(int IDGrp)
{
    return guarded("Module/IDMax_Inst", [&] {
        return nextNumber(
            QStringLiteral("SELECT Max(IDInst) AS IDMax FROM tbInstrumentsUser WHERE (IDGrp = %1);")
                .arg(IDGrp));
    });
}

int Records::nextNumber(const QString& highestSql)
{
    platform::Recordset highest;
    highest.Open(highestSql, session_.cnDatabase);
    if (highest.Eof() || highest["IDMax"].isNull())
        return 1;
    const qint64 next = highest["IDMax"].toLongLong() + 1;
    if (next > std::numeric_limits<int>::max())
        platform::failInWords(platform::errors::kOverflow, "value.overflow");
    return int(next);
}

TypeAddresses Records::Search_Instrument(const QString& tag)
{
    return guarded("Module/Search_Instrument", [&]() -> TypeAddresses {
        platform::Recordset& types = session_.rsInstrument;
        if (types.RecordCount() == 0)
            return {};
        types.MoveFirst();
        types.Find(QStringLiteral("mTag"), tag);
        if (types.Eof())
            return {};
        return {types.text("mBaseAddr"), types.text("mAliveParAddr")};
    });
}

// Adding
// ------------------------------------------------------------------------------------------------------------

bool Records::Add_Record_Db(int level, const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                            const QString& Name, const QString& Description, const QString& PhoneOrAddress)
{
    return guarded("Module/Add_Record_Db", [&] {
        UpdateProgress progress(structure_, operator_);
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Created);
        Transaction transaction(session_.cnDatabase);
        if (level == kGroup)
            addGroup(IDGrp, Name, Description, PhoneOrAddress, progress);
        else if (level == kInstrument)
            addInstrument(IDGrp, IDInst, IDItem, Name, Description, PhoneOrAddress, progress);
        transaction.commit();
        return true;
    });
}

void Records::addGroup(const QString& IDGrp, const QString& Name, const QString& Description,
                       const QString& Phone, UpdateProgress& progress)
{
    progress.to(100);
    static const QString kInsert =
        QStringLiteral("INSERT INTO tbGroupsUser (IDGrp, Name, Description, Phone) VALUES(%1, %2, %3, %4);");
    run(kInsert.arg(IDGrp, Compose_SqlText(Name), composeTextOrNull(Description), composeTextOrNull(Phone)));
}

void Records::addInstrument(const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                            const QString& Name, const QString& Description, const QString& Address,
                            UpdateProgress& progress)
{
    static const QString kInsert = QStringLiteral(
        R"(INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, Address)
           VALUES(%1, %2, %3, %4, %5, %6);)");
    static const QString kInsertParameters = QStringLiteral(
        R"(INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State)
           SELECT %1 AS IDGrp, %2 AS IDInst, tbParam.mID AS IDPar, tbParam.mKeyParGroup AS IDParGrp,
                  tbParam.mDftValue AS Val, 0 AS State
           FROM tbInstrument
                INNER JOIN (tbParamGroup
                            INNER JOIN tbParam ON tbParamGroup.mID = tbParam.mKeyParGroup)
                ON tbInstrument.mID = tbParamGroup.mKeyInst
           WHERE (tbInstrument.mTag = %3);)");
    progress.to(50);
    run(kInsert.arg(IDGrp, IDInst, Compose_SqlText(IDItem), Compose_SqlText(Name),
                    composeTextOrNull(Description), composeTextOrNull(Address)));
    requireType(IDItem);
    progress.to(100);
    run(kInsertParameters.arg(IDGrp, IDInst, Compose_SqlText(IDItem)));
}

// A type may have left the catalogue since it was offered. Its instrument would stand there without a
// parameter.
void Records::requireType(const QString& tag)
{
    platform::Recordset types;
    types.Open(QStringLiteral("SELECT mID FROM tbInstrument WHERE (mTag = %1);").arg(Compose_SqlText(tag)),
               session_.cnDatabase);
    if (types.Eof())
        platform::failInWords(platform::errors::kItemNotFound, "catalogue.notype", {tag});
}

// Removing
// ----------------------------------------------------------------------------------------------------------

bool Records::Remove_Record_Db(const QString& key)
{
    return guarded("Module/Remove_Record_Db", [&] {
        const KeyParts ids = Extract_Key(key);
        UpdateProgress progress(structure_, operator_);
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Deleted);
        Transaction transaction(session_.cnDatabase);
        // The rows above go before those that refer to them; only the whole must be in order.
        run(QStringLiteral("PRAGMA defer_foreign_keys=ON;"));
        switch (Extract_Level(key)) {
        case kGroup:
            removeGroup(ids.IDGrp, progress);
            break;
        case kInstrument:
            removeInstrument(ids.IDGrp, ids.IDInst, progress);
            break;
        default:
            break;
        }
        transaction.commit();
        return true;
    });
}

void Records::removeGroup(const QString& IDGrp, UpdateProgress& progress)
{
    progress.to(33);
    run(QStringLiteral("DELETE FROM tbGroupsUser WHERE IDGrp = %1").arg(IDGrp));
    progress.to(66);
    run(QStringLiteral("DELETE FROM tbInstrumentsUser WHERE IDGrp = %1").arg(IDGrp));
    progress.to(100);
    run(QStringLiteral("DELETE FROM tbParametersUser WHERE IDGrp = %1").arg(IDGrp));
}

void Records::removeInstrument(const QString& IDGrp, const QString& IDInst, UpdateProgress& progress)
{
    progress.to(50);
    run(QStringLiteral("DELETE FROM tbInstrumentsUser WHERE ((IDGrp = %1) AND (IDInst = %2))")
            .arg(IDGrp, IDInst));
    progress.to(100);
    run(QStringLiteral("DELETE FROM tbParametersUser WHERE ((IDGrp = %1) AND (IDInst = %2))")
            .arg(IDGrp, IDInst));
}

void Records::run(const QString& sql)
{
    session_.cnDatabase.Execute(sql);
}

} // namespace structure
