// The console's window, driven as an operator drives it; the test itself is at the far end of the line.
#include "bus/Frames.h"
#include "gui/ConsoleFixture.h"
#include "widgets/SortHeader.h"

#include <QLayout>
#include <QListWidget>
#include <QMenuBar>
#include <QProgressBar>
#include <QStyledItemDelegate>

namespace {

namespace answers = platform::answers;
using bus::readRequest;

class ReadWriteWindow : public gui::ConsoleFixture
{
protected:
    QAction* entry(const char* name) const { return part<QAction>(name); }
    void choose(const char* name)
    {
        QAction* action = entry(name);
        auto* menu = qobject_cast<QMenu*>(action->associatedObjects().value(0));
        ASSERT_NE(menu, nullptr);
        if (!menu->isEnabled() || !action->isEnabled())
            return;
        auto* bar = console_->findChild<QMenuBar*>();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
        ASSERT_TRUE(menu->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        settle();
    }
    QString selectedLine() const { return list()->currentIndex().siblingAtColumn(1).data().toString(); }
    QStringList concerns() const
    {
        QStringList all;
        const auto* shown = part<QListWidget>("lvwFailed");
        for (int row = 0; row < shown->count(); ++row)
            all << shown->item(row)->text();
        return all;
    }
    QStringList usable() const
    {
        QStringList names;
        for (const char* name :
             {"Connect", "Disconnect", "AutoDisconnect", "Simulator", "Read", "Write", "Exit"})
            if (toolButton(name)->isEnabled())
                names << name;
        for (const char* name : {"mnuConnect", "mnuDisconnect", "mnuAutoDisconnect", "mnuSimulator"})
            if (entry(name)->isEnabled())
                names << name;
        for (const char* name : {"mnuFile", "mnuCommands"})
            if (part<QMenu>(name)->isEnabled())
                names << name;
        return names;
    }
    QString label(const char* name) const { return part<QLabel>(name)->text(); }
    QList<QByteArray> said() const
    {
        QList<QByteArray> all;
        for (const auto& piece : port.sent())
            all << piece.bytes;
        return all;
    }
    static QString question(const session::Texts& texts)
    {
        return texts(572) + "\r\n" + texts(573) + "\r\n" + texts(574);
    }
};

TEST_F(ReadWriteWindow, OpensOnTheChosenItem)
{
    start();
    clickNode("3_1_1_G01");
    open("4_1_1_G01_P0101", [&] {
        EXPECT_EQ(console_->windowTitle(), "Calidora\\" + texts(274));
        EXPECT_TRUE(console_->isModal());
        EXPECT_TRUE(console_->windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_EQ(label("lblGroup"), "GRP1");
        EXPECT_EQ(label("lblItem"), QStringLiteral("INST11 \u203a Measures \u203a EN T1"));
        EXPECT_EQ(label("lblActivity"), texts.own("console.hint.connect").arg("0551234567"));
        EXPECT_EQ(QApplication::focusWidget(), list());
        EXPECT_EQ(list()->model()->headerData(0, Qt::Horizontal).toString(), "Date");
        EXPECT_EQ(list()->model()->headerData(1, Qt::Horizontal).toString(), "Description");
        EXPECT_EQ(list()->findChild<widgets::SortHeader*>()->arrowColumn(), -1);
        EXPECT_TRUE(list()->header()->stretchLastSection());
        EXPECT_GE(list()->columnWidth(0), list()->fontMetrics().horizontalAdvance("2026/03/14 09:00:00"));
        EXPECT_FALSE(part<QProgressBar>("prgLoad")->isVisible());
        EXPECT_FALSE(part<QWidget>("failedChecks")->isVisible());
        EXPECT_EQ(label("COMSet"), "COM1:2400,N,8,1");
        EXPECT_FALSE(part<QLabel>("COMSetPicture")->pixmap(Qt::ReturnByValue).isNull());
        EXPECT_EQ(usable(), QStringList({"Connect", "AutoDisconnect", "Simulator", "Exit", "mnuConnect",
                                         "mnuAutoDisconnect", "mnuSimulator", "mnuFile"}));
        nothingIsClipped(*console_);
        picture(*console_, "frmReadWrite-idle");
    });
}

TEST_F(ReadWriteWindow, ItIsMadeForReadingAtANight)
{
    runOnPlant("UPDATE tbGroupsUser SET Name = '<B>NORTH</B>' WHERE IDGrp = 1");
    start();
    open("1_1", [&] {
        EXPECT_EQ(console_->size(), QSize(780, 540));
        EXPECT_EQ(label("lblGroup"), "<B>NORTH</B>");
        for (const char* name : {"lblGroup", "lblItem", "lblActivity", "lblFailed", "COMSet", "Info"})
            EXPECT_EQ(part<QLabel>(name)->textFormat(), Qt::PlainText) << name;
        EXPECT_TRUE(part<QLabel>("lblGroup")->font().bold());
        EXPECT_GT(part<QLabel>("lblGroup")->font().pointSizeF(), console_->font().pointSizeF());
        EXPECT_TRUE(part<QLabel>("lblActivity")->wordWrap());
        const auto* heading = part<QWidget>("heading")->layout();
        EXPECT_EQ(heading->contentsMargins(), QMargins(10, 6, 10, 6));
        EXPECT_EQ(heading->spacing(), 2);

        EXPECT_FALSE(list()->rootIsDecorated());
        EXPECT_TRUE(list()->uniformRowHeights());
        EXPECT_TRUE(list()->alternatingRowColors());
        QStyleOptionViewItem row;
        row.initFrom(list());
        row.font = list()->font();
        row.fontMetrics = list()->fontMetrics();
        EXPECT_EQ(list()->itemDelegate()->sizeHint(row, {}).height(),
                  QStyledItemDelegate().sizeHint(row, {}).height() + 6)
            << "room above and below each line";
        EXPECT_EQ(list()->frameShape(), QFrame::NoFrame);
        EXPECT_EQ(list()->editTriggers(), QAbstractItemView::NoEditTriggers);
        EXPECT_EQ(list()->columnWidth(0),
                  console_->fontMetrics().horizontalAdvance("0000/00/00 00:00:00") + 28);
        EXPECT_EQ(list()->width(), console_->width()) << "from edge to edge";

        const auto* bar = part<QProgressBar>("prgLoad");
        EXPECT_EQ(bar->minimum(), 0);
        EXPECT_EQ(bar->maximum(), 100);
        EXPECT_FALSE(bar->isTextVisible());
        EXPECT_EQ(bar->height(), 10);
        EXPECT_EQ(part<QListWidget>("lvwFailed")->maximumHeight(), console_->fontMetrics().lineSpacing() * 5);
        EXPECT_EQ(part<QWidget>("failedChecks")->layout()->contentsMargins(), QMargins(10, 6, 10, 6));
        EXPECT_EQ(part<QWidget>("failedChecks")->layout()->spacing(), 4);

        const auto separators = [](const QList<QAction*>& actions) {
            return std::count_if(actions.begin(), actions.end(),
                                 [](const QAction* action) { return action->isSeparator(); });
        };
        EXPECT_EQ(separators(part<QToolBar>("tlbMain")->actions()), 3);
        EXPECT_EQ(separators(part<QMenu>("mnuFile")->actions()), 2);
        EXPECT_EQ(separators(part<QMenu>("mnuCommands")->actions()), 0);
    });
}

TEST_F(ReadWriteWindow, EveryCommandHasItsWords)
{
    start();
    open("1_1", [&] {
        const std::pair<const char*, int> entries[] = {
            {"mnuConnect", 268}, {"mnuDisconnect", 269}, {"mnuAutoDisconnect", 270}, {"mnuSimulator", 271},
            {"mnuExit", 83},     {"mnuRead", 272},       {"mnuWrite", 273}};
        for (const auto& [name, text] : entries)
            EXPECT_EQ(entry(name)->text().remove('&'), texts(text).remove('&')) << name;
        EXPECT_EQ(part<QMenu>("mnuFile")->title().remove('&'), texts(108).remove('&'));
        EXPECT_EQ(part<QMenu>("mnuCommands")->title().remove('&'), texts(116).remove('&'));
        const std::pair<const char*, int> buttons[] = {
            {"Connect", 275}, {"Disconnect", 276}, {"AutoDisconnect", 277}, {"Simulator", 278}, {"Read", 279},
            {"Write", 280},   {"Exit", 56}};
        for (const auto& [key, text] : buttons) {
            EXPECT_TRUE(toolButton(key)->toolTip().startsWith(texts(text))) << key;
            EXPECT_FALSE(toolButton(key)->icon().isNull()) << key;
        }
        EXPECT_EQ(label("lblItem"), "") << "it stands on the group itself";
    });
}

TEST_F(ReadWriteWindow, TheToolbarHasTheChosenSize)
{
    for (const auto& [icons, size] : {std::pair(0, 16), std::pair(-1, 32)}) {
        if (!window())
            start();
        session.ToolbarSet.Icons = qint16(icons);
        open("1_1",
             [&, size = size] { EXPECT_EQ(part<QToolBar>("tlbMain")->iconSize(), QSize(size, size)); });
    }
}

TEST_F(ReadWriteWindow, ButtonsConnectAndDisconnect)
{
    start();
    open("1_1", [&] {
        press("Simulator");
        press("Connect");
        EXPECT_EQ(said(), QList<QByteArray>{"RING"});
        EXPECT_EQ(usable(), QStringList({"mnuConnect", "mnuAutoDisconnect", "mnuSimulator"}));
        clock.run(2000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return label("lblActivity") == "connecting: 2 s"; }))
            << "the window looks at the line every second";
        arrives("ATA");
        clock.run(3000);
        EXPECT_EQ(lines(), QStringList({"*** CONNECTION TO: GRP1 ***", "Connected."}));
        EXPECT_EQ(selectedLine(), "Connected.");
        EXPECT_EQ(usable(), QStringList({"Disconnect", "AutoDisconnect", "Read", "Write", "Exit",
                                         "mnuDisconnect", "mnuAutoDisconnect", "mnuFile", "mnuCommands"}));
        EXPECT_EQ(label("lblActivity"), "Connected. Read or Write the selected item.");
        clock.run(4000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return label("Info") == "CONNECTED 0:00:04"; }));
        press("Disconnect");
        EXPECT_EQ(said().last(), "+++");
        arrives("\r");
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
        EXPECT_EQ(lines().last(), "CONNECTED 0:00:04");
        EXPECT_TRUE(toolButton("Connect")->isEnabled());
    });
}

