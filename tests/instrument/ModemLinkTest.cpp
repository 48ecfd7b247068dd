#include "Bench.h"

#include "instrument/Checksum.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

Options modem(std::optional<int> group = std::nullopt)
{
    return {LinkMode::Modem, {}, group};
}

QByteArray raise(Bench& bench)
{
    bench.say("ATE0\r");
    return bench.say("ATD\r");
}

TEST(ModemLink, SpeaksTheDialogueWordForWord)
{
    Bench bench({smallPlant(1, "0211 234")}, modem());
    const struct
    {
        const char* said;
        const char* answer;
    } rows[] = {
        {"+++", "OK\r\n"},
        {"ATH\r", "ATH\r\r\nOK\r\n"},
        {"AT\r", "AT\r\r\nOK\r\n"},
        {"ATZ\r", "ATZ\r\r\nOK\r\n"},
        {"ATE0\r", "ATE0\r\r\nOK\r\n"},
        {"AT&D0\r", "\r\nOK\r\n"},
        {"AT&K0\r", "\r\nOK\r\n"},
        {"ATS9=1\r", "\r\nERROR\r\n"},
        {"ATD0211-234\r", "\r\nCONNECT 2400\r\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(bench.say(row.said), row.answer) << row.said;
    EXPECT_EQ(bench.peer.connectedGroup(), 1);
    EXPECT_EQ(bench.say(kReadTwo), kAnswerOfTwo);
    EXPECT_EQ(bench.say("+++", 3000), "OK\r\n");
    EXPECT_FALSE(bench.peer.isConnected());
    EXPECT_EQ(bench.say("ATH\r"), "\r\nOK\r\n");
}

TEST(ModemLink, TakesTheCarriageReturnApart)
{
    Bench bench({smallPlant()}, modem());
    EXPECT_EQ(bench.say("AT"), "");
    EXPECT_EQ(bench.say("\r"), "AT\r\r\nOK\r\n");
}

TEST(ModemLink, HearsACommandBehindNoise)
{
    Bench bench({smallPlant()}, modem());
    EXPECT_EQ(bench.say("\x80xAT\r"), "AT\r\r\nOK\r\n");
    EXPECT_EQ(bench.say("noise\r"), "");
}

TEST(ModemLink, ReadsNoEscapeOutOfAFrame)
{
    Bench bench({smallPlant()}, modem());
    raise(bench);
    QByteArray write = hex("3030571003") + "+++";
    write += closingByte(write);
    EXPECT_EQ(bench.say(write), hex("06"));
    EXPECT_TRUE(bench.peer.isConnected());
    EXPECT_EQ(bench.peer.statistics().writes().front().request.data, "+++");
}

TEST(ModemLink, StaysDeafToFramesInCommandMode)
{
    Bench bench({smallPlant()}, modem());
    raise(bench);
    bench.say("+++");
    EXPECT_EQ(bench.say(kReadTwo), "");
    EXPECT_EQ(bench.say("+++"), "OK\r\n") << "the next connection begins over a line that was only cut";
}

TEST(ModemLink, DropsAnAnswerThatIsDueAfterTheHangUp)
{
    Bench bench({smallPlant()}, modem());
    raise(bench);
    bench.peer.failures().set(Failure::Late, 5000, 1);
    bench.say(kReadTwo, 1000);
    EXPECT_EQ(bench.say("+++", 1000), "OK\r\n");
    EXPECT_EQ(bench.say("ATH\r", 10000), "\r\nOK\r\n");
}

TEST(ModemLink, FindsThePlantByItsNumber)
{
    const struct
    {
        const char* dialled;
        std::optional<int> otherwise;
        std::optional<int> group;
    } rows[] = {
        {"ATD0211 1\r", std::nullopt, 1},
        {"ATD02112\r", std::nullopt, 2},
        {"ATDT0211-2\r", std::nullopt, 2},
        {"ATD999\r", std::nullopt, std::nullopt},
        {"ATD\r", std::nullopt, std::nullopt},
        {"ATD999\r", 2, 2},
        {"ATD\r", 1, 1},
    };
    for (const auto& row : rows) {
        Bench bench({smallPlant(1, "02111"), smallPlant(2, "0211 2")}, modem(row.otherwise));
        bench.say("ATE0\r");
        EXPECT_EQ(bench.say(row.dialled), row.group ? "\r\nCONNECT 2400\r\n" : "\r\nNO CARRIER\r\n")
            << row.dialled;
        EXPECT_EQ(bench.peer.connectedGroup(), row.group) << row.dialled;
    }
}

TEST(ModemLink, TheOnlyPlantAnswersAnyNumber)
{
    Bench bench({smallPlant(7, "123")}, modem());
    EXPECT_EQ(raise(bench), "\r\nCONNECT 2400\r\n");
    EXPECT_EQ(bench.peer.connectedGroup(), 7);
}

TEST(ModemLink, AbandonsDiallingAtTheEscape)
{
    Bench bench({smallPlant()}, modem());
    bench.say("ATE0\r");
    EXPECT_EQ(bench.say("ATD1\r", 500), "");
    EXPECT_EQ(bench.say("+++", 5000), "OK\r\n");
    EXPECT_FALSE(bench.peer.isConnected());
}

TEST(ModemLink, FindsNoCarrierAsOftenAsTold)
{
    Bench bench({smallPlant()}, modem());
    bench.peer.failures().set(Failure::NoCarrier, 0, 1);
    EXPECT_EQ(raise(bench), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(raise(bench), "\r\nCONNECT 2400\r\n");
}

TEST(ModemLink, KeepsSilentAsOftenAsTold)
{
    Bench bench({smallPlant()}, modem());
    bench.peer.failures().set(Failure::ModemSilent, 0, 2);
    EXPECT_EQ(bench.say("+++"), "");
    EXPECT_EQ(bench.say("ATH\r"), "");
    EXPECT_EQ(bench.say("AT\r"), "AT\r\r\nOK\r\n");
}

TEST(ModemLink, LosesTheCarrierOnDemand)
{
    Bench bench({smallPlant()}, modem());
    raise(bench);
    bench.peer.dropCarrier(bench.now);
    EXPECT_EQ(bench.wait(1000), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(bench.say(kReadTwo), "");
}

TEST(ModemLink, CallsInWithTwoBlocks)
{
    Bench bench({smallPlant()}, modem());
    bench.say("ATE0\r");
    bench.peer.call(kReport, bench.now);
    EXPECT_EQ(bench.wait(3000), "\r\nRING\r\n");
    EXPECT_EQ(bench.say("ATA\r", 2000), "\r\nCONNECT 2400\r\n");
    EXPECT_EQ(bench.wait(2000), kReport.firstBlock);
    EXPECT_EQ(bench.wait(3000), "") << "the second block waits for \"OK\"";
    EXPECT_EQ(bench.say("OK", 3000), kReport.secondBlock);
    EXPECT_EQ(bench.wait(8000), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(bench.say("AT\r"), "\r\nOK\r\n");
}

TEST(ModemLink, RingsAgainUntilAnswered)
{
    Bench bench({smallPlant()}, modem());
    bench.peer.call(kReport, bench.now);
    EXPECT_EQ(bench.wait(8000), "\r\nRING\r\n\r\nRING\r\n\r\nRING\r\n");
    const QByteArray rest = bench.wait(600000);
    EXPECT_EQ(rest.count("RING"), 9) << "and gives up in the end";
    EXPECT_TRUE(bench.notes.contains(QStringLiteral("nobody answers the call")));
    EXPECT_FALSE(bench.peer.nextDue());
}

TEST(ModemLink, HangsUpOnACalledProgramThatNeverSaysOk)
{
    Bench bench({smallPlant()}, modem());
    bench.say("ATE0\r");
    bench.peer.call(kReport, bench.now);
    bench.say("ATA\r", 5000);
    EXPECT_EQ(bench.wait(60000), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(bench.say("ATA\r"), "\r\nNO CARRIER\r\n") << "nobody calls any more";
}

TEST(ModemLink, HoldsACallBackWhileConnected)
{
    Bench bench({smallPlant()}, modem());
    raise(bench);
    bench.peer.call(kReport, bench.now);
    EXPECT_EQ(bench.wait(10000), "");
    bench.say("+++");
    EXPECT_EQ(bench.say("ATH\r", 500), "\r\nRING\r\n\r\nOK\r\n");
}

} // namespace
