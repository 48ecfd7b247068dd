// The three passes of a write: RAM, EEPROM, read-back.
#include "bus/Frames.h"
#include "support/BusFixture.h"
#include "values/StringValue.h"

using namespace support;
using bus::ActionCode;
using bus::readRequest;
using bus::writeRequest;

namespace {

class SequenceWriteTest : public BusFixture
{
protected:
    // One parameter of the group's master is changed and nothing else; its console opens on a live
    // connection.
    void change(const QString& parameter, const QString& group, const QString& sqlValue)
    {
        runOnPlant("UPDATE tbParametersUser SET State = 0");
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1, Value = %1 WHERE IDPar = '%2'")
                       .arg(sqlValue, parameter));
        openConsole(QStringLiteral("4_1_1_%1_%2").arg(group, parameter));
        connectByHand();
    }
    // The frame of the RAM pass, then the connection is given up.
    QByteArray ramFrame(const QString& parameter, const QString& group, const QString& sqlValue)
    {
        change(parameter, group, sqlValue);
        console.Write_Param();
        clock.run(3000);
        const QByteArray frame = frames().value(0);
        bus.truncateConnection();
        return frame;
    }
};

TEST_F(SequenceWriteTest, TwoParametersThreePassesEveryFrameAndLine)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0; "
               "UPDATE tbParametersUser SET State = 1, Value = '2' WHERE IDPar = 'P0201'; "
               "UPDATE tbParametersUser SET State = 1, Value = 'NEW ROOM' WHERE IDPar = 'P0204'");
    openConsole("3_1_1_G02");
    connectByHand();
    console.Write_Param();
    EXPECT_EQ(logged(), QStringList({"--- Writing process start ---", "--- Step 1/3: Writing in RAM ---"}));
    clock.run(21000);
    EXPECT_EQ(frames(), QList<QByteArray>(
                            {writeRequest("00", 18, 64, 1, "\x02"), writeRequest("00", 18, 66, 8, "NEW ROOM"),
                             writeRequest("00", 33, 24, 1, "\x02"), writeRequest("00", 33, 26, 8, "NEW ROOM"),
                             readRequest("00", 17, 64, 1)}));
    QStringList times;
    for (const QString& line : sent())
        times << line.section(' ', 0, 0);
    EXPECT_EQ(times, QStringList({"3000", "6000", "12000", "15000", "21000"}));
    clock.run(700);
    arrives("\x02\x06");
    clock.run(3000);
    EXPECT_EQ(frames().last(), readRequest("00", 17, 66, 8));
    EXPECT_TRUE(sent().last().startsWith("24700 "));
    arrives("OLD ROOM\x06");
    clock.run(3000);
    EXPECT_EQ(
        logged().mid(2),
        QStringList({"Parameters group writing into RAM: [States] - parameter: [EN MOD]",
                     "Parameters group writing into RAM: [States] - parameter: [EN TXT]",
                     "--- Step 2/3: Writing in EEPROM ---",
                     "Parameters group writing into EEPROM: [States] - parameter: [EN MOD]",
                     "Parameters group writing into EEPROM: [States] - parameter: [EN TXT]",
                     "--- Step 3/3: Writing check ---",
                     "Group parameters detected: [States] - parameter: [EN MOD]",
                     "Reading request of 1 bytes from address 64 from instrument 00", "Waiting for ready...",
                     "OK", "Group parameters detected: [States] - parameter: [EN TXT]",
                     "Reading request of 8 bytes from address 66 from instrument 00", "Waiting for ready...",
                     "Error!", "--- Writing process end ---"}));
    EXPECT_EQ(state(1, 1, "P0201"), "0");
    EXPECT_EQ(state(1, 1, "P0204"), "0") << "the mark goes although the check failed";
    EXPECT_EQ(value(1, 1, "P0204"), "NEW ROOM");
    EXPECT_EQ(status(), 1);
}

TEST_F(SequenceWriteTest, AParameterThatLivesInRamTakesItsTimeInTheEepromPassAndSendsNothing)
{
    change("P0101", "G01", "'12.5'");
    console.Write_Param();
    clock.run(6000);
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingEeprom);
    clock.run(3000);
    EXPECT_EQ(logged().last(), "Parameters group writing into EEPROM: [Measures] - parameter: [EN T1]");
    clock.run(3000);
    EXPECT_EQ(bus.actionCode(), ActionCode::Checking);
    EXPECT_EQ(frames(), QList<QByteArray>{writeRequest("00", 2, 0, 1, "\x7D")});
    clock.run(3000);
    EXPECT_EQ(frames().last(), readRequest("00", 1, 0, 1));
}

TEST_F(SequenceWriteTest, ABitFieldGoesOnToItsEepromStepWithAnyCommand)
{
    runOnPlant("UPDATE tbParam SET mWriteCmd = '0' WHERE mID = 'P0202'");
    change("P0202", "G02", "'1'");
    console.Write_Param();
    clock.run(6000);
    arrives(QByteArray(2, '\0'));
    EXPECT_TRUE(waitFor(ActionCode::MergingEeprom));
    clock.run(3000);
    arrives(QByteArray(2, '\0'));
    EXPECT_EQ(frames().last(), writeRequest("00", 0, 25, 1, "\x04"));
}

