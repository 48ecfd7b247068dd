#include "gui/GuiFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QTabWidget>

namespace {

class SettingsWindow : public gui::GuiFixture
{
protected:
    void insideSettings(const std::function<void(QDialog&)>& work)
    {
        played = 0;
        inside("frmSettings", work);
        button("Settings")->trigger();
        EXPECT_EQ(played, 1);
        EXPECT_TRUE(port.PortOpen()) << "the port is open again";
    }
    static QLineEdit* field(QDialog& dialog, const char* name) { return dialog.findChild<QLineEdit*>(name); }
    static QComboBox* list(QDialog& dialog, const char* name) { return dialog.findChild<QComboBox*>(name); }
    static QAbstractButton* push(QDialog& dialog, const char* name)
    {
        return dialog.findChild<QAbstractButton*>(name);
    }
    static void turnTo(QDialog& dialog, int tab)
    {
        dialog.findChild<QTabWidget*>("ssSettings")->setCurrentIndex(tab);
    }
};

TEST_F(SettingsWindow, ClosesThePortWhileItStands)
{
    start();
    EXPECT_TRUE(port.PortOpen());
    insideSettings([this](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\Settings");
        EXPECT_FALSE(port.PortOpen());
        EXPECT_FALSE(push(dialog, "cmdApply")->isEnabled());
        EXPECT_TRUE(field(dialog, "txtCompany")->hasFocus());
        dialog.close();
    });
}

TEST_F(SettingsWindow, StoresTheCompanyInCapitals)
{
    start();
    insideSettings([](QDialog& dialog) {
        type(field(dialog, "txtCompany"), "d'oro");
        EXPECT_EQ(field(dialog, "txtCompany")->text(), "D'ORO");
        type(field(dialog, "txtWEB"), "www.oro.it");
        EXPECT_TRUE(push(dialog, "cmdApply")->isEnabled());
        QTest::mouseClick(push(dialog, "cmdApply"), Qt::LeftButton);
        EXPECT_FALSE(push(dialog, "cmdApply")->isEnabled());
        QTest::mouseClick(push(dialog, "cmdOK"), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(support::column(plantFile(), "SELECT Company || WEB FROM tbCompanySettings"),
              QStringList{"D'OROwww.oro.it"});
    EXPECT_EQ(session.CompanySet[0], "D'ORO");
}

TEST_F(SettingsWindow, CancelStoresNothing)
{
    start();
    insideSettings([](QDialog& dialog) {
        type(field(dialog, "txtCompany"), "OTHER");
        QTest::mouseClick(push(dialog, "cmdCancel"), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(session.CompanySet[0], "");
}

TEST_F(SettingsWindow, WithoutTheRightTheCompanyIsLocked)
{
    setRight("Settings", "0");
    start();
    insideSettings([](QDialog& dialog) {
        EXPECT_FALSE(field(dialog, "txtCompany")->isEnabled());
        EXPECT_FALSE(field(dialog, "txtVATNumber")->isEnabled());
        EXPECT_TRUE(list(dialog, "imcLanguage")->hasFocus());
        EXPECT_TRUE(list(dialog, "cbxPort")->isEnabled());
    });
}

TEST_F(SettingsWindow, TheDaysAreTestedWhenTheyAreLeft)
{
    start();
    insideSettings([this](QDialog& dialog) {
        turnTo(dialog, 1);
        QLineEdit* days = field(dialog, "txtQtyDays");
        type(days, "999");
        EXPECT_EQ(days->text(), "999");
        desktop.script.expect(texts(517));
        QTest::keyClick(days, Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_TRUE(days->hasFocus());
        QTest::keyClick(days, Qt::Key_A);
        EXPECT_EQ(days->text(), "999");
        QTest::keyClick(days, Qt::Key_Escape);
        QTest::keyClick(days, Qt::Key_Down);
        EXPECT_EQ(days->text(), "179") << "one less than what stood there before";
        desktop.script.expect(texts(516));
        type(days, "");
        days->clear();
        QTest::mouseClick(push(dialog, "cmdOK"), Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseClick(push(dialog, "cmdCancel"), Qt::LeftButton);
    });
}

TEST_F(SettingsWindow, ThePurgesSwitchLocksItsDetails)
{
    start();
    insideSettings([](QDialog& dialog) {
        turnTo(dialog, 1);
        auto* purge = dialog.findChild<QCheckBox*>("chkDelLog");
        purge->setChecked(false);
        for (const char* name :
             {"chkDelLogErr", "chkDelLogApp", "txtQtyDays", "updQtyDays", "lblQtyDays", "cmdDelLog"})
            EXPECT_FALSE(dialog.findChild<QWidget*>(name)->isEnabled()) << name;
        EXPECT_TRUE(push(dialog, "cmdDelAllLog")->isEnabled());
        purge->setChecked(true);
        EXPECT_TRUE(push(dialog, "cmdDelLog")->isEnabled());
    });
}

TEST_F(SettingsWindow, AVanishedLogFolderIsToldAndTheWindowStays)
{
    start();
    insideSettings([this](QDialog& dialog) {
        turnTo(dialog, 1);
        ASSERT_TRUE(QDir(file("Log")).removeRecursively());
        QTest::mouseClick(push(dialog, "cmdDelAllLog"), Qt::LeftButton);
        failures.expectUnder("Module/Delete_Log");
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(SettingsWindow, ThePortIsChosenResetAndTested)
{
    start();
    insideSettings([this](QDialog& dialog) {
        turnTo(dialog, 2);
        QComboBox* ports = list(dialog, "cbxPort");
        EXPECT_EQ(ports->count(), 16);
        EXPECT_EQ(ports->currentText(), "COM1");
        EXPECT_TRUE(dialog.findChild<QLabel*>("lblDevice")->text().contains("/dev/ttyS0"));
        QTest::keyClick(ports, Qt::Key_Down);
        EXPECT_EQ(ports->currentText(), "COM2");
        EXPECT_TRUE(dialog.findChild<QLabel*>("lblDevice")->text().contains("/dev/ttyS1"));
        EXPECT_TRUE(push(dialog, "cmdApply")->isEnabled());
        desktop.script.expect(texts(576));
        QTest::mouseClick(push(dialog, "cmdTest"), Qt::LeftButton);
        EXPECT_FALSE(port.PortOpen());
        EXPECT_EQ(session.COMPort.Port, 0);
        QTest::mouseClick(push(dialog, "cmdReset"), Qt::LeftButton);
        EXPECT_EQ(ports->currentText(), "COM1");
        EXPECT_EQ(list(dialog, "cbxSpeed")->currentText(), "2400");
        EXPECT_GE(push(dialog, "cmdTest")->x() - push(dialog, "cmdReset")->geometry().right(), 8);
        picture(dialog, "settings-port");
    });
}

TEST_F(SettingsWindow, AnotherLanguageRelabelsAllAndTheOperatorGoesOn)
{
    start();
    insideSettings([this](QDialog& dialog) {
        list(dialog, "imcLanguage")->setCurrentIndex(0);
        QTest::mouseClick(push(dialog, "cmdApply"), Qt::LeftButton);
        EXPECT_EQ(dialog.windowTitle(), "Calidora\\" + texts(31));
        EXPECT_EQ(list(dialog, "cbxParity")->currentText(), texts(258));
    });
    EXPECT_EQ(session.Language.Code, "IT");
    EXPECT_EQ(button("Refresh")->toolTip(), texts(234) + " (F5)");
    EXPECT_TRUE(window()->windowTitle().endsWith(texts(59) + " TECHNICIAN"));
    EXPECT_TRUE(button("Property")->isEnabled());
    EXPECT_EQ(listKeys(), QStringList{"Root"});
    session::Session stored;
    stored.AppPath = session.AppPath;
    ASSERT_TRUE(session::Read_Configuration(stored));
    EXPECT_EQ(stored.Language.Code, "IT");
}

// Far too much, and what is no letter at all.
TEST_F(SettingsWindow, NoFieldTakesMoreThanItHoldsAndWhatItTookIsStoredWhole)
{
    start();
    const QString odd = QString::fromUtf8("d'oro \"Ёлка\" \xF0\x9F\x94\xA7");
    insideSettings([&](QDialog& dialog) {
        for (QLineEdit* text : dialog.findChildren<QLineEdit*>()) {
            if (!text->objectName().startsWith("txt"))
                continue;
            for (const QString& pasted :
                 {QString(10000, 'x'), QString::fromUtf8("\xF0\x9F\x94\xA7").repeated(81), odd}) {
                QApplication::clipboard()->setText(pasted);
                text->selectAll();
                text->paste();
                EXPECT_LE(text->text().size(), text->maxLength()) << qPrintable(text->objectName());
                EXPECT_TRUE(text->text().isEmpty() || !text->text().back().isHighSurrogate());
            }
        }
        type(field(dialog, "txtQtyDays"), "180");
        QTest::mouseClick(push(dialog, "cmdApply"), Qt::LeftButton);
        EXPECT_EQ(field(dialog, "txtWEB")->text(), odd);
    });
    EXPECT_EQ(support::column(plantFile(), "SELECT Company || '|' || WEB FROM tbCompanySettings"),
              QStringList{odd + '|' + odd});
}

TEST_F(SettingsWindow, SpeaksEveryLanguageAndClipsNothing)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        setLanguage(language);
        insideSettings([this](QDialog& dialog) {
            auto* tabs = dialog.findChild<QTabWidget*>("ssSettings");
            for (int tab = 0; tab < 3; ++tab) {
                EXPECT_EQ(tabs->tabText(tab), texts(28 + tab));
                tabs->setCurrentIndex(tab);
                QApplication::processEvents();
                nothingIsClipped(dialog);
                picture(dialog, QString("settings-%1").arg(tab));
            }
        });
    }
}

} // namespace
