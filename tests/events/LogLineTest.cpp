#include "events/LogLine.h"

#include "LogText.h"

#include <gmock/gmock.h>

using namespace events;

namespace {

TEST(LogLine, CutsItsFieldsByPlace)
{
    const QByteArray bytes = logs::line("2", "14/03/2026 10:20:30", "1", QByteArray(50, 'E'),
                                        QByteArray(50, 'I'), QByteArray(255, 'D')) +
                             "beyond";
    const LogLine line(bytes);
    EXPECT_EQ(line.type, 2);
    EXPECT_EQ(line.when, 20260314102030);
    EXPECT_EQ(line.dateText, "14/03/2026 10:20:30");
    EXPECT_EQ(line.source, "1");
    EXPECT_EQ(line.equipment, QByteArray(50, 'E'));
    EXPECT_EQ(line.instrument, QByteArray(50, 'I'));
    EXPECT_EQ(line.description, QByteArray(255, 'D'));
}

TEST(LogLine, TrimsBlanksOnBothSidesAndNothingElse)
{
    const QByteArray bytes = logs::line("1", "", " 2", "  A  B ", "\tC\t", "         D         ");
    const LogLine line(bytes);
    EXPECT_EQ(line.source, "2");
    EXPECT_EQ(line.equipment, "A  B");
    EXPECT_EQ(line.instrument, "\tC\t");
    EXPECT_EQ(line.description, "D");
    EXPECT_EQ(line.when, kNoStamp);
}

TEST(LogLine, TrimsAnyNumberOfBlanks)
{
    for (int length = 0; length <= 255; ++length) {
        const QByteArray bytes = logs::line("1", "", "", "", "", QByteArray(length, 'd'));
        EXPECT_EQ(LogLine(bytes).description.size(), length);
    }
}

TEST(LogLine, ACutLineHasWhatStandsThereAndNoMore)
{
    const QByteArray whole = logs::line("1", "14/03/2026 10:20:30", "2", "PLANT", "BOILER", "Connected.");
    for (qsizetype length = 1; length <= whole.size(); ++length) {
        const LogLine line(QByteArrayView(whole).first(length));
        EXPECT_EQ(line.type, 1);
        EXPECT_EQ(line.dateText, whole.mid(1, std::clamp<qsizetype>(length - 1, 0, 19)).trimmed());
        EXPECT_EQ(line.when != kNoStamp, length >= 20) << length;
        EXPECT_EQ(line.source, length > 20 ? "2" : "");
        EXPECT_EQ(line.equipment, QByteArray("PLANT").left(std::max<qsizetype>(length - 23, 0)));
        EXPECT_EQ(line.instrument, QByteArray("BOILER").left(std::max<qsizetype>(length - 73, 0)));
        EXPECT_EQ(line.description, QByteArray("Connected.").left(std::max<qsizetype>(length - 123, 0)));
    }
}

TEST(LogLine, OnlyWhatStartsWithADigitIsAnEvent)
{
    EXPECT_TRUE(LogLine::isEvent("0"));
    EXPECT_TRUE(LogLine::isEvent("9 and more"));
    for (const char* line : {"", " 1", "/", ":", "-1", "Error", "\xB9"})
        EXPECT_FALSE(LogLine::isEvent(line)) << line;
}

} // namespace
