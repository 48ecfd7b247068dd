#include "database/SafekeepingFixture.h"
#include "support/NamedFailure.h"

using namespace support;
using platform::Icon;

namespace {

const QString kDone = "Copy of backup completed successfully.";

class BackupTest : public SafekeepingFixture
{
};

TEST_F(BackupTest, ItIsTheFileAndTheCompanyComesBackWithItsOperator)
{
    ASSERT_TRUE(connectPlant());
    op.chooseFile(file("Backup/Monday.bak"));
    op.expect(kDone);
    safekeeping.Backup_Database();
    EXPECT_EQ(op.boxes.back().icon, Icon::Information);
    EXPECT_EQ(op.boxes.back().title, "Calidora");
    EXPECT_EQ(bytesOf("Backup/Monday.bak"), bytesOf("Data/Plant.mdb"));
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
    EXPECT_EQ(reconnected.count(), 1);
    EXPECT_EQ(connected.count() + lost.count(), 0) << "no login is asked";
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN");
    EXPECT_EQ(captions.last(), "Calidora - Database: Plant.mdb - User: TECHNICIAN");
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    EXPECT_FALSE(op.forms.contains("show frmCopy")) << "a small file is copied before anybody could read it";
}

TEST_F(BackupTest, ItAsksForTheName)
{
    ASSERT_TRUE(connectPlant());
    op.chooseFile({});
    op.expect(kCancelledChoice);
    safekeeping.Backup_Database();
    ASSERT_EQ(op.fileRequests.size(), 1u);
    EXPECT_EQ(op.fileRequests[0].title, "Backup Database");
    EXPECT_EQ(op.fileRequests[0].filter, "File di Backup (*.bak)|*.bak|Tutti i File (*.*)|*.*");
    EXPECT_EQ(op.fileRequests[0].fileName, "Plant.bak");
    EXPECT_EQ(op.fileRequests[0].folder, file("Backup"));
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    EXPECT_EQ(reconnected.count() + lost.count(), 0) << "nothing has changed";
    EXPECT_EQ(session.DirBackup, file("Backup"));
}

TEST_F(BackupTest, AFolderThatIsGoneGivesTheDataFolder)
{
    ASSERT_TRUE(connectPlant());
    session.DirBackup = file("Gone");
    op.chooseFile({});
    op.expect(kCancelledChoice);
    safekeeping.Backup_Database();
    EXPECT_EQ(op.fileRequests[0].folder, file("Data"));
    EXPECT_EQ(session.DirBackup, file("Data"));
}

TEST_F(BackupTest, TheProposedNameEndsWhereTheCompanysEndingBegins)
{
    for (const auto& [name, proposal] :
         {std::pair{"Plant.MDB", "Plant.bak"}, {"Plant.old.mdb", "Plant.old.bak"}, {"Plant", "Plant.bak"}}) {
        copy("Data/Plant.mdb", QString("Data/") + name);
        ASSERT_TRUE(connectTo(name));
        ASSERT_TRUE(logIn(kTechnician));
        op.chooseFile({});
        op.expect(kCancelledChoice);
        safekeeping.Backup_Database();
        EXPECT_EQ(op.fileRequests.back().fileName, proposal);
        database.Disconnect_Database();
    }
}

TEST_F(BackupTest, TheModelsNameIsRefusedAndTheConnectionStays)
{
    ASSERT_TRUE(connectPlant());
    for (const char* name : {"Calidora_Model_Instrument.mdb", "calidora_model_instrument.MDB"}) {
        op.chooseFile(file("Backup/") + name);
        op.expect(kNotice);
        safekeeping.Backup_Database();
        EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    }
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
    EXPECT_EQ(reconnected.count(), 0);
    EXPECT_EQ(names("Backup"), QStringList());
}

TEST_F(BackupTest, TheCompanyItselfIsNoBackup)
{
    ASSERT_TRUE(connectPlant());
    ASSERT_TRUE(QFile::link(plantFile(), file("Backup/Link.bak")));
    for (const char* name : {"Data/Plant.mdb", "Data/../Data/Plant.mdb", "Backup/Link.bak"}) {
        op.chooseFile(file(name));
        op.expect("This is the file of the company itself. Choose another name for the backup.");
        safekeeping.Backup_Database();
    }
    EXPECT_EQ(reconnected.count(), 0);
}

TEST_F(BackupTest, WithoutACompanyThereIsNothingToBackUp)
{
    op.expect("Attention! There isn't any company connected at the moment.");
    safekeeping.Backup_Database();
    EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    EXPECT_TRUE(op.fileRequests.empty());
}

TEST_F(BackupTest, WithNobodyLoggedInNothingIsBackedUp)
{
    ASSERT_TRUE(connectTo("Plant.mdb"));
    safekeeping.Backup_Database();
    EXPECT_TRUE(op.fileRequests.empty());
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
}

TEST_F(BackupTest, TheCompanyIsClosedWhileItIsCopied)
{
    ASSERT_TRUE(connectPlant());
    int told = 0;
    QObject::connect(&safekeeping, &database::Safekeeping::copyProgress, [&] {
        ++told;
        EXPECT_EQ(session.DbName, "");
        EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Closed));
        EXPECT_EQ(op.pointer, platform::Pointer::Hourglass);
    });
    op.chooseFile(file("Backup/Plant.bak"));
    op.expect(kDone);
    safekeeping.Backup_Database();
    EXPECT_GT(told, 0);
    EXPECT_EQ(session.DirBackup, file("Backup"));
}

