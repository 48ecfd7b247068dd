#include "platform/Heartbeat.h"

#include "platform/Connection.h"
#include "support/Throws.h"

#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

using namespace platform;

namespace {

const char* const kLong =
    "INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
    "SELECT i FROM n;";

TEST(Heartbeat, BeatsInTheMidstOfALongStatementWhileItLives)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("company.mdb");
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE t (a);");
    Connection connection;
    connection.Open(file);
    int beats = 0;
    {
        const Heartbeat heartbeat(connection, [&beats] { ++beats; });
        EXPECT_EQ(connection.Execute(kLong), 20000);
        EXPECT_GT(beats, 10);
    }
    const int before = beats;
    EXPECT_EQ(connection.Execute(kLong), 20000);
    EXPECT_EQ(beats, before);
}

TEST(Heartbeat, AClosedConnectionHasNone)
{
    const Connection closed;
    EXPECT_EQ(support::errorOf([&] { Heartbeat(closed, [] {}); }), errors::kObjectClosed);
}

} // namespace