TEST_F(ReadWriteWindow, EntriesDoWhatTheButtonsDo)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        choose("mnuSimulator");
        EXPECT_TRUE(entry("mnuSimulator")->isChecked());
        EXPECT_TRUE(toolButton("Simulator")->isChecked());
        choose("mnuAutoDisconnect");
        EXPECT_TRUE(entry("mnuAutoDisconnect")->isChecked());
        EXPECT_TRUE(toolButton("AutoDisconnect")->isChecked());
        choose("mnuAutoDisconnect");
        EXPECT_FALSE(toolButton("AutoDisconnect")->isChecked());
        choose("mnuConnect");
        arrives("ATA");
        clock.run(3000);
        choose("mnuRead");
        EXPECT_EQ(lines().last(), "--- Reading process start ---");
        clock.run(3000);
        arrives("\x02\x06");
        clock.run(3000);
        desktop.script.expect(texts(540)); // what was read needs no writing
        choose("mnuWrite");
        choose("mnuDisconnect");
        arrives("\r");
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
        choose("mnuExit");
        EXPECT_FALSE(console_->isVisible());
    });
}

TEST_F(ReadWriteWindow, TheTogglesFlipWithTheirButtons)
{
    start();
    open("1_1", [&] {
        for (const bool on : {true, false}) {
            press("Simulator");
            EXPECT_EQ(toolButton("Simulator")->isChecked(), on);
            EXPECT_EQ(entry("mnuSimulator")->isChecked(), on);
            press("AutoDisconnect");
            EXPECT_EQ(toolButton("AutoDisconnect")->isChecked(), on);
            EXPECT_EQ(entry("mnuAutoDisconnect")->isChecked(), on);
        }
        press("Simulator");
        press("AutoDisconnect");
    });
    open("1_1", [&] {
        EXPECT_TRUE(toolButton("Simulator")->isChecked()) << "the choice survives the window";
        EXPECT_FALSE(toolButton("AutoDisconnect")->isChecked()) << "this one doesn't";
    });
}

