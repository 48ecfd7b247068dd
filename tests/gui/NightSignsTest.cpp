// The signs of the night: what is drawn beside the words, what it says when asked, and that no colour says
// anything alone.
#include "gui/ConsoleFixture.h"
#include "gui/DesktopLook.h"
#include "gui/Ink.h"
#include "platform/widgets/Icons.h"
#include "structure/PlantMarks.h"
#include "widgets/SortHeader.h"

#include <QHelpEvent>
#include <QListWidget>
#include <QScrollBar>
#include <QToolTip>

namespace {

using gui::cellOf;
using gui::inkOf;
using gui::leftmostInk;
using platform::answers::kYes;

// The colours that nothing else in the plant has.
const QColor kUnconfirmedInk("#C8372D");
const QColor kErrorInk("#D64545");
const QColor kWarningInk("#F2A33A");

class NightSigns : public gui::ConsoleFixture
{
protected:
    const QString key = "4_1_1_G02_P0201";
    const QStringList above{"3_1_1_G02", "2_1_1", "1_1", "Root"};

    int redOfNode(const QString& node)
    {
        const QModelIndex index = plant().tree().indexOf(node);
        tvwBus()->scrollTo(index);
        settle();
        return inkOf(cellOf(*tvwBus(), index), kUnconfirmedInk);
    }
    int redOfItem(const QString& item)
    {
        return inkOf(cellOf(*shownList(), plant().list().index(plant().list().rowOf(item), 0)),
                     kUnconfirmedInk);
    }
    // What the view says of a row when the pointer rests on it.
    static QString tipOf(QAbstractItemView& view, const QModelIndex& index)
    {
        view.scrollTo(index);
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        const QPoint place = view.visualRect(index).center();
        QHelpEvent rests(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &rests);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    QString tipOfNode(const QString& node) { return tipOf(*tvwBus(), plant().tree().indexOf(node)); }
    QString tipOfItem(const QString& item)
    {
        return tipOf(*shownList(), plant().list().index(plant().list().rowOf(item), 0));
    }
    void expectSigns()
    {
        for (const QString& node : above) {
            EXPECT_GT(redOfNode(node), 5) << qPrintable(node);
            EXPECT_TRUE(tipOfNode(node).contains(texts.own("mark.unconfirmed"))) << qPrintable(node);
        }
        EXPECT_EQ(redOfNode("2_1_2"), 0);
        EXPECT_FALSE(tipOfNode("2_1_2").contains(texts.own("mark.unconfirmed")));
        for (const char* view : {"mnuReportIcons", "mnuLargeIcons", "mnuSmallIcons", "mnuListIcons"}) {
            entry("frmListBus", view)->trigger();
            settle();
            EXPECT_GT(redOfItem(key), 5) << view;
            EXPECT_EQ(redOfItem("4_1_1_G02_P0202"), 0) << view;
        }
        EXPECT_TRUE(tipOfItem(key).contains(texts.own("mark.unconfirmed")));
        EXPECT_FALSE(tipOfItem("4_1_1_G02_P0202").contains(texts.own("mark.unconfirmed")));
    }
    QModelIndex rowOfLine(const QString& start) const
    {
        for (int row = 0; row < list()->model()->rowCount(); ++row) {
            const QModelIndex line = list()->model()->index(row, 1);
            if (line.data().toString().contains(start))
                return line;
        }
        return {};
    }
};

TEST_F(NightSigns, AnUnconfirmedWriteShowsInListAndTreeWhateverIsReloaded)
{
    start();
    tvwBus()->expandAll();
    clickNode("3_1_1_G02");
    for (const QString& node : above)
        EXPECT_EQ(redOfNode(node), 0) << qPrintable(node);
    open(key, [&] {
        connectByCable();
        writeInVain();
        hangUp();
    });
    expectSigns();
    entry("frmListBus", "mnuRefresh")->trigger();
    expectSigns();

    // Another language takes the company in anew.
    entry("frmTreeBus", "mnuLanguageRU")->trigger();
    ASSERT_EQ(session.Language.Code, "RU");
    tvwBus()->expandAll();
    clickNode("3_1_1_G02");
    expectSigns();
    EXPECT_TRUE(tipOfItem(key).contains(QStringLiteral("не подтверждено"))) << qPrintable(tipOfItem(key));
    picture(*window(), "signs");
    program.handlers().run("Pending");
    auto* list = desktop.form("frmPending")->findChild<QTreeView*>("lvwPending");
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 3; }));
    const QModelIndex write = list->model()->index(0, 0);
    EXPECT_TRUE(tipOf(*list, write).contains(texts.own("mark.unconfirmed")));
    QStringList cells;
    for (int column = 0; column < 4; ++column)
        cells << write.siblingAtColumn(column).data().toString();
    EXPECT_EQ(cells, (QStringList{QStringLiteral("РУ MOD"), QStringLiteral("Вкл"),
                                  QStringLiteral("GRP1\\INST11\\Состояния"),
                                  QStringLiteral("Выкл (не подтверждено)")}))
        << qPrintable(cells.join('|'));
}

