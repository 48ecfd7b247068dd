#include "structure/Duplicate.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Recordset.h"
#include "platform/Words.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/ParamGroupNodes.h"
#include "structure/Records.h"
#include "structure/Structure.h"
#include "structure/UpdateProgress.h"
#include "values/ValueCause.h"

namespace structure {

using platform::guarded;
using platform::Recordset;
using platform::Transaction;

Duplicator::Duplicator(session::Session& session, platform::Operator& op, Structure& structure,
                       Records& records, Tell tell)
    : session_(session), operator_(op), structure_(structure), records_(records), tell_(std::move(tell))
{
}

bool Duplicator::Duplicate_Item(Kind kind, const QString& srcIDGrp, const QString& srcIDInst,
                                const QString& targetIDGrp)
{
    return guarded("Module/Duplicate_Item", [&] {
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Pasted);
        return kind == kOfGroup ? duplicateGroup(srcIDGrp)
                                : duplicateInstrument(srcIDGrp, srcIDInst, targetIDGrp);
    });
}

bool Duplicator::duplicateInstrument(const QString& srcIDGrp, const QString& srcIDInst, const QString& target)
{
    const int number = records_.IDMax_Inst(target.toInt());
    if (number == 0)
        return false;
    const QString copy = QString::number(number);
    UpdateProgress progress(structure_, operator_);
    Transaction transaction(session_.cnDatabase);
    requireGroup(target);
    progress.to(25);
    copyOne(QStringLiteral(R"(
        INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, Address)
        SELECT %1 AS IDGrp, %2 AS IDInst, IDItem, Name, Description, Address
        FROM tbInstrumentsUser
        WHERE ((IDGrp = %3) AND (IDInst = %4));)")
                .arg(target, copy, srcIDGrp, srcIDInst));
    progress.to(50);
    copyAll(QStringLiteral(R"(
        INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State)
        SELECT %1 AS IDGrp, %2 AS IDInst, IDPar, IDParGrp, Value, State
        FROM tbParametersUser
        WHERE ((IDGrp = %3) AND (IDInst = %4));)")
                .arg(target, copy, srcIDGrp, srcIDInst));
    transaction.commit();

    progress.to(75);
    addNodes(kInstrument, QStringLiteral(R"(
        SELECT * FROM tbInstrumentsUser
        WHERE ((IDGrp = %1) AND (IDInst = %2))
        ORDER BY IDGrp, IDInst;)")
                              .arg(target, copy));
    progress.to(100);
    addParamGroupNodes(session_, structure_, {QStringLiteral("2"), target, copy, {}, {}});
    structure_.sortNodes(Compose_Key(kInstrument, target, {}, {}));
    return true;
}

bool Duplicator::duplicateGroup(const QString& source)
{
    const int number = records_.IDMax_Grp();
    if (number == 0)
        return false;
    const QString copy = QString::number(number);
    UpdateProgress progress(structure_, operator_);
    Transaction transaction(session_.cnDatabase);
    progress.to(16);
    copyOne(QStringLiteral(R"(
        INSERT INTO tbGroupsUser (IDGrp, Name, Description, Phone)
        SELECT %1 AS IDGrp, Name, Description, Phone
        FROM tbGroupsUser
        WHERE (IDGrp = %2);)")
                .arg(copy, source));
    tell_("job.instruments");
    progress.to(33);
    copyAll(QStringLiteral(R"(
        INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, Address)
        SELECT %1 AS IDGrp, IDInst, IDItem, Name, Description, Address
        FROM tbInstrumentsUser
        WHERE (IDGrp = %2);)")
                .arg(copy, source));
    tell_("job.parameters");
    progress.to(50);
    copyAll(QStringLiteral(R"(
        INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State)
        SELECT %1 AS IDGrp, IDInst, IDPar, IDParGrp, Value, State
        FROM tbParametersUser
        WHERE (IDGrp = %2);)")
                .arg(copy, source));
    transaction.commit();

    tell_("job.tree");
    progress.to(66);
    addNodes(kGroup,
             QStringLiteral("SELECT * FROM tbGroupsUser WHERE (IDGrp = %1) ORDER BY IDGrp;").arg(copy));
    progress.to(83);
    addNodes(kInstrument, QStringLiteral(R"(
        SELECT * FROM tbInstrumentsUser
        WHERE (IDGrp = %1)
        ORDER BY IDGrp, IDInst;)")
                              .arg(copy));
    progress.to(100);
    addParamGroupNodes(session_, structure_, {QStringLiteral("1"), copy, {}, {}, {}});
    structure_.sortNodes(Compose_Key(kInstrument, copy, {}, {}));
    structure_.sortNodes(kRootKey);
    return true;
}

// Another program may have taken the group away that the tree still shows.
void Duplicator::requireGroup(const QString& IDGrp)
{
    Recordset group;
    group.Open(QStringLiteral("SELECT IDGrp FROM tbGroupsUser WHERE (IDGrp = %1);").arg(IDGrp),
               session_.cnDatabase);
    if (group.Eof())
        platform::failInWords(platform::errors::kItemNotFound, "paste.target");
}

// The element itself: when it has gone meanwhile there is nothing to copy, and nothing may be moved.
void Duplicator::copyOne(const QString& sql)
{
    if (session_.cnDatabase.Execute(sql) != 1)
        platform::failInWords(platform::errors::kItemNotFound, "paste.gone");
}

void Duplicator::copyAll(const QString& sql)
{
    session_.cnDatabase.Execute(sql);
}

void Duplicator::addNodes(int level, const QString& sql)
{
    Recordset rows;
    for (rows.Open(sql, session_.cnDatabase); !rows.Eof(); rows.MoveNext()) {
        const QString IDInst = level == kInstrument ? rows.text(QStringLiteral("IDInst")) : QString();
        structure_.Add_Node_TreeBus(level, rows.text(QStringLiteral("IDGrp")), IDInst, {},
                                    rows.text(QStringLiteral("Name")));
    }
}

} // namespace structure
