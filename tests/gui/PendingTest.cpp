#include "gui/GuiFixture.h"
#include "widgets/FormLanguage.h"

#include <QLabel>
#include <QPushButton>

namespace {

class Pending : public gui::GuiFixture
{
protected:
    QWidget* form() const { return desktop.form("frmPending"); }
    QTreeView* list() const { return form()->findChild<QTreeView*>("lvwPending"); }
    QString words() const { return form()->findChild<QLabel*>("lblPending")->text(); }
    void open()
    {
        QTest::keyClick(window(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(form());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
    }
    bool lists(int count)
    {
        const QString expected = count == 0 ? QString() : texts.own("pending.count").arg(count);
        return QTest::qWaitFor([&] { return words() == expected && list()->model()->rowCount() == count; });
    }
    QString cell(int row, int column) const { return list()->model()->index(row, column).data().toString(); }
};

TEST_F(Pending, ListsEveryChangedValueOfTheCompany)
{
    start();
    open();
    EXPECT_TRUE(lists(3));
    EXPECT_EQ(form()->windowTitle(), "Calidora\\Pending writes");
    EXPECT_EQ(cell(2, 0), "EN MOD");
    EXPECT_EQ(cell(2, 1), "On");
    EXPECT_EQ(cell(2, 2), "GRP1\\INST11\\States");
}

TEST_F(Pending, EnterGoesToTheValue)
{
    start();
    open();
    EXPECT_TRUE(lists(3));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_End);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0201");
    EXPECT_EQ(plant().selectedNode(), "3_1_1_G02");
    EXPECT_TRUE(form()->isVisible());
}

TEST_F(Pending, ADoubleClickGoesToTheValue)
{
    start();
    open();
    EXPECT_TRUE(lists(3));
    const QPoint second = list()->visualRect(list()->model()->index(1, 0)).center();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(plant().selectedItem(), "4_1_2_G11_P1101");
}

TEST_F(Pending, ARefreshShowsWhatChangedMeanwhile)
{
    start();
    open();
    EXPECT_TRUE(lists(3));
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0 WHERE IDPar = 'P1101';");
    QTest::keyClick(form(), Qt::Key_F5);
    EXPECT_TRUE(lists(1));
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    QTest::mouseClick(form()->findChild<QPushButton*>("cmdRefresh"), Qt::LeftButton);
    EXPECT_TRUE(lists(0));
    EXPECT_TRUE(form()->findChild<QLabel*>("lblNothing")->isVisible());
    EXPECT_FALSE(form()->findChild<QPushButton*>("cmdShow")->isEnabled());
}

TEST_F(Pending, SpeaksEveryLanguage)
{
    start();
    open();
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_EQ(form()->windowTitle(), "Calidora\\" + texts.own("pending.title"));
        EXPECT_EQ(entry("frmTreeBus", "mnuPending")->text(), texts.own("menu.pending"));
    }
}

} // namespace
