#include "exchange/Import.h"

#include "exchange/ImportCheck.h"
#include "exchange/ImportRows.h"
#include "exchange/Progress.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Records.h"
#include "structure/Structure.h"
#include "values/ValueCause.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

namespace exchange {

using platform::Statement;

namespace {

constexpr qsizetype kShownFindings = 12;

} // namespace

void Import::Import_Item()
{
    platform::guarded("Module/Import_Item", [&] {
        auto& [session, texts, op, structure] = with_;
        if (session.DbName.isEmpty() || !session::rightOf(session.CurrentUser.Modify))
            return;
        try {
            const QString folder = session::Exist_Path(session.DirImport)
                                       ? session.DirImport
                                       : session.appFile(QStringLiteral("Log"));
            const QString path =
                op.openFile({texts(287), texts(session::rows::kDataTraceFilter), QString(), folder});
            session.DirImport = QDir::toNativeSeparators(QFileInfo(path).path());
            TraceReader file(path, session.CodePage);
            if (!isAgreed(file))
                return;
            const int newGrp = structure::Records(session, op, structure).IDMax_Grp();
            if (newGrp == 0)
                return; // it has told why
            read(file, newGrp);
            showGroup(newGrp);
            op.messageBox(texts(session::rows::kDone), platform::Buttons::Ok, platform::Icon::Information,
                          session.AppTitle);
        } catch (const platform::RuntimeError& error) {
            if (error.number != platform::errors::kCancelled)
                throw;
            session::tellCancelled(session, texts, op);
        }
    });
}

// Reads the file once and asks, but only where there is something to ask about.
bool Import::isAgreed(TraceReader& file) const
{
    ImportCheck check(with_.session.cnDatabase, with_.texts);
    {
        Progress progress(with_.structure, with_.op, file.lines());
        for (auto line = file.next(); line && check.look(file, *line); line = file.next())
            progress.to(file.number());
    }
    file.rewind();
    const QStringList& findings = check.findings();
    if (findings.isEmpty())
        return true;
    QStringList lines{with_.texts.own("import.findings")};
    lines << findings.mid(0, kShownFindings);
    if (findings.size() >= ImportCheck::kMostFindings)
        lines << with_.texts.own("import.endless");
    else if (findings.size() > kShownFindings)
        lines << with_.texts.own("import.more").arg(findings.size() - kShownFindings);
    lines << QString() << with_.texts.own("import.ask");
    return with_.op.messageBox(lines.join(QStringLiteral("\r\n")), platform::Buttons::YesNo,
                               platform::Icon::Exclamation,
                               with_.session.AppTitle) == platform::answers::kYes;
}

void Import::read(TraceReader& file, int newGrp) const
{
    Progress progress(with_.structure, with_.op, file.lines());
    const values::Causing causing(with_.session.cnDatabase, values::ValueCause::Imported);
    platform::Transaction transaction(with_.session.cnDatabase);
    ImportRows rows(with_.session.cnDatabase, newGrp);
    while (const auto line = file.next()) {
        try {
            rows.add(*line);
        } catch (const platform::RuntimeError& error) {
            platform::fail(error.number,
                           with_.texts.own("import.line").arg(file.number()).arg(error.description));
        }
        progress.to(file.number());
    }
    transaction.commit();
}

void Import::showGroup(int IDGrp) const
{
    const QString id = QString::number(IDGrp);
    platform::Connection& company = with_.session.cnDatabase;
    Statement groups(company, u"SELECT Name FROM tbGroupsUser WHERE (IDGrp = " % id % u") ORDER BY IDGrp;");
    while (groups.step())
        with_.structure.Add_Node_TreeBus(structure::kGroup, id, {}, {}, QString::fromUtf8(groups.text(0)));

    Statement instruments(company, u"SELECT IDInst, Name FROM tbInstrumentsUser WHERE (IDGrp = " % id %
                                       u") ORDER BY IDGrp, IDInst;");
    while (instruments.step())
        with_.structure.Add_Node_TreeBus(structure::kInstrument, id, QString::number(instruments.integer(0)),
                                         {}, QString::fromUtf8(instruments.text(1)));

    Statement paramGroups(
        company,
        u"SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
        u"tbParamGroupLanguage.mDesc AS Name FROM tbParametersUser INNER JOIN tbParamGroupLanguage "
        u"ON tbParametersUser.IDParGrp = tbParamGroupLanguage.mID WHERE ((tbParametersUser.IDGrp = " %
            id % u") AND (tbParamGroupLanguage.mKeyLang = " %
            session::Compose_SqlText(with_.session.Language.Code) %
            u")) GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
            u"tbParamGroupLanguage.mDesc ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, "
            u"tbParametersUser.IDParGrp;");
    while (paramGroups.step())
        with_.structure.Add_Node_TreeBus(structure::kParamGroup, id, QString::number(paramGroups.integer(1)),
                                         QString::fromUtf8(paramGroups.text(2)),
                                         QString::fromUtf8(paramGroups.text(3)));
    // The list of groups, where it is what is looked at, has one more.
    if (with_.structure.selectedNode() == structure::kRootKey)
        with_.structure.reloadList();
}

} // namespace exchange
