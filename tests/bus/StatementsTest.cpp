#include "bus/Statements.h"

#include "support/BusFixture.h"

using namespace support;

namespace {

class StatementsTest : public BusFixture
{
protected:
    QStringList rows(const QString& statement, const QString& field)
    {
        platform::Recordset records;
        records.Open(statement, session.cnDatabase);
        QStringList found;
        for (; !records.Eof(); records.MoveNext())
            found << records.text(field);
        return found;
    }
};

TEST_F(StatementsTest, TheFilterNamesTheIdsThatAreThere)
{
    EXPECT_EQ(bus::operationFilter("3", "", "", ""), "AND (tbParametersUser.IDGrp = 3)) ");
    EXPECT_EQ(bus::operationFilter("3", "12", "", ""),
              "AND (tbParametersUser.IDGrp = 3) AND (tbParametersUser.IDInst = 12)) ");
    EXPECT_EQ(bus::operationFilter("3", "12", "G'1", ""),
              "AND (tbParametersUser.IDGrp = 3) AND (tbParametersUser.IDInst = 12) AND "
              "(tbParametersUser.IDParGrp = "
              "'G''1')) ");
    EXPECT_EQ(bus::operationFilter("3", "12", "G1", "P1"),
              "AND (tbParametersUser.IDGrp = 3) AND (tbParametersUser.IDInst = 12) AND "
              "(tbParametersUser.IDParGrp = "
              "'G1') AND (tbParametersUser.IDPar = 'P1')) ");
    EXPECT_EQ(bus::bankFilter("3", "12", "2"),
              "AND (tbParametersUser.IDGrp = 3) AND (tbParametersUser.IDInst = 12) "
              "AND (tbParam.mMemBank = '2')) ");
}

TEST_F(StatementsTest, ParametersComeByInstrumentGroupAndId)
{
    EXPECT_EQ(rows(bus::parameterStatement("EN", bus::operationFilter("1", "", "", "")), "IDPar"),
              QStringList({"P0101", "P0102", "P0103", "P0104", "P0105", "P0106", "P0107", "P0201", "P0202",
                           "P0203", "P0204", "P0301", "P0302", "P0303", "P1101", "P1102", "P1103", "P1201"}));
}

TEST_F(StatementsTest, AParameterWithoutARowInTheLanguageIsNotThere)
{
    EXPECT_EQ(rows(bus::parameterStatement("RU", bus::operationFilter("1", "2", "", "")), "IDPar"),
              QStringList({"P1101", "P1103"}));
}

TEST_F(StatementsTest, ARecordHoldsEverythingThatAFrameNeeds)
{
    platform::Recordset record;
    record.Open(bus::writeStatement("EN", bus::operationFilter("1", "1", "G02", "P0201")),
                session.cnDatabase);
    ASSERT_EQ(record.RecordCount(), 1);
    const std::pair<const char*, const char*> fields[] = {
        {"IDGrp", "1"},       {"DesGrp", "GRP1"},    {"Phone", "0551234567"},
        {"IDInst", "1"},      {"DesInst", "INST11"}, {"IDItem", "KT100"},
        {"Address", "00"},    {"IDParGrp", "G02"},   {"DesParGrp", "States"},
        {"IDPar", "P0201"},   {"DesPar", "EN MOD"},  {"Value", "1"},
        {"State", "1"},       {"mReadCmd", "17"},    {"mWriteCmd", "18"},
        {"KeyType", "ENUM"},  {"mAddr", "64"},       {"WriteCmdEE", "33"},
        {"mWriteAddr", "24"}, {"mType", "BYTE"},     {"mSize", "1"},
        {"mBitFirst", "0"},   {"mBitCount", "0"},    {"mLW", "0"},
        {"mHW", "255"},       {"mLR", "0"},          {"mHR", "255"},
        {"mLL", "0"},         {"mHL", "2"}};
    for (const auto& [name, expected] : fields)
        EXPECT_EQ(record.text(name), expected) << name;
}

TEST_F(StatementsTest, OnlyStateOneIsWritten)
{
    EXPECT_EQ(rows(bus::writeStatement("EN", bus::operationFilter("1", "", "", "")), "IDPar"),
              QStringList({"P0201", "P1101"}));
}

TEST_F(StatementsTest, ABankInUseIsOneRecordWithTheBanksAddressAndSize)
{
    const QString statement = bus::bankStatement("EN", bus::operationFilter("1", "", "", ""));
    EXPECT_EQ(rows(statement, "IDInst"), QStringList({"1", "1", "2", "2"}));
    EXPECT_EQ(rows(statement, "mMemBank"), QStringList({"1", "2", "1", "2"}));
    EXPECT_EQ(rows(statement, "mAddr"), QStringList({"0", "64", "0", "64"}));
    EXPECT_EQ(rows(statement, "mSize"), QStringList({"64", "96", "64", "96"}));
    EXPECT_EQ(rows(statement, "mReadCmd"), QStringList({"1", "17", "1", "17"}));
    EXPECT_EQ(rows(statement, "mWriteCmd"), QStringList({"2", "18", "2", "18"}));
}

TEST_F(StatementsTest, TheParametersOfABank)
{
    EXPECT_EQ(rows(bus::parameterStatement("EN", bus::bankFilter("1", "2", "2")), "IDPar"),
              QStringList({"P1101", "P1102", "P1103"}));
}

} // namespace