TEST_F(ReadWriteWindow, AReadShowsHowFarItIs)
{
    start();
    clickNode("3_1_1_G01");
    open("3_1_1_G01", [&] {
        connectByCable();
        auto* bar = part<QProgressBar>("prgLoad");
        const int top = list()->y();
        press("Read");
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->value(), 0);
        EXPECT_EQ(list()->y(), top) << "the list doesn't jump";
        EXPECT_EQ(usable(), QStringList({"mnuDisconnect", "mnuAutoDisconnect"}));
        clock.run(3000);
        EXPECT_EQ(bar->value(), 14);
        EXPECT_TRUE(label("lblActivity").startsWith("Item 1 of 7"));
        EXPECT_EQ(selectedLine(), "Waiting for ready...");
        nothingIsClipped(*console_);
        picture(*console_, "frmReadWrite-reading");
        for (int record = 0; record < 7; ++record) {
            arrives("\x55\x05\x06");
            clock.run(3000);
        }
        EXPECT_FALSE(bar->isVisible());
        EXPECT_EQ(selectedLine(), "--- Reading process end ---");
        EXPECT_TRUE(toolButton("Read")->isEnabled());
        const QModelIndex last = list()->currentIndex();
        EXPECT_TRUE(list()->viewport()->rect().contains(list()->visualRect(last).center()));
        hangUp();
    });
}

