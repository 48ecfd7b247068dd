#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace line {

// All that can happen on the line, to the company behind it and by the operator's hand. One name each: a
// sequence is written with these names and can be pasted into a test.
//
// An event that isn't possible at its moment (Yes with no box, Read with the button off) does nothing, so any
// part of a sequence is a sequence, too.
// clang-format off
#define CALIDORA_LINE_EVENTS(X) \
    /* The operator: where the console is opened ... */ \
    X(OpenGroup) X(OpenInstrument) X(OpenParameters) X(OpenParameter) X(OpenBitField) X(OpenOtherGroup) X(OpenEmptyGroup) \
    X(CloseConsole) \
    /* ... and what is done there. Connect and Disconnect come also when their button has just gone off. */ \
    X(Simulator) X(AutoDisconnect) X(Connect) X(Disconnect) X(Read) X(Write) X(Escape) \
    /* The answers to a box */ \
    X(Yes) X(No) X(Cancel) X(Ok) \
    /* The main window */ \
    X(Acknowledge) X(CloseCompany) X(OpenCompany) X(OpenOtherCompany) X(Settings) X(Leave) \
    /* What comes in */ \
    X(Answer) X(AnswerByte) X(TwoAnswers) X(ShortAnswer) X(LateAnswer) X(Garbled) X(Noise) X(Return) \
    X(SaysOk) X(SaysConnect) X(SaysAta) X(SaysRing) X(RingInNoise) X(SaysAtd) \
    X(FirstBlock) X(HalfBlock) X(OtherHalf) X(BlockTwice) X(BlockWithout) X(EndBlock) \
    /* The device */ \
    X(Vanish) X(WriteFails) \
    /* Time: until that timer ticks, a second, 70 s, nearly midnight; which of two due at once is first */ \
    X(DueAction) X(DueTimeOut) X(DueConnection) X(DuePolling) X(DueAlarm) X(Second) X(Silence) X(Midnight) \
    X(ArrivalsFirst) X(TimersFirst) X(YoungestFirst) X(OldestFirst) \
    /* The disk: another program holds the company, it can't grow, the folder of the logs is gone; all well again */ \
    X(Locked) X(ReadOnly) X(Full) X(LogGone) X(Healed)
// clang-format on

enum class What : quint8
{
#define CALIDORA_NAME(name) name,
    CALIDORA_LINE_EVENTS(CALIDORA_NAME)
#undef CALIDORA_NAME
};

inline constexpr std::array kAllEvents{
#define CALIDORA_NAME(name) What::name,
    CALIDORA_LINE_EVENTS(CALIDORA_NAME)
#undef CALIDORA_NAME
};

// When something comes in: at once; 1.5 s later, whatever the program does then; at the very moment at which
// the next timer of a step is due.
enum class When : quint8
{
    Now,
    Soon,
    WithTimer
};

struct Event
{
    What what = What::Second;
    When when = When::Now;

    constexpr Event() = default;
    constexpr Event(What what, When when = When::Now) : what(what), when(when) {} // NOLINT: reads as a name
    bool operator==(const Event&) const = default;
};

constexpr Event soon(What what)
{
    return {what, When::Soon};
}
constexpr Event withTimer(What what)
{
    return {what, When::WithTimer};
}

using Sequence = std::vector<Event>;

bool isArrival(What what);
// As it is written in a test: "soon(SaysOk)".
QString nameOf(Event event);
// The sequence whose events have these names, with commas between them; what is no name is left out.
Sequence sequenceOf(const QString& names);
// A whole test that plays the sequence.
QString asTest(const Sequence& sequence, const QString& violation);

} // namespace line
