#include "database/FileCopy.h"

#include "platform/RuntimeError.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

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

// Files beyond the size fail to be written, as on a disk that is full.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : formerHandler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit small{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    rlimit former_{};
    void (*formerHandler_)(int);
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
        const SmallDisk disk(1024 * 1024);
        EXPECT_THROW(copyDatabaseFile(path("model"), path("company")), platform::RuntimeError);
    }
    EXPECT_EQ(read("company"), "old");
    EXPECT_EQ(names(), (QStringList{"company", "company-journal", "model"}));
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
