#include "dialogs/Zoom.h"
#include "dialogs/frmZoom.h"
#include "gui/GuiFixture.h"
#include "widgets/SortHeader.h"

#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QTimer>

using platform::answers::kYes;

namespace {

// The real window over the parameter groups of the small catalogue. Opened, played in, closed.
class ZoomWindow : public gui::GuiFixture
{
protected:
    ZoomWindow()
    {
        connectPlant();
        zoom.ZoomSet.Caption = "Items";
        zoom.ZoomSet.Connection = session.ConnectionString;
        zoom.ZoomSet.Select = "SELECT mID AS ID, mDesc AS Description FROM tbParamGroupLanguage";
        zoom.ZoomSet.Where = "mKeyLang = 'EN'";
        zoom.ZoomSet.OrderBy = "mID";
        zoom.ZoomSet.KeyField = "mID";
        zoom.ZoomSet.NameField = "mDesc";
        desktop.registerForm("frmZoom",
                             [this] { return new dialogs::frmZoom(session, texts, desktop, zoom); });
    }

    QString open(std::function<void()> play, const QString& Value = "*")
    {
        QTimer::singleShot(0, qApp, [this, play] {
            form = qobject_cast<QDialog*>(desktop.form("frmZoom"));
            ASSERT_TRUE(form && form->isModal());
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            play();
            if (desktop.form("frmZoom"))
                form->close();
        });
        return zoom.ShowZoom(Value);
    }
    QTreeView* lvwZoom() { return form->findChild<QTreeView*>("lvwZoom"); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(lvwZoom(), key, modifiers);
    }
    QPoint placeOf(int row) { return lvwZoom()->visualRect(zoom.list().index(row, 0)).center(); }
    void click(int row) { QTest::mouseClick(lvwZoom()->viewport(), Qt::LeftButton, {}, placeOf(row)); }
    int selected()
    {
        const QModelIndexList rows = lvwZoom()->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }
    QString rows() { return form->findChild<QLabel*>("Rows")->text(); }
    void clickHeader(int column)
    {
        QHeaderView* header = lvwZoom()->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 10, header->height() / 2});
    }

    dialogs::Zoom zoom{session, desktop};
    QDialog* form = nullptr;
};

TEST_F(ZoomWindow, ShowsTitleRowsAndColumns)
{
    open([&] {
        EXPECT_EQ(form->windowTitle(), " Items");
        EXPECT_EQ(rows(), "# 6");
        EXPECT_EQ(zoom.list().rowCount(), 6);
        EXPECT_EQ(selected(), 0) << "the first row is ready to be taken";
        EXPECT_FALSE(form->findChild<QProgressBar*>("prgZoom")->isVisible());
        EXPECT_TRUE(lvwZoom()->hasFocus());
    });
}

TEST_F(ZoomWindow, EveryColumnIsWideEnoughForItsContents)
{
    runOnPlant("UPDATE tbParamGroupLanguage SET mDesc = 'A description that needs more room than half a "
               "small window gives' WHERE mID = 'G03';");
    open([&] {
        const QFontMetrics metrics = lvwZoom()->fontMetrics();
        for (int column = 0; column < 2; ++column) {
            for (int row = 0; row < 6; ++row)
                EXPECT_GT(lvwZoom()->columnWidth(column),
                          metrics.horizontalAdvance(zoom.list().index(row, column).data().toString()));
        }
        EXPECT_LE(lvwZoom()->columnWidth(0) + lvwZoom()->columnWidth(1), lvwZoom()->viewport()->width());
    });
}

TEST_F(ZoomWindow, ADoubleClickPicks)
{
    EXPECT_EQ(open([&] {
                  click(2);
                  QTest::mouseDClick(lvwZoom()->viewport(), Qt::LeftButton, {}, placeOf(2));
              }),
              "G03");
}

TEST_F(ZoomWindow, EnterPicksTheSelectedRow)
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        EXPECT_EQ(open([&] {
                      press(Qt::Key_Down);
                      EXPECT_EQ(selected(), 1);
                      press(enter);
                  }),
                  "G02");
    }
}

