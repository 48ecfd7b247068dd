// What the windows remember from one time to the next, in a file beside the configuration.
#include "gui/GuiFixture.h"

#include <QFile>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>

namespace {

class Habits : public gui::GuiFixture
{
protected:
    QString habitsFile() const { return file("Calidora_Windows.ini"); }
    // A window that stays beside the main one, shown by its command, and closed at the end.
    void look(const char* command, const char* form, const std::function<void(QDialog&)>& work)
    {
        program.handlers().run(command);
        auto* dialog = qobject_cast<QDialog*>(desktop.form(form));
        ASSERT_TRUE(dialog);
        QApplication::processEvents();
        work(*dialog);
        desktop.unloadForm(form);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QHeaderView* headingOf(QDialog& dialog)
    {
        return dialog.findChild<QTreeView*>("lvwPending")->header();
    }
};

TEST_F(Habits, AWindowComesBackWhereItWasWithItsColumns)
{
    start();
    look("Pending", "frmPending", [](QDialog& dialog) {
        dialog.move(37, 41);
        dialog.resize(640, 333);
        headingOf(dialog)->resizeSection(0, 177);
    });
    look("Pending", "frmPending", [](QDialog& dialog) {
        EXPECT_EQ(dialog.pos(), QPoint(37, 41));
        EXPECT_EQ(dialog.size(), QSize(640, 333));
        EXPECT_EQ(headingOf(dialog)->sectionSize(0), 177);
    });
}

TEST_F(Habits, TheLastSearchIsThereAndGivesWayToTyping)
{
    start();
    look("Find", "frmFind",
         [](QDialog& dialog) { dialog.findChild<QLineEdit*>("txtFind")->setText("vasca"); });
    look("Find", "frmFind", [](QDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>("txtFind");
        EXPECT_EQ(field->text(), "vasca");
        EXPECT_EQ(field->selectedText(), "vasca");
    });
}

TEST_F(Habits, AWindowOfFixedSizeKeepsItsPlaceAlone)
{
    start();
    QSize former;
    inside("frmSettings", [&](QDialog& dialog) {
        former = dialog.size();
        dialog.move(55, 66);
        dialog.resize(dialog.size() + QSize(50, 50));
    });
    program.handlers().run("Settings");
    inside("frmSettings", [&](QDialog& dialog) {
        EXPECT_EQ(dialog.pos(), QPoint(55, 66));
        EXPECT_EQ(dialog.size(), former);
    });
    program.handlers().run("Settings");
    EXPECT_EQ(played, 2);
}

TEST_F(Habits, APlaceOutsideOfTheScreenIsBroughtInside)
{
    start();
    inside("frmSettings", [&](QDialog& dialog) { dialog.move(100000, -5000); });
    program.handlers().run("Settings");
    inside("frmSettings", [&](QDialog& dialog) {
        const QRect room = dialog.screen()->availableGeometry();
        EXPECT_TRUE(room.contains(dialog.pos())) << dialog.x() << "," << dialog.y();
        EXPECT_LE(dialog.geometry().right(), room.right()) << dialog.x() << "," << dialog.width();
        EXPECT_LE(dialog.geometry().bottom(), room.bottom()) << dialog.y() << "," << dialog.height();
    });
    program.handlers().run("Settings");
    EXPECT_EQ(played, 2);
}

TEST_F(Habits, TheMainWindowKeepsItsSizeForEachArrangementOfScreens)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QString here = QStringLiteral("%1x%2+0+0").arg(screen.width()).arg(screen.height());
    QWidget probe;
    probe.setGeometry(20, 30, 711, 522);
    probe.show();
    {
        QSettings former(habitsFile(), QSettings::IniFormat);
        former.setValue(here + "/frmMain/place", probe.saveGeometry());
        former.setValue("1x1+0+0/frmMain/place", QByteArray("another arrangement"));
    }
    start();
    EXPECT_EQ(window()->size(), QSize(711, 522));

    window()->resize(733, 544);
    desktop.script.expect(texts(524), platform::answers::kYes);
    button("Exit")->trigger();
    QWidget after;
    after.restoreGeometry(
        QSettings(habitsFile(), QSettings::IniFormat).value(here + "/frmMain/place").toByteArray());
    EXPECT_EQ(after.size(), QSize(733, 544));
}

TEST_F(Habits, OfTheEventViewersColumnsNothingIsKept)
{
    start();
    inside("frmEventViewer",
           [](QDialog& dialog) { dialog.findChild<QTreeView*>("lvwItems")->header()->resizeSection(0, 33); });
    program.handlers().run("EventViewer");
    inside("frmEventViewer", [](QDialog& dialog) {
        EXPECT_NE(dialog.findChild<QTreeView*>("lvwItems")->header()->sectionSize(0), 33);
    });
    program.handlers().run("EventViewer");
    EXPECT_EQ(played, 2);
}

TEST_F(Habits, ADamagedFileHarmsNothing)
{
    QFile damaged(habitsFile());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("\x01[frmPending\nlvw=@ByteArray(\\x0\n[General\n");
    damaged.close();
    start();
    look("Pending", "frmPending", [](QDialog& dialog) { EXPECT_TRUE(dialog.isVisible()); });
}

TEST_F(Habits, TheConfigurationFileHoldsNothingOfThem)
{
    start();
    look("Pending", "frmPending", [](QDialog& dialog) { dialog.move(1, 2); });
    QFile configuration(file("Calidora.ini"));
    ASSERT_TRUE(configuration.open(QIODevice::ReadOnly));
    EXPECT_FALSE(configuration.readAll().contains("frmPending"));
    EXPECT_TRUE(QSettings(habitsFile(), QSettings::IniFormat).childGroups().contains("frmPending"));
}

} // namespace
