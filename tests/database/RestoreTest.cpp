#include "database/SafekeepingFixture.h"
#include "support/NamedFailure.h"

#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace support;
using platform::Icon;

namespace {

const QString kDone = "Restoring completed successfully.";

class RestoreTest : public SafekeepingFixture
{
protected:
    RestoreTest()
    {
        copy("Data/Plant.mdb", "Backup/Plant.bak");
        runSql(file("Backup/Plant.bak"), "UPDATE tbGroupsUser SET Name = 'FROM BACKUP' WHERE IDGrp = 1;");
    }

    void restore(const QString& from, const QString& to)
    {
        op.chooseFile(file(from));
        op.chooseFile(file(to));
        safekeeping.Restore_Database();
    }
    // Where the company stands that a restore has replaced.
    QStringList kept() { return QDir(file("Data")).entryList({"*_replaced_*.bak"}, QDir::Files); }
};

TEST_F(RestoreTest, WithoutACompanyTheRestoredOneIsConnectedAndAsksForALogin)
{
    op.expect(kDone);
    restore("Backup/Plant.bak", "Data/New.mdb");
    EXPECT_EQ(op.boxes.back().icon, Icon::Information);
    EXPECT_EQ(session.DbName, "New.mdb");
    EXPECT_EQ(session.DbPath, file("Data"));
    EXPECT_EQ(connected.count(), 1);
    EXPECT_EQ(reconnected.count() + lost.count(), 0);
    EXPECT_EQ(structure.tree().captionOf("1_1"), "FROM BACKUP");
    EXPECT_EQ(session.DirBackup, file("Backup"));
}

TEST_F(RestoreTest, TheOpenCompanysOwnFileIsReplacedAndKeptUntilTheRestoredOneIsConnected)
{
    ASSERT_TRUE(connectPlant());
    QStringList keptBeforeConnect;
    QByteArray keptBytes;
    const QByteArray former = bytesOf("Data/Plant.mdb");
    QObject::connect(&database, &database::Database::progress, [&](int percent) {
        if (percent == 100 && !kept().isEmpty()) {
            keptBeforeConnect = kept();
            keptBytes = bytesOf("Data/" + keptBeforeConnect[0]);
        }
    });
    op.expect(kDone);
    restore("Backup/Plant.bak", "Data/Plant.mdb");
    EXPECT_EQ(structure.tree().captionOf("1_1"), "FROM BACKUP");
    EXPECT_EQ(connected.count(), 1);
    EXPECT_EQ(keptBeforeConnect, QStringList{"Plant_replaced_20260314090000.bak"});
    EXPECT_EQ(keptBytes, former);
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"}) << "it goes when the restored one is connected";
}

TEST_F(RestoreTest, ItAsksForTheBackupAndForThePlace)
{
    session.DbPath = file("Data");
    op.chooseFile(file("Backup/Plant.bak"));
    op.chooseFile({});
    op.expect(kCancelledChoice);
    safekeeping.Restore_Database();
    ASSERT_EQ(op.fileRequests.size(), 2u);
    EXPECT_EQ(op.fileRequests[0].title, "Restore Database (Open)");
    EXPECT_EQ(op.fileRequests[0].filter, "File di Backup (*.bak)|*.bak|Tutti i File (*.*)|*.*");
    EXPECT_EQ(op.fileRequests[0].folder, file("Backup"));
    EXPECT_EQ(op.fileRequests[0].fileName, "");
    EXPECT_EQ(op.fileRequests[1].title, "Restore Database (Save)");
    EXPECT_EQ(op.fileRequests[1].filter, "Access (*.mdb)|*.mdb");
    EXPECT_EQ(op.fileRequests[1].folder, file("Data"));
    EXPECT_EQ(op.fileRequests[1].fileName, "Plant");
}

TEST_F(RestoreTest, ProposesTheNameInFrontOfTheEnding)
{
    for (const auto& [name, proposal] :
         {std::pair{"A.Bak", "A"}, {"B.bak.old", "B"}, {"C.mdb", "C.mdb"}, {"D", "D"}}) {
        copy("Backup/Plant.bak", QString("Backup/") + name);
        op.chooseFile(file("Backup/") + name);
        op.chooseFile({});
        op.expect(kCancelledChoice);
        safekeeping.Restore_Database();
        EXPECT_EQ(op.fileRequests.back().fileName, proposal);
    }
}

TEST_F(RestoreTest, ACancelOfEitherDialogChangesNothing)
{
    ASSERT_TRUE(connectPlant());
    session.DirBackup = file("Gone");
    op.chooseFile({});
    op.expect(kCancelledChoice);
    safekeeping.Restore_Database();
    EXPECT_EQ(op.fileRequests[0].folder, file("Data"));
    op.chooseFile(file("Backup/Plant.bak"));
    op.chooseFile({});
    op.expect(kCancelledChoice);
    safekeeping.Restore_Database();
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
    EXPECT_EQ(connected.count() + lost.count(), 0);
}

TEST_F(RestoreTest, TheModelsNameIsRefused)
{
    ASSERT_TRUE(connectPlant());
    op.expect(kNotice);
    restore("Backup/Plant.bak", "Data/CALIDORA_Model_Instrument.mdb");
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"});
}

TEST_F(RestoreTest, AWrongFileIsRefusedBeforeAnythingIsReplaced)
{
    write("Backup/Letter.bak", QByteArray("Dear Sirs, ").repeated(800));
    write("Backup/Empty.bak", {});
    copy("Data/Plant.mdb", "Backup/Poor.bak");
    runSql(file("Backup/Poor.bak"), "DROP TABLE tbUsers; DROP TABLE tbEvent;");
    runSql(file("Backup/Other.bak"), "CREATE TABLE tbLetters (Text);");
    copy("Data/Plant.mdb", "Backup/Cut.bak");
    ASSERT_TRUE(QFile::resize(file("Backup/Cut.bak"), QFileInfo(plantFile()).size() - 4096));
    ASSERT_TRUE(connectPlant());
    const QByteArray plant = bytesOf("Data/Plant.mdb");
    const auto shown = [this](const char* name) { return file(QString("Backup/") + name); };
    const std::pair<const char*, QString> rows[] = {
        {"Letter.bak", "The file " + shown("Letter.bak") + " is not a company file."},
        {"Empty.bak", "The file " + shown("Empty.bak") + " is not a company file."},
        {"Other.bak", "The file " + shown("Other.bak") + " is not a company file."},
        {"Gone.bak", "The file " + shown("Gone.bak") + " does not exist."},
        {"Poor.bak", "The file " + shown("Poor.bak") + " is damaged or incomplete: tbEvent, tbUsers"},
    };
    for (const auto& [name, words] : rows) {
        op.chooseFile(shown(name));
        op.expect(words);
        safekeeping.Restore_Database();
        EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation) << name;
    }
    op.chooseFile(shown("Cut.bak"));
    safekeeping.Restore_Database();
    ASSERT_EQ(op.unexpected.size(), 1);
    EXPECT_TRUE(op.unexpected[0].startsWith("The file " + shown("Cut.bak") + " is damaged or incomplete: "))
        << op.unexpected[0].toStdString();
    op.unexpected.clear();
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened)) << "nothing has changed";
    EXPECT_EQ(bytesOf("Data/Plant.mdb"), plant);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(RestoreTest, AFailedCopyBringsTheOpenCompanyBack)
{
    ASSERT_TRUE(connectPlant());
    restore("Backup/Plant.bak", "Nowhere/Plant.mdb");
    failures.expectOne(platform::errors::kPermissionDenied, "Module/Copy_Database");
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(session.DbPath, file("Data"));
    EXPECT_EQ(connected.count(), 1) << "the login comes all the same";
    EXPECT_EQ(structure.tree().captionOf("1_1"), "GRP1");
}

