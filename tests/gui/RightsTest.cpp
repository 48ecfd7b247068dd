#include "gui/GuiFixture.h"
#include "session/CommandRules.h"
#include "structure/NodeKey.h"
#include "structure/frmListBus.h"

#include <QToolBar>
#include <QToolButton>

namespace {

using namespace session;

// Every command by every path. The procedures behind the commands are replaced by notes of what was called.
class EveryPath : public gui::GuiFixture
{
protected:
    void listenToCommands()
    {
        for (const ToolbarCommand& command : toolbarCommands())
            note(command.key);
        for (const Place place : {Place::Tree, Place::List}) {
            noteAll(menuBar(place));
            noteAll(popupBus(place));
        }
        noteAll(popupToolbar());
    }
    void noteAll(const std::vector<MenuEntry>& menu)
    {
        for (const MenuEntry& entry : menu) {
            if (!entry.command.isEmpty())
                note(entry.command);
            noteAll(entry.entries);
        }
    }
    void note(const QString& command)
    {
        if (program.handlers().has(command))
            program.handlers().set(command, [this, command] { heard << command; });
    }
    QStringList hear(const std::function<void()>& gesture)
    {
        heard.clear();
        gesture();
        return heard;
    }

    // The rights of the technician by the bits of a number; he logs in with them.
    Rights enterWith(int bits)
    {
        const char* columns[] = {"Modify", "ReadWrite", "EventViewer", "UpgradeDb"};
        QStringList given;
        for (int bit = 0; bit < 4; ++bit)
            given << QString("%1 = %2").arg(columns[bit]).arg(bits & (1 << bit) ? -1 : 0);
        session.cnDatabase.Execute("UPDATE tbUsers SET " + given.join(", ") + " WHERE IDUser = '1'");
        enterAs(support::kTechnician);
        return Rights::of(session.CurrentUser);
    }
    static QString formOf(Place place) { return place == Place::Tree ? "frmTreeBus" : "frmListBus"; }
    QMenu* popupOf(Place place)
    {
        program.commands().EnableDisable_PopupMenu(place, place == Place::Tree ? plant().levelOfTree()
                                                                               : plant().levelOfList());
        return desktop.form(formOf(place))->findChild<QMenu*>("mnuBus");
    }
    // An entry that its rule closes runs nothing, and one that it opens runs its command.
    void expectEntries(const std::vector<MenuEntry>& menu, const EnabledStates& rule,
                       const std::function<QAction*(const QString&)>& find, const QString& where)
    {
        for (const MenuEntry& entry : menu) {
            expectEntries(entry.entries, rule, find, where);
            QAction* action = entry.isSeparator() || entry.command.isEmpty() ? nullptr : find(entry.name);
            const auto state = rule.find(entry.name);
            if (!action || state == rule.end())
                continue;
            EXPECT_EQ(action->isEnabled(), state->second) << qPrintable(where + ' ' + entry.name);
            const QStringList expected = state->second ? QStringList{entry.command} : QStringList();
            EXPECT_EQ(hear([&] { action->trigger(); }), expected) << qPrintable(where + ' ' + entry.name);
        }
    }
    void expectMenus(Place place, const EnabledStates& rule, const QString& where)
    {
        expectEntries(
            menuBar(place), rule, [&](const QString& name) { return entry(formOf(place), name); }, where);
    }
    void expectPopup(Place place, const EnabledStates& rule, const QString& where)
    {
        QMenu* menu = popupOf(place);
        expectEntries(
            popupBus(place), rule, [&](const QString& name) { return menu->findChild<QAction*>(name); },
            where + " popup");
    }
    // With nothing selected in the list, a button that acts on an element acts on the tree's.
    QString aimOf(const QString& button)
    {
        static const QStringList kElsewhere{"New", "Paste"};
        const QString twin = button + "Node";
        return plant().selectedItem().isEmpty() && !kElsewhere.contains(button) &&
                       program.handlers().has(twin)
                   ? twin
                   : button;
    }
    void expectToolbar(const EnabledStates& rule, const QString& where)
    {
        for (const auto& [key, enabled] : rule) {
            QAction* button = this->button(key);
            if (!program.handlers().has(key))
                continue;
            EXPECT_EQ(button->isEnabled(), enabled) << qPrintable(where + ' ' + key);
            EXPECT_EQ(hear([&] { button->trigger(); }), enabled ? QStringList{aimOf(key)} : QStringList())
                << qPrintable(where + ' ' + key);
        }
    }
    void expectKeys(const EnabledStates& tree, const EnabledStates& list, const QString& where)
    {
        const auto expected = [](const EnabledStates& rule, const char* name, const char* command) {
            const auto state = rule.find(name);
            return state == rule.end() || state->second ? QStringList{command} : QStringList();
        };
        const auto press = [&](QWidget* view, Qt::Key key) {
            view->setFocus();
            return hear([&] { QTest::keyClick(view, key); });
        };
        EXPECT_EQ(press(tvwBus(), Qt::Key_Insert), expected(tree, "mnuNew", "New")) << qPrintable(where);
        EXPECT_EQ(press(tvwBus(), Qt::Key_Delete), expected(tree, "mnuDelete", "DeleteNode"))
            << qPrintable(where);
        EXPECT_EQ(press(shownList(), Qt::Key_Insert), expected(list, "mnuNew", "New")) << qPrintable(where);
        EXPECT_EQ(press(shownList(), Qt::Key_Delete), expected(list, "mnuDelete", "Delete"))
            << qPrintable(where);
    }
    QStringList everyCommandByEveryAction()
    {
        QStringList all;
        for (QWidget* form :
             {desktop.form("frmTreeBus"), desktop.form("frmListBus"), static_cast<QWidget*>(window())}) {
            for (QAction* action : form->findChildren<QAction*>()) {
                if (!action->menu() && !action->isSeparator())
                    all << hear([&] { action->trigger(); });
            }
        }
        for (QWidget* view : {static_cast<QWidget*>(tvwBus()), static_cast<QWidget*>(shownList())}) {
            for (const Qt::Key key :
                 {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Return, Qt::Key_F5, Qt::Key_Backspace}) {
                view->setFocus();
                all << hear([&] { QTest::keyClick(view, key); });
            }
            view->setFocus();
            all << hear([&] { QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier); });
            all << hear([&] { QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier); });
            all << hear([&] { QTest::keyClick(view, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier); });
        }
        all.removeDuplicates();
        all.sort();
        return all;
    }

    QStringList heard;
};

