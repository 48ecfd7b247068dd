#include "gui/GuiFixture.h"

#include "../events/LogText.h"
#include "events/EventViewer.h"
#include "events/widgets/EventView.h"
#include "events/widgets/TimelineStrip.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDateEdit>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimeEdit>
#include <QToolBar>
#include <cmath>

using events::EventView;
using events::TimelineStrip;

namespace {

class EventViewerWindow : public gui::GuiFixture
{
protected:
    EventViewerWindow()
    {
        QDir(session.AppPath).mkpath("Log");
        write("Calidora_20260315000000.log",
              logs::line("1", "14/03/2026 10:20:30", "2", "GRP1", "INST11", "Connected.") + '\n' +
                  logs::line("2", "15/03/2026 11:20:30", "1", "ALPHA", "inst21", "door") + '\n' +
                  logs::line("3", "20/03/2026 12:20:30", "1", "GRP1", "", "fire") + '\n' +
                  logs::line("1", "20/03/2026 12:20:31", "2", "GONE", "GONE", "Disconnected.") + '\n');
    }
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(session.appFile("Log/" + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    // Opens the viewer as the operator does and plays in it.
    void view(const std::function<void(QDialog&)>& work)
    {
        inside("frmEventViewer", [&](QDialog& dialog) {
            viewer_ = &dialog;
            work(dialog);
        });
        button("EventViewer")->trigger();
        EXPECT_FALSE(desktop.form("frmEventViewer"));
    }
    // Plays in a window that opens over the viewer; what opens it comes after.
    void over(const QString& form, const std::function<void(QDialog&)>& work) { inside(form, work); }

    template <class Part>
    Part* part(const QString& name) const
    {
        return viewer_->findChild<Part*>(name);
    }
    EventView* list() const { return part<EventView>("lvwItems"); }
    TimelineStrip* strip() const { return part<TimelineStrip>("timeline"); }
    QString panel(const QString& name) const { return part<QLabel>(name)->text(); }
    QAction* action(const QString& name) const { return part<QAction>(name); }
    QAction* toolbarButton(const QString& key) const
    {
        return part<QWidget>("tlbMain")->findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
    }
    QStringList descriptions() const
    {
        QStringList texts;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            texts << list()->model()->index(row, 5).data().toString();
        return texts;
    }
    QPoint cell(int row, int column) const
    {
        return list()->visualRect(list()->model()->index(row, column)).center();
    }
    void click(int row, int column, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, keys, cell(row, column));
    }
    void clickHeader(int column)
    {
        QHeaderView* header = list()->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 20, header->height() / 2});
    }

    QDialog* viewer_ = nullptr;
};

TEST_F(EventViewerWindow, ShowsEveryEventWithItsPictureAndTheTotal)
{
    start();
    view([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Event Viewer");
        EXPECT_EQ(descriptions(), (QStringList{"Connected.", "door", "fire", "Disconnected."}));
        EXPECT_EQ(list()->model()->index(0, 1).data(), "2026/03/14 10:20:30");
        EXPECT_EQ(panel("Info"), "Total events: 4");
        EXPECT_EQ(panel("Narrowed"), "");
        EXPECT_FALSE(part<QProgressBar>("prgLoad")->isVisible());
        EXPECT_TRUE(action("mnuAllEvents")->isChecked());
        EXPECT_FALSE(action("mnuFilterEvents")->isChecked());
        EXPECT_TRUE(list()->hasFocus());
        EXPECT_EQ(list()->currentIndex().row(), 0);
        // One sixth of the list each.
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(list()->columnWidth(column), list()->width() / 6);
        QStringList headings;
        for (int column = 0; column < 6; ++column)
            headings << list()->model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_EQ(headings,
                  (QStringList{"Type", "Date", "Source", "Equipment", "Instrument", "Description"}));
    });
}

