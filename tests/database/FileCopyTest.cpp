#include "database/FileCopy.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "support/FullDisk.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using database::copyDatabaseFile;

namespace {

class FileCopyTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    QByteArray read(const QString& name)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
    QStringList names() const { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

private:
    QTemporaryDir folder_;
};

TEST_F(FileCopyTest, CopiesEveryByte)
{
    QByteArray bytes(3 * 1024 * 1024 + 7, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = char(i * 31);
    write("model", bytes);
    copyDatabaseFile(path("model"), path("company"));
    EXPECT_EQ(read("company"), bytes);
    EXPECT_EQ(names(), (QStringList{"company", "model"}));
}

TEST_F(FileCopyTest, ACopyOfAReadOnlyModelCanBeWritten)
{
    write("model", "bytes");
    QFile::setPermissions(path("model"), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    copyDatabaseFile(path("model"), path("company"));
    EXPECT_TRUE(QFile::permissions(path("company")) & QFile::WriteOwner);
}

TEST_F(FileCopyTest, OwnerAndGroupAloneReadACompany)
{
    write("model", "bytes");
    write("company", "old");
    QFile::setPermissions(path("company"), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    for (const char* target : {"company", "new"}) {
        copyDatabaseFile(path("model"), path(target));
        EXPECT_EQ(QFile::permissions(path(target)), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                                                        QFile::WriteUser | QFile::ReadGroup)
            << target;
    }
}

TEST_F(FileCopyTest, TheOldFilesJournalsGoWithIt)
{
    write("model", "new");
    for (const char* name : {"company", "company-journal", "company-wal", "company-shm", "company-other"})
        write(name, "old");
    copyDatabaseFile(path("model"), path("company"));
    EXPECT_EQ(names(), (QStringList{"company", "company-other", "model"}));
    EXPECT_EQ(read("company"), "new");
}

TEST_F(FileCopyTest, AFullDiskLeavesTheOldFileAndItsJournal)
{
    write("model", QByteArray(4 * 1024 * 1024, 'n'));
    write("company", "old");
    write("company-journal", "old");
    {
        const support::FullDisk disk(1024 * 1024);
        EXPECT_THROW(copyDatabaseFile(path("model"), path("company")), platform::RuntimeError);
    }
    EXPECT_EQ(read("company"), "old");
    EXPECT_EQ(names(), (QStringList{"company", "company-journal", "model"}));
}

// A name so long that the new file can be written beside it, but not brought to its place.
TEST_F(FileCopyTest, ACopyThatCantTakeItsPlaceLeavesTheOldFileAndItsJournal)
{
    const QString company(250, 'c');
    write("model", "new");
    write(company, "old");
    write(company + "-shm", "old");
    EXPECT_THROW(copyDatabaseFile(path("model"), path(company)), platform::RuntimeError);
    EXPECT_EQ(read(company), "old");
    EXPECT_EQ(names(), (QStringList{company, company + "-shm", "model"}));
}

// A program was killed in the middle of its work: its journal waits beside the company.
TEST_F(FileCopyTest, AnInterruptedCompanyIsWholeBeforeTheCopyTakesItsPlace)
{
    write("company", "");
    write("model", "new");
    {
        platform::Connection connection;
        connection.Open(path("company"));
        connection.Execute("CREATE TABLE t (x); INSERT INTO t VALUES ('kept'); PRAGMA cache_size = 1;");
        connection.BeginTrans();
        connection.Execute("UPDATE t SET x = 'lost';");
        connection.Execute("CREATE TABLE filler (x); INSERT INTO filler SELECT randomblob(500) FROM t, "
                           "(WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
                           "SELECT i FROM n);");
        QFile::copy(path("company"), path("killed"));
        QFile::copy(path("company-journal"), path("killed-journal"));
        connection.RollbackTrans();
    }
    ASSERT_GT(read("killed-journal").size(), 1000);
    ASSERT_GT(read("killed").size(), read("company").size());
    QFile::copy(path("killed"), path("copied"));
    QFile::copy(path("killed-journal"), path("copied-journal"));
    {
        const support::FullDisk disk(1);
        EXPECT_THROW(copyDatabaseFile(path("model"), path("killed")), platform::RuntimeError);
    }
    platform::Connection connection;
    connection.Open(path("killed"));
    platform::Recordset rows;
    rows.Open("SELECT x FROM t", connection);
    EXPECT_EQ(rows.text("x"), "kept");

    copyDatabaseFile(path("model"), path("copied"));
    EXPECT_EQ(read("copied"), "new");
    EXPECT_FALSE(QFile::exists(path("copied-journal")));
}

TEST_F(FileCopyTest, AMissingSourceOrFolderFailsWithTheFilesName)
{
    write("model", "bytes");
    const std::pair<QString, QString> rows[] = {{path("gone"), path("company")},
                                                {path("model"), path("gone/company")}};
    for (const auto& [source, target] : rows) {
        try {
            copyDatabaseFile(source, target);
            ADD_FAILURE() << "copied " << source.toStdString();
        } catch (const platform::RuntimeError& error) {
            EXPECT_TRUE(error.description.contains("gone")) << error.description.toStdString();
        }
    }
    EXPECT_EQ(names(), QStringList{"model"});
}

} // namespace
