#include "events/EventPrint.h"

#include "events/EventModel.h"
#include "events/EventReport.h"
#include "platform/PrintedPages.h"
#include "platform/Printer.h"

namespace events {

namespace {

constexpr int kRuleWidth = 122;
constexpr int kRows = 45;

QString rule(char character)
{
    return QString(kRuleWidth, QLatin1Char(character));
}

// A row without the blanks behind its last text.
QString printed(const QStringList& cells)
{
    QString line = fixedLine(cells);
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

} // namespace

QStringList EventPrint::head(int page) const
{
    QStringList line{title, company, date.toString(QStringLiteral("dd/MM/yyyy")),
                     this->page + QString::number(page)};
    line.removeAll(QString());
    return {rule('*'), line.join(QLatin1String(" - ")), rule('-')};
}

void EventPrint::write(platform::Printer& printer, const EventModel& list) const
{
    printer.setFont(QStringLiteral("Courier New"));
    platform::PrintedPages::Look look;
    look.rows = kRows;
    look.foot = [](int) { return rule('-'); };
    platform::PrintedPages pages(printer, look);
    const auto& headings = list.words().headings;
    const QString heading = printed({headings.begin(), headings.end()});
    for (int row = 0; row < list.rowCount(); ++row) {
        if (!list.isChecked(row))
            continue;
        const QString line = printed(list.cells(row));
        if (pages.isFull() || !pages.hasRoomFor({line})) {
            pages.beginPage(head(pages.page() + 1));
            pages.rule(heading);
        }
        pages.row(line);
    }
    pages.finish();
}

} // namespace events