TEST_F(RestoreTest, AFailedCopyWithoutACompanyLeavesNone)
{
    restore("Backup/Plant.bak", "Nowhere/Plant.mdb");
    failures.expectOne(platform::errors::kPermissionDenied, "Module/Copy_Database");
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(connected.count() + lost.count(), 0);
}

TEST_F(RestoreTest, AFullDiskLeavesTheCompanyAsItWas)
{
    ASSERT_TRUE(connectPlant());
    const QByteArray plant = bytesOf("Data/Plant.mdb");
    {
        const FullDisk disk(8192);
        restore("Backup/Plant.bak", "Data/Plant.mdb");
    }
    failures.expectOne(platform::errors::kDiskFull, "Module/Copy_Database");
    EXPECT_EQ(bytesOf("Data/Plant.mdb"), plant);
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"});
    EXPECT_EQ(connected.count(), 1);
}

TEST_F(RestoreTest, WhatCanNotBeConnectedLeavesTheReplacedCompanyBesideIt)
{
    ASSERT_TRUE(connectPlant());
    const QByteArray plant = bytesOf("Data/Plant.mdb");
    // Whole and complete, but no company all the same.
    runSql(file("Backup/Plant.bak"), "ALTER TABLE tbParamEnum RENAME COLUMN mKeyParam TO mOther;");
    op.expect(kDone);
    op.expect("The restored company could not be connected. The file that it replaced is kept as " +
              file("Data/Plant_replaced_20260314090000.bak"));
    restore("Backup/Plant.bak", "Data/Plant.mdb");
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    failures.expectOne(platform::errors::kDatabase, "Module/Connect_Database");
    EXPECT_EQ(lost.count(), 1);
    EXPECT_EQ(connected.count(), 0);
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(bytesOf("Data/Plant_replaced_20260314090000.bak"), plant);

    // A second try in the same second keeps what the first one had put there, too.
    op.expect(kDone);
    op.expect("The restored company could not be connected. The file that it replaced is kept as " +
              file("Data/Plant_replaced_20260314090001.bak"));
    restore("Backup/Plant.bak", "Data/Plant.mdb");
    failures.take();
    EXPECT_EQ(bytesOf("Data/Plant_replaced_20260314090000.bak"), plant);

    op.expect(kDone);
    restore("Data/Plant_replaced_20260314090000.bak", "Data/Plant.mdb");
    EXPECT_EQ(structure.tree().captionOf("1_1"), "GRP1") << "the way back";
    EXPECT_EQ(connected.count(), 1);
}

