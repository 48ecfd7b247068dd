// The read pass: one request a tick, every line of the list, the end of the pass.
#include "bus/Frames.h"
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
using bus::readRequest;

namespace {

class SequenceReadTest : public BusFixture
{
};

TEST_F(SequenceReadTest, OneParameterOnALiveConnection)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    console.Read_Param();
    EXPECT_EQ(logged(), QStringList{"--- Reading process start ---"});
    EXPECT_EQ(bus.actionCode(), ActionCode::Reading);
    EXPECT_TRUE(model.progressVisible());
    EXPECT_EQ(model.progress(), 0);
    EXPECT_EQ(bus.parTrasm().ItemKey, "4_1_1_G01_P0104");
    clock.run(2999);
    EXPECT_TRUE(frames().isEmpty());
    clock.run(1);
    EXPECT_EQ(sent(), QStringList{"3000 00<01><04><02><98>"});
    EXPECT_EQ(frames().last(), readRequest("00", 1, 4, 2));
    EXPECT_EQ(model.progress(), 100);
    clock.run(200);
    arrives(QByteArray::fromHex("D2 04 06"));
    clock.run(2999);
    EXPECT_EQ(status(), 2);
    clock.run(1);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_FALSE(model.progressVisible());
    EXPECT_FALSE(bus.isOperating());
    EXPECT_EQ(logged(),
              QStringList({"--- Reading process start ---",
                           "Group parameters detected: [Measures] - parameter: [EN PR1]",
                           "Reading request of 2 bytes from address 4 from instrument 00",
                           "Waiting for ready...", "Parameter value: 123.4", "--- Reading process end ---"}));
    EXPECT_EQ(events().mid(2),
              QStringList({"1/2/GRP1/-/--- Reading process start ---",
                           "1/2/GRP1/INST11/Group parameters detected: [Measures] - parameter: [EN PR1]",
                           "1/2/GRP1/INST11/Reading request of 2 bytes from address 4 from instrument 00",
                           "1/2/GRP1/INST11/Waiting for ready...", "1/2/GRP1/INST11/Parameter value: 123.4",
                           "1/2/GRP1/-/--- Reading process end ---"}));
}

TEST_F(SequenceReadTest, AGroupOfParametersIsWalkedInTheOrderOfItsIds)
{
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    const int sizes[] = {1, 1, 2, 2, 2, 2, 2};
    const int progress[] = {14, 28, 42, 57, 71, 85, 100};
    int address = 0;
    for (int i = 0; i < 7; ++i) {
        clock.run(3000);
        ASSERT_EQ(frames().size(), i + 1);
        EXPECT_EQ(frames().last(), readRequest("00", 1, address, sizes[i]));
        EXPECT_EQ(model.progress(), progress[i]);
        arrives(QByteArray(sizes[i] + 1, '\0'));
        address += sizes[i];
    }
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(logged().last(), "--- Reading process end ---");
    EXPECT_EQ(value(1, 1, "P0101"), "NULL") << "below its limit";
    for (const char* parameter : {"P0102", "P0103", "P0104", "P0105", "P0106", "P0107"})
        EXPECT_EQ(value(1, 1, parameter), "0") << parameter;
}

TEST_F(SequenceReadTest, AGroupIsReadByInstrumentAndBank)
{
    openConsole("1_1");
    connectByHand();
    console.Read_Param();
    const QByteArray expected[] = {readRequest("00", 1, 0, 64), readRequest("00", 17, 64, 96),
                                   readRequest("2A", 1, 0, 64), readRequest("2A", 17, 64, 96)};
    for (const QByteArray& request : expected) {
        clock.run(3000);
        ASSERT_EQ(frames().last(), request);
        arrives(QByteArray(97, '\0'));
    }
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(logged().filter("Parameter value: OK").size(), 4);
    EXPECT_EQ(logged()[1], "Reading request of 64 bytes from address 0 from instrument 00");
    EXPECT_TRUE(bus.bankRead());
}

TEST_F(SequenceReadTest, NothingToReadLeavesTheConnectionAsItIs)
{
    openConsole("3_1_1_G04");
    connectByHand();
    clock.run(10000);
    console.Read_Param();
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(logged(), QStringList());
    clock.run(20000);
    EXPECT_EQ(sent(), QStringList{"30000 00<01><00><01><9D>"}) << "the poll stays as it was armed";
}

