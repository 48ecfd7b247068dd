#include "database/DurableFile.h"

#include "platform/RuntimeError.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace database;

namespace {

class DurableFileTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    void write(const QString& name)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(name.toUtf8());
    }

private:
    QTemporaryDir folder_;
};

TEST_F(DurableFileTest, APartLiesBesideItsTarget)
{
    EXPECT_EQ(partOf("/data/Plant.mdb"), "/data/Plant.mdb.part");
}

TEST_F(DurableFileTest, APlaceIsTheEndOfTheLinks)
{
    write("real");
    ASSERT_TRUE(QFile::link(path("real"), path("one")));
    ASSERT_TRUE(QFile::link(path("one"), path("two")));
    ASSERT_TRUE(QFile::link(path("later"), path("dangling")));
    EXPECT_EQ(placeOf(path("real")), path("real"));
    EXPECT_EQ(placeOf(path("gone")), path("gone"));
    EXPECT_EQ(placeOf(path("two")), QFileInfo(path("real")).canonicalFilePath());
    EXPECT_EQ(placeOf(path("dangling")), path("later"));
}

TEST_F(DurableFileTest, TakingAPlaceReplacesWhatStoodThere)
{
    write("new");
    write("old");
    takePlace(path("new"), path("old"));
    EXPECT_FALSE(QFile::exists(path("new")));
    QFile taken(path("old"));
    ASSERT_TRUE(taken.open(QIODevice::ReadOnly));
    EXPECT_EQ(taken.readAll(), "new");
}

TEST_F(DurableFileTest, WhatCanNotBeDoneFailsWithItsName)
{
    const auto expectFailure = [](const std::function<void()>& work, const QString& name) {
        try {
            work();
            ADD_FAILURE() << name.toStdString();
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.number, platform::errors::kPermissionDenied);
            EXPECT_TRUE(error.description.contains(name)) << error.description.toStdString();
        }
    };
    expectFailure([&] { takePlace(path("gone"), path("target")); }, path("target"));
    expectFailure([&] { flushFolderOf(path("gone/file")); }, path("gone"));
    write("file");
    EXPECT_NO_THROW(flushFolderOf(path("file")));
}

TEST_F(DurableFileTest, AFileThatCanNotBeFlushedFails)
{
    write("file");
    QFile file(path("file"));
    EXPECT_THROW(flushToDisk(file), platform::RuntimeError) << "it isn't open";
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("more");
    EXPECT_NO_THROW(flushToDisk(file));
    QFile reader(path("file"));
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    EXPECT_EQ(reader.readAll(), "more");
}

} // namespace
