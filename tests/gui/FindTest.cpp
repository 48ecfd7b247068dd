#include "gui/GuiFixture.h"
#include "widgets/FormLanguage.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

class Find : public gui::GuiFixture
{
protected:
    QWidget* form() const { return desktop.form("frmFind"); }
    QLineEdit* field() const { return form()->findChild<QLineEdit*>("txtFind"); }
    QTreeView* found() const { return form()->findChild<QTreeView*>("lvwFound"); }
    QString words() const { return form()->findChild<QLabel*>("lblFound")->text(); }
    void open()
    {
        QTest::keyClick(window(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(form());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::focusWidget() == field(); }))
            << (QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : "none")
                   .toStdString();
    }
    bool finds(int count)
    {
        const QString expected = texts.own("find.found").arg(count);
        return QTest::qWaitFor([&] { return words() == expected; }) && found()->model()->rowCount() == count;
    }
    QString cell(int row, int column) const { return found()->model()->index(row, column).data().toString(); }
};

TEST_F(Find, ListsNameValueAndPathWhileOneTypes)
{
    start();
    open();
    EXPECT_EQ(form()->windowTitle(), "Calidora\\Find in company");
    EXPECT_EQ(words(), texts.own("find.hint"));
    QTest::keyClicks(field(), "room 1");
    EXPECT_TRUE(finds(1));
    EXPECT_EQ(cell(0, 0), "EN TXT");
    EXPECT_EQ(cell(0, 1), "ROOM 1");
    EXPECT_EQ(cell(0, 2), "GRP1\\INST11\\States");
    field()->clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return found()->model()->rowCount() == 0; }));
    QTest::keyClicks(field(), "no such thing");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words() == texts.own("find.nothing"); }));
}

TEST_F(Find, EnterGoesToTheResultInTheMainWindowAndThisOneStays)
{
    start();
    open();
    QTest::keyClicks(field(), "en set");
    EXPECT_TRUE(finds(2));
    QTest::keyClick(field(), Qt::Key_Down);
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_2_1_G11_P1101");
    EXPECT_EQ(plant().tree().keyOf(tvwBus()->currentIndex()), "3_2_1_G11");
    EXPECT_TRUE(tvwBus()->isExpanded(plant().tree().indexOf("2_2_1")));
    EXPECT_EQ(lvwBus()->selectedKey(), "4_2_1_G11_P1101");
    EXPECT_TRUE(form()->isVisible());
    QTest::keyClick(field(), Qt::Key_Up);
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(plant().selectedItem(), "4_1_2_G11_P1101");
}

TEST_F(Find, EnterBeforeTheSearchIsThroughTakesItsFirstResult)
{
    start();
    open();
    QTest::keyClicks(field(), "inst11");
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return plant().selectedItem() == "2_1_1"; }));
}

TEST_F(Find, ADoubleClickAndTheButtonGoToTheResult)
{
    start();
    open();
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(finds(2));
    const QPoint second = found()->visualRect(found()->model()->index(1, 0)).center();
    QTest::mouseClick(found()->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(found()->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(plant().selectedItem(), "2_1_2");
    QTest::mouseClick(found()->viewport(), Qt::LeftButton, {},
                      found()->visualRect(found()->model()->index(0, 0)).center());
    QTest::mouseClick(form()->findChild<QPushButton*>("cmdShow"), Qt::LeftButton);
    EXPECT_EQ(plant().selectedItem(), "1_2");
}

TEST_F(Find, SaysWhenAResultIsGone)
{
    start();
    open();
    QTest::keyClicks(field(), "o'hara");
    EXPECT_TRUE(finds(1));
    plant().Remove_Node_TreeBus("1_3");
    session.cnDatabase.Execute("DELETE FROM tbGroupsUser WHERE IDGrp = 3;");
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(words(), texts.own("find.gone"));
}

TEST_F(Find, EscapeClosesAndTheNextTimeItSearchesAfresh)
{
    start();
    open();
    QTest::keyClicks(field(), "alpha");
    EXPECT_TRUE(finds(2));
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_FALSE(form()->isVisible());
    window()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    session.cnDatabase.Execute("UPDATE tbInstrumentsUser SET Name = 'BETA' WHERE Name = 'ALPHA';");
    open();
    EXPECT_EQ(field()->selectedText(), "alpha");
    EXPECT_TRUE(finds(1));
}

TEST_F(Find, GoesWithTheCompany)
{
    start();
    open();
    QTest::keyClicks(field(), "alpha");
    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    EXPECT_FALSE(desktop.form("frmFind"));
}

TEST_F(Find, SpeaksEveryLanguage)
{
    start();
    open();
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_EQ(form()->windowTitle(), "Calidora\\" + texts.own("find.title"));
        EXPECT_EQ(entry("frmListBus", "mnuFind")->text(), texts.own("menu.find"));
        EXPECT_EQ(field()->placeholderText(), texts.own("find.placeholder"));
        EXPECT_EQ(found()->model()->headerData(0, Qt::Horizontal).toString(), texts(102));
    }
}

} // namespace
