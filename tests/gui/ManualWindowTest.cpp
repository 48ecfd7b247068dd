// The manual, called from the windows by F1.
#include "dialogs/Manual.h"
#include "gui/GuiFixture.h"
#include "widgets/FormLanguage.h"

#include <QListWidget>
#include <QMessageBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolButton>

namespace {

class ManualWindow : public gui::GuiFixture
{
protected:
    QDialog* manual() const { return qobject_cast<QDialog*>(desktop.form("frmManual")); }
    template <class Part>
    Part* part(const char* name) const
    {
        return manual()->findChild<Part*>(name);
    }
    QString shownChapter() const { return part<QTextBrowser>("txtPage")->source().fileName(); }
    QString chosenInList() const
    {
        const QListWidgetItem* item = part<QListWidget>("lvwChapters")->currentItem();
        return item ? item->text() : QString();
    }
    static void pressF1(QWidget* in) { QTest::keyClick(in, Qt::Key_F1); }
    // The manual, called from the tree, with the keys in it.
    void openIt()
    {
        start();
        pressF1(tvwBus());
        ASSERT_TRUE(manual());
        ASSERT_TRUE(QTest::qWaitForWindowActive(manual()));
        QApplication::processEvents();
    }
    void search(const QString& words)
    {
        type(part<QLineEdit>("txtFind"), words);
        QApplication::processEvents();
    }
};

TEST_F(ManualWindow, EachWindowHasItsChapter)
{
    const QStringList chapters = dialogs::Manual(session).chapters();
    EXPECT_GE(desktop.registeredForms().size(), 20);
    for (const QString& form : desktop.registeredForms() + QStringList{"messageBox", "inputBox"})
        EXPECT_TRUE(chapters.contains(dialogs::Manual::chapterOf(form))) << qPrintable(form);
}

TEST_F(ManualWindow, F1InTheMainWindowOpensThePlant)
{
    start();
    pressF1(tvwBus());
    ASSERT_TRUE(manual());
    EXPECT_TRUE(manual()->isVisible());
    EXPECT_FALSE(manual()->isModal());
    EXPECT_EQ(shownChapter(), "02-plant.md");
    EXPECT_EQ(chosenInList(), "Plants and instruments");
    EXPECT_EQ(manual()->windowTitle(), "Calidora\\Manual");
    EXPECT_TRUE(part<QTextBrowser>("txtPage")->toPlainText().startsWith("Plants and instruments"));
    picture(*manual(), "frmManual");
    nothingIsClipped(*manual());
}

TEST_F(ManualWindow, TablesHaveOneThinLineBetweenCellsWithRoom)
{
    openIt();
    int tables = 0;
    for (int chapter = 0; chapter < part<QListWidget>("lvwChapters")->count(); ++chapter) {
        part<QListWidget>("lvwChapters")->setCurrentRow(chapter);
        for (QTextFrame* frame : part<QTextBrowser>("txtPage")->document()->rootFrame()->childFrames()) {
            const auto* table = qobject_cast<QTextTable*>(frame);
            if (!table)
                continue;
            ++tables;
            const QTextTableFormat format = table->format();
            EXPECT_EQ(format.border(), 1);
            EXPECT_EQ(format.cellPadding(), 4);
            EXPECT_EQ(format.cellSpacing(), 0);
            EXPECT_TRUE(format.borderCollapse());
            EXPECT_EQ(format.borderStyle(), QTextFrameFormat::BorderStyle_Solid);
            EXPECT_EQ(format.borderBrush().color(), manual()->palette().color(QPalette::Mid));
        }
    }
    EXPECT_GT(tables, 0);
}

TEST_F(ManualWindow, APageIsReadAgainWhereItsPicturesGetAnotherWidthAndOnlyThere)
{
    openIt();
    auto* page = part<QTextBrowser>("txtPage");
    const auto readAgain = [&](const QSize& size) {
        // A page that is read lays its tables out afresh.
        QSignalSpy turned(page, SIGNAL(turned()));
        manual()->resize(size);
        QTest::qWait(50);
        return turned.count();
    };
    const QSize before(600, 500);
    readAgain(before);
    EXPECT_EQ(readAgain(before + QSize(0, 40)), 0);
    EXPECT_GT(readAgain(before + QSize(-40, 40)), 0);
    EXPECT_GT(readAgain(before), 0);
    page->verticalScrollBar()->setValue(70);
    EXPECT_GT(readAgain(before + QSize(-30, 0)), 0);
    EXPECT_EQ(page->verticalScrollBar()->value(), 70);
}

TEST_F(ManualWindow, TheMenuOpensItWithAndWithoutACompany)
{
    start("");
    QAction* action = entry("frmTreeBus", "mnuManual");
    ASSERT_TRUE(action);
    EXPECT_TRUE(action->isEnabled());
    EXPECT_TRUE(entry("frmListBus", "mnuManual")->isEnabled());
    EXPECT_EQ(action->shortcut(), QKeySequence("F1"));
    action->trigger();
    EXPECT_TRUE(manual() && manual()->isVisible());
}

TEST_F(ManualWindow, OverAWindowThatWaitsItTakesInputAndGoesWithIt)
{
    start();
    plant().pressItem("2_1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        pressF1(&console);
        ASSERT_TRUE(manual());
        EXPECT_EQ(manual()->parentWidget(), &console);
        EXPECT_EQ(shownChapter(), "04-reading-and-writing.md");
        ASSERT_TRUE(QTest::qWaitForWindowActive(manual()));
        search("error");
        EXPECT_GT(part<QListWidget>("lvwChapters")->count(), 0);
    });
    program.handlers().run("ReadWrite");
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(manual());
    // Once more, from the main window.
    pressF1(tvwBus());
    ASSERT_TRUE(manual());
    EXPECT_EQ(manual()->parentWidget(), window());
}

