// Every window that no job of the others opens, in every language: its texts have room.
#include "gui/GuiFixture.h"

#include <QMessageBox>

namespace {

class Windows : public gui::GuiFixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        setLanguage(GetParam());
        start();
        clickNode("1_1");
    }

    // A window that stays beside the main one.
    void look(const QString& name)
    {
        desktop.showForm(name);
        QWidget* form = desktop.form(name);
        ASSERT_TRUE(form) << qPrintable(name);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form));
        picture(*form, name);
        nothingIsClipped(*form);
        desktop.unloadForm(name);
    }
    // A window that waits for its operator.
    void lookInside(const QString& name)
    {
        inside(name, [&](QDialog& dialog) {
            picture(dialog, name);
            nothingIsClipped(dialog);
        });
        desktop.showFormModal(name);
        EXPECT_EQ(played, 1) << qPrintable(name);
    }
    // A box with a text of the catalogue and its three buttons, from the desktop itself.
    void lookAtBox(int text)
    {
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            waiting.stop();
            picture(*box, QStringLiteral("box-%1").arg(text));
            nothingIsClipped(*box);
            ++played;
            box->reject();
        });
        waiting.start(0);
        desktop.platform::DesktopOperator::messageBox(texts(text), platform::Buttons::YesNoCancel,
                                                      platform::Icon::Question, session.AppTitle);
        EXPECT_EQ(played, 1);
    }
};

TEST_P(Windows, TheMainWindow)
{
    picture(*window(), "frmMain");
    nothingIsClipped(*window());
}

TEST_P(Windows, TheConsole)
{
    plant().pressItem("2_1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        picture(console, "frmReadWrite");
        nothingIsClipped(console);
    });
    program.handlers().run("ReadWrite");
    EXPECT_EQ(played, 1);
}

TEST_P(Windows, TheSplash)
{
    look("frmPresentation");
}

TEST_P(Windows, TheProgressOfAConnection)
{
    look("frmConnection");
}

TEST_P(Windows, TheProgressOfACopy)
{
    look("frmCopy");
}

TEST_P(Windows, AnUpgrade)
{
    lookInside("frmUpgrade");
}

TEST_P(Windows, ThePurgeOfLogFiles)
{
    look("frmReadLogFiles");
}

TEST_P(Windows, TheNoticeOfAlarms)
{
    lookInside("frmMessage");
}

TEST_P(Windows, TheLanguages)
{
    lookInside("frmLanguage");
}

TEST_P(Windows, TheCalendar)
{
    lookInside("frmZoomDate");
}

TEST_P(Windows, ALongQuestion)
{
    lookAtBox(505);
}

TEST_P(Windows, WithoutACompany)
{
    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    picture(*window(), "frmMain-empty");
    nothingIsClipped(*window());
}

INSTANTIATE_TEST_SUITE_P(Languages, Windows,
                         testing::Values("EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"));

} // namespace
