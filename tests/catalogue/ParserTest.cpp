#include "catalogue/tool/Parser.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

const QString kHead = "version 3.1\n"
                      "bank 1 set 82 87 16 64 \"SETUP\"\n"
                      "eeprom ee 69\n"
                      "kind t05 REAL BYTE 0..255 -50..77.5 0.0 °C\n"
                      "kind bit ENUM BIT - - - -\n"
                      "kind text STRING STRING - - - -\n"
                      "choices offon\n"
                      "  0 : Spento | Off | Выкл.\n"
                      "  1 : Acceso | On | Вкл.\n"
                      "type 2 XX-1 base 1A alive 16 master\n"
                      "  Tipo | Type | Тип\n"
                      "group G0201\n"
                      "  Gruppo | Group | Группа\n";

TEST(Parser, readsEveryForm)
{
    const Catalogue catalogue = testing::parsed(kHead + "P1 SP t05 set:16 ee:4 -30..15 2 edit AA.01.01\n"
                                                        "  Uno | One | Один\n"
                                                        "P2 bt bit(offon) set:17.3-4 ee:5 - 1 read\n"
                                                        "  Due | Two | Два\n"
                                                        "P3 nA text(16) set:18 - - \"CELLA 1\" edit\n"
                                                        "  Tre | Three | Три\n"
                                                        "block AA.01\n"
                                                        "  Blocco | Block | Блок\n"
                                                        "term sonda, sonde | probe | датчик\n");
    EXPECT_EQ(catalogue.version, QString("3.1"));
    ASSERT_EQ(catalogue.types.size(), 1u);
    const Type& type = catalogue.types[0];
    EXPECT_EQ(type.tag, QString("XX-1"));
    EXPECT_EQ(type.base, QString("1A"));
    EXPECT_EQ(type.alive, 16);
    EXPECT_TRUE(type.master);
    EXPECT_EQ(type.text[2], QString("Тип"));
    ASSERT_EQ(type.groups.at(0).parameters.size(), 3u);

    const Parameter& number = type.groups[0].parameters[0];
    EXPECT_EQ(number.unit, QString("°C"));
    EXPECT_EQ(number.mask, QString("0.0"));
    EXPECT_EQ(number.low, -30);
    EXPECT_EQ(number.high, 15);
    EXPECT_EQ(number.writeCmd, 69);
    EXPECT_EQ(number.writeAddress, 4);
    EXPECT_EQ(number.copy, QString("AA.01.01"));
    EXPECT_EQ(number.standard, QString("2"));
    EXPECT_TRUE(number.editable);

    const Parameter& field = type.groups[0].parameters[1];
    EXPECT_EQ(field.bitFirst, 3);
    EXPECT_EQ(field.bitCount, 2);
    EXPECT_EQ(field.scale.high, 3);
    EXPECT_EQ(field.high, 1); // of its choices
    EXPECT_FALSE(field.editable);

    const Parameter& text = type.groups[0].parameters[2];
    EXPECT_EQ(text.size, 16);
    EXPECT_EQ(text.writeCmd, 0);
    EXPECT_EQ(text.standard, QString("CELLA 1"));
    EXPECT_EQ(text.text[1], QString("Three"));

    EXPECT_EQ(catalogue.copyBlocks.at(0).id, QString("AA.01"));
    EXPECT_EQ(catalogue.glossary.at(0).stems[0], QStringList({"sonda", "sonde"}));
}

struct Broken
{
    const char* tail;
    const char* reason;
};

class BrokenLine : public ::testing::TestWithParam<Broken>
{
};

TEST_P(BrokenLine, isRefusedAtItsLine)
{
    EXPECT_THAT(testing::refusal([] { testing::parsed(kHead + GetParam().tail); }),
                ::testing::StartsWith(std::string("sample.txt:14: ") + GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BrokenLine,
    ::testing::Values(
        Broken{"P1 SP t05 set:16 ee:4 -30..15 2\n", "a parameter's row has 8 columns"},
        Broken{"P1 SP t06 set:16 ee:4 -30..15 2 edit\n", "\"t06\" is no kind of parameter"},
        Broken{"P1 SP t05 rom:16 ee:4 -30..15 2 edit\n", "there is no bank \"rom\""},
        Broken{"P1 SP t05 set16 ee:4 -30..15 2 edit\n", "\"set16\" is no place"},
        Broken{"P1 SP t05 set:16.2 ee:4 -30..15 2 edit\n", "only a bit field has bits"},
        Broken{"P1 SP bit(offon) set:16 ee:4 - 0 edit\n", "a bit field needs its bits"},
        Broken{"P1 SP bit(offon) set:16.6-8 ee:4 - 0 edit\n", "a bit field lies inside its byte"},
        Broken{"P1 SP bit(offon) set:16.4-3 ee:4 - 0 edit\n", "a bit field lies inside its byte"},
        Broken{"P1 SP t05 set:16 ex:4 -30..15 2 edit\n", "\"ex:4\" is no place in an EEPROM"},
        Broken{"P1 SP t05 set:16 ee:4 -30-15 2 edit\n", "\"-30-15\" is not a range"},
        Broken{"P1 SP t05 set:16 ee:4 a..15 2 edit\n", "\"a\" is not a number"},
        Broken{"P1 SP t05 set:16 ee:4 -30..15 2 write\n", "\"write\" is neither edit nor read"},
        Broken{"P1 SP text set:16 ee:4 - - edit\n", "\"\" is not a whole number"},
        Broken{"P1 SP t05 set:16 ee:4 -30..15 \"2 edit\n", "a \" that nothing closes"},
        Broken{"P1 SP t05 set:16 ee:4 -30..15 2 edit\n", "the texts are missing below this line"},
        Broken{"  Uno | One | Один\n", "texts that belong to nothing"},
        Broken{"group\n", "\"group\" takes 1 columns"}, Broken{"bank 1 x 1 2\n", "\"bank\" takes 7"},
        Broken{"type 3 YY base 1A\n", "a type is \"type number"},
        Broken{"term a | b\n", "three texts are wanted here"}));

TEST(Parser, refusesAParameterOutsideAGroup)
{
    EXPECT_EQ(testing::refusal([] { testing::parsed("P1 SP\n"); }),
              "sample.txt:1: \"P1\" means nothing here");
}

TEST(Parser, refusesAGroupOutsideAType)
{
    EXPECT_EQ(testing::refusal([] { testing::parsed("group G1\n"); }),
              "sample.txt:1: a group without a type above it");
}

TEST(Parser, wantsThreeTexts)
{
    EXPECT_EQ(testing::refusal([] { testing::parsed(kHead + "group G2\n  Uno | One\n"); }),
              "sample.txt:15: three texts are wanted here: Italian | English | Russian");
}

TEST(Parser, wantsANumberBeforeAChoice)
{
    EXPECT_EQ(testing::refusal([] { testing::parsed("choices two\n  zero : a | b | c\n"); }),
              "sample.txt:2: a choice is \"number : Italian | English | Russian\"");
}

} // namespace
} // namespace catalogue
