// The line as the trace tells it, and that the trace changes nothing on it.
#include "bus/LineTrace.h"

#include "bus/TraceModel.h"
#include "bus/TraceWords.h"
#include "platform/TextFile.h"
#include "support/BusFixture.h"

#include <QDateTime>

using namespace support;
using bus::ActionCode;
using bus::TraceEvent;
using bus::TraceKind;
using bus::TraceModel;

namespace {

class LineTraceTest : public BusFixture
{
protected:
    // "3.000 → 30 30 11 40 01 6C: Read of ...", from the mark on.
    QStringList told() const
    {
        QStringList lines;
        const auto& events = bus.trace().events();
        for (std::size_t i = std::size_t(from_); i < events.size(); ++i) {
            const TraceEvent& event = events[i];
            lines << (event.sent ? "> " : "< ") + bus::hexOf(event.bytes) + " | " +
                         bus::meaningOf(event, texts);
        }
        return lines;
    }
    QStringList meanings() const
    {
        QStringList all;
        for (const QString& line : told())
            all << line.left(2) + line.section(" | ", 1);
        return all;
    }
    void traceFromHere() { from_ = qsizetype(bus.trace().events().size()); }
    void change(const char* parameter)
    {
        runOnPlant("UPDATE tbParametersUser SET State = 0");
        runOnPlant(QStringLiteral("UPDATE tbParametersUser SET State = 1 WHERE IDGrp = 1 AND IDPar = '%1'")
                       .arg(parameter));
    }

    qsizetype from_ = 0;
};

TEST_F(LineTraceTest, AReadAndItsAnswerInPieces)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    traceFromHere();
    console.Read_Param();
    clock.run(3250);
    arrives("\x01");
    arrives("\x02\x06\x07");
    arrives("\x08");
    EXPECT_EQ(told(),
              QStringList({"> 30 30 01 04 02 98 | Read of instrument 00 at 04h, bytes: 2, checksum right",
                           "< 01 | Part of an answer, bytes so far: 1 of 2",
                           "< 02 06 07 | Answer complete, bytes wanted: 2, beyond them: 2",
                           "< 08 | Bytes behind an answer"}));
    const auto& events = bus.trace().events();
    EXPECT_EQ(events[events.size() - 3].at - events[events.size() - 4].at, 250);
    EXPECT_EQ(events[events.size() - 3].gap, 250);
    EXPECT_EQ(events.back().at, clock.now().toMSecsSinceEpoch());
    EXPECT_EQ(events.back().gap, 0);
    EXPECT_EQ(events.front().gap, -1);
}

// Exactly as many bytes as were wanted end no answer: one more has to come.
TEST_F(LineTraceTest, AnAnswerWantsOneByteMore)
{
    openConsole("4_1_1_G01_P0104");
    connectByHand();
    console.Read_Param();
    clock.run(3000);
    traceFromHere();
    arrives("\x01\x02");
    arrives("\x06");
    EXPECT_EQ(meanings(), QStringList({"< Part of an answer, bytes so far: 2 of 2",
                                       "< Answer complete, bytes wanted: 2, beyond them: 1"}));
}

TEST_F(LineTraceTest, AWriteInThreePassesAndABitField)
{
    change("P0202");
    openConsole("4_1_1_G02_P0202");
    connectByHand();
    traceFromHere();
    console.Write_Param();
    clock.run(6000);
    arrives("\x01\x06");
    clock.run(500);
    arrives("\x06");
    clock.run(8500);
    arrives("\x01\x06");
    clock.run(9000);
    arrives("\x0D\x06");
    EXPECT_EQ(meanings(),
              QStringList({"> Read of instrument 00 at 41h, bytes: 1, checksum right",
                           "< Answer complete, bytes wanted: 1, beyond them: 1",
                           "> Write to instrument 00 at 41h, working memory, bytes: 1, checksum right",
                           "< Answer to a write, nobody looks at it",
                           "> Read of instrument 00 at 41h, bytes: 1, checksum right",
                           "< Answer complete, bytes wanted: 1, beyond them: 1",
                           "> Write to instrument 00 at 19h, permanent memory, bytes: 1, checksum right",
                           "> Read of instrument 00 at 41h, bytes: 1, checksum right",
                           "< Answer complete, bytes wanted: 1, beyond them: 1"}));
}

TEST_F(LineTraceTest, AWholeWriteIsNoRead)
{
    change("P0201");
    openConsole("4_1_1_G02_P0201");
    connectByHand();
    traceFromHere();
    console.Write_Param();
    clock.run(9000);
    EXPECT_EQ(meanings(),
              QStringList({"> Write to instrument 00 at 40h, working memory, bytes: 1, checksum right",
                           "> Write to instrument 00 at 18h, permanent memory, bytes: 1, checksum right"}));
    EXPECT_EQ(bus::kindOf(bus.trace().events().back()), TraceKind::Write);
}

