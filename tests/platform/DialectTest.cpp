#include "platform/Dialect.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "support/CompanyFixture.h"
#include "support/QtPrinters.h"
#include "support/Throws.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(Dialect, AnUpdateOverAJoinIsPutIntoTheEnginesWords)
{
    const std::pair<const char*, const char*> rows[] = {
        {"UPDATE a INNER JOIN b ON a.ID = b.mID SET [Value] = '1', State = 1 WHERE ((a.G = 1) AND (b.C = "
         "'x'));",
         "UPDATE a SET [Value] = '1', State = 1 FROM b WHERE (a.ID = b.mID) AND ((a.G = 1) AND (b.C = "
         "'x'));"},
        {"UPDATE a INNER JOIN b ON a.ID = b.mID SET V = 'x WHERE y', W = 'O''Hara' WHERE (G = 1)",
         "UPDATE a SET V = 'x WHERE y', W = 'O''Hara' FROM b WHERE (a.ID = b.mID) AND (G = 1)"},
        {"UPDATE a INNER JOIN b ON a.ID = b.mID SET V = NULL",
         "UPDATE a SET V = NULL FROM b WHERE (a.ID = b.mID)"},
    };
    for (const auto& [sql, expected] : rows)
        EXPECT_EQ(inEngineDialect(sql), expected);
}

TEST(Dialect, EverythingElseStaysAsItIs)
{
    for (const char* sql : {"UPDATE a SET V = ' INNER JOIN b ON c SET ' WHERE (G = 1);", "DELETE FROM a;",
                            "SELECT * FROM a INNER JOIN b ON a.ID = b.ID", "", "UPDATE"})
        EXPECT_EQ(inEngineDialect(sql), sql);
}

class DialectOnAFile : public testing::Test
{
protected:
    DialectOnAFile()
    {
        support::runSql(path,
                        "CREATE TABLE tbRow (ID INTEGER, V TEXT); CREATE TABLE tbKind (mID INTEGER, C TEXT);"
                        "INSERT INTO tbRow VALUES (1, 'a'), (2, 'b'), (3, 'c');"
                        "INSERT INTO tbKind VALUES (1, 'x'), (2, 'y'), (3, 'x');");
        connection.Open("Data Source = " + path);
    }

    QVariant valueOf(const QString& expression)
    {
        Recordset rows;
        rows.Open("SELECT " + expression + " AS V", connection);
        return rows["V"];
    }

    QTemporaryDir folder;
    QString path = folder.filePath("file.mdb");
    Connection connection;
};

TEST_F(DialectOnAFile, AnUpdateOverAJoinChangesTheJoinedRows)
{
    EXPECT_EQ(connection.Execute("UPDATE tbRow INNER JOIN tbKind ON tbRow.ID = tbKind.mID SET V = 'z' "
                                 "WHERE (tbKind.C = 'x');"),
              2);
    EXPECT_EQ(support::column(path, "SELECT V FROM tbRow ORDER BY ID"), (QStringList{"z", "b", "z"}));
}

TEST_F(DialectOnAFile, MidCountsCharactersFromOne)
{
    const std::pair<const char*, QVariant> rows[] = {
        {"Mid('CP.03.12',4,2)", "03"}, {"Mid('CP.03.12',1,5)", "CP.03"},
        {"Mid('abc',2,99)", "bc"},     {"Mid('abc',9,2)", ""},
        {"Mid('Жизнь',2,2)", "из"},    {"Mid('abc',1,0)", ""},
        {"Mid(12345,2,3)", "234"},     {"Mid(NULL,1,2)", {}},
        {"Mid('abc',NULL,2)", {}},
    };
    for (const auto& [expression, expected] : rows)
        EXPECT_EQ(valueOf(expression), expected) << expression;
    for (const char* wrong : {"Mid('abc',0,1)", "Mid('abc',1,-1)"})
        EXPECT_EQ(support::errorOf([&] { valueOf(wrong); }), errors::kDatabase) << wrong;
}

} // namespace
