// Tree, list and the windows beside them: what is marked, what is shown where, and that all of it has its
// place.
#include "gui/GuiFixture.h"
#include "history/NoteFile.h"
#include "platform/widgets/InsideScreen.h"
#include "structure/PlantMarks.h"
#include "widgets/ElidedLabel.h"
#include "widgets/FormLanguage.h"
#include "widgets/SortHeader.h"

#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>

namespace {

using platform::answers::kYes;
using structure::kHoldsChanges;
using structure::kReadOnly;
using structure::ListModel;
using structure::TreeModel;

class NightPlant : public gui::GuiFixture
{
protected:
    int nodeMarks(const QString& key)
    {
        return plant().tree().data(plant().tree().indexOf(key), TreeModel::MarkRole).toInt();
    }
    int itemMarks(const QString& key)
    {
        return plant().list().index(plant().list().rowOf(key), 0).data(ListModel::MarkRole).toInt();
    }
    QString panel(const char* key) { return control<QWidget>(key)->findChild<QLabel*>("text")->text(); }
    void clickHeading(int column)
    {
        auto* header = lvwBus()->findChild<QHeaderView*>();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 20, header->height() / 2));
    }
    QStringList values()
    {
        QStringList all;
        for (int row = 0; row < plant().list().rowCount(); ++row)
            all << plant().list().index(row, 1).data().toString();
        return all;
    }
};

TEST_F(NightPlant, NodesAndItemsThatHoldChangesAreMarked)
{
    start();
    clickNode("Root");
    ASSERT_TRUE(QTest::qWaitFor([&] { return nodeMarks("1_1") != 0; }));
    for (const char* key : {"Root", "1_1", "2_1_1", "3_1_1_G02", "2_1_2", "3_1_2_G11"})
        EXPECT_EQ(nodeMarks(key), kHoldsChanges) << key;
    EXPECT_EQ(nodeMarks("1_3"), 0);
    EXPECT_EQ(nodeMarks("3_1_1_G01"), 0);
    EXPECT_EQ(itemMarks("1_1"), kHoldsChanges);
    EXPECT_EQ(itemMarks("1_3"), 0);
    EXPECT_EQ(panel("Waiting"), "to write: 3");
    picture(*window(), "main-marks");
    // Whoever changes the company: the marks follow.
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0 WHERE IDPar = 'P0201';");
    EXPECT_TRUE(QTest::qWaitFor([&] { return nodeMarks("2_1_1") == 0; }));
    EXPECT_EQ(nodeMarks("1_1"), kHoldsChanges) << "another instrument holds some";
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    EXPECT_TRUE(QTest::qWaitFor([&] { return nodeMarks("Root") == 0; }));
    EXPECT_FALSE(control<QWidget>("Waiting")->isVisible());
}

TEST_F(NightPlant, TheCountInTheStatusBarOpensTheList)
{
    start();
    clickNode("Root");
    ASSERT_TRUE(QTest::qWaitFor([&] { return control<QWidget>("Waiting")->isVisible(); }));
    QTest::mouseClick(control<QWidget>("Waiting"), Qt::LeftButton);
    ASSERT_TRUE(desktop.form("frmPending"));
    EXPECT_TRUE(desktop.form("frmPending")->isVisible());
    desktop.script.expect(texts(503), kYes);
    program.handlers().run("CloseDb");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !control<QWidget>("Waiting")->isVisible(); }));
}

class NightPending : public NightPlant
{
protected:
    // Gives P0104 (a number of INST11) the value 7 through its dialog, then opens the list on it.
    void changeAndList()
    {
        start();
        clickNode("3_1_1_G02");
        clickItem("4_1_1_G02_P0202");
        before_ = support::column(plantFile(), kValue).first();
        session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
        inside("frmProperty", [&](QDialog& dialog) {
            auto* list = dialog.findChild<QComboBox*>("cbxValEnum");
            QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        });
        program.handlers().run("Property");
        ASSERT_EQ(played, 1);
        program.handlers().run("Pending");
        ASSERT_TRUE(QTest::qWaitFor([&] { return list()->model()->rowCount() == 1; }));
    }
    QWidget* form() { return desktop.form("frmPending"); }
    QTreeView* list() { return form()->findChild<QTreeView*>("lvwPending"); }
    QPushButton* push(const char* name) { return form()->findChild<QPushButton*>(name); }
    QString cell(int column) { return list()->model()->index(0, column).data().toString(); }

