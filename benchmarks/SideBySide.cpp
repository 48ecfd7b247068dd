// Measures the program against the engine's own shell on the same company, in one run: calidora-side-by-side
// <file>
//
// Both read a warm file and the best of several runs counts. The shell's start is measured and taken off.
// What is printed is a ratio, so that the numbers of two machines can be compared.

#include "database/Database.h"
#include "platform/Guard.h"
#include "platform/ScriptedOperator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int kRuns = 5;

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

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

// The shell runs the statements and throws their rows away.
double shellMilliseconds(const QString& file, const QStringList& statements)
{
    const QByteArray input = ".output /dev/null\n" + statements.join('\n').toUtf8() + '\n';
    return bestMilliseconds([&] {
        QProcess shell;
        shell.start("sqlite3", {file});
        shell.write(input);
        shell.closeWriteChannel();
        if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
            qFatal("sqlite3: %s", shell.readAllStandardError().constData());
    });
}

double residentMegabytes()
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void report(const QString& what, double ours, double shells)
{
    out() << qSetFieldWidth(34) << Qt::left << what << qSetFieldWidth(0)
          << QString::asprintf("%9.2f ms  shell %9.2f ms  ratio %.2f\n", ours, shells, ours / shells);
    out().flush();
}

// The company in a program without windows.
struct Program
{
    session::Session session;
    session::Texts texts{session.Language};
    platform::ScriptedOperator op;
    structure::Structure structure{session, texts, op};
    database::Database database{session, texts, op, structure};

    explicit Program(const QString& file)
    {
        session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
        session.DbPath = QFileInfo(file).absolutePath();
        session.DbName = QFileInfo(file).fileName();
    }
    void connect()
    {
        if (!database.Connect_Database(session.dbFile()))
            qFatal("no connection");
    }
    void disconnect()
    {
        const QString name = session.DbName;
        database.Disconnect_Database();
        session.DbName = name;
    }
};

// The statements of a connect, in their order, as the program runs them.
QStringList statementsOfConnect()
{
    return {
        "SELECT * FROM tbInstrument ORDER BY mID;",
        "SELECT tbParam.*, tbParamType.mTag AS KeyType, tbParamLanguage.mDesc AS Des FROM (tbParamType INNER "
        "JOIN "
        "tbParam ON tbParamType.mID = tbParam.mKeyType) INNER JOIN tbParamLanguage ON tbParam.mID = "
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
        "GROUP BY "
        "tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
        "tbParamGroupLanguage.mDesc "
        "ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp;",
    };
}

void measureConnect(Program& program, const QString& file, double shellStart)
{
    program.connect();
    const double memory = residentMegabytes();
    const double ours = bestMilliseconds([&] {
        program.disconnect();
        program.connect();
    });
    report("Connect_Database", ours, shellMilliseconds(file, statementsOfConnect()) - shellStart);
    out() << QString::asprintf("  %d nodes, %.0f MB resident after the first, %.0f MB after %d more\n",
                               program.structure.tree().nodeCount(), memory, residentMegabytes(), kRuns);
}

// Many nodes of one level, loaded one after the other; the shell runs each node's statement.
void measureLoads(Program& program, const QString& file, double shellStart, const char* level,
                  const QStringList& keys)
{
    QStringList statements;
    for (const QString& key : keys) {
        program.structure.Load_Items_ListBus(key);
        statements << program.session.strSQL;
    }
    const double ours = bestMilliseconds([&] {
        for (const QString& key : keys)
            program.structure.Load_Items_ListBus(key);
    });
    const double shells = shellMilliseconds(file, statements) - shellStart;
    report(QString("Load_Items_ListBus, %1 x %2").arg(level).arg(keys.size()), ours, shells);
}

QStringList childKeys(const structure::TreeModel& tree, const QString& key, int most)
{
    QStringList keys;
    const QModelIndex parent = tree.indexOf(key);
    for (int row = 0; row < std::min(most, tree.rowCount(parent)); ++row)
        keys << tree.keyOf(tree.index(row, 0, parent));
    return keys;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-side-by-side <file>\n";
        return 2;
    }
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    const QString file = QString::fromLocal8Bit(argv[1]);
    const double shellStart = shellMilliseconds(file, {"SELECT 1;"});
    Program program(file);
    measureConnect(program, file, shellStart);

    const structure::TreeModel& tree = program.structure.tree();
    const QStringList groups = childKeys(tree, "Root", 200);
    QStringList instruments, paramGroups;
    for (const QString& group : groups)
        instruments += childKeys(tree, group, 1);
    for (const QString& instrument : instruments)
        paramGroups += childKeys(tree, instrument, 1);
    measureLoads(program, file, shellStart, "root", QStringList("Root"));
    measureLoads(program, file, shellStart, "group", groups);
    measureLoads(program, file, shellStart, "instrument", instruments);
    measureLoads(program, file, shellStart, "parameter group", paramGroups);
    return 0;
}
