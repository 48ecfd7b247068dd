#include "Bench.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

Options cable(std::optional<int> group = std::nullopt)
{
    return {LinkMode::Cable, {}, group};
}

void raise(Bench& bench)
{
    bench.say("RING");
    bench.say("CONNECT");
}

TEST(CableLink, SpeaksTheDialogueWordForWord)
{
    Bench bench({smallPlant()}, cable());
    EXPECT_EQ(bench.say("RING", 3000), "ATA\r");
    EXPECT_FALSE(bench.peer.isConnected());
    EXPECT_EQ(bench.say("CONNECT"), "");
    EXPECT_TRUE(bench.peer.isConnected());
    EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
    EXPECT_EQ(bench.say("+++"), "\r");
    EXPECT_EQ(bench.say(kReadTwo), "") << "escaped, it is deaf to frames";
    EXPECT_EQ(bench.say("ATH\r"), "");
    EXPECT_EQ(bench.say("RING"), "ATA\r") << "and ready for the next connection";
}

TEST(CableLink, TakesWordsLetterByLetter)
{
    Bench bench({smallPlant()}, cable());
    EXPECT_EQ(bench.say("x\x01RI"), "");
    EXPECT_EQ(bench.say("NG"), "ATA\r");
    bench.say("CON");
    EXPECT_FALSE(bench.peer.isConnected());
    bench.say("NECT");
    EXPECT_TRUE(bench.peer.isConnected());
}

TEST(CableLink, LeadsToTheToldPlant)
{
    Bench first({smallPlant(1), smallPlant(2)}, cable());
    raise(first);
    EXPECT_EQ(first.peer.connectedGroup(), 1);
    Bench second({smallPlant(1), smallPlant(2)}, cable(2));
    raise(second);
    EXPECT_EQ(second.peer.connectedGroup(), 2);
}

TEST(CableLink, AnswersAProgramThatBeginsAnew)
{
    Bench bench({smallPlant()}, cable());
    raise(bench);
    EXPECT_EQ(bench.say("RING"), "ATA\r") << "in the middle of a connection";
    bench.say("CONNECT");
    EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
    EXPECT_EQ(bench.say("+++"), "\r");
    EXPECT_EQ(bench.say("RING"), "ATA\r") << "after a connection that was only cut";
}

TEST(CableLink, KeepsSilentAsOftenAsTold)
{
    Bench bench({smallPlant()}, cable());
    bench.peer.failures().set(Failure::ModemSilent, 0, 1);
    EXPECT_EQ(bench.say("RING", 60000), "");
    EXPECT_EQ(bench.say("RING"), "ATA\r");
}

TEST(CableLink, CallsInWithTwoBlocks)
{
    Bench bench({smallPlant()}, cable());
    bench.peer.call(kReport, bench.now);
    EXPECT_EQ(bench.wait(3000), "ATD\r");
    EXPECT_EQ(bench.say("CONNECT", 3000), kReport.firstBlock);
    EXPECT_EQ(bench.say("OK", 3000), kReport.secondBlock);
    EXPECT_EQ(bench.wait(20000), "");
    EXPECT_EQ(bench.say("RING"), "ATA\r");
}

TEST(CableLink, SendsNoSecondBlockWhereThereIsNone)
{
    Bench bench({smallPlant()}, cable());
    bench.peer.call({"<Plant 1><Unit 2><Alarm A>", {}}, bench.now);
    bench.wait(1000);
    EXPECT_EQ(bench.say("CONNECT", 3000), "<Plant 1><Unit 2><Alarm A>");
    EXPECT_EQ(bench.say("OK", 60000), "");
}

TEST(CableLink, GivesACallUp)
{
    Bench bench({smallPlant()}, cable());
    bench.peer.call(kReport, bench.now);
    EXPECT_EQ(bench.wait(120000), "ATD\r");
    EXPECT_EQ(bench.say("CONNECT", 60000), "") << "too late";
    bench.peer.call(kReport, bench.now);
    bench.wait(1000);
    bench.say("CONNECT", 3000);
    EXPECT_EQ(bench.wait(120000), "");
    EXPECT_TRUE(bench.notes.contains(QStringLiteral("call ended, no \"OK\" came")));
}

} // namespace
