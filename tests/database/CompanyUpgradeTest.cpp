#include "database/SafekeepingFixture.h"
#include "support/NamedFailure.h"

using namespace support;
using database::CompanyUpgrade;
using platform::Icon;

namespace {

const QString kDone = "Updating completed successfully.";

// A company on an older model, and the present one, which has one parameter more, other words and a version
// of its own.
class CompanyUpgradeTest : public SafekeepingFixture
{
protected:
    CompanyUpgradeTest()
    {
        runOnPlant("INSERT INTO tbUsers (IDUser, Name, UpgradeDb) VALUES ('7', 'Rossi', 0);"
                   "INSERT INTO tbCompanySettings (Company) VALUES ('Ice & Co');"
                   "INSERT INTO tbEvent (Description) VALUES ('left over');"
                   "INSERT INTO tbParUser_tmp VALUES ('P0101');");
        runSql(modelFile(),
               "UPDATE tbInfoDatabase SET Version = '2.0.0';"
               "UPDATE tbParamGroupLanguage SET mDesc = 'New words' WHERE mID = 'G01' AND mKeyLang = 'EN';"
               "INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mMemBank, mType, mSize) "
               "VALUES ('P0399', 'G03', 3, 1, 'BYTE', 1);"
               "INSERT INTO tbParamLanguage VALUES ('P0399', 'EN', 'EN NEW');");
        QObject::connect(&upgrade, &CompanyUpgrade::operationChanged,
                         [this](const QString& text) { told << text; });
        QObject::connect(&upgrade, &CompanyUpgrade::tableChanged,
                         [this](const QString& text) { told << text; });
        QObject::connect(&upgrade, &CompanyUpgrade::progress,
                         [this](int percent) { told << QString::number(percent); });
        QObject::connect(&upgrade, &CompanyUpgrade::animated,
                         [this](bool on) { told << (on ? "animation starts" : "animation stops"); });
        op.onModal = [this](const QString& form) {
            EXPECT_EQ(form, "frmUpgrade");
            (upgrade.*button)();
        };
    }

    static QStringList userTables(const QString& path)
    {
        QStringList all;
        for (const char* table :
             {"tbCompanySettings", "tbGroupsUser", "tbInstrumentsUser", "tbParametersUser", "tbUsers"})
            all << column(path, QString("SELECT quote(Name) || quote(Description) FROM tbGroupsUser"))
                << column(path, QString("SELECT Count(*) FROM %1").arg(table));
        return all << column(path,
                             "SELECT IDGrp || '_' || IDInst || '_' || IDPar || '_' || IDParGrp || '_' || "
                             "quote(Value) || '_' || State FROM tbParametersUser ORDER BY 1");
    }

