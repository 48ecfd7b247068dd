#include "instrument/CompanyFile.h"

#include "Bench.h"
#include "instrument/LoadError.h"

#include <QFile>
#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace instrument;
using testing::ElementsAre;

namespace {

// A type with a RAM bank from 0x10 (read 82, write 87), a read-only bank (read 83) and an EEPROM behind 69.
const char* const kCatalogue = R"(
INSERT INTO tbInstrument VALUES (1, 'COOL', '00', 16), (2, 'PLAIN', NULL, NULL);
INSERT INTO tbParamGroup VALUES ('G1', 1), ('G2', 2);
INSERT INTO tbParamType VALUES (1, 'REAL'), (2, 'ENUM'), (3, 'STRING'), (4, 'TIME_HM');
INSERT INTO tbInstMem VALUES (1, 'RAM', '82', '87', 16, 16), (2, 'INFO', '83', NULL, 0, 8), (3, 'LOST', '0', '0', 0, 4);
INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mMemBank, mAddr, mWriteAddr, mWriteCmd, mType, mSize,
                     mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL) VALUES
  ('SET',  'G1', 1, 1, 16,  1, '69', 'S_BYTE', 1, 0, 8, -128, 127, -128, 127, -50, 50),
  ('MODE', 'G1', 2, 1, 17,  2, '69', 'BIT',    1, 0, 2, 0, 3, 0, 3, 0, 3),
  ('FAN',  'G1', 2, 1, 17,  2, '69', 'BIT',    1, 4, 1, 0, 1, 0, 1, 0, 1),
  ('TEMP', 'G1', 1, 1, 18,  0, '0',  'WORD_L', 2, 0, 8, 0, 65535, 0, 6553.5, 0, 6000),
  ('TIME', 'G1', 4, 1, 20,  4, '69', 'BYTE',   1, 0, 8, 0, 255, 0, 76500, 0, 76500),
  ('NAME', 'G1', 3, 2,  0,  0, '0',  'STRING', 4, 0, 8, 0, 1, 0, 1, 0, 1),
  ('FAR',  'G1', 1, 1, 99,  0, '0',  'BYTE',   1, 0, 8, 0, 255, 0, 255, 0, 255),
  ('NONE', 'G2', 1, 3,  0,  0, '0',  'BYTE',   1, 0, 8, 0, 255, 0, 255, 0, 255);
)";

class CompanyFileTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile schema(QStringLiteral(CALIDORA_SCHEMA));
        ASSERT_TRUE(schema.open(QIODevice::ReadOnly));
        execute(schema.readAll().constData());
        execute(kCatalogue);
        execute("INSERT INTO tbGroupsUser VALUES (1, 'GRP1', NULL, '0211 5'), (2, 'GRP2', NULL, NULL);"
                "INSERT INTO tbInstrumentsUser VALUES (1, 1, 'cool', 'A', NULL, '00'), (1, 2, 'COOL', 'B', "
                "NULL, '0A')");
    }

    void execute(const char* statements)
    {
        SQLite::Database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(statements);
    }

    void value(int idInst, const char* idPar, const char* text)
    {
        SQLite::Database company(path.toStdString(), SQLite::OPEN_READWRITE);
        SQLite::Statement insert(company, "INSERT INTO tbParametersUser VALUES (1, ?, ?, 'G1', ?, 0)");
        insert.bind(1, idInst);
        insert.bind(2, idPar);
        if (text)
            insert.bind(3, text);
        insert.executeStep();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("company.mdb"));
};

TEST_F(CompanyFileTest, MakesAPlantOfEachGroup)
{
    const Company company = loadCompanyFile(path);
    ASSERT_EQ(company.plants.size(), 2u);
    EXPECT_EQ(company.plants[0].idGrp, 1);
    EXPECT_EQ(company.plants[0].phone, "0211 5");
    EXPECT_EQ(company.plants[0].instruments.size(), 2u);
    EXPECT_TRUE(company.plants[1].phone.isEmpty());
    EXPECT_TRUE(company.plants[1].instruments.empty());
}

TEST_F(CompanyFileTest, GivesAnInstrumentTheMemoryOfItsType)
{
    const Memory memory = loadCompanyFile(path).plants[0].instruments.at("00");
    const std::vector<Bank> banks{{82, 87, 16, QByteArray(16, char(0xFF))},
                                  {83, std::nullopt, 0, QByteArray(8, char(0xFF))}};
    EXPECT_EQ(memory.banks(), banks);
    EXPECT_EQ(memory.eeproms().size(), 1u);
    EXPECT_TRUE(memory.eeproms().contains(69));
}