TEST_F(EventViewerWindow, NeedsItsRight)
{
    start();
    setRight("EventViewer", "0");
    program.commands().EnableDisable_TlbMainButtons(0);
    program.commands().EnableDisable_MainMenu(0);
    EXPECT_FALSE(button("EventViewer")->isEnabled());
    EXPECT_FALSE(entry("frmListBus", "mnuEventViewer")->isEnabled());
    program.handlers().run("EventViewer"); // whoever calls it
    EXPECT_FALSE(desktop.form("frmEventViewer"));
    EXPECT_EQ(played, 0);
}

TEST_F(EventViewerWindow, RefreshReadsTheFilesAgainByMenuKeyAndButton)
{
    start();
    view([&](QDialog& dialog) {
        write("Calidora_20260401000000.log", logs::event("new"));
        QTest::keyClick(&dialog, Qt::Key_F5);
        EXPECT_EQ(descriptions().size(), 5);
        write("Calidora_20260402000000.log", logs::event("newer"));
        toolbarButton("Refresh")->trigger();
        EXPECT_EQ(descriptions().last(), "newer");
        ASSERT_TRUE(QFile::remove(session.appFile("Log/Calidora_20260402000000.log")));
        action("mnuRefresh")->trigger();
        EXPECT_EQ(panel("Info"), "Total events: 5");
    });
}

TEST_F(EventViewerWindow, AHeaderClickSortsAndASecondTurnsIt)
{
    start();
    view([&](QDialog&) {
        click(2, 5); // fire
        clickHeader(5);
        EXPECT_EQ(descriptions(), (QStringList{"Connected.", "Disconnected.", "door", "fire"}));
        EXPECT_EQ(list()->currentIndex().row(), 3);
        picture(*viewer_, "viewer-sorted");
        clickHeader(5);
        EXPECT_EQ(descriptions(), (QStringList{"fire", "door", "Disconnected.", "Connected."}));
        EXPECT_EQ(list()->selectedRows(), (std::vector<int>{0}));
        clickHeader(0);
        EXPECT_EQ(list()->model()->index(0, 0).data(), "Error");
    });
}

TEST_F(EventViewerWindow, ALongListGoesOnWhileItIsSorted)
{
    write("Calidora_20260316000000.log", logs::event("a").repeated(100000));
    start();
    view([&](QDialog&) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel("Info") == "Total events: 100,004"; }, 60000));
        click(0, 5);
        clickHeader(5);
        EXPECT_EQ(panel("Narrowed"), "Sorting...");
        EXPECT_EQ(list()->currentIndex().row(), 0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel("Narrowed").isEmpty(); }, 60000));
        EXPECT_EQ(list()->model()->index(0, 5).data(), "a");
        EXPECT_EQ(list()->currentIndex().row(), 100000);
        EXPECT_EQ(list()->currentIndex().siblingAtColumn(5).data(), "Connected.");
        EXPECT_TRUE(list()->viewport()->rect().intersects(list()->visualRect(list()->currentIndex())));
    });
}

TEST_F(EventViewerWindow, ChecksByMouseKeyAndMenu)
{
    start();
    view([&](QDialog&) {
        const auto checked = [&](int row) {
            return list()->model()->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked;
        };
        const QRect first = list()->visualRect(list()->model()->index(0, 0));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, {first.left() + 10, first.center().y()});
        EXPECT_TRUE(checked(0));
        click(1, 5);
        click(2, 5, Qt::ShiftModifier);
        QTest::keyClick(list(), Qt::Key_Space);
        EXPECT_TRUE(checked(1) && checked(2));
        EXPECT_FALSE(checked(3));
        QTest::keyClick(list(), Qt::Key_Space);
        EXPECT_FALSE(checked(1) || checked(2));
        toolbarButton("Check")->trigger();
        EXPECT_TRUE(checked(1) && checked(3));
        toolbarButton("Uncheck")->trigger();
        EXPECT_FALSE(checked(0) || checked(3));
        action("mnuCheck")->trigger();
        EXPECT_TRUE(checked(0));
        action("mnuUncheck")->trigger();
        EXPECT_FALSE(checked(0));
    });
}

