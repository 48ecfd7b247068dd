// Sequences that once left something that doesn't hold, as the search printed them; and breaks on purpose,
// which must be seen.
#include "line/World.h"

#include <gmock/gmock.h>

using namespace line;
using enum What;

namespace {

class FoundSequences : public testing::Test
{
protected:
    // Plays it from a fresh start and looks at what must hold, then at the way back to rest.
    void play(const Sequence& sequence)
    {
        world.reset();
        world.play(sequence);
        world.recover();
        EXPECT_EQ(world.violation().toStdString(), "");
    }
    World world;
};

TEST_F(FoundSequences, AnAlarmWhileTheCompanyIsLocked)
{
    play({SaysAtd, FirstBlock, Locked, DueAction, DueAction});
}

TEST_F(FoundSequences, AFailureOfTheLineWhileOneOfTheConsoleIsTold)
{
    play({OpenInstrument, Connect, Locked, Escape, WriteFails, Yes, DuePolling});
}

TEST_F(FoundSequences, LeavingInACallThatCameWithNoCompanyOpen)
{
    play({CloseCompany, Yes, SaysAtd, FirstBlock, DueAction, Leave, Yes});
}

TEST_F(FoundSequences, ACallThatCannotBeAnswered)
{
    play({WriteFails, SaysRing, DueAction});
}

TEST_F(FoundSequences, ADisconnectThatComesIntoACall)
{
    play({OpenInstrument, SaysRing, Disconnect});
}

TEST_F(FoundSequences, ACommandThatFailsWhileAnotherIsRefused)
{
    play({OpenGroup, WriteFails, Disconnect, Connect});
}

TEST_F(FoundSequences, ACableLinkThatCannotBeConfirmedWhileACommandIsRefused)
{
    play({OpenGroup, Simulator, Connect, WriteFails, Disconnect, SaysAta, DueAction});
}

TEST_F(FoundSequences, AReadBehindOneThatWasGivenUpInItsWait)
{
    play({OpenGroup, Simulator, Connect, SaysAta, DueAction, Read, DueAction, Escape, Yes, Read, DueAction});
}

TEST_F(FoundSequences, AWriteThatCannotBeSentWhileACommandIsRefused)
{
    play({OpenGroup, Simulator, Connect, SaysAta, DueAction, WriteFails, Write, Connect, DueAction, Ok});
}

TEST_F(FoundSequences, AnAttemptThatEscapeKeptAndThatIsHungUpAsItsTimeOutIsDue)
{
    play({OpenInstrument, Connect, SaysOk, DueAction, Escape, Yes, DuePolling, Second, Second, Disconnect,
          SaysOk, DueTimeOut});
}

// Deliberate breaks
class BrokenOnPurpose : public FoundSequences
{
protected:
    // The break happens behind so many events of the sequence; what is said of it.
    std::string broken(const Sequence& sequence, std::size_t behind,
                       const std::function<void(World&)>& breakIt)
    {
        std::size_t at = 0;
        world.reset();
        world.play(World::Source([&](World& it) -> std::optional<Event> {
            if (at == behind)
                breakIt(it);
            if (at < sequence.size())
                return sequence[at++];
            return at++ == sequence.size() ? std::optional<Event>(OldestFirst) : std::nullopt;
        }));
        return world.violation().toStdString();
    }
};

const Sequence kConnected{OpenParameters, Simulator, Connect, SaysAta, DueAction};

Sequence behind(Sequence first, const Sequence& then)
{
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

TEST_F(BrokenOnPurpose, NothingBrokenIsNoViolation)
{
    EXPECT_EQ(broken(behind(kConnected, {Read, DueAction, Answer, DueAction, Escape, No}), 99, [](World&) {}),
              "");
}

TEST_F(BrokenOnPurpose, AFrameThatNobodyAskedFor)
{
    EXPECT_THAT(broken(kConnected, 5, [](World& it) { it.port().Output("\x30\x30"); }),
                testing::HasSubstr("is sent in Idle"));
}

TEST_F(BrokenOnPurpose, AFrameBeforeItsTime)
{
    EXPECT_THAT(broken(behind(kConnected, {Read, DueAction, Second}), 8,
                       [](World& it) { it.port().Output(QByteArray::fromHex("30301100018d")); }),
                testing::HasSubstr("ms behind the last one"));
}

TEST_F(BrokenOnPurpose, ARequestBeforeTheLastOneWasAnswered)
{
    EXPECT_THAT(broken(behind(kConnected, {Read, DueAction, Second, Second, Second, Second}), 11,
                       [](World& it) { it.port().Output(QByteArray::fromHex("30301100018d")); }),
                testing::HasSubstr("waits for its answer"));
}

TEST_F(BrokenOnPurpose, AnEventThatNobodyWroteToALog)
{
    EXPECT_THAT(
        broken(kConnected, 5,
               [](World& it) { it.session.cnDatabase.Execute("DELETE FROM tbEvent WHERE rowid = 1"); }),
        testing::HasSubstr("the table has"));
}

TEST_F(BrokenOnPurpose, AValueOfAnotherGroup)
{
    EXPECT_THAT(broken(kConnected, 5,
                       [](World& it) {
                           it.session.cnDatabase.Execute(
                               "UPDATE tbParametersUser SET Value = '1' WHERE IDGrp = 2 AND IDPar = 'P1101'");
                       }),
                testing::HasSubstr("another company or group"));
}

TEST_F(BrokenOnPurpose, AValueFromBytesThatCameBefore)
{
    EXPECT_THAT(broken(behind(kConnected, {Noise, Read, DueAction, Answer}), 8,
                       [](World& it) { it.model().forgetConcerns(); }),
                testing::HasSubstr(""));
}

TEST_F(BrokenOnPurpose, ATransactionLeftOpen)
{
    EXPECT_THAT(broken(kConnected, 5, [](World& it) { it.session.cnDatabase.BeginTrans(); }),
                testing::HasSubstr("transaction"));
}

TEST_F(BrokenOnPurpose, ATimerLeftRunning)
{
    EXPECT_THAT(broken({}, 0, [](World& it) { it.session.COMPort.Status = session::kBusy; }),
                testing::HasSubstr("no row of the table"));
}

} // namespace
