#include "gui/GuiFixture.h"

#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QTextDocument>

namespace {

class Walking : public gui::GuiFixture
{
};

TEST_F(Walking, ACompanyOpensOnItsRoot)
{
    start();
    EXPECT_EQ(window()->windowTitle(), "Calidora - Database: Plant.mdb - User: TECHNICIAN");
    EXPECT_EQ(control<QLabel>("lblPath")->text(), "ZEL Bus");
    EXPECT_EQ(listKeys(), QStringList{"Root"});
    EXPECT_EQ(plant().tree().keyOf(tvwBus()->currentIndex()), "Root");
    EXPECT_TRUE(tvwBus()->isExpanded(plant().tree().indexOf("Root")));
    EXPECT_TRUE(tvwBus()->isVisible());
    EXPECT_TRUE(shownList()->hasFocus()) << "the login brings the list forward";
    EXPECT_FALSE(desktop.form("frmConnection"));
    EXPECT_FALSE(desktop.form("frmPresentation"));
    EXPECT_FALSE(control<QProgressBar>("prgUpdate")->isVisible());
}

TEST_F(Walking, AClickOnANodeLoadsItsChildren)
{
    start();
    clickNode("Root");
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_1", "1_3"}));
    clickNode("1_1");
    EXPECT_EQ(control<QLabel>("lblPath")->text(), "ZEL Bus\\GRP1");
    EXPECT_EQ(listKeys(), (QStringList{"2_1_2", "2_1_1"}));
}

TEST_F(Walking, ArrowKeysInTheTreeLoadAsTheyGo)
{
    start();
    clickNode("Root");
    QTest::keyClick(tvwBus(), Qt::Key_Down);
    EXPECT_EQ(plant().selectedNode(), "1_2");
    EXPECT_EQ(listKeys(), QStringList{"2_2_1"});
    QTest::keyClick(tvwBus(), Qt::Key_Down);
    EXPECT_EQ(plant().selectedNode(), "1_1");
    EXPECT_EQ(listKeys().size(), 2);
}

TEST_F(Walking, ADoubleClickOnAnItemWalksIntoIt)
{
    start();
    clickNode("Root");
    openItem("1_1");
    EXPECT_EQ(plant().selectedNode(), "1_1");
    EXPECT_EQ(plant().tree().keyOf(tvwBus()->currentIndex()), "1_1");
    openItem("2_1_1");
    EXPECT_EQ(listKeys(), (QStringList{"3_1_1_G01", "3_1_1_G02", "3_1_1_G03"}));
    openItem("3_1_1_G02");
    EXPECT_EQ(control<QLabel>("lblPath")->text(), "ZEL Bus\\GRP1\\INST11\\States");
    EXPECT_EQ(listKeys().first(), "4_1_1_G02_P0201");
}

TEST_F(Walking, AnItemPressedOrReachedByAnArrowIsSelected)
{
    start();
    clickNode("Root");
    clickItem("1_2");
    EXPECT_EQ(plant().selectedItem(), "1_2");
    QTest::keyClick(shownList(), Qt::Key_End);
    EXPECT_EQ(plant().selectedItem(), "1_3");
    EXPECT_EQ(plant().selectedNode(), "Root");
}

TEST_F(Walking, ParentGoesUpByButtonAndByKey)
{
    start();
    clickNode("1_1");
    button("Parent")->trigger();
    EXPECT_EQ(plant().selectedNode(), "Root");
    EXPECT_EQ(listKeys().size(), 3);
    clickItem("1_1");
    openItem("1_1");
    QTest::keyClick(shownList(), Qt::Key_Backspace);
    EXPECT_EQ(plant().selectedNode(), "Root");
}

TEST_F(Walking, AboveTheRootNothingIsSelectedAndParentIsOff)
{
    start();
    clickNode("Root");
    button("Parent")->trigger();
    EXPECT_EQ(listKeys(), QStringList{"Root"});
    EXPECT_FALSE(tvwBus()->currentIndex().isValid());
    EXPECT_FALSE(button("Parent")->isEnabled());
}

TEST_F(Walking, FourViewsKeepTheSelection)
{
    start();
    clickNode("Root");
    clickItem("1_1");
    const char* entries[] = {"mnuLargeIcons", "mnuSmallIcons", "mnuListIcons", "mnuReportIcons"};
    for (int view = 0; view < 4; ++view) {
        entry("frmListBus", entries[view])->trigger();
        EXPECT_EQ(lvwBus()->view(), view);
        EXPECT_EQ(lvwBus()->selectedKey(), "1_1") << view;
        EXPECT_EQ(session.ListBusSet.View, view);
        for (const char* form : {"frmTreeBus", "frmListBus"}) {
            for (int marked = 0; marked < 4; ++marked)
                EXPECT_EQ(entry(form, entries[marked])->isChecked(), marked == view)
                    << form << view << marked;
        }
    }
    EXPECT_TRUE(shownList()->objectName() == "lvwBusReport");
}

TEST_F(Walking, TheViewButtonGoesRoundAndItsMenuCarriesABullet)
{
    start();
    for (const int expected : {1, 2, 3, 0}) {
        button("View")->trigger();
        EXPECT_EQ(lvwBus()->view(), expected);
    }
    auto* menu = window()->findChild<QMenu*>("mnuTlbView");
    menu->findChild<QAction*>("List")->trigger();
    EXPECT_EQ(lvwBus()->view(), 2);
    EXPECT_TRUE(menu->findChild<QAction*>("List")->text().startsWith(QChar(0x2022)));
    EXPECT_TRUE(menu->findChild<QAction*>("Report")->text().startsWith("    "));
}

TEST_F(Walking, AHeaderSortsAndASecondClickTurnsTheOrder)
{
    start();
    clickNode("Root");
    entry("frmListBus", "mnuReportIcons")->trigger();
    QCoreApplication::processEvents();
    auto* header = qobject_cast<QTreeView*>(shownList())->header();
    const auto click = [&](int column) {
        const QPoint place(header->sectionViewportPosition(column) + 20, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    };
    click(0);
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_1", "1_3"}));
    click(0);
    EXPECT_EQ(listKeys(), (QStringList{"1_3", "1_1", "1_2"}));
    EXPECT_EQ(plant().list().sortColumn(), 0);
    EXPECT_FALSE(plant().list().sortAscending());
    click(1);
    EXPECT_EQ(plant().list().sortColumn(), 1);
    EXPECT_TRUE(plant().list().sortAscending());
}

TEST_F(Walking, HidingTheTreeGivesTheListTheWholeWidth)
{
    start();
    clickNode("1_1");
    button("Tree")->trigger();
    EXPECT_FALSE(tvwBus()->isVisible());
    EXPECT_EQ(session.TreeBusSet.Visible, 0);
    EXPECT_FALSE(button("Expand")->isEnabled());
    EXPECT_FALSE(button("Collapse")->isEnabled());
    EXPECT_FALSE(button("Tree")->isChecked());
    EXPECT_FALSE(entry("frmTreeBus", "mnuStructure")->isChecked());
    entry("frmListBus", "mnuStructure")->trigger();
    EXPECT_TRUE(tvwBus()->isVisible());
    EXPECT_TRUE(button("Tree")->isChecked());
    EXPECT_TRUE(button("Expand")->isEnabled());
}

TEST_F(Walking, ExpandShowsEveryLevelAndCollapseLeavesTheGroups)
{
    start();
    button("Expand")->trigger();
    EXPECT_TRUE(tvwBus()->isExpanded(plant().tree().indexOf("2_1_1")));
    button("Collapse")->trigger();
    EXPECT_FALSE(tvwBus()->isExpanded(plant().tree().indexOf("1_1")));
    EXPECT_TRUE(tvwBus()->isExpanded(plant().tree().indexOf("Root")));
}

// What is marked is what Delete acts on: Ctrl takes the mark from nothing.
TEST_F(Walking, CtrlNeverUnmarksTheItemThatACommandWouldHit)
{
    start();
    clickNode("Root");
    for (const char* view : {"mnuLargeIcons", "mnuReportIcons"}) {
        entry("frmListBus", view)->trigger();
        clickItem("1_1");
        QTest::keyClick(shownList(), Qt::Key_Space, Qt::ControlModifier);
        EXPECT_TRUE(shownList()->selectionModel()->isSelected(shownList()->currentIndex())) << view;
        QTest::mouseClick(shownList()->viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf("1_1"));
        EXPECT_TRUE(shownList()->selectionModel()->isSelected(shownList()->currentIndex())) << view;
        EXPECT_EQ(plant().selectedItem(), "1_1");
        QTest::keyClick(shownList(), Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(plant().selectedItem(), "1_2") << view;
        EXPECT_EQ(lvwBus()->selectedKey(), "1_2") << view;
        QTest::mouseClick(shownList()->viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf("1_3"));
        EXPECT_EQ(plant().selectedItem(), "1_3") << view;
        EXPECT_EQ(shownList()->selectionModel()->selectedRows().size(), 1) << view;
    }
}

TEST_F(Walking, CtrlNeverUnmarksTheNodeThatACommandWouldHit)
{
    start();
    clickNode("1_1");
    const auto isMarked = [this] {
        return tvwBus()->selectionModel()->isSelected(plant().tree().indexOf(plant().selectedNode()));
    };
    QTest::keyClick(tvwBus(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(isMarked());
    QTest::mouseClick(tvwBus()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      tvwBus()->visualRect(plant().tree().indexOf("1_1")).center());
    EXPECT_TRUE(isMarked());
    QTest::keyClick(tvwBus(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_TRUE(isMarked());
    EXPECT_NE(plant().selectedNode(), "1_1");
}

TEST_F(Walking, ANameIsNoMarkupInTheTipOfThePath)
{
    runOnPlant("UPDATE tbGroupsUser SET Name = '<B>NORTH</B> & <i>  SOUTH' WHERE IDGrp = 1;");
    start();
    clickNode("1_1");
    const auto* lblPath = control<QLabel>("lblPath");
    EXPECT_EQ(lblPath->text(), "ZEL Bus\\<B>NORTH</B> & <i>  SOUTH");
    EXPECT_EQ(lblPath->textFormat(), Qt::PlainText);
    QTextDocument tip;
    tip.setHtml(lblPath->toolTip());
    EXPECT_EQ(tip.toPlainText(), lblPath->text());
    clickNode("1_2");
    EXPECT_EQ(lblPath->toolTip(), "ZEL Bus\\ALPHA");
}

// A list full of bad choices is told of once, and is full behind the box.
TEST_F(Walking, ChoicesThatAreNoNumbersAreToldOnce)
{
    runOnPlant("UPDATE tbParametersUser SET Value = 'on' WHERE IDPar IN ('P0201', 'P0202');");
    start();
    clickNode("3_1_1_G02");
    failures.expectOne(platform::errors::kTypeMismatch, "Module/Search_ParamEnum");
    EXPECT_EQ(listKeys().size(), 4);
}

} // namespace
