#include "program/AlarmNotice.h"

#include "gui/GuiFixture.h"

namespace {

class AlarmNotice : public gui::GuiFixture
{
protected:
    QStringList announced;
    program::AlarmNotice notice{session, texts};

    void record()
    {
        notice.announceWith(
            [this](const QString& title, const QString& text) { announced << title << text; });
    }
};

TEST_F(AlarmNotice, SpeaksWhileTheWindowIsInTheBackground)
{
    record();
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.hide();
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() == nullptr; }));
    notice.tell(window);
    EXPECT_EQ(announced, (QStringList{"Calidora", texts(582) + '\n' + texts(585)}));
    announced.clear();
    notice.tell(window, {"NORTH, 21/11/2026 03:10"});
    EXPECT_EQ(announced[1], texts(582) + "\nNORTH, 21/11/2026 03:10\n" + texts(585));
}

TEST_F(AlarmNotice, IsSilentWhileTheOperatorIsHere)
{
    record();
    start();
    notice.tell(*window());
    EXPECT_EQ(announced, QStringList());
}

TEST_F(AlarmNotice, GoesWithoutWhereTheDesktopShowsNone)
{
    QWidget window;
    notice.tell(window);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
