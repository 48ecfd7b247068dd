#include "events/EventReport.h"

#include <algorithm>

namespace events {

namespace {

constexpr int kWidths[kEventColumns] = {20, 19, 20, 50, 50, 255};

QString printable(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(u' '));
    return text;
}

} // namespace

QString fixedLine(const QStringList& cells)
{
    QStringList columns;
    for (qsizetype i = 0; i < cells.size(); ++i)
        columns << printable(cells[i]).leftJustified(kWidths[i], QLatin1Char(' '), true);
    return columns.join(QLatin1Char(' '));
}

QString commaLine(const QStringList& cells)
{
    return printable(cells.join(QLatin1Char(',')));
}

} // namespace events
