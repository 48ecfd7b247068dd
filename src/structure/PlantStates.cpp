#include "structure/PlantStates.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Recordset.h"
#include "platform/Statement.h"
#include "platform/Unwatched.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Holdings.h"
#include "structure/ParamGroupNodes.h"
#include "structure/Structure.h"
#include "structure/UpdateProgress.h"
#include "values/ValueCause.h"

#include <QStringBuilder>
#include <SQLiteCpp/SQLiteCpp.h>
#include <optional>
#include <utility>

namespace structure {

using platform::guarded;
using platform::Recordset;
using platform::Statement;
using platform::Transaction;

namespace {

QString instrumentsBelow(int level, const KeyParts& ids)
{
    switch (level) {
    case kRoot:
        return QStringLiteral("SELECT * FROM tbInstrumentsUser;");
    case kGroup:
        return QStringLiteral("SELECT * FROM tbInstrumentsUser WHERE (IDGrp = %1);").arg(ids.IDGrp);
    default:
        return QStringLiteral("SELECT * FROM tbInstrumentsUser WHERE ((IDGrp = %1) AND (IDInst = %2));")
            .arg(ids.IDGrp, ids.IDInst);
    }
}

// Several instruments in one transaction. Its statements are prepared once, and run in their order for each
// instrument.
class Slice
{
public:
    explicit Slice(platform::Connection& company) : company_(company), transaction_(company) {}

    // A left join against the working table: what the catalogue has and the instrument lacks. Returns how
    // many rows were added.
    int synchronize(int IDGrp, int IDInst, const QString& IDItem)
    {
        for (Statement* statement : {&note_, &add_}) {
            statement->bind(1, IDGrp);
            statement->bind(2, IDInst);
        }
        add_.bind(3, IDItem);
        noteWhatIsThere();
        run(add_);
        return company_.database().getChanges();
    }
    void commit() { transaction_.commit(); }

private:
    static void run(Statement& statement)
    {
        statement.step();
        statement.reset();
    }
    static Statement forWorkingTable(const platform::Connection& company, const QString& sql)
    {
        const platform::Unwatched aside(company);
        return Statement(company, sql);
    }
    void noteWhatIsThere()
    {
        const platform::Unwatched aside(company_);
        run(clear_);
        run(note_);
    }

    platform::Connection& company_;
    Transaction transaction_;
    Statement clear_ = forWorkingTable(company_, QStringLiteral("DELETE FROM tbParUser_tmp"));
    Statement note_ = forWorkingTable(company_, QStringLiteral(R"(
        INSERT INTO tbParUser_tmp (IDPar)
        SELECT IDPar FROM tbParametersUser
        WHERE ((IDGrp = ?1) AND (IDInst = ?2));)"));
    Statement add_{company_, QStringLiteral(R"(
        INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], State)
        SELECT ?1 AS IDGrp, ?2 AS IDInst, tbParam.mID AS IDPar, tbParam.mKeyParGroup AS IDParGrp,
               '0' AS Val, 2 AS State
        FROM tbInstrument INNER JOIN (tbParamGroup INNER JOIN
             (tbParam LEFT JOIN tbParUser_tmp ON tbParam.mID = tbParUser_tmp.IDPar)
             ON tbParamGroup.mID = tbParam.mKeyParGroup)
             ON tbInstrument.mID = tbParamGroup.mKeyInst
        WHERE ((tbInstrument.mTag = ?3) AND (tbParUser_tmp.IDPar IS NULL));)")};
};

} // namespace

PlantStates::PlantStates(session::Session& session, const session::Texts& texts, platform::Operator& op,
                         Structure& structure)
    : session_(session), texts_(texts), operator_(op), structure_(structure)
{
}

// Synchronising
// -----------------------------------------------------------------------------------------------------

bool PlantStates::Synchronize_Item(const QString& key)
{
    added_ = 0;
    return guarded("Module/Synchronize_Item", [&] {
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Synchronised);
        added_ = synchronizeAll(key);
        return true;
    });
}

int PlantStates::synchronizeAll(const QString& key)
{
    const int level = Extract_Level(key);
    const KeyParts ids = Extract_Key(key);
    UpdateProgress progress(structure_, operator_);
    Recordset instruments;
    instruments.Open(instrumentsBelow(level, ids), session_.cnDatabase);
    const int count = level <= kGroup ? instruments.RecordCount() : 1;
    int added = 0, told = 0;
    std::optional<Slice> slice;
    for (int done = 1; !instruments.Eof(); instruments.MoveNext(), ++done) {
        if (!slice)
            slice.emplace(session_.cnDatabase);
        const int percent = done * 100 / count;
        if (count > 1 && std::exchange(told, percent) != percent)
            tellStep(instruments.text(QStringLiteral("Name")), done, count, added);
        progress.to(percent);
        added += slice->synchronize(instruments.number(QStringLiteral("IDGrp")),
                                    instruments.number(QStringLiteral("IDInst")),
                                    instruments.text(QStringLiteral("IDItem")));
        if (done % kSlice == 0) {
            slice->commit();
            slice.reset();
            operator_.repaint();
        }
    }
    if (slice)
        slice->commit();
    addParamGroupNodes(session_, structure_, ids);
    return added;
}

void PlantStates::tellStep(const QString& instrument, int done, int count, int added)
{
    emit stepTold(texts_.own(QStringLiteral("job.resync")).arg(instrument).arg(done).arg(count).arg(added));
}

void PlantStates::Resync_Item()
{
    guarded("Module/Resync_Item", [&] { resync(structure_.selectedItem()); });
}

void PlantStates::Resync_Node()
{
    guarded("frmTreeBus/Resync_Node", [&] { resync(structure_.selectedNode()); });
}

void PlantStates::resync(const QString& key)
{
    if (key.isEmpty() || !mayModify() || !confirmed({texts_(511)}) || !Synchronize_Item(key))
        return;
    structure_.reloadList();
    tellDone(texts_.own(QStringLiteral("resync.added")).arg(added_));
}

// Resetting
// ---------------------------------------------------------------------------------------------------------

void PlantStates::Reset_Item()
{
    guarded("Module/Reset_Item", [&] { reset(structure_.selectedItem()); });
}

void PlantStates::Reset_Node()
{
    guarded("frmTreeBus/Reset_Node", [&] { reset(structure_.selectedNode()); });
}

void PlantStates::reset(const QString& key)
{
    if (key.isEmpty() || !mayModify())
        return;
    const ListItem* shown = structure_.list().item(key);
    const QString name = shown ? shown->text : structure_.tree().captionOf(key);
    if (!confirmed({.text = texts_(512), .more = toldOf(session_, texts_, key, name), .destroys = true}))
        return;
    const bool done = [&] {
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Reset);
        return Restore_Item(session_, operator_, key);
    }();
    structure_.reloadList();
    if (done)
        tellDone();
}

// Questions and answers
// ------------------------------------------------------------------------------------------------

bool PlantStates::mayModify() const
{
    return session::rightOf(session_.CurrentUser.Modify);
}

// Yes to the question, and the company that it was asked about is still open.
bool PlantStates::confirmed(platform::Question question)
{
    const QString company = session_.dbFile();
    question.title = session_.AppTitle;
    return operator_.ask(question) == platform::answers::kYes && session_.dbFile() == company;
}

void PlantStates::tellDone(const QString& more)
{
    operator_.messageBox(more.isEmpty() ? texts_(session::rows::kDone)
                                        : texts_(session::rows::kDone) % u"\r\n" % more,
                         platform::Buttons::Ok, platform::Icon::Information, session_.AppTitle);
}

} // namespace structure