TEST_F(ReadWriteWindow, ValuesThatWereReadStandInTheListBehindIt)
{
    start();
    clickNode("3_1_1_G01");
    open("4_1_1_G01_P0104", [&] {
        connectByCable();
        press("Read");
        clock.run(3000);
        arrives(QByteArray::fromHex("D2 04 06"));
        clock.run(3000);
        hangUp();
    });
    const int row = plant().list().rowOf("4_1_1_G01_P0104");
    QStringList shown;
    for (int column = 0; column < plant().list().columnCount(); ++column)
        shown << plant().list().index(row, column).data().toString();
    EXPECT_TRUE(shown.contains("123.4 bar")) << shown.join('|').toStdString();
}

TEST_F(ReadWriteWindow, AWriteGoesThroughItsPasses)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Write");
        clock.run(15000);
        arrives("\x01\x06");
        clock.run(3000);
        EXPECT_EQ(lines().filter("---"),
                  QStringList({"--- Writing process start ---", "--- Step 1/3: Writing in RAM ---",
                               "--- Step 2/3: Writing in EEPROM ---", "--- Step 3/3: Writing check ---",
                               "--- Writing process end ---"}));
        EXPECT_FALSE(part<QWidget>("failedChecks")->isVisible());
        desktop.script.expect(texts(540));
        press("Write");
        hangUp();
    });
}

TEST_F(ReadWriteWindow, FailedChecksAndDoubtfulValuesAreListedUntilItCloses)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Write");
        clock.run(15000);
        arrives("\x02\x06");
        clock.run(3000);
        EXPECT_TRUE(part<QWidget>("failedChecks")->isVisible());
        EXPECT_EQ(label("lblFailed"), "Parameters not confirmed: 1");
        EXPECT_EQ(concerns(),
                  QStringList{QStringLiteral(
                      "INST11 \u203a States \u203a EN MOD: On was to be written, 2 was read back")});
        arrives("2400");
        press("Read");
        clock.run(3000);
        arrives("\x01\x06");
        EXPECT_EQ(label("lblFailed"),
                  QStringLiteral("Parameters not confirmed: 1  \u00b7  Doubtful values: 1"));
        EXPECT_EQ(
            concerns().value(1),
            QStringLiteral("INST11 \u203a States \u203a EN MOD: 4 bytes were waiting before the request: "
                           "read it again"));
        nothingIsClipped(*console_);
        picture(*console_, "frmReadWrite-concerns");
        clock.run(3000);
        hangUp();
    });
    open("4_1_1_G02_P0201", [&] {
        EXPECT_FALSE(part<QWidget>("failedChecks")->isVisible());
        EXPECT_EQ(concerns(), QStringList());
    });
}

