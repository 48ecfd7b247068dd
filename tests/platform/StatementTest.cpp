#include "platform/Statement.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "support/CompanyFixture.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

class StatementTest : public testing::Test
{
protected:
    StatementTest()
    {
        support::runSql(file("a.mdb"), "CREATE TABLE tbRoom (ID INTEGER PRIMARY KEY, Name TEXT);"
                                       "INSERT INTO tbRoom VALUES (1, 'one'), (2, 'two');");
        support::runSql(file("b.mdb"), "CREATE TABLE tbRoom (ID INTEGER PRIMARY KEY, Name TEXT);"
                                       "INSERT INTO tbRoom VALUES (7, 'seven');");
        connection.Open(file("a.mdb"));
    }

    QString file(const QString& name) const { return folder_.filePath(name); }
    QStringList rowsOf(const QString& sql)
    {
        QStringList rows;
        Statement statement(connection, sql);
        while (statement.step()) {
            QStringList cells;
            for (int column = 0; column < statement.columnCount(); ++column)
                cells << QString::fromUtf8(statement.text(column));
            rows << cells.join('|');
        }
        return rows;
    }
    bool fails(const QString& sql)
    {
        try {
            rowsOf(sql);
        } catch (const RuntimeError&) {
            return true;
        }
        return false;
    }

    Connection connection;
    const QString all = "SELECT * FROM tbRoom ORDER BY ID";

private:
    QTemporaryDir folder_;
};

TEST_F(StatementTest, ARepeatedStatementSeesWhatChangedMeanwhile)
{
    EXPECT_EQ(rowsOf(all), (QStringList{"1|one", "2|two"}));
    connection.Execute("UPDATE tbRoom SET Name = 'ONE' WHERE ID = 1");
    EXPECT_EQ(rowsOf(all), (QStringList{"1|ONE", "2|two"}));
    support::runSql(file("a.mdb"), "DELETE FROM tbRoom WHERE ID = 2"); // somebody else
    EXPECT_EQ(rowsOf(all), QStringList{"1|ONE"});
}

TEST_F(StatementTest, ARepeatedStatementSeesANewShapeOfTheTable)
{
    Recordset rows;
    rows.Open(all, connection);
    EXPECT_EQ(rows.fieldNames(), (QStringList{"ID", "Name"}));
    rows.Close();
    connection.Execute("ALTER TABLE tbRoom ADD COLUMN Size REAL DEFAULT 1.5");
    rows.Open(all, connection);
    EXPECT_EQ(rows.fieldNames(), (QStringList{"ID", "Name", "Size"}));
    EXPECT_EQ(rows.text("Name"), "one");
    EXPECT_EQ(rows["Size"].toDouble(), 1.5);
    rows.Close();
    connection.Execute("DROP TABLE tbRoom");
    EXPECT_TRUE(fails(all));
}

TEST_F(StatementTest, AStatementBegunWithinItselfRunsByItself)
{
    Statement outer(connection, all);
    ASSERT_TRUE(outer.step());
    EXPECT_EQ(rowsOf(all), (QStringList{"1|one", "2|two"}));
    EXPECT_EQ(outer.text(1), "one");
    ASSERT_TRUE(outer.step());
    EXPECT_EQ(outer.text(1), "two");
    EXPECT_FALSE(outer.step());
}

TEST_F(StatementTest, OneLeftInTheMiddleBeginsAnewAndHoldsNothing)
{
    {
        Statement statement(connection, all);
        ASSERT_TRUE(statement.step());
    }
    connection.Execute(QStringLiteral("ATTACH '%1' AS other").arg(file("b.mdb")));
    EXPECT_EQ(rowsOf("SELECT Name FROM other.tbRoom"), QStringList{"seven"});
    connection.Execute("DETACH other"); // fails while anything reads
    EXPECT_EQ(rowsOf(all), (QStringList{"1|one", "2|two"}));
    EXPECT_TRUE(fails("SELECT Name FROM other.tbRoom"));
}

TEST_F(StatementTest, WhatWasKeptBelongsToTheFileThatWasOpen)
{
    EXPECT_EQ(rowsOf(all).size(), 2);
    connection.Close();
    EXPECT_TRUE(fails(all));
    connection.Open(file("b.mdb"));
    EXPECT_EQ(rowsOf(all), QStringList{"7|seven"});
}

TEST_F(StatementTest, ManyDifferentStatementsAreAllAnswered)
{
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 300; ++i)
            ASSERT_EQ(rowsOf(QStringLiteral("SELECT %1").arg(i)), QStringList{QString::number(i)});
    }
}

TEST_F(StatementTest, AFailureInTheMiddleIsToldEachTime)
{
    const QString sql = "SELECT abs(-9223372036854775807 - ID) FROM tbRoom";
    EXPECT_TRUE(fails(sql));
    EXPECT_TRUE(fails(sql));
    EXPECT_EQ(rowsOf(all), (QStringList{"1|one", "2|two"}));
}

} // namespace
