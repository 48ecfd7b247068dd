#include "instrument/MemoryFile.h"

#include "Bench.h"
#include "instrument/LoadError.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace instrument;

namespace {

const char* const kTwoInstruments = R"(# a cold store
[plant 3]
phone 0211 / 23
call 3600 : <Plant 1><Unit 2><Alarm A>

[instrument 00]
bank 82 87 16 4 : 2C 01
  ff FF
# between two banks
bank 83 - 0 2 :
  01 02
[instrument 0a]
bank 82 87 0 1 : 00
)";

TEST(MemoryFile, ReadsPlantsInstrumentsAndBanks)
{
    const Plants plants = plantsFromText(QString::fromLatin1(kTwoInstruments), QStringLiteral("file"));
    ASSERT_EQ(plants.size(), 1u);
    const Plant& plant = plants.front();
    EXPECT_EQ(plant.idGrp, 3);
    EXPECT_EQ(plant.phone, "0211 / 23");
    ASSERT_EQ(plant.calls.size(), 1u);
    EXPECT_EQ(plant.calls.front(),
              (ScheduledCall{3600, {"<Plant 1><Unit 2><Alarm A>", "<Plant 1><End of report>"}}));
    ASSERT_EQ(plant.instruments.size(), 2u);
    const std::vector<Bank> banks{{82, 87, 16, hex("2C01FFFF")}, {83, std::nullopt, 0, hex("0102")}};
    EXPECT_EQ(plant.instruments.at("00").banks(), banks);
    EXPECT_EQ(plant.instruments.at("0a").read(82, 0, 1), hex("00"));
}

TEST(MemoryFile, ReadsBackWhatItWrites)
{
    Plant first = smallPlant(1, "02 11");
    first.calls = {{0, kReport}, {77, {"<A>", ""}}};
    first.instruments["02"];
    ASSERT_FALSE(first.instruments["03"].addBank({1, 2, 0, QByteArray(256, 'x')}));
    Plant second;
    second.idGrp = 2;
    const Plants plants{first, second};

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("plants.txt"));
    saveMemoryFile(plants, path);
    EXPECT_EQ(loadMemoryFile(path), plants);
}

TEST(MemoryFile, RefusesWithLineAndReason)
{
    const struct
    {
        const char* text;
        int line;
        const char* reason;
    } rows[] = {
        {"", 1, "no plant in the file"},
        {"bank 1 2 0 1 : 00", 1, "a \"[plant <number>]\" has to come first"},
        {"[plant 1]\nbank 1 2 0 1 : 00", 2, "an \"[instrument <address>]\" has to come first"},
        {"[plant 1]\n[instrument 00]\n[plant 2]\neeprom 5 : 00", 4,
         "an \"[instrument <address>]\" has to come first"},
        {"[plant one]", 1, "\"one\" is no number from 1 to 2147483647"},
        {"[plant 1]\n[plant 1]", 2, "plant 1 stands twice"},
        {"[plant 1]\n[instrument 00]\n[instrument 00]", 3, "instrument 00 stands twice"},
        {"[plant 1]\n[instrument 000]", 2, "an address has two characters"},
        {"[plant 1", 1, "a section is \"[plant <number>]\" or \"[instrument <address>]\""},
        {"[house 1]", 1, "there is no section \"house\""},
        {"[plant 1]\ncall soon : <A>", 2, "\"soon\" is no number from 0 to 2147483647"},
        {"[plant 1]\ncall 5", 2, "a call is \"call <seconds> : <Plant><Instrument><Alarm>\""},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 : 00", 3,
         "a bank is \"bank <read> <write> <start> <size> : <bytes>\""},
        {"[plant 1]\n[instrument 00]\nbank 256 2 0 1 : 00", 3, "\"256\" is no number from 0 to 255"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 2 : 00\n\n[instrument 01]", 3,
         "2 bytes are told and 1 follow"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 1 : 00 01", 3, "1 bytes are told and 2 follow"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 2 : 00\n 0G", 4, "\"0G\" is no byte"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 2 : 00\n 001", 4, "\"001\" is no byte"},
        {"[plant 1]\n 00", 2, "bytes that belong to no bank"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 255 2 : 00 00", 3,
         "a bank of 2 bytes from address 255 doesn't fit into the addresses 0 to 255"},
        {"[plant 1]\n[instrument 00]\nbank 1 2 0 2 : 00 00\nbank 1 2 1 1 : 00", 4,
         "two banks with read command 1 overlap"},
        {"[plant 1]\n[instrument 00]\neeprom 5 : 00", 3, "256 bytes are told and 1 follow"},
        {"[plant 1]\nfoo", 2, "\"foo\" is no line of a memory file"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            plantsFromText(QString::fromLatin1(row.text), QStringLiteral("file"));
            ADD_FAILURE() << "taken as it is";
        } catch (const LoadError& error) {
            EXPECT_EQ(error.file, QStringLiteral("file"));
            EXPECT_EQ(error.line, row.line);
            EXPECT_EQ(error.reason.toStdString(), row.reason);
        }
    }
}

TEST(MemoryFile, TellsOfAFileThatIsNotThere)
{
    const QTemporaryDir folder;
    EXPECT_THROW(loadMemoryFile(folder.filePath(QStringLiteral("none"))), LoadError);
    EXPECT_THROW(saveMemoryFile({}, folder.filePath(QStringLiteral("no/folder"))), LoadError);
}

} // namespace
