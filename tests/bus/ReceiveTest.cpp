// Answers as they come in: recognised by length alone, decoded, stored, compared.
#include "support/BusFixture.h"
#include "values/StringValue.h"

using namespace support;
using bus::ActionCode;

namespace {

class ReceiveTest : public BusFixture
{
protected:
    // Begins to read one item, up to the moment at which its first answer is awaited.
    void await(const QString& key)
    {
        openConsole(key);
        connectByHand();
        console.Read_Param();
        clock.run(3000);
        EXPECT_EQ(logged().last(), texts(546));
    }
    // Begins a write of one parameter and goes on to the read-back.
    void awaitCheck(const QString& key)
    {
        openConsole(key);
        connectByHand();
        console.Write_Param();
        EXPECT_TRUE(waitFor(ActionCode::Checking));
        clock.run(3000);
        EXPECT_EQ(logged().last(), "Waiting for ready...");
    }
    void finish()
    {
        clock.run(3000);
        EXPECT_EQ(status(), 1);
    }
};

TEST_F(ReceiveTest, AnAnswerNeedsOneByteBeyondItsSize)
{
    await("4_1_1_G01_P0104");
    arrives(QByteArray::fromHex("D2 04"));
    clock.run(600000);
    EXPECT_EQ(bus.actionCode(), ActionCode::Reading);
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(bus.received().size(), 2);
    arrives("!");
    EXPECT_EQ(logged().last(), "Parameter value: 123.4");
    EXPECT_EQ(value(1, 1, "P0104"), "123.4");
    finish();
}

TEST_F(ReceiveTest, TheAnswerMayComeInAnyPieces)
{
    for (const bool byteByByte : {false, true}) {
        await("4_1_1_G01_P0104");
        const QByteArray answer = QByteArray::fromHex("D2 04 06");
        byteByByte ? arrivesByteByByte(answer) : arrives(answer + "much more behind it");
        EXPECT_EQ(logged().last(), "Parameter value: 123.4");
        EXPECT_TRUE(bus.received().isEmpty());
        finish();
        console.Disconnect();
        arrives("\r");
        EXPECT_EQ(status(), 0);
    }
}

TEST_F(ReceiveTest, ALateAnswerIsAsGoodAsAQuickOne)
{
    await("4_1_1_G01_P0104");
    clock.run(3600 * 1000);
    arrives(QByteArray::fromHex("D2 04 06"));
    EXPECT_EQ(value(1, 1, "P0104"), "123.4");
    finish();
}

TEST_F(ReceiveTest, WhatStoodInTheBufferCountsToTheNextAnswer)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    arrives("\x01\x02");
    console.Read_Param();
    arrives(QByteArray(5, '\x00'));
    EXPECT_EQ(bus.received().size(), 7) << "no record is in hand yet, so nothing is taken";
    EXPECT_EQ(value(1, 1, "P0104"), "466");
    clock.run(3000);
    arrives("\x03");
    EXPECT_EQ(value(1, 1, "P0104"), "51.3") << "of the first two bytes, little end first";
    finish();
}

TEST_F(ReceiveTest, ALateAnswerToThePollIsTakenForTheRecords)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    clock.run(30000);
    ASSERT_EQ(bus.actionCode(), ActionCode::Polling);
    arrives("a");
    console.Read_Param();
    clock.run(3000);
    arrives(QByteArray::fromHex("04 06"));
    EXPECT_EQ(logged().last(), "Parameter value: " + value(1, 1, "P0104"));
    EXPECT_EQ(value(1, 1, "P0104"), "112.1") << "61 04";
}

TEST_F(ReceiveTest, AReadValueEndsTheChangedMark)
{
    runOnPlant("UPDATE tbParametersUser SET State = 1, Value = '1' WHERE IDPar = 'P0106'");
    await("4_1_1_G01_P0106");
    arrives(QByteArray::fromHex("32 00 06"));
    EXPECT_EQ(value(1, 1, "P0106"), "50");
    EXPECT_EQ(state(1, 1, "P0106"), "0");
    EXPECT_EQ(events().last(), "1/2/GRP1/INST11/Parameter value: 50");
}

TEST_F(ReceiveTest, ATextIsFreedOfTrailingBlanksAndKeepsItsZerosAndApostrophes)
{
    await("4_1_1_G02_P0204");
    arrives(QByteArray("A\0'B\xE9   ", 8) + '\x06');
    EXPECT_EQ(
        column(plantFile(), "SELECT Hex(Value) FROM tbParametersUser WHERE IDPar = 'P0204' AND IDInst = 1"),
        QStringList{"41002742C3A9"});
    finish();
}