TEST_F(EveryPath, FollowsItsRuleForEachRightAtEachLevel)
{
    start();
    listenToCommands();
    const struct
    {
        const char* node;
        int level;
    } places[] = {{"Root", 0}, {"1_1", 1}, {"2_1_1", 2}, {"3_1_1_G01", 3}};
    for (int bits = 0; bits < 16; ++bits) {
        const Rights rights = enterWith(bits);
        for (const auto& [node, level] : places) {
            clickNode(node);
            plant().pressItem(plant().list().keyAt(0));
            const QString where = QString("rights %1 at %2").arg(bits).arg(node);
            const EnabledStates tree = rules::treeMenus(level, rights);
            const EnabledStates list = rules::listMenus(level, rights);
            expectMenus(Place::Tree, tree, where + " tree");
            expectMenus(Place::List, list, where + " list");
            expectPopup(Place::Tree, rules::treePopup(level, rights), where + " tree");
            expectPopup(Place::List, rules::listPopup(level, rights), where + " list");
            expectToolbar(rules::toolbar(level, rights, true), where);
            expectKeys(tree, list, where);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

TEST_F(EveryPath, DrawingByTheMouseNeedsTheRightToModify)
{
    start();
    tvwBus()->expandAll();
    const auto begins = [this](QWidget* source, const QPoint& from) {
        draw(source, from, atNode("1_3"));
        const bool begun = hint();
        drop(source, window()->mapToGlobal(QPoint(-200, -200)));
        return begun;
    };
    const auto fromBoth = [&](const QString& where, bool expected) {
        EXPECT_EQ(begins(tree(), atNode("2_1_1")), expected) << qPrintable(where + " tree");
        clickNode("Root");
        QWidget* list = shownList()->viewport();
        EXPECT_EQ(begins(list, list->mapToGlobal(placeOf("1_2"))), expected) << qPrintable(where + " list");
    };
    for (int bits = 0; bits < 16; ++bits)
        fromBoth(QString("rights %1").arg(bits), enterWith(bits).modify);
    enterAs(support::kAdministrator);
    fromBoth("the administrator", false);
    desktop.atTheGate = [] {};
    desktop.script.expect(texts(513) + "\r\n" + texts(514), platform::answers::kYes);
    button("Enter")->trigger();
    fromBoth("nobody", false);
    EXPECT_EQ(support::column(plantFile(), "SELECT IDGrp FROM tbInstrumentsUser WHERE IDItem = 'KT100'"),
              QStringList{"1"});
}

// They walk through the plant, and a text field keeps its keys: whatever the rights, no command comes of it.
TEST_F(EveryPath, TheWindowsBesideAndTheFilterFieldStartNothing)
{
    start();
    for (const char* command : {"Find", "Pending"})
        program.handlers().run(command);
    listenToCommands();
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_Insert, {}},
        {Qt::Key_Delete, {}},
        {Qt::Key_Backspace, {}},
        {Qt::Key_Return, {}},
        {Qt::Key_X, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier},
        {Qt::Key_V, Qt::ControlModifier},
    };
    const auto pressAll = [&](QWidget* part) {
        part->window()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(part->window()));
        part->setFocus();
        for (const auto& [key, modifiers] : keys)
            EXPECT_EQ(hear([&, key = key, modifiers = modifiers] { QTest::keyClick(part, key, modifiers); }),
                      QStringList())
                << qPrintable(part->objectName()) << key;
    };
    for (int bits = 0; bits < 16; ++bits) {
        enterWith(bits);
        for (const auto& [form, parts] :
             {std::pair("frmFind", QStringList{"txtFind", "lvwFound", "cmdShow", "cmdClose"}),
              std::pair("frmPending", QStringList{"lvwPending", "cmdRefresh", "cmdShow", "cmdClose"})}) {
            for (const QString& part : parts) {
                desktop.showForm(form); // Enter on a button has closed it
                pressAll(desktop.form(form)->findChild<QWidget*>(part));
            }
        }
        window()->listBus()->showFilter();
        pressAll(control<QLineEdit>("txtFilter"));
        if (testing::Test::HasFailure())
            return;
    }
}

