#include "instrument/VirtualInstrument.h"

#include "Bench.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

void raise(Bench& bench)
{
    bench.say("RING");
    bench.say("CONNECT");
}

TEST(VirtualInstrument, SaysNothingBeforeItsTime)
{
    Bench bench({smallPlant()});
    raise(bench);
    bench.peer.receive(kReadTwo, bench.now);
    const std::size_t before = bench.said.size();
    ASSERT_EQ(bench.peer.nextDue(), bench.now + Timings().answer);
    bench.peer.advance(bench.now + Timings().answer - 1);
    EXPECT_EQ(bench.said.size(), before);
    bench.peer.advance(bench.now + Timings().answer);
    EXPECT_EQ(bench.said.back().bytes, kAnswerOfTwo);
}

TEST(VirtualInstrument, CallsInAtTheTimesOfItsSchedule)
{
    Plant plant = smallPlant();
    plant.calls = {{100, kReport}, {20, {"<A><B><C>", "<A><D>"}}};
    Options options;
    options.link = LinkMode::Cable;
    Bench bench({plant}, options);
    EXPECT_EQ(bench.peer.nextDue(), 20000);
    EXPECT_EQ(bench.wait(20000), "ATD\r");
    EXPECT_EQ(bench.say("CONNECT"), "<A><B><C>");
    EXPECT_EQ(bench.say("OK", 30000), "<A><D>");
    EXPECT_EQ(bench.wait(60000), "ATD\r");
    EXPECT_EQ(bench.said.back().atMs, 100000);
}

TEST(VirtualInstrument, HearsAndSaysNothingWhileGone)
{
    Bench bench({smallPlant()});
    raise(bench);
    bench.peer.receive(kReadTwo, bench.now);
    bench.peer.failures().set(Failure::Gone, 0);
    EXPECT_FALSE(bench.peer.nextDue());
    EXPECT_EQ(bench.wait(10000), "");
    EXPECT_EQ(bench.say(kReadTwo), "");
    bench.peer.failures().clear(Failure::Gone);
    bench.peer.restart();
    EXPECT_EQ(bench.say(kReadTwo), "") << "the connection is lost";
    raise(bench);
    EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
}

TEST(VirtualInstrument, CountsBytesBothWays)
{
    Bench bench({smallPlant()});
    raise(bench);
    bench.say(kReadTwo);
    EXPECT_EQ(bench.peer.statistics().bytesIn, 4 + 7 + 6);
    EXPECT_EQ(bench.peer.statistics().bytesOut, 4 + 3);
}

TEST(VirtualInstrument, WaitsShorterWhenFaster)
{
    Options options;
    options.timings = Timings().fasterBy(20);
    Bench bench({smallPlant()}, options);
    raise(bench);
    bench.say(kReadTwo);
    const qint64 asked = bench.peer.statistics().requests.front().atMs;
    EXPECT_EQ(bench.said.back().atMs - asked, Timings().answer / 20);
}

TEST(VirtualInstrument, WithoutAPlantAnswersNobody)
{
    Bench bench(Plants{});
    bench.say("ATE0\r");
    EXPECT_EQ(bench.say("ATD1\r"), "\r\nNO CARRIER\r\n");
    raise(bench);
    EXPECT_FALSE(bench.peer.isConnected());
    EXPECT_EQ(bench.say(kReadTwo), "");
}

} // namespace
