#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace platform {

// Paper that is written line by line, in one font of fixed pitch. Lengths are in points, from the top of what
// can be printed on.
class Printer
{
public:
    virtual ~Printer() = default;

    virtual void setFont(const QString& family) = 0;
    virtual void setFontSize(int points) = 0;
    // How many characters a line of the font holds, and how high it is.
    virtual int columns() const = 0;
    virtual double lineHeight(int points) const = 0;
    // What is left of the page below the last line.
    virtual double heightLeft() const = 0;

    // Prints a line and moves below it. What is wider than the paper is lost: see PrintedPages.
    virtual void printLine(const QString& line) = 0;
    // Goes on at the top of the next page.
    virtual void newPage() = 0;
};

struct PrinterInfo
{
    QString name;
    QString port;
    QString device; // the make
};

enum class Orientation
{
    Portrait,
    Landscape
};

// Something to print: what it is called in a queue, how the paper lies, and who writes its pages.
struct PrintReport
{
    QString title;
    Orientation orientation = Orientation::Portrait;
    // Writes all pages. A preview runs it once for each shape of the paper that the operator looks at.
    std::function<void(Printer&)> write;
};

struct PrintOrder
{
    QString printer;   // by name
    int copies = 1;    // on paper
    QString file = {}; // a PDF file instead of a printer
};

// The printers of the machine. Every failure is a RuntimeError: a printer that is not there any more, a file
// that can't be written. What fails, or is broken off by the report, prints nothing and leaves no file.
class Printers
{
public:
    virtual ~Printers() = default;

    virtual std::vector<PrinterInfo> installed() = 0;
    // The system's own choice by name, "" when there is none.
    virtual QString defaultPrinter() = 0;
    virtual void print(const PrintReport& report, const PrintOrder& order) = 0;
    // Shows the pages on the screen as the order would print them.
    virtual void preview(const PrintReport& report, const PrintOrder& order) = 0;
};

} // namespace platform
