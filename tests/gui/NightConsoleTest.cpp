// What the console must never leave unsaid: the line that is elsewhere, edits that a read replaces, writes
// that were not confirmed, a call that comes in, a port that went.
#include "bus/Frames.h"
#include "gui/ConsoleFixture.h"
#include "structure/PlantMarks.h"

#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

namespace {

class NightConsole : public gui::ConsoleFixture
{
protected:
    int marksOf(const QString& node)
    {
        const structure::TreeModel& tree = plant().tree();
        return tree.data(tree.indexOf(node), structure::TreeModel::MarkRole).toInt();
    }
};

TEST_F(NightConsole, OverAnotherGroupItSaysWhereTheLineIs)
{
    start();
    open("1_1", [&] {
        connectByCable();
        EXPECT_FALSE(part<QPushButton>("cmdLeaveOther")->isVisible());
    });
    settle();
    EXPECT_EQ(panel("Plant"), "GRP1");
    EXPECT_TRUE(control<QWidget>("Plant")->isVisible());
    open("1_2", [&] {
        EXPECT_EQ(activity(), "The line is on GRP1. Disconnect to reach ALPHA.");
        EXPECT_TRUE(part<QPushButton>("cmdLeaveOther")->isVisible());
        nothingIsClipped(*console_);
        picture(*console_, "console-elsewhere");
        QTest::mouseClick(part<QPushButton>("cmdLeaveOther"), Qt::LeftButton);
        settle();
        EXPECT_TRUE(activity().startsWith("disconnecting:")) << qPrintable(activity());
        arrives("\r");
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
        EXPECT_FALSE(part<QPushButton>("cmdLeaveOther")->isVisible());
    });
    settle();
    EXPECT_EQ(panel("Plant"), "");
    EXPECT_FALSE(control<QWidget>("Plant")->isVisible());
}

TEST_F(NightConsole, ItTellsWhichEditsAReadReplaces)
{
    start();
    clickNode("3_1_1_G02");
    open("4_1_1_G02_P0201", [&] {
        EXPECT_TRUE(part<QLabel>("lblUnwritten")->isVisible());
        EXPECT_EQ(part<QLabel>("lblUnwritten")->text(), "Unwritten values here that a read replaces: 1");
        connectByCable();
        press("Read");
        clock.run(3000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        settle();
        EXPECT_EQ(lines().last(), "Unwritten values that the read has replaced: 1");
        EXPECT_FALSE(part<QLabel>("lblUnwritten")->isVisible());
        EXPECT_TRUE(activity().startsWith("1 of 1 read. ")) << qPrintable(activity());
        EXPECT_TRUE(lines().contains("Parameter value: 0   (Off)")) << "the words beside the number";
        press("Read");
        clock.run(3000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        settle();
        EXPECT_EQ(lines().last(), "--- Reading process end ---") << "nothing was replaced";
        hangUp();
    });
    EXPECT_EQ(
        support::column(plantFile(), "SELECT Count(*) FROM tbEvent WHERE Description LIKE 'Unwritten%'"),
        QStringList{"0"})
        << "the line is the window's alone";
}

TEST_F(NightConsole, AWriteThatReplacesNothingSaysNothing)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Write");
        clock.run(15000);
        arrives(QByteArray("\x01\x06", 2));
        clock.run(3000);
        settle();
        EXPECT_EQ(lines().filter("replaced"), QStringList());
        EXPECT_TRUE(activity().startsWith("1 of 1 written and confirmed. ")) << qPrintable(activity());
        hangUp();
    });
}