TEST_F(EventViewerWindow, CopiesTheSelectedRows)
{
    start();
    view([&](QDialog&) {
        clickHeader(5);
        click(3, 2);
        click(0, 2, Qt::ControlModifier);
        QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(),
                  "Information\t2026/03/14 10:20:30\tREAD/WRITE\tGRP1\tINST11\tConnected.\n"
                  "Error\t2026/03/20 12:20:30\tALLARMS\tGRP1\t\tfire");
        QApplication::clipboard()->setText("kept");
        list()->clearSelection();
        action("mnuCopy")->trigger();
        EXPECT_EQ(QApplication::clipboard()->text(), "kept");
    });
}

TEST_F(EventViewerWindow, NarrowsAsOneTypesAndEscapeShowsAllAgain)
{
    start();
    view([&](QDialog& dialog) {
        auto* field = part<QLineEdit>("txtNarrow");
        click(2, 5);
        QTest::keyClick(&dialog, Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(field->hasFocus());
        QTest::keyClicks(field, "grp");
        EXPECT_TRUE(QTest::qWaitFor([&] { return descriptions().size() == 2; }));
        EXPECT_EQ(panel("Narrowed"), "Shown: 2");
        EXPECT_EQ(panel("Info"), "Total events: 4");
        EXPECT_EQ(list()->currentIndex().row(), 1); // still the same event
        QTest::keyClicks(field, "x");
        QTest::keyClick(field, Qt::Key_Return); // doesn't wait
        EXPECT_EQ(descriptions(), QStringList());
        EXPECT_TRUE(part<QLabel>("lblEmpty")->isVisible());
        EXPECT_EQ(part<QLabel>("lblEmpty")->textFormat(), Qt::PlainText);
        EXPECT_EQ(part<QLabel>("lblEmpty")->text(), texts.own("filter.nothing"));
        EXPECT_TRUE(list()->hasFocus());
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_EQ(descriptions().size(), 4);
        EXPECT_FALSE(part<QLabel>("lblEmpty")->isVisible());
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    // The next time all is shown.
    view([&](QDialog&) { EXPECT_EQ(descriptions().size(), 4); });
}

TEST_F(EventViewerWindow, DraggingOverTheTimelineNarrowsAndAClickOutsideLetsGo)
{
    start();
    view([&](QDialog&) {
        const qint64 day = QDate(2026, 3, 14).toJulianDay();
        ASSERT_EQ(strip()->timeline().first(), day);
        picture(*viewer_, "viewer");
        const auto at = [&](qint64 unit) { return strip()->place(unit).center(); };
        QTest::mousePress(strip(), Qt::LeftButton, {}, at(day + 1));
        QTest::mouseMove(strip(), at(day));
        QTest::mouseRelease(strip(), Qt::LeftButton, {}, at(day));
        EXPECT_EQ(descriptions(), (QStringList{"Connected.", "door"}));
        EXPECT_EQ(panel("Narrowed"), "Shown: 2");
        picture(*viewer_, "viewer-span");
        QTest::mouseClick(strip(), Qt::LeftButton, {}, at(day)); // inside: it stays
        EXPECT_EQ(descriptions().size(), 2);
        QTest::mouseClick(strip(), Qt::LeftButton, {}, at(day + 5));
        EXPECT_EQ(descriptions().size(), 4);
        QTest::mouseClick(strip(), Qt::LeftButton, {}, at(day + 6)); // one bar alone
        EXPECT_EQ(descriptions(), (QStringList{"fire", "Disconnected."}));
        QTest::mousePress(strip(), Qt::RightButton, {}, at(day));
        QTest::mouseRelease(strip(), Qt::RightButton, {}, at(day));
        EXPECT_EQ(descriptions().size(), 2);
    });
}

TEST_F(EventViewerWindow, TheTimelineGoesByKeysAndTellsItself)
{
    start();
    view([&](QDialog& dialog) {
        strip()->setFocus();
        EXPECT_EQ(strip()->accessibleName(), texts.own("timeline.name"));
        QTest::keyClick(strip(), Qt::Key_Home);
        EXPECT_TRUE(
            strip()->accessibleDescription().startsWith("2026/03/14: information 1, warnings 0, errors 0."));
        QTest::keyClick(strip(), Qt::Key_Left); // nothing lies before it
        QTest::keyClick(strip(), Qt::Key_Right);
        EXPECT_TRUE(
            strip()->accessibleDescription().startsWith("2026/03/15: information 0, warnings 1, errors 0."));
        QTest::keyClick(strip(), Qt::Key_Return);
        EXPECT_EQ(descriptions(), QStringList{"door"});
        QTest::keyClick(strip(), Qt::Key_Escape);
        EXPECT_EQ(descriptions().size(), 4);
        QTest::keyClick(strip(), Qt::Key_End, Qt::ShiftModifier);
        EXPECT_TRUE(strip()->accessibleDescription().startsWith(
            "2026/03/15 to 2026/03/20: information 1, warnings 1, errors 1."));
        picture(dialog, "viewer-keys");
        QTest::keyClick(strip(), Qt::Key_Space);
        EXPECT_EQ(descriptions(), (QStringList{"door", "fire", "Disconnected."}));
        QTest::keyClick(strip(), Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(strip(), Qt::Key_Escape); // the window's, now
        EXPECT_FALSE(dialog.isVisible());
    });
}

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST_F(EventViewerWindow, TheTimelineIsReadableOnALightAndOnADarkGround)
{
    start();
    view([&](QDialog& dialog) {
        for (const char* name : {"#FFFFFF", "#1E1E1E"}) {
            const QColor ground(name);
            QPalette palette = dialog.palette();
            palette.setColor(QPalette::Base, ground);
            strip()->setPalette(palette);
            picture(*strip(), QString("viewer-strip-") + (name + 1));
            const QImage image = strip()->grab().toImage();
            const qint64 day = strip()->timeline().first();
            const auto colour = [&](qint64 unit, int above) {
                const QRect place = strip()->place(unit);
                return image.pixelColor(place.center().x(), place.bottom() - above);
            };
            const QColor info = colour(day, 3), warning = colour(day + 1, 3), error = colour(day + 6, 30);
            for (const QColor& bar : {info, warning, error})
                EXPECT_GE(contrast(bar, ground), 3) << bar.name().toStdString() << " on " << name;
            EXPECT_NE(info, warning);
            EXPECT_NE(warning, error);
            EXPECT_EQ(colour(day + 6, 3), info); // the information stands below
            EXPECT_EQ(colour(day + 3, 3), ground);
        }
    });
}

TEST_F(EventViewerWindow, WithoutEventsThereIsNothingToDo)
{
    ASSERT_TRUE(QFile::remove(session.appFile("Log/Calidora_20260315000000.log")));
    start();
    desktop.script.expect(texts(532));
    desktop.script.expect(texts(532));
    view([&](QDialog& dialog) {
        EXPECT_EQ(panel("Info"), "Total events: 0");
        EXPECT_EQ(part<QLabel>("lblEmpty")->text(), texts.own("viewer.empty"));
        EXPECT_FALSE(strip()->isEnabled());
        picture(dialog, "viewer-empty");
        QTest::mouseClick(strip(), Qt::LeftButton);
        clickHeader(0);
        QTest::keyClick(list(), Qt::Key_Return);
        QTest::keyClick(list(), Qt::Key_Space);
        action("mnuShow")->trigger();
        action("mnuCheck")->trigger();
        toolbarButton("Export")->trigger();
        toolbarButton("Print")->trigger();
        EXPECT_FALSE(desktop.form("frmEventText"));
    });
}

TEST_F(EventViewerWindow, EnterShowsTheWholeEventAndThePlantGoesThere)
{
    start();
    view([&](QDialog& dialog) {
        over("frmEventText", [&](QDialog& text) {
            EXPECT_EQ(text.windowTitle(), "Calidora\\Event");
            EXPECT_EQ(text.findChild<QPlainTextEdit*>("txtDescription")->toPlainText(), "Connected.");
            EXPECT_EQ(text.findChild<QLabel*>("lblType")->text(), "Information");
            EXPECT_EQ(text.findChild<QLabel*>("txtEquipment")->text(), "GRP1");
            EXPECT_EQ(text.findChild<QLabel*>("txtInstrument")->text(), "INST11");
            EXPECT_EQ(text.findChild<QLabel*>("lblPlace")->text(),
                      texts.own("event.place").arg("ZEL Bus\\GRP1\\INST11"));
            picture(text, "viewer-event");
            QTest::keyClick(&text, Qt::Key_Return);
        });
        QTest::keyClick(list(), Qt::Key_Return);
        EXPECT_EQ(plant().selectedItem(), "2_1_1");
        EXPECT_TRUE(dialog.isVisible());

        over("frmEventText", [&](QDialog& text) {
            EXPECT_EQ(text.findChild<QLabel*>("lblPlace")->text(), texts.own("event.gone"));
            EXPECT_FALSE(text.findChild<QPushButton*>("cmdShow")->isEnabled());
        });
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, cell(3, 5));
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, cell(3, 5));
        EXPECT_EQ(plant().selectedItem(), "2_1_1"); // where it stood

        over("frmEventText", [&](QDialog& text) {
            QTest::mouseClick(text.findChild<QPushButton*>("cmdShow"), Qt::LeftButton);
        });
        click(1, 5);
        action("mnuShow")->trigger();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(plant().selectedItem(), "2_2_1");
    EXPECT_EQ(played, 4);
}

TEST_F(EventViewerWindow, ColumnWidthsStayForTheSession)
{
    start();
    view([&](QDialog&) { list()->header()->resizeSection(1, 222); });
    view([&](QDialog&) {
        EXPECT_EQ(list()->columnWidth(1), 222);
        EXPECT_EQ(list()->columnWidth(2), list()->width() / 6);
    });
}

TEST_F(EventViewerWindow, ClosingInMidLoadEndsTheLoad)
{
    write("Calidora_20260316000000.log", logs::event("x").repeated(40000));
    start();
    view([&](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_F5);
        EXPECT_TRUE(part<QProgressBar>("prgLoad")->isVisible());
        EXPECT_GT(list()->model()->rowCount(), 0);
        EXPECT_FALSE(action("mnuExport")->isEnabled());
        EXPECT_FALSE(toolbarButton("Check")->isEnabled());
        EXPECT_TRUE(panel("Narrowed").startsWith("Reading..."));
        dialog.close();
    });
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(EventViewerWindow, ALongLoadEndsByItself)
{
    write("Calidora_20260316000000.log", logs::event("x").repeated(40000));
    start();
    view([&](QDialog&) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return panel("Info") == "Total events: 40,004"; }));
        EXPECT_FALSE(part<QProgressBar>("prgLoad")->isVisible());
        EXPECT_TRUE(action("mnuExport")->isEnabled());
        EXPECT_TRUE(toolbarButton("Check")->isEnabled());
        EXPECT_EQ(list()->model()->rowCount(), 40004);
        EXPECT_EQ(list()->currentIndex().row(), 0);
    });
}

