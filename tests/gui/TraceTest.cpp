// The window over the line's traffic.
#include "gui/GuiFixture.h"
#include "platform/TextFile.h"
#include "widgets/FormLanguage.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>

namespace {

using Qt::ControlModifier;
using Qt::ShiftModifier;

class TraceWindow : public gui::GuiFixture
{
protected:
    QDialog* form() const { return qobject_cast<QDialog*>(desktop.form("frmTrace")); }
    template <class Part>
    Part* part(const char* name) const
    {
        return form()->findChild<Part*>(name);
    }
    QTreeView* list() const { return part<QTreeView>("lvwTrace"); }
    QString words() const { return part<QLabel>("lblCount")->text(); }
    QString cell(int row, int column) const { return list()->model()->index(row, column).data().toString(); }
    bool shows(int rows)
    {
        return QTest::qWaitFor([&] { return list()->model()->rowCount() == rows; });
    }
    void open()
    {
        QTest::keyClick(window(), Qt::Key_T, ControlModifier | ShiftModifier);
        ASSERT_TRUE(form());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
    }
    void arrives(const QByteArray& bytes)
    {
        port.feed(bytes);
        clock.settle();
    }
};

TEST_F(TraceWindow, ShowsWhatWentOverTheLineSinceTheStart)
{
    start();
    arrives("hello");
    open();
    EXPECT_EQ(form()->windowTitle(), "Calidora\\Line trace");
    EXPECT_EQ(list()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, 4), "hello");
    EXPECT_EQ(words(), "Events: 1");
    arrives("RING");
    EXPECT_TRUE(shows(2));
    EXPECT_EQ(cell(1, 5), "A call comes in");
    EXPECT_EQ(words(), "Events: 2");
    clock.run(20000);
}

TEST_F(TraceWindow, NothingYet)
{
    start();
    open();
    EXPECT_EQ(words(), "Nothing has gone over the line yet.");
    EXPECT_FALSE(part<QPushButton>("cmdSave")->isEnabled());
    arrives("x");
    EXPECT_TRUE(shows(1));
    EXPECT_TRUE(part<QPushButton>("cmdSave")->isEnabled());
}

TEST_F(TraceWindow, WithoutACompanyItIsThereToo)
{
    start("");
    EXPECT_TRUE(entry("frmTreeBus", "mnuLineTrace")->isEnabled());
    open();
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_FALSE(form()->isVisible());
}

TEST_F(TraceWindow, BeforeTheLoginItIsClosed)
{
    desktop.atTheGate = [] {};
    start();
    EXPECT_FALSE(entry("frmTreeBus", "mnuLineTrace")->isEnabled());
    QTest::keyClick(window(), Qt::Key_T, ControlModifier | ShiftModifier);
    EXPECT_FALSE(form());
}

TEST_F(TraceWindow, IsNarrowedAsOneTypesAndEscapeShowsAllBeforeItCloses)
{
    start();
    arrives("one");
    arrives("two");
    open();
    auto* filter = part<QLineEdit>("txtNarrow");
    type(filter, "TW");
    EXPECT_TRUE(shows(1));
    EXPECT_EQ(words(), "Events shown: 1");
    EXPECT_EQ(cell(0, 4), "two");
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_TRUE(shows(2));
    EXPECT_TRUE(form()->isVisible());
    QTest::keyClick(filter, Qt::Key_Down);
    EXPECT_TRUE(list()->hasFocus());
    filter->setFocus();
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_FALSE(form()->isVisible());
}

TEST_F(TraceWindow, PausedItStandsStillUntilItGoesOn)
{
    start();
    arrives("one");
    open();
    part<QCheckBox>("chkPause")->click();
    arrives("two");
    QApplication::processEvents();
    EXPECT_EQ(list()->model()->rowCount(), 1);
    EXPECT_TRUE(words().startsWith("Paused")) << qPrintable(words());
    part<QCheckBox>("chkPause")->click();
    EXPECT_EQ(list()->model()->rowCount(), 2);
    EXPECT_EQ(words(), "Events: 2");
}

TEST_F(TraceWindow, StaysAtTheEndAndLeavesWhoLooksElsewhereAlone)
{
    start();
    for (int i = 0; i < 100; ++i)
        arrives(QByteArray::number(i));
    open();
    QScrollBar* bar = list()->verticalScrollBar();
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    arrives("more");
    EXPECT_TRUE(shows(101));
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(3);
    arrives("more");
    EXPECT_TRUE(shows(102));
    EXPECT_EQ(bar->value(), 3);
}