    CompanyUpgrade upgrade{{session, texts, op, clock, database}};
    QSignalSpy finished{&upgrade, &CompanyUpgrade::finished};
    void (CompanyUpgrade::*button)() = &CompanyUpgrade::cmdUpgrade_Click;
    QStringList told;
};

TEST_F(CompanyUpgradeTest, TheCompanysTablesGoIntoTheModelThatTakesItsPlace)
{
    const QStringList former = userTables(plantFile());
    ASSERT_TRUE(connectPlant());
    op.expect(kDone);
    upgrade.Upgrade_Database();
    EXPECT_EQ(op.boxes.back().icon, Icon::Information);
    EXPECT_EQ(userTables(plantFile()), former);
    EXPECT_EQ(session.DbVersion, "2.0.0");
    EXPECT_EQ(session.rsParam.RecordCount(), 19);
    EXPECT_EQ(structure.tree().captionOf("3_1_1_G01"), "New words");
    for (const char* emptied : {"tbEvent", "tbParUser_tmp"})
        EXPECT_EQ(column(plantFile(), QString("SELECT Count(*) FROM ") + emptied), QStringList{"0"})
            << emptied;
    EXPECT_EQ(column(plantFile(), "SELECT Name FROM tbUsers ORDER BY IDUser"),
              (QStringList{"ADMINISTRATOR", "TECHNICIAN", "GUEST", "FORMER", "Rossi"}));
    EXPECT_EQ(column(plantFile(), "PRAGMA foreign_key_check"), QStringList());
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"});
    EXPECT_EQ(names("Backup"), QStringList()) << "the safety copy has gone again";
    EXPECT_EQ(column(modelFile(), "SELECT Count(*) FROM tbUsers"), QStringList{"0"})
        << "the model is untouched";
    EXPECT_EQ(reconnected.count(), 1);
    EXPECT_EQ(connected.count() + lost.count(), 0);
    EXPECT_EQ(captions.last(), "Calidora - Database: Plant.mdb - User: TECHNICIAN");
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(CompanyUpgradeTest, TellsItsStepsInTheirOrder)
{
    ASSERT_TRUE(connectPlant());
    op.expect(kDone);
    upgrade.Upgrade_Database();
    EXPECT_EQ(told, (QStringList{"animation starts", "COPY OF DATABASE MODEL", "20", "UPGRADE TABLES", "40",
                                 "(1/5) tbCompanySettings", "(2/5) tbGroupsUser", "(3/5) tbInstrumentsUser",
                                 "(4/5) tbParametersUser", "(5/5) tbUsers", "BACKUP OF Plant.mdb", "60", "",
                                 "RENAME UPGRADED DATABASE", "80", "DELETE COPY OF BACKUP", "100",
                                 "UPGRADED CONCLUDED", "animation stops"}));
}

TEST_F(CompanyUpgradeTest, TellsThatItWorksInTheMidstOfALargeTable)
{
    runOnPlant("INSERT INTO tbParametersUser WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
               "WHERE i < 20000) SELECT 1, 1, 'X' || i, 'G01', NULL, 0 FROM n;");
    ASSERT_TRUE(connectPlant());
    QStringList during;
    QObject::connect(&upgrade, &CompanyUpgrade::working, [&] { during << told.last(); });
    op.expect(kDone);
    upgrade.Upgrade_Database();
    EXPECT_GE(during.count("(4/5) tbParametersUser"), 4);
    for (const QString& step : during)
        EXPECT_TRUE(step.startsWith("(")) << "not while files are copied: " << qPrintable(step);
}

TEST_F(CompanyUpgradeTest, TheSafetyCopyStandsWhileTheCompanyIsReplaced)
{
    ASSERT_TRUE(connectPlant());
    const QByteArray former = bytesOf("Data/Plant.mdb");
    QObject::connect(&upgrade, &CompanyUpgrade::progress, [&](int percent) {
        EXPECT_EQ(session.cnDatabase.State() == platform::Connection::Opened, percent < 60) << percent;
        if (percent == 80) {
            EXPECT_EQ(names("Backup"), QStringList{"Calidora_20260314090000.bak"});
            EXPECT_EQ(bytesOf("Backup/Calidora_20260314090000.bak"), former);
            EXPECT_EQ(names("Data"), (QStringList{"CopyOf_Calidora_Model_Instrument.mdb", "Plant.mdb"}));
        }
        EXPECT_EQ(op.pointer, platform::Pointer::Hourglass);
    });
    op.expect(kDone);
    upgrade.Upgrade_Database();
}

TEST_F(CompanyUpgradeTest, CancelLeavesTheConnectionUntouched)
{
    ASSERT_TRUE(connectPlant());
    op.expect(kDone);
    upgrade.Upgrade_Database();
    captions.clear();
    button = &CompanyUpgrade::cmdCancel_Click;
    upgrade.Upgrade_Database();
    EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Opened));
    EXPECT_EQ(reconnected.count(), 1) << "of the first";
    EXPECT_EQ(captions, QStringList());
    EXPECT_EQ(finished.count(), 2);
}

TEST_F(CompanyUpgradeTest, AnOldCopyIsReplaced)
{
    write("Data/CopyOf_Calidora_Model_Instrument.mdb", "left by a failure");
    write("Data/CopyOf_Calidora_Model_Instrument.mdb-journal", "left by a failure");
    ASSERT_TRUE(connectPlant());
    op.expect(kDone);
    upgrade.Upgrade_Database();
    EXPECT_EQ(names("Data"), QStringList{"Plant.mdb"});
}

TEST_F(CompanyUpgradeTest, WithoutTheRightNothingHappens)
{
    ASSERT_TRUE(connectPlant());
    setRight("UpgradeDb", "0");
    upgrade.Upgrade_Database();
    EXPECT_FALSE(op.forms.contains("modal frmUpgrade"));
}

TEST_F(CompanyUpgradeTest, WithoutACompanyThereIsNothingToUpgrade)
{
    op.expect("Attention! There isn't any company connected at the moment.");
    upgrade.Upgrade_Database();
    EXPECT_FALSE(op.forms.contains("modal frmUpgrade"));
}

TEST_F(CompanyUpgradeTest, TheFolderOfBackupsIsCheckedFirst)
{
    ASSERT_TRUE(connectPlant());
    session.DirBackup = file("Gone");
    op.expect(kDone);
    upgrade.Upgrade_Database();
    EXPECT_EQ(session.DirBackup, file("Data"));
}

// What makes each step fail, and what stands afterwards.
TEST_F(CompanyUpgradeTest, AFailureBeforeTheCompanyIsClosedLeavesNoCompany)
{
    struct Row
    {
        const char* what;
        std::function<void()> spoil;
        bool copyStays;
    };
    const Row rows[] = {
        {"no model", [this] { QFile::rename(modelFile(), file("model")); }, false},
        {"a user in the model",
         [this] {
             QFile::rename(file("model"), modelFile());
             runSql(modelFile(), "INSERT INTO tbUsers (IDUser) VALUES ('0');");
         },
         true},
        {"other columns",
         [this] {
             runSql(modelFile(), "DELETE FROM tbUsers; ALTER TABLE tbGroupsUser ADD COLUMN Town TEXT;");
         },
         true},
    };
    const QByteArray former = bytesOf("Data/Plant.mdb");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        row.spoil();
        ASSERT_TRUE(connectPlant());
        told.clear();
        upgrade.Upgrade_Database();
        const auto reported = failures.take();
        ASSERT_EQ(reported.size(), 2u);
        EXPECT_EQ(reported[0].procedure, "frmUpgrade/Upgrade");
        EXPECT_EQ(reported[1].procedure, "Module/Connect_Database");
        EXPECT_EQ(told.last(), "animation stops");
        EXPECT_EQ(session.DbName, "");
        EXPECT_EQ(session.cnDatabase.State(), int(platform::Connection::Closed));
        EXPECT_EQ(structure.tree().nodeCount(), 0) << "no empty plant is left to be walked";
        EXPECT_EQ(op.forms.last(), "disable frmListBus");
        EXPECT_EQ(bytesOf("Data/Plant.mdb"), former);
        EXPECT_EQ(names("Data").contains("CopyOf_Calidora_Model_Instrument.mdb"), row.copyStays);
        EXPECT_EQ(names("Backup"), QStringList());
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
        EXPECT_EQ(op.boxes.size(), 0u);
    }
    EXPECT_EQ(lost.count(), 3);
}

