// Every window stands on its screen, whatever the scale and whatever it remembers. Gui.inside runs it on a
// screen of 1280 x 1024 points at scales up to 2.
#include "gui/GuiFixture.h"

#include <QPushButton>
#include <QScreen>
#include <QStatusBar>

namespace {

// A window and what calls it up.
struct Way
{
    const char* form;
    const char* command; // nullptr: the window is asked for by name
    bool modal;
    bool resizable;
};
constexpr Way kWays[] = {{"frmReadWrite", "ReadWriteNode", true, true},
                         {"frmFind", "Find", false, true},
                         {"frmPending", "Pending", false, true},
                         {"frmManual", "Manual", false, true},
                         {"frmTrace", "LineTrace", false, true},
                         {"frmHistory", "HistoryNode", false, true},
                         {"frmCompare", "CompareNode", false, true},
                         {"frmEventViewer", "EventViewer", true, true},
                         {"frmZoom", "New", true, true},
                         {"frmProperty", "PropertyNode", true, false},
                         {"frmSettings", "Settings", true, false},
                         {"frmInfo", "About", true, false},
                         {"frmSystemInfo", nullptr, true, false},
                         {"frmLogInOut", nullptr, true, false},
                         {"frmLanguage", nullptr, true, false},
                         {"frmMessage", nullptr, true, false},
                         {"frmUpgrade", nullptr, true, false},
                         {"frmZoomDate", nullptr, true, false},
                         {"frmEventFilter", nullptr, true, false}};

class Inside : public gui::GuiFixture
{
protected:
    void SetUp() override
    {
        start();
        clickNode("1_1");
    }
    static QRect roomOf(const QWidget& window) { return window.screen()->availableGeometry(); }
    static bool isInside(const QWidget& window)
    {
        return QTest::qWaitFor([&] { return roomOf(window).contains(window.frameGeometry()); }, 2000);
    }
    static std::string placeOfWindow(const QWidget& window)
    {
        const QRect at = window.frameGeometry();
        return window.objectName().toStdString() + QStringLiteral(": %1 x %2 at %3,%4")
                                                       .arg(at.width())
                                                       .arg(at.height())
                                                       .arg(at.x())
                                                       .arg(at.y())
                                                       .toStdString();
    }
    void visit(const Way& way, const std::function<void(QDialog&)>& work)
    {
        const int before = played;
        if (way.modal) {
            inside(way.form, work);
            if (way.command)
                program.handlers().run(way.command);
            else
                desktop.platform::DesktopOperator::showFormModal(way.form);
            EXPECT_EQ(played, before + 1) << way.form;
        } else {
            program.handlers().run(way.command);
            auto* dialog = qobject_cast<QDialog*>(desktop.form(way.form));
            ASSERT_TRUE(dialog) << way.form;
            EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog)) << way.form;
            work(*dialog);
            desktop.unloadForm(way.form);
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
};

TEST_F(Inside, TheMainWindowWithItsStatusBarAndItsBell)
{
    program.panels().setPicture(bus::Panel::Allarm, bus::images::kAlarm);
    program.panels().setText(bus::Panel::Info, texts(582));
    QApplication::processEvents();
    EXPECT_TRUE(isInside(*window())) << placeOfWindow(*window());
    const QRect room = roomOf(*window());
    for (const char* name : {"staMain", "Allarm", "tlbMain", "lvwBus"}) {
        const auto* part = control<QWidget>(name);
        ASSERT_TRUE(part) << name;
        EXPECT_TRUE(part->isVisible()) << name;
        EXPECT_TRUE(room.contains(QRect(part->mapToGlobal(QPoint()), part->size()))) << name;
    }
    picture(*window(), "inside-main");
}

TEST_F(Inside, EveryWindowAtItsFirstOpening)
{
    for (const Way& way : kWays) {
        visit(way, [&](QDialog& dialog) {
            EXPECT_TRUE(isInside(dialog)) << placeOfWindow(dialog);
            picture(dialog, QStringLiteral("inside-") + way.form);
        });
    }
}

// Remembered from a larger screen, or drawn beyond the edge of this one.
TEST_F(Inside, EveryWindowThatWasLeftOutsideComesBackInside)
{
    for (const Way& way : kWays) {
        visit(way, [&](QDialog& dialog) {
            const QRect room = roomOf(dialog);
            if (way.resizable)
                dialog.resize(room.width() + 300, room.height() + 200);
            dialog.move(room.right() - 40, room.bottom() - 30);
            QApplication::processEvents();
        });
        visit(way, [&](QDialog& dialog) { EXPECT_TRUE(isInside(dialog)) << placeOfWindow(dialog); });
    }
}

TEST_F(Inside, EveryWindowKeepsItsSizeAndItsPlace)
{
    for (const Way& way : kWays) {
        if (!way.resizable)
            continue;
        QRect left;
        visit(way, [&](QDialog& dialog) {
            const QRect room = roomOf(dialog);
            const QSize less = dialog.minimumSizeHint().expandedTo(dialog.size() - QSize(37, 23));
            dialog.resize(less.boundedTo(room.size() - QSize(80, 90)));
            dialog.move(room.topLeft() + QPoint(31, 29));
            // A window manager takes its time.
            QRect last;
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return std::exchange(last, dialog.geometry()) == dialog.geometry(); }));
            QTest::qWait(50);
            left = dialog.geometry();
        });
        visit(way, [&](QDialog& dialog) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.geometry() == left; }, 2000))
                << placeOfWindow(dialog) << " inside its frame it was " << left.width() << " x "
                << left.height() << " at " << left.x() << "," << left.y();
        });
    }
}

// However little room there is: what was found is to be seen beside the window that found it.
TEST_F(Inside, TheSearchNeverCoversWhatItFound)
{
    entry("frmListBus", "mnuReportIcons")->trigger();
    program.handlers().run("Find");
    auto* find = qobject_cast<QDialog*>(desktop.form("frmFind"));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(find));
    auto* found = find->findChild<QTreeView*>("lvwFound");
    type(find->findChild<QLineEdit*>("txtFind"), "en");
    ASSERT_TRUE(QTest::qWaitFor([&] { return found->model()->rowCount() > 1; }));
    const QRect room = roomOf(*find);
    for (const QSize& size : {QSize(500, 300), QSize(room.width() - 60, room.height() - 80)}) {
        find->resize(size);
        find->move(room.topLeft() + QPoint(10, 10));
        QTest::qWait(50);
        found->setCurrentIndex(found->model()->index(1, 0));
        find->findChild<QPushButton*>("cmdShow")->click();
        const auto* view = shownList();
        ASSERT_TRUE(view->currentIndex().isValid());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const QRect row = view->visualRect(view->currentIndex()) & view->viewport()->rect();
                return !find->frameGeometry().intersects(
                           QRect(view->viewport()->mapToGlobal(row.topLeft()), row.size())) &&
                       room.contains(find->frameGeometry());
            },
            2000))
            << placeOfWindow(*find);
    }
    EXPECT_TRUE(found->isVisible());
}

TEST_F(Inside, TheMainWindowDrawnTooLargeComesBackInside)
{
    const QRect room = roomOf(*window());
    window()->setGeometry(room.right() - 100, room.bottom() - 100, room.width() + 500, room.height() + 400);
    QApplication::processEvents();
    window()->hide();
    window()->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window()));
    EXPECT_TRUE(isInside(*window())) << placeOfWindow(*window());
    const auto* bell = control<QWidget>("Allarm");
    EXPECT_TRUE(roomOf(*window()).contains(QRect(bell->mapToGlobal(QPoint()), bell->size())));
}

} // namespace