    static constexpr char kValue[] =
        "SELECT Value FROM tbParametersUser WHERE IDGrp = 1 AND IDInst = 1 AND IDPar = 'P0202'";
    QString before_;
};

TEST_F(NightPending, TheInstrumentsValueStandsBesideTheNewOne)
{
    changeAndList();
    EXPECT_NE(cell(1), cell(3));
    EXPECT_FALSE(cell(3).isEmpty());
    EXPECT_EQ(list()->header()->visualIndex(3), 2) << "beside the new one";
    EXPECT_EQ(list()->model()->headerData(3, Qt::Horizontal).toString(), "In the instrument");
    nothingIsClipped(*form());
    picture(*form(), "pending-known");
}

TEST_F(NightPending, AChangeIsTakenBack)
{
    changeAndList();
    ASSERT_TRUE(push("cmdTakeBack")->isEnabled());
    desktop.script.expect(texts.own("pending.back.ask"), platform::answers::kNo);
    QTest::mouseClick(push("cmdTakeBack"), Qt::LeftButton);
    EXPECT_NE(support::column(plantFile(), kValue).first(), before_);
    desktop.script.expect(texts.own("pending.back.ask"), kYes);
    QTest::mouseClick(push("cmdTakeBack"), Qt::LeftButton);
    EXPECT_TRUE(desktop.script.questions.back().more.contains("GRP1\\INST11\\States"));
    EXPECT_EQ(support::column(plantFile(), kValue).first(), before_);
    EXPECT_EQ(support::column(plantFile(), "SELECT Count(*) FROM tbParametersUser WHERE State = 1"),
              QStringList{"0"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return list()->model()->rowCount() == 0; }));
    EXPECT_FALSE(push("cmdTakeBack")->isEnabled());
    EXPECT_EQ(plant().list().item("4_1_1_G02_P0202")->icon, 5) << "the list follows";
    const QString lastNote = "SELECT Cause || '/' || NewState FROM tbNote ORDER BY ID DESC LIMIT 1";
    EXPECT_EQ(support::column(history::historyFileOf(plantFile()), lastNote), QStringList{"2/0"});
}

TEST_F(NightPending, AFailureToTakeBackChangesNothing)
{
    changeAndList();
    session.cnDatabase.Execute("PRAGMA query_only=ON;");
    desktop.script.expect(texts.own("pending.back.ask"), kYes);
    QTest::mouseClick(push("cmdTakeBack"), Qt::LeftButton);
    failures.expectOne(platform::errors::kDatabase, "frmPending/Take_Back");
    EXPECT_NE(support::column(plantFile(), kValue).first(), before_);
}

TEST_F(NightPending, WhatNobodyHasSeenCanNotBeTakenBack)
{
    start();
    program.handlers().run("Pending");
    ASSERT_TRUE(QTest::qWaitFor([&] { return list()->model()->rowCount() == 3; }));
    EXPECT_EQ(cell(3), "not known");
    EXPECT_FALSE(push("cmdTakeBack")->isEnabled());
}

TEST_F(NightPending, TheConsoleOpensOnTheSelection)
{
    changeAndList();
    inside("frmReadWrite", [&](QDialog& console) {
        EXPECT_TRUE(
            console.findChild<QLabel*>("lblItem")->text().startsWith(QStringLiteral("INST11 \u203a States")));
        console.close();
    });
    QTest::mouseClick(push("cmdReadWrite"), Qt::LeftButton);
    EXPECT_EQ(played, 2);
    EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0202");
}

// The list
TEST_F(NightPlant, ReadOnlyParametersBearALock)
{
    runOnPlant("UPDATE tbParam SET mEnable = 0 WHERE mID = 'P0101'; UPDATE tbParam SET mEnable = 1 WHERE mID "
               "= 'P0102';");
    start();
    clickNode("3_1_1_G01");
    EXPECT_EQ(itemMarks("4_1_1_G01_P0101"), kReadOnly);
    EXPECT_EQ(itemMarks("4_1_1_G01_P0102") & kReadOnly, 0);
    picture(*window(), "main-locks");
}

