#include "support/CompanyFixture.h"

#include <QSignalSpy>

using database::Database;
using platform::Connection;
using platform::Recordset;

namespace {

class ConnectTest : public support::CompanyFixture
{
protected:
    ConnectTest()
    {
        QObject::connect(&database, &Database::progress, [this](int percent) { percents << percent; });
        QObject::connect(&database, &Database::captionChanged,
                         [this](const QString& caption) { captions << caption; });
    }

    QStringList childrenOf(const QString& key)
    {
        QStringList keys;
        const QModelIndex parent = structure.tree().indexOf(key);
        for (int row = 0; row < structure.tree().rowCount(parent); ++row)
            keys << structure.tree().keyOf(structure.tree().index(row, 0, parent));
        return keys;
    }

    QList<int> percents;
    QStringList captions;
};

TEST_F(ConnectTest, TellsItsProgressInElevenths)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(percents, (QList<int>{11, 22, 33, 44, 55, 66, 77, 88, 100}));
}

TEST_F(ConnectTest, ShowsItsWindowEnablesThePlantsWindowsAndLeavesNoTrace)
{
    QObject::connect(&database, &Database::progress,
                     [this] { EXPECT_EQ(op.pointer, platform::Pointer::Hourglass); });
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(op.forms, (QStringList{"show frmConnection", "enable frmTreeBus", "enable frmListBus",
                                     "unload frmConnection"}));
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(ConnectTest, OpensTheFiveLookUpRecordsets)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.rsInstrument.RecordCount(), 3);
    EXPECT_EQ(session.rsParam.RecordCount(), 18);
    EXPECT_EQ(session.rsParamEnum.RecordCount(), 7);
    EXPECT_EQ(session.rsInstMem.RecordCount(), 2);
    EXPECT_EQ(session.rsUsers.State(), int(Recordset::Opened));
    EXPECT_EQ(session.rsUsers.RecordCount(), 4);
    EXPECT_EQ(session.ConnectionString, plantFile());

    session.rsParam.Find("mID", "p0202");
    EXPECT_EQ(session.rsParam.text("KeyType"), "ENUM");
    EXPECT_EQ(session.rsParam.text("Des"), "EN FAN");
}

TEST_F(ConnectTest, OpensThemOneByOneInTheirOrder)
{
    QStringList open;
    QObject::connect(&database, &Database::progress, [&](int percent) {
        QString states = QString::number(percent) + ' ';
        for (const Recordset* records : {&session.rsInstrument, &session.rsParam, &session.rsParamEnum,
                                         &session.rsInstMem, &session.rsUsers})
            states += QString::number(records->State());
        open << states;
    });
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(open, (QStringList{"11 00000", "22 00000", "33 10000", "44 11000", "55 11100", "66 11110",
                                 "77 11111", "88 11111", "100 11111"}));
}

TEST_F(ConnectTest, FillsTheTreeByNameAndParameterGroupsById)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(childrenOf("Root"), (QStringList{"1_2", "1_1", "1_3"}));
    EXPECT_EQ(childrenOf("1_1"), (QStringList{"2_1_2", "2_1_1"})) << "ALPHA before INST11";
    EXPECT_EQ(childrenOf("2_1_1"), (QStringList{"3_1_1_G01", "3_1_1_G02", "3_1_1_G03"}));
    EXPECT_EQ(childrenOf("1_3"), QStringList()) << "a group without instruments";
    EXPECT_EQ(structure.tree().captionOf("1_2"), "ALPHA");
    EXPECT_EQ(structure.tree().captionOf("2_1_2"), "ALPHA") << "the same name, each at its place";
    EXPECT_EQ(structure.tree().captionOf("3_1_2_G11"), "Settings");
    EXPECT_EQ(structure.tree().nodeCount(), 1 + 3 + 3 + 3 + 2 + 2);
}

TEST_F(ConnectTest, EndsOnTheRootWithTheSingleRootItem)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(structure.selectedNode(), "Root");
    EXPECT_EQ(structure.path(), "ZEL Bus");
    EXPECT_EQ(structure.list().rowCount(), 1);
    EXPECT_EQ(structure.list().item("Root")->text, "ZEL Bus");
    EXPECT_EQ(structure.list().item("Root")->icon, 1);
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "", ""}));
    EXPECT_EQ(captions, QStringList{"Calidora - Database: Plant.mdb"});
}

