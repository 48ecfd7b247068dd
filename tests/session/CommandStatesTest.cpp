#include "session/CommandStates.h"

#include "support/CompanyFixture.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace session;

namespace {

class BeforeTheLogin : public support::CompanyFixture
{
protected:
    CommandStates commands{session};
};

// The technician, who has every right, is at work.
class CommandStatesTest : public BeforeTheLogin
{
protected:
    CommandStatesTest() { EXPECT_TRUE(connectPlant()); }
};

// Walking tree and list, a right click, the tree hidden and shown: nothing opens before the login.
TEST_F(BeforeTheLogin, NothingOpensButTheLoginItself)
{
    ASSERT_TRUE(connectTo("Plant.mdb"));
    commands.EnableDisable_TlbMainButtons(-2);
    commands.DisableMainMenu();
    for (int level = -1; level <= 4; ++level) {
        commands.EnableDisable_TlbMainButtons(level);
        commands.EnableDisable_MainMenu(level);
        commands.Enable_MainMenu();
        commands.EnableDisable_StructureButtons(true);
        for (const Place place : {Place::Tree, Place::List}) {
            commands.EnableDisable_Menu(place, level);
            commands.EnableDisable_PopupMenu(place, level);
            for (const char* name : {"New", "Delete", "Cut", "Copy", "Paste", "Refresh", "Resync", "Reset",
                                     "Property", "ReadWrite"}) {
                EXPECT_FALSE(commands.menuEnabled(place, QString("mnu") + name)) << name << level;
                if (place == Place::List || level <= 3) {
                    EXPECT_FALSE(commands.popupEnabled(place, QString("mnuBus") + name)) << name << level;
                }
                EXPECT_FALSE(commands.buttonEnabled(name)) << name << level;
            }
            EXPECT_FALSE(commands.menuEnabled(place, "mnuUsers"));
            EXPECT_TRUE(commands.menuEnabled(place, "mnuEnter"));
        }
        EXPECT_FALSE(commands.buttonEnabled("Expand") || commands.buttonEnabled("Collapse"));
        EXPECT_TRUE(commands.buttonEnabled("Enter"));
    }
}

TEST_F(CommandStatesTest, EverythingStartsEnabled)
{
    EXPECT_TRUE(commands.buttonEnabled("Parent"));
    EXPECT_TRUE(commands.menuEnabled(Place::Tree, "mnuUsers"));
    EXPECT_TRUE(commands.popupEnabled(Place::List, "mnuBusNew"));
}

TEST_F(CommandStatesTest, WithoutACompanyOnlyTheToldMenusAreLeft)
{
    commands.DisableMainMenu();
    for (const Place place : {Place::Tree, Place::List}) {
        for (const QString& name : rules::menusWithoutCompany())
            EXPECT_TRUE(commands.menuEnabled(place, name)) << qPrintable(name);
        for (const char* name : {"mnuCommands", "mnuRefresh", "mnuUsers", "mnuEnter", "mnuBackupDb",
                                 "mnuUpgradeDb", "mnuEventViewer", "mnuAllarms", "mnuReadWrite"})
            EXPECT_FALSE(commands.menuEnabled(place, name)) << name;
    }
}

TEST_F(CommandStatesTest, ALoginEnablesEveryMenuAndThenTheListsRule)
{
    commands.DisableMainMenu();
    commands.Enable_MainMenu();
    EXPECT_TRUE(commands.menuEnabled(Place::Tree, "mnuUsers"));
    EXPECT_TRUE(commands.menuEnabled(Place::List, "mnuUsers"));
    commands.EnableDisable_MainMenu(-1);
    EXPECT_TRUE(commands.menuEnabled(Place::Tree, "mnuUsers")) << "the tree's menus wait for a click";
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuUsers"));
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuReadWrite"));
}

TEST_F(CommandStatesTest, MenusAndPopupsFollowTheSelectedNode)
{
    structure.clickNode("1_1");
    commands.EnableDisable_Menu(Place::Tree, structure.levelOfTree());
    commands.EnableDisable_Menu(Place::List, structure.levelOfList());
    commands.EnableDisable_PopupMenu(Place::Tree, structure.levelOfTree());
    EXPECT_TRUE(commands.menuEnabled(Place::Tree, "mnuDelete"));
    EXPECT_TRUE(commands.menuEnabled(Place::List, "mnuReadWrite"));
    EXPECT_TRUE(commands.popupEnabled(Place::Tree, "mnuBusCut"));

    structure.clickNode("3_1_1_G01");
    commands.EnableDisable_Menu(Place::Tree, structure.levelOfTree());
    commands.EnableDisable_PopupMenu(Place::Tree, structure.levelOfTree());
    EXPECT_FALSE(commands.menuEnabled(Place::Tree, "mnuResync"));
    EXPECT_FALSE(commands.popupEnabled(Place::Tree, "mnuBusResync"));
    EXPECT_TRUE(commands.popupEnabled(Place::Tree, "mnuBusReset"));
}

TEST_F(CommandStatesTest, TheItemRootInTheListIsNoSelection)
{
    structure.selectItem("Root");
    commands.EnableDisable_Menu(Place::List, structure.levelOfList());
    commands.EnableDisable_PopupMenu(Place::List, structure.levelOfList());
    EXPECT_FALSE(commands.menuEnabled(Place::List, "mnuNew"));
    EXPECT_FALSE(commands.popupEnabled(Place::List, "mnuBusReadWrite"));

    structure.clickNode("Root");
    structure.selectItem("1_1");
    commands.EnableDisable_Menu(Place::List, structure.levelOfList());
    commands.EnableDisable_PopupMenu(Place::List, structure.levelOfList());
    EXPECT_TRUE(commands.menuEnabled(Place::List, "mnuNew"));
    EXPECT_TRUE(commands.popupEnabled(Place::List, "mnuBusReadWrite"));
}

TEST_F(CommandStatesTest, MarksFollowTheSession)
{
    session.ListBusSet.View = -1;
    EXPECT_TRUE(commands.marked("mnuLargeIcons"));
    session.ListBusSet.View = 3;
    EXPECT_TRUE(commands.marked("mnuBusReport"));
    EXPECT_FALSE(commands.marked("mnuLargeIcons"));
    commands.Set_View_Toolbar(0);
    EXPECT_TRUE(commands.marked("mnuTlbReduced"));
    EXPECT_FALSE(commands.marked("mnuTlbViewComplete"));
    commands.Set_Form_Icons(-1);
    EXPECT_TRUE(commands.marked("mnuTlbLargeIcons"));
    session.TreeBusSet.Visible = 0;
    EXPECT_FALSE(commands.marked("mnuStructure"));
    EXPECT_FALSE(commands.markable("mnuRefresh"));
}

// What stays as it is is not drawn again.
TEST_F(CommandStatesTest, OnlyWhatChangesIsTold)
{
    QSignalSpy buttons(&commands, &CommandStates::buttonsChanged);
    QSignalSpy menus(&commands, &CommandStates::menusChanged);
    const auto told = [&] { return std::pair(buttons.size(), menus.size()); };
    commands.EnableDisable_TlbMainButtons(3);
    EXPECT_EQ(told(), std::pair(qsizetype(1), qsizetype(0)));
    commands.EnableDisable_TlbMainButtons(2);
    EXPECT_EQ(told(), std::pair(qsizetype(1), qsizetype(0))) << "both levels look the same";
    commands.EnableDisable_MainMenu(2);
    commands.EnableDisable_MainMenu(3);
    EXPECT_EQ(told(), std::pair(qsizetype(1), qsizetype(2))) << "parameters are not compared";
    commands.EnableDisable_MainMenu(3);
    EXPECT_EQ(told(), std::pair(qsizetype(1), qsizetype(2)));
    EXPECT_EQ(menus.last().first().value<Place>(), Place::List);
    commands.EnableDisable_Menu(Place::Tree, 3);
    EXPECT_EQ(menus.last().first().value<Place>(), Place::Tree);
    commands.EnableDisable_PopupMenu(Place::List, 2);
    EXPECT_EQ(menus.last().first().value<Place>(), Place::List);
    commands.Set_Form_Icons(0);
    EXPECT_EQ(told(), std::pair(qsizetype(2), qsizetype(6))) << "the marks stand everywhere";
}

TEST_F(CommandStatesTest, AHiddenTreeIsNeitherExpandedNorCollapsed)
{
    for (const bool visible : {true, false}) {
        session.TreeBusSet.Visible = visible ? 1 : 0;
        commands.EnableDisable_TlbMainButtons(1);
        EXPECT_EQ(commands.buttonEnabled("Expand"), visible);
        EXPECT_EQ(commands.buttonEnabled("Collapse"), visible);
    }
}

TEST_F(CommandStatesTest, StructureButtonsFollowTheFlag)
{
    commands.EnableDisable_StructureButtons(false);
    EXPECT_FALSE(commands.buttonEnabled("Expand"));
    EXPECT_FALSE(commands.buttonEnabled("Collapse"));
    commands.EnableDisable_StructureButtons(true);
    EXPECT_TRUE(commands.buttonEnabled("Expand"));
}

} // namespace
