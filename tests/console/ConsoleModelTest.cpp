#include "console/ConsoleModel.h"

#include "support/BusFixture.h"

using namespace support;

namespace {

class ConsoleModelTest : public BusFixture
{
protected:
    QString activity() { return model.activity(texts, "GRP1"); }
};

TEST_F(ConsoleModelTest, TheLineOfActivityTellsTheNextStep)
{
    EXPECT_EQ(activity(), "Not connected. Press Connect to reach group GRP1.");
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
              QStringLiteral("Item 1 of 7  \u00b7  waiting for the answer: 2 s  \u00b7  about 0:35 left"));
    bus.abandonOperation();
    EXPECT_EQ(activity(), "Connected. Read or Write the selected item.");
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
    model.checkFailed("I", "G", "P");
    EXPECT_EQ(model.failedChecks(), QStringList{QStringLiteral("I \u203a G \u203a P")});
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
