#include "gui/GuiFixture.h"

#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace {

using platform::answers::kNo;
using platform::answers::kYes;

class MainWindow : public gui::GuiFixture
{
};

TEST_F(MainWindow, WithoutACompanyTheNextStepsStandInThePlaceOfThePlant)
{
    start("");
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());
    EXPECT_TRUE(control<QWidget>("emptyOpen")->hasFocus());
    EXPECT_FALSE(tvwBus()->isVisible());
    EXPECT_FALSE(button("Refresh")->isEnabled());
    EXPECT_TRUE(button("OpenDb")->isEnabled());
    EXPECT_TRUE(entry("frmTreeBus", "mnuOpenDb")->isEnabled());
    EXPECT_FALSE(entry("frmListBus", "mnuRefresh")->isEnabled());

    desktop.script.chooseFile(plantFile());
    QTest::mouseClick(control<QWidget>("emptyOpen"), Qt::LeftButton);
    EXPECT_FALSE(control<QWidget>("emptyState")->isVisible());
    EXPECT_TRUE(tvwBus()->isVisible());
    EXPECT_TRUE(button("Refresh")->isEnabled());
    EXPECT_EQ(session.CurrentUser.Name, "TECHNICIAN");
}

TEST_F(MainWindow, ClosingTheCompanyAsksAndShowsTheNextStepsAgain)
{
    start();
    desktop.script.expect(texts(503), kYes);
    button("CloseDb")->trigger();
    EXPECT_EQ(session.DbName, "");
    EXPECT_EQ(window()->windowTitle(), "Calidora");
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());
    EXPECT_EQ(control<QLabel>("lblPath")->text(), "");
}

TEST_F(MainWindow, EveryButtonAndEveryEntryStandsThereWithAProcedureBehindIt)
{
    start();
    for (const session::ToolbarCommand& command : session::toolbarCommands()) {
        ASSERT_TRUE(button(command.key)) << qPrintable(command.key);
        EXPECT_TRUE(button(command.key)->isVisible()) << qPrintable(command.key);
        EXPECT_TRUE(command.isSeparator() || program.handlers().has(command.key)) << qPrintable(command.key);
    }
    const std::function<void(const QString&, const std::vector<session::MenuEntry>&)> lookAt =
        [&](const QString& form, const std::vector<session::MenuEntry>& menu) {
            for (const session::MenuEntry& below : menu) {
                if (below.isSeparator())
                    continue;
                EXPECT_TRUE(entry(form, below.name)) << qPrintable(below.name);
                EXPECT_TRUE(!below.entries.empty() || program.handlers().has(below.command))
                    << qPrintable(below.name);
                lookAt(form, below.entries);
            }
        };
    lookAt("frmTreeBus", session::menuBar(session::Place::Tree));
    lookAt("frmTreeBus", session::popupBus(session::Place::Tree));
    lookAt("frmListBus", session::menuBar(session::Place::List));
    lookAt("frmListBus", session::popupBus(session::Place::List));
    lookAt("frmMain", session::popupToolbar());
}

TEST_F(MainWindow, TheMenuBarIsThatOfTheActiveChild)
{
    start();
    const auto belongsTo = [&](const QString& form) {
        return window()->menuBar()->actions().contains(
            desktop.form(form)->findChild<QMenu*>("mnuFile")->menuAction());
    };
    tvwBus()->setFocus();
    EXPECT_TRUE(belongsTo("frmTreeBus"));
    shownList()->setFocus();
    EXPECT_TRUE(belongsTo("frmListBus"));
    EXPECT_FALSE(belongsTo("frmTreeBus"));
}

TEST_F(MainWindow, ThePopupsFollowTheLevel)
{
    start();
    const auto popupOf = [&](const QString& form, const QPoint& place, QWidget* viewport) {
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
        QCoreApplication::sendEvent(viewport, &wanted);
        return desktop.form(form)->findChild<QMenu*>("mnuBus");
    };
    clickNode("Root");
    QMenu* tree =
        popupOf("frmTreeBus", tvwBus()->visualRect(tvwBus()->currentIndex()).center(), tvwBus()->viewport());
    EXPECT_TRUE(tree->isVisible());
    EXPECT_FALSE(tree->findChild<QAction*>("mnuBusReadWrite")->isEnabled());
    EXPECT_TRUE(tree->findChild<QAction*>("mnuBusRefresh")->isEnabled());
    tree->close();

    clickItem("1_1");
    QMenu* list = popupOf("frmListBus", placeOf("1_1"), shownList()->viewport());
    EXPECT_TRUE(list->isVisible());
    EXPECT_TRUE(list->findChild<QAction*>("mnuBusReadWrite")->isEnabled());
    EXPECT_TRUE(list->findChild<QAction*>("mnuBusLargeIcon")->isChecked());
    list->close();

    clickNode("1_1");
    EXPECT_TRUE(
        popupOf("frmTreeBus", tvwBus()->visualRect(tvwBus()->currentIndex()).center(), tvwBus()->viewport())
            ->findChild<QAction*>("mnuBusReadWrite")
            ->isEnabled());
}

