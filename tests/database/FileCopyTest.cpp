#include "database/FileCopy.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "support/CompanyFixture.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

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

TEST_F(FileCopyTest, ACopyThatCantTakeItsPlaceLeavesTheOldFileAndItsJournal)
{
    write("model", "new");
    write("company", "old");
    write("company-shm", "old");
    EXPECT_THROW(copyDatabaseFile(path("model"), path("company"),
                                  {.check = [](const QString& part) { QFile::remove(part); }}),
                 platform::RuntimeError);
    EXPECT_EQ(read("company"), "old");
    EXPECT_EQ(names(), (QStringList{"company", "company-shm", "model"}));
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

TEST_F(FileCopyTest, TellsHowFarItIs)
{
    write("model", QByteArray((1 << 20) * 2 + 5, 'n'));
    std::vector<std::pair<qint64, qint64>> told;
    copyDatabaseFile(path("model"), path("company"),
                     {.progress = [&](qint64 done, qint64 total) { told.emplace_back(done, total); }});
    const qint64 total = (1 << 20) * 2 + 5;
    const std::vector<std::pair<qint64, qint64>> expected{
        {0, total}, {1 << 20, total}, {2 << 20, total}, {total, total}};
    EXPECT_EQ(told, expected);
}

TEST_F(FileCopyTest, TheTargetStandsUntilTheCopyIsChecked)
{
    write("model", "new");
    write("company", "old");
    QByteArray checked, standing;
    copyDatabaseFile(path("model"), path("company"), {.check = [&](const QString& file) {
                         QFile copy(file);
                         EXPECT_TRUE(copy.open(QIODevice::ReadOnly));
                         checked = copy.readAll();
                         standing = read("company");
                     }});
    EXPECT_EQ(checked, "new");
    EXPECT_EQ(standing, "old");
    EXPECT_EQ(read("company"), "new");
}

TEST_F(FileCopyTest, WhatTheCheckRefusesLeavesTheTarget)
{
    write("model", "new");
    write("company", "old");
    write("company-journal", "old");
    EXPECT_THROW(
        copyDatabaseFile(path("model"), path("company"),
                         {.check = [](const QString&) { platform::fail(1, "no"); }, .keepAs = path("kept")}),
        platform::RuntimeError);
    EXPECT_EQ(read("company"), "old");
    EXPECT_EQ(names(), (QStringList{"company", "company-journal", "model"}));
}

TEST_F(FileCopyTest, TheReplacedFileStaysUnderTheNameTold)
{
    write("model", "new");
    write("company", "old");
    copyDatabaseFile(path("model"), path("company"), {.keepAs = path("kept")});
    EXPECT_EQ(read("company"), "new");
    EXPECT_EQ(read("kept"), "old");
    QFile::remove(path("kept"));
    QFile::remove(path("company"));
    copyDatabaseFile(path("model"), path("company"), {.keepAs = path("kept")});
    EXPECT_EQ(names(), (QStringList{"company", "model"})) << "nothing was replaced";
}

TEST_F(FileCopyTest, AnUnfinishedChangeOfTheReplacedFileIsTakenBackBeforeItIsKept)
{
    const auto make = [this](const char* name) {
        support::runSql(path(name),
                        "CREATE TABLE t (a); INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                        "SELECT i + 1 FROM n WHERE i < 500) SELECT 'whole' FROM n;");
    };
    make("model");
    make("work");
    {
        SQLite::Database engine(path("work").toStdString(), SQLite::OPEN_READWRITE);
        engine.exec("PRAGMA cache_size=1; BEGIN; UPDATE t SET a = hex(randomblob(500));");
        ASSERT_TRUE(QFile::copy(path("work"), path("company")));
        ASSERT_TRUE(QFile::copy(path("work-journal"), path("company-journal")));
    }
    copyDatabaseFile(path("model"), path("company"), {.keepAs = path("kept")});
    for (const char* name : {"company", "kept"}) {
        EXPECT_EQ(support::column(path(name), "SELECT DISTINCT a FROM t"), QStringList{"whole"}) << name;
        EXPECT_EQ(support::column(path(name), "PRAGMA integrity_check"), QStringList{"ok"}) << name;
    }
    EXPECT_EQ(names(), (QStringList{"company", "kept", "model", "work"}));
}

TEST_F(FileCopyTest, WhatWaitsInAWriteAheadLogIsKeptWithTheReplacedFile)
{
    support::runSql(path("model"), "CREATE TABLE t (a);");
    {
        SQLite::Database engine(path("work").toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        engine.exec("PRAGMA journal_mode=WAL; CREATE TABLE t (a); INSERT INTO t VALUES ('waits');");
        ASSERT_TRUE(QFile::copy(path("work"), path("company")));
        ASSERT_TRUE(QFile::copy(path("work-wal"), path("company-wal")));
    }
    copyDatabaseFile(path("model"), path("company"), {.keepAs = path("kept")});
    EXPECT_EQ(support::column(path("kept"), "SELECT a FROM t"), QStringList{"waits"});
    EXPECT_EQ(support::column(path("company"), "SELECT a FROM t"), QStringList());
}

TEST_F(FileCopyTest, AnEmptyFileIsCopiedToo)
{
    write("model", "");
    std::vector<std::pair<qint64, qint64>> told;
    copyDatabaseFile(path("model"), path("company"),
                     {.progress = [&](qint64 done, qint64 total) { told.emplace_back(done, total); }});
    EXPECT_EQ(told, (std::vector<std::pair<qint64, qint64>>{{0, 0}}));
    EXPECT_EQ(names(), (QStringList{"company", "model"}));
}

TEST_F(FileCopyTest, ATargetThatAnotherProgramWritesIsRefused)
{
    support::runSql(path("model"), "CREATE TABLE t (a);");
    support::runSql(path("company"), "CREATE TABLE t (a); INSERT INTO t VALUES (1);");
    SQLite::Database other(path("company").toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE; UPDATE t SET a = 2;");
    try {
        copyDatabaseFile(path("model"), path("company"));
        ADD_FAILURE();
    } catch (const platform::RuntimeError& error) {
        EXPECT_TRUE(error.description.contains("file.locked")) << error.description.toStdString();
    }
    other.exec("COMMIT;");
    EXPECT_EQ(support::column(path("company"), "SELECT a FROM t"), QStringList{"2"});
    EXPECT_FALSE(QFile::exists(path("company.part")));
}

TEST_F(FileCopyTest, BehindALinkTheFileItLeadsToIsReplaced)
{
    QDir().mkpath(path("elsewhere"));
    write("model", "new");
    write("elsewhere/real", "old");
    ASSERT_EQ(symlink("elsewhere/real", path("company").toLocal8Bit().constData()), 0);
    ASSERT_EQ(symlink("elsewhere/later", path("dangling").toLocal8Bit().constData()), 0);
    for (const char* name : {"company", "dangling"}) {
        copyDatabaseFile(path("model"), path(name));
        EXPECT_TRUE(QFileInfo(path(name)).isSymLink()) << name;
        EXPECT_EQ(read(name), "new");
    }
    EXPECT_EQ(QDir(path("elsewhere")).entryList(QDir::Files), (QStringList{"later", "real"}));
}

TEST_F(FileCopyTest, ATargetThatMayNotBeReplacedStays)
{
    write("model", "new");
    QDir().mkpath(path("folder"));
    EXPECT_THROW(copyDatabaseFile(path("model"), path("folder")), platform::RuntimeError);
    EXPECT_TRUE(QFileInfo(path("folder")).isDir());
    write("company", "old");
    ASSERT_EQ(chmod(path("company").toLocal8Bit().constData(), 0444), 0);
    ASSERT_EQ(chmod(path(".").toLocal8Bit().constData(), 0777), 0);
    {
        const support::OrdinaryUser user;
        EXPECT_THROW(copyDatabaseFile(path("model"), path("company")), platform::RuntimeError);
    }
    EXPECT_EQ(read("company"), "old");
    EXPECT_EQ(names(), (QStringList{"company", "model"}));
}

TEST_F(FileCopyTest, AFolderThatMayNotBeWrittenIsTold)
{
    write("model", "new");
    QDir().mkpath(path("closed"));
    ASSERT_EQ(chmod(path(".").toLocal8Bit().constData(), 0755), 0);
    ASSERT_EQ(chmod(path("closed").toLocal8Bit().constData(), 0555), 0);
    const support::OrdinaryUser user;
    try {
        copyDatabaseFile(path("model"), path("closed/company"));
        ADD_FAILURE();
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.number, platform::errors::kPermissionDenied);
        EXPECT_TRUE(error.description.contains("company")) << error.description.toStdString();
    }
}

TEST_F(FileCopyTest, OddPathsAreAsGoodAsAny)
{
    write("model", "new");
    for (const QString& folder : {QString("with blanks"), QString("O'Hara \"North\""), QString("Холод № 1"),
                                  QString("%1 %20 %n"), QString(200, 'x')}) {
        QDir().mkpath(path(folder));
        const QString target = folder + "/" + folder + ".mdb";
        write(target, "old");
        copyDatabaseFile(path("model"), path(target), {.keepAs = path(folder + "/kept")});
        EXPECT_EQ(read(target), "new");
        EXPECT_EQ(read(folder + "/kept"), "old");
    }
}

TEST_F(FileCopyTest, AnotherFileSystemIsAsGoodAsAny)
{
    QTemporaryDir elsewhere("/dev/shm/calidora-XXXXXX");
    if (!elsewhere.isValid())
        GTEST_SKIP() << "this machine has no second file system";
    write("model", "new");
    const QString target = elsewhere.filePath("company");
    for (const char* expected : {"new", "newer"}) {
        write("model", expected);
        copyDatabaseFile(path("model"), target, {.keepAs = path(QString("kept by ") + expected)});
        QFile copied(target);
        ASSERT_TRUE(copied.open(QIODevice::ReadOnly));
        EXPECT_EQ(copied.readAll(), expected);
    }
    EXPECT_EQ(read("kept by newer"), "new") << "no second name crosses a border: it was copied";
}

TEST_F(FileCopyTest, ThePartOfAKilledProgramIsTakenAgain)
{
    write("model", "new");
    write("company.part", "what a killed program had written so far");
    copyDatabaseFile(path("model"), path("company"));
    EXPECT_EQ(names(), (QStringList{"company", "model"}));
    EXPECT_EQ(read("company"), "new");
}

} // namespace
