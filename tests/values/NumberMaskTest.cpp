#include "values/NumberMask.h"

#include <gtest/gtest.h>

using namespace values;

namespace {

struct MaskRow
{
    const char* value;
    const char* mask;
    const char* shown;
};

class NumberMaskTest : public testing::TestWithParam<MaskRow>
{
};

TEST_P(NumberMaskTest, Shows)
{
    const auto& row = GetParam();
    EXPECT_EQ(formatMask(row.value, row.mask).toStdString(), row.shown) << row.value << " in " << row.mask;
}

INSTANTIATE_TEST_SUITE_P(
    Whole, NumberMaskTest,
    testing::Values(MaskRow{"0", "0", "0"}, MaskRow{"12.3", "0", "12"}, MaskRow{"0.5", "0", "1"},
                    MaskRow{"1.5", "0", "2"}, MaskRow{"2.5", "0", "3"}, MaskRow{"-2.5", "0", "-3"},
                    MaskRow{"-0.4", "0", "0"}, MaskRow{"9.5", "0", "10"}, MaskRow{"999.9", "0", "1000"},
                    MaskRow{"7", "000", "007"}, MaskRow{"0.049", "0", "0"},
                    MaskRow{"1E+15", "0", "1000000000000000"}, MaskRow{"1.5E+17", "0", "150000000000000000"},
                    MaskRow{"0", "#", ""}, MaskRow{"12", "##0", "12"}));

INSTANTIATE_TEST_SUITE_P(Decimals, NumberMaskTest,
                         testing::Values(MaskRow{"12.3", "0.0", "12.3"}, MaskRow{"12,3", "0.0", "12.3"},
                                         MaskRow{"466", "0.0", "466.0"}, MaskRow{"0.05", "0.0", "0.1"},
                                         MaskRow{"0.25", "0.0", "0.3"}, MaskRow{"0.35", "0.0", "0.4"},
                                         MaskRow{"1.005", "0.00", "1.01"}, MaskRow{"-0.05", "0.0", "-0.1"},
                                         MaskRow{"-0.04", "0.0", "0.0"}, MaskRow{"99.95", "0.0", "100.0"},
                                         MaskRow{"1E-05", "0.000", "0.000"},
                                         MaskRow{"1E-05", "0.00000", "0.00001"},
                                         MaskRow{"0.000999", "0.000", "0.001"}, MaskRow{"1.5", "0.0#", "1.5"},
                                         MaskRow{"1.257", "0.0#", "1.26"}, MaskRow{"0.5", "#.0", ".5"},
                                         MaskRow{"-10", "0.00", "-10.00"}, MaskRow{"5", "0.", "5."}));

INSTANTIATE_TEST_SUITE_P(Grouped, NumberMaskTest,
                         testing::Values(MaskRow{"0", "#,##0", "0"}, MaskRow{"999", "#,##0", "999"},
                                         MaskRow{"1000", "#,##0", "1,000"},
                                         MaskRow{"-1234567.8", "#,##0", "-1,234,568"},
                                         MaskRow{"999999.5", "#,##0", "1,000,000"},
                                         MaskRow{"12345.678", "#,##0.00", "12,345.68"}));

INSTANTIATE_TEST_SUITE_P(AsItStands, NumberMaskTest,
                         testing::Values(MaskRow{"abc", "0.0", "abc"}, MaskRow{"", "0", ""},
                                         MaskRow{"12.30", "", "12.3"}, MaskRow{"12.30", "fixed", "12.3"},
                                         MaskRow{"12.30", "0.0.0", "12.3"}));

TEST(NumberMaskTest, KnowsWhetherAMaskGroupsDigits)
{
    for (const char* mask : {"#,##0", "#,##0.0", ",0", "0,000"})
        EXPECT_TRUE(groupsDigits(mask)) << mask;
    for (const char* mask : {"", "0", "0.0", "0.0,0", "#,##0x", "x,0"})
        EXPECT_FALSE(groupsDigits(mask)) << mask;
}

} // namespace