TEST_F(EveryPath, AfterTheLoginTheRulesOfBothChildrenHoldAtOnce)
{
    start();
    listenToCommands();
    for (int bits = 0; bits < 16; ++bits) {
        const Rights rights = enterWith(bits);
        const QString where = QString("rights %1 after the login").arg(bits);
        expectMenus(Place::Tree, rules::treeMenus(plant().levelOfTree(), rights), where + " tree");
        expectMenus(Place::List, rules::listMenus(-1, rights), where + " list");
        expectToolbar(rules::toolbar(-1, rights, true), where);
    }
}

TEST_F(EveryPath, TheAdministratorEditsTheOperatorsAndNobodyElseDoes)
{
    start();
    listenToCommands();
    EXPECT_FALSE(entry("frmTreeBus", "mnuUsers")->isEnabled());
    enterAs(support::kAdministrator);
    for (const char* form : {"frmTreeBus", "frmListBus"})
        EXPECT_EQ(hear([&] { entry(form, "mnuUsers")->trigger(); }), QStringList{"Users"});
    const QStringList all = everyCommandByEveryAction();
    for (const char* command : {"New", "NewNode", "Delete", "DeleteNode", "Cut", "Copy", "Paste", "Resync",
                                "Reset", "ReadWrite", "ReadWriteNode", "EventViewer", "UpgradeDb"})
        EXPECT_FALSE(all.contains(command)) << command;
}

// What walks and what looks: no path opens more, neither with the company open and nobody logged in nor
// without a company.
TEST_F(EveryPath, BeforeTheLoginOnlyWhatNeedsNoCompanyRuns)
{
    desktop.atTheGate = [] {};
    start();
    listenToCommands();
    clickNode("1_1");
    plant().pressItem(plant().list().keyAt(0));
    popupOf(Place::Tree);
    popupOf(Place::List);
    const QStringList allowed{"About",      "Manual",      "CloseDb",       "Enter",      "Exit",
                              "LanguageEN", "LanguageIT",  "LanguageRU",    "LargeIcon",  "List",
                              "NewDb",      "OpenDb",      "Report",        "RestoreDb",  "Settings",
                              "SmallIcon",  "TlbComplete", "TlbLargeIcons", "TlbReduced", "TlbSmallIcons",
                              "Tree"};
    for (const QString& command : everyCommandByEveryAction())
        EXPECT_TRUE(allowed.contains(command)) << qPrintable(command);
    EXPECT_EQ(hear([&] { button("Enter")->trigger(); }), QStringList{"Enter"});
    EXPECT_EQ(hear([&] { openItem(plant().list().keyAt(0)); }), QStringList());
    clickNode("3_1_1_G01");
    EXPECT_EQ(hear([&] { openItem(plant().list().keyAt(0)); }), QStringList());
}

TEST_F(EveryPath, WithoutACompanyTheLoginIsClosedToo)
{
    start("");
    listenToCommands();
    const QStringList all = everyCommandByEveryAction();
    for (const char* command :
         {"Enter", "Users", "New", "Property", "Refresh", "Find", "Pending", "Filter", "BackupDb"})
        EXPECT_FALSE(all.contains(command)) << command;
    EXPECT_TRUE(all.contains("OpenDb"));
    EXPECT_TRUE(all.contains("Settings"));
}

// Whoever finds another way to a command is refused behind the window, too.
TEST_F(EveryPath, WhatARightForbidsIsRefusedInTheLogic)
{
    start();
    enterWith(0);
    clickNode("1_1");
    plant().pressItem("2_1_1");
    for (const char* command :
         {"New", "NewNode", "Delete", "DeleteNode", "ReadWrite", "ReadWriteNode", "Users"})
        program.handlers().run(command);
    EXPECT_TRUE(desktop.script.boxes.empty());
    EXPECT_EQ(listKeys().size(), 2);
}

} // namespace
