#include "structure/Records.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/UpdateProgress.h"
#include "structure/WorkRecordset.h"

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
        session_.strSQL = QStringLiteral("SELECT Max(IDGrp) AS IDMax FROM tbGroupsUser;");
        return nextNumber();
    });
}

int Records::IDMax_Inst(int IDGrp)
{
    return guarded("Module/IDMax_Inst", [&] {
        session_.strSQL = u"SELECT Max(IDInst) AS IDMax FROM tbInstrumentsUser WHERE (IDGrp = " %
                          QString::number(IDGrp) % u");";
        return nextNumber();
    });
}

int Records::nextNumber()
{
    WorkRecordset highest(session_);
    if (highest->Eof() || (*highest)["IDMax"].isNull())
        return 1;
    const qint64 next = (*highest)["IDMax"].toLongLong() + 1;
    if (next > std::numeric_limits<int>::max())
        platform::fail(platform::errors::kOverflow, QStringLiteral("Overflow"));
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
    run(u"INSERT INTO tbGroupsUser (IDGrp, Name, Description, Phone) VALUES(" % IDGrp % u", " %
        Compose_SqlText(Name) % u", " % composeTextOrNull(Description) % u", " % composeTextOrNull(Phone) %
        u");");
}

void Records::addInstrument(const QString& IDGrp, const QString& IDInst, const QString& IDItem,
                            const QString& Name, const QString& Description, const QString& Address,
                            UpdateProgress& progress)
{
    progress.to(50);
    run(u"INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, Address) VALUES(" % IDGrp %
        u", " % IDInst % u", " % Compose_SqlText(IDItem) % u", " % Compose_SqlText(Name) % u", " %
        composeTextOrNull(Description) % u", " % composeTextOrNull(Address) % u");");
    requireType(IDItem);
    progress.to(100);
    run(u"INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State) SELECT " % IDGrp %
        u" AS IDGrp, " % IDInst %
        u" AS IDInst, tbParam.mID AS IDPar, tbParam.mKeyParGroup AS IDParGrp, tbParam.mDftValue AS Val, "
        u"0 AS State FROM tbInstrument INNER JOIN (tbParamGroup INNER JOIN tbParam "
        u"ON tbParamGroup.mID = tbParam.mKeyParGroup) ON tbInstrument.mID = tbParamGroup.mKeyInst "
        u"WHERE (tbInstrument.mTag = " %
        Compose_SqlText(IDItem) % u");");
}

// A type may have left the catalogue since it was offered. Its instrument would stand there without a
// parameter.
void Records::requireType(const QString& tag)
{
    platform::Recordset types;
    types.Open(u"SELECT mID FROM tbInstrument WHERE (mTag = " % Compose_SqlText(tag) % u");",
               session_.cnDatabase);
    if (types.Eof())
        platform::fail(platform::errors::kItemNotFound,
                       QStringLiteral("The catalogue holds no type '%1'.").arg(tag));
}

// Removing
// ----------------------------------------------------------------------------------------------------------

bool Records::Remove_Record_Db(const QString& key)
{
    return guarded("Module/Remove_Record_Db", [&] {
        const KeyParts ids = Extract_Key(key);
        UpdateProgress progress(structure_, operator_);
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
    run(u"DELETE FROM tbGroupsUser WHERE IDGrp = " % IDGrp);
    progress.to(66);
    run(u"DELETE FROM tbInstrumentsUser WHERE IDGrp = " % IDGrp);
    progress.to(100);
    run(u"DELETE FROM tbParametersUser WHERE IDGrp = " % IDGrp);
}

void Records::removeInstrument(const QString& IDGrp, const QString& IDInst, UpdateProgress& progress)
{
    const QString instrument = u"((IDGrp = " % IDGrp % u") AND (IDInst = " % IDInst % u"))";
    progress.to(50);
    run(u"DELETE FROM tbInstrumentsUser WHERE " % instrument);
    progress.to(100);
    run(u"DELETE FROM tbParametersUser WHERE " % instrument);
}

void Records::run(const QString& sql)
{
    session_.strSQL = sql;
    session_.cnDatabase.Execute(session_.strSQL);
}

} // namespace structure
