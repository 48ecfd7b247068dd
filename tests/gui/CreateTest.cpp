#include "gui/GuiFixture.h"

#include <QDialog>
#include <QMenu>
#include <QProgressBar>
#include <QTimer>

using platform::answers::kNo;
using platform::answers::kYes;

namespace {

class Create : public gui::GuiFixture
{
protected:
    void startOn(const QString& node)
    {
        start();
        clickNode(node);
    }
    // Plays the operator in a modal window as soon as it is up.
    void inForm(const QString& name, std::function<void(QWidget*)> play)
    {
        QTimer::singleShot(1, &test, [this, name, play] {
            QWidget* form = QApplication::activeModalWidget();
            if (form && form->objectName() == name)
                play(form);
            else
                inForm(name, play);
        });
    }
    void inZoom(std::function<void(QTreeView*)> play)
    {
        inForm("frmZoom", [play](QWidget* form) { play(form->findChild<QTreeView*>("lvwZoom")); });
    }
    // The dialog for the new item's data comes up, and goes without a change.
    void leaveProperty()
    {
        inForm("frmProperty", [this](QWidget* form) {
            ++propertiesShown;
            form->close();
        });
    }
    QStringList plantRows(const QString& sql) { return support::column(plantFile(), sql); }
    void confirm(int offset, int answer = kYes) { desktop.script.expect(texts(offset), answer); }