TEST_F(EventViewerWindow, IconsAreLargeOrSmallAsInTheMainWindow)
{
    start();
    view([&](QDialog&) {
        action("mnuTlbSmallIcons")->trigger();
        EXPECT_EQ(part<QToolBar>("tlbMain")->iconSize(), QSize(16, 16));
        EXPECT_EQ(control<QToolBar>("tlbMain")->iconSize(), QSize(16, 16));
        action("mnuTlbLargeIcons")->trigger();
        EXPECT_EQ(part<QToolBar>("tlbMain")->iconSize(), QSize(32, 32));
        action("mnuExit")->trigger();
        EXPECT_FALSE(viewer_->isVisible());
    });
}

TEST_F(EventViewerWindow, ExportsTheCheckedRows)
{
    start();
    const QString file = session.appFile("Log/events.csv");
    view([&](QDialog&) {
        toolbarButton("Check")->trigger();
        desktop.script.chooseFile(file, 2);
        desktop.script.expect(texts(509));
        toolbarButton("Export")->trigger();
    });
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readLine(), "Type,Date,Source,Equipment,Instrument,Description\r\n");
}

TEST_F(EventViewerWindow, PrintsTheCheckedRows)
{
    start();
    view([&](QDialog& dialog) {
        action("mnuCheck")->trigger();
        over("frmPrinters", [&](QDialog& window) {
            QTest::mouseClick(window.findChild<QPushButton*>("cmdPrint"), Qt::LeftButton);
        });
        QTest::keyClick(&dialog, Qt::Key_P, Qt::ControlModifier);
    });
    ASSERT_EQ(printers.jobs.size(), 1u);
    EXPECT_EQ(printers.jobs[0].pages.size(), 1u);
}

