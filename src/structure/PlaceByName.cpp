#include "structure/PlaceByName.h"

#include "events/LoggedText.h"
#include "platform/Recordset.h"
#include "session/Session.h"
#include "structure/NodeKey.h"

namespace structure {

namespace {

// Whether a log tells of this element.
class Logged
{
public:
    Logged(const QString& name, int codePage) : name_(name), codePage_(codePage) {}

    bool is(const QString& element) const
    {
        const QString logged =
            events::loggedText(element, codePage_).left(events::kLoggedNameWidth).trimmed();
        return !name_.isEmpty() && logged.compare(name_, Qt::CaseInsensitive) == 0;
    }

private:
    QString name_;
    int codePage_;
};

QString groupNamed(const session::Session& session, const Logged& equipment)
{
    platform::Recordset groups;
    groups.Open(QStringLiteral("SELECT IDGrp, Name FROM tbGroupsUser ORDER BY IDGrp;"), session.cnDatabase);
    for (; !groups.Eof(); groups.MoveNext()) {
        if (equipment.is(groups.text("Name")))
            return Compose_Key(kInstrument, groups.text("IDGrp"), {}, {});
    }
    return {};
}

} // namespace

QString placeByName(const session::Session& session, const QString& equipment, const QString& instrument)
{
    if (session.DbName.isEmpty())
        return {};
    const Logged group(equipment, session.CodePage), item(instrument, session.CodePage);
    platform::Recordset instruments;
    instruments.Open(QStringLiteral(R"(
SELECT tbInstrumentsUser.IDGrp, tbInstrumentsUser.IDInst, tbInstrumentsUser.Name, tbGroupsUser.Name AS DesGrp
FROM tbInstrumentsUser INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp
ORDER BY tbInstrumentsUser.IDGrp, tbInstrumentsUser.IDInst;)"),
                     session.cnDatabase);
    QString elsewhere;
    for (; !instruments.Eof(); instruments.MoveNext()) {
        if (!item.is(instruments.text("Name")))
            continue;
        const QString key =
            Compose_Key(kParamGroup, instruments.text("IDGrp"), instruments.text("IDInst"), {});
        if (group.is(instruments.text("DesGrp")))
            return key;
        if (elsewhere.isEmpty())
            elsewhere = key;
    }
    const QString found = groupNamed(session, group);
    return found.isEmpty() ? elsewhere : found;
}

} // namespace structure