TEST_F(ZoomWindow, EscapeAndClosingPickNothing)
{
    EXPECT_EQ(open([&] {
                  press(Qt::Key_Down);
                  press(Qt::Key_Escape);
              }),
              "");
    EXPECT_EQ(open([&] { click(1); }), "");
    EXPECT_FALSE(desktop.form("frmZoom"));
}

TEST_F(ZoomWindow, AColumnsHeadSortsAndTurnsAndKeepsTheSelection)
{
    open([&] {
        click(0); // Measures
        clickHeader(1);
        EXPECT_EQ(zoom.list().keyAt(0), "G01");
        clickHeader(1);
        EXPECT_EQ(zoom.list().keyAt(0), "G03");
        EXPECT_EQ(selected(), 5);
        auto* header = lvwZoom()->findChild<widgets::SortHeader*>();
        EXPECT_EQ(header->arrowColumn(), 1);
        EXPECT_FALSE(header->arrowAscending());
    });
}

TEST_F(ZoomWindow, AColumnsNumberSortsByKeys)
{
    open([&] {
        press(Qt::Key_2, Qt::ControlModifier);
        EXPECT_EQ(zoom.list().keyAt(0), "G01");
        press(Qt::Key_2, Qt::ControlModifier);
        EXPECT_EQ(zoom.list().keyAt(0), "G03");
        press(Qt::Key_9, Qt::ControlModifier);
        EXPECT_EQ(zoom.list().keyAt(0), "G03");
        press(Qt::Key_1, Qt::ControlModifier);
        EXPECT_EQ(zoom.list().keyAt(0), "G01");
    });
}

TEST_F(ZoomWindow, FindsByKeys)
{
    open([&] {
        desktop.script.type("S");
        press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(selected(), 0);
        press(Qt::Key_F3);
        EXPECT_EQ(selected(), 1);
        press(Qt::Key_End);
        desktop.script.expect("End of list. Do you want to repeat from the start?", kYes);
        press(Qt::Key_F3);
        EXPECT_EQ(selected(), 0);
    });
    EXPECT_EQ(desktop.script.inputBoxes.size(), 1u);
}

TEST_F(ZoomWindow, RefreshesByKey)
{
    open([&] {
        clickHeader(1);
        runOnPlant("DELETE FROM tbParamGroupLanguage WHERE mID = 'G02';");
        press(Qt::Key_F5);
        EXPECT_EQ(rows(), "# 5");
        EXPECT_EQ(zoom.list().keyAt(1), "G03");
        EXPECT_EQ(lvwZoom()->findChild<widgets::SortHeader*>()->arrowColumn(), -1);
    });
}

TEST_F(ZoomWindow, TheRightButtonOpensThePopup)
{
    for (const char* language : {"EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"}) {
        setLanguage(language);
        open([&] {
            const QPoint place = placeOf(1);
            QContextMenuEvent press(QContextMenuEvent::Mouse, place,
                                    lvwZoom()->viewport()->mapToGlobal(place));
            QApplication::sendEvent(lvwZoom()->viewport(), &press);
            auto* popup = form->findChild<QMenu*>("mnuPopup");
            EXPECT_TRUE(popup->isVisible());
            EXPECT_EQ(form->findChild<QAction*>("mnuFind")->text(), texts.own("zoom.find"));
            EXPECT_EQ(form->findChild<QAction*>("mnuRefresh")->text(), texts(228));
            popup->close();
            desktop.script.type("Times");
            form->findChild<QAction*>("mnuFind")->trigger();
            EXPECT_EQ(selected(), 2);
        });
    }
}

TEST_F(ZoomWindow, ABadQueryShowsAnEmptyList)
{
    zoom.ZoomSet.Select = "SELECT nothing FROM tbUsers";
    EXPECT_EQ(open([&] {
                  EXPECT_EQ(zoom.list().rowCount(), 0);
                  EXPECT_EQ(rows(), "");
                  press(Qt::Key_Down);
                  press(Qt::Key_Return);
                  EXPECT_TRUE(form->isVisible());
              }),
              "");
    failures.expectOne(platform::errors::kDatabase, "frmZoom/Load_Items");
}

} // namespace
