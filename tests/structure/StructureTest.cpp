#include "support/CompanyFixture.h"

#include <QSignalSpy>

using structure::Structure;

namespace {

class StructureTest : public support::CompanyFixture
{
protected:
    StructureTest() { connectPlant(); }

    QStringList listKeys()
    {
        QStringList keys;
        for (int row = 0; row < structure.list().rowCount(); ++row)
            keys << structure.list().keyAt(row);
        return keys;
    }
};

TEST_F(StructureTest, AClickInTheTreeSelectsLoadsAndTellsThePath)
{
    QSignalSpy followed(&structure, &Structure::nodeSelected);
    QSignalSpy menus(&structure, &Structure::nodeMenusWanted);
    QSignalSpy levels(&structure, &Structure::levelLoaded);
    structure.clickNode("2_1_1");
    EXPECT_EQ(structure.selectedNode(), "2_1_1");
    EXPECT_EQ(structure.path(), "ZEL Bus\\GRP1\\INST11");
    EXPECT_EQ(listKeys(), (QStringList{"3_1_1_G01", "3_1_1_G02", "3_1_1_G03"}));
    EXPECT_EQ(followed.last()[0], "2_1_1");
    EXPECT_EQ(levels.last()[0], 2);
    EXPECT_EQ(menus.count(), 1);
}

TEST_F(StructureTest, AClickOnANodeThatIsGoneIsReported)
{
    structure.clickNode("1_99");
    failures.expectOne(platform::errors::kItemNotFound, "frmTreeBus.tvwBus_NodeClick");
    EXPECT_EQ(structure.selectedNode(), "Root");
}

TEST_F(StructureTest, PressingAnItemSelectsTheNodeAboveItWithoutALoad)
{
    structure.clickNode("Root");
    QSignalSpy menus(&structure, &Structure::itemMenusWanted);
    QSignalSpy levels(&structure, &Structure::levelLoaded);
    structure.clickNode("1_1");
    levels.clear();
    structure.pressItem("2_1_2");
    EXPECT_EQ(structure.selectedItem(), "2_1_2");
    EXPECT_EQ(structure.selectedNode(), "1_1");
    EXPECT_EQ(structure.path(), "ZEL Bus\\GRP1");
    EXPECT_EQ(levels.count(), 0);
    EXPECT_EQ(menus.count(), 1);
}

TEST_F(StructureTest, SelectsTheNodeAboveAListItem)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"Root", "Root", "ZEL Bus"},
        {"1_1", "Root", "ZEL Bus"},
        {"2_1_2", "1_1", "ZEL Bus\\GRP1"},
        {"3_1_2_G11", "2_1_2", "ZEL Bus\\GRP1\\ALPHA"},
        {"4_1_2_G11_P1101", "3_1_2_G11", "ZEL Bus\\GRP1\\ALPHA\\Settings"},
    };
    for (const auto& [key, node, path] : rows) {
        structure.Select_Node_TreeBus(key);
        EXPECT_EQ(structure.selectedNode(), node) << key;
        EXPECT_EQ(structure.path(), path) << key;
    }
    structure.Select_Node_TreeBus("4_9_9_G11_P1101");
    failures.expectOne(platform::errors::kItemNotFound, "Module/Select_Node_TreeBus");
}

TEST_F(StructureTest, ADoubleClickWalksDownToTheParametersAndThenWantsTheirProperty)
{
    QSignalSpy property(&structure, &Structure::propertyWanted);
    for (const char* key : {"Root", "1_1", "2_1_2", "3_1_2_G11"}) {
        structure.pressItem(key);
        structure.openItem(key);
        EXPECT_EQ(structure.selectedNode(), key);
    }
    EXPECT_EQ(structure.path(), "ZEL Bus\\GRP1\\ALPHA\\Settings");
    EXPECT_EQ(listKeys(), (QStringList{"4_1_2_G11_P1101", "4_1_2_G11_P1102", "4_1_2_G11_P1103"}));
    EXPECT_EQ(property.count(), 0);
    structure.pressItem("4_1_2_G11_P1102");
    structure.openItem("4_1_2_G11_P1102");
    ASSERT_EQ(property.count(), 1);
    EXPECT_EQ(property[0][0], "4_1_2_G11_P1102");
    EXPECT_EQ(structure.selectedNode(), "3_1_2_G11");
}

