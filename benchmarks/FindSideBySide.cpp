// Measures "Find in company" and "Pending writes" against the engine's own shell running the same search on
// the same company, in one run: calidora-find-side-by-side <file>
//
// Both read a warm file, in turns, and the median of several runs counts.

#include "Measure.h"
#include "Shell.h"

#include "structure/PendingWrites.h"
#include "structure/PlantSearch.h"

#include <QTextStream>

namespace {

const QString kLanguage = QStringLiteral("EN");

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

const structure::StopFlag kNeverStopped = false;

void measureSearch(const Shell& shell, const QString& file, const QString& text)
{
    structure::Findings findings;
    const auto ours = [&] {
        return measure::milliseconds(
            [&] { findings = structure::findInPlant(file, kLanguage, text, kNeverStopped); });
    };
    const measure::Comparison search =
        measure::inTurns(ours, [&] { return shell.milliseconds(searchStatements(text)); });
    if (!findings.failure.isEmpty())
        qFatal("%s", qPrintable(findings.failure));
    measure::printLine(QStringLiteral("Find in company \"%1\"").arg(text), search,
                       QStringLiteral("%1 found").arg(qsizetype(findings.items.size()) + findings.more));
}

void measurePending(const Shell& shell, const QString& file)
{
    structure::PendingWrites pending;
    const auto ours = [&] {
        return measure::milliseconds(
            [&] { pending = structure::readPendingWrites(file, kLanguage, kNeverStopped); });
    };
    const measure::Comparison search =
        measure::inTurns(ours, [&] { return shell.milliseconds({QLatin1String(kPendingStatement)}); });
    if (!pending.failure.isEmpty())
        qFatal("%s", qPrintable(pending.failure));
    measure::printLine(QStringLiteral("Pending writes"), search,
                       QStringLiteral("%1 found").arg(pending.items.size()));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-find-side-by-side <file>\n";
        return 2;
    }
    const QString file = QString::fromLocal8Bit(argv[1]);
    const Shell shell(file);
    // Many, some, few and none; a name, a value and a word of another alphabet.
    for (const char* text : {"Parameter", "INST77", "choice 2", "42.5", "100%_", "камера"})
        measureSearch(shell, file, QString::fromUtf8(text));
    measurePending(shell, file);
    return 0;
}