TEST_F(NightPlant, ASelectedRowKeepsThePictureOfItsState)
{
    start();
    entry("frmListBus", "mnuReportIcons")->trigger();
    clickNode("3_1_2_G11");
    // The rectangle of the focus lies faintly over all of it.
    const auto isAmber = [](const QColor& colour) {
        return colour.red() > 190 && colour.red() - colour.blue() > 90;
    };
    const auto amber = [&] {
        const QImage shown = shownList()->viewport()->grab().toImage();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < 24; ++x)
                count += isAmber(shown.pixelColor(x, y));
        return count;
    };
    const int before = amber();
    ASSERT_GT(before, 0);
    clickItem("4_1_2_G11_P1101");
    picture(*window(), "main-selected");
    EXPECT_GT(amber(), before / 2) << "the colour says what the state is";
}

TEST_F(NightPlant, NumbersSortAsNumbers)
{
    start();
    entry("frmListBus", "mnuReportIcons")->trigger();
    clickNode("3_1_1_G01");
    const std::pair<const char*, const char*> shown[] = {{"P0101", "9"}, {"P0102", "-4"}, {"P0103", "10"}};
    for (const auto& [key, value] : shown) {
        structure::ListItem item = *plant().list().item(QString("4_1_1_G01_") + key);
        item.subtext = QString(value) + " bar";
        plant().showItem(item);
    }
    clickHeading(1);
    QStringList numbers = values();
    EXPECT_LT(numbers.indexOf("-4 bar"), numbers.indexOf("9 bar"));
    EXPECT_LT(numbers.indexOf("9 bar"), numbers.indexOf("10 bar"));
    auto* header = lvwBus()->findChild<widgets::SortHeader*>();
    EXPECT_EQ(header->arrowColumn(), 1);
    clickHeading(2);
    EXPECT_EQ(header->arrowColumn(), -1) << "the column has no title";
    entry("frmListBus", "mnuRefresh")->trigger();
    EXPECT_EQ(listKeys().first(), "4_1_1_G01_P0101") << "afresh, in the order of the catalogue";
    EXPECT_EQ(header->arrowColumn(), -1);
}

TEST_F(NightPlant, TheIconViewsShowTheValuesToo)
{
    start();
    clickNode("3_1_2_G11");
    for (const char* view : {"mnuLargeIcons", "mnuSmallIcons", "mnuListIcons"}) {
        entry("frmListBus", view)->trigger();
        EXPECT_EQ(plant().list().index(0, 0).data(ListModel::ValueRole).toString(), "4.5 °C");
        picture(*window(), QString("view-") + view);
    }
    clickNode("1_1");
    EXPECT_EQ(plant().list().index(0, 0).data(ListModel::ValueRole).toString(), "")
        << "an address is no value";
}

TEST_F(NightPlant, ALongPathGivesWayAtItsBeginning)
{
    start();
    clickNode("3_1_1_G01");
    auto* path = control<widgets::ElidedLabel>("lblPath");
    EXPECT_EQ(path->shownText(), path->text());
    path->resize(120, path->height());
    EXPECT_TRUE(path->shownText().startsWith(QChar(0x2026))) << qPrintable(path->shownText());
    EXPECT_TRUE(path->shownText().endsWith("Measures"));
    EXPECT_EQ(path->text(), "ZEL Bus\\GRP1\\INST11\\Measures");
}

TEST_F(NightPlant, AtTheFirstStartTheTreeHasAThird)
{
    session.TreeBusSet.Width = -1;
    start();
    const QList<int> sizes = control<QSplitter>("splitter")->sizes();
    EXPECT_NEAR(sizes[0], (sizes[0] + sizes[1]) / 3, 12);
}

