#include "session/Commands.h"

#include "session/CommandRules.h"

#include <gtest/gtest.h>
#include <set>

using namespace session;

namespace {

QStringList allToolbarKeys()
{
    QStringList keys;
    for (const ToolbarCommand& command : toolbarCommands())
        keys << command.key;
    return keys;
}

void collect(const std::vector<MenuEntry>& menu, QStringList& names)
{
    for (const MenuEntry& entry : menu) {
        if (!entry.isSeparator())
            names << entry.name;
        collect(entry.entries, names);
    }
}

TEST(Commands, TheCompleteToolbarHoldsEveryButtonInItsOrder)
{
    EXPECT_EQ(shownButtons(true), allToolbarKeys());
}

TEST(Commands, TheReducedToolbarHoldsItsButtonsWithoutALeadingSeparator)
{
    const QStringList expected{"Parent",  "View",        "SepView", "New",   "Delete",   "Cut",
                               "Copy",    "Paste",       "Refresh", "Reset", "Property", "ReadWrite",
                               "SepTool", "EventViewer", "Enter",   "About", "Exit"};
    EXPECT_EQ(shownButtons(false), expected);
}

TEST(Commands, TheTwoMenuBarsHaveTheSameControls)
{
    QStringList tree, list;
    collect(menuBar(Place::Tree), tree);
    collect(menuBar(Place::List), list);
    EXPECT_EQ(tree, list);
    EXPECT_EQ(std::set<QString>(tree.begin(), tree.end()).size(), size_t(tree.size()))
        << "a name stands twice";
}

TEST(Commands, EveryNameOfTheRulesIsAControl)
{
    QStringList menus, treePopup, listPopup;
    collect(menuBar(Place::List), menus);
    collect(popupBus(Place::Tree), treePopup);
    collect(popupBus(Place::List), listPopup);
    for (const auto& [name, enabled] : rules::listMenus(0, {}))
        EXPECT_TRUE(menus.contains(name)) << qPrintable(name);
    for (const auto& [name, enabled] : rules::treeMenus(0, {}))
        EXPECT_TRUE(menus.contains(name)) << qPrintable(name);
    for (const QString& name : rules::menusWithoutCompany())
        EXPECT_TRUE(menus.contains(name)) << qPrintable(name);
    for (const auto& [name, enabled] : rules::treePopup(0, {}))
        EXPECT_TRUE(treePopup.contains(name)) << qPrintable(name);
    for (const auto& [name, enabled] : rules::listPopup(0, {}))
        EXPECT_TRUE(listPopup.contains(name)) << qPrintable(name);
    for (const auto& [key, enabled] : rules::toolbar(0, {}, true))
        EXPECT_TRUE(allToolbarKeys().contains(key)) << qPrintable(key);
}

TEST(Commands, RunsTheHandlerOfACommandAndNothingForAnUnknownOne)
{
    int runs = 0;
    CommandHandlers handlers;
    handlers.set("Refresh", [&] { ++runs; });
    handlers.run("Refresh");
    handlers.run("Property");
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(handlers.has("Refresh"));
    EXPECT_FALSE(handlers.has("Property"));
}

} // namespace