TEST_F(RestoreTest, ABackupThatWasCutOffInAWriteIsTakenBackFirst)
{
    // What a killed program leaves: half a change in the file and the former pages in the journal.
    const QString backup = file("Backup/Plant.bak");
    {
        SQLite::Database engine(backup.toStdString(), SQLite::OPEN_READWRITE);
        engine.exec("PRAGMA cache_size=1; PRAGMA cache_spill=1; BEGIN; "
                    "UPDATE tbParametersUser SET Value = hex(randomblob(2000)); "
                    "UPDATE tbGroupsUser SET Name = 'HALF';");
        ASSERT_TRUE(QFile::copy(backup, file("Backup/Killed.bak")));
        ASSERT_TRUE(QFile::copy(backup + "-journal", file("Backup/Killed.bak-journal")));
    }
    op.expect(kDone);
    restore("Backup/Killed.bak", "Data/Plant.mdb");
    EXPECT_EQ(structure.tree().captionOf("1_1"), "FROM BACKUP");
    EXPECT_EQ(column(plantFile(), "PRAGMA integrity_check"), QStringList{"ok"});
}

TEST_F(RestoreTest, AFailureStandsUnderItsProceduresName)
{
    setLanguage(kNoLanguage);
    safekeeping.Restore_Database();
    failures.expectUnder("Module/Restore_Database");
}

} // namespace
