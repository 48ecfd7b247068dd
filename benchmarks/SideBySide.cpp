// Measures the program against the engine's own shell on the same large company:
// calidora-side-by-side <company file>
//
// Both read a warm file, in turns, and the median of several runs counts. What is printed is a ratio, so that
// the figures of two machines can be compared.

#include "Measure.h"
#include "Shell.h"
#include "WindowedProgram.h"

#include "platform/ScriptedOperator.h"
#include "structure/Structure.h"

#include <QTextStream>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <sqlite3.h>

namespace {

const QString kRatio = QStringLiteral("<= 1.50");

// The statements of a connect, in their order, as the program runs them.
QStringList statementsOfConnect()
{
    return {
        "SELECT * FROM tbInstrument ORDER BY mID;",
        "SELECT tbParam.*, tbParamType.mTag AS KeyType, tbParamLanguage.mDesc AS Des FROM (tbParamType INNER "
        "JOIN tbParam ON tbParamType.mID = tbParam.mKeyType) INNER JOIN tbParamLanguage ON tbParam.mID = "
        "tbParamLanguage.mID WHERE (tbParamLanguage.mKeyLang = 'EN') ORDER BY tbParam.mID;",
        "SELECT tbParamEnum.mID, tbParamEnum.mKeyParam, tbParamEnumLanguage.mDesc, tbParamEnum.mValue FROM "
        "tbParamEnum INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID WHERE "
        "(tbParamEnumLanguage.mKeyLang = 'EN') ORDER BY tbParamEnum.mID;",
        "SELECT * FROM tbInstMem ORDER BY mID;",
        "SELECT * FROM tbUsers ORDER BY Name;",
        "SELECT * FROM tbGroupsUser ORDER BY Name;",
        "SELECT * FROM tbInstrumentsUser ORDER BY Name;",
        "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
        "tbParamGroupLanguage.mDesc AS Name FROM tbParametersUser INNER JOIN tbParamGroupLanguage ON "
        "tbParametersUser.IDParGrp = tbParamGroupLanguage.mID WHERE (tbParamGroupLanguage.mKeyLang = 'EN') "
        "GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
        "tbParamGroupLanguage.mDesc ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, "
        "tbParametersUser.IDParGrp;",
    };
}

void measureConnect(WindowedProgram& program, const Shell& shell)
{
    program.connect();
    const double memory = measure::residentMegabytes();
    const auto ours = [&] {
        program.disconnect();
        return measure::milliseconds([&] { program.connect(); });
    };
    const measure::Comparison connect =
        measure::inTurns(ours, [&] { return shell.milliseconds(statementsOfConnect()); });
    measure::printLine(QStringLiteral("Connect_Database, %1 nodes, window included")
                           .arg(program.program.structure().tree().nodeCount()),
                       connect, QStringLiteral("<= 0.70"));
    measure::printFigure(QStringLiteral("  resident after the first connect"),
                         QString::asprintf("%.0f MB", memory), QStringLiteral("<= 300 MB"));
    measure::printFigure(QStringLiteral("  resident after all of them"),
                         QString::asprintf("%.0f MB", measure::residentMegabytes()),
                         QStringLiteral("<= 300 MB"));
}

// Every node from the root down through the first groups: the list is loaded, the menus follow, the windows
// are painted.
void measureWalk(WindowedProgram& program, const QString& what, int steps)
{
    double slowest = 0, all = 0;
    program.program.structure().selectNode(QStringLiteral("Root"));
    for (int step = 0; step < steps; ++step) {
        const double one = measure::milliseconds([&] { program.pressInTree(Qt::Key_Down); });
        slowest = std::max(slowest, one);
        all += one;
    }
    measure::printFigure(what, QString::asprintf("%.2f ms", all / steps),
                         QString::asprintf("a step; the slowest %.2f ms", slowest));
}

void measureWalks(WindowedProgram& program)
{
    measureWalk(program, QStringLiteral("Arrow keys down the groups"), 500);
    const double opened =
        measure::milliseconds([&] { program.program.structure().ExpandCollapse_TreeBusNodes(1); });
    measure::printFigure(QStringLiteral("Expand, all nodes"), QString::asprintf("%.2f ms", opened));
    measureWalk(program, QStringLiteral("Arrow keys through the open tree"), 1000);
}

// The structure of the company by itself: the loading without the painting.
class Plant
{
public:
    explicit Plant(const QString& file)
    {
        session_.Language = session::LanguageSettings::fromIdentifier(QStringLiteral("EN_English_2000"));
        session_.cnDatabase.Open(file);
    }

