#include "instrument/LineText.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(LineText, EncodesForInstrumentAndScreen)
{
    const struct
    {
        const char16_t* text;
        const char* instrument;
        const char* screen;
    } rows[] = {
        {u"", "", ""},           {u"Cold 1", "436F6C642031", "436F6C642031"},
        {u"à°", "E0B0", "E0B0"}, {u"АВС", "414243", "C0C2D1"},
        {u"Ёё", "A2B5", "A8B8"}, {u"Яя", "B1C7", "DFFF"},
        {u"Дд", "E0E3", "C4E4"}, {u"Щъ", "E2C2", "D9FA"},
        {u"€", "3F", "3F"},
    };
    for (const auto& row : rows) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(instrumentCharacters(text).toHex(), QByteArray(row.instrument).toLower())
            << text.toStdString();
        EXPECT_EQ(screenCharacters(text).toHex(), QByteArray(row.screen).toLower()) << text.toStdString();
    }
}

TEST(LineText, ReadsAReport)
{
    const struct
    {
        const char* text;
        AlarmReport report;
    } rows[] = {
        {"<P><U><A> | <P><Done>", {"<P><U><A>", "<P><Done>"}},
        {"<P><U><A><B>", {"<P><U><A><B>", "<P><End of report>"}},
        {"<P><U><A> |", {"<P><U><A>", ""}},
        {"no brackets", {"no brackets", ""}},
        {"| <P><Done>", {"", "<P><Done>"}},
        {"<\\x41\\x7C><U><A> |", {"<A|><U><A>", ""}},
        {"<\\xZZ> |", {"<\\xZZ>", ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(reportFromText(QString::fromLatin1(row.text)), row.report) << row.text;
}

TEST(LineText, WritesAReportThatReadsBack)
{
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += char(byte);
    const AlarmReport reports[] = {
        {"<P><U><A>", "<P><Done>"},      {"<P><U><A>", ""},      {"", "<P>"},
        {" blanks at both ends ", "  "}, {everyByte, everyByte}, {"a \\ and a |", "\\x41"}};
    for (const AlarmReport& report : reports)
        EXPECT_EQ(reportFromText(textFromReport(report)), report) << textFromReport(report).toStdString();
}

} // namespace