TEST_F(LineTraceTest, TheModemAndThePoll)
{
    plugIn(instrument::LinkMode::Modem);
    openConsole("1_1");
    connectOverModem();
    clock.run(31000);
    QStringList lines = meanings();
    EXPECT_EQ(lines.mid(0, 4), QStringList({"> Modem command: +++", "> Modem command: ATH",
                                            "> End of the command", lines.value(3)}));
    EXPECT_TRUE(lines[3].startsWith("< Modem reply: ")) << qPrintable(lines[3]);
    EXPECT_TRUE(lines.contains("> Modem command: ATD0551234567"));
    const qsizetype poll = lines.indexOf("> Poll of instrument 00 at 00h, bytes: 1, checksum right");
    ASSERT_GT(poll, 0);
    EXPECT_EQ(lines.value(poll + 1), "< Answer to the poll");
}

TEST_F(LineTraceTest, TheCable)
{
    openConsole("1_1");
    connectByHand();
    EXPECT_EQ(told(), QStringList({"> 52 49 4E 47 | Said in the modem's place: RING",
                                   "< 41 54 41 | Instrument to the modem: ATA",
                                   "> 43 4F 4E 4E 45 43 54 | Said in the modem's place: CONNECT"}));
}

TEST_F(LineTraceTest, ACallAndItsBlocks)
{
    arrives("\x15");
    arrives("ATD1\r");
    arrives("<Plant><Unit><Alarm>");
    clock.run(5000);
    arrives("<Plant><End>");
    EXPECT_EQ(meanings(),
              QStringList({"< Nobody waits for these bytes", "< The instrument calls", "> The call is taken",
                           "< Alarm block 1", "> Alarm block taken down", "< Alarm block 2"}));
    clock.run(5000);
    traceFromHere();
    arrives("RING");
    clock.run(3000);
    EXPECT_EQ(meanings(), QStringList({"< A call comes in", "> Modem command: ATA", "> End of the command"}));
}

TEST_F(LineTraceTest, AChecksumThatIsWrongIsCalledSo)
{
    TraceEvent event;
    event.sent = true;
    event.code = ActionCode::Reading;
    event.bytes = QByteArray::fromHex("303052100299");
    EXPECT_EQ(bus::meaningOf(event, texts), "Read of instrument 00 at 10h, bytes: 2, checksum wrong");
    event.bytes = "ABC";
    EXPECT_EQ(bus::meaningOf(event, texts), "Too short for a request");
    // The address goes out as it is stored, whatever its length.
    event.bytes = QByteArray::fromHex("305210023B");
    EXPECT_EQ(bus::meaningOf(event, texts), "Too short for a request");
    event.bytes = QByteArray::fromHex("3031325210023B");
    EXPECT_TRUE(bus::meaningOf(event, texts).startsWith("Read of instrument 012 at 10h, bytes: 2, "));
}

TEST_F(LineTraceTest, WhatThePortRefusesWasNotSent)
{
    openConsole("1_1");
    connectByHand();
    traceFromHere();
    port.setPortOpen(false);
    clock.run(31000);
    EXPECT_EQ(told(), QStringList());
    failures.expectUnder("frmMain.tmrPolling_Timer");
}

TEST_F(LineTraceTest, TheTextIsThatOfTheCodePage)
{
    session.CodePage = 1251;
    TraceEvent event;
    event.code = ActionCode::FirstBlock;
    event.bytes = QByteArray::fromHex("3CC0E2E0F0E8FF3E0D");
    EXPECT_EQ(bus::plainOf(event, 1251), "<Авария>·");
    event.code = ActionCode::Reading;
    EXPECT_EQ(bus::plainOf(event, 1251), "<······>·");
    event.bytes = "~ \x7F";
    EXPECT_EQ(bus::plainOf(event, 1251), "~ ·");
}

TEST_F(LineTraceTest, TheLastHundredThousandEventsAreKept)
{
    bus::LineTrace trace(clock);
    TraceModel model(trace, session, texts);
    trace.sent("first", ActionCode::Idle);
    trace.sent("second", ActionCode::Idle);
    model.follow();
    for (int i = 2; i <= bus::LineTrace::kMostEvents; ++i)
        trace.received("x", ActionCode::Idle);
    ASSERT_EQ(trace.events().size(), std::size_t(bus::LineTrace::kMostEvents));
    EXPECT_EQ(trace.events().front().bytes, "second");
    EXPECT_EQ(trace.events().back().number, bus::LineTrace::kMostEvents);
    EXPECT_EQ(model.rowCount(), 2);
    model.follow();
    EXPECT_EQ(model.rowCount(), bus::LineTrace::kMostEvents);
    EXPECT_EQ(model.index(0, TraceModel::Plain).data(), "second");
}

