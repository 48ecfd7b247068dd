#include "platform/OnlineBackup.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "support/CompanyFixture.h"
#include "support/FullDisk.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::Connection;
using platform::OnlineBackup;

namespace {

class OnlineBackupTest : public testing::Test
{
protected:
    OnlineBackupTest()
    {
        support::runSql(path("source"),
                        "CREATE TABLE t (a); INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION "
                        "ALL SELECT i + 1 FROM n WHERE i < 200) SELECT hex(zeroblob(500)) FROM n;");
        source.Open(path("source"));
    }
    QString path(const QString& name) const { return folder_.filePath(name); }
    static int stepsOf(OnlineBackup& backup, int pages)
    {
        int steps = 1;
        while (!backup.step(pages))
            ++steps;
        return steps;
    }

private:
    QTemporaryDir folder_;

protected:
    Connection source;
};

TEST_F(OnlineBackupTest, CopiesSoManyPagesAStep)
{
    const int pages = support::column(path("source"), "PRAGMA page_count").value(0).toInt();
    OnlineBackup backup(source, path("copy"));
    EXPECT_EQ(stepsOf(backup, 10), (pages + 9) / 10);
    EXPECT_FALSE(backup.isAbandoned());
    EXPECT_FALSE(backup.step(10)) << "it is over";
    EXPECT_EQ(support::column(path("copy"), "SELECT Count(*) FROM t"), QStringList{"200"});
}

TEST_F(OnlineBackupTest, TheEndOfTheConnectionEndsIt)
{
    OnlineBackup backup(source, path("copy"));
    EXPECT_FALSE(backup.step(1));
    source.Close();
    EXPECT_TRUE(backup.isAbandoned());
    EXPECT_FALSE(backup.step(1));
    source.Open(path("source"));
    OnlineBackup next(source, path("next"));
    EXPECT_GT(stepsOf(next, 10), 1);
}

TEST_F(OnlineBackupTest, ADestroyedConnectionEndsIt)
{
    auto connection = std::make_unique<Connection>();
    connection->Open(path("source"));
    OnlineBackup backup(*connection, path("copy"));
    connection.reset();
    EXPECT_TRUE(backup.isAbandoned());
}

TEST_F(OnlineBackupTest, TheConnectionOutlivesIt)
{
    {
        OnlineBackup backup(source, path("copy"));
        backup.step(1);
    }
    EXPECT_EQ(source.Execute("DELETE FROM t"), 200);
    source.Close();
}

TEST_F(OnlineBackupTest, AFullDiskAndAMissingFolderFail)
{
    {
        OnlineBackup backup(source, path("copy"));
        const support::FullDisk disk(16384);
        EXPECT_THROW(stepsOf(backup, 10), platform::RuntimeError);
        EXPECT_FALSE(backup.step(10));
    }
    EXPECT_THROW(OnlineBackup(source, path("gone/copy")), platform::RuntimeError);
    source.Close();
}

} // namespace
