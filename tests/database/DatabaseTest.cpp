#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

using database::Database;
using platform::Icon;

namespace {

const QString kCancelled = "Cancel was selected.\r\nCurrent operation has been cancelled.";
const QString kCloseFirst = "Attention! Before connecting to a new company, close the current connection.";

class DatabaseTest : public support::CompanyFixture
{
protected:
    QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    QSignalSpy connected{&database, &Database::connected};
    QSignalSpy made{&database, &Database::companyMade};
    QSignalSpy lost{&database, &Database::connectionLost};
};

TEST_F(DatabaseTest, AFailureStandsUnderItsProceduresName)
{
    setLanguage(support::kNoLanguage);
    database.Open_Database();
    failures.expectUnder("Module/Open_Database");
    setLanguage("EN_English_2000");
    ASSERT_TRUE(connectPlant());
    QObject::connect(&database, &Database::captionChanged, [] { support::breakDown(); });
    database.Disconnect_Database();
    failures.expectUnder("Module/Disconnect_Database");
    EXPECT_EQ(session.DbName, "");
}

TEST_F(DatabaseTest, OpenAsksForAFileAndConnectsToIt)
{
    op.chooseFile(plantFile());
    database.Open_Database();
    EXPECT_EQ(session.DbName, "Plant.mdb");
    EXPECT_EQ(session.DbPath, file("Data"));
    EXPECT_EQ(connected.count(), 1);
    EXPECT_EQ(made.count(), 0);
    ASSERT_EQ(op.fileRequests.size(), 1u);
    EXPECT_EQ(op.fileRequests[0].title, "Open Database");
    EXPECT_EQ(op.fileRequests[0].filter, "Access (*.mdb)|*.mdb");
    EXPECT_EQ(op.fileRequests[0].fileName, "");
    EXPECT_EQ(op.fileRequests[0].folder, file("Data"));
}

TEST_F(DatabaseTest, AFolderThatIsGoneGivesTheDataFolder)
{
    for (const QString& folder : {QString(), file("Gone")}) {
        session.DbPath = folder;
        op.chooseFile({});
        op.expect(kCancelled);
        database.Open_Database();
        EXPECT_EQ(op.fileRequests.back().folder, file("Data"));
        EXPECT_EQ(session.DbPath, file("Data"));
    }
}

TEST_F(DatabaseTest, ACancelIsToldAndNoCompanyIsNamed)
{
    for (const auto command : {&Database::Open_Database, &Database::New_Database}) {
        op.chooseFile({});
        op.expect(kCancelled);
        (database.*command)();
        EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
        EXPECT_EQ(op.boxes.back().title, "Calidora");
        EXPECT_EQ(session.DbName, "");
    }
    EXPECT_EQ(connected.count() + lost.count(), 0);
}

TEST_F(DatabaseTest, AnOpenCompanyMustBeClosedFirst)
{
    ASSERT_TRUE(connectPlant());
    for (const auto command : {&Database::Open_Database, &Database::New_Database}) {
        op.expect(kCloseFirst);
        (database.*command)();
        EXPECT_EQ(op.boxes.back().icon, Icon::Exclamation);
    }
    EXPECT_TRUE(op.fileRequests.empty());
    EXPECT_EQ(session.DbName, "Plant.mdb");
}

TEST_F(DatabaseTest, AFileThatDoesNotConnectLeavesNoCompany)
{
    op.chooseFile(file("Data/Missing.mdb"));
    database.Open_Database();
    failures.expectOne(platform::errors::kFileNotFound, "Module/Connect_Database");
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(structure.tree().nodeCount(), 0);
    EXPECT_EQ(connected.count(), 0);
    EXPECT_EQ(lost.count(), 1);
    op.chooseFile(plantFile());
    database.Open_Database();
    EXPECT_EQ(connected.count(), 1) << "the next one connects";
}

TEST_F(DatabaseTest, ANameWithoutAFolderConnectsNothing)
{
    for (const char* name : {"Plant.mdb", "/Plant.mdb", "Data/"}) {
        op.chooseFile(name);
        database.Open_Database();
        EXPECT_EQ(session.DbName, "") << name;
    }
    EXPECT_EQ(connected.count() + lost.count(), 0);
}

TEST_F(DatabaseTest, NewCopiesTheModelAndConnects)
{
    op.chooseFile(file("Data/Fresh.mdb"));
    database.New_Database();
    EXPECT_EQ(session.DbName, "Fresh.mdb");
    EXPECT_EQ(made.count(), 1);
    EXPECT_EQ(connected.count(), 1);
    EXPECT_EQ(session.rsParam.RecordCount(), 18);
    EXPECT_EQ(structure.tree().nodeCount(), 1);
    EXPECT_EQ(op.fileRequests[0].title, "New Database");
    EXPECT_EQ(op.fileRequests[0].fileName, "Calidora.mdb");
    EXPECT_EQ(support::column(modelFile(), "SELECT Count(*) FROM tbCompanySettings"), QStringList{"0"})
        << "the model itself is not touched";
}

TEST_F(DatabaseTest, TheFirstUsersPlaceComesBeforeTheLogins)
{
    QStringList order;
    QObject::connect(&database, &Database::companyMade, [&] { order << "made"; });
    QObject::connect(&database, &Database::connected, [&] { order << "connected"; });
    op.chooseFile(file("Data/Fresh.mdb"));
    database.New_Database();
    EXPECT_EQ(order, (QStringList{"made", "connected"}));
}

TEST_F(DatabaseTest, NewReplacesAnExistingFileAndItsJournals)
{
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        QFile left(plantFile() + suffix);
        ASSERT_TRUE(left.open(QIODevice::WriteOnly));
        left.write("left by a crash");
    }
    op.chooseFile(plantFile());
    database.New_Database();
    EXPECT_EQ(connected.count(), 1);
    EXPECT_EQ(structure.tree().nodeCount(), 1);
    EXPECT_EQ(QDir(file("Data")).entryList(QDir::Files), QStringList{"Plant.mdb"});
}