TEST_F(ManualWindow, OneThatStandsComesOverTheWindowThatWaits)
{
    start();
    pressF1(tvwBus());
    ASSERT_EQ(manual()->parentWidget(), window());
    plant().pressItem("2_1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        pressF1(&console);
        EXPECT_EQ(manual()->parentWidget(), &console);
        EXPECT_EQ(manual(), desktop.form("frmManual"));
    });
    program.handlers().run("ReadWrite");
    EXPECT_EQ(played, 1);
}

TEST_F(ManualWindow, ABoxLeadsToTheTroubles)
{
    start();
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        waiting.stop();
        pressF1(box);
        ASSERT_TRUE(manual());
        EXPECT_EQ(shownChapter(), "16-trouble.md");
        ++played;
        box->reject();
    });
    waiting.start(0);
    desktop.platform::DesktopOperator::messageBox("?", platform::Buttons::Ok, platform::Icon::Exclamation,
                                                  "t");
    EXPECT_EQ(played, 1);
    EXPECT_FALSE(manual());
}

TEST_F(ManualWindow, F1InTheManualLeavesThePage)
{
    openIt();
    part<QListWidget>("lvwChapters")->setCurrentRow(4);
    pressF1(part<QListWidget>("lvwChapters"));
    EXPECT_EQ(shownChapter(), "05-alarms.md");
}

TEST_F(ManualWindow, ChaptersLinksAndTheWayBack)
{
    openIt();
    auto* page = part<QTextBrowser>("txtPage");
    EXPECT_FALSE(part<QToolButton>("cmdForward")->isEnabled());
    part<QListWidget>("lvwChapters")->setCurrentRow(10);
    EXPECT_EQ(shownChapter(), "11-safety-copies.md");
    // A click on its link.
    QTextCursor link = page->document()->find("backup", page->document()->find("broken disk"));
    ASSERT_TRUE(link.charFormat().isAnchor());
    page->setTextCursor(link);
    page->ensureCursorVisible();
    link.setPosition(link.anchor() + 2);
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, page->cursorRect(link).center());
    EXPECT_EQ(shownChapter(), "10-backup.md");
    EXPECT_EQ(chosenInList(), "Backup, restore, upgrade");
    EXPECT_TRUE(page->toPlainText().startsWith("Backup, restore"));
    const auto turnsTo = [&](const char* chapter) {
        return QTest::qWaitFor([&, chapter] { return shownChapter() == chapter; });
    };
    QTest::keyClick(manual(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(turnsTo("11-safety-copies.md"));
    QTest::keyClick(manual(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(turnsTo("10-backup.md"));
}

TEST_F(ManualWindow, ASearchNarrowsAndLeadsToTheSection)
{
    openIt();
    auto* list = part<QListWidget>("lvwChapters");
    const int chapters = list->count();
    search("dialout");
    ASSERT_GE(list->count(), 1);
    EXPECT_LT(list->count(), chapters);
    picture(*manual(), "frmManual-search");
    QTest::keyClick(part<QLineEdit>("txtFind"), Qt::Key_Return);
    EXPECT_EQ(shownChapter(), "16-trouble.md");
    EXPECT_EQ(part<QTextBrowser>("txtPage")->textCursor().selectedText(), "dialout");
    EXPECT_TRUE(list->hasFocus());

    search("nosuchword");
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), "Nothing found.");
    EXPECT_EQ(list->item(0)->flags(), Qt::NoItemFlags);

    part<QLineEdit>("txtFind")->clear();
    EXPECT_EQ(list->count(), chapters);
    EXPECT_EQ(chosenInList(), "Trouble with ports and modems");
}

TEST_F(ManualWindow, CtrlFGoesToTheSearch)
{
    openIt();
    part<QListWidget>("lvwChapters")->setFocus();
    QTest::keyClick(manual(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(part<QLineEdit>("txtFind")->hasFocus());
}

TEST_F(ManualWindow, FollowsTheLanguageAndKeepsItsPage)
{
    openIt();
    part<QListWidget>("lvwChapters")->setCurrentRow(4);
    widgets::SetLanguage_AllForms("RU_Russian_6000", desktop.loadedForms(), session, texts, desktop);
    EXPECT_EQ(manual()->windowTitle(), "Calidora\\Руководство");
    EXPECT_EQ(chosenInList(), "Аварийные сообщения");
    EXPECT_TRUE(part<QTextBrowser>("txtPage")->toPlainText().startsWith("Аварийные"));
    picture(*manual(), "frmManual");
    nothingIsClipped(*manual());
}

} // namespace
