#include "structure/PlantClipboard.h"

#include "session/Session.h"
#include "structure/PlantFixture.h"

using platform::answers::kNo;
using platform::answers::kOk;
using platform::answers::kYes;

namespace {

class PlantClipboardTest : public plant::PlantFixture
{
protected:
    void expectQuestion(int offset, int answer) { op.expect(texts(offset), answer); }
    void expectDone() { op.expect(texts(509), kOk); }
    void clipboardIs(int operation, const QString& key)
    {
        EXPECT_EQ(session.ClipOperation, operation);
        EXPECT_EQ(session.ClipKey, key);
    }
    void cutNode(const QString& key)
    {
        structure.clickNode(key);
        clipboard.Cut_Node();
    }
    void copyNode(const QString& key)
    {
        structure.clickNode(key);
        clipboard.Copy_Node();
    }
    void pasteOn(const QString& key)
    {
        structure.clickNode(key);
        clipboard.Paste_Item();
    }

    structure::PlantClipboard clipboard{{session, texts, op, structure, editor}};
};

// Noting
// ------------------------------------------------------------------------------------------------------------

TEST_F(PlantClipboardTest, CutAndCopyNoteTheKeyAndNoMore)
{
    structure.clickNode("Root");
    structure.pressItem("1_2");
    clipboard.Cut_Item();
    clipboardIs(session::ClipCut, "1_2");
    structure.clickNode("1_1");
    structure.pressItem("2_1_1");
    clipboard.Copy_Item();
    clipboardIs(session::ClipCopy, "2_1_1");
    cutNode("2_1_2");
    clipboardIs(session::ClipCut, "2_1_2");
    copyNode("1_3");
    clipboardIs(session::ClipCopy, "1_3");
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PlantClipboardTest, WhatCannotBeMovedIsNotNoted)
{
    for (const QString key : {"Root", "3_1_1_G01"}) {
        cutNode(key);
        copyNode(key);
    }
    structure.clickNode("3_1_1_G01");
    structure.pressItem("4_1_1_G01_P0101");
    clipboard.Cut_Item();
    structure.selectItem({});
    clipboard.Copy_Item();
    clipboardIs(session::ClipNothing, "");
}

TEST_F(PlantClipboardTest, WithoutTheRightToModifyNothingIsNotedOrPasted)
{
    copyNode("1_1");
    setRight("Modify", "0");
    cutNode("1_2");
    clipboardIs(session::ClipCopy, "1_1");
    pasteOn("Root");
    EXPECT_EQ(count("tbGroupsUser"), 3);
}

TEST_F(PlantClipboardTest, WhatIsCutIsPaleUntilItIsPasted)
{
    const auto paleNode = [this](const QString& key) {
        return structure.tree().indexOf(key).data(structure::TreeModel::PaleRole).toBool();
    };
    const auto paleItem = [this](const QString& key) {
        return structure.list()
            .index(structure.list().rowOf(key), 0)
            .data(structure::ListModel::PaleRole)
            .toBool();
    };
    structure.clickNode("Root");
    structure.pressItem("1_2");
    clipboard.Cut_Item();
    EXPECT_TRUE(paleNode("1_2"));
    EXPECT_TRUE(paleItem("1_2"));
    EXPECT_FALSE(paleItem("1_1"));
    structure.pressItem("1_1");
    clipboard.Copy_Item();
    EXPECT_FALSE(paleNode("1_2"));
    EXPECT_FALSE(paleItem("1_2"));
    EXPECT_FALSE(paleNode("1_1")) << "a copy is not pale";

    structure.pressItem("1_2");
    clipboard.Cut_Item();
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(paleNode("1_2")) << "another company, or the same one again";
}

// Pasting
// -----------------------------------------------------------------------------------------------------------

TEST_F(PlantClipboardTest, WithAnEmptyClipboardNothingHappens)
{
    pasteOn("Root");
    session.ClipKey = "1_1";
    pasteOn("Root");
    session.ClipKey.clear();
    session.ClipOperation = session::ClipCopy;
    pasteOn("Root");
    EXPECT_TRUE(op.boxes.empty());
    copyNode("1_1");
    structure.selectNode({});
    clipboard.Paste_Item();
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PlantClipboardTest, ACopiedGroupComesOverWithAllItHolds)
{
    copyNode("1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(op.boxes[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Question);
    EXPECT_EQ(op.boxes[1].icon, platform::Icon::Information);
    EXPECT_EQ(op.boxes[1].title, "Calidora");
    EXPECT_EQ(rows("SELECT Name || '|' || Description || '|' || Phone FROM tbGroupsUser WHERE IDGrp = 4"),
              QStringList{"GRP1|Market \"North\"|0551234567"});
    EXPECT_EQ(rows("SELECT IDInst || IDItem || Name || Description || Address FROM tbInstrumentsUser "
                   "WHERE IDGrp = 4 ORDER BY IDInst"),
              (QStringList{"1KT100INST11KT10000", "2KT200ALPHASecond2A"}));
    EXPECT_EQ(parametersOf("IDGrp = 4"), parametersOf("IDGrp = 1"));
    EXPECT_FALSE(parametersOf("IDGrp = 4").isEmpty());
    EXPECT_TRUE(structure.tree().contains("3_4_2_G11"));
    EXPECT_TRUE(structure.list().item("1_4"));
    clipboardIs(session::ClipNothing, "");
}

TEST_F(PlantClipboardTest, ACopiedInstrumentGetsTheNextNumberOfItsNewGroup)
{
    runOnPlant("UPDATE tbInstrumentsUser SET IDInst = 7 WHERE IDGrp = 2; "
               "UPDATE tbParametersUser SET IDInst = 7 WHERE IDGrp = 2;");
    ASSERT_TRUE(connectPlant());
    copyNode("2_1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("1_2");
    EXPECT_EQ(rows("SELECT IDInst || IDItem || Name || Description || Address FROM tbInstrumentsUser "
                   "WHERE IDGrp = 2 ORDER BY IDInst"),
              (QStringList{"NULL", "8KT100INST11KT10000"}));
    EXPECT_EQ(parametersOf("IDGrp = 2 AND IDInst = 8"), parametersOf("IDGrp = 1 AND IDInst = 1"));
    EXPECT_EQ(count("tbInstrumentsUser"), 4) << "no other instrument of the source came along";
    EXPECT_TRUE(structure.tree().contains("3_2_8_G02"));
}

TEST_F(PlantClipboardTest, AnInstrumentPastedIntoItsOwnGroupStandsThereTwiceWithOneAddress)
{
    copyNode("2_1_2");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("1_1");
    EXPECT_EQ(rows("SELECT IDInst || Address FROM tbInstrumentsUser WHERE IDGrp = 1 AND Address = '2A' ORDER "
                   "BY IDInst"),
              (QStringList{"22A", "32A"}));
}

TEST_F(PlantClipboardTest, ACutGroupGetsANewNumberAndTheOldOneGoes)
{
    const QStringList before = parametersOf("IDGrp = 1");
    cutNode("1_1");
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(rows("SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp"), (QStringList{"2", "3", "4"}));
    EXPECT_EQ(parametersOf("IDGrp = 4"), before);
    EXPECT_EQ(count("tbParametersUser", "IDGrp = 1"), 0);
    EXPECT_FALSE(structure.tree().contains("1_1"));
    clipboardIs(session::ClipNothing, "");
}

TEST_F(PlantClipboardTest, ACutInstrumentMovesToTheOtherGroup)
{
    cutNode("2_1_1");
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("1_3");
    EXPECT_EQ(rows("SELECT IDGrp || '.' || IDInst FROM tbInstrumentsUser ORDER BY IDGrp, IDInst"),
              (QStringList{"1.2", "2.1", "3.1"}));
    EXPECT_EQ(structure.selectedNode(), "1_3");
    EXPECT_TRUE(structure.list().item("2_3_1"));
}

TEST_F(PlantClipboardTest, OnlyTheLevelAboveTakesAnElement)
{
    const std::pair<const char*, const char*> rows[] = {
        {"1_1", "1_2"}, {"1_1", "2_1_1"}, {"2_1_1", "Root"}, {"2_1_1", "2_1_2"}, {"2_1_1", "3_1_1_G01"}};
    for (const auto& [source, target] : rows) {
        copyNode(source);
        expectQuestion(510, kOk);
        pasteOn(target);
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        clipboardIs(session::ClipCopy, source);
    }
    EXPECT_EQ(count("tbInstrumentsUser"), 3);
}

TEST_F(PlantClipboardTest, ANoKeepsTheClipboardAndTheNextPasteAsksAgain)
{
    cutNode("1_3");
    expectQuestion(507, kNo);
    pasteOn("Root");
    clipboardIs(session::ClipCut, "1_3");
    EXPECT_TRUE(structure.tree().contains("1_3"));
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_FALSE(structure.tree().contains("1_3"));
    EXPECT_TRUE(structure.tree().contains("1_4"));
    clipboard.Paste_Item();
    EXPECT_EQ(op.boxes.size(), 3) << "the key is gone after a paste";
}

TEST_F(PlantClipboardTest, AGroupWithoutInstrumentsIsCopiedToo)
{
    copyNode("1_3");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(rows("SELECT Name FROM tbGroupsUser WHERE IDGrp = 4"), QStringList{"O'Hara"});
    EXPECT_EQ(structure.tree().rowCount(structure.tree().indexOf("1_4")), 0);
}

TEST_F(PlantClipboardTest, AnInstrumentWhoseTypeLeftTheCatalogueIsCopiedAllTheSame)
{
    runOnPlant("UPDATE tbInstrumentsUser SET IDItem = 'GONE' WHERE IDGrp = 1 AND IDInst = 1;");
    copyNode("2_1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("1_2");
    EXPECT_EQ(parametersOf("IDGrp = 2 AND IDInst = 2"), parametersOf("IDGrp = 1 AND IDInst = 1"));
}

// What comes in between
// ---------------------------------------------------------------------------------------------

TEST_F(PlantClipboardTest, ASourceThatIsGoneCopiesNothingAndSaysSo)
{
    for (const QString key : {"2_1_1", "1_3"}) {
        copyNode(key);
        runOnPlant("DELETE FROM tbParametersUser WHERE IDGrp = 1 AND IDInst = 1; "
                   "DELETE FROM tbInstrumentsUser WHERE IDGrp = 1 AND IDInst = 1; "
                   "DELETE FROM tbGroupsUser WHERE IDGrp = 3;");
        expectQuestion(508, kYes);
        pasteOn(key == "1_3" ? "Root" : "1_2");
        failures.expectOne(platform::errors::kItemNotFound, "Module/Duplicate_Item");
        clipboardIs(session::ClipNothing, "");
    }
    EXPECT_EQ(count("tbInstrumentsUser", "IDGrp = 2"), 1);
    EXPECT_EQ(count("tbGroupsUser"), 2);
    ASSERT_TRUE(connectPlant()); // the tree that showed what another program had taken
}

TEST_F(PlantClipboardTest, AnotherElementUnderTheNumberOfADeletedOneIsNotTakenForIt)
{
    const std::pair<const char*, const char*> deletions[] = {
        {"1_3", "1_3"}, {"2_1_2", "2_1_2"}, {"2_2_1", "1_2"}};
    for (const auto& [noted, deleted] : deletions) {
        cutNode(noted);
        ASSERT_TRUE(editor.Erase_Item(deleted));
        runOnPlant("INSERT OR IGNORE INTO tbGroupsUser (IDGrp, Name) VALUES (2, 'ANOTHER'), (3, 'NEW');"
                   "INSERT OR IGNORE INTO tbInstrumentsUser VALUES (1, 2, 'KT200', 'NEW', NULL, '11'),"
                   "(2, 1, 'KT200', 'NEW', NULL, '11')");
        op.expect(texts.own("paste.gone"), kOk);
        pasteOn(QString(noted).startsWith("1") ? "Root" : "1_1");
        EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
        clipboardIs(session::ClipNothing, "");
        ASSERT_TRUE(connectPlant());
        session.CurrentUser.Modify = "-1";
    }
    EXPECT_EQ(count("tbGroupsUser"), 3);
    EXPECT_EQ(count("tbInstrumentsUser"), 3);
    // What is noted next is there again, and what goes beside it is nothing to it.
    cutNode("2_1_1");
    ASSERT_TRUE(editor.Erase_Item("1_3"));
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("1_2");
}

TEST_F(PlantClipboardTest, ATargetThatIsGoneTakesNothing)
{
    copyNode("2_1_1");
    structure.clickNode("1_3");
    runOnPlant("DELETE FROM tbGroupsUser WHERE IDGrp = 3;");
    expectQuestion(508, kYes);
    clipboard.Paste_Item();
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "Module/Duplicate_Item");
    EXPECT_EQ(reported[0].description, texts.own("paste.target"));
    EXPECT_EQ(count("tbInstrumentsUser", "IDGrp = 3"), 0);
    ASSERT_TRUE(connectPlant());
}

TEST_F(PlantClipboardTest, AnotherCompanyOpenedWhileTheQuestionStandsIsLeftAlone)
{
    cutNode("1_1");
    QFile::copy(plantFile(), file("Data/Other.mdb"));
    op.onBox = [this](const QString&) { EXPECT_TRUE(connectTo("Other.mdb")); };
    expectQuestion(507, kYes);
    pasteOn("Root");
    op.onBox = nullptr;
    EXPECT_EQ(count("tbGroupsUser"), 3);
    EXPECT_EQ(support::column(file("Data/Other.mdb"), "SELECT Count(*) FROM tbGroupsUser"), QStringList{"3"});
    clipboardIs(session::ClipNothing, "");
}

TEST_F(PlantClipboardTest, TheLargestNumbersAreRefusedNotWrapped)
{
    runOnPlant("UPDATE tbGroupsUser SET IDGrp = 2147483647 WHERE IDGrp = 3;");
    ASSERT_TRUE(connectPlant());
    cutNode("1_1");
    expectQuestion(507, kYes);
    pasteOn("Root");
    failures.expectOne(platform::errors::kOverflow, "Module/IDMax_Grp");
    EXPECT_EQ(count("tbGroupsUser"), 3);

    runOnPlant("INSERT INTO tbInstrumentsUser VALUES (2, 2147483647, 'KT200', 'LAST', NULL, NULL);");
    ASSERT_TRUE(connectPlant());
    cutNode("2_1_1");
    expectQuestion(507, kYes);
    pasteOn("1_2");
    failures.expectOne(platform::errors::kOverflow, "Module/IDMax_Inst");
    EXPECT_TRUE(structure.tree().contains("2_1_1"));
}

// Failures
// ----------------------------------------------------------------------------------------------------------

TEST_F(PlantClipboardTest, AFailureLeavesSourceAndTargetAsTheyWereAndEmptiesTheClipboard)
{
    for (const QString key : {"1_1", "2_1_1"}) {
        cutNode(key);
        const QString target = key == "1_1" ? "Root" : "1_2";
        structure.clickNode(target);
        expectQuestion(507, kYes);
        breakDatabase();
        clipboard.Paste_Item();
        mendDatabase();
        failures.expectOne(platform::errors::kDatabase, "Module/Duplicate_Item");
        EXPECT_EQ(count("tbGroupsUser"), 3);
        EXPECT_EQ(count("tbInstrumentsUser"), 3);
        clipboardIs(session::ClipNothing, "");
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
}

TEST_F(PlantClipboardTest, AFailureHalfWayIsRolledBack)
{
    for (const QString key : {"1_1", "2_1_1"}) {
        runOnPlant("CREATE TRIGGER t BEFORE INSERT ON tbParametersUser WHEN NEW.IDPar = 'P0204' "
                   "BEGIN SELECT RAISE(FAIL, 'full'); END;");
        copyNode(key);
        expectQuestion(508, kYes);
        pasteOn(key == "1_1" ? "Root" : "1_2");
        failures.expectOne(platform::errors::kDatabase, "Module/Duplicate_Item");
        runOnPlant("DROP TRIGGER t;");
        EXPECT_EQ(count("tbGroupsUser"), 3);
        EXPECT_EQ(count("tbInstrumentsUser"), 3);
    }
}

TEST_F(PlantClipboardTest, AMoveWhoseErasureFailsLeavesBothAndSaysSo)
{
    cutNode("2_1_1");
    runOnPlant("CREATE TRIGGER t BEFORE DELETE ON tbInstrumentsUser BEGIN SELECT RAISE(FAIL, 'held'); END;");
    expectQuestion(507, kYes);
    op.expect(texts.own("move.both"), kOk);
    pasteOn("1_2");
    failures.expectOne(platform::errors::kDatabase, "Module/Remove_Record_Db");
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Exclamation);
    EXPECT_EQ(rows("SELECT IDGrp FROM tbInstrumentsUser WHERE IDItem = 'KT100' ORDER BY IDGrp"),
              (QStringList{"1", "2"}));
}

TEST_F(PlantClipboardTest, ACatalogueWithoutItsDescriptionsCostsNodesNotRows)
{
    copyNode("1_1");
    structure.clickNode("Root");
    runOnPlant("ALTER TABLE tbParamGroupLanguage RENAME TO lost;");
    expectQuestion(508, kYes);
    clipboard.Paste_Item();
    failures.expectOne(platform::errors::kDatabase, "Module/Duplicate_Item");
    EXPECT_EQ(count("tbGroupsUser"), 4);
    EXPECT_EQ(parametersOf("IDGrp = 4"), parametersOf("IDGrp = 1"));
    runOnPlant("ALTER TABLE lost RENAME TO tbParamGroupLanguage;");
    ASSERT_TRUE(connectPlant());
}

TEST_F(PlantClipboardTest, TheProgressFollowsTheSteps)
{
    QStringList steps;
    QObject::connect(&structure, &structure::Structure::updateShown,
                     [&](bool shown) { steps << (shown ? "shown" : "hidden"); });
    QObject::connect(&structure, &structure::Structure::updateProgress,
                     [&](int percent) { steps << QString::number(percent); });
    copyNode("1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(steps, (QStringList{"shown", "16", "33", "50", "66", "83", "100", "hidden"}));
    steps.clear();
    copyNode("2_1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("1_2");
    EXPECT_EQ(steps, (QStringList{"shown", "25", "50", "75", "100", "hidden"}));
}

TEST_F(PlantClipboardTest, TheWordsTellWhatAPasteOfAGroupIsAt)
{
    QStringList told;
    QObject::connect(&clipboard, &structure::PlantClipboard::stepTold,
                     [&](const QString& words) { told << words; });
    copyNode("1_1");
    expectQuestion(508, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(told, (QStringList{"Copying the instruments of GRP1...", "Copying the parameters of GRP1...",
                                 "Showing the copy of GRP1 in the tree..."}));
    told.clear();
    cutNode("1_1");
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("Root");
    EXPECT_EQ(told.value(3), "Removing the original GRP1...");
    told.clear();
    cutNode("2_2_1");
    expectQuestion(507, kYes);
    expectDone();
    pasteOn("1_3");
    EXPECT_EQ(told, QStringList()) << "an instrument takes no time";
}

TEST_F(PlantClipboardTest, EachProcedureReportsItsFailureAsItsOwn)
{
    structure.selectItem("what");
    structure.selectNode("what");
    clipboard.Cut_Item();
    failures.expectOne(platform::errors::kInvalidCall, "Module/Cut_Item");
    clipboard.Copy_Item();
    failures.expectOne(platform::errors::kInvalidCall, "Module/Copy_Item");
    clipboard.Cut_Node();
    failures.expectOne(platform::errors::kInvalidCall, "frmTreeBus/Cut_Node");
    clipboard.Copy_Node();
    failures.expectOne(platform::errors::kInvalidCall, "frmTreeBus/Copy_Node");
    session.ClipKey = "1_1";
    session.ClipOperation = session::ClipCopy;
    clipboard.Paste_Item();
    failures.expectOne(platform::errors::kInvalidCall, "Module/Paste_Item");
    structure.clickNode("Root");
}

} // namespace
