#include "structure/PlantEditor.h"

#include "session/Lookup.h"
#include "support/CompanyFixture.h"

#include <QSignalSpy>

using platform::answers::kNo;
using platform::answers::kYes;
using structure::Structure;

namespace {

// A pick-list in which the operator has made up his mind.
class ChosenType : public session::Lookup
{
public:
    QString ShowZoom(const QString& Value) override
    {
        asked << Value;
        if (meanwhile)
            meanwhile();
        return answer;
    }

    QString answer;
    QStringList asked;
    std::function<void()> meanwhile;
};

class PlantEditorTest : public support::CompanyFixture
{
protected:
    PlantEditorTest() { connectPlant(); }
    ~PlantEditorTest() override { expectAgreement(); }

    QStringList plant(const QString& sql) { return support::column(plantFile(), sql); }

    // What the database holds stands in the tree, and the children of the selected node in the list.
    void expectAgreement()
    {
        for (int level = 1; level <= 2; ++level) {
            const QString keys = level == 1 ? "SELECT '1_' || IDGrp FROM tbGroupsUser"
                                            : "SELECT '2_' || IDGrp || '_' || IDInst FROM tbInstrumentsUser";
            EXPECT_EQ(treeKeys(level), sorted(plant(keys)));
        }
        const QString node = structure.selectedNode();
        if (node == "Root" && structure.list().keyAt(0) != "Root") {
            EXPECT_EQ(listKeys(), treeKeys(1));
        } else if (node.startsWith("1_")) {
            EXPECT_EQ(listKeys(), sorted(plant("SELECT '2_' || IDGrp || '_' || IDInst FROM tbInstrumentsUser "
                                               "WHERE IDGrp = " +
                                               node.mid(2))));
        }
    }
    static QStringList sorted(QStringList keys)
    {
        keys.sort();
        return keys;
    }
    QStringList treeKeys(int level)
    {
        QStringList keys;
        collect(structure.tree().indexOf("Root"), level, keys);
        return sorted(keys);
    }
    void collect(const QModelIndex& node, int depth, QStringList& keys)
    {
        if (depth == 0)
            keys << structure.tree().keyOf(node);
        for (int row = 0; depth > 0 && row < structure.tree().rowCount(node); ++row)
            collect(structure.tree().index(row, 0, node), depth - 1, keys);
    }
    QStringList listKeys()
    {
        QStringList keys;
        for (int row = 0; row < structure.list().rowCount(); ++row)
            keys << structure.list().keyAt(row);
        return sorted(keys);
    }
    QStringList nodesBelow(const QString& key)
    {
        QStringList captions;
        const QModelIndex node = structure.tree().indexOf(key);
        for (int row = 0; row < structure.tree().rowCount(node); ++row)
            captions << structure.tree().captionOf(
                structure.tree().keyOf(structure.tree().index(row, 0, node)));
        return captions;
    }
    void expectQuestion(int offset, int answer) { op.expect(texts(offset), answer); }
    void addInstrument(const QString& type)
    {
        lookup.answer = type;
        editor.New_Item();
    }
    void breakDatabase() { session.cnDatabase.Execute("PRAGMA query_only=ON;"); }