TEST_F(NightPlant, TheFilterTakesSeveralWordsOverThePath)
{
    start();
    clickNode("3_1_1_G01");
    plant().list().setFilter("inst11 t1");
    EXPECT_EQ(listKeys(), QStringList{"4_1_1_G01_P0101"});
    plant().list().setFilter("inst11");
    EXPECT_EQ(listKeys(), QStringList()) << "of a word at least the row is its own";
    plant().list().setFilter("inst21 t1");
    EXPECT_EQ(listKeys(), QStringList());
    plant().list().setFilter("  ");
    EXPECT_GT(listKeys().size(), 1);
}

TEST_F(NightPlant, TheSearchTakesSeveralWordsOverThePath)
{
    start();
    program.handlers().run("Find");
    auto* found = desktop.form("frmFind")->findChild<QTreeView*>("lvwFound");
    const auto finds = [&](const QString& text) {
        type(desktop.form("frmFind")->findChild<QLineEdit*>("txtFind"), text);
        QStringList names;
        const QString words = texts.own("find.searching");
        auto* label = desktop.form("frmFind")->findChild<QLabel*>("lblFound");
        EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() != words; }));
        for (int row = 0; row < found->model()->rowCount(); ++row)
            names << found->model()->index(row, 2).data().toString() + '\\' +
                         found->model()->index(row, 0).data().toString();
        return names;
    };
    EXPECT_EQ(finds("mod inst11"), QStringList{"GRP1\\INST11\\States\\EN MOD"});
    EXPECT_EQ(finds("grp1 mod states"), QStringList{"GRP1\\INST11\\States\\EN MOD"});
    EXPECT_EQ(finds("mod inst21"), QStringList());
    picture(*desktop.form("frmFind"), "find-words");
}

TEST_F(NightPlant, TheWindowThatFoundItGoesOutOfTheWay)
{
    QWidget window;
    window.resize(300, 200);
    window.move(100, 100);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QRect row(120, 150, 200, 20);
    platform::moveAside(window, row);
    EXPECT_FALSE(window.frameGeometry().intersects(row));
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
    const QPoint there = window.pos();
    platform::moveAside(window, row);
    EXPECT_EQ(window.pos(), there) << "what is clear stays";
}

TEST_F(NightPlant, AWindowLargerThanTheScreenComesInside)
{
    QWidget window;
    const QRect room = window.screen()->availableGeometry();
    window.resize(room.width() + 400, room.height() + 300);
    window.move(room.left() + 200, room.top() + 100);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    platform::keepInside(window);
    EXPECT_TRUE(room.contains(window.frameGeometry())) << window.width() << " x " << window.height();
}

TEST_F(NightPlant, WindowsKeepSizeAndPlace)
{
    start();
    program.handlers().run("Find");
    desktop.form("frmFind")->resize(701, 433);
    desktop.form("frmFind")->close();
    desktop.unloadForm("frmFind");
    QCoreApplication::processEvents();
    program.handlers().run("Find");
    EXPECT_EQ(desktop.form("frmFind")->size(), QSize(701, 433));
}

// The bell stays to the last, however narrow the window.
TEST_F(NightPlant, TheBellIsSeenAtEveryWidth)
{
    start();
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    program.panels().setText(bus::Panel::Info, texts(582));
    auto* bell = control<QWidget>("Allarm");
    EXPECT_GE(bell->findChild<QLabel*>()->pixmap(Qt::ReturnByValue).deviceIndependentSize().width(), 32);
    for (const int width : {1120, 700, 420}) {
        window()->resize(width, 500);
        // A window manager takes its time.
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return window()->width() <= std::max(width, window()->minimumSizeHint().width());
        })) << width;
        const QRect inside = window()->rect();
        EXPECT_TRUE(inside.contains(QRect(bell->mapTo(window(), QPoint()), bell->size()))) << width;
        picture(*window(), QString("bell-%1").arg(width));
    }
    EXPECT_LE(window()->minimumSizeHint().width(), 620) << "at scale 2 a screen of 1280 points has 640";
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kRest);
    EXPECT_LT(bell->findChild<QLabel*>()->pixmap(Qt::ReturnByValue).deviceIndependentSize().width(), 32);
}

