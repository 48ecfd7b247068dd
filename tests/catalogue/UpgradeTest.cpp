// A company that was made on an older catalogue comes to the published one: nothing that it holds is lost,
// and what the catalogue has in addition is read from the instruments.
#include "catalogue/tool/MemoryWriter.h"
#include "tests/catalogue/Published.h"

#include "database/CompanyUpgrade.h"
#include "instrument/MemoryFile.h"
#include "structure/PlantStates.h"
#include "support/BusFixture.h"

#include <QSet>

namespace catalogue {
namespace {

using testing::published;

constexpr int kPlant = 1;

// Every parameter that the demo company speaks of.
QSet<QString> spokenOf(const Demo& demo)
{
    QSet<QString> parameters;
    for (const DemoPlant& plant : demo.plants) {
        for (const DemoInstrument& instrument : plant.instruments) {
            for (const auto* values : {&instrument.values, &instrument.holds}) {
                for (const DemoValue& value : *values)
                    parameters.insert(value.parameter);
            }
        }
    }
    return parameters;
}

// The catalogue as it may have been before: every fourth parameter is missing, a whole group of some type
// with them, the words are others.
Catalogue olderCatalogue()
{
    Catalogue older = published().catalogue;
    const QSet<QString> needed = spokenOf(published().demo);
    older.version = "0.9";
    int place = 0;
    for (Type& type : older.types) {
        type.text[0] += " (old)";
        for (Group& group : type.groups)
            std::erase_if(group.parameters, [&](const Parameter& parameter) {
                const bool alive = parameter.address == type.alive;
                return ++place % 4 == 0 && !alive && !needed.contains(parameter.id);
            });
    }
    return older;
}

class UpgradeTest : public support::BusFixture
{
protected:
    UpgradeTest()
    {
        const Catalogue older = olderCatalogue();
        writeModel(older, testing::kFolder + "/schema.sql", file("older.mdb"));
        writeCompany(published().demo, older, file("older.mdb"), companyFile());
        // The instruments are of today.
        writeCompany(published().demo, published().catalogue, published().model, file("today.mdb"));
        writeMemory(published().demo, published().catalogue, file("today.mdb"), file("instrument.txt"));
        QFile::remove(modelFile());
        QFile::copy(published().model, modelFile());
        session.DirBackup = file("Data");
        op.onModal = [this](const QString&) { upgrade.cmdUpgrade_Click(); };
    }

    QString companyFile() const { return file("Data/Demo.mdb"); }
    QStringList rows(const QString& table) const
    {
        const QStringList columns =
            support::column(companyFile(), QString("SELECT name FROM pragma_table_info('%1')").arg(table));
        QStringList quoted;
        for (const QString& column : columns)
            quoted << "quote(" + column + ")";
        return support::column(companyFile(),
                               "SELECT " + quoted.join(" || '|' || ") + " FROM " + table + " ORDER BY 1");
    }
    QStringList allRows() const
    {
        QStringList all;
        for (const char* table :
             {"tbCompanySettings", "tbGroupsUser", "tbInstrumentsUser", "tbParametersUser", "tbUsers"})
            all << rows(table);
        return all;
    }
    int countOf(const QString& condition) const
    {
        return support::column(companyFile(), "SELECT Count(*) FROM tbParametersUser WHERE " + condition)
            .value(0)
            .toInt();
    }

    structure::PlantStates states{session, texts, op, structure};
    database::CompanyUpgrade upgrade{{session, texts, op, clock, database}};
};

TEST_F(UpgradeTest, NothingIsLostAndWhatIsNewIsRead)
{
    database.Disconnect_Database();
    ASSERT_TRUE(connectTo("Demo.mdb"));
    ASSERT_TRUE(logIn(support::kTechnician, "1234"));
    const QStringList former = allRows();
    const int formerParameters = session.rsParam.RecordCount();
    ASSERT_EQ(session.DbVersion, "0.9");

    op.expect("Updating completed successfully.");
    upgrade.Upgrade_Database();
    EXPECT_EQ(allRows(), former);
    EXPECT_EQ(session.DbVersion, published().catalogue.version);
    EXPECT_GT(session.rsParam.RecordCount(), formerParameters + 100);
    EXPECT_EQ(
        support::column(companyFile(), "SELECT Count(*) FROM tbInstrumentLanguage WHERE mDesc LIKE '%(old)'"),
        QStringList{"0"});

    ASSERT_TRUE(states.Synchronize_Item("Root"));
    const int added = countOf("State = 2");
    EXPECT_GT(added, 100);
    const QStringList synchronised = allRows();
    for (const QString& row : former)
        ASSERT_TRUE(synchronised.contains(row)) << row.toStdString() << " is lost";

    instrument::Options options;
    options.link = instrument::LinkMode::Cable;
    options.group = kPlant;
    peer = std::make_unique<support::InstrumentPeer>(
        clock, port, instrument::loadMemoryFile(file("instrument.txt")), options);
    openConsole(QString("1_%1").arg(kPlant));
    connectOverCable();
    console.Read_Param();
    ASSERT_TRUE(waitWhileBusy());
    const QString ofPlant = QString("IDGrp = %1 AND ").arg(kPlant);
    EXPECT_EQ(countOf(ofPlant + "State <> 0"), 0) << "nothing is unread";
    EXPECT_EQ(countOf(ofPlant + "Value IS NULL AND IDPar NOT IN (" + testing::mayBeUnknown() + ")"), 0);
    EXPECT_EQ(support::column(companyFile(),
                              "SELECT Count(*) FROM tbParam p JOIN tbParamGroup g ON p.mKeyParGroup = "
                              "g.mID JOIN tbInstrument t ON g.mKeyInst = t.mID JOIN "
                              "tbInstrumentsUser i ON i.IDItem = t.mTag LEFT JOIN tbParametersUser u "
                              "ON u.IDGrp = i.IDGrp AND u.IDInst = i.IDInst AND u.IDPar = p.mID "
                              "WHERE u.IDPar IS NULL"),
              QStringList{"0"})
        << "no instrument lacks a parameter of its type";
}

} // namespace
} // namespace catalogue