TEST_F(SequenceReadTest, WithAutoDisconnectThePassEndsTheConnectionOnTheCable)
{
    openConsole("4_1_1_G01_P0101");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    console.Set_AutoDisconnect();
    clock.run(60000);
    EXPECT_EQ(status(), 2) << "not before the pass has ended";
    arrives("ab");
    clock.run(3000);
    EXPECT_EQ(bus.actionCode(), ActionCode::SimulatorClosing);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(sent().last(), "66000 +++");
    EXPECT_EQ(panels.picture(Panel::COMSet), bus::images::kPortOpen);
    EXPECT_EQ(logged().mid(logged().size() - 2),
              QStringList({"--- Reading process end ---", "*** DISCONNECTION TO: GRP1 ***"}));
    arrives("\r");
    EXPECT_EQ(status(), 0);
    clock.run(120000);
    EXPECT_EQ(sent().last(), "66000 +++|ATH|<0D>") << "nothing polls";
}

TEST_F(SequenceReadTest, WithAutoDisconnectThePassEndsTheConnectionOverTheModem)
{
    plugIn(instrument::LinkMode::Modem);
    openConsole("4_1_1_G01_P0101");
    connectOverModem();
    console.Set_AutoDisconnect();
    mark();
    console.Read_Param();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_EQ(status(), 0);
    const QStringList all = sent();
    ASSERT_EQ(all.size(), 3);
    EXPECT_TRUE(all[1].endsWith(" +++"));
    EXPECT_TRUE(all[2].endsWith(" ATH|<0D>"));
    EXPECT_EQ(all[2].section(' ', 0, 0).toInt() - all[1].section(' ', 0, 0).toInt(), 3000);
}

TEST_F(SequenceReadTest, TheTextsFollowTheLanguage)
{
    struct
    {
        const char* language;
        QString detected;
    } const rows[] = {{"IT_Italiano_1000", "[Misure] - "},
                      {"RU_Russian_6000", QStringLiteral("[Измерения]")}};
    for (const auto& row : rows) {
        setLanguage(row.language);
        openConsole("4_1_1_G01_P0101");
        connectByHand();
        console.Read_Param();
        clock.run(3000);
        EXPECT_TRUE(logged()[1].contains(row.detected)) << logged()[1].toStdString();
        EXPECT_EQ(logged().last(), texts(546));
        arrives("ab");
        EXPECT_EQ(logged().last(), texts(543) + " 9.7");
        clock.run(3000);
        console.Disconnect();
        arrives("\r");
    }
}

TEST_F(SequenceReadTest, AStatementThatFailsStartsNoOperation)
{
    openConsole("4_1_1_G01_P0101");
    connectByHand();
    runOnPlant("ALTER TABLE tbParamLanguage RENAME TO gone");
    console.Read_Param();
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].procedure, "frmReadWrite/Read_Param");
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 1);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
    clock.run(10000);
    EXPECT_TRUE(frames().isEmpty());
}

TEST_F(SequenceReadTest, AFieldThatFitsNoByteStopsThePassUntilEscape)
{
    runOnPlant("UPDATE tbParam SET mAddr = 256 WHERE mID = 'P0101'");
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    clock.run(60000);
    failures.expectOne(platform::errors::kInvalidCall, "frmMain.tmrAction_Timer");
    EXPECT_TRUE(frames().isEmpty());
    EXPECT_EQ(status(), 2);
    bus.abandonOperation();
    EXPECT_EQ(status(), 1);
}

TEST_F(SequenceReadTest, AReadBegunAnewTakesThePlaceOfTheOneThatRuns)
{
    openConsole("3_1_1_G01");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    arrives("ab");
    EXPECT_EQ(model.progress(), 14);
    console.Read_Param();
    EXPECT_EQ(model.progress(), 0);
    EXPECT_TRUE(model.progressVisible());
    arrives("early bytes");
    EXPECT_EQ(frames().size(), 1);
    clock.run(3000);
    EXPECT_EQ(frames().last(), frames().first()) << "from the first record on";
    EXPECT_EQ(model.progress(), 14);
}

TEST_F(SequenceReadTest, TheEndOfAPassEmptiesTheBuffer)
{
    openConsole("4_1_1_G02_P0201");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    arrives("\x01\x06");
    arrives("?");
    ASSERT_EQ(bus.received(), "?");
    clock.run(3000);
    EXPECT_TRUE(bus.received().isEmpty());
    runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201'");
    console.Write_Param();
    ASSERT_TRUE(waitFor(bus::ActionCode::Checking));
    clock.run(3000);
    arrives("\x01\x06");
    arrives("?");
    clock.run(3000);
    EXPECT_EQ(status(), 1);
    EXPECT_TRUE(bus.received().isEmpty());
}

} // namespace
