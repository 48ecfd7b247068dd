#include "catalogue/tool/InstrumentText.h"
#include "tests/catalogue/Published.h"

#include "values/Cyrillic.h"

namespace catalogue {
namespace {

// The letters of code page 1251.
const QString kAlphabet{"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя"};

QByteArray screenCode(QChar letter)
{
    if (letter == u'Ё')
        return "\xA8";
    if (letter == u'ё')
        return "\xB8";
    return QByteArray(1, static_cast<char>(192 + kAlphabet.indexOf(letter)));
}

// The catalogue's own table and the program's are two; they must agree.
TEST(InstrumentText, knowsEveryLetterAsTheProgramDoes)
{
    for (const QChar letter : kAlphabet + "Ёё")
        EXPECT_EQ(instrumentText(letter), values::Translate_RUChrOut(screenCode(letter)))
            << QString(letter).toStdString();
}

TEST(InstrumentText, copiesWhatIsPlain)
{
    EXPECT_EQ(instrumentText("CELLA 1, ~!"), QByteArray("CELLA 1, ~!"));
    EXPECT_EQ(instrumentText(""), QByteArray());
}

TEST(InstrumentText, hasNoCodeForOtherLetters)
{
    for (const char* text : {"À", "²", "І", "\x7F", "\t"})
        EXPECT_EQ(instrumentText(QString::fromUtf8(text)), std::nullopt) << text;
}

// What the demo's instruments hold comes back letter by letter when the program speaks Russian.
TEST(InstrumentText, bringsTheDemosCyrillicTextsBack)
{
    SQLite::Database company = testing::opened(testing::published().company);
    const QStringList texts = testing::column(
        company, "SELECT Value FROM tbParametersUser WHERE IDGrp = 6 AND Value GLOB '*[А-Я]*'");
    EXPECT_GT(texts.size(), 5);
    for (const QString& text : texts) {
        QByteArray screen;
        for (const QChar letter : text)
            screen += letter < u'\x80' ? QByteArray(1, letter.toLatin1()) : screenCode(letter);
        EXPECT_EQ(values::Translate_RUChrIn(instrumentText(text).value()).toHex(), screen.toHex())
            << text.toStdString();
    }
}

} // namespace
} // namespace catalogue