TEST_F(CompanyFileTest, PutsEachValueWhereItBelongs)
{
    value(1, "SET", "-10");
    value(1, "MODE", "2");
    value(1, "FAN", "0");
    value(1, "TEMP", "466");
    value(1, "TIME", "02:30:00");
    value(1, "NAME", "AB");
    value(2, "SET", nullptr);
    const Company company = loadCompanyFile(path);
    const Memory& first = company.plants[0].instruments.at("00");
    EXPECT_EQ(first.read(82, 16, 6)->toHex(' '), "f6 ee 34 12 1e ff");
    EXPECT_EQ(first.read(83, 0, 5)->toHex(' '), "41 42 20 20 ff");
    EXPECT_EQ(first.eeproms().at(69).first(6).toHex(' '), "ff f6 ee ff 1e ff");
    EXPECT_EQ(company.plants[0].instruments.at("0A").read(82, 16, 1), hex("FF"));
    EXPECT_TRUE(std::none_of(company.warnings.begin(), company.warnings.end(), [](const QString& warning) {
        return warning.contains(QStringLiteral("parameter"));
    }));
}

TEST_F(CompanyFileTest, TellsWhatCanNotBe)
{
    execute("INSERT INTO tbInstrumentsUser VALUES (1, 3, 'COOL', 'C', NULL, '00'), (1, 4, 'COOL', 'D', NULL, "
            "NULL)");
    value(1, "SET", "1000");
    value(1, "FAR", "1");
    EXPECT_THAT(
        loadCompanyFile(path).warnings,
        ElementsAre("type PLAIN: bank 3 has no read command or no size",
                    "instrument 3 of group 1: the address 00 is taken",
                    "instrument 4 of group 1: the address \"\" can't be reached",
                    "parameter FAR of instrument 1 of group 1: the address 99 is in no bank",
                    "parameter SET of instrument 1 of group 1: \"1000\" can't be kept in its memory"));
}

TEST_F(CompanyFileTest, DriftsNumbersAloneAndAlwaysTheSameWay)
{
    value(1, "SET", "50");
    value(1, "MODE", "2");
    value(1, "TEMP", "466");
    value(1, "TIME", "02:30:00");
    const auto load = [this](bool drift) {
        return loadCompanyFile(path, {drift}).plants[0].instruments.at("00");
    };
    const QByteArray still = *load(false).read(82, 16, 6);
    const QByteArray moved = *load(true).read(82, 16, 6);
    EXPECT_EQ(*load(true).read(82, 16, 6), moved);

    const int set = qint8(moved[0]);
    EXPECT_THAT(set, testing::AnyOf(48, 49)) << "the limit is 50";
    EXPECT_EQ(moved[1], still[1]);
    const int temp = quint8(moved[2]) + 256 * quint8(moved[3]);
    EXPECT_NE(temp, 4660);
    EXPECT_NEAR(temp, 4660, 2);
    EXPECT_EQ(moved[4], still[4]);
    EXPECT_EQ(load(true).byteBehind(69, 1), quint8(moved[0])) << "RAM and EEPROM agree";
}

TEST_F(CompanyFileTest, AnswersOverTheWire)
{
    value(1, "TEMP", "466");
    Bench bench(loadCompanyFile(path).plants);
    bench.say("ATE0\r");
    ASSERT_EQ(bench.say("ATD02115\r"), "\r\nCONNECT 2400\r\n");
    EXPECT_EQ(bench.say(hex("303052120239")), hex("3412B9"));
}

TEST_F(CompanyFileTest, RefusesWhatIsNoCompany)
{
    QFile rubbish(folder.filePath(QStringLiteral("rubbish.mdb")));
    ASSERT_TRUE(rubbish.open(QIODevice::WriteOnly));
    rubbish.write(QByteArray(5000, 'x'));
    rubbish.close();
    EXPECT_THROW(loadCompanyFile(rubbish.fileName()), LoadError);
    EXPECT_THROW(loadCompanyFile(folder.filePath(QStringLiteral("missing.mdb"))), LoadError);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("missing.mdb"))));
    execute("DROP TABLE tbInstMem");
    EXPECT_THROW(loadCompanyFile(path), LoadError);
}

} // namespace
