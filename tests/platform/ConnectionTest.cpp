#include "platform/Connection.h"

#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/Statement.h"
#include "support/CompanyFixture.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace platform;

namespace {

class ConnectionTest : public testing::Test
{
protected:
    ConnectionTest()
    {
        support::runSql(
            path,
            "CREATE TABLE tbGroup (ID INTEGER PRIMARY KEY, Name TEXT);"
            "CREATE TABLE tbUnit (ID INTEGER PRIMARY KEY, Grp INTEGER NOT NULL REFERENCES tbGroup (ID));"
            "INSERT INTO tbGroup VALUES (1, 'one'), (2, 'two'); INSERT INTO tbUnit VALUES (1, 1);");
    }

    void open() { connection.Open(source); }
    QStringList groups() { return support::column(path, "SELECT ID FROM tbGroup ORDER BY ID"); }
    // The words of the failure; "" when there is none.
    QString failureOf(const std::function<void()>& work, int number = errors::kDatabase)
    {
        try {
            work();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number, number) << error.description.toStdString();
            return error.description;
        }
        return {};
    }

    QTemporaryDir folder;
    QString path = folder.filePath("file with blanks = and signs.mdb");
    const QString& source = path;
    Connection connection;
};

TEST_F(ConnectionTest, OpensOnceAndClosesAgain)
{
    EXPECT_EQ(connection.State(), int(Connection::Closed));
    open();
    EXPECT_EQ(connection.State(), int(Connection::Opened));
    EXPECT_NE(failureOf([&] { open(); }, errors::kInvalidCall), "");
    connection.Close();
    connection.Close();
    EXPECT_EQ(connection.State(), int(Connection::Closed));
    EXPECT_NE(failureOf([&] { connection.Open(""); }, errors::kFileNotFound), "");
}

TEST_F(ConnectionTest, StaysOpenWhileAStatementRunsAndSaysSo)
{
    EXPECT_TRUE(connection.Close()) << "closed already";
    open();
    {
        Statement running(connection, "SELECT * FROM tbUnit");
        EXPECT_FALSE(connection.Close());
        EXPECT_EQ(connection.State(), int(Connection::Opened));
    }
    Statement(connection, "SELECT * FROM tbUnit").step();
    EXPECT_TRUE(connection.Close()) << "what is only kept prepared doesn't count";
    EXPECT_EQ(connection.State(), int(Connection::Closed));
}

TEST_F(ConnectionTest, AMissingFileIsNotMade)
{
    const QString missing = folder.filePath("missing.mdb");
    EXPECT_TRUE(failureOf([&] { connection.Open(missing); }, errors::kFileNotFound).contains(missing));
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_EQ(connection.State(), int(Connection::Closed));
}

TEST_F(ConnectionTest, StatementsTellHowManyRowsTheyChanged)
{
    open();
    EXPECT_EQ(connection.Execute("UPDATE tbGroup SET Name = 'x'"), 2);
    EXPECT_EQ(connection.Execute("UPDATE tbGroup SET Name = 'x' WHERE ID = 9"), 0);
    EXPECT_TRUE(
        failureOf([&] { connection.Execute("UPDATE tbNothing SET Name = 'x'"); }).contains("tbNothing"));
}

TEST_F(ConnectionTest, WithoutAFileNothingRuns)
{
    EXPECT_NE(failureOf([&] { connection.Execute("SELECT 1"); }, errors::kObjectClosed), "");
    EXPECT_NE(failureOf([&] { connection.BeginTrans(); }, errors::kObjectClosed), "");
}

TEST_F(ConnectionTest, KeepsForeignKeys)
{
    open();
    EXPECT_NE(failureOf([&] { connection.Execute("DELETE FROM tbGroup WHERE ID = 1"); }), "");
    EXPECT_NE(failureOf([&] { connection.Execute("INSERT INTO tbUnit VALUES (2, 99)"); }), "");
    EXPECT_EQ(groups(), (QStringList{"1", "2"}));
}

TEST_F(ConnectionTest, ATransactionRollsBackUnlessItWasCommitted)
{
    open();
    {
        Transaction transaction(connection);
        connection.Execute("INSERT INTO tbGroup VALUES (3, 'three')");
    }
    EXPECT_EQ(groups(), (QStringList{"1", "2"}));
    {
        Transaction transaction(connection);
        connection.Execute("INSERT INTO tbGroup VALUES (3, 'three')");
        transaction.commit();
    }
    EXPECT_EQ(groups(), (QStringList{"1", "2", "3"}));
    EXPECT_NE(failureOf([&] {
                  Transaction transaction(connection);
                  connection.Execute("DELETE FROM tbUnit");
                  connection.Execute("INSERT INTO tbGroup VALUES (1, 'again')");
                  transaction.commit();
              }),
              "");
    EXPECT_EQ(support::column(path, "SELECT Count(*) FROM tbUnit"), QStringList{"1"});
}

