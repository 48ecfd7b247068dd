// A real file system that is full, with so much room left that the end comes at every step in turn: the
// company is whole each time, and what was kept of it, too.
#include "database/CompanyCheck.h"
#include "database/SafekeepingFixture.h"
#include "e2e/SmallFileSystem.h"

#include <iostream>

using namespace support;
using database::CompanyUpgrade;
using database::SafetyCopies;

namespace {

constexpr qint64 kStep = 24 << 10;

class FullDiskWorks : private SmallFileSystem, public SafekeepingFixture
{
protected:
    static void SetUpTestSuite() { AnyCompany(); }

    FullDiskWorks()
    {
        QDir().mkpath(file("Data/Safety"));
        op.onModal = [this](const QString&) { upgrade.cmdUpgrade_Click(); };
    }

    // Does the work again and again with a little more room each time, until it succeeds three times running.
    void sweep(const std::function<void()>& work)
    {
        if (!isMounted())
            GTEST_SKIP() << "only the administrator can make a file system";
        const QString groups = groupsOf(plantFile());
        int failed = 0, succeeded = 0;
        for (qint64 left = 0; succeeded < 3; left += kStep) {
            SCOPED_TRACE(left);
            ASSERT_LT(left, 4 << 20) << "it never succeeds";
            ASSERT_TRUE(connectPlant());
            leave(left);
            work();
            makeRoom();
            op.unexpected.clear();
            const bool well = failures.take().empty();
            succeeded = well ? succeeded + 1 : 0;
            failed += !well;
            database.Disconnect_Database();
            ASSERT_TRUE(connectPlant()) << "the next start";
            database.Disconnect_Database();
            EXPECT_EQ(groupsOf(plantFile()), groups);
            expectAllWhole();
        }
        EXPECT_GT(failed, 2);
        std::cout << failed << " full disks, " << succeeded << " successes\n";
    }

    void expectAllWhole()
    {
        for (const char* folder : {"Data", "Backup", "Data/Safety"}) {
            for (const QString& name : names(folder)) {
                const QString path = file(QString(folder) + '/' + name);
                if (!name.endsWith(".mdb") && !name.endsWith(".bak"))
                    continue;
                if (name.startsWith("CopyOf_"))
                    continue; // the model's copy, which a failed upgrade leaves
                EXPECT_NO_THROW(database::checkCompany(path, path, texts)) << path.toStdString();
                EXPECT_EQ(column(path, "PRAGMA integrity_check"), QStringList{"ok"}) << path.toStdString();
            }
        }
    }

    CompanyUpgrade upgrade{{session, texts, op, clock, database}};
    SafetyCopies copies{session, clock};
};

TEST_F(FullDiskWorks, Backup)
{
    sweep([this] {
        op.chooseFile(file("Backup/Plant.bak"));
        safekeeping.Backup_Database();
    });
}

TEST_F(FullDiskWorks, Restore)
{
    copy("Data/Plant.mdb", "Backup/Plant.bak");
    sweep([this] {
        op.chooseFile(file("Backup/Plant.bak"));
        op.chooseFile(plantFile());
        safekeeping.Restore_Database();
    });
}

TEST_F(FullDiskWorks, Upgrade)
{
    sweep([this] { upgrade.Upgrade_Database(); });
}

TEST_F(FullDiskWorks, NewCompany)
{
    copy("Data/Plant.mdb", "Data/Fresh.mdb");
    sweep([this] {
        database.Disconnect_Database();
        op.chooseFile(file("Data/Fresh.mdb"));
        database.New_Database();
    });
}

TEST_F(FullDiskWorks, SafetyCopy)
{
    sweep([this] {
        clock.run(25LL * 60 * 60 * 1000);
        platform::guarded("Test/Change", [this] {
            session.cnDatabase.Execute("UPDATE tbGroupsUser SET Description = NULL");
        });
        copies.companyOpened();
        clock.run(60000);
    });
}

} // namespace