    ChosenType lookup;
    structure::PlantEditor editor{{session, texts, op, structure, lookup, [this](const QString& key) {
                                       edited << key;
                                       if (onEdit)
                                           onEdit();
                                   }}};
    QStringList edited; // the keys of the new elements whose data the operator gave
    std::function<void()> onEdit;
};

TEST_F(PlantEditorTest, AnInstrumentWhoseParameterGroupsAreLostStandsInTreeAndListAllTheSame)
{
    structure.clickNode("1_3");
    lookup.meanwhile = [this] { runOnPlant("DROP TABLE tbParamGroupLanguage;"); };
    addInstrument("KT200");
    failures.expectOne(platform::errors::kDatabase, "Module/New_Item");
    EXPECT_TRUE(structure.tree().contains("2_3_1"));
    EXPECT_TRUE(structure.list().item("2_3_1"));
    EXPECT_EQ(plant("SELECT Count(*) FROM tbInstrumentsUser WHERE IDGrp = 3"), QStringList{"1"});
}

// Groups
// ------------------------------------------------------------------------------------------------------------

TEST_F(PlantEditorTest, AGroupIsAddedAtTheRoot)
{
    structure.clickNode("Root");
    expectQuestion(584, kYes);
    onEdit = [&] {
        EXPECT_TRUE(structure.list().item("1_4")) << "it stands in the list before it is edited";
    };
    editor.New_Item();
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Question);
    EXPECT_EQ(op.boxes[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(op.boxes[0].title, "Calidora");
    EXPECT_EQ(edited, QStringList{"1_4"});
    EXPECT_EQ(session.ClipKey, "") << "the clipboard is the operator's";
    EXPECT_EQ(structure.tree().captionOf("1_4"), "GRP4");
    EXPECT_EQ(structure.list().item("1_4")->text, "GRP4");
    EXPECT_EQ(structure.list().item("1_4")->icon, 2);
    EXPECT_EQ(plant("SELECT quote(Description) || quote(Phone) FROM tbGroupsUser WHERE IDGrp = 4"),
              QStringList{"NULLNULL"});
    EXPECT_EQ(structure.selectedNode(), "Root");
}

TEST_F(PlantEditorTest, ANoAddsNothingAndReloadsTheList)
{
    structure.clickNode("Root");
    expectQuestion(584, kNo);
    QSignalSpy loaded(&structure, &Structure::levelLoaded);
    editor.New_Item();
    EXPECT_EQ(loaded.count(), 1);
    EXPECT_EQ(edited, QStringList());
}

TEST_F(PlantEditorTest, TheFirstGroupOfACompanyIsGrp1)
{
    runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;");
    connectPlant();
    expectQuestion(584, kYes);
    editor.New_Item();
    EXPECT_EQ(plant("SELECT IDGrp || Name FROM tbGroupsUser"), QStringList{"1GRP1"});
    EXPECT_EQ(edited, QStringList{"1_1"});
}

TEST_F(PlantEditorTest, TheHighestGroupDeletedAndAddedHasTheSameNumber)
{
    structure.clickNode("Root");
    structure.pressItem("1_3");
    expectQuestion(506, kYes);
    editor.Delete_Item();
    EXPECT_FALSE(structure.tree().contains("1_3"));
    expectQuestion(584, kYes);
    editor.New_Item();
    EXPECT_EQ(structure.tree().captionOf("1_3"), "GRP3");
}

TEST_F(PlantEditorTest, AFailedGroupLeavesTreeAndListAlone)
{
    structure.clickNode("Root");
    breakDatabase();
    expectQuestion(584, kYes);
    editor.New_Item();
    failures.expectOne(platform::errors::kDatabase, "Module/Add_Record_Db");
    EXPECT_EQ(edited, QStringList());
}

TEST_F(PlantEditorTest, WithoutANumberThereIsNoGroup)
{
    structure.clickNode("Root");
    runOnPlant("INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (2147483647, 'LAST');");
    connectPlant();
    expectQuestion(584, kYes);
    editor.New_Item();
    failures.expectOne(platform::errors::kOverflow, "Module/IDMax_Grp");
}

// Instruments
// -------------------------------------------------------------------------------------------------------

TEST_F(PlantEditorTest, TheTypeIsChosenFromTheCatalogue)
{
    structure.clickNode("1_3");
    addInstrument("");
    const session::ZoomSettings& asked = lookup.ZoomSet;
    EXPECT_EQ(lookup.asked, QStringList{"*"});
    EXPECT_EQ(asked.Caption, "Items");
    EXPECT_EQ(asked.Connection, session.ConnectionString);
    EXPECT_EQ(asked.Select.simplified(),
              "SELECT tbInstrument.mTag AS ID, tbInstrumentLanguage.mDesc AS Description FROM tbInstrument "
              "INNER JOIN tbInstrumentLanguage ON tbInstrument.mTag = tbInstrumentLanguage.mID");
    EXPECT_EQ(asked.Where, "(mTag <> 'ALIEN') AND (mKeyLang = 'EN')");
    EXPECT_EQ(asked.OrderBy, "mTag");
    EXPECT_EQ(asked.GroupBy, "");
    EXPECT_EQ(asked.KeyField, "mTag");
    EXPECT_EQ(asked.NameField, "");
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(edited, QStringList()) << "nothing chosen, nothing made";
}

TEST_F(PlantEditorTest, AnInstrumentComesWithItsNodes)
{
    structure.clickNode("1_3");
    addInstrument("KT200");
    EXPECT_EQ(structure.tree().captionOf("2_3_1"), "INST31");
    EXPECT_EQ(nodesBelow("2_3_1"), (QStringList{"Settings", "Service"}));
    const structure::ListItem* item = structure.list().item("2_3_1");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->text, "INST31");
    EXPECT_EQ(item->subtext, "2A");
    EXPECT_EQ(item->detail, "KT200");
    EXPECT_EQ(item->icon, 3);
    EXPECT_EQ(edited, QStringList{"2_3_1"});
}

TEST_F(PlantEditorTest, EveryParameterGroupHasItsNodeInTheCurrentLanguage)
{
    setLanguage("RU_Russian_6000");
    connectPlant();
    runOnPlant("DELETE FROM tbParamLanguage WHERE mID LIKE 'P01%';");
    structure.clickNode("1_3");
    addInstrument("KT100");
    EXPECT_EQ(nodesBelow("2_3_1"), (QStringList{"Измерения", "Состояния", "Время", "Ничего"}));
    EXPECT_TRUE(lookup.ZoomSet.Select.simplified().contains(" AS Описание "));
    EXPECT_TRUE(lookup.ZoomSet.Where.contains("'RU'"));
}

TEST_F(PlantEditorTest, NamesOfTwoGroupsMayReadTheSame)
{
    runOnPlant("INSERT INTO tbGroupsUser (IDGrp, Name) VALUES (11, 'ELEVEN');"
               "INSERT INTO tbInstrumentsUser (IDGrp, IDInst, Name) VALUES (1, 11, 'X'), (11, 1, 'Y');");
    connectPlant();
    structure.clickNode("1_1");
    addInstrument("KT200");
    structure.clickNode("1_11");
    addInstrument("KT200");
    EXPECT_EQ(structure.tree().captionOf("2_1_12"), "INST112");
    EXPECT_EQ(structure.tree().captionOf("2_11_2"), "INST112");
}

TEST_F(PlantEditorTest, TheAddressIsThatOfTheTypeOrDoubleZero)
{
    struct Row
    {
        const char* mBaseAddr;
        const char* Address;
    };
    int number = 0;
    for (const Row& row :
         {Row{"'2A'", "2A"}, Row{"'0a'", "0a"}, Row{"'10'", "10"}, Row{"'0'", "00"}, Row{"'000'", "00"},
          Row{"''", "00"}, Row{"NULL", "00"}, Row{"'2G'", "00"}, Row{"'0x10'", "00"}, Row{"' 10'", "00"},
          Row{"'-1'", "00"}, Row{"'FFFFFFFFFFFFFFFFFF'", "FFFFFFFFFFFFFFFFFF"}}) {
        runOnPlant(
            QString("UPDATE tbInstrument SET mBaseAddr = %1 WHERE mTag = 'KT200';").arg(row.mBaseAddr));
        connectPlant();
        structure.clickNode("1_3");
        addInstrument("KT200");
        const QString key = "2_3_" + QString::number(++number);
        ASSERT_TRUE(structure.list().item(key)) << row.mBaseAddr;
        EXPECT_EQ(structure.list().item(key)->subtext, row.Address) << row.mBaseAddr;
    }
}

TEST_F(PlantEditorTest, TwoInstrumentsOfATypeShareItsAddress)
{
    structure.clickNode("1_3");
    addInstrument("KT200");
    addInstrument("KT200");
    EXPECT_EQ(plant("SELECT Address FROM tbInstrumentsUser WHERE IDGrp = 3"), (QStringList{"2A", "2A"}));
}

TEST_F(PlantEditorTest, ATypeThatVanishedWhileItWasChosenMakesNothing)
{
    structure.clickNode("1_3");
    lookup.meanwhile = [this] { runOnPlant("DELETE FROM tbInstrument WHERE mTag = 'KT200';"); };
    addInstrument("KT200");
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "Module/Add_Record_Db");
    EXPECT_EQ(reported[0].description, "The catalogue holds no type KT200.");
    EXPECT_FALSE(structure.tree().contains("2_3_1"));
}

