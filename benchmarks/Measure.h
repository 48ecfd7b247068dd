#pragma once

#include <QString>
#include <functional>

namespace measure {

using Work = std::function<void()>;

double milliseconds(const Work& work);

// Two pieces of work, each the median of several runs in milliseconds. They run in turns, so that what else
// the machine does falls on both.
struct Comparison
{
    double ours = 0;
    double theirs = 0;

    double ratio() const { return ours / theirs; }
};
Comparison inTurns(const std::function<double()>& ours, const std::function<double()>& theirs, int runs = 9);

// Of this process: what lies in memory now.
double residentMegabytes();

// The table's head, and one line of it.
void printHead();
void printLine(const QString& what, const Comparison& comparison, const QString& target);
// A figure that is compared with nothing but its target.
void printFigure(const QString& what, const QString& figure, const QString& target = {});

} // namespace measure
