#include "events/EventFilter.h"

#include "LogText.h"
#include "platform/CodePage.h"

#include <gmock/gmock.h>

using namespace events;

namespace {

EventFilter everything()
{
    return {"True", "True", "True", "True", "0", {}, {}, "0", {}, {}, "0", {}, {}};
}

struct Row
{
    const char* what;
    QString EventFilter::*field;
    QString value;
    QByteArray line;
    bool passes;
};

QByteArray typed(const QByteArray& type)
{
    return logs::line(type, "14/03/2026 10:20:30", "2", "PLANT", "BOILER", "x");
}

QByteArray from(const QByteArray& source)
{
    return logs::line("1", "14/03/2026 10:20:30", source, "PLANT", "BOILER", "x");
}

QByteArray of(const QByteArray& equipment, const QByteArray& instrument)
{
    return logs::line("1", "14/03/2026 10:20:30", "2", equipment, instrument, "x");
}

class EventFilterTest : public testing::TestWithParam<Row>
{
};

TEST_P(EventFilterTest, OneFieldAlone)
{
    EventFilter filter = everything();
    filter.*GetParam().field = GetParam().value;
    const LineFilter line(filter, 1252);
    EXPECT_EQ(line.Add_Event_EventViewer(LogLine(GetParam().line)), GetParam().passes) << GetParam().what;
    filter.Active = "False";
    EXPECT_TRUE(LineFilter(filter, 1252).Add_Event_EventViewer(LogLine(GetParam().line)))
        << "a filter that isn't active holds nothing back";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EventFilterTest,
    testing::Values(
        Row{"information", &EventFilter::Info, "True", typed("1"), true},
        Row{"no information", &EventFilter::Info, "False", typed("1"), false},
        Row{"others without information", &EventFilter::Info, "False", typed("2"), true},
        Row{"warning", &EventFilter::Warning, "True", typed("2"), true},
        Row{"no warning", &EventFilter::Warning, "False", typed("2"), false},
        Row{"others without warning", &EventFilter::Warning, "False", typed("3"), true},
        Row{"error", &EventFilter::Error, "True", typed("3"), true},
        Row{"no error", &EventFilter::Error, "False", typed("3"), false},
        Row{"others without error", &EventFilter::Error, "False", typed("1"), true},
        Row{"no type that there is", &EventFilter::Info, "True", typed("0"), false},
        Row{"shown as an error, but none", &EventFilter::Error, "True", typed("4"), false},

        Row{"all sources", &EventFilter::Source, "0", from("7"), true},
        Row{"no source told", &EventFilter::Source, "", from("7"), true},
        Row{"alarms", &EventFilter::Source, "1", from("1"), true},
        Row{"alarms, padded in front", &EventFilter::Source, "1", from(" 1"), true},
        Row{"alarms only", &EventFilter::Source, "1", from("2"), false},
        Row{"read/write", &EventFilter::Source, "2", from("2"), true},
        Row{"ten times as much", &EventFilter::Source, "1", from("10"), false},
        Row{"without source", &EventFilter::Source, "1", from(""), false},

        Row{"any equipment", &EventFilter::Equipment, "", of("PLANT", ""), true},
        Row{"this equipment", &EventFilter::Equipment, "PLANT", of("PLANT", ""), true},
        Row{"its blanks don't count", &EventFilter::Equipment, "PLANT", of("  PLANT", ""), true},
        Row{"a part of the name", &EventFilter::Equipment, "PLAN", of("PLANT", ""), false},
        Row{"more than the name", &EventFilter::Equipment, "PLANT 1", of("PLANT", ""), false},
        Row{"other letters", &EventFilter::Equipment, "plant", of("PLANT", ""), false},
        Row{"the instrument's name", &EventFilter::Equipment, "BOILER", of("PLANT", "BOILER"), false},
        Row{"in the file's code page", &EventFilter::Equipment, "Caf\u00E9", of("Caf\xE9", ""), true},
        Row{"what the code page lacks", &EventFilter::Equipment, "\u041A", of("?", ""), false},
        Row{"a question mark is one", &EventFilter::Equipment, "?", of("?", ""), true},
        Row{"50 characters", &EventFilter::Equipment, QString(50, 'W'), of(QByteArray(50, 'W'), ""), true},
        Row{"any instrument", &EventFilter::Instrument, "", of("", "BOILER"), true},
        Row{"this instrument", &EventFilter::Instrument, "BOILER", of("", "BOILER"), true},
        Row{"another instrument", &EventFilter::Instrument, "BOILER", of("", "BOILER 2"), false},
        Row{"no instrument", &EventFilter::Instrument, "BOILER", of("", ""), false},
        Row{"the equipment's name", &EventFilter::Instrument, "PLANT", of("PLANT", ""), false}));

struct Time
{
    const char* from;
    const char* to;
    QByteArray date;
    bool passes;
};

class EventSpanTest : public testing::TestWithParam<Time>
{
};

TEST_P(EventSpanTest, TakesBothLimitsIn)
{
    EventFilter filter = everything();
    const QString from(GetParam().from), to(GetParam().to);
    filter.FromMode = from.isEmpty() ? "0" : "1";
    filter.FromDate = from.left(10);
    filter.FromTime = from.mid(11);
    filter.ToMode = to.isEmpty() ? "0" : "1";
    filter.ToDate = to.left(10);
    filter.ToTime = to.mid(11);
    const QByteArray line = logs::line("1", GetParam().date, "2", "", "", "x");
    EXPECT_EQ(LineFilter(filter, 1252).Add_Event_EventViewer(LogLine(line)), GetParam().passes);
}

constexpr char kNoon[] = "14/03/2026 12:00:00";

INSTANTIATE_TEST_SUITE_P(
    Times, EventSpanTest,
    testing::Values(
        Time{kNoon, "", "14/03/2026 12:00:00", true}, Time{kNoon, "", "14/03/2026 11:59:59", false},
        Time{kNoon, "", "14/03/2026 12:00:01", true}, Time{kNoon, "", "15/03/2026 00:00:00", true},
        Time{kNoon, "", "13/04/2025 23:00:00", false}, Time{kNoon, "", "02/01/2027 00:00:00", true},
        Time{kNoon, "", "14/03/1926 13:00:00", false}, // four digits of the year
        Time{"", kNoon, "14/03/2026 12:00:00", true}, Time{"", kNoon, "14/03/2026 12:00:01", false},
        Time{"", kNoon, "14/03/2026 11:59:59", true}, Time{"", kNoon, "15/03/2026 00:00:00", false},
        Time{"", kNoon, "13/03/2026 23:59:59", true}, Time{kNoon, kNoon, "14/03/2026 12:00:00", true},
        Time{kNoon, "13/03/2026 12:00:00", "14/03/2026 12:00:00", false}, // ends before it begins
        Time{kNoon, "13/03/2026 12:00:00", "13/03/2026 12:00:00", false},
        Time{kNoon, "", "14/03/2026 12:00", false}, Time{"", kNoon, "", false},
        Time{"", "", "no date", true}));

TEST(EventFilter, BooleanTextsAreTrueAndFalse)
{
    EXPECT_EQ(booleanText(true), "True");
    EXPECT_EQ(booleanText(false), "False");
    EXPECT_TRUE(isTrue("True"));
    EXPECT_FALSE(isTrue("False"));
    EXPECT_FALSE(isTrue({}));
}

TEST(EventFilter, ComparesInTheCodePageOfTheFiles)
{
    EventFilter filter = everything();
    filter.Instrument = "\u041A\u041E\u0422\u0401\u041B";
    const QByteArray line =
        logs::line("1", "14/03/2026 10:20:30", "2", "", platform::encode(filter.Instrument, 1251), "x");
    EXPECT_TRUE(LineFilter(filter, 1251).Add_Event_EventViewer(LogLine(line)));
    EXPECT_FALSE(LineFilter(filter, 1252).Add_Event_EventViewer(LogLine(line)));
}

} // namespace
