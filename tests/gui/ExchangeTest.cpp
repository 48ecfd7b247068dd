#include "gui/GuiFixture.h"

#include <QCloseEvent>
#include <QFile>

namespace {

class Exchange : public gui::GuiFixture
{
protected:
    // Somebody who may do everything is at work.
    void begin()
    {
        start();
        clickNode("1_1");
    }
    static qint64 sizeOf(const QString& path) { return QFile(path).size(); }
};

TEST_F(Exchange, BothMenuBarsExportImportAndPrint)
{
    begin();
    for (const char* form : {"frmTreeBus", "frmListBus"}) {
        const QString path = file(QString("Data/%1.dat").arg(form));
        desktop.script.chooseFile(path, 3);
        desktop.script.expect("Operation completed successfully.");
        entry(form, "mnuExport")->trigger();
        EXPECT_EQ(sizeOf(path) % 411, 0);
        EXPECT_GT(sizeOf(path), 0);

        desktop.script.chooseFile(path);
        desktop.script.expect("Operation completed successfully.");
        entry(form, "mnuImport")->trigger();

        inside("frmPrinters", [](QDialog& window) {
            QTest::mouseClick(window.findChild<QAbstractButton*>("cmdPrint"), Qt::LeftButton);
        });
        entry(form, "mnuPrint")->trigger();
    }
    EXPECT_TRUE(plant().tree().contains("1_4"));
    EXPECT_TRUE(plant().tree().contains("2_5_2"));
    ASSERT_EQ(printers.jobs.size(), 2u);
    EXPECT_EQ(printers.jobs[0].pages, printers.jobs[1].pages);
    EXPECT_FALSE(window()->findChild<QWidget*>("prgUpdate")->isVisible());
}

TEST_F(Exchange, CtrlPPrints)
{
    begin();
    inside("frmPrinters", [](QDialog&) {});
    QTest::keyClick(window(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(played, 1);
}

TEST_F(Exchange, TheImportIsShutWithoutItsRight)
{
    begin();
    setRight("Modify", "0");
    clickNode("Root");
    clickItem("1_1");
    EXPECT_FALSE(entry("frmTreeBus", "mnuImport")->isEnabled());
    EXPECT_FALSE(entry("frmListBus", "mnuImport")->isEnabled());
    EXPECT_TRUE(entry("frmTreeBus", "mnuExport")->isEnabled());
    EXPECT_TRUE(entry("frmListBus", "mnuPrint")->isEnabled());
}

TEST_F(Exchange, TheBarShowsWhileAFileIsWritten)
{
    begin();
    auto* bar = window()->findChild<QWidget*>("prgUpdate");
    bool shown = false;
    QObject::connect(&plant(), &structure::Structure::updateProgress,
                     [&](int) { shown = shown || bar->isVisible(); });
    desktop.script.chooseFile(file("Data/a.txt"));
    desktop.script.expect("Operation completed successfully.");
    entry("frmTreeBus", "mnuExport")->trigger();
    EXPECT_TRUE(shown);
    EXPECT_FALSE(bar->isVisible());
}

// A key that comes while the job runs, sent as the window system sends it.
TEST_F(Exchange, EscapeBreaksAnExportOff)
{
    begin();
    QMetaObject::invokeMethod(
        window(), [this] { QTest::keyClick(window(), Qt::Key_Escape); }, Qt::QueuedConnection);
    desktop.script.chooseFile(file("Data/a.txt"));
    desktop.script.expect("Current operation has been cancelled.");
    entry("frmTreeBus", "mnuExport")->trigger();
    EXPECT_FALSE(QFile::exists(file("Data/a.txt")));
}

TEST_F(Exchange, EscapeIsTakenOnceAndOtherKeysAreNotIt)
{
    begin();
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QMetaObject::invokeMethod(
            window(), [this, key, modifiers] { QTest::keyClick(window(), key, modifiers); },
            Qt::QueuedConnection);
    };
    EXPECT_FALSE(desktop.escapePressed());
    press(Qt::Key_A);
    EXPECT_FALSE(desktop.escapePressed());
    press(Qt::Key_A);
    press(Qt::Key_Escape);
    press(Qt::Key_B);
    EXPECT_TRUE(desktop.escapePressed());
    EXPECT_FALSE(desktop.escapePressed());
}

TEST_F(Exchange, WhatTheOperatorDoesDuringAJobIsDropped)
{
    begin();
    const QString selected = plant().selectedNode();
    QMetaObject::invokeMethod(
        window(),
        [this] {
            clickNode("1_2");
            QTest::keyClick(tvwBus(), Qt::Key_Down);
            QTest::keyClick(window(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier); // the search
            QCoreApplication::postEvent(window(), new QCloseEvent);
        },
        Qt::QueuedConnection);
    EXPECT_FALSE(desktop.escapePressed());
    EXPECT_FALSE(desktop.escapePressed());
    EXPECT_EQ(plant().selectedNode(), selected);
    EXPECT_TRUE(window()->isVisible());
    EXPECT_FALSE(desktop.form("frmFind"));
}

TEST_F(Exchange, TimersWaitUntilTheJobHasEnded)
{
    begin();
    bool ticked = false;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, [&] { ticked = true; });
    timer.start(0);
    EXPECT_FALSE(desktop.escapePressed());
    EXPECT_FALSE(ticked);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticked; }));
}

} // namespace
