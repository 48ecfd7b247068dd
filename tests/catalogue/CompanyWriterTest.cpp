#include "catalogue/tool/CompanyWriter.h"
#include "tests/catalogue/Published.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <gmock/gmock.h>

namespace catalogue {
namespace {

using testing::column;
using testing::count;
using testing::opened;
using testing::published;

TEST(DemoCompany, isOneCustomerWithSixPlants)
{
    SQLite::Database company = opened(published().company);
    EXPECT_EQ(column(company, "SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp"),
              QStringList({"1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(count(company, "SELECT Count(*) FROM tbGroupsUser WHERE Phone IS NULL OR Description IS NULL"),
              0);
    EXPECT_GE(count(company, "SELECT Count(*) FROM tbInstrumentsUser"), 40);
    EXPECT_EQ(
        count(company, "SELECT Count(*) FROM tbCompanySettings WHERE Company <> '' AND VATNumber <> ''"), 1);
    EXPECT_EQ(count(company, "SELECT Count(*) FROM tbInstrumentsUser WHERE IDItem = 'ALIEN'"), 0);
}

// An administrator, somebody who may do everything else, somebody who may do nothing.
TEST(DemoCompany, hasOperatorsThatShowTheRights)
{
    SQLite::Database company = opened(published().company);
    EXPECT_EQ(
        column(company,
               "SELECT IDUser || ' ' || Name || ' ' || coalesce(Password, 'none') || ' ' || State || "
               "UpgradeDb || Settings || Modify || EventViewer || ReadWrite FROM tbUsers "
               "ORDER BY IDUser"),
        QStringList({"0 ADMINISTRATOR none 000000", "1 TECNICO 1234 0-1-1-1-1-1", "2 OSPITE none 000000"}));
}

TEST(DemoCompany, givesEveryInstrumentAllParametersOfItsType)
{
    SQLite::Database company = opened(published().company);
    EXPECT_EQ(
        count(company, "SELECT Count(*) FROM tbParametersUser"),
        count(company,
              "SELECT Count(*) FROM tbInstrumentsUser INNER JOIN tbInstrument ON "
              "tbInstrumentsUser.IDItem = tbInstrument.mTag INNER JOIN tbParamGroup ON tbInstrument.mID = "
              "tbParamGroup.mKeyInst INNER JOIN tbParam ON tbParamGroup.mID = tbParam.mKeyParGroup"));
    EXPECT_EQ(column(company, "PRAGMA foreign_key_check"), QStringList());
}

TEST(DemoCompany, canBeConnectedPlantByPlant)
{
    SQLite::Database company = opened(published().company);
    for (const QString& plant : column(company, "SELECT IDGrp FROM tbGroupsUser"))
        EXPECT_EQ(column(company, QString(testing::kAliveStatement).arg(plant)).size(), 1)
            << plant.toStdString();
}

TEST(DemoCompany, hasAddressesThatTheDialogCanShow)
{
    const QRegularExpression address("^[0-9A-F]{2}$");
    SQLite::Database company = opened(published().company);
    for (const QString& text : column(company, "SELECT Address FROM tbInstrumentsUser"))
        EXPECT_TRUE(text.contains(address)) << text.toStdString();
    EXPECT_EQ(count(company,
                    "SELECT Count(*) FROM (SELECT 1 FROM tbInstrumentsUser GROUP BY IDGrp, Address HAVING "
                    "Count(*) > 1)"),
              0);
}

// The walk through the central job writes one chapter that holds every way of writing.
TEST(DemoCompany, hasAChapterWithEveryWayOfWritingToBeWritten)
{
    SQLite::Database company = opened(published().company);
    const QStringList wires = column(
        company,
        "SELECT DISTINCT tbParam.mType FROM tbParametersUser INNER JOIN tbParam ON tbParametersUser.IDPar "
        "= tbParam.mID WHERE State = 1 AND IDGrp = 1 AND IDParGrp = 'G0285' ORDER BY 1");
    EXPECT_EQ(wires, QStringList({"BIT", "BYTE", "STRING", "WORD_L"}));
    EXPECT_GT(count(company, "SELECT Count(*) FROM tbParametersUser WHERE Value IS NULL AND State = 0"), 0);
}

// Every type that may be a master answers a poll alone at "00".
TEST(DemoCompany, findsOneAliveAnswerForEveryMaster)
{
    for (const Type& type : published().catalogue.types) {
        if (!type.master)
            continue;
        Demo demo;
        demo.plants.push_back({"P", {}, {}, {{"00", type.tag, "M", {}, {}, {}, {}, {}}}, {}});
        const QString file = published().folder.filePath("master.mdb");
        writeCompany(demo, published().catalogue, published().model, file);
        SQLite::Database company = opened(file);
        EXPECT_EQ(column(company, QString(testing::kAliveStatement).arg(1)).size(), 1)
            << type.tag.toStdString();
    }
}

struct Broken
{
    const char* tail;
    const char* reason;
};

class BrokenDemo : public ::testing::TestWithParam<Broken>
{
};

TEST_P(BrokenDemo, isRefusedAtItsLine)
{
    testing::SourceFolder folder;
    folder.write("demo.txt",
                 QString("plant \"ONE\" \"0555\"\n  STREET\ninstrument 11 NVC-210 \"ROOM\"\n  CELLAR\n") +
                     GetParam().tail);
    EXPECT_THAT(testing::refusal([&] {
                    writeCompany(readDemo(folder.file("demo.txt")), published().catalogue, published().model,
                                 folder.file("company.mdb"));
                }),
                ::testing::StartsWith(std::string("demo.txt:5: ") + GetParam().reason));
    EXPECT_FALSE(QFileInfo::exists(folder.file("company.mdb")));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BrokenDemo,
    ::testing::Values(
        Broken{"instrument 12 NVC-211 \"X\"\n", "there is no type \"NVC-211\""},
        Broken{"instrument 11 NVC-210 \"X\"\n", "the address 11 is taken"},
        Broken{"instrument BO NVC-210 \"X\"\n", "the address \"BO\" is not two hexadecimal digits"},
        Broken{"instrument 1a NVC-210 \"X\"\n", "the address \"1a\" is not two hexadecimal digits"},
        Broken{"instrument 00 NVC-210 \"X\"\n", "NVC-210 is no master, so it can't stand at 00"},
        Broken{"holds P020101 99\n", "\"99\" cannot be the value of P020101"},
        Broken{"value P020106 22:35\n", "\"22:35\" cannot be the value of P020106"},
        Broken{"value P020106 22:30:00\n", "\"22:30:00\" is no time such as 07:30"},
        Broken{"value P029008 \"CITTÀ\"\n", "\"CITTÀ\" cannot be the value of P029008"},
        Broken{"added P999999\n", "this instrument has no parameter \"P999999\""},
        Broken{"instrument 12 NVC-210 \"СКЛAД\"\n", "Latin letters in the Cyrillic word \"СКЛAД\""},
        Broken{"call soon \"HOT\"\n", "\"soon\" is not a whole number"},
        Broken{"call 60\n", "\"call\" takes the seconds and at least one alarm"},
        Broken{"value P999999 1\n", "this instrument has no parameter \"P999999\""},
        Broken{"value P020101 99\n", "\"99\" cannot be the value of P020101"},
        Broken{"value P020101 2.2\n", "\"2.2\" cannot be the value of P020101"},
        Broken{"value P020201 3\n", "\"3\" cannot be the value of P020201"},
        Broken{"value P029008 \"A NAME TOO LONG FOR IT\"\n", "\"A NAME TOO LONG FOR IT\" cannot be"},
        Broken{"changed P020501 2.5\n", "P020501 can only be read"},
        Broken{"colour P020501 red\n", "\"colour\" means nothing here"},
        Broken{"value P020501\n", "\"value\" takes 2 columns"},
        Broken{"user 1 \"X\"\n", "\"user\" takes at least 3 columns"},
        Broken{"user 1 \"X\" \"\" Fly\n", "there is no right \"Fly\""},
        Broken{"company Colour red\n", "a company has no \"Colour\""}));

// A newcomer mends all of it in one go.
TEST(Demo, tellsEveryMistakeOfARun)
{
    testing::SourceFolder folder;
    folder.write("demo.txt",
                 "plant \"ONE\" \"\"\ninstrument 11 NVC-210 \"A\"\nvalue P020101 99\nvalue P020102 99\n"
                 "instrument 11 NVX \"B\"\nplant \"TWO\" \"\"\ninstrument 1 NVC-210 \"C\"\n");
    EXPECT_EQ(testing::refusal([&] {
                  writeCompany(readDemo(folder.file("demo.txt")), published().catalogue, published().model,
                               folder.file("company.mdb"));
              }),
              "demo.txt:3: \"99\" cannot be the value of P020101\n"
              "demo.txt:4: \"99\" cannot be the value of P020102\n"
              "demo.txt:5: the address 11 is taken\n"
              "demo.txt:5: there is no type \"NVX\"\n"
              "demo.txt:7: the address \"1\" is not two hexadecimal digits, letters as capitals");
    folder.write("other.txt", "plan\nplant \"ONE\" \"\"\ninstrument {x}\n");
    EXPECT_EQ(testing::refusal([&] { readDemo(folder.file("other.txt")); }),
              "other.txt:1: \"plan\" means nothing here\nother.txt:3: \"x\" is not known here");
}

TEST(Demo, namesTheModelThatIsNotThere)
{
    testing::SourceFolder folder;
    EXPECT_EQ(testing::refusal(
                  [&] { writeCompany({}, published().catalogue, "none.mdb", folder.file("company.mdb")); }),
              "none.mdb: there is no such model");
}

TEST(DemoCompany, hasElementsInAllThreeStatesAndUnknownValues)
{
    SQLite::Database company = opened(published().company);
    EXPECT_EQ(column(company, "SELECT DISTINCT State FROM tbParametersUser ORDER BY 1"),
              QStringList({"0", "1", "2"}));
    EXPECT_EQ(column(company, "SELECT DISTINCT Value FROM tbParametersUser WHERE State = 2"),
              QStringList("0"));
    EXPECT_GT(count(company, "SELECT Count(*) FROM tbParametersUser WHERE Value IS NULL"), 20);
}

// The readings are the demo's own: no two instruments were made as one, and none knows another address than
// its own.
TEST(DemoCompany, variesItsReadingsByPlantAndAddress)
{
    SQLite::Database company = opened(published().company);
    const int instruments = count(company, "SELECT Count(*) FROM tbInstrumentsUser");
    EXPECT_EQ(count(company, "SELECT Count(DISTINCT Value) FROM tbParametersUser WHERE IDPar LIKE '%9004'"),
              instruments);
    EXPECT_GT(count(company, "SELECT Count(DISTINCT Value) FROM tbParametersUser WHERE IDPar LIKE '%9005'"),
              instruments - 3);
    EXPECT_EQ(count(company, "SELECT Count(*) FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, "
                             "IDInst) WHERE p.IDPar LIKE '%9007' AND p.Value = i.Address"),
              instruments);
    EXPECT_GT(count(company, "SELECT Count(DISTINCT Value) FROM tbParametersUser WHERE IDPar = 'P020501'"),
              5);
}

TEST(DemoCompany, hasAPlantWithCyrillicNamesAndTexts)
{
    SQLite::Database company = opened(published().company);
    EXPECT_EQ(column(company, "SELECT Name FROM tbGroupsUser WHERE IDGrp = 6"), QStringList("СКЛАД СЕВЕР"));
    EXPECT_EQ(column(company, "SELECT Value FROM tbParametersUser WHERE IDGrp = 6 AND IDPar = 'P019008'"),
              QStringList("СКЛАД СЕВЕР"));
}

// Somebody who starts the program for the first time sees an alarm come in soon.
TEST(DemoCompany, callsInWithinTwoMinutes)
{
    std::vector<int> calls;
    for (const DemoPlant& plant : published().demo.plants)
        for (const DemoInstrument& instrument : plant.instruments)
            for (const DemoCall& call : instrument.calls)
                calls.push_back(call.seconds);
    EXPECT_THAT(calls, ::testing::ElementsAre(::testing::AllOf(::testing::Gt(20), ::testing::Lt(100))));
}

TEST(Demo, needsAPlantAndAnInstrument)
{
    testing::SourceFolder folder;
    folder.write("a.txt", "instrument 11 NVC-210 \"X\"\n");
    EXPECT_EQ(testing::refusal([&] { readDemo(folder.file("a.txt")); }),
              "a.txt:1: an instrument without a plant above it");
    folder.write("b.txt", "value P020101 1\n");
    EXPECT_EQ(testing::refusal([&] { readDemo(folder.file("b.txt")); }),
              "b.txt:1: a value without an instrument above it");
    folder.write("d.txt", "plant \"TWO\" \"\"\n  ДOМ\n");
    EXPECT_EQ(testing::refusal([&] { readDemo(folder.file("d.txt")); }),
              "d.txt:2: Latin letters in the Cyrillic word \"ДOМ\"");
    folder.write("c.txt", "company Fax 1\n  TEXT\n");
    EXPECT_EQ(testing::refusal([&] { readDemo(folder.file("c.txt")); }),
              "c.txt:2: a description that belongs to nothing");
}

} // namespace
} // namespace catalogue
