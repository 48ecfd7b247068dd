#include "platform/ChangeWatcher.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "platform/Unwatched.h"

#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

using namespace platform;

namespace {

class Listener : public ChangeWatcher
{
public:
    const char* table() const override { return "tbWatched"; }
    void opened(Connection&, const QString&) noexcept override { heard << "opened"; }
    void closing() noexcept override { heard << "closing"; }
    void statementBegins() noexcept override {}
    void statementFailed() noexcept override { heard << "failed"; }
    void kept() noexcept override { end("kept"); }
    void undone() noexcept override { end("undone"); }
    void jobEnded() noexcept override { heard << "job"; }
    void changed(const RowChange& change) noexcept override
    {
        const auto text = [](const std::optional<QByteArrayView>& field) {
            return field ? QString::fromUtf8(*field) : QString("-");
        };
        heard << QStringLiteral("%1 %2 %3 > %4 %5")
                     .arg(int(change.kind))
                     .arg(change.formerInteger(0))
                     .arg(text(change.formerText(1)))
                     .arg(change.newInteger(0))
                     .arg(text(change.newText(1)));
        pending = true;
    }

    QStringList take() { return std::exchange(heard, {}); }

    QStringList heard;
    bool pending = false;

private:
    void end(const char* how)
    {
        if (std::exchange(pending, false))
            heard << how;
    }
};

class ChangeWatcherTest : public testing::Test
{
protected:
    ChangeWatcherTest()
    {
        SQLite::Database made(file().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        made.exec("CREATE TABLE tbWatched (ID INTEGER NOT NULL PRIMARY KEY, Value TEXT) WITHOUT ROWID;"
                  "CREATE TABLE tbOther (ID INTEGER); INSERT INTO tbWatched VALUES (1, 'one'), (2, NULL);");
        connection.watch(&listener);
        connection.Open(file());
    }
    QString file() const { return folder.filePath("Company.mdb"); }

    QTemporaryDir folder;
    Listener listener;
    Connection connection;
};

TEST_F(ChangeWatcherTest, EachRowWithWhatStoodThere)
{
    EXPECT_EQ(listener.take(), QStringList{"opened"});
    connection.Execute("INSERT INTO tbWatched VALUES (3, 'камера');");
    EXPECT_EQ(listener.take(), QStringList({"0 0 - > 3 камера", "kept"}));
    connection.Execute("UPDATE tbWatched SET Value = 'x' WHERE ID < 3;");
    EXPECT_EQ(listener.take(), QStringList({"1 1 one > 1 x", "1 2 - > 2 x", "kept"}));
    connection.Execute("DELETE FROM tbWatched WHERE ID = 1;");
    EXPECT_EQ(listener.take(), QStringList({"2 1 x > 0 -", "kept"}));
    connection.Execute("INSERT INTO tbOther VALUES (1);");
    EXPECT_EQ(listener.take(), QStringList());
}

TEST_F(ChangeWatcherTest, ATransactionIsKeptOrUndoneAsAWhole)
{
    listener.take();
    {
        Transaction transaction(connection);
        connection.Execute("DELETE FROM tbWatched WHERE ID = 1;");
        EXPECT_EQ(listener.take(), QStringList{"2 1 one > 0 -"});
        transaction.commit();
    }
    EXPECT_EQ(listener.take(), QStringList{"kept"});
    {
        Transaction transaction(connection);
        connection.Execute("DELETE FROM tbWatched WHERE ID = 2;");
        EXPECT_THROW(connection.Execute("INSERT INTO tbWatched VALUES (3, 'x'), (NULL, 'y');"), RuntimeError);
    }
    EXPECT_EQ(listener.take(), QStringList({"2 2 - > 0 -", "0 0 - > 3 x", "failed", "undone"}));
    EXPECT_THROW(connection.Execute("INSERT INTO tbWatched VALUES (3, 'x'), (NULL, 'y');"), RuntimeError);
    EXPECT_EQ(listener.take(), QStringList({"0 0 - > 3 x", "undone", "failed"}));
}

TEST_F(ChangeWatcherTest, AnotherFileIsAnotherCompany)
{
    const QString other = folder.filePath("Other.mdb");
    SQLite::Database(other.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE tbWatched (ID INTEGER PRIMARY KEY, Value TEXT);");
    connection.Execute("ATTACH '" + other + "' AS other;");
    listener.take();
    connection.Execute("INSERT INTO other.tbWatched VALUES (1, 'x');");
    EXPECT_EQ(listener.take(), QStringList());
}

TEST_F(ChangeWatcherTest, WhatIsDoneAsideIsNotTold)
{
    listener.take();
    {
        const Unwatched aside(connection);
        connection.Execute("INSERT INTO tbWatched VALUES (77, 'aside');");
        EXPECT_EQ(listener.take().filter("77"), QStringList());
    }
    connection.Execute("DELETE FROM tbWatched WHERE ID = 77;");
    EXPECT_NE(listener.take().filter("77"), QStringList()) << "and afterwards it is";
    connection.watch(nullptr);
    {
        const Unwatched aside(connection);
    }
    connection.Execute("INSERT INTO tbWatched VALUES (77, 'nobody');");
    EXPECT_EQ(listener.take(), QStringList());
}

TEST_F(ChangeWatcherTest, PurposesNestAndTheOutermostIsAJob)
{
    listener.take();
    EXPECT_EQ(connection.purpose(), 0);
    EXPECT_FALSE(connection.inJob());
    {
        const Purpose outer(connection, 4);
        EXPECT_TRUE(connection.inJob());
        {
            const Purpose inner(connection, 7);
            EXPECT_EQ(connection.purpose(), 7);
        }
        EXPECT_EQ(connection.purpose(), 4);
        EXPECT_EQ(listener.take(), QStringList());
    }
    EXPECT_EQ(connection.purpose(), 0);
    EXPECT_EQ(listener.take(), QStringList{"job"});
    EXPECT_FALSE(connection.inJob());
}

TEST_F(ChangeWatcherTest, StaysOverAnotherOpeningUntilItLeaves)
{
    listener.take();
    connection.Close();
    connection.Close();
    EXPECT_EQ(listener.take(), QStringList{"closing"});
    connection.Open(file());
    EXPECT_EQ(listener.take(), QStringList{"opened"});
    connection.watch(nullptr);
    connection.Execute("DELETE FROM tbWatched;");
    connection.Close();
    EXPECT_EQ(listener.take(), QStringList());
    connection.Open(file());
    connection.watch(&listener);
    EXPECT_EQ(listener.take(), QStringList{"opened"});
}

} // namespace