class TraceTable : public LineTraceTest
{
protected:
    TraceTable()
    {
        arrives("one");
        clock.run(1500);
        arrives("two");
    }
    QStringList texts_(const TraceModel& model) const
    {
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all << model.index(row, TraceModel::Plain).data().toString();
        return all;
    }
};

TEST_F(TraceTable, ShowsWhatIsThereAndFollows)
{
    TraceModel model(bus.trace(), session, texts);
    EXPECT_EQ(texts_(model), QStringList({"one", "two"}));
    arrives("three");
    EXPECT_EQ(model.rowCount(), 2);
    model.follow();
    EXPECT_EQ(texts_(model), QStringList({"one", "two", "three"}));
    model.follow();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(1, TraceModel::Gap).data(), "1.500");
    EXPECT_EQ(model.index(0, TraceModel::Gap).data(), "");
    EXPECT_EQ(model.index(0, TraceModel::Bytes).data(), "6F 6E 65");
    EXPECT_EQ(model.index(0, TraceModel::Direction).data(), "← received");
    EXPECT_EQ(model.index(1, TraceModel::Time).data(), clock.now().toString("HH:mm:ss.zzz"));
    EXPECT_EQ(model.index(1, 0).data(TraceModel::KindRole), int(TraceKind::Stray));
    EXPECT_EQ(model.headerData(TraceModel::Meaning, Qt::Horizontal), "What it is");
}

TEST_F(TraceTable, IsNarrowedByAnyColumnAndGoesOnSo)
{
    TraceModel model(bus.trace(), session, texts);
    model.setFilter("74 77");
    EXPECT_EQ(texts_(model), QStringList({"two"}));
    arrives("two more");
    arrives("other");
    model.follow();
    EXPECT_EQ(texts_(model), QStringList({"two", "two more"}));
    model.setFilter("TWO M");
    EXPECT_EQ(texts_(model), QStringList({"two more"}));
    model.setFilter("waits");
    EXPECT_EQ(model.rowCount(), 4);
    model.setFilter("nothing like it");
    EXPECT_EQ(model.rowCount(), 0);
    model.setFilter({});
    EXPECT_EQ(model.rowCount(), 4);
}

TEST_F(TraceTable, PausedItStandsStill)
{
    TraceModel model(bus.trace(), session, texts);
    model.setPaused(true);
    arrives("three");
    model.follow();
    EXPECT_EQ(texts_(model), QStringList({"one", "two"}));
    model.setFilter("o");
    EXPECT_EQ(texts_(model), QStringList({"one", "two"})) << "a filter looks at what stood there";
    model.setFilter({});
    model.setPaused(false);
    EXPECT_EQ(texts_(model), QStringList({"one", "two", "three"}));
}

TEST_F(TraceTable, AsLinesOfText)
{
    TraceModel model(bus.trace(), session, texts);
    const QList<QByteArray> lines = model.lines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0],
              QByteArray("Time\tGap (s)\tDirection\tBytes\tText\tWhat it is") + platform::kSystemLineEnd);
    EXPECT_EQ(lines[2], (clock.now().toString("yyyy-MM-dd HH:mm:ss.zzz") +
                         "\t1.500\t← received\t74 77 6F\ttwo\tNobody waits for these bytes")
                                .toUtf8() +
                            platform::kSystemLineEnd);
}

// One connection with everything in it, over the virtual instrument.
class WholeConnection : public BusFixture
{
public:
    void TestBody() override {}

    QStringList play(bool watched)
    {
        TraceModel model(bus.trace(), session, texts);
        if (watched)
            QObject::connect(&bus.trace(), &bus::LineTrace::recorded, &model, [&] {
                model.follow();
                model.setFilter(model.filter().isEmpty() ? "0" : "");
                EXPECT_GE(model.lines().size(), 1);
            });
        plugIn(instrument::LinkMode::Modem);
        mark();
        openConsole("2_1_1");
        connectOverModem();
        console.Write_Param();
        EXPECT_TRUE(waitWhileBusy());
        console.Read_Param();
        EXPECT_TRUE(waitWhileBusy());
        clock.run(65000);
        console.Disconnect();
        EXPECT_TRUE(waitWhileBusy());
        EXPECT_GT(model.rowCount(), watched ? 5 : -1);
        return sent() + logLines() +
               column(plantFile(),
                      "SELECT IDPar || '=' || IfNull(Value, '-') || State FROM tbParametersUser");
    }
};

TEST(LineTraceListens, TheLineIsTheSameWhetherSomebodyLooksOnOrNot)
{
    const QStringList alone = WholeConnection().play(false);
    const QStringList watched = WholeConnection().play(true);
    EXPECT_GT(alone.size(), 60);
    EXPECT_EQ(alone, watched);
}

} // namespace