TEST_F(ReadWriteWindow, ADoubtAloneIsToldAlone)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        arrives("0");
        press("Read");
        clock.run(3000);
        arrives("\x01");
        EXPECT_EQ(label("lblFailed"), "Doubtful values: 1");
        EXPECT_TRUE(part<QWidget>("failedChecks")->isVisible());
        clock.run(3000);
        hangUp();
    });
}

// Escape
TEST_F(ReadWriteWindow, EscapeAsksWhereverTheFocusIs)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_TRUE(desktop.script.boxes.empty()) << "an idle line has nothing to interrupt";
        EXPECT_TRUE(console_->isVisible()) << "and the window stays";
        connectByCable();
        press("Read");
        clock.run(3000);
        desktop.script.expect(question(texts), answers::kCancel);
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_EQ(desktop.script.boxes.size(), 1u) << "once";
        EXPECT_EQ(session.COMPort.Status, session::kBusy);
        QTest::keyClick(list(), Qt::Key_Down);
        EXPECT_EQ(desktop.script.boxes.size(), 1u);
        desktop.script.expect(question(texts), answers::kYes);
        QTest::keyClick(console_, Qt::Key_Escape);
        EXPECT_EQ(session.COMPort.Status, session::kConnected);
        EXPECT_EQ(selectedLine(), texts(502));
        desktop.script.expect(question(texts), answers::kNo);
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
        EXPECT_EQ(selectedLine(), texts(575));
        EXPECT_TRUE(console_->isVisible());
    });
}

// Closing
TEST_F(ReadWriteWindow, ABusyLineKeepsItOpenAndAConnectedOneDoesNot)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Read");
        EXPECT_FALSE(console_->close());
        EXPECT_TRUE(console_->isVisible());
        press("Exit");
        choose("mnuExit");
        EXPECT_TRUE(console_->isVisible()) << "its commands are off";
        clock.run(3000);
        arrives("\x01\x06");
        clock.run(3000);
        press("Exit");
        EXPECT_FALSE(console_->isVisible());
    });
    EXPECT_EQ(session.COMPort.Status, session::kConnected) << "the connection lives on";
    clock.run(30000);
    EXPECT_EQ(said().last(), readRequest("00", 1, 0, 1)) << "and is polled";
}

TEST_F(ReadWriteWindow, TheProgramClosesItWhateverTheLineDoes)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Read");
        desktop.unloadForm("frmReadWrite");
        EXPECT_FALSE(console_->isVisible());
    });
}

TEST_F(ReadWriteWindow, ReopenedOnAnotherGroupItShowsTheConnectionAndRefusesItsItems)
{
    start();
    open("1_1", [&] { connectByCable(); });
    open("1_2", [&] {
        EXPECT_EQ(label("lblGroup"), "ALPHA");
        EXPECT_EQ(lines(), QStringList({"*** CONNECTION TO: GRP1 ***", "Connected."}));
        EXPECT_EQ(selectedLine(), "Connected.");
        EXPECT_FALSE(toolButton("Connect")->isEnabled());
        for (const char* command : {"Read", "Write"}) {
            desktop.script.expect(texts(535) + " GRP1\r\n" + texts(536));
            press(command);
        }
        EXPECT_EQ(session.COMPort.Status, session::kConnected);
        hangUp();
        EXPECT_EQ(label("lblActivity"), texts.own("console.hint.cable").arg("ALPHA"));
    });
}

