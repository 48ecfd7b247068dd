#include "structure/PlantStates.h"

#include "session/Session.h"
#include "structure/PlantFixture.h"

using platform::answers::kNo;
using platform::answers::kOk;
using platform::answers::kYes;

namespace {

// A company on a catalogue that has grown: a parameter more in G02, and a group more with one parameter, for
// the type of instrument 1.1.
class PlantStatesTest : public plant::PlantFixture
{
protected:
    PlantStatesTest()
    {
        runOnPlant(R"(
            INSERT INTO tbParamGroup VALUES ('G00', 1);
            INSERT INTO tbParamGroupLanguage VALUES ('G00', 'EN', 'First');
            INSERT INTO tbParam SELECT 'P0001', 'G00', mKeyType, mTag, mDP, mUnit, mDftValue, mMemBank, mAddr, mWriteAddr,
                mWriteCmd, mType, mSize, mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL, mIDCopy, mEnable
                FROM tbParam WHERE mID = 'P0101';
            INSERT INTO tbParam SELECT 'P0299', 'G02', mKeyType, mTag, mDP, mUnit, mDftValue, mMemBank, mAddr, mWriteAddr,
                mWriteCmd, mType, mSize, mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL, mIDCopy, mEnable
                FROM tbParam WHERE mID = 'P0101';
            INSERT INTO tbParamLanguage VALUES ('P0001', 'EN', 'New one'), ('P0299', 'EN', 'Another'))");
    }

    QStringList added()
    {
        return rows("SELECT IDGrp || '.' || IDInst || '.' || IDPar || '=' || Value || '/' || State "
                    "FROM tbParametersUser WHERE IDPar IN ('P0001', 'P0299') ORDER BY 1");
    }
    void confirm(int question) { op.expect(texts(question), kYes); }
    void expectAdded(int count)
    {
        op.expect(texts(509) + "\r\n" + texts.own("resync.added").arg(count), kOk);
    }