// The filter's window
// ------------------------------------------------------------------------------------------------------------

class EventFilterWindow : public EventViewerWindow
{
protected:
    // Opens the viewer, then the filter over it, and plays in that.
    void filter(const std::function<void(QDialog&)>& work)
    {
        over("frmEventFilter", [&](QDialog& dialog) {
            filter_ = &dialog;
            work(dialog);
        });
        action("mnuFilterEvents")->trigger();
    }
    template <class Part>
    Part* field(const QString& name) const
    {
        return filter_->findChild<Part*>(name);
    }
    void press(const QString& name) { QTest::mouseClick(field<QPushButton>(name), Qt::LeftButton); }

    QDialog* filter_ = nullptr;
};

TEST_F(EventFilterWindow, BeginsWithEverything)
{
    start();
    view([&](QDialog&) {
        filter([&](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\Filter Events");
            EXPECT_TRUE(field<QCheckBox>("chkInfo")->isChecked());
            EXPECT_EQ(field<QComboBox>("cbxSource")->currentText(), "(All)");
            EXPECT_EQ(field<QComboBox>("cbxSource")->itemText(2), "READ/WRITE");
            EXPECT_EQ(field<QComboBox>("cbxFrom")->currentText(), "First event");
            EXPECT_EQ(field<QComboBox>("cbxTo")->itemText(1), "Events on");
            EXPECT_EQ(field<QDateEdit>("dtpFromDate")->text(), "14/03/2026");
            EXPECT_EQ(field<QTimeEdit>("dtpToTime")->text(), "12:20:31");
            EXPECT_FALSE(field<QDateEdit>("dtpFromDate")->isEnabled());
            EXPECT_FALSE(field<QTimeEdit>("dtpToTime")->isEnabled());
            EXPECT_FALSE(field<QPushButton>("cmdApply")->isEnabled());
            EXPECT_FALSE(field<QLabel>("lblHint")->isVisible());
            press("cmdOK");
        });
        EXPECT_TRUE(action("mnuAllEvents")->isChecked());
        EXPECT_EQ(panel("Info"), "Total events: 4");
    });
}

