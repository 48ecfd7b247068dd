#include "platform/PrintedPages.h"

#include "platform/Printer.h"

#include <algorithm>

namespace platform {

QString withoutTabs(const QString& line)
{
    QString text;
    text.reserve(line.size());
    for (const QChar character : line) {
        if (character == u'\t')
            text.resize((text.size() / kTabWidth + 1) * kTabWidth, u' ');
        else
            text += character.category() == QChar::Other_Control ? QChar(u' ') : character;
    }
    return text;
}

QStringList printedLines(const QString& row, int columns)
{
    const QString text = withoutTabs(row);
    const qsizetype width = std::max(columns, 1);
    QStringList lines{text.left(width)};
    for (qsizetype begin = width; begin < text.size(); begin += width)
        lines << text.mid(begin, width);
    return lines;
}

PrintedPages::PrintedPages(Printer& printer, Look look) : printer_(printer), look_(std::move(look))
{
    printer_.setFontSize(look_.rowSize);
}

bool PrintedPages::hasRoomFor(const QStringList& rows) const
{
    if (page_ == 0)
        return false;
    qsizetype lines = 0;
    for (const QString& row : rows)
        lines += printedLines(row, printer_.columns()).size();
    return double(lines) * printer_.lineHeight(look_.rowSize) + footHeight() <= printer_.heightLeft();
}

void PrintedPages::beginPage(const QStringList& head)
{
    if (page_ > 0) {
        endPage();
        printer_.newPage();
    }
    ++page_;
    printed_ = 0;
    printer_.setFontSize(look_.headSize);
    for (const QString& line : head)
        lines(line);
    printer_.setFontSize(look_.rowSize);
}

void PrintedPages::finish()
{
    if (page_ > 0)
        endPage();
}

int PrintedPages::lines(const QString& text)
{
    const QStringList lines = printedLines(text, printer_.columns());
    for (const QString& line : lines)
        printer_.printLine(line);
    return int(lines.size());
}

double PrintedPages::footHeight() const
{
    return look_.foot ? printer_.lineHeight(look_.headSize) : 0;
}

void PrintedPages::endPage()
{
    while (!isFull() && hasRoomFor({QString()}))
        row(QString());
    if (!look_.foot)
        return;
    printer_.setFontSize(look_.headSize);
    lines(look_.foot(page_));
}

} // namespace platform
