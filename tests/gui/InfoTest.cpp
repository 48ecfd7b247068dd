#include "gui/GuiFixture.h"

#include <QClipboard>
#include <QPlainTextEdit>

namespace {

class InfoWindow : public gui::GuiFixture
{
protected:
    void insideInfo(const std::function<void(QDialog&)>& work)
    {
        played = 0;
        inside("frmInfo", work);
        button("About")->trigger();
        EXPECT_EQ(played, 1);
    }
};

TEST_F(InfoWindow, ShowsTheProgramAndItsMakerInEveryLanguage)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        setLanguage(language);
        insideInfo([this](QDialog& dialog) {
            const auto text = [&](const char* name) { return dialog.findChild<QLabel*>(name)->text(); };
            EXPECT_EQ(dialog.windowTitle(), "Calidora\\" + texts(32));
            EXPECT_TRUE(text("lblPrgVer").contains("(database ver. 1.0.7)"));
            EXPECT_EQ(text("lblCompany"), texts.common(50));
            EXPECT_EQ(text("lblPhoneFax"),
                      texts(6) + ' ' + texts.common(75) + " - " + texts(7) + ' ' + texts.common(80));
            EXPECT_TRUE(text("lblSupportEMail").contains(texts.common(100)));
            nothingIsClipped(dialog);
            picture(dialog, "about");
            QTest::mouseClick(dialog.findChild<QWidget*>("cmdOK"), Qt::LeftButton);
            EXPECT_FALSE(dialog.isVisible());
        });
    }
}

TEST_F(InfoWindow, TheLinksOpenTheirAddresses)
{
    start();
    insideInfo([this](QDialog& dialog) {
        for (const char* link : {"lblEMail", "lblWeb", "lblSupportEMail"})
            emit dialog.findChild<QLabel*>(link)->linkActivated("#");
    });
    EXPECT_EQ(desktop.script.addresses,
              (QStringList{"mailto:" + texts.common(85), texts.common(90), "mailto:" + texts.common(100)}));
}

TEST_F(InfoWindow, TheMachinesFactsCanBeCopied)
{
    start();
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000", "EN_English_2000"}) {
        setLanguage(language);
        inside("frmSystemInfo", [this](QDialog& dialog) {
            QTest::mouseClick(dialog.findChild<QWidget*>("cmdCopy"), Qt::LeftButton);
            EXPECT_EQ(QApplication::clipboard()->text(),
                      dialog.findChild<QPlainTextEdit*>("txtFacts")->toPlainText());
            EXPECT_TRUE(QApplication::clipboard()->text().contains(session.AppPath));
            nothingIsClipped(dialog);
            picture(dialog, "system");
        });
        desktop.showFormModal("frmSystemInfo");
    }
    EXPECT_EQ(played, 3);
}

} // namespace
