#include "catalogue/tool/Checks.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

// A small catalogue that keeps every rule; each row below breaks one line of it.
const QString kSample = R"(version 1.0
bank 1 sta 68 77 0 64 "STATUS"
bank 2 set 82 87 16 64 "SETUP"
eeprom ee 69 set
kind t05 REAL BYTE 0..255 -50..77.5 0.0 °C
kind k01 REAL BYTE 0..255 0..25.5 0.0 K
kind ts REAL S_BYTE -128..127 -64..63.5 0.0 °C
kind tb REAL BCD 0..999 0..99.9 0.0 °C
kind hm TIME_HM BYTE 0..255 0..229500 - -
kind th TIME_H BYTE 0..255 0..918000 - -
kind bit ENUM BIT - - - -
kind sel ENUM BYTE 0..255 0..255 - -
kind text STRING STRING - - - -
choices three
  1 : b | b | б
  2 : b | b | б
choices offon
  0 : Spento | Off | Выкл.
  1 : Acceso | On | Вкл.
term sonda, sonde | probe | датчик
avoid EN "kind of" "type"
type 1 XX-1 base 1A alive 0 master
  Tipo | Type | Тип
group G0101
  Gruppo | Group | Группа
P010101 Sta sel(offon) sta:0 - - 0 read
  Stato | State | Состояние
P010102 SP t05 set:16 ee:0 -30..15 2 edit AA.01.01
  Uno | One | Один
P010103 SQ t05 set:17 ee:1 -30..15 2 edit AA.02.01
  Due | Two | Два
P010104 bt bit(offon) set:18.3 ee:2 - 1 edit
  Tre | Three | Три
P010105 b2 bit(offon) set:18.4 ee:2 - 1 edit
  Quattro | Four | Четыре
P010106 nA text(4) set:19 ee:3 - "AB" edit
  Cinque | Five | Пять
P010107 tE tb sta:2 - -20..90 -12.3 read
  Sonda | Probe | Датчик
P010108 on hm set:23 ee:7 00:00..23:45 07:15 edit
  Sei (15 min) | Six (15 min) | Шесть (15 мин)
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
        Broken{"P010103 SQ", "p010102 SQ",
               "sample.txt:30: the parameter \"p010102\" stands already in sample.txt:28"},
        Broken{"P010103 SQ", "P_010103 SQ",
               "sample.txt:30: the id \"P_010103\" may not be empty or contain \"_\""},
        Broken{"group G0101", "group G_0101", "sample.txt:24: the id \"G_0101\" may not be empty"},
        Broken{"base 1A", "base 1", "sample.txt:22: the base address \"1\" is not two hexadecimal"},
        Broken{"base 1A", "base 1a",
               "the base address \"1a\" is not two hexadecimal digits, letters as capitals"},
        Broken{"block AA.01", "type 2 XX-2 base 1A alive 0\n  b | b | б\nblock AA.01",
               "the base address \"1A\" stands already in sample.txt:22"},
        Broken{"P010103 SQ", "P010103 sp",
               "sample.txt:30: the tag \"sp\" stands already in sample.txt:28 (P010103)"},
        Broken{"P010103 SQ", "P010103 SЕ", "the tag \"SЕ\" is not in plain letters and digits"},
        Broken{"P010103 SQ", "P010203 SQ",
               "sample.txt:30: the id \"P010203\" is not \"P0101\" and two digits"},
        Broken{"P010103 SQ", "P01010x SQ", "the id \"P01010x\" is not \"P0101\" and two digits"},
        Broken{"P010103 SQ", "P0101033 SQ", "the id \"P0101033\" is not \"P0101\" and two digits"},
        Broken{"group G0101", "group G0201",
               "sample.txt:24: the group \"G0201\" is not \"G01\" and two digits"},
        Broken{"group G0101", "group X0101", "the group \"X0101\" is not \"G01\" and two digits"},
        Broken{"base 1A", "base 1G", "the base address \"1G\""},
        Broken{"type 1", "type 0", "numbered from 1"},
        Broken{"block AA.01", "group G0102\n  b | b | б\nblock AA.01",
               "the group \"G0102\" has no parameter"},
        Broken{"block AA.01", "type 1 XX-2 base 00 alive 0\n  b | b | б\nblock AA.01",
               "the type number \"1\" stands already"},
        Broken{"block AA.01", "type 2 xx-1 base 00 alive 0\n  b | b | б\nblock AA.01",
               "the type code \"xx-1\" stands already"},
        Broken{"block AA.01", "group g0101\n  b | b | б\nblock AA.01", "the group \"g0101\" stands already"},
        Broken{"block AA.01", "choices offon\n  0 : b | b | б\nblock AA.01",
               "the choices \"offon\" stands already"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenRule,
    ::testing::Values(
        Broken{"Uno | One | Один", "Uno |  | Один", "sample.txt:28: no text in EN"},
        Broken{"Uno | One | Один",
               "Uno | 0123456789012345678901234567890123456789012345678901234567890 | Один",
               "sample.txt:28: the text in EN is longer than 60"},
        Broken{"Uno | One | Один", "Uno | Оne | Один", "Cyrillic letters in the text in EN"},
        Broken{"Sonda | Probe", "Sensore | Probe",
               "sample.txt:38: \"probe\" is \"sonda/sonde\" in IT, not \"Sensore\""},
        Broken{"Probe | Датчик", "Probe | Зонд", "\"probe\" is \"датчик\" in RU"},
        Broken{"Sonda | Probe", "Ultrasonda | Probe", "\"probe\" is \"sonda/sonde\" in IT"},
        Broken{"Uno | One", "Uno | Kind of one", "sample.txt:28: not \"kind of\" in EN but \"type\""},
        Broken{"One | Один", "One | Oдин", "sample.txt:28: Latin letters in the Cyrillic word \"Oдин\""},
        Broken{"One | Один", "One | Один c двумя", "Latin letters in the Cyrillic word \"c\""},
        Broken{"0 : Spento | Off", "0 : | Off", "sample.txt:18: no text in IT"}));

