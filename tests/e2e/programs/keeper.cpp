// Does one of the works that replace a company's file, over and over, to be killed in the middle of it. Its
// argument is the work: backup, restore, upgrade, new or safety. It tells on its standard output
//
//   company FILE
//   # N         the company holds change N from here on, in the name of its first group; told before it is
//   made = N         the work has been completed on change N anything    the work is at another step

#include "database/CompanyCopies.h"
#include "database/SafekeepingFixture.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <map>
#include <unistd.h>

namespace {

using database::CompanyUpgrade;
using database::Safekeeping;
using database::SafetyCopies;

// Straight to the pipe: nothing that was told may be lost with the process.
void tell(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (write(STDOUT_FILENO, bytes.constData(), std::size_t(bytes.size())) < 0)
        _exit(1);
}

class Keeper : public support::SafekeepingFixture
{
public:
    Keeper()
    {
        QDir().mkpath(file("Data/Safety"));
        grow();
        op.onModal = [this](const QString&) { upgrade.cmdUpgrade_Click(); };
        QObject::connect(&database, &database::Database::opened, &copies, &SafetyCopies::companyOpened);
        QObject::connect(&database, &database::Database::progress, [](int) { tell("connecting"); });
        QObject::connect(&safekeeping, &Safekeeping::copyProgress, [](int) { tell("copying"); });
        QObject::connect(&upgrade, &CompanyUpgrade::copyProgress, [](int) { tell("copying"); });
        QObject::connect(&upgrade, &CompanyUpgrade::tableChanged, [](const QString&) { tell("table"); });
        QObject::connect(&upgrade, &CompanyUpgrade::progress, [](int) { tell("step"); });
        tell("company " + plantFile());
    }

    void work(const std::string& name)
    {
        const std::map<std::string, void (Keeper::*)()> works{{"backup", &Keeper::backup},
                                                              {"restore", &Keeper::restore},
                                                              {"upgrade", &Keeper::upgradeCompany},
                                                              {"new", &Keeper::makeNew},
                                                              {"safety", &Keeper::makeSafetyCopy}};
        connectPlant();
        for (int change = 1;; ++change) {
            tell(QStringLiteral("# %1").arg(change));
            session.cnDatabase.Execute(
                QStringLiteral("UPDATE tbGroupsUser SET Name = '%1' WHERE IDGrp = 1").arg(change));
            (this->*works.at(name))();
            tell(QStringLiteral("= %1").arg(change));
        }
    }

private:
    void TestBody() override {}

    // Large enough that a copy takes several writes.
    void grow()
    {
        runOnPlant(R"(
            BEGIN;
            INSERT INTO tbInstrumentsUser WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 400)
              SELECT 1, i, 'KT100', 'MANY', NULL, '11' FROM n;
            INSERT INTO tbParametersUser
              SELECT 1, tbInstrumentsUser.IDInst, tbParam.mID, tbParam.mKeyParGroup, hex(randomblob(100)), 0
              FROM tbInstrumentsUser, tbParam WHERE tbInstrumentsUser.IDInst >= 10 AND tbParam.mKeyParGroup = 'G01';
            COMMIT;)");
    }

    void backup()
    {
        op.chooseFile(file("Backup/Plant.bak"));
        op.expect("Copy of backup completed successfully.");
        safekeeping.Backup_Database();
    }
    // The backup of the change before comes back over the company.
    void restore()
    {
        backup();
        op.chooseFile(file("Backup/Plant.bak"));
        op.chooseFile(plantFile());
        op.expect("Restoring completed successfully.");
        safekeeping.Restore_Database();
    }
    void upgradeCompany()
    {
        op.expect("Updating completed successfully.");
        upgrade.Upgrade_Database();
    }
    // Over the one of the last time.
    void makeNew()
    {
        database.Disconnect_Database();
        op.chooseFile(file("Data/Fresh.mdb"));
        database.New_Database();
        database.Disconnect_Database();
        connectPlant();
    }
    void makeSafetyCopy()
    {
        clock.run(25LL * 60 * 60 * 1000);
        connectPlant();
        for (int tick = 0; copies.isCopying(); ++tick) {
            tell("tick");
            clock.run(50);
        }
    }

    CompanyUpgrade upgrade{{session, texts, op, clock, database}};
    SafetyCopies copies{session, clock};
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 2)
        Keeper().work(argv[1]);
}