TEST_F(PlantEditorTest, AGroupThatVanishedWhileTheTypeWasChosenTakesNothing)
{
    structure.clickNode("1_3");
    lookup.meanwhile = [this] { runOnPlant("DELETE FROM tbGroupsUser WHERE IDGrp = 3;"); };
    addInstrument("KT200");
    failures.expectOne(platform::errors::kDatabase, "Module/Add_Record_Db");
    EXPECT_FALSE(structure.tree().contains("2_3_1"));
    connectPlant();
}

TEST_F(PlantEditorTest, BelowAGroupNothingIsAdded)
{
    for (const char* node : {"2_1_1", "3_1_1_G01"}) {
        structure.clickNode(node);
        editor.New_Item();
        EXPECT_TRUE(op.boxes.empty());
        EXPECT_TRUE(lookup.asked.isEmpty());
    }
}

TEST_F(PlantEditorTest, WithoutASelectedNodeANewItemIsAFailure)
{
    structure.Select_Item_ListBus();
    ASSERT_EQ(structure.selectedNode(), "");
    editor.New_Item();
    failures.expectOne(platform::errors::kObjectNotSet, "Module/New_Item");
}

// Deleting an item
// --------------------------------------------------------------------------------------------------

TEST_F(PlantEditorTest, AnItemIsDeletedWithItsNode)
{
    structure.clickNode("1_1");
    structure.pressItem("2_1_2");
    expectQuestion(506, kYes);
    QSignalSpy focus(&structure, &Structure::listFocusWanted);
    editor.Delete_Item();
    EXPECT_EQ(op.boxes[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(op.boxes[0].buttons, platform::Buttons::YesNo);
    EXPECT_FALSE(structure.tree().contains("2_1_2"));
    EXPECT_EQ(listKeys(), QStringList{"2_1_1"});
    EXPECT_EQ(structure.selectedItem(), "2_1_1") << "the next one is selected";
    EXPECT_EQ(structure.selectedNode(), "1_1");
    EXPECT_EQ(structure.path(), "ZEL Bus\\GRP1");
    EXPECT_EQ(focus.count(), 1);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(PlantEditorTest, TheLastItemDeletedLeavesNoneSelected)
{
    structure.clickNode("1_2");
    structure.pressItem("2_2_1");
    expectQuestion(506, kYes);
    editor.Delete_Item();
    EXPECT_EQ(structure.selectedItem(), "");
    EXPECT_EQ(structure.list().rowCount(), 0);
    EXPECT_EQ(structure.selectedNode(), "1_2");
}

TEST_F(PlantEditorTest, AGroupWithAnApostropheIsDeleted)
{
    structure.clickNode("Root");
    structure.pressItem("1_3");
    expectQuestion(506, kYes);
    editor.Delete_Item();
    EXPECT_EQ(structure.selectedItem(), "1_1");
    EXPECT_EQ(structure.path(), "ZEL Bus");
}

TEST_F(PlantEditorTest, TheNodeFollowsTheItemThatIsSelectedBehindADeletion)
{
    structure.clickNode("1_1");
    structure.pressItem("2_1_2");
    structure.selectNode("1_2");
    expectQuestion(506, kYes);
    editor.Delete_Item();
    EXPECT_EQ(structure.selectedItem(), "2_1_1");
    EXPECT_EQ(structure.selectedNode(), "1_1");
}

TEST_F(PlantEditorTest, ANoDeletesNothing)
{
    structure.clickNode("1_1");
    structure.pressItem("2_1_2");
    expectQuestion(506, kNo);
    QSignalSpy focus(&structure, &Structure::listFocusWanted);
    editor.Delete_Item();
    EXPECT_TRUE(structure.list().item("2_1_2"));
    EXPECT_EQ(structure.selectedItem(), "2_1_2");
    EXPECT_EQ(focus.count(), 0);
}

TEST_F(PlantEditorTest, WithoutASelectedItemNobodyIsAsked)
{
    structure.clickNode("1_1");
    editor.Delete_Item();
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(PlantEditorTest, TheRootIsAskedAboutAndStays)
{
    structure.Select_Item_ListBus();
    structure.selectItem("Root");
    expectQuestion(506, kYes);
    editor.Delete_Item();
    EXPECT_EQ(structure.list().keyAt(0), "Root");
    EXPECT_TRUE(structure.tree().contains("Root"));
    EXPECT_EQ(structure.selectedNode(), "");
}

TEST_F(PlantEditorTest, AFailedDeletionLeavesTreeAndListAlone)
{
    structure.clickNode("1_1");
    structure.pressItem("2_1_2");
    breakDatabase();
    expectQuestion(506, kYes);
    editor.Delete_Item();
    failures.expectOne(platform::errors::kDatabase, "Module/Remove_Record_Db");
    EXPECT_EQ(structure.selectedItem(), "2_1_2");
    EXPECT_TRUE(structure.tree().contains("2_1_2"));
}

// Deleting a node
// ---------------------------------------------------------------------------------------------------

TEST_F(PlantEditorTest, ANodeIsDeletedAndTheOneAboveIsShown)
{
    structure.clickNode("2_1_2");
    expectQuestion(506, kYes);
    editor.Delete_Node();
    EXPECT_FALSE(structure.tree().contains("2_1_2"));
    EXPECT_FALSE(structure.tree().contains("3_1_2_G11"));
    EXPECT_EQ(structure.selectedNode(), "1_1");
    EXPECT_EQ(structure.path(), "ZEL Bus\\GRP1");
    EXPECT_EQ(listKeys(), QStringList{"2_1_1"});
}

TEST_F(PlantEditorTest, AGroupsNodeIsDeletedWhileTheListShowsTheGroups)
{
    structure.clickNode("Root");
    structure.selectNode("1_1");
    expectQuestion(506, kYes);
    editor.Delete_Node();
    EXPECT_EQ(structure.selectedNode(), "Root");
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_3"}));
}

TEST_F(PlantEditorTest, TheRootsNodeIsAskedAboutAndStays)
{
    structure.clickNode("Root");
    expectQuestion(506, kYes);
    editor.Delete_Node();
    EXPECT_TRUE(structure.tree().contains("Root"));
    EXPECT_EQ(structure.tree().rowCount(structure.tree().indexOf("Root")), 3);
}

TEST_F(PlantEditorTest, AFailedDeletionKeepsTheNodeSelected)
{
    structure.clickNode("1_1");
    breakDatabase();
    expectQuestion(506, kYes);
    editor.Delete_Node();
    failures.expectOne(platform::errors::kDatabase, "Module/Remove_Record_Db");
    EXPECT_EQ(structure.selectedNode(), "1_1");
    EXPECT_EQ(listKeys().size(), 2);
}

TEST_F(PlantEditorTest, WithoutASelectedNodeNobodyIsAskedAboutADeletion)
{
    structure.Select_Item_ListBus();
    editor.Delete_Node();
    EXPECT_TRUE(op.boxes.empty());
}

} // namespace