TEST_F(NightConsole, AnUnconfirmedWriteIsRememberedUntilItIsReadAgain)
{
    start();
    clickNode("3_1_1_G02");
    const QString key = "4_1_1_G02_P0201";
    open(key, [&] {
        connectByCable();
        writeInVain();
        EXPECT_EQ(
            part<QListWidget>("lvwFailed")->item(0)->text(),
            QStringLiteral("INST11 \u203a States \u203a EN MOD: On was to be written, Off was read back"));
        EXPECT_TRUE(lines().filter("Error!").value(0).contains("Off was read back"))
            << qPrintable(lines().join('|'));
        EXPECT_TRUE(activity().startsWith("0 of 1 written and confirmed, 1 failed."))
            << qPrintable(activity());
        const auto* list = part<QTreeView>("lvwItems");
        const int error = int(lines().indexOf(lines().filter("Error!").value(0)));
        EXPECT_EQ(list->model()->index(error, 1).data(Qt::UserRole).toInt(), 3) << "it stands out";
        nothingIsClipped(*console_);
        picture(*console_, "console-unconfirmed");
    });
    using structure::kHoldsUnconfirmed;
    for (const char* node : {"3_1_1_G02", "2_1_1", "1_1", "Root"}) {
        EXPECT_TRUE(marksOf(node) & kHoldsUnconfirmed) << node;
    }
    EXPECT_FALSE(marksOf("2_1_2") & kHoldsUnconfirmed);
    const int row = plant().list().rowOf(key);
    EXPECT_TRUE(plant().list().index(row, 0).data(structure::ListModel::MarkRole).toInt() &
                kHoldsUnconfirmed);
    EXPECT_TRUE(panel("Waiting").contains("not confirmed: 1")) << qPrintable(panel("Waiting"));
    picture(*window(), "main-unconfirmed");

    program.handlers().run("Pending");
    auto* pending = desktop.form("frmPending");
    auto* list = pending->findChild<QTreeView*>("lvwPending");
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 3; }));
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), "EN MOD");
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), "On");
    EXPECT_EQ(list->model()->index(0, 2).data().toString(), "GRP1\\INST11\\States");
    EXPECT_EQ(list->model()->index(0, 3).data().toString(), "Off (not confirmed)");
    const auto* words = pending->findChild<QLabel*>("lblPending");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words->text().contains("Written, not confirmed: 1"); }))
        << qPrintable(words->text());
    EXPECT_FALSE(pending->findChild<QPushButton*>("cmdTakeBack")->isEnabled())
        << "there is no change any more";
    picture(*pending, "pending-unconfirmed");

    open(key, [&] {
        press("Read");
        clock.run(3000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        hangUp();
    });
    EXPECT_FALSE(marksOf("1_1") & kHoldsUnconfirmed);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 2; }));
}

TEST_F(NightConsole, ADoubleClickOnAFailedCheckGoesThere)
{
    start();
    clickNode("Root");
    open("1_1", [&] {
        connectByCable();
        session.cnDatabase.Execute(
            "UPDATE tbParametersUser SET State = 0 WHERE IDPar <> 'P0201' OR IDInst <> 1;");
        writeInVain();
        auto* failed = part<QListWidget>("lvwFailed");
        ASSERT_EQ(failed->count(), 1);
        emit failed->itemDoubleClicked(failed->item(0));
        EXPECT_FALSE(console_->isVisible());
        EXPECT_EQ(plant().selectedItem(), "4_1_1_G02_P0201");
    });
    EXPECT_EQ(session.COMPort.Status, session::kConnected);
}

TEST_F(NightConsole, ADeletedInstrumentTakesItsFailedChecksAlong)
{
    start();
    clickNode("3_1_1_G02");
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        writeInVain();
        hangUp();
    });
    clickNode("2_1_1");
    desktop.script.expect(texts(506), platform::answers::kYes);
    program.handlers().run("DeleteNode");
    EXPECT_TRUE(plant().memory().unconfirmed().empty());
}

TEST_F(NightConsole, ACallBehindItIsTold)
{
    start();
    open("1_1", [&] {
        EXPECT_TRUE(toolButton("Connect")->isEnabled());
        arrives("RING");
        EXPECT_TRUE(QTest::qWaitFor([&] { return activity().startsWith("An instrument is calling in"); }))
            << "the window looks every second";
        EXPECT_FALSE(toolButton("Connect")->isEnabled());
        EXPECT_EQ(panel("Plant"), "") << "whoever calls is not the plant that was dialled last";
        clock.run(70000);
        EXPECT_TRUE(QTest::qWaitFor([&] { return activity().startsWith("Not connected"); }));
        EXPECT_TRUE(toolButton("Connect")->isEnabled());
    });
}