TEST_F(NightSigns, EverySignSaysWhatItIs)
{
    runOnPlant("UPDATE tbParam SET mEnable = -1 WHERE mID <> 'P0101';"
               "UPDATE tbParametersUser SET State = 2 WHERE IDPar = 'P0102';");
    start();
    tvwBus()->expandAll();
    clickNode("3_1_1_G01");
    EXPECT_EQ(tipOfItem("4_1_1_G01_P0101"), texts.own("mark.readonly"));
    EXPECT_EQ(tipOfItem("4_1_1_G01_P0102"), texts.own("mark.added"));
    EXPECT_EQ(tipOfItem("4_1_1_G01_P0103"), "") << "nothing to say";
    clickNode("3_1_1_G02");
    EXPECT_EQ(tipOfItem(key), texts.own("mark.changed"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return tipOfNode("1_1") == texts.own("mark.changes"); }));
    EXPECT_EQ(tipOfNode("1_3"), "");
    // The screen reader hears what the eye sees.
    const QModelIndex item = plant().list().index(plant().list().rowOf(key), 0);
    EXPECT_EQ(item.data(Qt::AccessibleDescriptionRole).toString(), texts.own("mark.changed"));
    EXPECT_EQ(item.siblingAtColumn(1).data(Qt::ToolTipRole).toString(), "");
    const QModelIndex node = plant().tree().indexOf("1_1");
    EXPECT_EQ(node.data(Qt::AccessibleDescriptionRole).toString(), texts.own("mark.changes"));
}

// In the console: errors and warnings by ground, weight and sign, on a light desktop and on a dark one.
TEST_F(NightSigns, LinesThatWarnStandOut)
{
    for (const bool dark : {false, true}) {
        const gui::DesktopLook look(1.0, dark);
        if (!dark)
            start();
        clickNode("3_1_1_G02");
        open(key, [&] {
            connectByCable();
            session.cnDatabase.Execute(
                "UPDATE tbParametersUser SET Value = '1', State = 1 WHERE IDPar = 'P0201';");
            writeInVain();
            session.cnDatabase.Execute(
                "UPDATE tbParametersUser SET Value = '1', State = 1 WHERE IDPar = 'P0201';");
            press("Read");
            clock.run(3000);
            arrives(QByteArray("\x00\x06", 2));
            clock.run(3000);
            settle();
            const QModelIndex error = rowOfLine("Error!");
            const QModelIndex warning = rowOfLine("Unwritten values");
            const QModelIndex plain = rowOfLine("Connected.");
            ASSERT_TRUE(error.isValid() && warning.isValid() && plain.isValid())
                << qPrintable(lines().join('|'));
            ASSERT_EQ(warning.data(Qt::UserRole).toInt(), 2);
            list()->setCurrentIndex(plain);
            settle();
            EXPECT_GT(inkOf(cellOf(*list(), error), kErrorInk), 10) << "the sign of an error";
            EXPECT_EQ(inkOf(cellOf(*list(), warning), kErrorInk), 0);
            EXPECT_GT(inkOf(cellOf(*list(), warning), kWarningInk), 10) << "the sign of a warning";
            EXPECT_EQ(inkOf(cellOf(*list(), error), kWarningInk), 0);
            list()->setCurrentIndex(rowOfLine("Step 1/3"));
            settle();
            const auto groundOf = [&](const QModelIndex& line) {
                const QImage cell = cellOf(*list(), line);
                return cell.pixelColor(cell.width() - 4, cell.height() / 2);
            };
            EXPECT_NE(groundOf(error), groundOf(warning));
            EXPECT_NE(groundOf(error), groundOf(plain));
            EXPECT_NE(groundOf(warning), groundOf(plain));
            EXPECT_EQ(groundOf(error).lightness() < 128, dark) << "nothing glares in the dark";
            EXPECT_EQ(groundOf(warning).lightness() < 128, dark);
            // Also where it is selected the sign is there.
            list()->setCurrentIndex(error);
            settle();
            EXPECT_GT(inkOf(cellOf(*list(), error), kErrorInk), 10);
            EXPECT_TRUE(tipOf(*list(), error).startsWith("Error\n")) << qPrintable(tipOf(*list(), error));
            EXPECT_TRUE(tipOf(*list(), error).contains("Off was read back"));
            EXPECT_TRUE(tipOf(*list(), warning).startsWith("Warning\n"));
            EXPECT_EQ(tipOf(*list(), plain), "");
            const auto* failed = part<QListWidget>("lvwFailed");
            EXPECT_GT(inkOf(part<QLabel>("concernsSign")->grab().toImage(), kWarningInk), 10);
            EXPECT_EQ(failed->item(0)->toolTip(), failed->item(0)->text());
            picture(*console_, dark ? "console-lines-dark" : "console-lines");
            hangUp();
        });
    }
}

