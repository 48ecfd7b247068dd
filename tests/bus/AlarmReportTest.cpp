#include "bus/AlarmReport.h"

#include "support/BusFixture.h"

using namespace support;
using bus::AlarmBlock;

namespace {

class AlarmReportTest : public BusFixture
{
protected:
    // The rows that a block makes.
    QStringList rows(const QString& text, AlarmBlock block = AlarmBlock::First)
    {
        runOnPlant("DELETE FROM tbEvent");
        bus::Extract_Event_Allarm(text, block, eventLog, clock.now());
        return events();
    }
};

TEST_F(AlarmReportTest, EachDescriptionOfTheFirstBlockIsARow)
{
    EXPECT_EQ(rows("<Plant 1><Unit 2><Alarm A><Alarm B>"),
              QStringList({"2/1/Plant 1/Unit 2/Alarm A", "2/1/Plant 1/Unit 2/Alarm B"}));
    EXPECT_EQ(rows("<Plant 1><Unit 2><Alarm A>"), QStringList{"2/1/Plant 1/Unit 2/Alarm A"});
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(AlarmReportTest, TheSecondBlockGivesOneRowWithoutAnInstrument)
{
    EXPECT_EQ(rows("<Plant 1><End of report>", AlarmBlock::Second),
              QStringList{"2/1/Plant 1/-/End of report"});
    EXPECT_EQ(rows("<Plant 1><End><More>", AlarmBlock::Second), QStringList{"2/1/Plant 1/-/End"});
}

TEST_F(AlarmReportTest, OneCharacterIsPassedOverBetweenFieldsWhateverItIs)
{
    struct
    {
        const char* text;
        QStringList expected;
    } const cases[] = {
        {"noise<P><U><A>", {"2/1/P/U/A"}},
        {"<P><U><A>noise", {"2/1/P/U/A"}},
        {"<P>xU>yA>", {"2/1/P/U/A"}},
        {"<P> <U> <A>", {"2/1/P/<U/<A"}},
        {"<P<Q><U><A>", {"2/1/P<Q/U/A"}},
        {"<><><>", {"2/1/-/-/-"}},
        {"<P><U><A><>", {"2/1/P/U/A", "2/1/P/U/-"}},
        {"<P><U><A>\r\n<B>", {"2/1/P/U/A", "2/1/P/U/\n<B"}},
        {"<P><U><A><B", {"2/1/P/U/A"}},
        {"<P><U><A>>", {"2/1/P/U/A"}},
        {"<P><U><A>>>", {"2/1/P/U/A", "2/1/P/U/-"}},
        {"<O'Hara><it's><'>", {"2/1/O'Hara/it's/'"}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(rows(row.text), row.expected) << row.text;
}

TEST_F(AlarmReportTest, ABlockWithoutTheExpectedFieldsFailsAndKeepsTheRowsSoFar)
{
    for (const char* text : {"", "nothing", ">", "><", "<", "<P", "<P>", "<P>U", "<P><U>", "<P><U><A"}) {
        EXPECT_EQ(rows(text), QStringList()) << text;
        failures.expectOne(platform::errors::kInvalidCall, "Module/Extract_Event_Allarm");
    }
    for (const char* text : {"", "<P>", "<P><E"}) {
        EXPECT_EQ(rows(text, AlarmBlock::Second), QStringList()) << text;
        failures.expectOne(platform::errors::kInvalidCall, "Module/Extract_Event_Allarm");
    }
}

TEST_F(AlarmReportTest, AllRowsOfABlockHaveTheSameMoment)
{
    clock.run(1234567);
    rows("<P><U><A><B><C>");
    EXPECT_EQ(column(plantFile(), "SELECT DISTINCT Date_Reg FROM tbEvent"),
              QStringList{"2026-03-14 09:20:34"});
}

TEST_F(AlarmReportTest, ALongReportIsStoredWhole)
{
    QString text = "<P><U>";
    for (int i = 0; i < 200; ++i)
        text += QStringLiteral("<Alarm %1 %2>").arg(i).arg(QString(300, u'x'));
    EXPECT_EQ(rows(text).size(), 200);
    EXPECT_TRUE(events().last().startsWith("2/1/P/U/Alarm 199 xxx"));
}

} // namespace