TEST_F(NightConsole, APulledAdapterComesBackWithoutARestart)
{
    start();
    open("1_1", [&] {
        connectByCable();
        port.openFailure = platform::RuntimeError(platform::errors::kPortNumberInvalid, "gone");
        port.vanish();
        clock.settle();
        failures.take();
        settle();
        EXPECT_EQ(session.COMPort.Status, session::kPortClosed);
        EXPECT_TRUE(QTest::qWaitFor([&] { return activity().startsWith("The serial port is not there"); }))
            << qPrintable(activity());
        desktop.script.expect(texts(569));
        press("Connect");
        port.openFailure.reset();
        press("Connect");
        EXPECT_EQ(session.COMPort.Status, session::kBusy);
        clock.run(70000);
    });
}

TEST_F(NightConsole, ReadWriteAndThePanelTryALostPortToo)
{
    start();
    clickNode("Root");
    clickItem("1_1");
    port.openFailure = platform::RuntimeError(platform::errors::kPortNumberInvalid, "gone");
    port.vanish();
    clock.settle();
    failures.take();
    desktop.script.expect(texts(569) + "\r\n" + texts(568));
    program.handlers().run("ReadWrite");
    desktop.script.expect(texts(577) + "1 " + texts(578));
    QTest::mouseDClick(control<QWidget>("COMSet"), Qt::LeftButton);
    EXPECT_EQ(session.COMPort.Status, session::kPortClosed);
    port.openFailure.reset();
    QTest::mouseDClick(control<QWidget>("COMSet"), Qt::LeftButton);
    EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
}

TEST_F(NightConsole, SimulationIsTheDirectCable)
{
    start();
    open("1_1", [&] {
        EXPECT_EQ(activity(),
                  "Not connected. Connect dials 0551234567. Press Simulation for the direct cable.");
        EXPECT_EQ(toolButton("Simulator")->toolTip(), texts(278) + "\ndirect cable");
        EXPECT_TRUE(toolButton("Read")->toolTip().endsWith("(F7)"))
            << qPrintable(toolButton("Read")->toolTip());
        connectByCable();
        hangUp();
        EXPECT_TRUE(toolButton("Simulator")->isChecked()) << "the choice survives the connection";
        press("Simulator");
        EXPECT_FALSE(toolButton("Simulator")->isChecked()) << "at the first click";
        press("Simulator");
        EXPECT_TRUE(toolButton("Simulator")->isChecked());
    });
}

TEST_F(NightConsole, KeysConnectReadAndWrite)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        press("Simulator");
        QTest::keyClick(console_, Qt::Key_F6);
        settle();
        EXPECT_EQ(session.COMPort.Status, session::kBusy);
        arrives("ATA");
        clock.run(3000);
        QTest::keyClick(console_, Qt::Key_F7);
        settle();
        EXPECT_EQ(lines().last(), "--- Reading process start ---");
        clock.run(3000);
        arrives(QByteArray("\x00\x06", 2));
        clock.run(3000);
        desktop.script.expect(texts(540));
        QTest::keyClick(console_, Qt::Key_F8);
        settle();
        QTest::keyClick(console_, Qt::Key_F6, Qt::ShiftModifier);
        settle();
        arrives("\r");
        EXPECT_EQ(session.COMPort.Status, session::kLineIdle);
    });
}

TEST_F(NightConsole, OneBarGoesOverAllPasses)
{
    start();
    open("4_1_1_G02_P0201", [&] {
        connectByCable();
        press("Write");
        auto* bar = part<QProgressBar>("prgLoad");
        clock.run(3000);
        EXPECT_EQ(bar->value(), 33);
        EXPECT_TRUE(activity().startsWith(QStringLiteral("Pass 1 of 3"))) << qPrintable(activity());
        picture(*console_, "console-pass");
        clock.run(12000);
        arrives(QByteArray("\x01\x06", 2));
        clock.run(3000);
        hangUp();
    });
}

} // namespace