TEST_F(MainWindow, RefreshReadsTheCompanyAgain)
{
    start();
    clickNode("Root");
    runOnPlant("INSERT INTO tbGroupsUser VALUES (9, 'ZULU', NULL, NULL);");
    entry("frmListBus", "mnuRefresh")->trigger();
    EXPECT_TRUE(listKeys().contains("1_9"));
}

TEST_F(MainWindow, TheToolbarChangesSizeAndView)
{
    start();
    auto* toolbar = control<QToolBar>("tlbMain");
    EXPECT_EQ(toolbar->iconSize(), QSize(32, 32));
    entry("frmTreeBus", "mnuTlbSmallIcons")->trigger();
    EXPECT_EQ(toolbar->iconSize(), QSize(16, 16));
    EXPECT_EQ(session.ToolbarSet.Icons, 0);
    EXPECT_TRUE(entry("frmListBus", "mnuTlbSmallIcons")->isChecked());
    EXPECT_FALSE(entry("frmListBus", "mnuTlbLargeIcons")->isChecked());

    EXPECT_TRUE(button("OpenDb")->isVisible());
    entry("frmListBus", "mnuTlbReduced")->trigger();
    EXPECT_FALSE(button("OpenDb")->isVisible());
    EXPECT_TRUE(button("Parent")->isVisible());
    EXPECT_EQ(session.ToolbarSet.View, 0);
    toolbar->findChild<QMenu*>("mnuTlb")->findChild<QAction*>("mnuTlbViewComplete")->trigger();
    EXPECT_TRUE(button("OpenDb")->isVisible());
}

TEST_F(MainWindow, TheCloseBoxAsksOnceAndNoKeepsTheWindow)
{
    start();
    desktop.script.expect(texts(524), kNo);
    window()->close();
    EXPECT_TRUE(window()->isVisible());

    QSignalSpy left(&program, &program::Program::left);
    desktop.script.expect(texts(524), kYes);
    window()->close();
    EXPECT_FALSE(window()->isVisible());
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(desktop.script.boxes.size(), 2u);
}

TEST_F(MainWindow, ExitAsksOnceAndTheConfigurationRemembersTheCompany)
{
    start();
    desktop.script.expect(texts(524), kYes);
    entry("frmTreeBus", "mnuExit")->trigger();
    EXPECT_EQ(desktop.script.boxes.size(), 1u);
    EXPECT_EQ(session.DbName, "");
    EXPECT_FALSE(port.PortOpen());
    session::Session next;
    next.AppPath = session.AppPath;
    ASSERT_TRUE(session::Read_Configuration(next));
    EXPECT_EQ(next.DbName, "Plant.mdb");
    EXPECT_GT(next.ListBusSet.Col1Width, 0);
    EXPECT_GT(next.TreeBusSet.Width, 0);
}

TEST_F(MainWindow, AlarmsAreAcknowledgedFromTheMenusOfBothChildren)
{
    start();
    for (const char* form : {"frmTreeBus", "frmListBus"}) {
        program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
        played = 0;
        inside("frmMessage", [&](QDialog& notice) {
            EXPECT_EQ(notice.windowTitle(), "Calidora");
            EXPECT_EQ(notice.findChild<QLabel*>("lblMsg")->text(), texts(582));
            EXPECT_EQ(notice.findChild<QLabel*>("lblMsgDetail")->text(), texts(585));
        });
        entry(form, "mnuAllarms")->trigger();
        EXPECT_EQ(played, 1) << form;
        EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kRest) << form;
        EXPECT_EQ(control<QWidget>("Allarm")->toolTip(), "") << form;
    }
}

