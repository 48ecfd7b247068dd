#include "platform/SqlFunctions.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "support/CompanyFixture.h"
#include "support/QtPrinters.h"
#include "support/Throws.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace platform;

namespace {

class SqlFunctions : public testing::Test
{
protected:
    SqlFunctions()
    {
        support::runSql(path,
                        "CREATE TABLE tbRow (ID INTEGER, V TEXT); CREATE TABLE tbKind (mID INTEGER, C TEXT);"
                        "INSERT INTO tbRow VALUES (1, 'a'), (2, 'b'), (3, 'c');"
                        "INSERT INTO tbKind VALUES (1, 'x'), (2, 'y'), (3, 'x');");
        connection.Open(path);
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

TEST_F(SqlFunctions, MidCountsCharactersFromOne)
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
