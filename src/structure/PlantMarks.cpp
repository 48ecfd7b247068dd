#include "structure/PlantMarks.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "session/Session.h"
#include "structure/InstrumentMemory.h"
#include "structure/Structure.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace structure {

namespace {

constexpr int kLookMilliseconds = 700;

} // namespace

PlantMarks::PlantMarks(const session::Session& session, Structure& structure)
    : session_(session), structure_(structure)
{
    connect(&look_, &QTimer::timeout, this, &PlantMarks::refresh);
    look_.start(kLookMilliseconds);
    connect(&structure, &Structure::levelLoaded, this, &PlantMarks::refresh);
    connect(&structure.memory(), &InstrumentMemory::changed, this, &PlantMarks::show);
}

int PlantMarks::unconfirmed() const
{
    return int(structure_.memory().unconfirmed().size());
}

void PlantMarks::refresh()
{
    const platform::Connection& company = session_.cnDatabase;
    if (company.State() == platform::Connection::Closed) {
        seenChanges_ = -1;
        if (waiting_ > 0 || !holders_.isEmpty()) {
            holders_.clear();
            waiting_ = 0;
            emit changed();
        }
        return;
    }
    const qint64 changes = company.database().getTotalChanges();
    if (company_ == session_.dbFile() && changes == seenChanges_)
        return;
    structure_.memory().turnTo(session_.dbFile());
    company_ = session_.dbFile();
    seenChanges_ = changes;
    read();
}

// What can't be read now is read at the next change; whoever needs it fails in its own name.
void PlantMarks::read()
{
    try {
        platform::Recordset rows;
        rows.Open(QStringLiteral(R"(SELECT IDGrp, IDInst, IDParGrp, Count(*) AS Waiting
                                    FROM tbParametersUser WHERE (State = 1)
                                    GROUP BY IDGrp, IDInst, IDParGrp;)"),
                  session_.cnDatabase);
        holders_.clear();
        waiting_ = 0;
        for (; !rows.Eof(); rows.MoveNext()) {
            holders_[paramGroupKey(rows.text("IDGrp"), rows.text("IDInst"), rows.text("IDParGrp"))] =
                kHoldsChanges;
            waiting_ += rows.number("Waiting");
        }
    } catch (const platform::RuntimeError&) {
        return;
    }
    show();
}

void PlantMarks::markAbove(Marks& marks, const QString& key, int mark) const
{
    for (QString above = key; !above.isEmpty(); above = above == kRootKey ? QString() : parentKey(above))
        marks[above] |= mark;
}

void PlantMarks::show()
{
    Marks marks;
    for (auto holder = holders_.constBegin(); holder != holders_.constEnd(); ++holder)
        markAbove(marks, holder.key(), kHoldsChanges);
    for (const auto& [key, write] : structure_.memory().unconfirmed())
        markAbove(marks, key, kHoldsUnconfirmed);
    structure_.tree().setMarks(marks);
    structure_.list().setMarks(marks);
    emit changed();
}

} // namespace structure