// Sorting
TEST_F(ReadWriteWindow, AClickOnTheHeaderSortsAndKeepsTheSelectedLine)
{
    start();
    open("1_1", [&] {
        connectByCable();
        hangUp();
        const QStringList arrived = lines();
        list()->setCurrentIndex(list()->model()->index(1, 0));
        ASSERT_EQ(selectedLine(), "Connected.");
        auto* header = list()->findChild<widgets::SortHeader*>();
        const auto click = [&](int column) {
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              QPoint(header->sectionViewportPosition(column) + 20, header->height() / 2));
        };
        EXPECT_EQ(header->arrowColumn(), -1);
        click(1);
        QStringList sorted = arrived;
        sorted.sort(Qt::CaseInsensitive);
        EXPECT_EQ(lines(), sorted);
        EXPECT_EQ(header->arrowColumn(), 1);
        EXPECT_TRUE(header->arrowAscending());
        EXPECT_EQ(selectedLine(), "Connected.");
        click(1);
        EXPECT_FALSE(header->arrowAscending());
        EXPECT_EQ(lines().first(), sorted.last());
        EXPECT_EQ(selectedLine(), "Connected.");
        click(0);
        EXPECT_EQ(header->arrowColumn(), 0);
        EXPECT_TRUE(header->arrowAscending());
    });
}

// A wait that blocks the program begins when nothing half open is left on the screen.
TEST_F(ReadWriteWindow, AWaitBeginsWhenMenusHaveClosed)
{
    start();
    open("1_1", [&] {
        bool menuOpen = true;
        port.onOutput = [&](const QByteArray& bytes) {
            if (bytes == "+++")
                menuOpen = QApplication::activePopupWidget() || part<QMenu>("mnuFile")->isVisible();
        };
        choose("mnuConnect");
        EXPECT_EQ(said().value(0), "+++");
        EXPECT_FALSE(menuOpen);
        clock.run(61000);
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
        port.forgetSent();
        entry("mnuConnect")->trigger();
        EXPECT_TRUE(port.sent().empty()) << "not inside the click";
        entry("mnuConnect")->trigger();
        settle();
        EXPECT_EQ(said().count("+++"), 1) << "a second click meanwhile is the same one";
        clock.run(61000);
        entry("mnuConnect")->trigger();
        port.forgetSent();
        console_->close();
        settle();
        EXPECT_TRUE(port.sent().empty()) << "the window has gone";
    });
}

TEST_F(ReadWriteWindow, ItFollowsTheLanguage)
{
    for (const char* language : {"IT_Italiano_1000", "RU_Russian_6000"}) {
        session.Language = session::LanguageSettings::fromIdentifier(language);
        if (!window())
            start();
        session.Language = session::LanguageSettings::fromIdentifier(language);
        open("4_1_1_G02_P0201", [&] {
            EXPECT_EQ(console_->windowTitle(), "Calidora\\" + texts(274));
            EXPECT_EQ(list()->model()->headerData(1, Qt::Horizontal).toString(), texts(103));
            EXPECT_EQ(label("lblActivity"), toolButton("Simulator")->isChecked()
                                                ? texts.own("console.hint.cable").arg("GRP1")
                                                : texts.own("console.hint.connect").arg("0551234567"));
            connectByCable();
            arrives("0");
            press("Read");
            clock.run(3000);
            arrives("\x01");
            EXPECT_EQ(label("lblFailed"), texts.own("read.doubtful.count").arg(1));
            nothingIsClipped(*console_);
            picture(*console_, "frmReadWrite-concerns");
            clock.run(3000);
            hangUp();
        });
    }
}

// The program ends on a live connection: the question tells, and the line is cut.
TEST_F(ReadWriteWindow, LeavingOnALiveConnectionCutsTheLine)
{
    start();
    open("1_1", [&] { connectByCable(); });
    desktop.script.expect(texts(524) + "\r\n" + texts.own("exit.connected"), answers::kNo);
    window()->close();
    EXPECT_EQ(session.COMPort.Status, session::kConnected);
    desktop.script.expect(texts(524) + "\r\n" + texts.own("exit.connected"), answers::kYes);
    window()->close();
    EXPECT_EQ(said().last(), "+++");
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(QDir(file("Log")).entryList({"*.log"}, QDir::Files).size(), 1);
}

TEST_F(ReadWriteWindow, ClosingTheCompanyCutsTheLine)
{
    start();
    open("1_1", [&] { connectByCable(); });
    desktop.script.expect(texts(503), answers::kYes);
    program.handlers().run("CloseDb");
    EXPECT_EQ(said().last(), "+++");
    EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
    clock.run(120000);
    EXPECT_EQ(said().last(), "+++");
}

} // namespace