TEST_F(ReceiveTest, ATextIsTranslatedWhenTheLanguageIsRussian)
{
    setLanguage("RU_Russian_6000");
    const QByteArray wire = values::encodeString(QStringLiteral("КАМЕРА"), "RU", 1251, 8);
    await("4_1_1_G02_P0204");
    arrives(wire + '\x06');
    EXPECT_EQ(value(1, 1, "P0204"), QStringLiteral("КАМЕРА"));
}

TEST_F(ReceiveTest, ABlankAnswerToATextIsStoredAsNoValue)
{
    await("4_1_1_G02_P0204");
    arrives(QByteArray(9, ' '));
    EXPECT_EQ(value(1, 1, "P0204"), "NULL");
    finish();
}

// A whole bank: parameters of both sizes are cut out of its image.
TEST_F(ReceiveTest, ABankGivesAllItsParametersAndOneLine)
{
    await("2_1_2");
    EXPECT_EQ(frames().last().mid(0, 5), QByteArray("2A") + QByteArray::fromHex("01 00 40"))
        << "bank 1 comes first";
    QByteArray image(65, '\0');
    image[1] = 77;
    arrives(image);
    EXPECT_EQ(value(1, 2, "P1201"), "77");
    EXPECT_EQ(logged().last(), "Parameter value: OK");
    clock.run(3000);
    EXPECT_EQ(frames().last().mid(0, 5), QByteArray("2A") + QByteArray::fromHex("11 40 60"));
    image = QByteArray(97, '\xFF');
    image.replace(0, 5, QByteArray::fromHex("37 2C 01 01 2C"));
    arrives(image);
    EXPECT_EQ(value(1, 2, "P1101"), "5.5");
    EXPECT_EQ(value(1, 2, "P1102"), "300");
    EXPECT_EQ(value(1, 2, "P1103"), "300");
    EXPECT_EQ(state(1, 2, "P1101"), "0");
    finish();
    EXPECT_EQ(logged().filter("Parameter value").size(), 2);
    EXPECT_TRUE(logged().filter("Group parameters detected").isEmpty());
}

TEST_F(ReceiveTest, AParameterBeforeItsBankFailsAndTheValuesInFrontOfItStay)
{
    runOnPlant("UPDATE tbParam SET mAddr = 63 WHERE mID = 'P1102'");
    await("2_1_2");
    arrives(QByteArray(65, '\0'));
    clock.run(3000);
    arrives(QByteArray(97, '\x0A'));
    failures.expectOne(platform::errors::kInvalidCall, "frmMain/Extract_Param");
    EXPECT_EQ(value(1, 2, "P1101"), "1");
    EXPECT_EQ(value(1, 2, "P1102"), "300");
    finish();
}

TEST_F(ReceiveTest, AValueThatCantBeDecodedIsAFailureAndTheAnswerIsThere)
{
    runOnPlant("UPDATE tbParam SET mBitFirst = 7, mBitCount = 3 WHERE mID = 'P0202'");
    await("4_1_1_G02_P0202");
    arrives("\xFF\x06");
    EXPECT_EQ(failures.take().size(), 1u);
}

// The read-back.
TEST_F(ReceiveTest, TheCheckComparesTexts)
{
    struct
    {
        const char* stored;
        const char* answer;
        const char* line;
    } const rows[] = {
        {"'12.5'", "7D", "OK"},   {"'12.50'", "7D", "Error!"}, {"'12.5'", "7E", "Error!"},
        {"NULL", "7D", "Error!"}, {"''", "7D", "Error!"},
    };
    for (const auto& row : rows) {
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1, Value = %1 WHERE IDPar = 'P0101'")
                       .arg(row.stored));
        awaitCheck("4_1_1_G01_P0101");
        failures.take();
        arrives(QByteArray::fromHex(row.answer) + '\x06');
        EXPECT_EQ(logged().last(), row.line) << row.stored << ' ' << row.answer;
        finish();
        EXPECT_EQ(logged().last(), "--- Writing process end ---");
        EXPECT_EQ(state(1, 1, "P0101"), "0") << "the mark goes whatever the check said";
        console.Disconnect();
        arrives("\r");
    }
}

TEST_F(ReceiveTest, AnEmptyTextEqualsNullAndAnEmptyText)
{
    for (const char* stored : {"NULL", "''"}) {
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1, Value = %1 WHERE IDPar = 'P0204'")
                       .arg(stored));
        awaitCheck("4_1_1_G02_P0204");
        arrives(QByteArray(9, ' '));
        EXPECT_EQ(logged().last(), "OK") << stored;
        finish();
        console.Disconnect();
        arrives("\r");
    }
}