TEST_F(ConnectTest, TheTreeComesInAtOnceAndTheLastGroupIsShown)
{
    QSignalSpy resets(&structure.tree(), &structure::TreeModel::modelReset);
    QSignalSpy shown(&structure, &structure::Structure::nodeShown);
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(resets.count(), 2) << "emptied, filled";
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown[0][0], "1_3");
}

TEST_F(ConnectTest, ForgetsTheClipboard)
{
    session.ClipOperation = 2;
    session.ClipKey = "1_1";
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.ClipOperation, 0);
    EXPECT_EQ(session.ClipKey, "");
}

TEST_F(ConnectTest, AddsTheCompanysRowOnceAndReadsItInItsOrder)
{
    const QString count = "SELECT Count(*) FROM tbCompanySettings";
    session.CompanySet.fill("left over");
    ASSERT_TRUE(connectPlant());
    for (const QString& value : session.CompanySet)
        EXPECT_EQ(value, "");
    EXPECT_EQ(support::column(plantFile(), count), QStringList{"1"});
    database.Disconnect_Database();

    runOnPlant("UPDATE tbCompanySettings SET Company = 'Ice & Co', Phone = '055', VATNumber = 'IT01';");
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(support::column(plantFile(), count), QStringList{"1"});
    EXPECT_EQ(session.CompanySet[session::Company], "Ice & Co");
    EXPECT_EQ(session.CompanySet[session::Address], "") << "NULL";
    EXPECT_EQ(session.CompanySet[session::Phone], "055");
    EXPECT_EQ(session.CompanySet[session::VATNumber], "IT01");
}

TEST_F(ConnectTest, ReadsTheVersionIfThereIsOne)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.DbVersion, "1.0.7");
    database.Disconnect_Database();
    runOnPlant("DELETE FROM tbInfoDatabase;");
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.DbVersion, "");
}

TEST_F(ConnectTest, TakesTheLanguageAtTheConnect)
{
    setLanguage("RU_Russian_6000");
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.rsParam.RecordCount(), 17) << "P1102 has no Russian row";
    EXPECT_EQ(structure.tree().captionOf("3_1_1_G01"), "Измерения");
    EXPECT_FALSE(structure.tree().contains("3_1_2_G12")) << "no Russian row either";
    session.rsParamEnum.Find("mID", "2");
    EXPECT_EQ(session.rsParamEnum.text("mDesc"), "Вкл");

    setLanguage("IT_Italiano_1000");
    EXPECT_EQ(structure.tree().captionOf("3_1_1_G01"), "Измерения") << "until the next connect";
    database.Disconnect_Database();
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(structure.tree().captionOf("3_1_1_G01"), "Misure");
}

TEST_F(ConnectTest, ConnectingAgainBuildsEverythingFromNothing)
{
    ASSERT_TRUE(connectPlant());
    structure.clickNode("2_1_1");
    runOnPlant(
        "DELETE FROM tbParametersUser WHERE IDInst = 2; DELETE FROM tbInstrumentsUser WHERE IDInst = 2;");
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(childrenOf("1_1"), QStringList{"2_1_1"});
    EXPECT_EQ(structure.selectedNode(), "Root");
    EXPECT_EQ(structure.list().rowCount(), 1);
}

TEST_F(ConnectTest, DisconnectingClosesEverythingAndKeepsTheFolder)
{
    ASSERT_TRUE(connectPlant());
    op.forms.clear();
    database.Disconnect_Database();
    for (const Recordset* records : {&session.rsInstrument, &session.rsParam, &session.rsParamEnum,
                                     &session.rsInstMem, &session.rsUsers})
        EXPECT_EQ(records->State(), int(Recordset::Closed));
    EXPECT_EQ(session.cnDatabase.State(), int(Connection::Closed));
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(session.DbVersion, "");
    EXPECT_EQ(session.DbPath, file("Data"));
    EXPECT_EQ(structure.tree().nodeCount(), 0);
    EXPECT_EQ(structure.list().rowCount(), 0);
    EXPECT_EQ(structure.path(), "");
    EXPECT_EQ(structure.selectedNode(), "");
    EXPECT_EQ(captions.last(), "Calidora");
    EXPECT_EQ(op.forms, (QStringList{"disable frmTreeBus", "disable frmListBus"}));
}

TEST_F(ConnectTest, DisconnectingWithNothingOpenDoesNothing)
{
    database.Disconnect_Database();
    EXPECT_EQ(op.forms, QStringList());
    EXPECT_EQ(captions, QStringList());
}

} // namespace