    structure::PlantStates states{session, texts, op, structure};
};

const QStringList kBoth{"1.1.P0001=0/2", "1.1.P0299=0/2"};

// Synchronising
// ------------------------------------------------------------------------------------------------------

TEST_F(PlantStatesTest, WhatTheCatalogueHasAndTheInstrumentLacksIsAdded)
{
    for (const QString key : {"Root", "1_1", "2_1_1", "3_1_1_G01", "4_1_1_G01_P0101"}) {
        runOnPlant("DELETE FROM tbParametersUser WHERE IDPar IN ('P0001', 'P0299');");
        ASSERT_TRUE(connectPlant());
        const QStringList before = parametersOf("1");
        EXPECT_TRUE(states.Synchronize_Item(key)) << qPrintable(key);
        EXPECT_EQ(added(), kBoth) << qPrintable(key);
        EXPECT_EQ(rows("SELECT IDParGrp FROM tbParametersUser WHERE IDPar = 'P0001'"), QStringList{"G00"});
        EXPECT_EQ(parametersOf("IDPar NOT IN ('P0001', 'P0299')"), before) << "what was there stays as it is";
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
}

TEST_F(PlantStatesTest, AnotherPlaceGetsNothing)
{
    for (const QString key : {"1_2", "1_3", "2_1_2", "2_9_9"}) {
        EXPECT_TRUE(states.Synchronize_Item(key)) << qPrintable(key);
        EXPECT_EQ(added(), QStringList()) << qPrintable(key);
    }
}

TEST_F(PlantStatesTest, TheTreeShowsTheNewGroupAtOnceInItsPlace)
{
    structure.clickNode("2_1_1");
    EXPECT_TRUE(states.Synchronize_Item("1_1"));
    EXPECT_EQ(structure.tree().keyOf(structure.tree().index(0, 0, structure.tree().indexOf("2_1_1"))),
              "3_1_1_G00");
    EXPECT_EQ(structure.tree().captionOf("3_1_1_G00"), "First");
    structure.Refresh_Item();
}

TEST_F(PlantStatesTest, ASecondTimeAddsNothing)
{
    EXPECT_TRUE(states.Synchronize_Item("Root"));
    const int all = count("tbParametersUser");
    EXPECT_TRUE(states.Synchronize_Item("Root"));
    EXPECT_EQ(count("tbParametersUser"), all);
}

TEST_F(PlantStatesTest, ATypeThatLeftTheCatalogueGetsNothingAndIsNoFailure)
{
    runOnPlant("UPDATE tbInstrumentsUser SET IDItem = 'O''GONE' WHERE IDGrp = 1 AND IDInst = 1;");
    EXPECT_TRUE(states.Synchronize_Item("1_1"));
    EXPECT_EQ(added(), QStringList());
}

TEST_F(PlantStatesTest, TheWorkingTableKeepsTheLastInstrumentsParameters)
{
    EXPECT_TRUE(states.Synchronize_Item("Root"));
    EXPECT_EQ(rows("SELECT IDPar FROM tbParUser_tmp ORDER BY IDPar"),
              rows("SELECT IDPar FROM tbParametersUser WHERE IDGrp = 2 AND IDInst = 1 ORDER BY IDPar"));
    EXPECT_TRUE(states.Synchronize_Item("2_1_2"));
    EXPECT_EQ(rows("SELECT IDPar FROM tbParUser_tmp ORDER BY IDPar"),
              rows("SELECT IDPar FROM tbParametersUser WHERE IDGrp = 1 AND IDInst = 2 ORDER BY IDPar"));
}

TEST_F(PlantStatesTest, TheProgressCountsTheInstruments)
{
    QStringList steps;
    QObject::connect(&structure, &structure::Structure::updateShown,
                     [&](bool shown) { steps << (shown ? "shown" : "hidden"); });
    QObject::connect(&structure, &structure::Structure::updateProgress,
                     [&](int percent) { steps << QString::number(percent); });
    states.Synchronize_Item("Root");
    EXPECT_EQ(steps, (QStringList{"shown", "33", "66", "100", "hidden"}));
    steps.clear();
    states.Synchronize_Item("1_1");
    EXPECT_EQ(steps, (QStringList{"shown", "50", "100", "hidden"}));
    steps.clear();
    states.Synchronize_Item("2_1_1");
    EXPECT_EQ(steps, (QStringList{"shown", "100", "hidden"}));
}

TEST_F(PlantStatesTest, AFailureKeepsTheInstrumentsOfTheSlicesBeforeAndNoneHalf)
{
    constexpr int kSlice = structure::PlantStates::kSlice, kAll = 2 * kSlice + 50;
    runOnPlant(QStringLiteral(R"(
        WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)
        INSERT INTO tbInstrumentsUser SELECT 3, i, 'KT100', 'N' || i, NULL, NULL FROM n;
        CREATE TRIGGER t BEFORE INSERT ON tbParametersUser WHEN NEW.IDInst = %2 AND NEW.IDPar = 'P0299'
            BEGIN SELECT RAISE(FAIL, 'full'); END;)")
                   .arg(kAll)
                   .arg(kSlice + 50));
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(states.Synchronize_Item("1_3"));
    failures.expectOne(platform::errors::kDatabase, "Module/Synchronize_Item");
    EXPECT_EQ(count("tbParametersUser", QStringLiteral("IDGrp = 3 AND IDInst > %1").arg(kSlice)), 0)
        << "the slice that broke off";
    EXPECT_EQ(count("(SELECT DISTINCT IDInst FROM tbParametersUser WHERE IDGrp = 3)"), kSlice);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    runOnPlant("DROP TRIGGER t;");
    EXPECT_TRUE(states.Synchronize_Item("1_3"));
    EXPECT_EQ(
        count("(SELECT IDInst FROM tbParametersUser WHERE IDGrp = 3 GROUP BY IDInst HAVING Count(*) = 16)"),
        kAll);
}

TEST_F(PlantStatesTest, TheWordsTellTheInstrumentItsPlaceAndWhatWasAdded)
{
    QStringList told;
    QObject::connect(&states, &structure::PlantStates::stepTold,
                     [&](const QString& words) { told << words; });
    states.Synchronize_Item("Root");
    EXPECT_EQ(told, (QStringList{"Synchronising INST11 (1 of 3), parameters added: 0",
                                 "Synchronising ALPHA (2 of 3), parameters added: 2",
                                 "Synchronising inst21 (3 of 3), parameters added: 2"}));
    told.clear();
    states.Synchronize_Item("2_1_1");
    EXPECT_EQ(told, QStringList()) << "one instrument takes no time";

    // Once a per cent, however many there are.
    runOnPlant("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300)"
               "INSERT INTO tbInstrumentsUser SELECT 3, i, 'GONE', 'N' || i, NULL, NULL FROM n;");
    ASSERT_TRUE(connectPlant());
    states.Synchronize_Item("1_3");
    EXPECT_EQ(told.size(), 100);
    EXPECT_EQ(told.last(), "Synchronising N300 (300 of 300), parameters added: 0");
}

TEST_F(PlantStatesTest, AnInstrumentsStatementsSeeTheInstrumentsBeforeItOnly)
{
    // Two of one type side by side: what the first one has is not what the second one lacks.
    runOnPlant("INSERT INTO tbInstrumentsUser VALUES (3, 1, 'KT100', 'BARE', NULL, NULL);");
    ASSERT_TRUE(connectPlant());
    EXPECT_TRUE(states.Synchronize_Item("Root"));
    EXPECT_EQ(count("tbParametersUser", "IDGrp = 3 AND IDInst = 1 AND State = 2 AND Value = '0'"), 16);
    EXPECT_EQ(count("tbParametersUser", "IDGrp = 1 AND IDInst = 1"), 16);
    EXPECT_EQ(count("tbParametersUser", "IDGrp = 2 AND IDInst = 1 AND IDParGrp NOT IN ('G11', 'G12')"), 0);
}

// The commands
// -------------------------------------------------------------------------------------------------------

TEST_F(PlantStatesTest, ResyncTellsHowManyWereAdded)
{
    structure.clickNode("1_1");
    structure.pressItem("2_1_1");
    confirm(511);
    expectAdded(2);
    states.Resync_Item();
    EXPECT_EQ(added(), kBoth);
    EXPECT_EQ(op.boxes[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Question);
    EXPECT_EQ(op.boxes[1].icon, platform::Icon::Information);
    EXPECT_EQ(structure.selectedItem(), "2_1_1");

    structure.clickNode("Root");
    confirm(511);
    expectAdded(0);
    states.Resync_Node();
}

TEST_F(PlantStatesTest, AnOpenParameterGroupShowsWhatCameIn)
{
    structure.clickNode("3_1_1_G02");
    confirm(511);
    expectAdded(2);
    states.Resync_Node();
    EXPECT_TRUE(structure.list().item("4_1_1_G02_P0299"));
}

TEST_F(PlantStatesTest, ResetClearsTheMarksAndShowsIt)
{
    structure.clickNode("3_1_1_G02");
    ASSERT_EQ(structure.list().item("4_1_1_G02_P0201")->icon, 6);
    confirm(512);
    op.expect(texts(509), kOk);
    states.Reset_Node();
    EXPECT_EQ(structure.list().item("4_1_1_G02_P0201")->icon, 5);
    EXPECT_EQ(structure.list().item("4_1_1_G02_P0203")->icon, 5);
    EXPECT_EQ(rows("SELECT Value FROM tbParametersUser WHERE IDGrp = 1 AND IDPar = 'P0203'"),
              QStringList{"0"});
    EXPECT_EQ(count("tbParametersUser", "State <> 0"), 4);

    structure.clickNode("1_1");
    structure.pressItem("2_1_2");
    confirm(512);
    op.expect(texts(509), kOk);
    states.Reset_Item();
    EXPECT_EQ(count("tbParametersUser", "State <> 0"), 2);
    structure.clickNode("Root");
    confirm(512);
    op.expect(texts(509), kOk);
    states.Reset_Node();
    EXPECT_EQ(count("tbParametersUser", "State <> 0"), 0);
}

TEST_F(PlantStatesTest, NoAnswersLeaveEverythingAsItIs)
{
    structure.clickNode("Root");
    structure.pressItem("1_1");
    for (int question : {511, 512, 511, 512})
        op.expect(texts(question), kNo);
    states.Resync_Item();
    states.Reset_Item();
    states.Resync_Node();
    states.Reset_Node();
    EXPECT_EQ(added(), QStringList());
    EXPECT_EQ(count("tbParametersUser", "State <> 0"), 6);
}

TEST_F(PlantStatesTest, WithNothingSelectedOrWithoutTheRightNothingIsAsked)
{
    structure.clickNode("Root");
    states.Resync_Item();
    states.Reset_Item();
    setRight("Modify", "0");
    states.Resync_Node();
    states.Reset_Node();
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(count("tbParametersUser", "State <> 0"), 6);
}

TEST_F(PlantStatesTest, AnotherCompanyOpenedWhileTheQuestionStandsIsLeftAlone)
{
    QFile::copy(plantFile(), file("Data/Other.mdb"));
    op.onBox = [this](const QString&) { EXPECT_TRUE(connectTo("Other.mdb")); };
    structure.clickNode("Root");
    confirm(512);
    states.Reset_Node();
    EXPECT_TRUE(connectPlant());
    structure.clickNode("Root");
    confirm(511);
    states.Resync_Node();
    op.onBox = nullptr;
    EXPECT_EQ(
        support::column(file("Data/Other.mdb"), "SELECT Count(*) FROM tbParametersUser WHERE State <> 0"),
        QStringList{"6"});
}

TEST_F(PlantStatesTest, AFailureIsNotCalledASuccess)
{
    structure.clickNode("Root");
    breakDatabase();
    confirm(512);
    states.Reset_Node();
    failures.expectOne(platform::errors::kDatabase, "Module/Restore_Item");
    confirm(511);
    states.Resync_Node();
    failures.expectOne(platform::errors::kDatabase, "Module/Synchronize_Item");
    mendDatabase();
}

TEST_F(PlantStatesTest, EachProcedureReportsItsFailureAsItsOwn)
{
    structure.clickNode("Root");
    structure.selectItem("1_1");
    setLanguage("FR_Francais_3000");
    states.Resync_Item();
    failures.expectUnder("Module/Resync_Item");
    states.Resync_Node();
    failures.expectUnder("frmTreeBus/Resync_Node");
    states.Reset_Item();
    failures.expectUnder("Module/Reset_Item");
    states.Reset_Node();
    failures.expectUnder("frmTreeBus/Reset_Node");
    setLanguage("EN_English_2000");
}

} // namespace
