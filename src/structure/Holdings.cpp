#include "structure/Holdings.h"

#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/NodeKey.h"

#include <QStringBuilder>

namespace structure {

namespace {

// The condition that the rows below an element meet; those of the instruments' table up to an instrument.
QString below(const KeyParts& ids)
{
    QString condition = QStringLiteral("(1 = 1)");
    const auto add = [&condition](const char* column, const QString& value) {
        if (!value.isEmpty())
            condition += QStringLiteral(" AND (%1 = %2)").arg(QLatin1String(column), value);
    };
    add("IDGrp", ids.IDGrp);
    add("IDInst", ids.IDInst);
    if (!ids.IDParGrp.isEmpty())
        add("IDParGrp", session::Compose_SqlText(ids.IDParGrp));
    if (!ids.IDPar.isEmpty())
        add("IDPar", session::Compose_SqlText(ids.IDPar));
    return condition;
}

} // namespace

Holdings holdingsOf(const session::Session& session, const QString& key)
{
    const KeyParts ids = Extract_Key(key);
    Holdings found;
    if (ids.IDParGrp.isEmpty()) {
        platform::Recordset instruments;
        instruments.Open(QStringLiteral("SELECT Count(*) AS Instruments FROM tbInstrumentsUser WHERE (%1);")
                             .arg(below(ids)),
                         session.cnDatabase);
        found.instruments = instruments.number("Instruments");
    }
    platform::Recordset rows;
    rows.Open(
        QStringLiteral(R"(SELECT Count(*) AS Parameters, Count(CASE WHEN State = 1 THEN 1 END) AS Changed
                                FROM tbParametersUser WHERE (%1);)")
            .arg(below(ids)),
        session.cnDatabase);
    found.parameters = rows.number("Parameters");
    found.changed = rows.number("Changed");
    return found;
}

QString toldOf(const session::Session& session, const session::Texts& texts, const QString& key,
               const QString& name)
{
    Holdings holdings;
    try {
        holdings = holdingsOf(session, key);
    } catch (const platform::RuntimeError&) {
        return name; // the question is asked all the same; what it is about fails in its own name
    }
    const QString held = Extract_Level(key) <= kGroup
                             ? texts.own(QStringLiteral("question.group")).arg(holdings.instruments)
                             : texts.own(QStringLiteral("question.instrument"));
    QString told = QStringLiteral("%1, %2").arg(name, held.arg(holdings.parameters));
    if (holdings.changed > 0)
        told += u'\n' % texts.own(QStringLiteral("question.changed")).arg(holdings.changed);
    return told;
}

} // namespace structure