TEST_F(EventFilterWindow, AppliesAndStays)
{
    start();
    view([&](QDialog&) {
        filter([&](QDialog& dialog) {
            QTest::keyClick(field<QCheckBox>("chkInfo"), Qt::Key_Space);
            EXPECT_TRUE(field<QPushButton>("cmdApply")->isEnabled());
            press("cmdApply");
            EXPECT_EQ(descriptions(), (QStringList{"door", "fire"}));
            EXPECT_FALSE(field<QPushButton>("cmdApply")->isEnabled());
            EXPECT_TRUE(field<QCheckBox>("chkInfo")->hasFocus());
            EXPECT_TRUE(dialog.isVisible());
            type(field<QLineEdit>("txtEquipment"), "ALPHA");
            press("cmdCancel"); // what was applied stays
        });
        EXPECT_EQ(panel("Info"), "Filter view: 2 events on 4");
        EXPECT_TRUE(action("mnuFilterEvents")->isChecked());
        filter([&](QDialog&) {
            EXPECT_FALSE(field<QCheckBox>("chkInfo")->isChecked());
            EXPECT_EQ(field<QLineEdit>("txtEquipment")->text(), "");
            type(field<QLineEdit>("txtEquipment"), QString(60, 'x'));
            EXPECT_EQ(field<QLineEdit>("txtEquipment")->text().size(), 50);
            type(field<QLineEdit>("txtEquipment"), "ALPHA");
            type(field<QLineEdit>("txtInstrument"), "inst21");
            field<QComboBox>("cbxSource")->setCurrentIndex(1);
            picture(*filter_, "viewer-filter");
            press("cmdOK");
        });
        EXPECT_EQ(descriptions(), QStringList{"door"});
        action("mnuAllEvents")->trigger();
        EXPECT_EQ(panel("Info"), "Total events: 4");
        EXPECT_TRUE(action("mnuAllEvents")->isChecked());
    });
}