TEST_F(StructureTest, ParentWalksUpToTheSingleRootItem)
{
    structure.clickNode("3_1_1_G01");
    for (const char* key : {"2_1_1", "1_1", "Root"}) {
        structure.Select_Item_ListBus();
        EXPECT_EQ(structure.selectedNode(), key);
        EXPECT_EQ(structure.path(), structure.tree().fullPathOf(key));
    }
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_1", "1_3"}));
    QSignalSpy levels(&structure, &Structure::levelLoaded);
    for (int times = 1; times <= 2; ++times) {
        structure.Select_Item_ListBus();
        EXPECT_EQ(structure.selectedNode(), "");
        EXPECT_EQ(listKeys(), QStringList{"Root"});
        EXPECT_EQ(structure.list().item("Root")->text, "ZEL Bus");
        EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "", ""}));
        EXPECT_EQ(levels.count(), times);
        EXPECT_EQ(levels.last()[0], -1);
    }
    structure.openItem("Root");
    EXPECT_EQ(structure.selectedNode(), "Root");
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_1", "1_3"}));
}

TEST_F(StructureTest, RefreshReloadsTheSelectedNode)
{
    structure.clickNode("Root");
    runOnPlant("INSERT INTO tbGroupsUser VALUES (7, 'Beta', NULL, NULL);");
    structure.Refresh_Item();
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_7", "1_1", "1_3"}));
    structure.selectNode({});
    structure.Refresh_Item();
    EXPECT_EQ(listKeys().size(), 4) << "nothing is selected, nothing is reloaded";
}

TEST_F(StructureTest, ColumnsAreNamedByLevelInTheLanguageOfTheMoment)
{
    const std::pair<int, QStringList> rows[] = {
        {-1, {"Name", "", ""}},
        {0, {"Name", "Phone", "Description"}},
        {1, {"Name", "Address", "Description"}},
        {2, {"Name", "", ""}},
        {3, {"Name", "Value", ""}},
        {4, {"Name", "Value", ""}}, // left as it was
    };
    for (const auto& [level, captions] : rows) {
        structure.Set_ColName_ListBus(level);
        EXPECT_EQ(structure.list().columnCaptions(), captions) << level;
    }
    setLanguage("IT_Italiano_1000");
    structure.Set_ColName_ListBus(0);
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{texts(102), texts(106), texts(103)}));
    EXPECT_NE(structure.list().columnCaptions()[0], "Name");
}

TEST_F(StructureTest, ViewsGoRound)
{
    QSignalSpy views(&structure, &Structure::viewChanged);
    ASSERT_EQ(session.ListBusSet.View, -1);
    for (int view : {0, 1, 2, 3, 0}) {
        structure.Set_View_ListBus(-1);
        EXPECT_EQ(session.ListBusSet.View, view);
        EXPECT_EQ(views.last()[0], view);
    }
    structure.Set_View_ListBus(2);
    EXPECT_EQ(session.ListBusSet.View, 2);
    for (int none : {4, -2}) {
        structure.Set_View_ListBus(none);
        failures.expectOne(platform::errors::kInvalidCall, "Module/Set_View_ListBus");
        EXPECT_EQ(session.ListBusSet.View, 2);
    }
}

TEST_F(StructureTest, TheTreeIsHiddenAndShownInTurnWhateverTheSettingsSaid)
{
    QSignalSpy visible(&structure, &Structure::treeVisibilityChanged);
    session.TreeBusSet.Visible = 0; // the main window hides the tree at its load
    structure.Hide_TreeBus();
    EXPECT_EQ(session.TreeBusSet.Visible, 0);
    EXPECT_EQ(visible.last()[0], false);
    structure.Hide_TreeBus();
    EXPECT_EQ(session.TreeBusSet.Visible, -1);
    EXPECT_EQ(visible.last()[0], true);
}

