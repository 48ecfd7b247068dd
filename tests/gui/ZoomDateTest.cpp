#include "dialogs/frmZoomDate.h"

#include "gui/GuiFixture.h"

#include <QCalendarWidget>

namespace {

class ZoomDate : public gui::GuiFixture
{
};

TEST_F(ZoomDate, StartsAtTodayAndGivesTheDatePicked)
{
    dialogs::frmZoomDate form(session, clock);
    auto* calendar = form.findChild<QCalendarWidget*>("mvwCalendario");
    EXPECT_EQ(calendar->selectedDate(), clock.now().date());
    EXPECT_EQ(form.pickedDate(), "");
    form.show();
    calendar->setSelectedDate(QDate(2004, 3, 9));
    QTest::keyClick(calendar->findChild<QAbstractItemView*>(), Qt::Key_Return);
    EXPECT_EQ(form.pickedDate(), "09/03/04");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(ZoomDate, EscapePicksNothing)
{
    dialogs::frmZoomDate form(session, clock);
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(form.pickedDate(), "");
    EXPECT_FALSE(form.isVisible());
}

} // namespace