TEST_F(CompanyUpgradeTest, AFailureOfTheSafetyCopyBringsTheCompanyBack)
{
    ASSERT_TRUE(connectPlant());
    QObject::connect(&upgrade, &CompanyUpgrade::progress, [this](int percent) {
        if (percent == 60)
            QDir(session.DirBackup).removeRecursively();
    });
    const QByteArray former = bytesOf("Data/Plant.mdb");
    upgrade.Upgrade_Database();
    failures.expectOne(platform::errors::kPermissionDenied, "frmUpgrade/Upgrade");
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(reconnected.count(), 1);
    EXPECT_EQ(session.DbVersion, "1.0.7");
    EXPECT_EQ(bytesOf("Data/Plant.mdb"), former);
    EXPECT_TRUE(names("Data").contains("CopyOf_Calidora_Model_Instrument.mdb"));
}

TEST_F(CompanyUpgradeTest, AFailureToTakeThePlaceLeavesTheCompanyAndItsSafetyCopy)
{
    ASSERT_TRUE(connectPlant());
    const QByteArray former = bytesOf("Data/Plant.mdb");
    QObject::connect(&upgrade, &CompanyUpgrade::progress, [this](int percent) {
        if (percent == 80)
            QFile::remove(file("Data/CopyOf_Calidora_Model_Instrument.mdb"));
    });
    upgrade.Upgrade_Database();
    failures.expectOne(platform::errors::kPermissionDenied, "frmUpgrade/Upgrade");
    EXPECT_EQ(reconnected.count(), 1) << "the company comes back as it was";
    EXPECT_EQ(session.DbVersion, "1.0.7");
    EXPECT_EQ(bytesOf("Data/Plant.mdb"), former);
    EXPECT_EQ(names("Backup"), QStringList{"Calidora_20260314090000.bak"});
    EXPECT_EQ(bytesOf("Backup/Calidora_20260314090000.bak"), former);
}

TEST_F(CompanyUpgradeTest, ADiskThatFillsUpAtEachStepCostsNothing)
{
    const QByteArray former = bytesOf("Data/Plant.mdb");
    for (const int step : {20, 40, 60, 80}) {
        SCOPED_TRACE(step);
        ASSERT_TRUE(connectPlant());
        std::optional<FullDisk> disk;
        const auto filling = QObject::connect(&upgrade, &CompanyUpgrade::progress, [&](int percent) {
            if (percent == step)
                disk.emplace(16384);
        });
        const auto freed = QObject::connect(&upgrade, &CompanyUpgrade::finished, [&] { disk.reset(); });
        upgrade.Upgrade_Database();
        QObject::disconnect(filling);
        QObject::disconnect(freed);
        const auto reported = failures.take();
        ASSERT_FALSE(reported.empty());
        EXPECT_EQ(reported[0].procedure, "frmUpgrade/Upgrade");
        if (step != 40) { // the engine has a number of its own for a file that may not grow
            EXPECT_EQ(reported[0].number, platform::errors::kDiskFull)
                << reported[0].description.toStdString();
        }
        EXPECT_EQ(bytesOf("Data/Plant.mdb"), former);
        EXPECT_FALSE(QFile::exists(plantFile() + ".part"));
    }
}

TEST_F(CompanyUpgradeTest, FailuresStandUnderTheirProceduresNames)
{
    ASSERT_TRUE(connectPlant());
    op.onModal = [](const QString&) { breakDown(); };
    upgrade.Upgrade_Database();
    failures.expectUnder("Module/Upgrade_Database");
    setLanguage(kNoLanguage);
    upgrade.cmdUpgrade_Click();
    failures.expectUnder("frmUpgrade/Upgrade");
    setLanguage("EN_English_2000");
    ASSERT_TRUE(connectPlant());
    QObject::connect(&upgrade, &CompanyUpgrade::animated, [this](bool on) {
        if (!on)
            setLanguage(kNoLanguage);
    });
    upgrade.cmdUpgrade_Click();
    failures.expectUnder("frmUpgrade.cmdUpgrade_Click");
    EXPECT_EQ(finished.count(), 2) << "the window closes whatever happens";
}

} // namespace
