// Sequences that once left something that doesn't hold, as the search printed them; and breaks on purpose,
// which must be seen.
#include "line/World.h"

#include <SQLiteCpp/SQLiteCpp.h>
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

TEST_F(FoundSequences, ADialledCallAsALinkOnTheCableIsClosed)
{
    play({OpenInstrument, Simulator, Connect, SaysAta, DueAction, Disconnect, SaysAtd});
}

TEST_F(FoundSequences, WhatAFullDiskAndALostFolderKeptFromTheLogAsTheProgramIsLeft)
{
    play({OpenParameters, Connect, Full, SaysOk, Escape, Yes, Ok, Healed, LogGone, Vanish, Ok, Ok,
          CloseConsole, Healed, Leave, Yes});
}

TEST_F(FoundSequences, APortThatVanishesAsAFrameIsDueBehindTheBeeps)
{
    play({SaysAtd, FirstBlock, DueAction, EndBlock, DueAction, OpenGroup, Simulator, Connect, SaysAta,
          DueAction, Read, DueAction, Answer, Vanish});
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

// The operator's list of what is doubtful loses what it is told.
void keepDoubtsBack(World& it)
{
    QObject::connect(&it.model(), &console::ConsoleModel::concernsChanged, [&model = it.model()] {
        if (!model.doubts().isEmpty())
            model.forgetConcerns();
    });
}

TEST_F(BrokenOnPurpose, AValueFromBytesThatCameBefore)
{
    EXPECT_EQ(broken(behind(kConnected, {Noise, Read, DueAction, Answer}), 99, [](World&) {}), "");
    EXPECT_THAT(broken(behind(kConnected, {Noise, Read, DueAction, Answer}), 8, keepDoubtsBack),
                testing::HasSubstr("a value is stored from bytes that came before"));
}

TEST_F(BrokenOnPurpose, ADoubtThatWasToldOfAnotherValue)
{
    const Sequence twice =
        behind(kConnected, {Noise, Read, DueAction, Answer, Escape, Yes, Noise, Read, DueAction, Answer});
    EXPECT_EQ(broken(twice, 99, [](World&) {}), "");
    EXPECT_THAT(broken(twice, 14,
                       [](World& it) {
                           QObject::connect(&it.model(), &console::ConsoleModel::concernsChanged,
                                            [&model = it.model()] {
                                                if (model.doubts().size() < 2)
                                                    return;
                                                const auto first = model.doubts().first();
                                                model.forgetConcerns();
                                                model.answerDoubtful(first.item, {}, {}, first.bytes);
                                            });
                       }),
                testing::HasSubstr("a value is stored from bytes that came before"));
}

TEST_F(BrokenOnPurpose, AReadBackFromBytesThatCameBefore)
{
    const Sequence write{OpenParameter, Simulator, Connect,   SaysAta, DueAction, Write,     DueAction,
                         DueAction,     DueAction, DueAction, Noise,   DueAction, AnswerByte};
    EXPECT_EQ(broken(write, 99, [](World&) {}), "");
    EXPECT_THAT(broken(write, 12, keepDoubtsBack), testing::HasSubstr("a write is judged by bytes"));
}

TEST_F(BrokenOnPurpose, ABitFieldMergedFromBytesThatCameBefore)
{
    const Sequence write{OpenBitField, Simulator, Connect, SaysAta,   DueAction,
                         Write,        DueAction, Noise,   DueAction, AnswerByte};
    EXPECT_EQ(broken(write, 99, [](World&) {}), "");
    EXPECT_THAT(broken(write, 9, keepDoubtsBack), testing::HasSubstr("a bit field is merged from bytes"));
}

// Something that happens two seconds from now, whatever the program does then.
class Intruder : public platform::Peer
{
public:
    Intruder(World& world, std::function<void()> act)
        : at_(world.clock().elapsed() + 2000), act_(std::move(act))
    {
    }
    std::optional<qint64> nextDue() const override { return done_ ? std::nullopt : std::optional(at_); }
    void advance(qint64 elapsed) override
    {
        if (elapsed < at_ || std::exchange(done_, true))
            return;
        act_();
    }

private:
    qint64 at_;
    std::function<void()> act_;
    bool done_ = false;
};

TEST_F(BrokenOnPurpose, SomethingSentInsideAWait)
{
    std::optional<Intruder> intruder;
    EXPECT_THAT(broken({OpenGroup, Connect}, 1,
                       [&](World& it) {
                           intruder.emplace(it, [&it] { it.port().Output("+++"); });
                           it.clock().addPeer(*intruder);
                       }),
                testing::HasSubstr("sent inside a wait"));
}

TEST_F(BrokenOnPurpose, SomethingBegunInsideAWait)
{
    std::optional<Intruder> intruder;
    EXPECT_THAT(broken({OpenGroup, Connect}, 1,
                       [&](World& it) {
                           intruder.emplace(it, [&it] { it.bus().EnableDisable_RWMenu(session::kBusy); });
                           it.clock().addPeer(*intruder);
                       }),
                testing::HasSubstr("begins inside a wait"));
}

TEST_F(BrokenOnPurpose, ABoxInsideAWait)
{
    std::optional<Intruder> intruder;
    EXPECT_THAT(broken({OpenGroup, Connect, Ok}, 1,
                       [&](World& it) {
                           intruder.emplace(it, [&it] { it.tell({}); });
                           it.clock().addPeer(*intruder);
                       }),
                testing::HasSubstr("a box comes up inside a wait"));
}

// Failures that are told at once, and not one behind the other.
TEST_F(BrokenOnPurpose, ABoxInsideTheHandlerOfABox)
{
    platform::FailureHook former;
    EXPECT_THAT(broken({SaysAtd, DueAction, Ok, Ok}, 1,
                       [&](World& it) {
                           former = platform::setFailureHook(
                               [&it](const platform::Failure& failure) { it.tell(failure); });
                           platform::reportFailure({1, "first", "Module/First"});
                       }),
                testing::HasSubstr("a failure is told inside the telling of another"));
    platform::setFailureHook(former);
}

const Sequence kCalled{SaysAtd, FirstBlock, DueAction, EndBlock, DueAction};

TEST_F(BrokenOnPurpose, AnAlarmThatIsAnsweredAndNotRecorded)
{
    EXPECT_EQ(broken(kCalled, 99, [](World&) {}), "");
    EXPECT_THAT(broken(kCalled, 2, [](World& it) { it.log().onEvent = nullptr; }),
                testing::HasSubstr("an alarm is answered that nobody recorded"));
}

TEST_F(BrokenOnPurpose, AnAlarmThatTheTableDoesNotTake)
{
    EXPECT_THAT(broken(kCalled, 2,
                       [](World& it) {
                           it.session.cnDatabase.Execute(
                               "CREATE TEMP TRIGGER deaf BEFORE INSERT ON main.tbEvent "
                               "BEGIN SELECT RAISE(IGNORE); END;");
                       }),
                testing::HasSubstr("the table has 0 events, and 1 were recorded"));
}

TEST_F(BrokenOnPurpose, AnEventThatComesOutTwice)
{
    const auto twice = [](World& it) {
        it.session.cnDatabase.Execute("INSERT INTO tbEvent SELECT * FROM tbEvent");
    };
    EXPECT_THAT(broken(kCalled, 4, twice), testing::HasSubstr("has it twice"));
    EXPECT_THAT(broken(behind({Locked, Healed}, kCalled), 6, twice), testing::HasSubstr("has it twice"));
}

// Behind a disk that was faulty once the table alone tells nothing any more: the end does.
TEST_F(BrokenOnPurpose, AnEventThatIsLostBehindAFaultyDisk)
{
    EXPECT_EQ(broken(behind({Locked, Healed}, kCalled), 6,
                     [](World& it) { it.session.cnDatabase.Execute("DELETE FROM tbEvent"); }),
              "");
    world.recover();
    EXPECT_THAT(world.violation().toStdString(), testing::HasSubstr("an event is in no log file: 2|"));
}

TEST_F(BrokenOnPurpose, AnEventThatGoesWithTheProgram)
{
    EXPECT_EQ(broken({Locked, Healed, Leave, Yes}, 99, [](World&) {}), "");
    EXPECT_THAT(
        broken({Locked, Healed, Leave, Yes}, 2,
               [](World& it) { it.log().onEvent(2, it.clock().now(), 1, "Plant", "Unit", "never stored"); }),
        testing::HasSubstr("the program ends, and an event is nowhere"));
}

// A flush that failed is forgotten: the console empties what no log has.
TEST_F(BrokenOnPurpose, AConsoleThatThrowsEventsAway)
{
    const Sequence toConsole = behind({LogGone}, behind(kCalled, {Ok, Ok, Ok, Healed, OpenGroup}));
    EXPECT_EQ(broken(toConsole, 99, [](World&) {}), "");
    EXPECT_THAT(broken(toConsole, toConsole.size() - 1, [](World& it) { it.session.DbName = "Other.mdb"; }),
                testing::HasSubstr("throws an event away"));
    world.session.DbName = "First.mdb";
}

TEST_F(BrokenOnPurpose, ACallThatNobodyHears)
{
    EXPECT_EQ(broken({}, 0, [](World& it) { it.port().OnComm = nullptr; }), "");
    world.recover();
    EXPECT_THAT(world.violation().toStdString(), testing::HasSubstr("doesn't answer a call"));
}

TEST_F(BrokenOnPurpose, ALineThatDoesNotComeToRest)
{
    EXPECT_EQ(broken({}, 0, [](World&) {}), "");
    world.sabotage = [](World& it, Event event) {
        if (event.what == Second)
            it.port().comes("RING");
    };
    world.recover();
    world.sabotage = nullptr;
    EXPECT_THAT(world.violation().toStdString(), testing::HasSubstr("bring the line to rest"));
}

TEST_F(BrokenOnPurpose, AStatementLeftOpen)
{
    std::optional<SQLite::Statement> open;
    EXPECT_THAT(broken({Second}, 1,
                       [&](World& it) {
                           open.emplace(it.session.cnDatabase.database(), "SELECT * FROM tbInstrumentsUser");
                           open->executeStep();
                       }),
                testing::HasSubstr("at rest a statement is open"));
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
