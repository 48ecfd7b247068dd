#include "catalogue/tool/Checks.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

// A small catalogue that keeps every rule; each row below breaks one line of it.
const QString kSample = R"(version 1.0
bank 1 sta 68 77 0 64 "STATUS"
bank 2 set 82 87 16 64 "SETUP"
eeprom ee 69
kind t05 REAL BYTE 0..255 -50..77.5 0.0 °C
kind k01 REAL BYTE 0..255 0..25.5 0.0 K
kind ts REAL S_BYTE -128..127 -64..63.5 0.0 °C
kind tb REAL BCD 0..999 0..99.9 0.0 °C
kind hm TIME_HM BYTE 0..255 0..229500 - -
kind th TIME_H BYTE 0..255 0..918000 - -
kind bit ENUM BIT - - - -
kind sel ENUM BYTE 0..255 0..255 - -
kind text STRING STRING - - - -
choices offon
  0 : Spento | Off | Выкл.
  1 : Acceso | On | Вкл.
term sonda, sonde | probe | датчик
type 1 XX-1 base 1A alive 0 master
  Tipo | Type | Тип
group G1
  Gruppo | Group | Группа
P1 Sta sel(offon) sta:0 - - 0 read
  Stato | State | Состояние
P2 SP t05 set:16 ee:0 -30..15 2 edit AA.01.01
  Uno | One | Один
P3 SP t05 set:17 ee:1 -30..15 2 edit AA.02.01
  Due | Two | Два
P4 bt bit(offon) set:18.3 ee:2 - 1 edit
  Tre | Three | Три
P5 b2 bit(offon) set:18.4 ee:2 - 1 edit
  Quattro | Four | Четыре
P6 nA text(4) set:19 ee:3 - "AB" edit
  Cinque | Five | Пять
P7 tE tb sta:2 - -20..90 -12.3 read
  Sonda | Probe | Датчик
P8 on hm set:23 ee:7 0..85500 07:15:00 edit
  Sei | Six | Шесть
block AA.01
  Primo | First | Первый
block AA.02
  Secondo | Second | Второй
)";

TEST(Checks, findNothingWrongWithTheSample)
{
    for (const Problem& problem : problemsOf(testing::parsed(kSample)))
        ADD_FAILURE() << problem.text().toStdString();
}

struct Broken
{
    const char* line;
    const char* instead;
    const char* reason;
};

class BrokenRule : public ::testing::TestWithParam<Broken>
{
};

TEST_P(BrokenRule, isToldWithItsPlace)
{
    const QString line = QString::fromUtf8(GetParam().line);
    const qsizetype at = kSample.indexOf(line);
    ASSERT_GE(at, 0);
    QString text = kSample;
    text.replace(at, line.size(), QString::fromUtf8(GetParam().instead));
    std::vector<std::string> found;
    for (const Problem& problem : problemsOf(testing::parsed(text)))
        found.push_back(problem.text().toStdString());
    EXPECT_THAT(found, ::testing::Contains(::testing::HasSubstr(GetParam().reason)));
}

