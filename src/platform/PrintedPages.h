#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace platform {

class Printer;

// Every tab stands for blanks up to the next column that eight divides, on paper, in a file and in a preview.
inline constexpr int kTabWidth = 8;
QString withoutTabs(const QString& line);

// A row as the lines that it takes on paper of so many columns: one that is wider goes on in the next line. A
// control character prints as a blank.
QStringList printedLines(const QString& row, int columns);

// The pages of a report: a head on top, rows below it, a foot. A page is full when it holds its number of
// rows, and also when the paper ends; the place of the foot is always kept free.
class PrintedPages
{
public:
    struct Look
    {
        int headSize = 10; // of head and foot, in points
        int rowSize = 9;
        int rows = 68;
        std::function<QString(int page)> foot = {}; // by number from 1; none without it
    };

    PrintedPages(Printer& printer, Look look);

    // Whether rows come on the page still. Before the first page none do.
    bool hasRoomFor(const QStringList& rows) const;
    // Whether the page holds as many rows as it should.
    bool isFull() const { return printed_ >= look_.rows; }
    int page() const { return page_; }

    // Ends the page there is with its foot and begins the next one.
    void beginPage(const QStringList& head);
    // Prints a row; each line that it takes counts. A rule counts as none.
    void row(const QString& text) { printed_ += lines(text); }
    void rule(const QString& text) { lines(text); }
    // The foot of the last page. Without a page there is nothing to end.
    void finish();

private:
    int lines(const QString& text);
    double footHeight() const;
    void endPage();

    Printer& printer_;
    Look look_;
    int page_ = 0;
    int printed_ = 0;
};

} // namespace platform