TEST_F(ConnectionTest, ATransactionThatTheEngineEndedItselfEndsQuietly)
{
    open();
    EXPECT_NO_THROW({
        Transaction transaction(connection);
        connection.Execute("ROLLBACK");
    });
    EXPECT_NO_THROW(Transaction(connection).commit());
}

TEST_F(ConnectionTest, ReferencesMayBeMendedUntilTheCommitWhenDeferred)
{
    open();
    Transaction transaction(connection);
    connection.Execute("PRAGMA defer_foreign_keys=ON");
    connection.Execute("DELETE FROM tbGroup WHERE ID = 1");
    connection.Execute("DELETE FROM tbUnit WHERE Grp = 1");
    transaction.commit();
    EXPECT_EQ(groups(), QStringList{"2"});
}

TEST_F(ConnectionTest, AFileThatAnotherHoldsIsInUse)
{
    Connection other;
    other.Open(source);
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_TRUE(failureOf([&] { open(); }).contains("file.locked"));
    EXPECT_EQ(connection.State(), int(Connection::Closed));
    other.Execute("ROLLBACK");
    open();
    other.BeginTrans();
    EXPECT_TRUE(failureOf([&] { connection.Execute("DELETE FROM tbUnit"); }).contains("file.locked"));
    Recordset rows;
    rows.Open("SELECT * FROM tbGroup", connection); // reading goes on
    EXPECT_EQ(rows.RecordCount(), 2);
    other.RollbackTrans();
    EXPECT_EQ(connection.Execute("DELETE FROM tbUnit"), 1);
}

TEST_F(ConnectionTest, ASnapshotSeesOneStateOfTheFile)
{
    open();
    Connection other;
    other.Open(source);
    const auto count = [&] {
        Recordset rows;
        rows.Open("SELECT * FROM tbGroup", connection);
        return rows.RecordCount();
    };
    {
        const Snapshot snapshot(connection);
        EXPECT_EQ(count(), 2);
        EXPECT_NE(failureOf([&] { other.Execute("INSERT INTO tbGroup VALUES (3, 'three')"); }), "");
        EXPECT_EQ(count(), 2);
    }
    EXPECT_EQ(other.Execute("INSERT INTO tbGroup VALUES (3, 'three')"), 1) << "the file is free again";
    EXPECT_EQ(count(), 3);
}

TEST_F(ConnectionTest, ASnapshotInsideATransactionChangesNothing)
{
    open();
    {
        Transaction transaction(connection);
        connection.Execute("INSERT INTO tbGroup VALUES (3, 'three')");
        {
            const Snapshot snapshot(connection);
        }
        EXPECT_EQ(groups(), (QStringList{"1", "2"})) << "nothing is committed yet";
        transaction.commit();
    }
    EXPECT_EQ(groups(), (QStringList{"1", "2", "3"}));
    const auto closeUnderIt = [&] {
        const Snapshot snapshot(connection);
        connection.Close();
    };
    EXPECT_NO_THROW(closeUnderIt());
    EXPECT_THROW(Snapshot{connection}, RuntimeError);
}

TEST_F(ConnectionTest, AnInterruptedChangeIsUndoneAtTheNextOpen)
{
    // What a crash leaves: the file half changed, and the journal that undoes it.
    open();
    connection.Execute("PRAGMA cache_size=1");
    connection.BeginTrans();
    connection.Execute("UPDATE tbGroup SET Name = 'half'");
    connection.Execute("INSERT INTO tbGroup WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n "
                       "WHERE i < 5000) SELECT i, 'filler' FROM n");
    const QString crashed = folder.filePath("crashed.mdb");
    ASSERT_TRUE(QFile::copy(path, crashed));
    ASSERT_TRUE(QFile::copy(path + "-journal", crashed + "-journal"));
    connection.RollbackTrans();
    connection.Close();

    connection.Open(crashed);
    Recordset rows;
    rows.Open("SELECT * FROM tbGroup WHERE Name = 'half' OR Name = 'filler'", connection);
    EXPECT_EQ(rows.RecordCount(), 0);
    rows.Close();
    rows.Open("PRAGMA integrity_check", connection);
    EXPECT_EQ(rows.text("integrity_check"), "ok");
}

} // namespace