INSTANTIATE_TEST_SUITE_P(
    Names, BrokenRule,
    ::testing::Values(
        Broken{"version 1.0\n", "\n", "no version is told"},
        Broken{"P3 SP", "p2 SP", "sample.txt:26: the parameter \"p2\" stands already in sample.txt:24"},
        Broken{"P3 SP", "P_3 SP", "sample.txt:26: the id \"P_3\" may not be empty or contain \"_\""},
        Broken{"group G1", "group G_1", "sample.txt:20: the id \"G_1\" may not be empty"},
        Broken{"base 1A", "base 1", "sample.txt:18: the base address \"1\" is not two hexadecimal"},
        Broken{"base 1A", "base 1G", "the base address \"1G\""},
        Broken{"type 1", "type 0", "numbered from 1"},
        Broken{"block AA.01", "group G2\n  b | b | б\nblock AA.01", "the group \"G2\" has no parameter"},
        Broken{"block AA.01", "type 1 XX-2 base 00 alive 0\n  b | b | б\nblock AA.01",
               "the type number \"1\" stands already"},
        Broken{"block AA.01", "type 2 xx-1 base 00 alive 0\n  b | b | б\nblock AA.01",
               "the type code \"xx-1\" stands already"},
        Broken{"block AA.01", "group g1\n  b | b | б\nblock AA.01", "the group \"g1\" stands already"},
        Broken{"block AA.01", "choices offon\n  0 : b | b | б\nblock AA.01",
               "the choices \"offon\" stands already"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenRule,
    ::testing::Values(Broken{"Uno | One | Один", "Uno |  | Один", "sample.txt:24: no text in EN"},
                      Broken{"Uno | One | Один",
                             "Uno | 0123456789012345678901234567890123456789012345678901234567890 | Один",
                             "sample.txt:24: the text in EN is longer than 60"},
                      Broken{"Uno | One | Один", "Uno | Оne | Один", "Cyrillic letters in the text in EN"},
                      Broken{"Sonda | Probe", "Sensore | Probe",
                             "sample.txt:34: \"probe\" is \"sonda/sonde\" in IT, not \"Sensore\""},
                      Broken{"Probe | Датчик", "Probe | Зонд", "\"probe\" is \"датчик\" in RU"},
                      Broken{"0 : Spento | Off", "0 : | Off", "sample.txt:15: no text in IT"}));

INSTANTIATE_TEST_SUITE_P(
    Parameters, BrokenRule,
    ::testing::Values(
        Broken{"hm TIME_HM BYTE", "hm TIME_HM WORD_L", "sample.txt:36: a time lies in one BYTE"},
        Broken{"sel ENUM BYTE", "sel ENUM WORD_L", "a choice lies in a BYTE or in bits"},
        Broken{"text STRING STRING", "text REAL STRING", "a text is STRING in its key and on the wire"},
        Broken{"t05 REAL BYTE", "t05 REEL BYTE", "\"REEL\" on \"BYTE\" is no kind of value"},
        Broken{"-12.3 read", "-12.3 edit", "nothing writes REAL as BCD, so it can only be read"},
        Broken{"hm TIME_HM BYTE 0..255 0..229500", "hm TIME_HMS BYTE 0..255 0..229500",
               "nothing writes TIME_HMS"},
        Broken{"bit(offon) set:18.3 ee:2", "bit(offon) set:18.3 -",
               "a bit field that can be edited has a place"},
        Broken{"-30..15 2 edit AA.01", "-30.2..15 2 edit AA.01", "limits in °C are whole or half degrees"},
        Broken{"text(4)", "text(0)", "a text has 1 to 255 characters"},
        Broken{"\"AB\"", "ABCDE", "the standard value \"ABCDE\" does not fit"},
        Broken{"\"AB\"", "\"A \"", "the standard value \"A \" does not fit"},
        Broken{"\"AB\"", "ÀB", "a standard value is in plain letters"},
        Broken{"BYTE 0..255 -50..77.5", "BYTE 255..255 -50..77.5", "the scale is no line"},
        Broken{"BYTE 0..255 -50..77.5", "BYTE 0..255 -50..-50", "the scale is no line"},
        Broken{"BYTE 0..255 -50..77.5", "BYTE 0..256 -50..78", "the scale reaches beyond what BYTE can hold"},
        Broken{"BYTE 0..255 -50..77.5", "BYTE 100..255 0..77.5", "the scale of a BYTE begins at 0"},
        Broken{"tb REAL BCD 0..999 0..99.9", "tb REAL S_BYTE -100..127 -100..127",
               "the scale of an S_BYTE begins"},
        Broken{"-30..15 2 edit AA.01", "15..-30 2 edit AA.01", "the limits are the wrong way round"},
        Broken{"-30..15 2 edit AA.01", "-60..15 2 edit AA.01", "the limits lie outside the scale"},
        Broken{"-30..15 2 edit AA.01", "-30..80 2 edit AA.01", "the limits lie outside the scale"},
        Broken{"0..85500", "0..90000", "a time stays below 24 hours"},
        Broken{"0..229500", "0..2550", "which cannot be shown"},
        Broken{"hm TIME_HM BYTE 0..255 0..229500", "hm TIME_HMS BYTE 0..255 0..2550",
               "count 1 is 10, which cannot be shown"},
        Broken{"-50..77.5 0.0", "-50..77.5 0", "which cannot be shown"},
        Broken{"-50..77.5 0.0", "-50..77.5 -", "a REAL, and nothing else, has a mask"},
        Broken{"0..229500 - -", "0..229500 0 -", "a REAL, and nothing else, has a mask"},
        Broken{"sel(offon)", "sel(onoff)", "there are no choices \"onoff\""},
        Broken{"1 : Acceso", "0 : Acceso", "the choice 0 of \"offon\" is there twice"},
        Broken{"sel(offon) sta:0 - -", "sel(offon) sta:0 - 1..2",
               "the choice 0 of \"offon\" lies outside the limits"},
        Broken{"1 : Acceso", "2 : Acceso", "the standard value \"1\" is not among the choices"},
        Broken{"2 edit AA.01", "2.2 edit AA.01", "the standard value \"2.2\" is not on the scale"},
        Broken{"2 edit AA.01", "20 edit AA.01", "the standard value \"20\" lies outside the limits"},
        Broken{"07:15:00", "07:10:00", "the standard value \"07:10:00\" is not on the scale"}));

INSTANTIATE_TEST_SUITE_P(
    Memory, BrokenRule,
    ::testing::Values(
        Broken{"82 87 16", "0 87 16", "sample.txt:3: the commands of a bank are bytes above 0"},
        Broken{"82 87 16", "82 256 16", "the commands of a bank are bytes above 0"},
        Broken{"82 87 16", "82 82 16", "a bank is read and written by different commands"},
        Broken{"87 16 64", "87 200 64", "a bank has 1 to 255 bytes"},
        Broken{"68 77 0 64", "68 77 0 256", "a bank has 1 to 255 bytes"},
        Broken{"bank 2", "bank 1", "the bank 1 is there twice"},
        Broken{"t05 set:16", "t05 set:15", "address 15 lies outside its bank"},
        Broken{"text(4) set:19", "text(4) set:77", "address 77 lies outside its bank"},
        Broken{"eeprom ee 69", "eeprom ee 300", "command and place in the EEPROM are bytes"},
        Broken{"ee:3 ", "ee:253 ", "command and place in the EEPROM are bytes"},
        Broken{"t05 set:17", "t05 set:16", "sample.txt:26: \"P3\" lies on \"P2\" at bank 2:16"},
        Broken{"text(4) set:19", "text(4) set:20", "\"P8\" lies on \"P6\" at bank 2:23"},
        Broken{"set:18.4", "set:18.3", "\"P5\" lies on \"P4\" at bank 2:18"},
        Broken{"set:17 ee:1", "set:17 ee:0", "\"P3\" lies on \"P2\" at eeprom 69:0"},
        Broken{"set:18.4 ee:2", "set:18.4 ee:9", "bit fields of one byte share their place in the EEPROM"},
        Broken{"alive 0", "alive 1", "sample.txt:18: no parameter stands at the alive address 1"}));

INSTANTIATE_TEST_SUITE_P(
    Copies, BrokenRule,
    ::testing::Values(
        Broken{"AA.01.01", "AA.01.1", "sample.txt:24: the copy class \"AA.01.1\" is not eight characters"},
        Broken{"AA.01.01", "AA.XX.01", "the copy class \"AA.XX.01\" is not eight"},
        Broken{"AA.02.01", "AA.01.01", "the copy class \"AA.01.01\" is there twice"},
        Broken{"AA.02.01", "AA.02.02", "the first block of the family has no place \".02\""},
        Broken{"-30..15 2 edit AA.02.01", "-20..15 2 edit AA.02.01", "\"P3\" differs from \"P2\""},
        Broken{"block AA.02", "block AA.03", "the block \"AA.02\" has no description"}));

// A poll finds its command through whatever stands at any type's alive address.
TEST(Checks, refuseAMasterWhosePollFindsTwoCommands)
{
    QString text = kSample;
    text.replace("82 87 16 64", "82 87 0 64").replace("set:17 ee:1", "set:0 ee:1");
    std::vector<std::string> found;
    for (const Problem& problem : problemsOf(testing::parsed(text)))
        found.push_back(problem.text().toStdString());
    EXPECT_THAT(found,
                ::testing::ElementsAre("sample.txt:18: the alive poll of a master finds 2 read commands"));
}

TEST(Checks, refuseAFamilyInTwoTypes)
{
    const QString second = "type 2 XX-2 base 00 alive 0\n  b | b | б\ngroup G2\n  b | b | б\n"
                           "Q1 SP t05 sta:0 - -30..15 2 edit AA.01.01\n  b | b | б\n";
    std::vector<std::string> found;
    for (const Problem& problem : problemsOf(testing::parsed(kSample + second)))
        found.push_back(problem.text().toStdString());
    EXPECT_THAT(found,
                ::testing::Contains(::testing::HasSubstr("the family \"AA\" belongs to another type")));
}

} // namespace
} // namespace catalogue
