#include "events/Stamp.h"

#include <gmock/gmock.h>

using namespace events;

namespace {

struct Row
{
    const char* text;
    Stamp stamp;
};

class StampTest : public testing::TestWithParam<Row>
{
};

TEST_P(StampTest, IsADateOfTheLogAndATime)
{
    EXPECT_EQ(stampOf(QByteArrayView(GetParam().text)), GetParam().stamp);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, StampTest,
    testing::Values(Row{"14/03/2026 10:20:30", 20260314102030}, Row{"03/12/2026 00:00:00", 20261203000000},
                    Row{"31/12/9999 23:59:59", 99991231235959}, Row{"01/01/0001 00:00:00", 10101000000},
                    Row{"29/02/2024 23:59:59", 20240229235959},
                    Row{"29/02/2026 10:20:30", kNoStamp}, // no leap year
                    Row{"00/03/2026 10:20:30", kNoStamp},
                    Row{"03/14/2026 10:20:30", kNoStamp}, // not month first
                    Row{"14/03/2026 24:00:00", kNoStamp}, Row{"14/03/2026 10:60:30", kNoStamp},
                    Row{"14/03/2026 10:20:60", kNoStamp}, Row{"14/03/2026 10:20:3", kNoStamp}, // cut off
                    Row{"14/03/2026", kNoStamp}, Row{"", kNoStamp}, Row{"14.03.2026 10:20:30", kNoStamp},
                    Row{"14/03/2026T10:20:30", kNoStamp}, Row{"1a/03/2026 10:20:30", kNoStamp},
                    Row{"14/03/2026 10:20:30 ", kNoStamp}, Row{"//////////////////:", kNoStamp},
                    Row{"14/03/2026 10:20::0", kNoStamp}));

TEST(Stamp, GoesThereAndBack)
{
    const Stamp stamp = stampOf(QDate(2026, 3, 14), QTime(10, 20, 30));
    EXPECT_EQ(stamp, 20260314102030);
    EXPECT_EQ(dateOf(stamp), QDate(2026, 3, 14));
    EXPECT_EQ(timeOf(stamp), QTime(10, 20, 30));
    const auto text = [](Stamp when) {
        const auto characters = sortableText(when);
        return std::string(characters.begin(), characters.end());
    };
    EXPECT_EQ(text(stamp), "2026/03/14 10:20:30");
    EXPECT_EQ(text(10203040506), "0001/02/03 04:05:06");
}

} // namespace
