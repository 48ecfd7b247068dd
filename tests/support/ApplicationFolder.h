#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace support {

// A fresh application folder with its "Data" and "Log", gone again at the end of the test.
class ApplicationFolder
{
public:
    ApplicationFolder()
    {
        QDir(path()).mkdir("Data");
        QDir(path()).mkdir("Log");
    }

    QString path() const { return folder_.path(); }
    QString file(const QString& below) const { return folder_.filePath(below); }

    void write(const QString& below, const QByteArray& bytes) const
    {
        QFile file(this->file(below));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << below.toStdString();
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray read(const QString& below) const
    {
        QFile file(this->file(below));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << below.toStdString();
        return file.readAll();
    }

    bool has(const QString& below) const { return QFile::exists(file(below)); }

    // The names in a folder below, sorted.
    QStringList names(const QString& below) const
    {
        return QDir(file(below)).entryList(QDir::Files, QDir::Name);
    }

private:
    QTemporaryDir folder_;
};

} // namespace support