TEST_F(StructureTest, ExpandsAndCollapsesUnderTheHourglass)
{
    QList<bool> expanded;
    QObject::connect(&structure, &Structure::expandRequested, [&](bool expand) {
        expanded << expand;
        EXPECT_EQ(op.pointer, platform::Pointer::Hourglass);
    });
    for (int flag : {1, -1, 0})
        structure.ExpandCollapse_TreeBusNodes(flag);
    EXPECT_EQ(expanded, (QList<bool>{true, true, false}));
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(StructureTest, AColumnSortsUpwardsThenDownwards)
{
    structure.clickNode("Root");
    structure.clickColumn(2);
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_3", "1_1"}));
    structure.clickColumn(2);
    EXPECT_EQ(listKeys(), (QStringList{"1_1", "1_3", "1_2"}));
    structure.clickColumn(0);
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_1", "1_3"}));
    EXPECT_TRUE(structure.list().sortAscending());
}

TEST_F(StructureTest, ANewGroupIsScrolledIntoView)
{
    QSignalSpy shown(&structure, &Structure::nodeShown);
    EXPECT_TRUE(structure.Add_Node_TreeBus(1, "9", "", "", "NEW"));
    ASSERT_EQ(shown.count(), 1);
    EXPECT_EQ(shown[0][0], "1_9");
    EXPECT_TRUE(structure.Add_Node_TreeBus(2, "9", "1", "", "NEW"));
    EXPECT_TRUE(structure.Add_Node_TreeBus(3, "9", "1", "G01", "Measures"));
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(structure.tree().fullPathOf("3_9_1_G01"), "ZEL Bus\\NEW\\NEW\\Measures");
    EXPECT_EQ(structure.tree().indexOf("3_9_1_G01").data(structure::TreeModel::ImageRole), 4);
}

TEST_F(StructureTest, ANodeTwiceOrWithoutParentIsReported)
{
    EXPECT_FALSE(structure.Add_Node_TreeBus(1, "1", "", "", "again"));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Add_Node_TreeBus");
    EXPECT_FALSE(structure.Add_Node_TreeBus(2, "99", "1", "", "orphan"));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Add_Node_TreeBus");
}

TEST_F(StructureTest, ASelectionRemovedPassesToTheElementAbove)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"1_3", "1_2", "1_2"}, // another one: the selection stays
        {"2_1_1", "3_1_1_G01", "1_1"},
        {"1_1", "1_1", "Root"},
    };
    for (const auto& [removed, selected, then] : rows) {
        structure.selectNode(selected);
        EXPECT_TRUE(structure.Remove_Node_TreeBus(removed));
        EXPECT_FALSE(structure.tree().contains(removed));
        EXPECT_EQ(structure.selectedNode(), then) << removed;
        EXPECT_EQ(structure.path(), structure.tree().fullPathOf(then)) << removed;
    }
    EXPECT_FALSE(structure.Remove_Node_TreeBus("1_1"));
    failures.expectOne(platform::errors::kItemNotFound, "Module/Remove_Node_TreeBus");
}

TEST_F(StructureTest, ItemsComeAndGoOneByOne)
{
    structure.clickNode("1_3");
    EXPECT_TRUE(structure.Add_Item_ListBus(2, "3", "1", "", "INST31", "KT100", "00", 3));
    EXPECT_TRUE(structure.Add_Item_ListBus(1, "3", "", "", "O'Hara", "", "", 2));
    EXPECT_TRUE(structure.Add_Item_ListBus(4, "3", "1", "G01_P0101", "T1", "", "--", 7));
    EXPECT_EQ(listKeys(), (QStringList{"2_3_1", "1_3", "4_3_1_G01_P0101"}));
    const structure::ListItem* item = structure.list().item("2_3_1");
    EXPECT_EQ(item->text, "INST31");
    EXPECT_EQ(item->subtext, "00");
    EXPECT_EQ(item->detail, "KT100");
    EXPECT_EQ(item->icon, 3);

    EXPECT_FALSE(structure.Add_Item_ListBus(2, "3", "1", "", "again", "", "", 3));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Add_Item_ListBus");
    structure.selectItem("1_3");
    EXPECT_TRUE(structure.Remove_Item_ListBus("1_3"));
    EXPECT_EQ(structure.selectedItem(), "");
    EXPECT_FALSE(structure.Remove_Item_ListBus("1_3"));
    failures.expectOne(platform::errors::kItemNotFound, "Module/Remove_Item_ListBus");
}

} // namespace