TEST_F(SequenceWriteTest, TheDataBytesOfEachWireType)
{
    struct
    {
        const char* parameter;
        const char* group;
        const char* value;
        QByteArray frame;
    } const rows[] = {
        {"P0101", "G01", "'12.5'", writeRequest("00", 2, 0, 1, "\x7D")},
        {"P0104", "G01", "'123.4'", writeRequest("00", 2, 4, 2, QByteArray::fromHex("D204"))},
        {"P0105", "G01", "'123.4'", writeRequest("00", 2, 6, 2, QByteArray::fromHex("04D2"))},
        {"P0106", "G01", "'5'", writeRequest("00", 2, 8, 2, {})},
        {"P0107", "G01", "'5'", writeRequest("00", 2, 10, 2, {})},
        {"P0102", "G01", "'-10'",
         writeRequest("00", 2, 1, 1, {})}, // no encoder: the length byte stands alone
        {"P0103", "G01", "'45.6'", writeRequest("00", 2, 2, 2, {})},
        {"P0204", "G02", "'AB'", writeRequest("00", 18, 66, 8, "AB      ")},
        {"P0204", "G02", "NULL", writeRequest("00", 18, 66, 8, "        ")},
        {"P0204", "G02", "'it''s'", writeRequest("00", 18, 66, 8, "it's    ")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ramFrame(row.parameter, row.group, row.value).toHex(' '), row.frame.toHex(' '))
            << row.parameter << ' ' << row.value;
}

TEST_F(SequenceWriteTest, AnUnknownValueStillSendsAFrameWithItsLength)
{
    const QByteArray frame = ramFrame("P0104", "G01", "NULL");
    failures.take();
    EXPECT_EQ(frame.mid(0, 5), QByteArray::fromHex("30 30 02 04 02"));
}

TEST_F(SequenceWriteTest, ATextTooLongFailsAndItsFrameCarriesNoData)
{
    EXPECT_EQ(ramFrame("P0204", "G02", "'MUCH TOO LONG'"), writeRequest("00", 18, 66, 8, {}));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Compose_Str");
}

TEST_F(SequenceWriteTest, ATextIsTranslatedWhenTheLanguageIsRussian)
{
    setLanguage("RU_Russian_6000");
    const QByteArray wire = values::encodeString(QStringLiteral("СКЛАД"), "RU", 1252, 8);
    EXPECT_EQ(ramFrame("P0204", "G02", QStringLiteral("'СКЛАД'")).toHex(' '),
              writeRequest("00", 18, 66, 8, wire).toHex(' '));
}

TEST_F(SequenceWriteTest, OnlyChangedParametersOfTheItemAreWrittenAndUnmarked)
{
    runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0101', 'P0201', 'P1101')");
    openConsole("3_1_1_G02");
    connectByHand();
    console.Write_Param();
    ASSERT_TRUE(waitFor(ActionCode::Checking));
    clock.run(3000);
    arrives("\x01\x06");
    clock.run(3000);
    EXPECT_EQ(frames().size(), 3);
    EXPECT_EQ(state(1, 1, "P0201"), "0");
    EXPECT_EQ(state(1, 1, "P0101"), "1");
    EXPECT_EQ(state(1, 2, "P1101"), "1");
    EXPECT_EQ(state(1, 1, "P0203"), "0") << "every mark under the item goes, also that of an added parameter";
}

TEST_F(SequenceWriteTest, NothingChangedIsToldAndThePollGoesOn)
{
    runOnPlant("UPDATE tbParametersUser SET State = 0");
    openConsole("1_1");
    connectByHand();
    clock.run(12000);
    op.expect("There are not parameters to upgrade.");
    console.Write_Param();
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Information);
    EXPECT_EQ(status(), 1);
    clock.run(18000);
    EXPECT_EQ(frames().size(), 1);
}

TEST_F(SequenceWriteTest, ProgressRunsThroughEachPassAnew)
{
    runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0301', 'P0302', 'P0303')");
    openConsole("3_1_1_G03");
    connectByHand();
    console.Write_Param();
    QList<int> shown;
    for (int tick = 0; tick < 8; ++tick) {
        clock.run(3000);
        shown << model.progress();
    }
    EXPECT_EQ(shown, QList<int>({33, 66, 100, 0, 33, 66, 100, 0}));
    EXPECT_EQ(frames().size(), 5) << "the third lives in RAM only";
    failures.expectOne(platform::errors::kTypeMismatch, "Module/Extract_EngVal"); // a time text on a word
}

TEST_F(SequenceWriteTest, AFailureOfTheEncoderStillPacesThePass)
{
    change("P0104", "G01", "'not a number'");
    console.Write_Param();
    clock.run(6000);
    EXPECT_EQ(failures.take().size(), 1u);
    EXPECT_EQ(frames(), QList<QByteArray>{writeRequest("00", 2, 4, 2, {})});
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingEeprom);
}

TEST_F(SequenceWriteTest, TheReadFlagOfBanksSurvivesAWriteAndTheCheckDoesNotLookAtIt)
{
    openConsole("2_1_1");
    connectByHand();
    console.Read_Param();
    bus.abandonOperation();
    console.Write_Param();
    EXPECT_TRUE(bus.bankRead());
    ASSERT_TRUE(waitFor(ActionCode::Checking));
    clock.run(3000);
    EXPECT_EQ(frames().last(), readRequest("00", 17, 64, 1));
    EXPECT_TRUE(logged().contains("Group parameters detected: [States] - parameter: [EN MOD]"));
}

} // namespace
