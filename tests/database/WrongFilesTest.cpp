#include "support/CompanyFixture.h"
#include "support/OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <sys/stat.h>

using platform::Connection;
using platform::Recordset;
using structure::Restore_Item;

namespace {

class WrongFilesTest : public support::CompanyFixture
{
protected:
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(this->file("Data/" + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    // Connects, expects the one failure, cleans up as every caller does, and expects nothing left. Gives the
    // words.
    QString failToConnect(const QString& name)
    {
        EXPECT_FALSE(connectTo(name)) << name.toStdString();
        const auto reported = failures.take();
        EXPECT_EQ(reported.size(), 1u) << name.toStdString();
        EXPECT_EQ(op.forms.last(), "unload frmConnection");
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
        database.Disconnect_Database();
        EXPECT_EQ(session.DbName, "");
        EXPECT_EQ(session.cnDatabase.State(), int(Connection::Closed));
        EXPECT_EQ(structure.tree().nodeCount(), 0);
        EXPECT_EQ(structure.list().rowCount(), 0);
        if (reported.empty())
            return {};
        EXPECT_EQ(reported[0].procedure, "Module/Connect_Database");
        return reported[0].description;
    }
};

TEST_F(WrongFilesTest, AMissingFile)
{
    EXPECT_TRUE(failToConnect("Missing.mdb").contains("Missing.mdb"));
    EXPECT_FALSE(QFile::exists(file("Data/Missing.mdb"))) << "a connect makes no file";
}

TEST_F(WrongFilesTest, AFolder)
{
    QDir().mkpath(file("Data/Folder.mdb"));
    EXPECT_TRUE(failToConnect("Folder.mdb").contains("Folder.mdb"));
}

TEST_F(WrongFilesTest, AFileThatIsNoDatabase)
{
    write("Letter.mdb", QByteArray("Dear Sirs, ").repeated(500));
    EXPECT_TRUE(failToConnect("Letter.mdb").contains("is not a company"));
    QFile letter(file("Data/Letter.mdb"));
    ASSERT_TRUE(letter.open(QIODevice::ReadOnly));
    EXPECT_EQ(letter.readAll(), QByteArray("Dear Sirs, ").repeated(500)) << "it is left alone";
}

TEST_F(WrongFilesTest, AnEmptyFile)
{
    write("Empty.mdb", {});
    EXPECT_TRUE(failToConnect("Empty.mdb").contains("tbInstrument"));
    EXPECT_EQ(QFile(file("Data/Empty.mdb")).size(), 0);
}

TEST_F(WrongFilesTest, AFileCutOffInTheMiddle)
{
    const qint64 size = QFile(plantFile()).size();
    for (const qint64 left : {size - 4096, size / 2, qint64(4096), qint64(100), qint64(20)}) {
        ASSERT_TRUE(QFile::remove(file("Data/Cut.mdb")) || !QFile::exists(file("Data/Cut.mdb")));
        ASSERT_TRUE(QFile::copy(plantFile(), file("Data/Cut.mdb")));
        ASSERT_TRUE(QFile::resize(file("Data/Cut.mdb"), left));
        EXPECT_TRUE(failToConnect("Cut.mdb").contains("Cut.mdb")) << left;
        EXPECT_EQ(QFile(file("Data/Cut.mdb")).size(), left);
    }
}

TEST_F(WrongFilesTest, AMissingTable)
{
    const QStringList tables{
        "tbInstrument",        "tbParam",           "tbParamType",  "tbParamLanguage",     "tbParamEnum",
        "tbParamEnumLanguage", "tbInstMem",         "tbUsers",      "tbCompanySettings",   "tbInfoDatabase",
        "tbParametersUser",    "tbInstrumentsUser", "tbGroupsUser", "tbParamGroupLanguage"};
    for (const QString& table : tables) {
        const QString name = table + ".mdb";
        ASSERT_TRUE(QFile::copy(plantFile(), file("Data/" + name)));
        support::runSql(file("Data/" + name), "PRAGMA foreign_keys=OFF; DROP TABLE " + table + ";");
        const QString words = failToConnect(name);
        EXPECT_TRUE(words.contains("no such table: " + table)) << words.toStdString();
    }
}

TEST_F(WrongFilesTest, WhatWasOpenedBeforeAFailureStaysUntilTheCallerDisconnects)
{
    runOnPlant("DROP TABLE tbInstMem;");
    EXPECT_FALSE(connectPlant());
    failures.expectOne(platform::errors::kDatabase, "Module/Connect_Database");
    EXPECT_EQ(session.cnDatabase.State(), int(Connection::Opened));
    EXPECT_EQ(session.rsParamEnum.State(), int(Recordset::Opened));
    EXPECT_EQ(session.rsInstMem.State(), int(Recordset::Closed));
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(structure.tree().nodeCount(), 1);
    database.Disconnect_Database();
    EXPECT_EQ(session.cnDatabase.State(), int(Connection::Closed));
    EXPECT_EQ(session.rsParamEnum.State(), int(Recordset::Closed));
    EXPECT_EQ(session.DbName, "");
}

TEST_F(WrongFilesTest, AFailureWhileTheTreeFillsLeavesItConsistent)
{
    runOnPlant("PRAGMA foreign_keys=OFF; DROP TABLE tbParametersUser;");
    EXPECT_FALSE(connectPlant());
    failures.expectOne(platform::errors::kDatabase, "Module/Connect_Database");
    EXPECT_FALSE(structure.tree().inBulk());
    EXPECT_EQ(structure.tree().nodeCount(), 1 + 3 + 3) << "as far as it was filled";
    database.Disconnect_Database();
    EXPECT_EQ(structure.tree().nodeCount(), 0);
}

TEST_F(WrongFilesTest, AFileThatAnotherProgramHolds)
{
    Connection other;
    other.Open(plantFile());
    other.Execute("BEGIN EXCLUSIVE;");
    EXPECT_TRUE(failToConnect("Plant.mdb").contains("in use by another program"));
    other.Execute("ROLLBACK;");
    EXPECT_TRUE(connectPlant());
}

TEST_F(WrongFilesTest, AReadOnlyFileOpensUntilSomethingMustBeWritten)
{
    ASSERT_EQ(chmod(QFile::encodeName(session.AppPath), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(plantFile()), 0444), 0);
    const support::OrdinaryUser user;
    EXPECT_TRUE(failToConnect("Plant.mdb").contains("read-only")) << "the company's row can't be added";
    EXPECT_EQ(support::column(plantFile(), "SELECT Count(*) FROM tbCompanySettings"), QStringList{"0"});
}

TEST_F(WrongFilesTest, AReadOnlyCompanyThatHasItsRowCanBeLookedAt)
{
    ASSERT_TRUE(connectPlant());
    database.Disconnect_Database();
    ASSERT_EQ(chmod(QFile::encodeName(session.AppPath), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(plantFile()), 0444), 0);
    const support::OrdinaryUser user;
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(Restore_Item(session, op, "Root"));
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_TRUE(reported[0].description.contains("read-only")) << reported[0].description.toStdString();
    structure.clickNode("Root");
    EXPECT_EQ(structure.list().rowCount(), 3);
}

} // namespace
