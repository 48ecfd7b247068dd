#include "texts/TextFile.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

namespace {

QString block(const char* language)
{
    return QStringLiteral("texts/%1.txt").arg(language);
}

QString leadingBlanks(const QString& text)
{
    return QRegularExpression("^ *").match(text).captured();
}

// The signs that callers rely on when they join a text with a value: ":", "...", "[", a blank.
QString closingSigns(const QString& text)
{
    return QRegularExpression("[^\\w.]*(\\.\\.\\.)?$", QRegularExpression::UseUnicodePropertiesOption)
        .match(text)
        .captured();
}

// "|*.txt|" and its like: what the file dialogs match names with.
QStringList patterns(const QString& text)
{
    return text.split('|').filter(QRegularExpression("^\\*\\.\\w+$"));
}

QChar mnemonic(const QString& caption)
{
    const qsizetype mark = caption.indexOf('&');
    return mark < 0 || mark + 1 == caption.size() ? QChar() : caption[mark + 1].toUpper();
}

// Logs and exports are single-byte files: code page 1252 for Italian, 1251 for Russian.
bool hasOneByte(QChar character, const QString& language)
{
    if (character.unicode() < 0x80) {
        return true;
    }
    if (language == "RU") {
        static const QRegularExpression cyrillic(QString::fromUtf8("[А-Яа-яЁё«»№]"));
        return cyrillic.match(character).hasMatch();
    }
    return character.unicode() >= 0xA0 && character.unicode() <= 0xFF;
}

// What the English rows promise to their callers, and a translation has to keep.
class TranslatedBlock : public testing::TestWithParam<const char*>
{
protected:
    const TextFile english_ = readTexts(block("EN"));
    const TextFile other_ = readTexts(block(GetParam()));
};

TEST_P(TranslatedBlock, HoldsTheSameRowsInTheSameOrder)
{
    EXPECT_EQ(other_.strays, QStringList());
    EXPECT_EQ(english_.heads.size(), 378);
    EXPECT_EQ(other_.heads, english_.heads);
    EXPECT_EQ(other_.texts.size(), 378);
}

TEST_P(TranslatedBlock, KeepsBlanksAndClosingSigns)
{
    for (const QString& row : english_.heads) {
        const QString& wanted = english_.texts[row];
        const QString& text = other_.texts[row];
        EXPECT_EQ(leadingBlanks(text), leadingBlanks(wanted)) << qPrintable(row);
        const bool abbreviated = row == "3" || row == "10" || row == "203";
        if (!abbreviated) {
            EXPECT_EQ(closingSigns(text), closingSigns(wanted)) << qPrintable(row);
        }
        EXPECT_EQ(text.endsWith(' '), wanted.endsWith(' ')) << qPrintable(row);
        EXPECT_EQ(text.endsWith(':'), wanted.endsWith(':')) << qPrintable(row);
        EXPECT_FALSE(text.trimmed().isEmpty()) << qPrintable(row);
    }
}

TEST_P(TranslatedBlock, MarksTheSameRowsWithOneMnemonic)
{
    for (const QString& row : english_.heads) {
        EXPECT_EQ(other_.texts[row].count('&'), english_.texts[row].count('&')) << qPrintable(row);
    }
}

TEST_P(TranslatedBlock, KeepsThePatternsOfTheFileDialogs)
{
    EXPECT_EQ(patterns(english_.texts["249"]), (QStringList{"*.txt", "*.csv"}));
    EXPECT_EQ(patterns(english_.texts["286"]), QStringList{"*.dat"});
    for (const QString& row : english_.heads) {
        EXPECT_EQ(patterns(other_.texts[row]), patterns(english_.texts[row])) << qPrintable(row);
        EXPECT_EQ(other_.texts[row].count('|'), english_.texts[row].count('|')) << qPrintable(row);
    }
}

TEST_P(TranslatedBlock, NamesMemoriesAndPortAsTheFieldDoes)
{
    for (const QString& word : {QStringLiteral("RAM"), QStringLiteral("EEPROM"), QStringLiteral("COM"),
                                QStringLiteral("Xon/Xoff"), QStringLiteral("\"Administrator\"")}) {
        const QRegularExpression whole(QStringLiteral("(?<!\\w)%1(?!\\w)").arg(word));
        for (const QString& row : english_.heads) {
            if (english_.texts[row].contains(whole)) {
                EXPECT_TRUE(other_.texts[row].contains(whole)) << qPrintable(row);
            }
        }
    }
}

// Rows 101 to 103 become column names inside SQL statements, unquoted.
TEST_P(TranslatedBlock, GivesColumnNamesThatAreOneWord)
{
    const QRegularExpression word("^\\p{L}+$");
    for (const char* row : {"101", "102", "103"}) {
        EXPECT_TRUE(other_.texts[row].contains(word)) << row;
    }
}

// The text export of the event list and the report files give their columns fixed widths.
TEST_P(TranslatedBlock, FitsTheColumnsOfTheExports)
{
    const std::vector<std::pair<const char*, int>> widths = {
        {"240", 20}, {"213", 20}, {"214", 20}, {"215", 20}, {"241", 19}, {"242", 20},
        {"225", 20}, {"226", 20}, {"106", 30}, {"244", 16}, {"105", 16},
    };
    for (const auto& [row, width] : widths) {
        EXPECT_LE(other_.texts[row].size(), width) << row;
    }
}

TEST_P(TranslatedBlock, IsMadeOfCharactersThatTheLogsCanHold)
{
    for (const QString& row : other_.heads) {
        for (const QChar character : other_.texts[row]) {
            EXPECT_TRUE(hasOneByte(character, GetParam()))
                << qPrintable(row) << ": " << qPrintable(QString(character));
        }
    }
}

// The menus of the main window look after themselves.
TEST_P(TranslatedBlock, GivesEachEntryOfAMenuALetterOfItsOwn)
{
    const std::vector<std::vector<int>> menus = {
        {108, 116, 126},                        // property copy, menu bar
        {230, 231, 120},                        // property copy, commands
        {131, 132},                             // property copy, view
        {80, 84, 88},                           // users, menu bar
        {81, 82, 83},                           // users, file
        {85, 86, 87},                           // users, modify
        {89, 90, 91, 92, 93, 94, 95, 228},      // users, record
        {96, 97},                               // users, icons
        {81, 83, 228, 229, 230, 231, 232, 233}, // event viewer
        {83, 268, 269, 270, 271, 272, 273},     // console
    };
    for (const auto& menu : menus) {
        QSet<QChar> taken;
        for (const int row : menu) {
            const QString& caption = other_.texts[QString::number(row)];
            const QChar letter = mnemonic(caption);
            EXPECT_TRUE(letter.isLetter()) << row << ": " << qPrintable(caption);
            EXPECT_FALSE(taken.contains(letter)) << row << ": " << qPrintable(caption);
            taken << letter;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, TranslatedBlock, testing::Values("IT", "RU"),
                         [](const auto& info) { return std::string(info.param); });

// The English words are settled to the letter, misspellings included; this is the sum of all 378 rows.
TEST(EnglishBlock, StandsToTheLetter)
{
    const TextFile english = readTexts(block("EN"));
    QStringList rows;
    for (const QString& head : english.heads)
        rows << head + " \"" + english.texts[head] + '"';
    EXPECT_EQ(QCryptographicHash::hash(rows.join('\n').toUtf8(), QCryptographicHash::Sha256).toHex(),
              "e46a894e7a9f6cd73058874265c05479f3d707ac68e248652ec6e0cde83d0638");
}

// Where a window starts with a fixed Italian title, the language step must not change it in Italian.
TEST(ItalianBlock, SaysTheTitlesAsTheWindowsStartWithThem)
{
    const TextFile italian = readTexts(block("IT"));
    const std::vector<std::pair<const char*, const char*>> titles = {
        {"31", "Impostazioni"},
        {"33", "Login-Logout"},
        {"46", "Anagrafica Operatori"},
        {"145", "Proprietà"},
        {"202", "Aggiornamento Database"},
        {"211", "Filtro Eventi"},
        {"274", "Leggi/Scrivi"},
        {"227", "Visualizzatore Eventi"},
        {"281", "Copia Proprietà"},
    };
    for (const auto& [row, title] : titles) {
        EXPECT_EQ(italian.texts[row], QString::fromUtf8(title)) << row;
    }
}

TEST(CommonTexts, ListTheThreeLanguagesThatHaveABlockThenTheEndMark)
{
    const TextFile common = readTexts("texts/common.txt");
    EXPECT_EQ(common.strays, QStringList());
    const std::array identifiers = {"IT_Italiano_1000", "EN_English_2000", "RU_Russian_6000", "End_Language"};
    for (std::size_t at = 0; at < identifiers.size(); ++at) {
        EXPECT_EQ(common.texts[QString::number(at + 1)], identifiers[at]);
    }
    for (int row = 1; row <= 3; ++row) {
        const QString code = common.texts[QString::number(row)].left(2);
        EXPECT_FALSE(readTexts(block(qPrintable(code))).heads.isEmpty()) << qPrintable(code);
    }
}

TEST(CommonTexts, DeclareTheComingLanguagesBehindTheEndMark)
{
    const TextFile common = readTexts("texts/common.txt");
    EXPECT_EQ(common.texts["10"], QString::fromUtf8("FR_Français_3000"));
    EXPECT_EQ(common.texts["11"], QString::fromUtf8("ES_Español_4000"));
    EXPECT_EQ(common.texts["12"], "DE_Deutsch_5000");
    EXPECT_FALSE(common.texts.contains("5"));
}

// The about window takes the address behind the first ":" of label and row together.
TEST(CommonTexts, TellTheMakerWithAddressesOfTheReservedDomain)
{
    const TextFile common = readTexts("texts/common.txt");
    for (const char* row : {"50", "55", "60", "65", "70", "75", "80", "85", "90", "100"}) {
        EXPECT_FALSE(common.texts[row].trimmed().isEmpty()) << row;
    }
    for (const char* row : {"85", "90", "100"}) {
        EXPECT_TRUE(common.texts[row].endsWith(".example")) << row;
    }
    for (const char* language : {"IT", "EN", "RU"}) {
        const TextFile texts = readTexts(block(language));
        for (const char* label : {"8", "9", "284"}) {
            EXPECT_EQ(texts.texts[label].count(':'), 1) << language << label;
        }
    }
}

} // namespace
