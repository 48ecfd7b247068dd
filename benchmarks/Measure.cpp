#include "Measure.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>
#include <algorithm>
#include <vector>

namespace measure {

namespace {

void printRow(const QString& what, const QString& ours, const QString& theirs, const QString& ratio,
              const QString& target)
{
    QTextStream out(stdout);
    out << what.leftJustified(44) << ours.rightJustified(13) << theirs.rightJustified(13)
        << ratio.rightJustified(8) << "  " << target << '\n';
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

QString shown(double milliseconds)
{
    return QStringLiteral("%1 ms").arg(milliseconds, 0, 'f', 2);
}

} // namespace

double milliseconds(const Work& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

Comparison inTurns(const std::function<double()>& ours, const std::function<double()>& theirs, int runs)
{
    std::vector<double> our, their;
    for (int run = 0; run < runs; ++run) {
        our.push_back(ours());
        their.push_back(theirs());
    }
    return {median(our), median(their)};
}

double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void printHead()
{
    printRow({}, QStringLiteral("program"), QStringLiteral("shell"), QStringLiteral("ratio"),
             QStringLiteral("target"));
}

void printLine(const QString& what, const Comparison& comparison, const QString& target)
{
    printRow(what, shown(comparison.ours), shown(comparison.theirs),
             QString::number(comparison.ratio(), 'f', 2), target);
}

void printFigure(const QString& what, const QString& figure, const QString& target)
{
    printRow(what, figure, {}, {}, target);
}

} // namespace measure