// A plant that calls ten times in a night stands there once a call.
TEST_F(MainWindow, TheNoticeNamesThePlantsThatCalled)
{
    start();
    const QDateTime night(QDate(2026, 11, 21), QTime(3, 10));
    events::EventLog& log = program.events();
    for (int call = 0; call < 10; ++call) {
        log.Add_Event_Db(2, night.addSecs(600 * call), 1, "NORTH", "ROOM", "TOO WARM");
        log.Add_Event_Db(2, night.addSecs(600 * call), 1, "NORTH", "FREEZER", "DOOR");
    }
    log.Add_Event_Db(1, night, 2, "SOUTH", "", "no alarm");
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    inside("frmMessage", [&](QDialog& notice) {
        const QStringList calls = notice.findChild<QLabel*>("lblCalls")->text().split('\n');
        EXPECT_EQ(calls.size(), 9);
        EXPECT_EQ(calls.first(), "...");
        EXPECT_EQ(calls.last(), QStringLiteral("21/11/2026 04:40  NORTH \u203a FREEZER \u203a DOOR"));
        EXPECT_FALSE(calls.join(' ').contains("SOUTH"));
        nothingIsClipped(notice);
        log.Add_Event_Db(2, night, 1, "WEST", "", "CALLS MEANWHILE");
    });
    entry("frmListBus", "mnuAllarms")->trigger();
    EXPECT_EQ(played, 1);
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    inside("frmMessage", [&](QDialog& notice) {
        EXPECT_EQ(notice.findChild<QLabel*>("lblCalls")->text(),
                  QStringLiteral("21/11/2026 03:10  WEST \u203a CALLS MEANWHILE"));
    });
    entry("frmListBus", "mnuAllarms")->trigger();
    EXPECT_EQ(played, 2);
}

// What the window of the purge shows each time it is painted.
class PaintedFiles : public QObject
{
public:
    PaintedFiles() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->objectName() == "frmReadLogFiles")
            seen << watched->findChild<QLineEdit*>("txtFileName")->text();
        return false;
    }
    QStringList seen;
};

TEST_F(MainWindow, ThePurgeAtTheStartShowsItsFiles)
{
    const QString old = file("Log/Calidora_20010203040506.log");
    ASSERT_TRUE(QFile(old).open(QIODevice::WriteOnly));
    session.LogSet.DelLog = -1;
    session.LogSet.DelLogInstErr = -1;
    session.LogSet.LogDays = 30;
    PaintedFiles painted;
    start();
    EXPECT_TRUE(painted.seen.contains("(1/1) Calidora_20010203040506.log"))
        << qPrintable(painted.seen.join(';'));
    EXPECT_FALSE(QFile::exists(old));
    EXPECT_FALSE(desktop.form("frmReadLogFiles"));
}

TEST_F(MainWindow, ACompanyThatIsGoneIsForgottenAtTheExit)
{
    start("Gone.mdb");
    failures.take();
    EXPECT_TRUE(control<QWidget>("emptyState")->isVisible());
    desktop.script.expect(texts(524), kYes);
    button("Exit")->trigger();
    session::Session next;
    next.AppPath = session.AppPath;
    EXPECT_TRUE(session::Read_Configuration(next));
    EXPECT_EQ(next.DbName, "");
}

TEST_F(MainWindow, AlarmsAreAcknowledgedByADoubleClickOnTheirPanel)
{
    start();
    auto* panel = control<QWidget>("Allarm");
    EXPECT_EQ(panel->toolTip(), texts(290));
    QSignalSpy told(panel->parent(), SIGNAL(panelDoubleClicked(QString)));
    QTest::mouseDClick(panel, Qt::LeftButton);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kRest);

    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    QString notice;
    QTimer::singleShot(0, window(), [&] {
        QWidget* shown = QApplication::activeModalWidget();
        ASSERT_TRUE(shown);
        notice = shown->objectName() + ": " + shown->findChild<QLabel*>("lblMsg")->text();
        QTest::mouseClick(shown->findChild<QWidget*>("cmdOK"), Qt::LeftButton);
    });
    QTest::mouseDClick(panel, Qt::LeftButton);
    EXPECT_EQ(notice, "frmMessage: " + texts(582));
    EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kRest);
}

TEST_F(MainWindow, OnlyATreeThatHasTheKeysHandsThemToTheListAsItGoes)
{
    start();
    clickNode("1_1");
    tvwBus()->setFocus();
    button("Tree")->trigger();
    EXPECT_FALSE(tvwBus()->isVisible());
    EXPECT_TRUE(lvwBus()->isAncestorOf(window()->focusWidget()));
    button("Tree")->trigger();
    EXPECT_TRUE(tvwBus()->isVisible());
    QTest::keyClick(window()->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    auto* filter = control<QLineEdit>("txtFilter");
    EXPECT_EQ(window()->focusWidget(), filter);
    button("Tree")->trigger();
    EXPECT_EQ(window()->focusWidget(), filter);
}

} // namespace