TEST_F(BackupTest, AFailedCopyIsReportedAndTheCompanyComesBack)
{
    ASSERT_TRUE(connectPlant());
    op.chooseFile(file("Nowhere/Plant.bak"));
    safekeeping.Backup_Database();
    failures.expectOne(platform::errors::kPermissionDenied, "Module/Copy_Database");
    EXPECT_EQ(session.DirBackup, file("Nowhere"));
    EXPECT_EQ(reconnected.count(), 1);
    EXPECT_EQ(structure.tree().captionOf("1_1"), "GRP1");
}

TEST_F(BackupTest, AFullDiskLeavesTheOlderBackup)
{
    ASSERT_TRUE(connectPlant());
    write("Backup/Plant.bak", "older");
    op.chooseFile(file("Backup/Plant.bak"));
    {
        const FullDisk disk(8192);
        safekeeping.Backup_Database();
    }
    failures.expectOne(platform::errors::kDiskFull, "Module/Copy_Database");
    EXPECT_EQ(bytesOf("Backup/Plant.bak"), "older");
    EXPECT_EQ(names("Backup"), QStringList{"Plant.bak"});
    EXPECT_EQ(reconnected.count(), 1);
}

TEST_F(BackupTest, ADamagedCompanyDoesNotReplaceAGoodBackup)
{
    copy("Data/Plant.mdb", "Backup/Plant.bak");
    const QByteArray good = bytesOf("Backup/Plant.bak");
    ASSERT_TRUE(connectPlant());
    runOnPlant("CREATE TABLE tbFiller (a); INSERT INTO tbFiller WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
               "SELECT i + 1 FROM n WHERE i < 500) SELECT hex(randomblob(400)) FROM n;");
    damage("Data/Plant.mdb");
    op.chooseFile(file("Backup/Plant.bak"));
    safekeeping.Backup_Database();
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "Module/Copy_Database");
    const QString& words = reported[0].description;
    EXPECT_TRUE(words.startsWith("The backup Plant.bak was not made")) << words.toStdString();
    EXPECT_TRUE(words.contains(QDir::toNativeSeparators(plantFile()) + " is damaged or incomplete"))
        << words.toStdString();
    EXPECT_TRUE(words.contains("The newest copy of this company is " + file("Backup/Plant.bak")))
        << words.toStdString();
    EXPECT_TRUE(words.endsWith("To go back to it: Utility > Database > Restore.")) << words.toStdString();
    EXPECT_EQ(bytesOf("Backup/Plant.bak"), good);

    ASSERT_TRUE(QFile::remove(file("Backup/Plant.bak")));
    op.chooseFile(file("Backup/Plant.bak"));
    safekeeping.Backup_Database();
    EXPECT_TRUE(failures.take().at(0).description.endsWith(
        "No safety copy and no backup of this company was found."));
}

TEST_F(BackupTest, ACompanyThatIsGoneAfterwardsLeavesNone)
{
    ASSERT_TRUE(connectPlant());
    op.chooseFile(file("Backup/Plant.bak"));
    op.expect(kDone);
    QObject::connect(&safekeeping, &database::Safekeeping::copyProgress, [this](int percent) {
        if (percent == 100)
            QFile::remove(plantFile());
    });
    safekeeping.Backup_Database();
    failures.expectOne(platform::errors::kFileNotFound, "Module/Connect_Database");
    EXPECT_EQ(lost.count(), 1);
    EXPECT_EQ(reconnected.count(), 0);
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(captions.last(), "Calidora");
}

TEST_F(BackupTest, ACompanyThatStaysOpenIsNotCopied)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(safekeeping.Copy_Database(file("Data"), "Plant.mdb", file("Backup"), "Plant.bak"));
    failures.expectOne(platform::errors::kPermissionDenied, "Module/Copy_Database");
    EXPECT_EQ(names("Backup"), QStringList());
}

TEST_F(BackupTest, ACopyReplacesItsTargetAndTellsSo)
{
    write("Backup/Plant.bak", "older");
    EXPECT_TRUE(safekeeping.Copy_Database(file("Data"), "Plant.mdb", file("Backup"), "Plant.bak"));
    EXPECT_EQ(bytesOf("Backup/Plant.bak"), bytesOf("Data/Plant.mdb"));
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(BackupTest, ALargeFileShowsHowFarItIs)
{
    QFile large(file("Data/Large"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write(QByteArray(8 << 20, 'x'));
    large.close();
    QList<int> percents;
    QObject::connect(&safekeeping, &database::Safekeeping::copyProgress,
                     [&](int percent) { percents << percent; });
    EXPECT_TRUE(safekeeping.Copy_Database(file("Data"), "Large", file("Backup"), "Large"));
    EXPECT_EQ(op.forms, (QStringList{"show frmCopy", "unload frmCopy"}));
    EXPECT_EQ(percents, (QList<int>{0, 12, 25, 37, 50, 62, 75, 87, 100}));
    op.forms.clear();
    large.resize((8 << 20) - 1);
    EXPECT_TRUE(safekeeping.Copy_Database(file("Data"), "Large", file("Backup"), "Large"));
    EXPECT_EQ(op.forms, QStringList());
    percents.clear();
    large.resize(0);
    EXPECT_TRUE(safekeeping.Copy_Database(file("Data"), "Large", file("Backup"), "Large"));
    EXPECT_EQ(percents, QList<int>{100});
}

TEST_F(BackupTest, AFailureStandsUnderItsProceduresName)
{
    ASSERT_TRUE(connectPlant());
    setLanguage(kNoLanguage);
    safekeeping.Backup_Database();
    failures.expectUnder("Module/Backup_Database");
}

} // namespace
