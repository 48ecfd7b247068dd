// What the catalogue lacks is not sent as a zero.
#include "bus/CatalogueNumber.h"

#include "platform/Recordset.h"
#include "support/BusFixture.h"
#include "support/Throws.h"

using namespace support;
using bus::ActionCode;
using platform::errors::kTypeMismatch;

namespace {

const char* const kNoNumbers[] = {"NULL", "''", "'read'", "'1.5'", "'0x10'", "' '", "'1 2'"};

class CatalogueNumberTest : public BusFixture
{
protected:
    int numberOf(const QString& sqlValue)
    {
        platform::Recordset row;
        row.Open("SELECT " + sqlValue + " AS mSize", session.cnDatabase);
        return bus::catalogueNumber(row, "mSize", texts);
    }
    // Tries an operation on one parameter whose catalogue row lacks something.
    void expectNothingSent(const QString& key, bool write)
    {
        openConsole(key);
        connectByHand();
        write ? console.Write_Param() : console.Read_Param();
        clock.run(60000);
        failures.expectOne(kTypeMismatch, "frmMain.tmrAction_Timer");
        EXPECT_TRUE(frames().isEmpty());
        EXPECT_EQ(status(), 2) << "the pass stands still";
        bus.truncateConnection();
        clock.run(60000);
    }
};

TEST_F(CatalogueNumberTest, WholeNumbersOfAnyColumnAreTaken)
{
    const std::pair<const char*, int> rows[] = {
        {"17", 17}, {"'17'", 17}, {"' 17 '", 17}, {"0", 0}, {"'-1'", -1}};
    for (const auto& [sql, number] : rows)
        EXPECT_EQ(numberOf(sql), number) << sql;
}

TEST_F(CatalogueNumberTest, AnythingElseFailsAndSaysWhat)
{
    for (const char* sql : kNoNumbers)
        EXPECT_EQ(errorOf([&] { numberOf(sql); }), kTypeMismatch) << sql;
    try {
        numberOf("'read'");
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.description, "The catalogue gives no number for mSize: \"read\".");
    }
}

TEST_F(CatalogueNumberTest, AReadWithoutItsNumbersSendsNothing)
{
    for (const char* column : {"mAddr", "mSize"}) {
        const QString former =
            support::column(plantFile(),
                            QStringLiteral("SELECT %1 FROM tbParam WHERE mID = 'P0201'").arg(column))
                .at(0);
        runOnPlant(QStringLiteral("UPDATE tbParam SET %1 = NULL WHERE mID = 'P0201'").arg(column));
        expectNothingSent("4_1_1_G02_P0201", false);
        runOnPlant(QStringLiteral("UPDATE tbParam SET %1 = %2 WHERE mID = 'P0201'").arg(column, former));
    }
    runOnPlant("UPDATE tbInstMem SET mReadCmd = 'x' WHERE mID = 2");
    expectNothingSent("4_1_1_G02_P0201", false);
}

TEST_F(CatalogueNumberTest, AWriteWithoutItsNumbersSendsNothingInAnyPass)
{
    const std::pair<const char*, const char*> rows[] = {{"tbParam", "mAddr"},
                                                        {"tbParam", "mSize"},
                                                        {"tbParam", "mWriteCmd"},
                                                        {"tbParam", "mWriteAddr"},
                                                        {"tbInstMem", "mWriteCmd"}};
    for (const char* parameter : {"P0201", "P0202"})
        for (const auto& [table, field] : rows) {
            SCOPED_TRACE(std::string(parameter) + ' ' + table + '.' + field);
            const QString where = QLatin1String(table) == QLatin1String("tbParam")
                                      ? QStringLiteral(" WHERE mID = '%1'").arg(parameter)
                                      : QStringLiteral(" WHERE mID = 2");
            const QString former =
                support::column(plantFile(), QStringLiteral("SELECT %1 FROM %2").arg(field, table) + where)
                    .at(0);
            runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1, Value = '1' WHERE IDPar = '%1'")
                           .arg(parameter));
            runOnPlant(QStringLiteral("UPDATE %1 SET %2 = NULL").arg(table, field) + where);
            expectNothingSent(QStringLiteral("4_1_1_G02_%1").arg(parameter), true);
            runOnPlant(QStringLiteral("UPDATE %1 SET %2 = '%3'").arg(table, field, former) + where);
        }
}

TEST_F(CatalogueNumberTest, ABitFieldWithoutAReadCommandSendsNothing)
{
    openConsole("4_1_1_G02_P0202");
    connectByHand();
    runOnPlant("UPDATE tbParametersUser SET State = 1, Value = '1' WHERE IDPar = 'P0202'; UPDATE tbInstMem "
               "SET mReadCmd = '' WHERE mID = 2");
    console.Write_Param();
    clock.run(60000);
    failures.expectOne(kTypeMismatch, "frmMain.tmrAction_Timer");
    EXPECT_EQ(bus.actionCode(), ActionCode::WritingRam);
    EXPECT_TRUE(frames().isEmpty());
}

// A parameter that lives in RAM only needs no address in the EEPROM.
TEST_F(CatalogueNumberTest, WithACommandOfZeroTheAddressIsNotAskedFor)
{
    runOnPlant("UPDATE tbParam SET mWriteCmd = '0', mWriteAddr = NULL WHERE mID = 'P0201'; "
               "UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0201'");
    openConsole("4_1_1_G02_P0201");
    connectByHand();
    console.Write_Param();
    clock.run(16000);
    EXPECT_EQ(frames().size(), 2) << "RAM, and the check's request";
}

TEST_F(CatalogueNumberTest, AGroupWhosePollCannotBeMadeIsRefused)
{
    for (const char* sql : {"UPDATE tbInstMem SET mReadCmd = NULL", "UPDATE tbInstMem SET mReadCmd = 'x'"}) {
        runOnPlant(sql);
        openConsole("1_1");
        op.expect("Attention! No possibility to connect to group: GRP1\r\nNo present instrument.");
        console.Connect();
        failures.expectOne(kTypeMismatch, "frmReadWrite/Search_AliveParGrp");
        EXPECT_TRUE(frames().isEmpty());
    }
}

} // namespace
