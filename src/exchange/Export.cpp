#include "exchange/Export.h"

#include "exchange/DataTrace.h"
#include "exchange/Fields.h"
#include "exchange/Progress.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/TextFile.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

namespace exchange {

using platform::Statement;

namespace {

constexpr int kDataTraceFilter = 3;

ReportForm formOf(int filter)
{
    switch (filter) {
    case 1:
        return ReportForm::Text;
    case 2:
        return ReportForm::Comma;
    default:
        return ReportForm::Spreadsheet;
    }
}

QString textOf(const Statement& row, int column)
{
    return QString::fromUtf8(row.text(column));
}

} // namespace

void Export::Export_Item()
{
    platform::guarded("Module/Export_Item", [&] {
        auto& [session, texts, op, clock, structure] = with_;
        if (session.CurrentUser.IDUser.isEmpty() || structure.selectedNode().isEmpty())
            return;
        const Selection selection = Selection::ofKey(structure.selectedNode());
        try {
            const platform::ChosenFile chosen = op.saveFile(
                {texts(session::rows::kSaveAs),
                 texts(session::rows::kTextFilters) % u'|' % texts(session::rows::kDataTraceFilter) % u'|' %
                     texts.own("export.spreadsheet"),
                 QString(), session::exportFolder(session)});
            session.DirExport = QDir::toNativeSeparators(QFileInfo(chosen.name).path());
            const bool written = writeChosen(selection, chosen.name, chosen.filterIndex);
            tell(written ? 509 : 570, written);
        } catch (const platform::RuntimeError& error) {
            if (error.number != platform::errors::kCancelled)
                throw;
            session::tellCancelled(session, texts, op);
        }
    });
}

bool Export::writeChosen(const Selection& selection, const QString& file, int filter) const
{
    return filter == kDataTraceFilter ? writeDataTrace(selection.IDGrp, file)
                                      : writeReport(selection, file, formOf(filter));
}

bool Export::writeReport(const Selection& selection, const QString& file, ReportForm form) const
{
    const ReportRows rows(with_.session, selection);
    const int codePage = form == ReportForm::Spreadsheet ? platform::kUtf8WithMark : with_.session.CodePage;
    platform::TextWriter writer(file, codePage, kLineEnd);
    ReportLines lines(with_.session, with_.texts, form, with_.clock.now().toString("yyyy-MM-dd HH:mm:ss"));
    Progress progress(with_.structure, with_.op, rows.atMost());

    writer.WriteBytes(lines.title());
    qint64 written = 0;
    rows.each([&](const ReportRow& row) {
        writer.WriteBytes(lines.line(row));
        progress.to(++written);
        return true;
    });
    if (written > 0)
        writer.commit();
    return written > 0;
}

bool Export::writeDataTrace(const QString& IDGrp, const QString& file) const
{
    if (IDGrp.isEmpty())
        return false;
    const platform::Connection& company = with_.session.cnDatabase;
    const platform::Snapshot oneState(with_.session.cnDatabase);
    Statement group(company,
                    u"SELECT Name, Description, Phone FROM tbGroupsUser WHERE IDGrp = " % IDGrp % u';');
    if (!group.step())
        return false;

    const int codePage = with_.session.CodePage;
    platform::TextWriter writer(file, codePage, kLineEnd);
    Progress progress(with_.structure, with_.op, ReportRows(with_.session, {IDGrp, {}}).atMost());
    const auto write = [&](const TraceTexts& texts) {
        writer.WriteBytes(traceLine(texts, codePage) + kLineEnd);
    };
    write(TraceTexts{QString(), QString(), textOf(group, 0), textOf(group, 1), textOf(group, 2), QString()});

    Statement instruments(company,
                          u"SELECT IDInst, Name, Description, IDItem, Address FROM tbInstrumentsUser "
                          u"WHERE IDGrp = " %
                              IDGrp % u';');
    Statement parameters(company, u"SELECT IDPar, IDParGrp, Value FROM tbParametersUser WHERE ((IDGrp = " %
                                      IDGrp % u") AND (IDInst = ?));");
    qint64 written = 0;
    while (instruments.step()) {
        const QString IDInst = textOf(instruments, 0);
        write(TraceTexts{IDInst, QString(), textOf(instruments, 1), textOf(instruments, 2),
                         textOf(instruments, 3), textOf(instruments, 4)});
        parameters.reset();
        parameters.bind(1, instruments.integer(0));
        while (parameters.step()) {
            write(TraceTexts{IDInst, textOf(parameters, 0), textOf(parameters, 1), textOf(parameters, 2),
                             QString(), QString()});
            progress.to(++written);
        }
    }
    writer.commit();
    return true;
}

void Export::tell(int text, bool done) const
{
    with_.op.messageBox(with_.texts(text), platform::Buttons::Ok,
                        done ? platform::Icon::Information : platform::Icon::Exclamation,
                        with_.session.AppTitle);
}

} // namespace exchange
