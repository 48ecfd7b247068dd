#include "events/Timeline.h"

#include <gmock/gmock.h>

using events::kNoStamp;
using events::Stamp;
using events::Timeline;
using testing::ElementsAre;

namespace {

using Events = std::vector<std::pair<Stamp, int>>;

Timeline timelineOf(const Events& events)
{
    return Timeline::of([&](auto&& take) {
        for (const auto& [when, type] : events)
            take(when, type);
    });
}

constexpr qint64 kDay = 2461114; // 2026-03-14

TEST(Timeline, CountsByDayAndType)
{
    const Timeline timeline = timelineOf({{20260314000000, 1},
                                          {20260314235959, 1},
                                          {20260320120000, 3},
                                          {20260314120000, 2},
                                          {kNoStamp, 1}, // without a date it lies nowhere
                                          {20260313235959, 3}});
    EXPECT_FALSE(timeline.byHour());
    EXPECT_EQ(timeline.first(), kDay - 1);
    EXPECT_EQ(timeline.last(), kDay + 6);
    ASSERT_EQ(timeline.bars().size(), 3u);
    EXPECT_THAT(timeline.bars()[1].counts, ElementsAre(0, 2, 1, 0));
    EXPECT_EQ(timeline.bars()[1].total(), 3);
    EXPECT_EQ(timeline.bar(kDay + 6).total(), 1);
    EXPECT_EQ(timeline.bar(kDay + 5).total(), 0);
    EXPECT_EQ(timeline.bar(kDay + 5).unit, kDay + 5);
    EXPECT_THAT(timeline.sum(kDay - 1, kDay + 5).counts, ElementsAre(0, 2, 1, 1));
    EXPECT_EQ(timeline.begin(kDay), 20260314000000);
    EXPECT_EQ(timeline.end(kDay), 20260314235959);
    EXPECT_EQ(timeline.name(kDay), "2026/03/14");
}

TEST(Timeline, CountsByHourWithinThreeDays)
{
    const Timeline timeline = timelineOf({{20260314005959, 1}, {20260314010000, 2}, {20260316235959, 3}});
    EXPECT_TRUE(timeline.byHour());
    EXPECT_EQ(timeline.first(), kDay * 24);
    EXPECT_EQ(timeline.last(), kDay * 24 + 71);
    EXPECT_THAT(timeline.bar(kDay * 24 + 1).counts, ElementsAre(0, 0, 1, 0));
    EXPECT_EQ(timeline.unitOf(20260315133000), kDay * 24 + 37);
    EXPECT_EQ(timeline.begin(kDay * 24 + 37), 20260315130000);
    EXPECT_EQ(timeline.end(kDay * 24 + 37), 20260315135959);
    EXPECT_EQ(timeline.name(kDay * 24 + 37), "2026/03/15 13:00");
    EXPECT_FALSE(timelineOf({{20260314235959, 1}, {20260317000000, 1}}).byHour());
}

TEST(Timeline, EventsInAnyOrderCount)
{
    const Timeline timeline = timelineOf({{20260320100000, 1},
                                          {20260314110000, 1},
                                          {20260320110000, 2},
                                          {20260314100000, 3},
                                          {20260320100001, 1}});
    ASSERT_EQ(timeline.bars().size(), 2u);
    EXPECT_THAT(timeline.bars()[0].counts, ElementsAre(0, 1, 0, 1));
    EXPECT_THAT(timeline.bars()[1].counts, ElementsAre(0, 2, 1, 0));
}

TEST(Timeline, WithoutEventsThereIsNone)
{
    EXPECT_TRUE(timelineOf({}).isEmpty());
    EXPECT_TRUE(timelineOf({{kNoStamp, 2}}).isEmpty());
    EXPECT_FALSE(timelineOf({{20260314000000, 2}}).isEmpty());
}

} // namespace