INSTANTIATE_TEST_SUITE_P(
    Parameters, BrokenRule,
    ::testing::Values(
        Broken{"hm TIME_HM BYTE", "hm TIME_HM WORD_L", "sample.txt:40: a time lies in one BYTE"},
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
        Broken{"-30..15 2 edit AA.01", "-60..15 2 edit AA.01",
               "the limits -60..15 lie outside the scale -50..77.5"},
        Broken{"-30..15 2 edit AA.01", "-30..80 2 edit AA.01", "the limits -30..80 lie outside the scale"},
        Broken{"00:00..23:45", "-", "a time stays below 24 hours"},
        Broken{"BYTE 0..255 -50..77.5 0.0 °C", "BYTE 0..255 -50..77.5 0.0 K",
               "sample.txt:28: the mask \"0.0\" invites steps of 0.1, the scale has steps of 0.5 (P010102)"},
        Broken{"BYTE 0..255 -50..77.5 0.0 °C", "BYTE 0..255 0..255 0.0 °C",
               "the mask \"0.0\" invites steps of 0.1, the scale has steps of 1"},
        Broken{"BYTE 0..255 -50..77.5 0.0 °C", "BYTE 0..255 0..2550 0 s",
               "the mask \"0\" invites steps of 1, the scale has steps of 10"},
        Broken{"-50..77.5 0.0", "-50..77.5 #,##0.0", "has a mask such as 0.0, without groups of digits"},
        Broken{"t05 set:16 ee:0 -30..15 2", "k01 set:16 ee:0 0..15.05 2",
               "the limit 15.05 is not on the scale's steps"},
        Broken{"t05 set:16 ee:0 -30..15 2", "k01 set:16 ee:0 0.55..15 2",
               "the limit 0.55 is not on the scale's steps"},
        Broken{"00:00..23:45", "00:00..23:50", "the limit 23:50 is not on the scale's steps"},
        Broken{"t05 set:16 ee:0 -30..15 2", "k01 set:16 ee:0 0..25.5 2",
               "count 255 stands for \"not known\", so the limits must leave it out"},
        Broken{"Six (15 min)", "Six",
               "sample.txt:40: times go in steps of 15 min, but the text in EN does not say so"},
        Broken{"Шесть (15 мин)", "Шесть (15 min)", "times go in steps of 15 мин, but the text in RU"},
        Broken{"Sei (15 min)", "Sei (5 min)", "times go in steps of 15 min, but the text in IT"},
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
        Broken{"2 edit AA.01", "20 edit AA.01", "the standard value \"20\" lies outside the limits -30..15"},
        Broken{"-12.3 read", "-12.3~8 read", "the standard value \"-12.3\" lies outside the limits -20..90"},
        Broken{"bit(offon) set:18.3", "bit(three) set:18.3",
               "sample.txt:32: choice 2 does not fit in 1 bit (P010104)"},
        Broken{"07:15", "07:10", "the standard value \"07:10:00\" is not on the scale"}));

