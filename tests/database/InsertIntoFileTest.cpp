#include "database/InsertIntoFile.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "support/CompanyFixture.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using platform::Connection;

namespace {

class InsertIntoFileTest : public testing::Test
{
protected:
    InsertIntoFileTest()
    {
        support::runSql(path("source"),
                        "CREATE TABLE parent (id INTEGER PRIMARY KEY); "
                        "CREATE TABLE t (id INTEGER PRIMARY KEY REFERENCES parent (id), Name TEXT);"
                        "INSERT INTO parent VALUES (1), (2); INSERT INTO t VALUES (1, NULL), (2, 'b');");
        connection.Open(path("source"));
    }
    QString path(const QString& name) const { return folder_.filePath(name); }
    int insert(const QString& file) { return database::insertIntoFile(connection, "t", path(file)); }

private:
    QTemporaryDir folder_;

protected:
    Connection connection;
};

TEST_F(InsertIntoFileTest, RowsGoByTheNamesOfTheirColumns)
{
    support::runSql(path("other"), "CREATE TABLE t (NAME TEXT, id INTEGER);");
    EXPECT_EQ(insert("other"), 2);
    EXPECT_EQ(support::column(path("other"), "SELECT id || coalesce(Name, 'NULL') FROM t ORDER BY id"),
              (QStringList{"1NULL", "2b"}));
    EXPECT_EQ(insert("other"), 2) << "the file was let go";
}

TEST_F(InsertIntoFileTest, TheNameOfTheFileStandsForItself)
{
    support::runSql(path("d'oro"), "CREATE TABLE t (id INTEGER, Name TEXT);");
    EXPECT_EQ(insert("d'oro"), 2);
}

TEST_F(InsertIntoFileTest, OtherColumnsFail)
{
    const std::pair<const char*, const char*> rows[] = {{"more", "CREATE TABLE t (id, Name, Town);"},
                                                        {"fewer", "CREATE TABLE t (id);"},
                                                        {"different", "CREATE TABLE t (id, Title);"},
                                                        {"none", "CREATE TABLE u (id, Name);"}};
    for (const auto& [file, sql] : rows) {
        support::runSql(path(file), sql);
        try {
            insert(file);
            ADD_FAILURE() << file;
        } catch (const platform::RuntimeError& error) {
            EXPECT_TRUE(error.description.contains("columns")) << error.description.toStdString();
        }
    }
    EXPECT_THROW(database::insertIntoFile(connection, "v", path("none")), platform::RuntimeError);
}

TEST_F(InsertIntoFileTest, AMissingFileIsNotMadeAndAWrongOneFails)
{
    EXPECT_THROW(insert("gone"), platform::RuntimeError);
    EXPECT_FALSE(QFile::exists(path("gone")));
    QFile letter(path("letter"));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write(QByteArray("Dear Sirs, ").repeated(500));
    letter.close();
    EXPECT_THROW(insert("letter"), platform::RuntimeError);
    support::runSql(path("other"), "CREATE TABLE t (id, Name);");
    EXPECT_EQ(insert("other"), 2) << "the failure let everything go";
}

TEST_F(InsertIntoFileTest, ADoubledKeyFailsAndReferencesAreWatchedAgain)
{
    support::runSql(path("other"),
                    "CREATE TABLE t (id INTEGER PRIMARY KEY, Name); INSERT INTO t VALUES (2, 'x');");
    EXPECT_THROW(insert("other"), platform::RuntimeError);
    EXPECT_EQ(support::column(path("other"), "SELECT Count(*) FROM t"), QStringList{"1"});
    EXPECT_THROW(connection.Execute("INSERT INTO t VALUES (3, NULL)"), platform::RuntimeError);
}

} // namespace