TEST_F(NightSigns, TheLineOfADoubtfulValueWarns)
{
    start();
    session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 0;");
    open(key, [&] {
        connectByCable();
        press("Read");
        clock.run(3000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        EXPECT_EQ(rowOfLine("Parameter value").data(Qt::UserRole).toInt(), 1);
        arrives("0"); // stands there when the request leaves
        press("Read");
        clock.run(3000);
        arrives("\x01");
        clock.run(3000);
        settle();
        int warnings = 0;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            warnings += list()->model()->index(row, 1).data(Qt::UserRole).toInt() == 2;
        EXPECT_GE(part<QListWidget>("lvwFailed")->count(), 1);
        EXPECT_EQ(warnings, 1) << qPrintable(lines().join('|'));
        const QModelIndex last = list()->model()->index(list()->model()->rowCount() - 2, 1);
        EXPECT_TRUE(last.data().toString().startsWith("Parameter value"))
            << qPrintable(last.data().toString());
        EXPECT_EQ(last.data(Qt::UserRole).toInt(), 2);
        hangUp();
    });
}

TEST_F(NightSigns, TheWordsOfALineThatWarnsCanBeRead)
{
    for (const bool dark : {false, true}) {
        const gui::DesktopLook look(1.0, dark);
        if (!dark)
            start();
        open(key, [&] {
            connectByCable();
            session.cnDatabase.Execute(
                "UPDATE tbParametersUser SET Value = '1', State = 1 WHERE IDPar = 'P0201';");
            writeInVain();
            const QModelIndex error = rowOfLine("Error!").siblingAtColumn(0);
            list()->setCurrentIndex(rowOfLine("Connected."));
            settle();
            const QImage cell = cellOf(*list(), error);
            const QColor ground = cell.pixelColor(1, cell.height() / 2);
            double best = 0;
            for (int y = 0; y < cell.height(); ++y) {
                for (int x = 0; x < cell.width(); ++x)
                    best = std::max(best, gui::contrastOf(cell.pixelColor(x, y), ground));
            }
            EXPECT_GT(best, 5.0) << (dark ? "dark" : "light");
            hangUp();
        });
    }
}

// A call with alarms, from the first ring to the notice: large, red and heard, until it was seen.
TEST_F(NightSigns, AnAlarmIsSeenAndHeardUntilItIsAcknowledged)
{
    start();
    auto* bell = control<QWidget>("Allarm");
    const auto side = [&] {
        return bell->findChild<QLabel*>()->pixmap(Qt::ReturnByValue).deviceIndependentSize().width();
    };
    const auto isWhollySeen = [&] {
        return window()->rect().contains(QRect(bell->mapTo(window(), QPoint()), bell->size()));
    };
    EXPECT_LT(side(), 20);
    arrives("RING");
    clock.run(3000);
    arrives("CONNECT");
    arrives("<NORTH><UNIT 2><High temperature>");
    clock.run(5000);
    arrives("<NORTH><End of call>");
    EXPECT_EQ(desktop.script.beeps, 0);
    clock.run(5000);
    settle();
    EXPECT_GE(side(), 40);
    EXPECT_GT(inkOf(bell->grab().toImage(), kUnconfirmedInk), 50) << "the frame around it";
    clock.run(3000);
    EXPECT_EQ(desktop.script.beeps, 3);
    clock.run(6000);
    const int heard = desktop.script.beeps;
    EXPECT_GE(heard, 6);
    EXPECT_EQ(heard % 3, 0);
    EXPECT_EQ(panel("Info"), texts(582));
    EXPECT_FALSE(bell->findChild<QLabel*>("text")->isVisible()) << "nothing beside it in its frame";
    for (const QSize& size : {QSize(1120, 720), QSize(1120, 300), QSize(640, 480), QSize(320, 240)}) {
        window()->resize(size);
        settle();
        EXPECT_TRUE(isWhollySeen()) << window()->width() << " x " << window()->height();
        const auto* info = control<QWidget>("Info")->findChild<QLabel*>("text");
        EXPECT_GE(info->width(), info->fontMetrics().horizontalAdvance(info->text())) << size.width();
        picture(*window(), QString("bell-%1x%2").arg(size.width()).arg(size.height()));
    }
    inside("frmMessage", [&](QDialog& notice) {
        EXPECT_TRUE(notice.findChild<QLabel*>("lblCalls")->text().contains("UNIT 2"));
    });
    QTest::mouseDClick(bell, Qt::LeftButton);
    EXPECT_EQ(played, 1);
    EXPECT_LT(side(), 20);
    EXPECT_EQ(inkOf(bell->grab().toImage(), kUnconfirmedInk), 0);
    clock.run(20000);
    EXPECT_LE(desktop.script.beeps, heard + 3) << "and the beeping ends";
    const int last = desktop.script.beeps;
    clock.run(20000);
    EXPECT_EQ(desktop.script.beeps, last);
}

// A text under a heading that begins like it begins where the heading does.
class NightHeadings : public NightSigns
{
protected:
    static void expectInLine(QTreeView& view, int row, int column)
    {
        const QModelIndex cell = view.model()->index(row, column);
        view.setCurrentIndex({});
        view.scrollTo(cell);
        settle();
        const int heading =
            leftmostInk(view.header()
                            ->viewport()
                            ->grab(QRect(view.header()->sectionViewportPosition(column), 0,
                                         view.header()->sectionSize(column) - 2, view.header()->height()))
                            .toImage());
        const int text = leftmostInk(cellOf(view, cell));
        EXPECT_GE(heading, 0);
        EXPECT_EQ(text, heading) << qPrintable(view.objectName()) << " column " << column;
    }
};

TEST_F(NightHeadings, CellsStandInLineWithTheirHeadings)
{
    start();
    entry("frmListBus", "mnuReportIcons")->trigger();
    clickNode("3_1_1_G01");
    plant().list().setColumnCaptions({"HHH", "HHH", "HHH"});
    structure::ListItem item = *plant().list().item("4_1_1_G01_P0103");
    item.subtext = item.detail = "HHH";
    plant().showItem(item);
    auto* report = lvwBus()->findChild<QTreeView*>("lvwBusReport");
    const int row = plant().list().rowOf(item.key);
    expectInLine(*report, row, 1);
    expectInLine(*report, row, 2);
    picture(*window(), "headings");
    open("4_1_1_G01_P0103", [&] {
        connectByCable();
        const QString first = list()->model()->index(0, 1).data().toString();
        const QString date = list()->model()->index(0, 0).data().toString();
        // The model is the console's own; what matters is that both begin with the same letters.
        ASSERT_EQ(list()->findChild<widgets::SortHeader*>()->count(), 2);
        const auto left = [&](int column) {
            auto* header = list()->header();
            return leftmostInk(header->viewport()
                                   ->grab(QRect(header->sectionViewportPosition(column), 0,
                                                header->sectionSize(column) - 2, header->height()))
                                   .toImage());
        };
        list()->setCurrentIndex({});
        settle();
        EXPECT_NEAR(left(0), leftmostInk(cellOf(*list(), list()->model()->index(0, 0))), 1);
        EXPECT_NEAR(left(1), leftmostInk(cellOf(*list(), rowOfLine("Connected."))), 1);
        hangUp();
    });
}

// Of a place the end matters: two that end alike look alike where there is little room.
TEST_F(NightHeadings, AFoundPlaceGivesWayAtItsBeginning)
{
    runOnPlant("UPDATE tbGroupsUser SET Name = 'AAAAAAAAAAAAAAAAAAAAAAAA' WHERE IDGrp = 1;"
               "UPDATE tbGroupsUser SET Name = 'ZZZZZZZZZZZZZZZZZZZZZZZZ' WHERE IDGrp = 2;"
               "UPDATE tbInstrumentsUser SET Name = 'UNIT';");
    start();
    program.handlers().run("Find");
    auto* found = desktop.form("frmFind")->findChild<QTreeView*>("lvwFound");
    type(desktop.form("frmFind")->findChild<QLineEdit*>("txtFind"), "en set");
    ASSERT_TRUE(QTest::qWaitFor([&] { return found->model()->rowCount() >= 2; }));
    QModelIndexList places;
    for (int row = 0; row < found->model()->rowCount() && places.size() < 2; ++row) {
        const QModelIndex place = found->model()->index(row, 2);
        const QChar first = place.data().toString().front();
        if (first != (places.isEmpty() ? QChar('A') : QChar('Z')))
            continue;
        if (places.isEmpty() ||
            place.data().toString().section('\\', 1) == places.first().data().toString().section('\\', 1))
            places << place;
    }
    ASSERT_EQ(places.size(), 2);
    found->setCurrentIndex({});
    found->setAlternatingRowColors(false);
    const auto alike = [&](int width) {
        found->header()->setStretchLastSection(false);
        found->header()->resizeSection(2, width);
        found->horizontalScrollBar()->setValue(found->horizontalScrollBar()->maximum());
        settle();
        return cellOf(*found, places[0]) == cellOf(*found, places[1]);
    };
    EXPECT_TRUE(alike(90));
    EXPECT_FALSE(alike(480));
}

} // namespace
