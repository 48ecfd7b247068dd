#include "console/ConsoleModel.h"

#include "support/BusFixture.h"

using namespace support;

namespace {

class ConsoleModelTest : public BusFixture
{
protected:
    ConsoleModelTest()
    {
        situation.group = "GRP1";
        situation.phone = "0555010110";
    }
    console::Situation situation;
    QString activity() { return model.activity(texts, situation); }
};

TEST_F(ConsoleModelTest, TheLineOfActivityTellsTheNextStep)
{
    EXPECT_EQ(activity(), "Not connected. Connect dials 0555010110. Press Simulation for the direct cable.");
    model.setSimulator(true);
    EXPECT_EQ(activity(),
              "Not connected. Connect reaches GRP1 over the direct cable. Release Simulation to dial.");
    model.setSimulator(false);
    situation.phone.clear();
    EXPECT_EQ(activity(), "Not connected. GRP1 has no phone number: press Simulation for the direct cable.");
    bus.EnableDisable_RWMenu(session::kBusy);
    clock.run(7000);
    EXPECT_EQ(activity(), "connecting: 7 s");
    bus.EnableDisable_RWMenu(session::kConnected);
    EXPECT_EQ(activity(), "Connected. Read or Write the selected item.");
}

TEST_F(ConsoleModelTest, AnOperationTellsItemWaitAndTimeLeft)
{
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    EXPECT_EQ(activity(), QStringLiteral("about 0:24 left"));
    clock.run(5000);
    EXPECT_EQ(activity(),
              QStringLiteral("Item 1 of 7  \u00b7  waiting for the answer: 2 s  \u00b7  about 0:19 left"));
    clock.run(4000);
    EXPECT_EQ(activity(), QStringLiteral("Item 1 of 7  \u00b7  no answer for 6 s, Esc interrupts  \u00b7  "
                                         "about 0:18 left"))
        << "while the answer stays out the rest doesn't grow";
    clock.run(20000);
    EXPECT_TRUE(activity().endsWith("about 0:18 left")) << qPrintable(activity());
    bus.abandonOperation();
    EXPECT_EQ(activity(), "0 of 7 read, interrupted. Connected. Read or Write the selected item.");
}

TEST_F(ConsoleModelTest, AnAnswerThatIsThereIsNoLongerAwaited)
{
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    clock.run(4000);
    EXPECT_TRUE(activity().contains("waiting for the answer: 1 s"));
    port.feed(QByteArray("\x55\x05\x06"));
    clock.settle();
    EXPECT_FALSE(activity().contains("waiting")) << qPrintable(activity());
    clock.run(2000);
    EXPECT_FALSE(activity().contains("waiting"));
    EXPECT_TRUE(activity().startsWith("Item 1 of 7")) << qPrintable(activity());
}

TEST_F(ConsoleModelTest, AnOperationEndsWithItsOutcome)
{
    model.operationBegan(15, 1);
    for (int record = 0; record < 15; ++record) {
        model.recordBegan(true);
        if (record != 7)
            model.recordDone();
    }
    int over = 0;
    QObject::connect(&model, &console::ConsoleModel::operationOver, &model, [&] { ++over; });
    model.applyStatus(session::kConnected);
    model.operationEnded();
    EXPECT_EQ(over, 1);
    EXPECT_EQ(activity(), "14 of 15 read, 1 failed. Connected. Read or Write the selected item.");
    model.operationEnded();
    EXPECT_EQ(over, 1) << "an operation ends once";
    model.operationBegan(2, 1);
    model.recordBegan(true);
    model.recordDone();
    model.recordBegan(true);
    model.recordDone();
    model.operationEnded();
    EXPECT_TRUE(activity().startsWith("2 of 2 read. ")) << qPrintable(activity());
    model.forgetConcerns();
    EXPECT_EQ(activity(), "Connected. Read or Write the selected item.");
}

TEST_F(ConsoleModelTest, AWriteIsOneWayOfThreePasses)
{
    model.operationBegan(2, 3);
    model.recordBegan(false);
    EXPECT_TRUE(activity().startsWith(QStringLiteral("Pass 1 of 3  \u00b7  Item 1 of 2")))
        << qPrintable(activity());
    EXPECT_EQ(model.shownProgress(), 16);
    model.recordBegan(false);
    EXPECT_EQ(model.shownProgress(), 33);
    model.recordBegan(false);
    EXPECT_TRUE(activity().startsWith(QStringLiteral("Pass 2 of 3  \u00b7  Item 1 of 2")))
        << qPrintable(activity());
    for (int record = 0; record < 3; ++record)
        model.recordBegan(true);
    EXPECT_TRUE(activity().startsWith(QStringLiteral("Pass 3 of 3  \u00b7  Item 2 of 2")))
        << qPrintable(activity());
    EXPECT_EQ(model.shownProgress(), 100);
    model.recordDone();
    model.operationEnded();
    model.setProgress(40);
    EXPECT_EQ(model.shownProgress(), 40) << "what is no operation shows its own";
    model.applyStatus(session::kConnected);
    EXPECT_TRUE(activity().startsWith("1 of 2 written and confirmed, 1 failed.")) << qPrintable(activity());
}

TEST_F(ConsoleModelTest, TheLineOfActivityTellsWhatIsInTheWay)
{
    model.applyStatus(session::kConnected);
    situation.otherGroup = "ALPHA";
    EXPECT_EQ(activity(), "The line is on ALPHA. Disconnect to reach GRP1.");
    model.applyStatus(session::kBusy);
    situation.closing = true;
    clock.run(2000);
    EXPECT_EQ(activity(), "disconnecting: 2 s");
    situation.callComesIn = true;
    EXPECT_TRUE(activity().startsWith("An instrument is calling in")) << qPrintable(activity());
    situation.portClosed = true;
    EXPECT_TRUE(activity().startsWith("The serial port is not there")) << qPrintable(activity());
}

TEST_F(ConsoleModelTest, ChangedValuesAreShownWhereThereAreSomeAndTheLineIsFree)
{
    int shown = 0;
    model.setChangedValues(1);
    model.showChanges(); // nobody can show them
    EXPECT_EQ(model.changedValues(), std::nullopt);
    model.setShowChanges([&shown] { ++shown; });
    const std::pair<int, int> kRows[] = {{0, 0}, {1, 1}, {7, 2}};
    for (const auto& [values, times] : kRows) {
        model.setChangedValues(values);
        EXPECT_EQ(model.changedValues(), values);
        model.showChanges();
        EXPECT_EQ(shown, times) << values;
    }
    bus.EnableDisable_RWMenu(session::kBusy);
    EXPECT_EQ(model.changedValues(), std::nullopt);
    model.showChanges();
    EXPECT_EQ(shown, 2);
}

TEST_F(ConsoleModelTest, EachChangeIsAnnounced)
{
    int changes = 0, lines = 0, checks = 0;
    QObject::connect(&model, &console::ConsoleModel::changed, [&] { ++changes; });
    QObject::connect(&model, &console::ConsoleModel::lineAdded, [&](int row) { lines += row + 1; });
    QObject::connect(&model, &console::ConsoleModel::concernsChanged, [&] { ++checks; });
    model.setProgress(40);
    model.showProgress(true);
    model.setAutoDisconnect(true);
    model.setSimulator(true);
    model.applyStatus(session::kConnected);
    EXPECT_EQ(changes, 5);
    EXPECT_EQ(model.progress(), 40);
    EXPECT_TRUE(model.progressVisible());
    EXPECT_TRUE(model.autoDisconnectPressed());
    EXPECT_TRUE(model.simulatorPressed());
    model.addLine("a", "b");
    model.addLine("a", "c");
    EXPECT_EQ(lines, 3);
    model.checkFailed({"I", "G", "P", "4_1_1_G_P", "1", "2"});
    ASSERT_EQ(model.failedChecks().size(), 1);
    EXPECT_EQ(model.failedChecks()[0].item, QStringLiteral("I \u203a G \u203a P"));
    EXPECT_EQ(model.failedChecks()[0].check.key, "4_1_1_G_P");
    model.forgetConcerns();
    EXPECT_EQ(checks, 2);
    model.answerDoubtful("I", "G", "P", 3);
    model.answerDoubtful("I", "", "", 1);
    EXPECT_EQ(model.doubts(),
              (QList<console::ConsoleModel::Doubt>{{QStringLiteral("I \u203a G \u203a P"), 3}, {"I", 1}}));
    EXPECT_EQ(checks, 4);
    model.forgetConcerns();
    EXPECT_TRUE(model.doubts().isEmpty());
}

} // namespace
