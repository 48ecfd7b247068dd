// What the toolbar acts on: the selected item or, with none, the selected node.
#include "gui/GuiFixture.h"

namespace {

class Aim : public gui::GuiFixture
{
protected:
    QStringList enabled() const
    {
        QStringList keys;
        for (const char* key : {"Delete", "Cut", "Copy", "Resync", "Reset", "Property", "ReadWrite"}) {
            if (button(key)->isEnabled())
                keys << key;
        }
        return keys;
    }
};

TEST_F(Aim, AClickInTheTreeGivesTheToolbarItsNode)
{
    start();
    clickNode("2_1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        EXPECT_EQ(console.findChild<QLabel*>("lblItem")->text(), "INST11");
        console.close();
    });
    button("ReadWrite")->trigger();
    EXPECT_EQ(played, 1);
    inside("frmProperty",
           [&](QDialog& dialog) { EXPECT_EQ(dialog.findChild<QLabel*>("lblIDPar")->text(), "INST_1"); });
    button("Property")->trigger();
    EXPECT_EQ(played, 2);
}

TEST_F(Aim, DeleteTakesTheSelectedNode)
{
    start();
    clickNode("1_1");
    desktop.script.expect(texts(506), platform::answers::kYes);
    button("Delete")->trigger();
    EXPECT_FALSE(plant().tree().contains("1_1"));
    EXPECT_TRUE(plant().tree().contains("1_2"));
}

TEST_F(Aim, WithoutAnItemTheRulesOfTheTreeHold)
{
    start();
    clickNode("Root");
    EXPECT_EQ(enabled(), (QStringList{"Resync", "Reset", "Property"}));
    clickItem("1_1");
    EXPECT_EQ(enabled(), (QStringList{"Delete", "Cut", "Copy", "Resync", "Reset", "Property", "ReadWrite"}));
    clickNode("1_1");
    EXPECT_EQ(enabled(), (QStringList{"Delete", "Cut", "Copy", "Resync", "Reset", "Property", "ReadWrite"}));
    clickNode("3_1_1_G01");
    EXPECT_EQ(enabled(), (QStringList{"Reset", "Property", "ReadWrite"}));
    clickItem("4_1_1_G01_P0101");
    EXPECT_EQ(enabled(), (QStringList{"Reset", "Property", "ReadWrite"}));
}

TEST_F(Aim, WithNothingSelectedTheRootIsMeant)
{
    start();
    clickNode("Root");
    button("Parent")->trigger();
    EXPECT_EQ(plant().selectedNode(), "");
    EXPECT_EQ(plant().selectedItem(), "");
    EXPECT_EQ(enabled(), (QStringList{"Resync", "Reset", "Property"}));
    inside("frmProperty", [&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("lblIDPar")->text(), "Root") << "the one item that stands there";
    });
    button("Property")->trigger();
    EXPECT_EQ(played, 1);
    EXPECT_EQ(enabled(), (QStringList{"Resync", "Reset", "Property"}));
}

TEST_F(Aim, TheSelectionSurvivesLevelUpAndTheConsole)
{
    start();
    clickNode("2_1_2");
    button("Parent")->trigger();
    EXPECT_EQ(plant().selectedItem(), "2_1_2");
    inside("frmReadWrite", [](QDialog& console) { console.close(); });
    button("ReadWrite")->trigger();
    EXPECT_EQ(played, 1);
    EXPECT_EQ(plant().selectedItem(), "2_1_2");
    EXPECT_EQ(lvwBus()->selectedKey(), "2_1_2");
}

// Each of the seven buttons says its key, and so do the menus.
TEST_F(Aim, ShortcutsStandInToolTipsAndMenus)
{
    start();
    EXPECT_EQ(button("New")->toolTip(), "New. (Ins)");
    EXPECT_EQ(button("Delete")->toolTip(), "Delete. (Del)");
    EXPECT_EQ(button("Find")->toolTip(), "Find in company... (Ctrl+Shift+F)");
    EXPECT_EQ(entry("frmTreeBus", "mnuNew")->shortcut(), QKeySequence("Ins"));
    EXPECT_EQ(entry("frmListBus", "mnuProperty")->shortcut(), QKeySequence("Return"));
    EXPECT_EQ(entry("frmListBus", "mnuReadWrite")->shortcut(), QKeySequence("Ctrl+R"));
    EXPECT_EQ(entry("frmListBus", "mnuBusCopy")->shortcut(), QKeySequence("Ctrl+C"));
    EXPECT_TRUE(entry("frmListBus", "mnuBusCopy")->isShortcutVisibleInContextMenu());
    EXPECT_EQ(entry("frmListBus", "mnuBusCopy")->shortcutContext(), Qt::WidgetShortcut)
        << "the menu's own takes it";
}