TEST_F(ReceiveTest, AMismatchIsListedUntilTheConsoleCloses)
{
    awaitCheck("4_1_1_G02_P0201");
    arrives("\x02\x06");
    ASSERT_EQ(model.failedChecks().size(), 1);
    EXPECT_EQ(model.failedChecks()[0].item, QStringLiteral("INST11 \u203a States \u203a EN MOD"));
    finish();
    EXPECT_EQ(model.failedChecks().size(), 1);
    console.unload();
    EXPECT_TRUE(model.failedChecks().isEmpty());
}

TEST_F(ReceiveTest, AnswersToWritesAreDiscardedAndDontMoveThePace)
{
    openConsole("4_1_1_G02_P0201");
    connectByHand();
    console.Write_Param();
    clock.run(3000);
    ASSERT_EQ(frames().size(), 1);
    clock.run(1500);
    arrives("\x06RING ATD OK CONNECT");
    EXPECT_TRUE(bus.received().isEmpty());
    clock.run(1500);
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingEeprom);
    arrives("\x06");
    EXPECT_TRUE(bus.received().isEmpty());
}

// A bank: decoded first, stored in one go, its failures told behind it.
TEST_F(ReceiveTest, NoBoxStandsWhileABankIsStored)
{
    runOnPlant("UPDATE tbParam SET mHW = mLW WHERE mID = 'P1102'; UPDATE tbParam SET mAddr = 63 WHERE mID = "
               "'P1103'");
    await("2_1_2");
    arrives(QByteArray(65, '\0'));
    clock.run(3000);
    QStringList told;
    const platform::FailureHook former = platform::setFailureHook([&](const platform::Failure& failure) {
        EXPECT_FALSE(session.cnDatabase.inTransaction());
        EXPECT_EQ(value(1, 2, "P1101"), "1") << "stored before anything is told";
        told << failure.procedure;
    });
    arrives(QByteArray(97, '\x0A'));
    platform::setFailureHook(former);
    EXPECT_EQ(told, QStringList({"Module/Compose_EngVal", "frmMain/Extract_Param"}));
    EXPECT_EQ(value(1, 2, "P1102"), "NULL");
    EXPECT_EQ(value(1, 2, "P1103"), "0") << "as it stood";
    EXPECT_EQ(logged().last(), texts(546)) << "no OK";
}

TEST_F(ReceiveTest, ABankThatTheEngineTakesBackIsNotHalfStored)
{
    runOnPlant("CREATE TRIGGER full BEFORE UPDATE ON tbParametersUser WHEN NEW.IDPar = 'P1102' BEGIN "
               "SELECT RAISE(ROLLBACK, 'disk full'); END");
    await("2_1_2");
    arrives(QByteArray(65, '\0'));
    clock.run(3000);
    arrives(QByteArray(97, '\x0A'));
    const auto reported = failures.take();
    ASSERT_EQ(reported.size(), 1u) << "one box";
    EXPECT_EQ(reported[0].procedure, "Module/Update_Param");
    for (const auto& [parameter, before] : {std::pair("P1101", "4.5"), {"P1102", "300"}, {"P1103", "0"}})
        EXPECT_EQ(value(1, 2, parameter), before);
    EXPECT_EQ(logged().last(), texts(546)) << "no OK";
    EXPECT_FALSE(session.cnDatabase.inTransaction());
    finish();
}

TEST_F(ReceiveTest, AValueThatCannotBeStoredCostsTheOthersNothing)
{
    runOnPlant("CREATE TRIGGER refused BEFORE UPDATE ON tbParametersUser WHEN NEW.IDPar = 'P1102' BEGIN "
               "SELECT RAISE(ABORT, 'refused'); END");
    await("2_1_2");
    arrives(QByteArray(65, '\0'));
    clock.run(3000);
    arrives(QByteArray(97, '\x0A'));
    failures.expectUnder("Module/Update_Param");
    EXPECT_EQ(value(1, 2, "P1101"), "1");
    EXPECT_EQ(value(1, 2, "P1102"), "300");
    EXPECT_EQ(value(1, 2, "P1103"), "2570");
}

// What fails is told behind the event, one box at a time, and the line goes on behind it.
TEST_F(ReceiveTest, TheLineGoesOnBehindABox)
{
    runOnPlant("UPDATE tbParam SET mHW = mLW WHERE mID IN ('P0101', 'P0104')");
    await("3_1_1_G01");
    int standing = 0, most = 0, told = 0;
    const platform::FailureHook former = platform::setFailureHook([&](const platform::Failure&) {
        most = std::max(most, ++standing);
        if (++told == 1)
            for (int record = 0; record < 4; ++record) {
                clock.run(3000);
                arrives("\x55\x55\x55");
            }
        --standing;
    });
    arrives("\x0A\x06");
    platform::setFailureHook(former);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(most, 1);
    EXPECT_EQ(frames().size(), 5);
}