TEST_F(TraceWindow, NarrowedItShowsTheLatestThatIsLeft)
{
    start();
    for (int i = 0; i < 200; ++i)
        arrives("n" + QByteArray::number(i));
    open();
    QScrollBar* bar = list()->verticalScrollBar();
    bar->setValue(3);
    type(part<QLineEdit>("txtNarrow"), "n1");
    EXPECT_TRUE(shows(111));
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(TraceWindow, IsSavedAsText)
{
    start();
    arrives("one");
    open();
    desktop.script.chooseFile(file("trace.txt"));
    part<QPushButton>("cmdSave")->click();
    EXPECT_EQ(desktop.script.fileRequests.back().filter, "Text (*.txt)|*.txt");
    platform::TextReader saved(file("trace.txt"), 1252);
    EXPECT_EQ(saved.ReadLine(), "Time\tGap (s)\tDirection\tBytes\tText\tWhat it is");
    EXPECT_TRUE(saved.ReadLine().endsWith("\t← received\t6F 6E 65\tone\tNobody waits for these bytes"));
    EXPECT_TRUE(saved.AtEndOfStream());
    EXPECT_EQ(QDir(session.DirExport), QDir(QFileInfo(file("trace.txt")).path()));

    desktop.script.chooseFile({});
    desktop.script.expect(texts(502));
    part<QPushButton>("cmdSave")->click();

    desktop.script.chooseFile(file("no such folder/trace.txt"));
    part<QPushButton>("cmdSave")->click();
    failures.expectUnder("frmTrace/Save_Trace");
}

// The console is modal: the trace called up in it takes the keys there, and outlives it.
TEST_F(TraceWindow, InTheConsoleItIsAtHand)
{
    start();
    open();
    plant().selectItem("1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        QTest::keyClick(&console, Qt::Key_T, ControlModifier | ShiftModifier);
        EXPECT_EQ(form()->parentWidget(), &console);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form()));
        arrives("hello");
        EXPECT_TRUE(shows(1));
        QTest::mouseClick(part<QCheckBox>("chkPause"), Qt::LeftButton);
        QTest::mouseClick(part<QCheckBox>("chkPause"), Qt::LeftButton, {},
                          part<QCheckBox>("chkPause")->rect().center());
        console.close();
    });
    program.handlers().run("ReadWrite");
    ASSERT_TRUE(form());
    EXPECT_TRUE(form()->isVisible());
    EXPECT_EQ(form()->parentWidget(), window());

    // One that was closed there stays closed.
    plant().selectItem("1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        QTest::keyClick(&console, Qt::Key_T, ControlModifier | ShiftModifier);
        form()->reject();
        console.close();
    });
    program.handlers().run("ReadWrite");
    EXPECT_FALSE(form()->isVisible());
    EXPECT_EQ(played, 2);
}

TEST_F(TraceWindow, FirstCalledUpInTheConsole)
{
    start();
    plant().selectItem("1_1");
    inside("frmReadWrite", [&](QDialog& console) {
        QTest::keyClick(&console, Qt::Key_T, ControlModifier | ShiftModifier);
        ASSERT_TRUE(form());
        EXPECT_EQ(form()->parentWidget(), &console);
        console.close();
    });
    program.handlers().run("ReadWrite");
    ASSERT_TRUE(form());
    EXPECT_TRUE(form()->isVisible());
    EXPECT_EQ(form()->parentWidget(), window());
}

// Everything that a connection by hand brings, with the window open and without: the same bytes at the same
// times.
class Connection : public TraceWindow
{
public:
    void TestBody() override {}
    QStringList play(bool watched)
    {
        start();
        if (watched)
            open();
        plant().selectItem("1_1");
        inside("frmReadWrite", [&](QDialog& console) {
            const auto command = [&](const char* name) {
                console.findChild<QAction*>(name)->trigger();
                for (int turn = 0; turn < 3; ++turn)
                    QApplication::processEvents();
            };
            command("mnuSimulator");
            command("mnuConnect");
            arrives("ATA");
            clock.run(35000);
            arrives("\x01\x06");
            command("mnuRead");
            for (int bank = 0; bank < 4; ++bank) {
                clock.run(3000);
                arrives(QByteArray(97, '\x02'));
            }
            clock.run(3000);
            command("mnuDisconnect");
            arrives("\r");
            console.close();
        });
        program.handlers().run("ReadWrite");
        EXPECT_EQ(played, 1);
        if (watched) {
            QApplication::processEvents();
            EXPECT_GT(list()->model()->rowCount(), 10);
            picture(*form(), "line-trace");
        }
        QStringList all;
        for (const auto& sent : port.sent())
            all << QString::number(sent.at) + ' ' + sent.bytes.toHex();
        return all + support::column(plantFile(), "SELECT IfNull(Value, '-') FROM tbParametersUser");
    }
};

TEST(TraceWindowListens, TheLineIsTheSameWithTheWindowOpenOrClosed)
{
    const QStringList closed = Connection().play(false);
    const QStringList open = Connection().play(true);
    EXPECT_GT(closed.size(), 25);
    EXPECT_EQ(closed, open);
}

TEST_F(TraceWindow, SpeaksEveryLanguage)
{
    start();
    arrives("hello");
    open();
    for (const char* language : {"IT_Italiano_1000", "RU_Русский_6000", "EN_English_2000"}) {
        widgets::SetLanguage_AllForms(language, desktop.loadedForms(), session, texts, desktop);
        EXPECT_EQ(form()->windowTitle(), "Calidora\\" + texts.own("trace.title"));
        EXPECT_EQ(entry("frmTreeBus", "mnuLineTrace")->text(), texts.own("menu.trace"));
        EXPECT_EQ(list()->accessibleName(), texts.own("trace.list"));
        EXPECT_EQ(part<QLineEdit>("txtNarrow")->accessibleName(), texts.own("trace.filter"));
        EXPECT_EQ(words(), texts.own("trace.count").arg(1));
        EXPECT_EQ(cell(0, 5), texts.own("trace.stray"));
        EXPECT_EQ(list()->model()->headerData(5, Qt::Horizontal), texts.own("trace.meaning"));
        nothingIsClipped(*form());
        picture(*form(), "line-trace-empty");
    }
}

} // namespace
