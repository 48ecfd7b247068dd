#include "session/CommandRules.h"

#include "session/Session.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace session;

namespace {

// The tables as they stand in the operator's manual: E enabled, D disabled, and the right that decides.
struct Row
{
    const char* names;
    const char* letters;
};

Rights only(char right)
{
    Rights rights;
    rights.administrator = right == 'A';
    rights.modify = right == 'M';
    rights.readWrite = right == 'R';
    rights.upgradeDb = right == 'U';
    rights.eventViewer = right == 'V';
    return rights;
}

using Rule = EnabledStates (*)(int level, const Rights& rights);

// Every cell with every single right: a right opens exactly its own cells.
void expectTable(Rule rule, int lowest, const std::vector<Row>& rows)
{
    for (const char right : std::string("-AMRUV")) {
        for (const Row& row : rows) {
            const QString letters(row.letters);
            for (int column = 0; column < letters.size(); ++column) {
                const EnabledStates states = rule(lowest + column, only(right));
                const char letter = letters[column].toLatin1();
                const bool expected = letter == 'E' || letter == right;
                for (const QString& name : QString(row.names).split(' ')) {
                    ASSERT_TRUE(states.contains(name)) << qPrintable(name);
                    EXPECT_EQ(states.at(name), expected)
                        << qPrintable(name) << " at level " << lowest + column << " with right " << right;
                }
            }
        }
    }
}

int namesIn(const std::vector<Row>& rows)
{
    int count = 0;
    for (const Row& row : rows)
        count += int(QString(row.names).split(' ').size());
    return count;
}

const std::vector<Row> kToolbar{
    {"Tree View Refresh Property History Enter", "DEEEEEE"},
    {"Expand Collapse", "DEEEEEE"},
    {"Settings", "EEEEEEE"},
    {"EventViewer", "DVVVVVV"},
    {"Reset", "DMMMMMM"},
    {"Parent", "DDEEEEE"},
    {"New Delete Cut Copy Paste", "DDMMDDD"},
    {"Resync", "DMMMDDD"},
    {"ReadWrite", "DDRRRRR"},
};
const std::vector<Row> kListMenus{
    {"mnuRefresh mnuProperty mnuHistory mnuSettings mnuAllarms", "EEEEEE"},
    {"mnuCompare", "DEEEDD"},
    {"mnuUsers", "AAAAAA"},
    {"mnuUpgradeDb", "UUUUUU"},
    {"mnuReset mnuImport", "MMMMMM"},
    {"mnuEventViewer", "VVVVVV"},
    {"mnuNew mnuDelete mnuCut mnuCopy mnuPaste", "DMMDDD"},
    {"mnuResync", "MMMDDD"},
    {"mnuReadWrite", "DRRRRR"},
};
const std::vector<Row> kTreeMenus{
    {"mnuRefresh mnuProperty mnuHistory mnuSettings", "EEEEE"},
    {"mnuCompare", "DDEEE"},
    {"mnuUsers", "AAAAA"},
    {"mnuUpgradeDb", "UUUUU"},
    {"mnuReset mnuImport", "MMMMM"},
    {"mnuEventViewer", "VVVVV"},
    {"mnuNew mnuPaste", "DMMDD"},
    {"mnuDelete mnuCut mnuCopy", "DDMMD"},
    {"mnuResync", "MMMMD"},
    {"mnuReadWrite", "DDRRR"},
};
const std::vector<Row> kTreePopup{
    {"mnuBusRefresh mnuBusProperty mnuBusHistory", "EEEEE"},
    {"mnuBusCompare", "DDEEE"},
    {"mnuBusNew mnuBusPaste", "DMMDD"},
    {"mnuBusDelete mnuBusCut mnuBusCopy", "DDMMD"},
    {"mnuBusResync", "MMMMD"},
    {"mnuBusReset", "MMMMM"},
    {"mnuBusReadWrite", "DDRRR"},
};
const std::vector<Row> kListPopup{
    {"mnuBusRefresh mnuBusProperty mnuBusHistory", "EEEEEE"},
    {"mnuBusCompare", "DEEEDD"},
    {"mnuBusNew mnuBusDelete mnuBusCut mnuBusCopy mnuBusPaste", "DMMDDD"},
    {"mnuBusResync", "MMMDDD"},
    {"mnuBusReset", "MMMMMM"},
    {"mnuBusReadWrite", "DRRRRR"},
};

TEST(CommandRules, ToolbarByLevelAndRight)
{
    const Rule rule = [](int level, const Rights& rights) { return rules::toolbar(level, rights, true); };
    expectTable(rule, -2, kToolbar);
    EXPECT_EQ(int(rule(0, {}).size()), namesIn(kToolbar));
}

TEST(CommandRules, ExpandAndCollapseNeedTheTreeOnScreen)
{
    for (int level = -2; level <= 4; ++level) {
        for (const bool visible : {false, true}) {
            const EnabledStates states = rules::toolbar(level, {}, visible);
            EXPECT_EQ(states.at("Expand"), visible && level > -2) << level;
            EXPECT_EQ(states.at("Collapse"), visible && level > -2) << level;
        }
    }
}

TEST(CommandRules, TheToolbarLeavesWhatIsAlwaysEnabled)
{
    for (int level = -2; level <= 4; ++level) {
        for (const char* key : {"NewDb", "OpenDb", "CloseDb", "About", "Exit"})
            EXPECT_FALSE(rules::toolbar(level, {}, true).contains(key)) << key;
    }
}

TEST(CommandRules, ListMenusByLevelAndRight)
{
    expectTable(rules::listMenus, -1, kListMenus);
    EXPECT_EQ(int(rules::listMenus(0, {}).size()), namesIn(kListMenus));
}

TEST(CommandRules, TreeMenusByLevelAndRight)
{
    expectTable(rules::treeMenus, -1, kTreeMenus);
    EXPECT_EQ(int(rules::treeMenus(0, {}).size()), namesIn(kTreeMenus));
}

TEST(CommandRules, LevelsThatTheTreeLacksTouchNothing)
{
    for (const int level : {-2, 4}) {
        EXPECT_TRUE(rules::treeMenus(level, {}).empty()) << level;
        EXPECT_TRUE(rules::treePopup(level, {}).empty()) << level;
    }
}

TEST(CommandRules, PopupsByLevelAndRight)
{
    expectTable(rules::treePopup, -1, kTreePopup);
    expectTable(rules::listPopup, -1, kListPopup);
    EXPECT_EQ(int(rules::treePopup(0, {}).size()), namesIn(kTreePopup));
    EXPECT_EQ(int(rules::listPopup(0, {}).size()), namesIn(kListPopup));
}

TEST(CommandRules, AllarmsIsNoMatterOfTheTreesMenus)
{
    for (int level = 0; level <= 3; ++level)
        EXPECT_FALSE(rules::treeMenus(level, {}).contains("mnuAllarms"));
}

TEST(CommandRules, WithoutTheRightToModifyNothingIsChangedAndReadingGoesOn)
{
    Rights rights;
    rights.readWrite = true;
    for (const char* key : {"New", "Delete", "Cut", "Copy", "Paste", "Resync", "Reset"})
        EXPECT_FALSE(rules::toolbar(1, rights, true).at(key)) << key;
    EXPECT_TRUE(rules::toolbar(1, rights, true).at("ReadWrite"));
}

TEST(CommandRules, AtTheRootTheTreeDeletesNothingButTheToolbarDeletesAGroup)
{
    const Rights rights = only('M');
    EXPECT_FALSE(rules::treeMenus(0, rights).at("mnuDelete"));
    EXPECT_TRUE(rules::toolbar(0, rights, true).at("Delete"));
}

TEST(CommandRules, TheAdministratorHasNoRightByBeingOne)
{
    UserRecord user;
    user.IDUser = "0";
    const Rights rights = Rights::of(user);
    EXPECT_TRUE(rights.administrator);
    EXPECT_TRUE(rights.loggedIn);
    EXPECT_FALSE(Rights::of(UserRecord()).loggedIn);
    EXPECT_FALSE(rights.modify || rights.readWrite || rights.eventViewer || rights.upgradeDb);
}

TEST(CommandRules, RightsAreTheBooleanTextsOfTheRecord)
{
    UserRecord user;
    user.IDUser = "7";
    user.Modify = "True";
    user.ReadWrite = "-1";
    user.EventViewer = "0";
    const Rights rights = Rights::of(user);
    EXPECT_FALSE(rights.administrator);
    EXPECT_TRUE(rights.modify);
    EXPECT_TRUE(rights.readWrite);
    EXPECT_FALSE(rights.eventViewer);
    EXPECT_FALSE(rights.upgradeDb);
}

// Beyond what is greyed: each command with every single right, and with none but the login.
TEST(CommandRules, ACommandIsPermittedByItsRightAlone)
{
    const std::vector<Row> needs{
        {"New Delete Cut Copy Paste Resync Reset Import NewNode DeleteNode CutNode CopyNode PasteNode "
         "ResyncNode "
         "ResetNode",
         "M"},
        {"ReadWrite ReadWriteNode", "R"},
        {"EventViewer", "V"},
        {"UpgradeDb", "U"},
        {"Users", "A"},
        {"Property PropertyNode Refresh Parent View Filter Find Pending Export Print BackupDb History "
         "HistoryNode "
         "Compare CompareNode",
         "L"},
        {"NewDb OpenDb CloseDb RestoreDb Settings Enter About Exit Tree LargeIcon TlbReduced Allarms", "-"},
    };
    for (const char right : std::string("-AMRUVL")) {
        Rights rights = only(right);
        rights.loggedIn = right == 'L';
        for (const Row& row : needs) {
            for (const QString& command : QString(row.names).split(' '))
                EXPECT_EQ(rules::permits(command, rights), *row.letters == '-' || *row.letters == right)
                    << qPrintable(command) << " with right " << right;
        }
    }
}

} // namespace
