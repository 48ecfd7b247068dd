// A process that is killed while it replaces a company's file: the company is whole each time, and the
// program's next start opens it.
#include "database/CompanyCheck.h"
#include "e2e/KilledProcess.h"
#include "support/CompanyFixture.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <iostream>
#include <set>

using namespace support;

namespace {

constexpr int kMostLines = 120;
constexpr int kMostMicroseconds = 4000;

int killsWanted()
{
    const QByteArray given = qgetenv("CALIDORA_KILLS");
    return given.isEmpty() ? 50 : given.toInt();
}

class KillSafekeeping : public CompanyFixture, public testing::WithParamInterface<const char*>
{
protected:
    QStringList workAndKill(const QString& folder)
    {
        return process_.run(QStringLiteral(CALIDORA_KEEPER), {GetParam()}, folder,
                            {3, kMostLines, kMostMicroseconds});
    }

    // The program opens it, and nothing but the change under way is open to doubt.
    void expectCompany(const QString& path, const std::set<QString>& changes)
    {
        session.DbPath = QFileInfo(path).absolutePath();
        ASSERT_TRUE(connectTo(QFileInfo(path).fileName())) << path.toStdString();
        database.Disconnect_Database();
        expectWhole(path, changes);
        EXPECT_EQ(column(path, "SELECT Count(*) FROM tbInstrumentsUser"), QStringList{"394"});
        EXPECT_EQ(column(path, "SELECT Count(*) FROM tbParametersUser WHERE Value <> ''"),
                  QStringList{"2758"});
    }
    void expectWhole(const QString& path, const std::set<QString>& changes)
    {
        EXPECT_NO_THROW(database::checkCompany(path, path, texts)) << path.toStdString();
        EXPECT_EQ(column(path, "PRAGMA integrity_check"), QStringList{"ok"}) << path.toStdString();
        EXPECT_EQ(column(path, "PRAGMA foreign_key_check"), QStringList()) << path.toStdString();
        const QString change = column(path, "SELECT Name FROM tbGroupsUser WHERE IDGrp = 1").value(0);
        EXPECT_TRUE(changes.contains(change))
            << path.toStdString() << " holds change " << change.toStdString();
    }

private:
    KilledProcess process_;
};

TEST_P(KillSafekeeping, LeavesEveryFileWhole)
{
    const std::string work = GetParam();
    std::set<QString> caught;
    int copies = 0;
    const int kills = killsWanted();
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        const QTemporaryDir folder;
        const QStringList told = workAndKill(folder.path());
        ASSERT_GE(told.size(), 3);
        ASSERT_TRUE(told[0].startsWith("company "));
        SCOPED_TRACE("kill " + std::to_string(kill) + " after " + std::to_string(told.size()) +
                     " lines, the last: " + told.last().toStdString());
        const QStringList changes = told.filter(QRegularExpression("^# "));
        const int change = changes.size(); // the one under way
        const auto number = [](int n) { return n < 1 ? QStringLiteral("GRP1") : QString::number(n); };
        // The change itself may not have been made when its announcement was the last word.
        const std::set<QString> now{number(change),
                                    number(told.last().startsWith('#') ? change - 1 : change)};
        const std::set<QString> before{number(change), number(change - 1)};

        const QString company = told[0].mid(8);
        expectCompany(company, now);
        const QDir data(QFileInfo(company).absolutePath()), backups(data.filePath("../Backup"));
        for (const QString& backup : backups.entryList({"*.bak"}, QDir::Files)) {
            expectWhole(backups.filePath(backup), before);
            ++copies;
        }
        for (const QString& kept : data.entryList({"*_replaced_*.bak"}, QDir::Files)) {
            expectWhole(data.filePath(kept), now);
            ++copies;
        }
        const QDir safety(data.filePath("Safety"));
        const QStringList copiesMade = safety.entryList({"Plant_*.bak"}, QDir::Files, QDir::Name);
        EXPECT_LE(copiesMade.size(), 8);
        for (qsizetype i = 0; i < copiesMade.size(); ++i) {
            std::set<QString> any;
            for (int n = 0; n <= change; ++n)
                any.insert(number(n));
            expectWhole(safety.filePath(copiesMade[i]), any);
            ++copies;
        }
        if (data.exists("Fresh.mdb")) {
            EXPECT_NO_THROW(database::checkCompany(data.filePath("Fresh.mdb"), "Fresh.mdb", texts));
            EXPECT_EQ(column(data.filePath("Fresh.mdb"), "PRAGMA integrity_check"), QStringList{"ok"});
            ++copies;
        }
        caught.insert(told.last().section(' ', 0, 0));
    }
    std::cout << kills << " kills of " << work << " in " << caught.size() << " kinds of steps; " << copies
              << " further files whole\n";
}

INSTANTIATE_TEST_SUITE_P(Works, KillSafekeeping,
                         testing::Values("backup", "restore", "upgrade", "new", "safety"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
