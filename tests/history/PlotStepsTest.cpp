// A parameter over time.
#include "history/PlotSteps.h"

#include "history/HistoryFixture.h"

using namespace support;
using history::HistoryPage;
using history::Plot;
using history::plotOf;
using history::PlotStep;
using values::ValueCause;

namespace {

class PlotSteps : public HistoryFixture
{
protected:
    Plot plot(const QString& key) const
    {
        return plotOf(read(request(key)), clock.now().toMSecsSinceEpoch());
    }
    // "12.3@0-60": number and seconds since the first change.
    static QStringList told(const Plot& plot)
    {
        QStringList steps;
        const qint64 start = plot.steps.at(0).to;
        for (const PlotStep& step : plot.steps)
            steps << QStringLiteral("%1@%2-%3")
                         .arg(step.number ? QString::number(*step.number) : "-")
                         .arg((step.from - start) / 1000)
                         .arg((step.to - start) / 1000);
        return steps;
    }
};

TEST_F(PlotSteps, EachValueAsLongAsItLasted)
{
    edit("P0101", "5");
    edit("P0101", "5", 0, ValueCause::Reset); // the mark alone is no step
    edit("P0101", "NULL");
    edit("P0101", "-7");
    const Plot shown = plot("4_1_1_G01_P0101");
    EXPECT_EQ(shown.form, Plot::Form::Steps);
    EXPECT_EQ(told(shown), QStringList({"12.3@-1-0", "5@0-120", "-@120-180", "-7@180-240"}));
    EXPECT_EQ(shown.span(), std::pair(-7.0, 12.3));
    EXPECT_EQ(shown.at(shown.from() - 5).shown, "12.3 °C");
    EXPECT_EQ(shown.at(shown.steps[1].from).shown, "5.0 °C");
    EXPECT_EQ(shown.at(shown.steps[1].to - 1).shown, "5.0 °C");
    EXPECT_EQ(shown.at(shown.steps[1].to).shown, "--");
    EXPECT_EQ(shown.at(shown.to() + 1000).shown, "-7.0 °C");
}

TEST_F(PlotSteps, StatesAreABand)
{
    edit("P0201", "0");
    const Plot shown = plot("4_1_1_G02_P0201");
    EXPECT_EQ(shown.form, Plot::Form::Band);
    ASSERT_EQ(shown.steps.size(), 2u);
    EXPECT_EQ(shown.steps[0].shown, "On");
    EXPECT_EQ(shown.steps[1].shown, "Off");
}

TEST_F(PlotSteps, TimesOfDayAreNumbers)
{
    edit("P0302", "10:30:00");
    EXPECT_EQ(told(plot("4_1_1_G03_P0302")), QStringList({"9000@-1-0", "37800@0-60"}));
}

TEST_F(PlotSteps, TextsAreNotDrawn)
{
    edit("P0204", "HALL");
    EXPECT_TRUE(plot("4_1_1_G02_P0204").isEmpty());
    EXPECT_EQ(plot("4_1_1_G02_P0204").inWords(texts), "No values to draw.");
    edit("P0101", "5");
    EXPECT_TRUE(plot("2_1_1").isEmpty());
    EXPECT_TRUE(plot("4_1_1_G01_P0102").isEmpty());
}

TEST_F(PlotSteps, WhatWasNotThereHasNoValueBefore)
{
    session.cnDatabase.Execute("INSERT INTO tbParametersUser VALUES (1, 2, 'P0101', 'G01', '4', 0);");
    clock.run(60'000);
    session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDInst = 2 AND IDPar = 'P0101';");
    clock.run(60'000);
    session.cnDatabase.Execute("INSERT INTO tbParametersUser VALUES (1, 2, 'P0101', 'G01', NULL, 0);");
    const Plot shown = plot("4_1_2_G01_P0101");
    ASSERT_EQ(shown.steps.size(), 3u);
    EXPECT_EQ(shown.steps[0].number, 4.0);
    EXPECT_EQ(shown.steps[0].to - shown.steps[0].from, 60'000);
    EXPECT_EQ(shown.steps[1].number, std::nullopt);
    EXPECT_EQ(shown.steps[1].shown, "");
    EXPECT_EQ(shown.steps[2].shown, "--");
    EXPECT_EQ(shown.steps[2].to - shown.steps[2].from, 1000) << "a step that just began is to be seen";
    EXPECT_TRUE(stepWords(shown.steps[1], texts).startsWith("not there, "));
}

TEST_F(PlotSteps, InWords)
{
    edit("P0101", "5");
    const Plot shown = plot("4_1_1_G01_P0101");
    const QString words = shown.inWords(texts);
    EXPECT_EQ(words.count("; "), 2);
    EXPECT_TRUE(words.contains("values: 2")) << qPrintable(words);
    EXPECT_TRUE(words.contains("5.0 °C, " + history::timeWords(shown.steps[1].from) + " - " +
                               history::timeWords(shown.to())))
        << qPrintable(words);
    for (int i = 0; i < 30; ++i)
        edit("P0101", QString::number(i % 7));
    EXPECT_EQ(plot("4_1_1_G01_P0101").inWords(texts).count("; "), 20) << "the last of them";
}

} // namespace
