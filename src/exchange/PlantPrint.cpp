#include "exchange/PlantPrint.h"

#include "exchange/Progress.h"
#include "exchange/ShownValues.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/PrintedPages.h"
#include "platform/Printer.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QStringBuilder>

namespace exchange {

namespace {

constexpr int kHeadSize = 10;
constexpr int kRowSize = 9;
constexpr int kRowsOnPage = 68;
constexpr int kRuleWidth = 80;
constexpr int kGroupNameWidth = 30;
constexpr int kInstrumentNameWidth = 40;

QString rule(QChar character)
{
    return QString(kRuleWidth, character);
}

QString fixed(const QString& text, int width)
{
    return text.leftJustified(width, u' ', true);
}

} // namespace

void PlantPrint::Print_Item()
{
    platform::guarded("Module/Print_Item", [&] {
        auto& [session, texts, op, clock, structure, printing] = with_;
        const QString key =
            structure.selectedItem().isEmpty() ? structure.selectedNode() : structure.selectedItem();
        if (session.CurrentUser.IDUser.isEmpty() || key.isEmpty())
            return;
        const Selection selection = Selection::ofKey(key);
        try {
            printing.print({session.AppTitle + QStringLiteral(" - ZEL Bus"), platform::Orientation::Portrait,
                            [&](platform::Printer& printer) { write(selection, printer); }},
                           [&] { return hasRows(selection); });
        } catch (const platform::RuntimeError& error) {
            if (error.number != platform::errors::kCancelled)
                throw;
            session::tellCancelled(session, texts, op);
        }
    });
}

bool PlantPrint::hasRows(const Selection& selection) const
{
    const bool empty = ReportRows(with_.session, selection).isEmpty();
    if (empty)
        with_.op.messageBox(with_.texts(570), platform::Buttons::Ok, platform::Icon::Exclamation,
                            with_.session.AppTitle);
    return !empty;
}

void PlantPrint::write(const Selection& selection, platform::Printer& printer) const
{
    const ReportRows rows(with_.session, selection);
    const ShownValues shown(with_.session);
    Progress progress(with_.structure, with_.op, rows.atMost());
    printer.setFont(QStringLiteral("Courier New"));
    platform::PrintedPages pages(printer,
                                 {kHeadSize, kRowSize, kRowsOnPage, [this](int page) { return foot(page); }});

    int group = 0, instrument = 0; // of the last row; numbers begin at 1
    qint64 printed = 0;
    rows.each([&](const ReportRow& row) {
        const bool newGroup = row.number(ReportRow::IDGrp) != group || pages.page() == 0;
        const bool newInstrument = newGroup || row.number(ReportRow::IDInst) != instrument;
        QStringList block{u"\t " % row.text(ReportRow::ParDes) % u" = " % shown.of(row)};
        if (newInstrument)
            block = QStringList{rule(u'-'), instrumentLine(row)} + block;

        if (newGroup || pages.isFull() || !pages.hasRoomFor(block))
            pages.beginPage(head(row));
        if (newInstrument)
            pages.rule(block.takeFirst());
        for (const QString& line : block)
            pages.row(line);
        group = row.number(ReportRow::IDGrp);
        instrument = row.number(ReportRow::IDInst);
        progress.to(++printed);
        return true;
    });
    pages.finish();
}

QStringList PlantPrint::head(const ReportRow& row) const
{
    QString group =
        with_.texts(session::rows::kEquipment) % u": " % fixed(row.text(ReportRow::GrpName), kGroupNameWidth);
    if (!row.isNull(ReportRow::Phone))
        group += with_.texts(session::rows::kPhoneLabel) % u' ' % row.text(ReportRow::Phone);
    return {rule(u'*'), QString(5, u'\t') % with_.session.AppTitle % u" - ZEL Bus", rule(u'-'), group};
}

QString PlantPrint::instrumentLine(const ReportRow& row) const
{
    const QString line = with_.texts(session::rows::kInstrument) % u": " %
                         fixed(row.text(ReportRow::InstName), kInstrumentNameWidth);
    if (row.isNull(ReportRow::Address))
        return line;
    return line % with_.texts(2) % u' ' % row.text(ReportRow::Address);
}

QString PlantPrint::foot(int page) const
{
    return u'\t' % with_.clock.now().toString("dd/MM/yyyy") % u'\t' % with_.texts(session::rows::kPage) %
           QString::number(page);
}

} // namespace exchange