// Bytes that stood there before.
TEST_F(ReceiveTest, AValueReadBehindWaitingBytesIsListedAsDoubtful)
{
    openConsole("3_1_1_G01");
    connectByHand();
    arrives("24");
    console.Read_Param();
    clock.run(3000);
    arrives("\x0A");
    clock.run(3000);
    arrives("\x0A\x06");
    EXPECT_EQ(model.doubts(), (QList<console::ConsoleModel::Doubt>{
                                  {QStringLiteral("INST11 \u203a Measures \u203a EN T1"), 2}}));
    clock.run(1000);
    arrives("zz");
    EXPECT_EQ(model.doubts().size(), 1) << "told once";
    arrives("l");
    clock.run(3000); // the pause began anew with what came in
    EXPECT_EQ(bus.received(), "l");
    arrives("\x0A\x06");
    EXPECT_EQ(model.doubts().size(), 2);
    EXPECT_EQ(model.doubts().last().bytes, 1);
    console.unload();
    EXPECT_TRUE(model.doubts().isEmpty());
}

TEST_F(ReceiveTest, ADoubtfulBankIsListedByItsInstrument)
{
    openConsole("2_1_2");
    connectByHand();
    arrives("\r");
    console.Read_Param();
    clock.run(3000);
    arrives(QByteArray(64, '\0'));
    EXPECT_EQ(model.doubts(), (QList<console::ConsoleModel::Doubt>{{"ALPHA", 1}}));
}

TEST_F(ReceiveTest, ACheckAndAnOldByteBehindWaitingBytesAreDoubtful)
{
    runOnPlant(
        "UPDATE tbParametersUser SET State = 0; UPDATE tbParametersUser SET State = 1, Value = '3' WHERE "
        "IDPar = 'P0202'");
    openConsole("4_1_1_G02_P0202");
    connectByHand();
    console.Write_Param();
    ASSERT_TRUE(waitFor(ActionCode::MergingRam));
    arrives("\x11");
    EXPECT_TRUE(model.doubts().isEmpty());
    clock.run(3000);
    arrives("\x22");
    EXPECT_EQ(model.doubts().size(), 1);
    EXPECT_EQ(model.doubts().last().item, QStringLiteral("INST11 \u203a States \u203a EN FAN"));
    ASSERT_TRUE(waitFor(ActionCode::MergingEeprom));
    clock.run(3000);
    arrives("\x11\x06");
    EXPECT_EQ(model.doubts().size(), 1);
    ASSERT_TRUE(waitFor(ActionCode::Checking));
    arrives("xyz");
    clock.run(3000);
    arrives("\x11\x06");
    EXPECT_EQ(model.doubts().size(), 2);
    EXPECT_EQ(model.doubts().last().bytes, 3);
}

TEST_F(ReceiveTest, ACheckThatNobodyCanReadIsNeverCalledOk)
{
    for (const char* stored : {"NULL", "''"}) {
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1, Value = %1 WHERE IDPar = 'P0202'; "
                                  "UPDATE tbParam SET mHW = mLW WHERE mID = 'P0202'")
                       .arg(stored));
        openConsole("4_1_1_G02_P0202");
        connectByHand();
        runOnPlant("UPDATE tbParam SET mType = 'BYTE' WHERE mID = 'P0202'");
        console.Write_Param();
        EXPECT_TRUE(waitFor(ActionCode::Checking));
        clock.run(3000);
        failures.take();
        arrives("\x01\x06");
        failures.expectOne(platform::errors::kDivisionByZero, "Module/Compose_EngVal");
        EXPECT_EQ(logged().last(), "Error!");
        EXPECT_EQ(model.failedChecks().size(), 1);
        finish();
        console.Disconnect();
        arrives("\r");
    }
}

// Nobody asked, so nobody is answered.
TEST_F(ReceiveTest, BytesWithoutARequestAreNoAnswer)
{
    runOnPlant("UPDATE tbInstMem SET mReadCmd = NULL WHERE mID = 1");
    openConsole("3_1_1_G01");
    runOnPlant("UPDATE tbInstMem SET mReadCmd = '1' WHERE mID = 1");
    connectByHand();
    runOnPlant("UPDATE tbInstMem SET mReadCmd = NULL WHERE mID = 1");
    console.Read_Param();
    clock.run(3000);
    failures.expectOne(platform::errors::kTypeMismatch, "frmMain.tmrAction_Timer");
    arrives("many bytes");
    clock.run(10000);
    EXPECT_EQ(value(1, 1, "P0101"), "12.3");
    EXPECT_TRUE(frames().isEmpty());
    EXPECT_EQ(status(), 2) << "it stands still until Escape";
}

} // namespace
