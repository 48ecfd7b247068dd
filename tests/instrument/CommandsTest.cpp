#include "instrument/Commands.h"

#include "Bench.h"
#include "instrument/MemoryFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(Commands, AnswersEachInOneLine)
{
    Bench bench({smallPlant()});
    Commands commands(bench.peer);
    const struct
    {
        const char* line;
        const char* answer;
    } rows[] = {
        {"fail late 5000 2", "ok late 5000 for 2"},
        {"fail trailing", "ok late 5000 for 2, trailing 3 for good"},
        {"fail late off", "ok"},
        {"fail no-answer 3", "ok no-answer for 3, trailing 3 for good"},
        {"fail none", "ok"},
        {"fail short soon", "error \"soon\" is no number"},
        {"fail short 1 2", "error too many numbers"},
        {"fail late 1 2 3", "error too many numbers"},
        {"fail oddly",
         "error there is no failure \"oddly\"; there are no-answer, late, short, byte-by-byte, trailing, "
         "wrong, no-carrier, modem-silent, gone"},
        {"peek 1 00 82 16 4", "ok 2C 01 00 00"},
        {"poke 1 00 82 17 AA bb", "ok"},
        {"  peek   1 00 82 16 4 ", "ok 2C AA BB 00"},
        {"peek 1 00 82 0 4", "error no bank is there"},
        {"peek 1 09 82 16 4", "error there is no such instrument"},
        {"peek 2 00 82 16 4", "error there is no such instrument"},
        {"peek 1 00 82 16", "error peek <group> <address> <read command> <from> <count>"},
        {"poke 1 00 82 16 A", "error poke <group> <address> <read command> <from> <hex bytes>"},
        {"poke 1 00 82 0 AA", "error no bank is there"},
        {"link cable", "ok"},
        {"link rope", "error a link is auto, modem or cable"},
        {"hangup", "ok"},
        {"status", "ok group=- requests=0 writes=0 bad=0 stray=0 gap=- in=0 out=0 failures=none"},
        {"dance", "error there is no command \"dance\""},
        {"", "error there is no command \"\""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(commands.execute(QString::fromLatin1(row.line), 0).toStdString(), row.answer) << row.line;
    EXPECT_FALSE(commands.quitAsked());
    EXPECT_EQ(commands.execute(QStringLiteral("quit"), 0), QStringLiteral("ok"));
    EXPECT_TRUE(commands.quitAsked());
}

TEST(Commands, MakeTheInstrumentCallIn)
{
    Bench bench({smallPlant()}, {LinkMode::Cable, {}, {}});
    Commands commands(bench.peer);
    EXPECT_EQ(commands.execute(QStringLiteral("call <P><U><A> | <P><E>"), bench.now), QStringLiteral("ok"));
    EXPECT_EQ(bench.wait(1000), "ATD\r");
    EXPECT_EQ(bench.say("CONNECT"), "<P><U><A>");
    EXPECT_EQ(bench.say("OK"), "<P><E>");
}

TEST(Commands, DelayTheBlocksOfACallAndQueueASecondOne)
{
    Bench bench({smallPlant()}, {LinkMode::Cable, {}, {}});
    Commands commands(bench.peer);
    commands.execute(QStringLiteral("call 4000 <P><U><A> | <P><E>"), bench.now);
    commands.execute(QStringLiteral("call 0 <P><U><B> | <P><E>"), bench.now);
    bench.wait(1000);
    EXPECT_EQ(bench.say("CONNECT", 3999), "");
    EXPECT_EQ(bench.wait(1), "<P><U><A>");
    EXPECT_EQ(bench.say("OK", 3999), "");
    EXPECT_EQ(bench.wait(1), "<P><E>");
    EXPECT_EQ(bench.wait(20000), "ATD\r") << "the second call follows";
    EXPECT_EQ(bench.say("CONNECT", 0), "<P><U><B>");
    EXPECT_EQ(bench.say("OK", 0), "<P><E>");
    EXPECT_EQ(commands.execute(QStringLiteral("call 3600001"), bench.now), QStringLiteral("ok"))
        << "no delay, a report";
}

TEST(Commands, TellTheStateOfAConnection)
{
    Bench bench({smallPlant()});
    Commands commands(bench.peer);
    bench.say("RING");
    bench.say("CONNECT");
    bench.say(kReadTwo, 3000);
    bench.say(kReadTwo, 3000);
    EXPECT_EQ(
        commands.execute(QStringLiteral("status"), bench.now),
        QStringLiteral("ok group=1 requests=2 writes=0 bad=0 stray=0 gap=3000 in=23 out=10 failures=none"));
}

TEST(Commands, SaveTheMemories)
{
    Bench bench({smallPlant()});
    Commands commands(bench.peer);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("with blanks in it.txt"));
    EXPECT_EQ(commands.execute(QStringLiteral("save ") + path, 0), QStringLiteral("ok"));
    EXPECT_EQ(loadMemoryFile(path), bench.peer.plants());
    EXPECT_TRUE(commands.execute(QStringLiteral("save /"), 0).startsWith(QStringLiteral("error ")));
}

} // namespace