TEST_F(Aim, FilterFindAndPendingAreOnTheToolbarAndInThePopups)
{
    start();
    for (const char* key : {"Filter", "Find", "Pending"}) {
        EXPECT_TRUE(button(key)->isVisible()) << key;
        EXPECT_TRUE(button(key)->isEnabled()) << key;
        EXPECT_FALSE(button(key)->icon().isNull()) << key;
        for (const char* form : {"frmTreeBus", "frmListBus"}) {
            EXPECT_TRUE(entry(form, QString("mnuBus") + key)) << key;
        }
    }
    button("Find")->trigger();
    EXPECT_TRUE(desktop.form("frmFind")->isVisible());
    entry("frmListBus", "mnuBusPending")->trigger();
    EXPECT_TRUE(desktop.form("frmPending")->isVisible());
    button("Filter")->trigger();
    EXPECT_TRUE(control<QLineEdit>("txtFilter")->isVisible());
    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    EXPECT_FALSE(button("Find")->isEnabled());
}

TEST_F(Aim, ShiftF10OpensThePopup)
{
    start();
    clickNode("Root");
    QTest::keyClick(tvwBus(), Qt::Key_F10, Qt::ShiftModifier);
    auto* tree = desktop.form("frmTreeBus")->findChild<QMenu*>("mnuBus");
    EXPECT_TRUE(tree->isVisible());
    tree->close();
    clickItem("1_2");
    QTest::keyClick(shownList(), Qt::Key_F10, Qt::ShiftModifier);
    auto* list = desktop.form("frmListBus")->findChild<QMenu*>("mnuBus");
    EXPECT_TRUE(list->isVisible());
    list->close();
    QTest::keyClick(shownList(), Qt::Key_F10);
    EXPECT_FALSE(list->isVisible()) << "F10 alone is the menu bar's";
}

TEST_F(Aim, TheLanguageIsInTheViewMenu)
{
    start();
    auto* languages = desktop.form("frmTreeBus")->findChild<QMenu*>("mnuLanguage");
    ASSERT_TRUE(languages);
    EXPECT_EQ(languages->title().remove('&'), "Language");
    EXPECT_TRUE(entry("frmTreeBus", "mnuLanguageEN")->isChecked());
    entry("frmTreeBus", "mnuLanguageIT")->trigger();
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_EQ(languages->title().remove('&'), "Lingua");
    EXPECT_EQ(entry("frmListBus", "mnuLanguageRU")->text().remove(QChar(38)), QStringLiteral("Русский"))
        << "each in its own words";
    EXPECT_TRUE(entry("frmListBus", "mnuLanguageIT")->isChecked());
    EXPECT_FALSE(entry("frmListBus", "mnuLanguageEN")->isChecked());
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN") << "whoever works goes on working";
    clickNode("Root");
    EXPECT_EQ(plant().list().columnCaptions().first(), texts(102));

    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    EXPECT_TRUE(entry("frmTreeBus", "mnuLanguageEN")->isEnabled()) << "it needs no company";
    entry("frmTreeBus", "mnuLanguageEN")->trigger();
    EXPECT_EQ(session.Language.Code, "EN");
}

// The company is connected anew for its words, which ends a connection.
TEST_F(Aim, ALanguageOverALiveLineAsksFirst)
{
    start();
    session.COMPort.Status = session::kConnected;
    desktop.script.expect(texts.own("exit.connected"), platform::answers::kNo);
    entry("frmTreeBus", "mnuLanguageIT")->trigger();
    EXPECT_EQ(session.Language.Code, "EN");
    EXPECT_TRUE(entry("frmTreeBus", "mnuLanguageEN")->isChecked());
    EXPECT_TRUE(desktop.script.questions.back().destroys);
    session.COMPort.Status = session::kLineIdle;
}

} // namespace
