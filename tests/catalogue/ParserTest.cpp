#include "catalogue/tool/Parser.h"
#include "catalogue/tool/Checks.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

const QString kHead = "version 3.1\n"
                      "bank 1 set 82 87 16 64 \"SETUP\"\n"
                      "eeprom ee 69 set\n"
                      "kind t05 REAL BYTE 0..255 -50..77.5 0.0 °C\n"
                      "kind bit ENUM BIT - - - -\n"
                      "kind hm10 TIME_HM BYTE 0..255 0..153000 - -\n"
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
                                                        "P4 on hm10 set:40 - 00:30..23:50 07:30 edit\n"
                                                        "  Quattro | Four | Четыре\n"
                                                        "P5 tE t05 set:41 - - 2.5~1.5 read\n"
                                                        "  Cinque | Five | Пять\n"
                                                        "block AA.01\n"
                                                        "  Blocco | Block | Блок\n"
                                                        "term sonda, sonde | probe | датчик\n"
                                                        "avoid EN \"kind of\" type\n");
    EXPECT_EQ(catalogue.version, QString("3.1"));
    ASSERT_EQ(catalogue.types.size(), 1u);
    const Type& type = catalogue.types[0];
    EXPECT_EQ(type.tag, QString("XX-1"));
    EXPECT_EQ(type.base, QString("1A"));
    EXPECT_EQ(type.alive, 16);
    EXPECT_TRUE(type.master);
    EXPECT_EQ(type.text[2], QString("Тип"));
    ASSERT_EQ(type.groups.at(0).parameters.size(), 5u);

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
    EXPECT_EQ(catalogue.avoided.at(0).language, 1u);
    EXPECT_EQ(catalogue.avoided.at(0).stem, QString("kind of"));
    EXPECT_EQ(catalogue.eeproms.at(0).bank, 1);

    const Parameter& time = type.groups[0].parameters[3];
    EXPECT_EQ(time.low, 1800);
    EXPECT_EQ(time.high, 85800);
    EXPECT_EQ(time.standard, QString("07:30:00"));

    const Parameter& reading = type.groups[0].parameters[4];
    EXPECT_EQ(reading.standard, QString("2.5"));
    EXPECT_EQ(reading.spread, 1.5);
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
                ::testing::StartsWith(std::string("sample.txt:15: ") + GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BrokenLine,
    ::testing::Values(
        Broken{"P1 SP t05 set:16 ee:4 -30..15 edit\n",
               "a parameter's row has 8 columns, or 9 with a copy class; this one has 7: id P1, tag SP, kind "
               "t05, "
               "place set:16, eeprom ee:4, limits -30..15, standard edit"},
        Broken{"P1 SP t06 set:16 ee:4 -30..15 2 edit\n",
               "\"t06\" is no kind of parameter; there are t05, text"},
        Broken{"P1 SP x06 set:16 ee:4 -30..15 2 edit\n", "\"x06\" is no kind of parameter (P1)"},
        Broken{"P1 SP hm10 set:16 ee:4 0..85800 07:30 edit\n", "\"0\" is no time such as 07:30"},
        Broken{"P1 SP hm10 set:16 ee:4 00:00 07:30 edit\n", "\"00:00\" is not a range such as 00:00..23:50"},
        Broken{"P1 SP hm10 set:16 ee:4 - 07:30:00 edit\n", "\"07:30:00\" is no time such as 07:30"},
        Broken{"P1 SP t05 set:16 ee:4 - 2~1 edit\n",
               "only a number that can only be read strays, not \"2~1\""},
        Broken{"P1 SP t05 set:16 ee:4 - 2~a read\n", "\"a\" is not a number"},
        Broken{"P1 SP hm10 set:16 ee:4 - 07:30~1 read\n", "only a number that can only be read strays"},
        Broken{"avoid FR \"kind of\" type\n", "there is no language \"FR\""},
        Broken{"eeprom es 70 sch\n", "there is no bank \"sch\""},
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

// A newcomer mends all of it in one go.
TEST(Parser, tellsEveryMistakeOfARunInTheOrderOfTheLines)
{
    EXPECT_EQ(testing::refusal([] {
                  testing::parsed(kHead + "P1 SP t06 set:16 ee:4 - 2 edit\n"
                                          "  Uno | One | Один\n"
                                          "P2 SP t05 set:17 ee:5 - 2 edit\n"
                                          "P3 SP t05 set:18 ee:6 - 2 edit\n"
                                          "  Tre | Three\n"
                                          "P4 SP t07 set:19 ee:7 - 2 edit\n"
                                          "  Quattro | Four | Четыре\n"
                                          "group\n"
                                          "  Gruppo | Group | Группа\n"
                                          "P5 SP t05 set:20 ee:8 - {x} edit\n"
                                          "  Cinque | Five | Пять\n");
              }),
              "sample.txt:15: \"t06\" is no kind of parameter; there are t05, text (P1)\n"
              "sample.txt:17: the texts are missing below this line\n"
              "sample.txt:19: three texts are wanted here: Italian | English | Russian\n"
              "sample.txt:20: \"t07\" is no kind of parameter; there are t05, text (P4)\n"
              "sample.txt:22: \"group\" takes 1 columns\n"
              "sample.txt:24: \"x\" is not known here");
}

// Everything that names a kind would fail with it.
TEST(Parser, keepsSilentAboutRowsWhileAKindCannotBeRead)
{
    EXPECT_EQ(testing::refusal([] {
                  testing::parsed("kind t05 REAL BYTE 0..x -50..77.5 0.0 °C\n"
                                  "bank 1 set 82 87 16 64 \"SETUP\"\n"
                                  "type 2 XX-1 base 1A alive 16\n"
                                  "  Tipo | Type | Тип\n"
                                  "group G0201\n"
                                  "  Gruppo | Group | Группа\n"
                                  "P1 SP t05 set:16 - - 2 edit\n"
                                  "  Uno | One | Один\n"
                                  "group\n");
              }),
              "sample.txt:1: \"x\" is not a number\n"
              "sample.txt:9: \"group\" takes 1 columns");
}

TEST(Parser, namesTheMissingFolder)
{
    testing::SourceFolder folder;
    EXPECT_THAT(testing::refusal([&] { readCatalogue(folder.file("nowhere")); }),
                ::testing::HasSubstr("nowhere/glossary.txt\" cannot be read"));
}

// A shared chapter is innocent of what its includer forgot, and a repeat is not wrong in every pass.
TEST(Parser, tellsWhoIncludedAFileAndWhichPassOfARepeatItIs)
{
    testing::SourceFolder folder;
    folder.write("common/kinds.txt", "bank 1 set 82 87 16 64 \"SETUP\"\n"
                                     "kind num REAL BYTE 0..255 0..255 0 -\n");
    folder.write("glossary.txt", "# none\n");
    folder.write("shared/one.txt", "group G{t:02}01\n  a | a | а\nP{t:02}0101 aa num set:16 - - 300 edit\n"
                                   "  a | a | а\n");
    folder.write("types/01.txt", "let t 1\ntype 1 A base 01 alive 16\n  a | a | а\ninclude shared/one.txt\n"
                                 "repeat n 1..3\nP0101{10+n} b{n} num set:{20+n} - 0..10 {n*5} edit\n"
                                 "  a | a | а\nend\n");
    folder.write("types/02.txt", "let t 2\ntype 2 B base 02 alive 16\n  a | a | а\ninclude shared/one.txt\n");
    std::string told;
    for (const Problem& problem : problemsOf(readCatalogue(folder.path())))
        if (problem.reason.contains("standard"))
            told += problem.text().toStdString() + '\n';
    EXPECT_EQ(told,
              "shared/one.txt:3: the standard value \"300\" is not on the scale (P010101, included by "
              "types/01.txt:4, and 1 more)\n"
              "types/01.txt:6: the standard value \"15\" lies outside the limits 0..10 (P010113, n = 3)\n");

    folder.write("types/02.txt", "type 2 B base 02 alive 16\n  a | a | а\ninclude shared/one.txt\n");
    EXPECT_EQ(testing::refusal([&] { readCatalogue(folder.path()); }),
              "shared/one.txt:1: \"t\" is not known here (included by types/02.txt:3)");
}

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
              "sample.txt:16: three texts are wanted here: Italian | English | Russian");
}

TEST(Parser, wantsANumberBeforeAChoice)
{
    EXPECT_EQ(testing::refusal([] { testing::parsed("choices two\n  zero : a | b | c\n"); }),
              "sample.txt:2: a choice is \"number : Italian | English | Russian\"");
}

} // namespace
} // namespace catalogue
