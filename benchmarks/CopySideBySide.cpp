// Measures the copies of a large company against the system's own tools on the same file in the same run:
// calidora-copy-side-by-side <company file>
//
// A copy stands against cp and sync, a connect that begins a safety copy against one that doesn't, an upgrade
// against the same files copied so and the engine's shell running the same five statements. Both work in
// turns beside the company, and the median of several runs counts.

#include "Measure.h"

#include "database/CompanyCheck.h"
#include "database/CompanyUpgrade.h"
#include "database/Database.h"
#include "database/FileChoice.h"
#include "database/Safekeeping.h"
#include "database/SafetyCopies.h"
#include "platform/QtClock.h"
#include "platform/ScriptedOperator.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

const QStringList kTables{"tbCompanySettings", "tbGroupsUser", "tbInstrumentsUser", "tbParametersUser",
                          "tbUsers"};

void sh(const QString& command)
{
    if (QProcess::execute(QStringLiteral("/bin/sh"), {QStringLiteral("-ec"), command}) != 0)
        QTextStream(stderr) << "failed: " << command << '\n';
}

QString quoted(const QString& path)
{
    return u'"' + path + u'"';
}

QString copyAndSync(const QString& from, const QString& to)
{
    return QStringLiteral("cp %1 %2; sync %2; ").arg(quoted(from), quoted(to));
}

// An application folder with the company and a model of its catalogue, beside the company that was given.
class Workplace
{
public:
    explicit Workplace(const QString& company) : folder_(QFileInfo(company).absolutePath() + "/copies-XXXXXX")
    {
        for (const char* below : {"Data", "Data Model", "Backup"})
            QDir(folder_.path()).mkpath(below);
        QFile::copy(company, plant());
        QFile::copy(company, model());
        SQLite::Database engine(model().toStdString(), SQLite::OPEN_READWRITE);
        for (const char* table :
             {"tbParametersUser", "tbInstrumentsUser", "tbGroupsUser", "tbUsers", "tbCompanySettings"})
            engine.exec(std::string("DELETE FROM ") + table);
        engine.exec("VACUUM");
        session.AppPath = folder_.path();
        session.DbPath = file("Data");
        session.DbName = "Plant.mdb";
        session.DirBackup = file("Backup");
        session.CurrentUser.IDUser = "0";
        session.CurrentUser.UpgradeDb = "-1";
        session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
    }

    QString file(const QString& below) const { return folder_.filePath(below); }
    QString plant() const { return file("Data/Plant.mdb"); }
    QString model() const { return file("Data Model/") + database::kModelName; }

    session::Session session;
    session::Texts texts{session.Language};
    platform::ScriptedOperator op;
    platform::QtClock clock;
    structure::Structure structure{session, texts, op};
    database::Database database{session, texts, op, structure};
    database::Safekeeping safekeeping{{session, texts, op, clock, database}};
    database::CompanyUpgrade upgrade{{session, texts, op, clock, database}};

private:
    QTemporaryDir folder_;
};

void measureCopy(Workplace& at)
{
    const QString ours = at.file("Backup/Ours.bak"), theirs = at.file("Backup/Theirs.bak");
    const measure::Comparison copies = measure::inTurns(
        [&] {
            return measure::milliseconds([&] {
                at.safekeeping.Copy_Database(at.file("Data"), "Plant.mdb", at.file("Backup"), "Ours.bak");
            });
        },
        [&] { return measure::milliseconds([&] { sh(copyAndSync(at.plant(), theirs)); }); });
    measure::printLine(QStringLiteral("Copy_Database, %1 MB").arg(QFileInfo(at.plant()).size() >> 20), copies,
                       "<= 1.30");
    measure::printFigure("  the check of a backup, or of a file to restore",
                         QString::asprintf("%.0f ms", measure::milliseconds([&] {
                                               database::checkCompany(ours, ours, at.texts);
                                           })));
}

// A safety copy is due at each of these connects; it goes on in small steps when they are over.
void measureConnect(Workplace& at)
{
    const auto connect = [&](bool withCopy) {
        database::SafetyCopies copies(at.session, at.clock);
        const double milliseconds = measure::milliseconds([&] {
            at.database.Connect_Database(at.session.dbFile());
            if (withCopy)
                copies.companyOpened();
        });
        const bool begun = copies.isCopying();
        const QString name = at.session.DbName;
        at.database.Disconnect_Database();
        at.session.DbName = name;
        if (begun != withCopy)
            qFatal("the safety copy was not begun");
        return milliseconds;
    };
    QDir().mkpath(at.file("Data/Safety"));
    const measure::Comparison connects =
        measure::inTurns([&] { return connect(true); }, [&] { return connect(false); });
    measure::printLine("Connect with a safety copy due, and without one", connects, "<= 1.10");
}

void measureUpgrade(Workplace& at)
{
    const QString copyOf = at.file("Data/Shell.mdb");
    QString statements = QStringLiteral("ATTACH '%1' AS c;").arg(copyOf);
    for (const QString& table : kTables)
        statements += QStringLiteral("INSERT INTO c.%1 SELECT %1.* FROM %1;").arg(table);
    const QString command =
        copyAndSync(at.model(), copyOf) +
        QStringLiteral("sqlite3 %1 %2; ").arg(quoted(at.plant()), quoted(statements)) +
        copyAndSync(at.plant(), at.file("Backup/Shell.bak")) +
        copyAndSync(copyOf, at.file("Data/Upgraded.mdb")) +
        QStringLiteral("rm %1 %2").arg(quoted(copyOf), quoted(at.file("Backup/Shell.bak")));
    double milliseconds = 0;
    at.op.onModal = [&](const QString&) {
        at.op.expect("Updating completed successfully.");
        milliseconds = measure::milliseconds([&] { at.upgrade.cmdUpgrade_Click(); });
    };
    at.database.Connect_Database(at.session.dbFile());
    const measure::Comparison upgrades = measure::inTurns(
        [&] {
            at.upgrade.Upgrade_Database();
            return milliseconds;
        },
        [&] { return measure::milliseconds([&] { sh(command); }); });
    at.database.Disconnect_Database();
    measure::printLine("Upgrade, the five tables and the copies", upgrades, "<= 1.50");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-copy-side-by-side <company file>\n";
        return 2;
    }
    Workplace at(QString::fromLocal8Bit(argv[1]));
    measure::printHead();
    measureCopy(at);
    measureConnect(at);
    measureUpgrade(at);
    return 0;
}
