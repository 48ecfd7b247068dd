// The company goes while the line lives: the line is cut first, and nothing that was received is lost.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace answers = platform::answers;
namespace images = bus::images;

namespace {

class CutLineTest : public BusFixture
{
protected:
    CutLineTest()
    {
        QObject::connect(&database, &database::Database::aboutToDisconnect, [this] { bus.cutLine(); });
        openConsole("1_1");
        mark();
    }
    void expectRest()
    {
        EXPECT_EQ(status(), 0);
        EXPECT_EQ(model.status(), 0);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        EXPECT_FALSE(bus.isOperating());
        EXPECT_FALSE(model.progressVisible());
        EXPECT_TRUE(bus.received().isEmpty());
        EXPECT_EQ(bus.parTrasm().IDGrp, "");
        EXPECT_TRUE(bus.parTrasm().AliveFrame.isEmpty());
        EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortOpen);
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
    // Nothing is left that would speak on the line or fail without a company.
    void expectSilence()
    {
        const qsizetype said = frames().size();
        clock.run(300000);
        EXPECT_EQ(frames().size(), said);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
        EXPECT_EQ(panels.text(Panel::Info), "");
        failures.expectNone();
    }
    QStringList descriptions() const
    {
        QStringList all;
        for (const QString& line : logLines())
            all << descriptionOf(line);
        return all;
    }
};

TEST_F(CutLineTest, EveryStateOfAConnectionEndsAsByEscapeWithoutItsQuestion)
{
    struct
    {
        const char* name;
        std::function<void()> reach;
    } const states[] = {
        {"connected", [] {}},
        {"polling", [this] { clock.run(30000); }},
        {"poll due", [this] { clock.run(29999); }},
        {"read begun", [this] { console.Read_Param(); }},
        {"read awaited", [this] { console.Read_Param(), clock.run(3000), arrives("half"); }},
        {"write", [this] { console.Write_Param(), waitFor(ActionCode::WritingEeprom); }},
        {"closing", [this] { console.Disconnect(); }},
    };
    for (const auto& [name, reach] : states) {
        SCOPED_TRACE(name);
        runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201'");
        openConsole("1_1");
        connectByHand();
        reach();
        const qsizetype said = frames().size();
        bus.cutLine();
        EXPECT_EQ(frames().mid(said), QList<QByteArray>{"+++"});
        expectRest();
        EXPECT_EQ(panels.text(Panel::Info), "");
        EXPECT_EQ(events(), QStringList());
        EXPECT_EQ(descriptions().value(0), "*** CONNECTION TO: GRP1 ***");
        EXPECT_EQ(descriptions().last(), "The operation has been cancelled and connection truncated.");
        EXPECT_TRUE(op.boxes.empty());
        expectSilence();
        for (const QString& log : logFiles())
            QFile::remove(file("Log/" + log));
    }
}

TEST_F(CutLineTest, ALinkThatIsBeingRaisedIsCutWithItsTimeOut)
{
    for (const bool cable : {false, true}) {
        if (model.simulatorPressed() != cable)
            console.Set_Simulator(true);
        console.Connect();
        bus.cutLine();
        EXPECT_EQ(frames().last(), "+++");
        expectRest();
        expectSilence();
    }
}

TEST_F(CutLineTest, AnIdleLineIsLeftAlone)
{
    bus.cutLine();
    EXPECT_TRUE(frames().isEmpty());
    EXPECT_TRUE(logFiles().isEmpty());
    EXPECT_EQ(status(), 0);
    bus.Close_COMConnection();
    bus.cutLine();
    EXPECT_EQ(status(), -1);
}

// Escape left a poll and a time-out armed; without a company they would fail.
TEST_F(CutLineTest, WhatEscapeLeftArmedGoesWithTheCompany)
{
    connectByHand();
    clock.run(10000);
    bus.truncateConnection();
    console.Connect();
    bus.truncateConnection();
    mark();
    database.Disconnect_Database();
    expectSilence();
}

TEST_F(CutLineTest, ClosingTheCompanyCutsTheLineBeforeItsFileIsClosed)
{
    connectByHand();
    clock.run(5000);
    console.unload();
    database.Disconnect_Database();
    EXPECT_EQ(sent().last(), "5000 +++");
    expectRest();
    EXPECT_EQ(descriptions(), QStringList({"*** CONNECTION TO: GRP1 ***", "Connected.",
                                           "The operation has been cancelled and connection truncated."}));
    EXPECT_TRUE(bus.parTrasm().Simulator) << "the choice of the closed console stays";
    expectSilence();
    ASSERT_TRUE(connectPlant());
    openConsole("1_1");
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(logged(), QStringList());
    connectByHand();
    EXPECT_EQ(status(), 1);
}

TEST_F(CutLineTest, AnsweredValuesNeverReachAnotherCompany)
{
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    const QString before = value(1, 1, "P0101");
    database.Disconnect_Database();
    ASSERT_TRUE(connectPlant());
    arrives(QByteArray(65, '\x40'));
    clock.run(10000);
    EXPECT_EQ(value(1, 1, "P0101"), before);
    failures.expectNone();
}

TEST_F(CutLineTest, APortThatFailsToSpeakIsToldAndTheRestHappens)
{
    connectByHand();
    port.setPortOpen(false);
    database.Disconnect_Database();
    failures.expectOne(platform::errors::kDeviceIo, "Module/Disconnect_Database");
    expectRest();
    EXPECT_EQ(logFiles().size(), 1);
    EXPECT_EQ(session.DbName, "");
}

// Alarms
TEST_F(CutLineTest, BetweenTheBlocksWhatCameIsInTheLogAndAnnounced)
{
    arrives("ATD<P><U><A>");
    arrives("<P><U><A>");
    clock.run(5000);
    ASSERT_EQ(bus.actionCode(), ActionCode::SecondBlock);
    int announced = 0;
    bus.onAlarms = [&] { ++announced; };
    database.Disconnect_Database();
    EXPECT_EQ(frames().last(), "+++");
    EXPECT_EQ(descriptions(),
              QStringList({"A", "The operation has been cancelled and connection truncated."}));
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(announced, 1);
    clock.run(10000);
    EXPECT_GT(op.beeps, 0);
    bus.Delete_Allarms();
    expectRest();
    expectSilence();
}

TEST_F(CutLineTest, ABlockThatHasPartlyComeIsKeptAsFarAsItGoes)
{
    struct
    {
        const char* block;
        QStringList rows;
    } const first[] = {{"<P><U><A><B><Ha", {"A", "B"}}, {"<P><U><A", {}}, {"", {}}, {"noise", {}}};
    for (const auto& [block, rows] : first) {
        if (session.DbName.isEmpty()) {
            ASSERT_TRUE(connectPlant());
        }
        arrives("ATD");
        arrives(block);
        database.Disconnect_Database();
        EXPECT_EQ(descriptions(),
                  rows + QStringList("The operation has been cancelled and connection truncated."));
        EXPECT_EQ(panels.picture(Panel::Allarm), rows.isEmpty() ? images::kRest : images::kAlarm) << block;
        bus.Delete_Allarms();
        expectSilence();
        for (const QString& log : logFiles())
            QFile::remove(file("Log/" + log));
    }
    ASSERT_TRUE(connectPlant());
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(5000);
    arrives("<P><End><x");
    database.Disconnect_Database();
    EXPECT_EQ(descriptions().mid(0, 2), QStringList({"A", "End"}));
}

// The folder of the logs was gone as the call ended, and is back as the company is closed.
TEST_F(CutLineTest, WhatNoLogFileTookGoesOutBeforeTheCompanyDoes)
{
    QDir(file("Log")).removeRecursively();
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(5000);
    clock.run(15000);
    ASSERT_EQ(status(), 0);
    EXPECT_FALSE(failures.take().empty());
    QDir().mkpath(file("Log"));
    database.Disconnect_Database();
    EXPECT_EQ(descriptions(), QStringList("A"));
    QDir(file("Log")).removeRecursively();
    QDir().mkpath(file("Log"));
    ASSERT_TRUE(connectPlant());
    bus.cutLine();
    EXPECT_EQ(descriptions(), QStringList()) << "once";
    failures.expectNone();
}

TEST_F(CutLineTest, ACallThatNobodyHasAnsweredYetIsNoAlarm)
{
    arrives("RING");
    database.Disconnect_Database();
    expectRest();
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kRest);
    expectSilence();
}

TEST_F(CutLineTest, APortThatVanishesUnderACallKeepsWhatCame)
{
    arrives("ATD");
    arrives("<P><U><A><B");
    port.vanish();
    clock.settle();
    failures.expectOne(platform::errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_EQ(descriptions(),
              QStringList({"A", "The port has vanished: the cable or adapter was pulled out."}));
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(panels.picture(Panel::COMSet), images::kPortClosed);
    EXPECT_EQ(status(), -1);
    clock.run(10000);
    EXPECT_GT(op.beeps, 0);
}

} // namespace
