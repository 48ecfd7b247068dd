#include "Bench.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(AutoLink, IsWhatTheProgramAsksFor)
{
    const struct
    {
        const char* said;
        const char* answer;
    } rows[] = {{"+++", "OK\r\n"}, {"AT\r", "AT\r\r\nOK\r\n"}, {"RING", "ATA\r"}};
    for (const auto& row : rows) {
        Bench bench({smallPlant()});
        EXPECT_EQ(bench.say(row.said), row.answer);
    }
}

TEST(AutoLink, ChangesItsMindBetweenTwoConnections)
{
    Bench bench({smallPlant()});
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(bench.say("RING"), "ATA\r");
        bench.say("CONNECT");
        EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
        EXPECT_EQ(bench.say("+++"), "\r");
        bench.say("ATH\r");

        EXPECT_EQ(bench.say("+++"), "OK\r\n");
        bench.say("ATE0\r");
        EXPECT_EQ(bench.say("ATD1\r"), "\r\nCONNECT 2400\r\n");
        EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
        EXPECT_EQ(bench.say("+++"), "OK\r\n");
        EXPECT_EQ(bench.say("ATH\r"), "\r\nOK\r\n");
    }
}

TEST(AutoLink, BecomesAModemAfterACableThatWasOnlyCut)
{
    Bench bench({smallPlant()});
    bench.say("RING");
    bench.say("CONNECT");
    EXPECT_EQ(bench.say("+++"), "\r");
    EXPECT_EQ(bench.say("+++"), "OK\r\n");
    EXPECT_EQ(bench.say("ATH\r"), "ATH\r\r\nOK\r\n");
}

TEST(AutoLink, BecomesACableAfterAModemThatWasOnlyCut)
{
    Bench bench({smallPlant()});
    bench.say("ATD1\r");
    bench.say("+++");
    EXPECT_EQ(bench.say("RING"), "ATA\r");
    bench.say("CONNECT");
    EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
}

TEST(AutoLink, CallsInAsWhatItIs)
{
    Bench modem({smallPlant()});
    modem.peer.call(kReport, modem.now);
    EXPECT_EQ(modem.wait(1000), "\r\nRING\r\n");

    Bench cable({smallPlant()});
    cable.say("RING");
    cable.say("CONNECT");
    cable.peer.dropCarrier(cable.now);
    cable.peer.call(kReport, cable.now);
    EXPECT_EQ(cable.wait(1000), "ATD\r");
}

} // namespace