    int propertiesShown = 0;
    QObject test; // what still waits for a window goes with the test
};

TEST_F(Create, AGroupByTheToolbar)
{
    startOn("Root");
    confirm(584);
    leaveProperty();
    button("New")->trigger();
    EXPECT_EQ(propertiesShown, 1);
    EXPECT_TRUE(listKeys().contains("1_4"));
    EXPECT_TRUE(plant().tree().contains("1_4"));
    EXPECT_EQ(plantRows("SELECT Name FROM tbGroupsUser WHERE IDGrp = 4"), QStringList{"GRP4"});
    EXPECT_FALSE(control<QProgressBar>("prgUpdate")->isVisible());
}

TEST_F(Create, AGroupByTheMenusOfBothChildrenAndTheirPopups)
{
    startOn("Root");
    const std::pair<const char*, const char*> entries[] = {{"frmTreeBus", "mnuNew"},
                                                           {"frmTreeBus", "mnuBusNew"},
                                                           {"frmListBus", "mnuNew"},
                                                           {"frmListBus", "mnuBusNew"}};
    for (const auto& [form, name] : entries) {
        confirm(584);
        leaveProperty();
        ASSERT_TRUE(entry(form, name)) << form << name;
        entry(form, name)->trigger();
    }
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbGroupsUser"), QStringList{"7"});
    EXPECT_EQ(listKeys().size(), 7);
}

TEST_F(Create, AnInstrumentByMouse)
{
    startOn("1_3");
    inZoom([](QTreeView* list) {
        const QPoint row = list->visualRect(list->model()->index(1, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
    });
    leaveProperty();
    button("New")->trigger();
    EXPECT_EQ(listKeys(), QStringList{"2_3_1"});
    EXPECT_EQ(plant().list().item("2_3_1")->detail, "KT200");
    EXPECT_TRUE(plant().tree().contains("3_3_1_G12"));
    EXPECT_FALSE(desktop.form("frmZoom"));
}

TEST_F(Create, AnInstrumentByKeys)
{
    startOn("1_3");
    inZoom([](QTreeView* list) {
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    });
    leaveProperty();
    entry("frmTreeBus", "mnuNew")->trigger();
    EXPECT_EQ(plant().list().item("2_3_1")->detail, "KT200");
}

TEST_F(Create, TheInsertKeyAddsBelowTheNode)
{
    startOn("Root");
    for (QWidget* view : {static_cast<QWidget*>(tvwBus()), static_cast<QWidget*>(shownList())}) {
        confirm(584);
        leaveProperty();
        QTest::keyClick(view, Qt::Key_Insert);
    }
    EXPECT_EQ(listKeys().size(), 5);
    clickNode("2_1_1");
    QTest::keyClick(tvwBus(), Qt::Key_Insert);
    EXPECT_EQ(propertiesShown, 2) << "nothing is added below an instrument";
}

TEST_F(Create, EscapeInTheListOfTypesMakesNothing)
{
    startOn("1_3");
    inZoom([](QTreeView* list) {
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Escape);
    });
    button("New")->trigger();
    EXPECT_EQ(listKeys(), QStringList{});
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbInstrumentsUser WHERE IDGrp = 3"), QStringList{"0"});
}

TEST_F(Create, AnItemIsDeletedByTheDeleteKeyAndTheNextOneIsSelected)
{
    startOn("1_1");
    clickItem("2_1_2");
    confirm(506);
    QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_EQ(listKeys(), QStringList{"2_1_1"});
    EXPECT_EQ(lvwBus()->selectedKey(), "2_1_1");
    EXPECT_TRUE(shownList()->hasFocus());
    confirm(506);
    QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_EQ(listKeys(), QStringList{});
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbParametersUser WHERE IDGrp = 1"), QStringList{"0"});
}

TEST_F(Create, ANodeIsDeletedByTheDeleteKey)
{
    startOn("1_1");
    confirm(506, kNo);
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_TRUE(plant().tree().contains("1_1"));
    confirm(506);
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_FALSE(plant().tree().contains("1_1"));
    EXPECT_EQ(plant().tree().keyOf(tvwBus()->currentIndex()), "Root");
    EXPECT_EQ(listKeys(), (QStringList{"1_2", "1_3"}));
}

TEST_F(Create, DeleteByToolbarMenusAndPopups)
{
    startOn("Root");
    clickItem("1_3");
    confirm(506);
    button("Delete")->trigger();
    EXPECT_FALSE(plant().tree().contains("1_3"));
    clickItem("1_2");
    confirm(506);
    entry("frmListBus", "mnuDelete")->trigger();
    EXPECT_FALSE(plant().tree().contains("1_2"));
    clickNode("2_1_1");
    confirm(506);
    entry("frmTreeBus", "mnuBusDelete")->trigger();
    clickNode("1_1");
    confirm(506);
    entry("frmTreeBus", "mnuDelete")->trigger();
    EXPECT_EQ(plantRows("SELECT Count(*) FROM tbGroupsUser"), QStringList{"0"});
    EXPECT_EQ(plant().tree().nodeCount(), 1);
}

TEST_F(Create, WhereNothingMayBeDeletedTheKeyDoesNothing)
{
    startOn("2_1_1");
    clickItem("3_1_1_G01");
    QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_TRUE(plant().tree().contains("3_1_1_G01"));
    clickNode("Root");
    QTest::keyClick(tvwBus(), Qt::Key_Delete);
    EXPECT_TRUE(desktop.script.boxes.empty());
}

TEST_F(Create, AnOperatorWithoutTheRightIsOfferedNothing)
{
    setRight("Modify", "0");
    start();
    clickNode("1_1");
    clickItem("2_1_1");
    EXPECT_FALSE(button("New")->isEnabled());
    EXPECT_FALSE(button("Delete")->isEnabled());
    QTest::keyClick(shownList(), Qt::Key_Delete);
    EXPECT_EQ(listKeys().size(), 2);
}

TEST_F(Create, TheProgressShowsWhileTheDatabaseWorks)
{
    startOn("Root");
    auto* prgUpdate = control<QProgressBar>("prgUpdate");
    std::vector<int> shown;
    QTimer line; // what the line's timers would do, in the middle of the transaction
    QObject::connect(&line, &QTimer::timeout, &line, [&] { EXPECT_FALSE(prgUpdate->isVisible()); });
    QObject::connect(&plant(), &structure::Structure::updateProgress, &plant(), [&] {
        EXPECT_TRUE(prgUpdate->isVisible());
        shown.push_back(prgUpdate->value());
        line.start(0);
    });
    clickItem("1_1");
    confirm(506);
    button("Delete")->trigger();
    EXPECT_EQ(shown, (std::vector{33, 66, 100}));
    EXPECT_FALSE(prgUpdate->isVisible());
}

TEST_F(Create, AFailureLeavesTheWindowAsItWas)
{
    startOn("Root");
    clickItem("1_1");
    session.cnDatabase.Execute("PRAGMA query_only=ON;");
    confirm(506);
    QTest::keyClick(shownList(), Qt::Key_Delete);
    failures.expectOne(platform::errors::kDatabase, "Module/Remove_Record_Db");
    EXPECT_EQ(listKeys().size(), 3);
    EXPECT_EQ(lvwBus()->selectedKey(), "1_1");
    EXPECT_FALSE(control<QProgressBar>("prgUpdate")->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