INSTANTIATE_TEST_SUITE_P(
    Memory, BrokenRule,
    ::testing::Values(
        Broken{"82 87 16", "0 87 16", "sample.txt:3: the commands of a bank are bytes above 0"},
        Broken{"82 87 16", "82 256 16", "the commands of a bank are bytes above 0"},
        Broken{"82 87 16", "82 82 16", "a bank is read and written by different commands"},
        Broken{"87 16 64", "87 200 64", "a bank has 1 to 255 bytes"},
        Broken{"68 77 0 64", "68 77 0 256", "a bank has 1 to 255 bytes"},
        Broken{"bank 2", "bank 1", "the bank 1 is there twice"},
        Broken{"t05 set:16", "t05 set:15", "address 15 lies outside the bank \"set\", which has 16 to 79"},
        Broken{"text(4) set:19", "text(4) set:77",
               "address 77 lies outside the bank \"set\", which has 16 to 79"},
        Broken{"eeprom ee 69", "eeprom ee 300", "sample.txt:4: the command of a page is a byte above 0"},
        Broken{"eeprom ee 69", "eeprom ee 0", "the command of a page is a byte above 0"},
        Broken{"ee:3 ", "ee:30 ", "set:19 is kept at ee:3 of the EEPROM, not at 30 (P010106)"},
        Broken{"eeprom ee 69 set", "eeprom ee 69 sta",
               "set:16 is not kept in that page of the EEPROM (P010102)"},
        Broken{"t05 set:17", "t05 set:16", "\"P010103\" lies on \"P010102\" at set:16"},
        Broken{"text(4) set:19", "text(4) set:20", "\"P010108\" lies on \"P010106\" at set:23"},
        Broken{"set:18.4", "set:18.3", "\"P010105\" lies on \"P010104\" at set:18"},
        Broken{"set:18.4 ee:2", "set:18.4 -", "bit fields of one byte share their place in the EEPROM"},
        Broken{"alive 0", "alive 1", "sample.txt:22: 0 parameters stand at the alive address 1, not one"},
        Broken{"tb sta:2", "tb sta:0", "2 parameters stand at the alive address 0, not one"}));

INSTANTIATE_TEST_SUITE_P(
    Copies, BrokenRule,
    ::testing::Values(
        Broken{"AA.01.01", "AA.01.1", "sample.txt:28: the copy class \"AA.01.1\" is not eight characters"},
        Broken{"AA.01.01", "AA.XX.01", "the copy class \"AA.XX.01\" is not eight"},
        Broken{"AA.02.01", "AA.01.01", "the copy class \"AA.01.01\" is there twice"},
        Broken{"AA.02.01", "AA.02.02", "the first block of the family has no place \".02\""},
        Broken{"-30..15 2 edit AA.02.01", "-20..15 2 edit AA.02.01", "\"P010103\" differs from \"P010102\""},
        Broken{"block AA.02", "block AA.03", "the block \"AA.02\" has no description"}));

// A poll finds its command through whatever stands at any type's alive address.
TEST(Checks, refuseAnAliveAddressUnlikeThatOfTheRange)
{
    const QString twins = "type 2 XX-2 base 20 alive 0\n  b | b | б\ngroup G0201\n  b | b | б\n"
                          "P020101 St sel(offon) sta:0 - - 0 read\n  b | b | б\n"
                          "type 3 XX-3 base 30 alive 1\n  b | b | б\ngroup G0301\n  b | b | б\n"
                          "P030101 St sel(offon) sta:1 - - 0 read\n  b | b | б\n";
    std::vector<std::string> found;
    for (const Problem& problem : problemsOf(testing::parsed(kSample + twins)))
        found.push_back(problem.text().toStdString());
    EXPECT_THAT(found, ::testing::ElementsAre(
                           "sample.txt:52: the alive address is 1, but 0 in the rest of the range"));
}

// What is never offered takes no address from anybody.
TEST(Checks, letTheForeignInstrumentHaveAnyBaseAddress)
{
    const QString alien = "type 99 ALIEN base 1A alive 0\n  b | b | б\ngroup G9901\n  b | b | б\n"
                          "P990101 St sel(offon) sta:0 - - 0 read\n  b | b | б\n";
    EXPECT_TRUE(problemsOf(testing::parsed(kSample + alien)).empty());
}

TEST(Checks, refuseAFamilyInTwoTypes)
{
    const QString second = "type 2 XX-2 base 00 alive 0\n  b | b | б\ngroup G0201\n  b | b | б\n"
                           "P020101 SP t05 sta:0 - -30..15 2 edit AA.01.01\n  b | b | б\n";
    std::vector<std::string> found;
    for (const Problem& problem : problemsOf(testing::parsed(kSample + second)))
        found.push_back(problem.text().toStdString());
    EXPECT_THAT(found,
                ::testing::Contains(::testing::HasSubstr("the family \"AA\" belongs to another type")));
}

} // namespace
} // namespace catalogue