TEST_F(DatabaseTest, TheModelsNameIsNotTaken)
{
    const QByteArray model = bytesOf(modelFile());
    const QByteArray plant = bytesOf(plantFile());
    for (const char* name : {"Data Model/Calidora_Model_Instrument.mdb", "Data/Calidora_Model_Instrument.mdb",
                             "Data Model/CALIDORA_MODEL_INSTRUMENT.MDB"}) {
        op.chooseFile(file(name));
        database.New_Database();
        EXPECT_EQ(session.DbName, "") << name;
    }
    EXPECT_EQ(connected.count() + lost.count(), 0);
    EXPECT_EQ(bytesOf(modelFile()), model);
    EXPECT_EQ(QDir(file("Data")).entryList(QDir::Files), QStringList{"Plant.mdb"});
    EXPECT_EQ(bytesOf(plantFile()), plant);
}

TEST_F(DatabaseTest, WithoutAModelTheExistingFileStays)
{
    ASSERT_TRUE(QFile::remove(modelFile()));
    const QByteArray plant = bytesOf(plantFile());
    op.chooseFile(plantFile());
    database.New_Database();
    failures.expectOne(platform::errors::kFileNotFound, "Module/New_Database");
    EXPECT_EQ(session.DbName, "") << "no company stands behind the name";
    EXPECT_EQ(bytesOf(plantFile()), plant);
    EXPECT_EQ(connected.count(), 0);
}

TEST_F(DatabaseTest, ACompanyNeverTakesTheModelsPlaceThroughALink)
{
    const QByteArray model = bytesOf(modelFile());
    QFile::link(modelFile(), file("Data/Linked.mdb"));
    QFile::link(file("Data Model"), file("Models"));
    QFile::link(modelFile(), file("Data Model/Other.mdb"));
    for (const char* target : {"Data/Linked.mdb", "Models/Other.mdb"}) {
        op.chooseFile(file(target));
        op.expect(texts.own("model.protected"));
        database.New_Database();
        EXPECT_TRUE(op.done()) << target;
        EXPECT_EQ(session.DbName, "") << target;
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        EXPECT_EQ(op.boxes.back().title, "Calidora");
    }
    EXPECT_EQ(connected.count() + lost.count(), 0);
    EXPECT_EQ(bytesOf(modelFile()), model);

    QFile::copy(modelFile(), file("Data/Copy.mdb"));
    QFile::link(file("Data/Copy.mdb"), file("Data/LinkToCompany.mdb"));
    op.chooseFile(file("Data/LinkToCompany.mdb"));
    database.New_Database();
    EXPECT_EQ(connected.count(), 1) << "a link onto a company is a company";
}

TEST_F(DatabaseTest, AFolderThatCantBeWrittenIsReported)
{
    op.chooseFile(file("Nowhere/Fresh.mdb"));
    database.New_Database();
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "Module/New_Database");
    EXPECT_TRUE(reported[0].description.contains("Fresh.mdb")) << reported[0].description.toStdString();
    EXPECT_EQ(session.DbName, "");
}

} // namespace