TEST_F(NightPlant, AnEmptyCompanySaysItsNextStep)
{
    runOnPlant("DELETE FROM tbGroupsUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbParametersUser;");
    start();
    EXPECT_EQ(plant().selectedNode(), "Root");
    EXPECT_TRUE(tvwBus()->hasFocus());
    EXPECT_EQ(control<QLabel>("lblEmpty")->text(), "No plants yet. Press New (Ins).");
    EXPECT_TRUE(control<QLabel>("lblEmpty")->isVisible());
    EXPECT_TRUE(button("New")->isEnabled());
    picture(*window(), "main-empty-company");
    desktop.script.expect(texts(584), kYes);
    inside("frmProperty", [](QDialog& dialog) { dialog.reject(); });
    QTest::keyClick(tvwBus(), Qt::Key_Insert);
    EXPECT_EQ(listKeys(), QStringList{"1_1"});
    clickNode("1_1");
    EXPECT_EQ(control<QLabel>("lblEmpty")->text(), "No instruments yet. Press New (Ins).");
}

TEST_F(NightPlant, ThePickerOfTypesHasButtonsAndASelectedRow)
{
    start();
    clickNode("1_1");
    inside("frmZoom", [&](QDialog& picker) {
        auto* list = picker.findChild<QTreeView*>("lvwZoom");
        EXPECT_EQ(list->selectionModel()->selectedRows().size(), 1);
        EXPECT_TRUE(picker.findChild<QPushButton*>("cmdCancel")->isVisible());
        nothingIsClipped(picker);
        picture(picker, "picker");
        inside("frmProperty", [](QDialog& dialog) { dialog.reject(); });
        QTest::mouseClick(picker.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    program.handlers().run("New");
    EXPECT_EQ(played, 2);
    EXPECT_EQ(listKeys().size(), 3);
}

TEST_F(NightPlant, TheNoticeOfAlarmsTellsWhatCameInAndOpensTheEvents)
{
    start();
    program.events().Add_Event_Db(events::kWarning, QDateTime(QDate(2026, 3, 14), QTime(3, 10)),
                                  events::kAlarms, "NORTH", "UNIT 2", "High temperature");
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    bool events = false;
    inside("frmMessage", [&](QDialog& notice) {
        EXPECT_EQ(notice.findChild<QLabel*>("lblCalls")->text(),
                  QStringLiteral("14/03/2026 03:10  NORTH \u203a UNIT 2 \u203a High temperature"));
        EXPECT_EQ(notice.findChild<QLabel*>("lblMsg")->text(), texts(582));
        nothingIsClipped(notice);
        picture(notice, "alarm-notice");
        inside("frmEventViewer", [&](QDialog&) { events = true; });
        QTest::mouseClick(notice.findChild<QPushButton*>("cmdEvents"), Qt::LeftButton);
    });
    program.handlers().run("Allarms");
    EXPECT_TRUE(QTest::qWaitFor([&] { return events; }));
    EXPECT_EQ(program.panels().picture(bus::Panel::Allarm), bus::images::kRest) << "seen";
}

TEST_F(NightPlant, WithoutTheRightTheNoticeOffersNoEvents)
{
    setRight("EventViewer", "0");
    start();
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    inside("frmMessage",
           [&](QDialog& notice) { EXPECT_FALSE(notice.findChild<QPushButton*>("cmdEvents")->isVisible()); });
    program.handlers().run("Allarms");
    EXPECT_EQ(played, 1);
}

// In the three languages, for the eye.
TEST_F(NightPlant, LooksInEveryLanguage)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        clickNode("1_1");
        picture(*window(), "main");
        program.handlers().run("Pending");
        QTest::qWait(50);
        nothingIsClipped(*desktop.form("frmPending"));
        picture(*desktop.form("frmPending"), "pending");
        desktop.unloadForm("frmPending");
        inside("frmZoom", [&](QDialog& picker) {
            nothingIsClipped(picker);
            picture(picker, "picker");
        });
        program.handlers().run("New");
        clickNode("2_1_2");
        inside("frmProperty", [&](QDialog& dialog) {
            nothingIsClipped(dialog);
            picture(dialog, "property-instrument");
        });
        program.handlers().run("PropertyNode");
        inside("frmReadWrite", [&](QDialog& console) {
            nothingIsClipped(console);
            picture(console, "console");
            console.close();
        });
        program.handlers().run("ReadWriteNode");
    }
}

} // namespace
