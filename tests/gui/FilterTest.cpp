#include "gui/GuiFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

class Filter : public gui::GuiFixture
{
protected:
    QLineEdit* field() const { return control<QLineEdit>("txtFilter"); }
    QWidget* focused() const { return QApplication::focusWidget(); }
    // Key events rather than keyClicks: those know Latin letters only.
    void type(const QString& text)
    {
        for (const QChar character : text) {
            QKeyEvent pressed(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(focused(), &pressed);
        }
        QApplication::processEvents();
    }
    void openFilter()
    {
        QTest::keyClick(window(), Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(field()->isVisible());
        ASSERT_EQ(focused(), field());
    }
    bool shows(const QStringList& keys)
    {
        return QTest::qWaitFor([&] { return listKeys() == keys; });
    }
};

TEST_F(Filter, IsOffUntilItIsAskedFor)
{
    start();
    EXPECT_FALSE(field()->isVisible());
    entry("frmListBus", "mnuFilter")->trigger();
    EXPECT_TRUE(field()->isVisible());
    EXPECT_EQ(focused(), field());
}

TEST_F(Filter, NarrowsTheListAsOneTypesInEveryView)
{
    start();
    clickNode("3_1_1_G01");
    openFilter();
    type("en t");
    EXPECT_TRUE(shows({"4_1_1_G01_P0101", "4_1_1_G01_P0102"}));
    for (int view = 0; view < 4; ++view) {
        plant().Set_View_ListBus(view);
        EXPECT_EQ(shownList()->model()->rowCount(), 2) << view;
    }
    type("1");
    EXPECT_TRUE(shows({"4_1_1_G01_P0101"}));
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_TRUE(shows({"4_1_1_G01_P0101", "4_1_1_G01_P0102"}));
}

TEST_F(Filter, LooksAtValuesToo)
{
    start();
    clickNode("3_1_1_G01");
    openFilter();
    type("BAR");
    EXPECT_TRUE(shows({"4_1_1_G01_P0104"}));
}

TEST_F(Filter, KnowsTheCasesOfCyrillic)
{
    setLanguage("RU_Русский_6000");
    start();
    clickNode("3_1_1_G01");
    openFilter();
    type("ру hum");
    EXPECT_TRUE(shows({"4_1_1_G01_P0103"}));
}

TEST_F(Filter, EscapeShowsEverythingAgainAndGoesBackToTheList)
{
    start();
    clickNode("1_1");
    openFilter();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_FALSE(field()->isVisible());
    EXPECT_EQ(listKeys(), (QStringList{"2_1_2", "2_1_1"}));
    EXPECT_EQ(focused(), shownList());
}

TEST_F(Filter, EscapeInTheListDoesTheSame)
{
    start();
    clickNode("1_1");
    openFilter();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(plant().selectedItem(), "2_1_1");
    EXPECT_EQ(focused(), shownList());
    QTest::keyClick(shownList(), Qt::Key_Escape);
    EXPECT_FALSE(field()->isVisible());
    EXPECT_EQ(listKeys().size(), 2);
    EXPECT_EQ(plant().selectedItem(), "2_1_1") << "what is shown stays selected";
    EXPECT_EQ(lvwBus()->selectedKey(), "2_1_1");
}

TEST_F(Filter, WhatIsHiddenIsNotSelected)
{
    start();
    clickNode("1_1");
    clickItem("2_1_2");
    openFilter();
    type("alp");
    EXPECT_TRUE(shows({"2_1_2"}));
    EXPECT_EQ(lvwBus()->selectedKey(), "2_1_2");
    field()->selectAll();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    EXPECT_EQ(plant().selectedItem(), "");
    EXPECT_EQ(lvwBus()->selectedKey(), "");
}

TEST_F(Filter, AnotherNodeStartsWithoutIt)
{
    start();
    clickNode("1_1");
    openFilter();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    openItem("2_1_1");
    EXPECT_EQ(listKeys().size(), 3);
    EXPECT_EQ(field()->text(), "");
}

TEST_F(Filter, ARefreshKeepsIt)
{
    start();
    clickNode("1_1");
    openFilter();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    program.handlers().run("Refresh");
    EXPECT_EQ(listKeys(), QStringList{"2_1_1"});
    EXPECT_EQ(field()->text(), "inst");
}

TEST_F(Filter, SaysThatNothingHoldsTheWords)
{
    start();
    clickNode("1_1");
    openFilter();
    type("zzz");
    EXPECT_TRUE(shows({}));
    EXPECT_EQ(control<QLabel>("lblEmpty")->text(), texts.own("filter.nothing"));
    EXPECT_TRUE(control<QLabel>("lblEmpty")->isVisible());
    EXPECT_EQ(control<QLabel>("lblEmpty")->textFormat(), Qt::PlainText);
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_FALSE(control<QLabel>("lblEmpty")->isVisible());
}

TEST_F(Filter, TheClearButtonShowsEverything)
{
    start();
    clickNode("1_1");
    openFilter();
    type("inst");
    EXPECT_TRUE(shows({"2_1_1"}));
    field()->clear();
    EXPECT_TRUE(shows({"2_1_2", "2_1_1"}));
}

TEST_F(Filter, WithoutACompanyThereIsNone)
{
    start("");
    EXPECT_FALSE(entry("frmTreeBus", "mnuFilter")->isEnabled());
    EXPECT_FALSE(entry("frmListBus", "mnuFind")->isEnabled());
    EXPECT_FALSE(entry("frmListBus", "mnuPending")->isEnabled());
}

} // namespace
