#include "line/EventRow.h"

#include <QStringList>

namespace line {

namespace {

// As a log file shows it: cut to its width, with a blank for what can't be shown.
QString shown(QString text, int width)
{
    for (QChar& letter : text)
        if (letter < QLatin1Char(' '))
            letter = QLatin1Char(' ');
    return text.left(width).trimmed();
}

} // namespace

QString rowText(const QString& type, const QString& date, const QString& source, const QString& equipment,
                const QString& instrument, const QString& description)
{
    return QStringList{
        type, date, source, shown(equipment, 50), shown(instrument, 50), shown(description, 255)}
        .join(QLatin1Char('|'));
}

QString rowOfLine(const QString& line)
{
    return rowText(line.mid(0, 1), line.mid(1, 19), line.mid(20, 3).trimmed(), line.mid(23, 50),
                   line.mid(73, 50), line.mid(123, 255));
}

} // namespace line
