// Backup, restore and upgrade by menu and window.
#include "gui/GuiFixture.h"

#include "database/widgets/CopyAnimation.h"

#include <QFile>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>

namespace {

class SafekeepingWindows : public gui::GuiFixture
{
protected:
    SafekeepingWindows()
    {
        session.DirBackup = file("Backup");
        QDir().mkpath(session.DirBackup);
        QDir().mkpath(file("Data/Safety"));
    }

    void choose(const QString& name)
    {
        QAction* action = entry("frmListBus", name);
        ASSERT_TRUE(action) << qPrintable(name);
        ASSERT_TRUE(action->isEnabled()) << qPrintable(name);
        action->trigger();
    }
    static QString textOf(QDialog& dialog, const char* label)
    {
        return dialog.findChild<QLabel*>(label)->text();
    }
};

TEST_F(SafekeepingWindows, ABackupKeepsTheOperator)
{
    start();
    clickNode("2_1_1");
    desktop.script.chooseFile(file("Backup/Plant.bak"));
    desktop.script.expect("Copy of backup completed successfully.");
    choose("mnuBackupDb");
    EXPECT_TRUE(QFile::exists(file("Backup/Plant.bak")));
    EXPECT_EQ(plant().selectedNode(), "Root");
    EXPECT_TRUE(button("Refresh")->isEnabled());
    EXPECT_FALSE(button("New")->isEnabled()) << "no tree selection";
    EXPECT_FALSE(entry("frmListBus", "mnuNew")->isEnabled());
    EXPECT_TRUE(window()->windowTitle().endsWith(" - User: " + session.CurrentUser.Name))
        << qPrintable(window()->windowTitle());
}

TEST_F(SafekeepingWindows, ARestoreNeedsNoCompany)
{
    QFile::copy(plantFile(), file("Backup/Plant.bak"));
    start({});
    EXPECT_FALSE(entry("frmListBus", "mnuBackupDb")->isEnabled());
    desktop.script.chooseFile(file("Backup/Plant.bak"));
    desktop.script.chooseFile(file("Data/Again.mdb"));
    desktop.script.expect("Restoring completed successfully.");
    choose("mnuRestoreDb");
    EXPECT_EQ(session.DbName, "Again.mdb");
    EXPECT_TRUE(tvwBus()->isEnabled());
}

TEST_F(SafekeepingWindows, AFailedConnectBehindABackupLeavesTheMenusOfNoCompany)
{
    start();
    QObject::connect(&program.database(), &database::Database::captionChanged,
                     [this](const QString& caption) {
                         if (caption == "Calidora")
                             QFile::rename(plantFile(), file("Data/Moved.mdb"));
                     });
    desktop.script.chooseFile(file("Backup/Plant.bak"));
    choose("mnuBackupDb");
    EXPECT_EQ(failures.take().size(), 2u) << "the copy and the connect";
    EXPECT_FALSE(button("Refresh")->isEnabled());
    EXPECT_TRUE(entry("frmListBus", "mnuRestoreDb")->isEnabled());
}

TEST_F(SafekeepingWindows, AnUpgradeShowsItsSteps)
{
    start();
    QStringList seen;
    QList<int> steps;
    inside("frmUpgrade", [&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Aggiornamento Database");
        auto* animation = dialog.findChild<database::CopyAnimation*>("anmUpgrade");
        auto* prgUpgrade = dialog.findChild<QProgressBar*>("prgUpgrade");
        auto* cmdUpgrade = dialog.findChild<QPushButton*>("cmdUpgrade");
        EXPECT_EQ(cmdUpgrade->text(), "Upgrade");
        EXPECT_EQ(cmdUpgrade->toolTip(), "Upgrading start.");
        EXPECT_EQ(dialog.findChild<QPushButton*>("cmdCancel")->text(), "Cancel");
        EXPECT_EQ(dialog.findChild<QPushButton*>("cmdCancel")->toolTip(),
                  "Cancel the operation and close the template.");
        EXPECT_FALSE(animation->isRunning());
        QObject::connect(prgUpgrade, &QProgressBar::valueChanged, [&](int value) {
            steps << value;
            seen << textOf(dialog, "lblOperation");
            EXPECT_TRUE(animation->isRunning());
            EXPECT_FALSE(cmdUpgrade->isEnabled()) << "what is clicked now must not begin it again";
            if (value == 80) {
                picture(dialog, "frmUpgrade-running");
                EXPECT_EQ(textOf(dialog, "lblTable"), "");
                dialog.reject();
                EXPECT_TRUE(dialog.isVisible()) << "it can't be left half way";
            }
        });
        desktop.script.expect("Updating completed successfully.");
        QTest::mouseClick(cmdUpgrade, Qt::LeftButton);
        EXPECT_FALSE(animation->isRunning());
        EXPECT_FALSE(dialog.isVisible());
    });
    choose("mnuUpgradeDb");
    EXPECT_EQ(played, 1);
    EXPECT_EQ(steps, (QList<int>{20, 40, 60, 80, 100}));
    EXPECT_EQ(seen, (QStringList{"COPY OF DATABASE MODEL", "UPGRADE TABLES", "BACKUP OF Plant.mdb",
                                 "RENAME UPGRADED DATABASE", "DELETE COPY OF BACKUP"}));
    EXPECT_TRUE(window()->windowTitle().endsWith(session.CurrentUser.Name));
    EXPECT_FALSE(button("New")->isEnabled());
}

TEST_F(SafekeepingWindows, AnUpgradeIsCancelledByButtonAndByEscape)
{
    start();
    for (const int way : {0, 1}) {
        inside("frmUpgrade", [&](QDialog& dialog) {
            if (way == 0)
                QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
            else
                QTest::keyClick(&dialog, Qt::Key_Escape);
            EXPECT_FALSE(dialog.isVisible());
        });
        choose("mnuUpgradeDb");
    }
    EXPECT_EQ(played, 2);
    EXPECT_EQ(plant().tree().captionOf("1_1"), "GRP1");
}

TEST_F(SafekeepingWindows, TheUpgradesWindowSpeaksEveryLanguage)
{
    start();
    for (const char* language : {"EN_English_2000", "IT_Italiano_1000", "RU_Русский_6000"}) {
        setLanguage(language);
        inside("frmUpgrade", [&](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\Aggiornamento Database");
            EXPECT_EQ(dialog.findChild<QPushButton*>("cmdUpgrade")->text(), texts(192));
            EXPECT_EQ(dialog.findChild<QPushButton*>("cmdCancel")->text(), texts(194));
            nothingIsClipped(dialog);
            picture(dialog, "frmUpgrade");
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        choose("mnuUpgradeDb");
    }
    EXPECT_EQ(played, 3);
}

TEST_F(SafekeepingWindows, ACopyOfALargeCompanyShowsHowFarItIs)
{
    runOnPlant("CREATE TABLE tbFiller (a); INSERT INTO tbFiller VALUES (zeroblob(9000000));");
    start();
    int shown = 0;
    QObject::connect(&program.database(), &database::Database::captionChanged, [&](const QString& caption) {
        if (caption != "Calidora")
            return;
        auto* watch = new QTimer(window());
        QObject::connect(watch, &QTimer::timeout, [&, watch] {
            if (auto* form = desktop.form("frmCopy")) {
                watch->stop();
                auto* prgCopy = form->findChild<QProgressBar*>("prgCopy");
                QObject::connect(prgCopy, &QProgressBar::valueChanged, [&, form](int value) {
                    shown = value;
                    if (value / 10 == 5)
                        picture(*form, "frmCopy");
                });
            }
        });
        watch->start(0);
    });
    desktop.script.chooseFile(file("Backup/Plant.bak"));
    desktop.script.expect("Copy of backup completed successfully.");
    choose("mnuBackupDb");
    EXPECT_EQ(shown, 100);
    EXPECT_FALSE(desktop.form("frmCopy"));
}

TEST_F(SafekeepingWindows, AConnectMakesTheDailySafetyCopy)
{
    start();
    clock.run(60000);
    EXPECT_EQ(QDir(file("Data/Safety")).entryList({"Plant_*.bak"}, QDir::Files).size(), 1);
}

} // namespace