TEST_F(EventFilterWindow, ASpanThatEndsBeforeItBeginsIsTold)
{
    start();
    view([&](QDialog&) {
        filter([&](QDialog&) {
            field<QComboBox>("cbxFrom")->setCurrentIndex(1);
            EXPECT_TRUE(field<QDateEdit>("dtpFromDate")->isEnabled());
            EXPECT_FALSE(field<QDateEdit>("dtpToDate")->isEnabled());
            field<QComboBox>("cbxTo")->setCurrentIndex(1);
            field<QDateEdit>("dtpToDate")->setDate(QDate(2026, 3, 14));
            EXPECT_FALSE(field<QLabel>("lblHint")->isVisible()); // twelve comes after ten
            field<QTimeEdit>("dtpToTime")->setTime(QTime(10, 20, 29));
            EXPECT_TRUE(field<QLabel>("lblHint")->isVisible());
            EXPECT_EQ(field<QLabel>("lblHint")->text(), texts.own("viewer.filter.never"));
            picture(*filter_, "viewer-filter-never");
            press("cmdApply");
            EXPECT_EQ(panel("Info"), "Filter view: 0 events on 4");
            EXPECT_EQ(part<QLabel>("lblEmpty")->text(), texts.own("viewer.empty.filter"));
            field<QTimeEdit>("dtpToTime")->setTime(QTime(10, 20, 30));
            press("cmdApply");
            EXPECT_EQ(descriptions(), QStringList{"Connected."});
            field<QComboBox>("cbxTo")->setCurrentIndex(0);
            EXPECT_EQ(field<QDateEdit>("dtpToDate")->date(), QDate(2026, 3, 20));
            EXPECT_FALSE(field<QTimeEdit>("dtpToTime")->isEnabled());
            press("cmdReset");
            EXPECT_EQ(field<QComboBox>("cbxFrom")->currentIndex(), 0);
            press("cmdOK");
        });
        EXPECT_EQ(panel("Info"), "Total events: 4");
        EXPECT_TRUE(action("mnuAllEvents")->isChecked());
    });
}

TEST_F(EventFilterWindow, WithoutWordsItsLoadFails)
{
    start();
    view([&](QDialog&) {
        session.Language = session::LanguageSettings::fromIdentifier("FR_Francais_3000");
        filter([&](QDialog&) { failures.expectUnder("frmEventFilter.Load"); });
        session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
    });
}

TEST_F(EventFilterWindow, EveryWindowSpeaksEveryLanguageAndNothingIsClipped)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        view([&](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\" + texts(227));
            EXPECT_EQ(list()->model()->index(2, 0).data(), texts(215));
            EXPECT_EQ(panel("Info"), texts(247) + " 4");
            nothingIsClipped(dialog);
            picture(dialog, "viewer");
            filter([&](QDialog& window) {
                EXPECT_EQ(window.windowTitle(), "Calidora\\" + texts(211));
                nothingIsClipped(window);
                picture(window, "viewer-filter");
            });
            over("frmEventText", [&](QDialog& window) {
                nothingIsClipped(window);
                picture(window, "viewer-event");
            });
            QTest::keyClick(list(), Qt::Key_Return);
        });
    }
}

} // namespace
