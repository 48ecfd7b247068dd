// Measures "Find in plant" and "Pending writes" against the engine's own shell running the same search on the
// same company, in one run: calidora-find-side-by-side <file>
//
// Both read a warm file and the best of several runs counts. The shell's start is measured and taken off.

#include "structure/PendingWrites.h"
#include "structure/PlantSearch.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int kRuns = 5;
const QString kLanguage = "EN";

double bestMilliseconds(const std::function<void()>& work)
{
    double best = HUGE_VAL;
    for (int run = 0; run < kRuns; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

double shellMilliseconds(const QString& file, const QStringList& statements)
{
    const QByteArray input = ".output /dev/null\n" + statements.join('\n').toUtf8() + '\n';
    return bestMilliseconds([&] {
        QProcess shell;
        shell.start("sqlite3", {"-readonly", file});
        shell.write(input);
        shell.closeWriteChannel();
        if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
            qFatal("sqlite3: %s", shell.readAllStandardError().constData());
    });
}

// One statement a kind, the text as a pattern whose own signs are escaped. The shell doesn't know how values
// are shown: it looks at what is stored, and at the words of the choices.
QStringList searchStatements(QString text)
{
    text.replace("\\", "\\\\").replace("%", "\\%").replace("_", "\\_").replace("'", "''");
    const QString like = " LIKE '%" + text + "%' ESCAPE '\\'";
    return {
        "SELECT IDGrp, Name, Description, Phone FROM tbGroupsUser WHERE (Name" + like + " OR Description" +
            like + " OR Phone" + like + ") ORDER BY Name;",
        "SELECT i.*, g.Name FROM tbInstrumentsUser i INNER JOIN tbGroupsUser g ON i.IDGrp = g.IDGrp WHERE "
        "(i.Name" +
            like + " OR i.Address" + like + " OR i.Description" + like + " OR i.IDItem" + like +
            ") ORDER BY g.Name, i.Name;",
        "SELECT u.*, l.mDesc, p.mDP, p.mUnit, e.mDesc FROM tbParametersUser u INNER JOIN tbParam p ON "
        "u.IDPar = "
        "p.mID INNER JOIN tbParamLanguage l ON l.mID = p.mID AND l.mKeyLang = 'EN' LEFT JOIN (tbParamEnum n "
        "INNER JOIN tbParamEnumLanguage e ON e.mID = n.mID AND e.mKeyLang = 'EN') ON n.mKeyParam = u.IDPar "
        "AND "
        "n.mValue = u.Value WHERE (l.mDesc" +
            like + " OR p.mTag" + like + " OR u.Value" + like + " OR e.mDesc" + like + ");",
    };
}

const char* const kPendingStatement =
    "SELECT u.*, l.mDesc, g.Name, i.Name FROM tbParametersUser u INNER JOIN tbInstrumentsUser i ON u.IDGrp = "
    "i.IDGrp AND u.IDInst = i.IDInst INNER JOIN tbGroupsUser g ON g.IDGrp = i.IDGrp INNER JOIN "
    "tbParamLanguage l "
    "ON l.mID = u.IDPar AND l.mKeyLang = 'EN' WHERE u.State = 1 ORDER BY g.Name, i.Name, u.IDParGrp;";

void report(const QString& what, double ours, double shells, int listed)
{
    QTextStream(stdout) << qSetFieldWidth(34) << Qt::left << what << qSetFieldWidth(0)
                        << QString::asprintf("%9.2f ms  shell %9.2f ms  ratio %.2f  (%d found)\n", ours,
                                             shells, ours / shells, listed);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-find-side-by-side <file>\n";
        return 2;
    }
    const QString file = QString::fromLocal8Bit(argv[1]);
    const double shellStart = shellMilliseconds(file, {"SELECT 1;"});
    const structure::StopFlag stop = false;

    // Many, some, few and none; a name, a value and a word of another alphabet.
    for (const char* text : {"Parameter", "INST77", "choice 2", "42.5", "100%_", "камера"}) {
        structure::Findings findings;
        const double ours =
            bestMilliseconds([&] { findings = structure::findInPlant(file, kLanguage, text, stop); });
        if (!findings.failure.isEmpty())
            qFatal("%s", qPrintable(findings.failure));
        report(QString("Find in plant \"%1\"").arg(text), ours,
               shellMilliseconds(file, searchStatements(text)) - shellStart,
               int(findings.items.size()) + findings.more);
    }

    structure::PendingWrites pending;
    const double ours =
        bestMilliseconds([&] { pending = structure::readPendingWrites(file, kLanguage, stop); });
    if (!pending.failure.isEmpty())
        qFatal("%s", qPrintable(pending.failure));
    report("Pending writes", ours, shellMilliseconds(file, {kPendingStatement}) - shellStart,
           int(pending.items.size()));
    return 0;
}
