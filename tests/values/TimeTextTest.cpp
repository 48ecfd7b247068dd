#include "values/TimeText.h"

#include <gtest/gtest.h>

using namespace values;

namespace {

struct ComposeRow
{
    double seconds;
    TimeForm form;
    const char* text;
};

TEST(TimeTextTest, ComposesFromSeconds)
{
    const ComposeRow rows[] = {
        {9000, TimeForm::H, "02:00:00"},  {9000, TimeForm::HM, "02:30:00"}, {9000, TimeForm::HMS, "02:30:00"},
        {0, TimeForm::H, "00:00:00"},     {0, TimeForm::HMS, "00:00:00"},   {86340, TimeForm::HM, "23:59:00"},
        {35999, TimeForm::H, "09:00:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(composeTime(row.seconds, row.form).toStdString(), row.text);
}

// The minutes take the seconds with them as a fraction, so the seconds are always what is left: none.
TEST(TimeTextTest, WhatIsNoTimeOfDayStaysAsComposed)
{
    const ComposeRow rows[] = {
        {90000, TimeForm::H, "25:00:00"},  {86400, TimeForm::HM, "24:0:00"},
        {90300, TimeForm::HM, "25:5:00"},  {90300, TimeForm::HMS, "25:5:0"},
        {-60, TimeForm::HM, "-1:59:00"},   {-1, TimeForm::H, "-1:00:00"},
        {9030, TimeForm::HM, "2:30.5:00"}, {9030, TimeForm::HMS, "2:30.5:0"},
        {45, TimeForm::HMS, "0:0.75:0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(composeTime(row.seconds, row.form).toStdString(), row.text);
}

struct FormatRow
{
    const char* text;
    TimeForm form;
    const char* shown;
};

TEST(TimeTextTest, ShowsTheLeadingFields)
{
    const FormatRow rows[] = {
        {"02:30:15", TimeForm::H, "02"},
        {"02:30:15", TimeForm::HM, "02:30"},
        {"02:30:15", TimeForm::HMS, "02:30:15"},
        {"2:5:7", TimeForm::HM, "02:05"},
        {"2:5", TimeForm::HMS, "02:05:00"},
        {"25:00:00", TimeForm::H, "25:00:00"},
        {"24:0:00", TimeForm::HM, "24:0:00"},
        {"2:30.5:00", TimeForm::HM, "2:30.5:00"},
        {"-1:59:00", TimeForm::H, "-1:59:00"},
        {"02:60:00", TimeForm::HM, "02:60:00"},
        {"02:00:60", TimeForm::HM, "02:00:60"},
        {"", TimeForm::H, ""},
        {"2", TimeForm::H, "2"},
        {"0", TimeForm::H, "00"},
        {"0", TimeForm::HM, "00:00"},
        {"0", TimeForm::HMS, "00:00:00"},
        {"00", TimeForm::HM, "00"},
        {"-0", TimeForm::HM, "-0"},
        {"1:2:3:4", TimeForm::H, "1:2:3:4"},
        {"001:02:03", TimeForm::H, "001:02:03"},
        {"a:b:c", TimeForm::HMS, "a:b:c"},
        {"99999999999:0:0", TimeForm::H, "99999999999:0:0"},
        {"::", TimeForm::HMS, "::"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatTime(row.text, row.form).toStdString(), row.shown) << row.text;
}

TEST(TimeTextTest, NormalizesToTwoDigitsAField)
{
    EXPECT_EQ(normalizeTime("2:30:00"), "02:30:00");
    EXPECT_EQ(normalizeTime("23:59:59"), "23:59:59");
}

TEST(TimeTextTest, ReadsTheFields)
{
    const auto time = parseTime("12:34:56");
    ASSERT_TRUE(time);
    EXPECT_EQ(time->hour, 12);
    EXPECT_EQ(time->minute, 34);
    EXPECT_EQ(time->second, 56);
    EXPECT_FALSE(parseTime("24:00:00"));
    EXPECT_FALSE(parseTime("--.--"));
}

TEST(TimeTextTest, KnowsTheTagsOfTimes)
{
    EXPECT_EQ(timeFormOf("TIME_H"), TimeForm::H);
    EXPECT_EQ(timeFormOf("TIME_HM"), TimeForm::HM);
    EXPECT_EQ(timeFormOf("TIME_HMS"), TimeForm::HMS);
    for (const char* tag : {"", "TIME", "REAL", "time_h", "TIME_HMSS"})
        EXPECT_FALSE(timeFormOf(tag)) << tag;
}

} // namespace