    void load(const QStringList& keys)
    {
        for (const QString& key : keys)
            structure_.Load_Items_ListBus(key);
    }

    // What the engine is asked while these nodes are loaded, in that order.
    QStringList statementsOf(const QStringList& keys)
    {
        sqlite3* engine = session_.cnDatabase.database().getHandle();
        QStringList statements;
        sqlite3_trace_v2(engine, SQLITE_TRACE_STMT, &Plant::note, &statements);
        load(keys);
        sqlite3_trace_v2(engine, 0, nullptr, nullptr);
        return statements.filter(QStringLiteral("SELECT"));
    }

private:
    static int note(unsigned, void* statements, void*, void* sql)
    {
        *static_cast<QStringList*>(statements) << QString::fromUtf8(static_cast<const char*>(sql));
        return 0;
    }

    session::Session session_;
    session::Texts texts_{session_.Language};
    platform::ScriptedOperator op_;
    structure::Structure structure_{session_, texts_, op_};
};

void measureLoads(Plant& plant, const Shell& shell, const QString& level, const QStringList& keys)
{
    const QStringList asked = plant.statementsOf(keys);
    const QStringList own = asked.filter(QStringLiteral("User"));
    const QString nodes = QStringLiteral("Load_Items_ListBus, %1 x %2").arg(level).arg(keys.size());
    const auto measureAgainst = [&](const QString& what, const QStringList& statements) {
        const auto ours = [&] { return measure::milliseconds([&] { plant.load(keys); }); };
        const measure::Comparison loads =
            measure::inTurns(ours, [&] { return shell.milliseconds(statements); });
        measure::printLine(what, loads, kRatio);
    };
    measureAgainst(nodes, own);
    if (asked.size() > own.size())
        measureAgainst(QStringLiteral("  the shell looks the choices up too"), asked);
}

QStringList childKeys(const structure::TreeModel& tree, const QString& key, int most)
{
    QStringList keys;
    const QModelIndex parent = tree.indexOf(key);
    for (int row = 0; row < std::min(most, tree.rowCount(parent)); ++row)
        keys << tree.keyOf(tree.index(row, 0, parent));
    return keys;
}

// Nodes of one level are loaded one after the other, many enough that the clock can tell.
void measureAllLoads(const structure::TreeModel& tree, Plant& plant, const Shell& shell)
{
    const QStringList groups = childKeys(tree, QStringLiteral("Root"), 500);
    QStringList instruments, paramGroups;
    for (const QString& group : groups)
        instruments += childKeys(tree, group, 1);
    for (const QString& instrument : instruments)
        paramGroups += childKeys(tree, instrument, 1);
    measureLoads(plant, shell, QStringLiteral("root"), QStringList(50, QStringLiteral("Root")));
    measureLoads(plant, shell, QStringLiteral("group"), groups);
    measureLoads(plant, shell, QStringLiteral("instrument"), instruments);
    measureLoads(plant, shell, QStringLiteral("parameter group"), paramGroups);
}

} // namespace

int main(int argc, char** argv)
{
    const OffscreenApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-side-by-side <company file>\n";
        return 2;
    }
    const QString file = QString::fromLocal8Bit(argv[1]);
    const Shell shell(file);
    measure::printHead();
    WindowedProgram program(file);
    measureConnect(program, shell);
    Plant plant(file);
    measureAllLoads(program.program.structure().tree(), plant, shell);
    measureWalks(program);
    return 0;
}
