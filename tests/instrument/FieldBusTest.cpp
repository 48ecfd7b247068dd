#include "instrument/FieldBus.h"

#include "Bench.h"
#include "instrument/Checksum.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

class FieldBusTest : public testing::Test
{
protected:
    // Sends a request at the moment and gives back what comes until a minute later, with the times of each
    // run.
    std::vector<Bench::Said> ask(const QByteArray& bytes, qint64 nowMs)
    {
        for (const char byte : bytes)
            bus.receive(byte, nowMs);
        std::vector<Bench::Said> answers;
        for (auto due = bus.nextDue(); due && *due <= nowMs + 60000; due = bus.nextDue())
            for (const QByteArray& run : bus.advance(*due))
                answers.push_back({*due, run});
        return answers;
    }

    QByteArray bytesOf(const std::vector<Bench::Said>& answers)
    {
        QByteArray all;
        for (const Bench::Said& answer : answers)
            all += answer.bytes;
        return all;
    }

    Plant plant = smallPlant();
    FailureModes failures;
    Statistics statistics;
    Timings timings;
    FieldBus bus{plant, failures, statistics, timings};
};

QByteArray frame(const char* bytes)
{
    const QByteArray body = hex(bytes);
    return body + closingByte(body);
}

TEST_F(FieldBusTest, AnswersEachRequest)
{
    const struct
    {
        const char* what;
        QByteArray request;
        QByteArray answer;
    } rows[] = {
        {"a read", kReadTwo, kAnswerOfTwo},
        {"an alive poll", frame("3030521001"), hex("2CD3")},
        {"a whole bank", frame("3030521004"), hex("2C010000D2")},
        {"a write", frame("3030571002AABB"), hex("06")},
        {"the read behind it", kReadTwo, hex("AABB9A")},
        {"an EEPROM write", frame("3030451002CCDD"), hex("06")},
        {"a write without data", frame("3030571002"), hex("06")},
        {"memory as it was", kReadTwo, hex("AABB9A")},
        {"no bank there", frame("3030522002"), {}},
        {"nobody at the address", frame("3039521002"), {}},
        {"a sum that doesn't close", hex("30305210023C"), {}},
        {"the other instrument", frame("3031521002"), kAnswerOfTwo},
    };
    qint64 now = 0;
    for (const auto& row : rows)
        EXPECT_EQ(bytesOf(ask(row.request, now += 3000)).toHex(' '), row.answer.toHex(' ')) << row.what;
    EXPECT_EQ(plant.instruments["00"].byteBehind(0x45, 0x11), 0xDD);
}

TEST_F(FieldBusTest, FailsOnDemand)
{
    const struct
    {
        const char* what;
        Failure failure;
        qint64 amount;
        const char* bytes;
        std::size_t runs;
        qint64 lastAfterMs;
    } rows[] = {
        {"no answer", Failure::NoAnswer, 0, "", 0, 0},
        {"late", Failure::Late, 5000, "2C01D2", 1, 5040},
        {"short by one byte", Failure::Short, 0, "2C01", 1, 40},
        {"byte by byte", Failure::ByteByByte, 100, "2C01D2", 3, 240},
        {"trailing rubbish", Failure::Trailing, 2, "2C01D2AAAA", 1, 40},
        {"wrong bytes", Failure::Wrong, 0, "D3FE2D", 1, 40},
    };
    qint64 now = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        failures.set(row.failure, row.amount, 1);
        const auto answers = ask(kReadTwo, now += 60000);
        EXPECT_EQ(bytesOf(answers).toHex(), hex(row.bytes).toHex());
        ASSERT_EQ(answers.size(), row.runs);
        if (!answers.empty()) {
            EXPECT_EQ(answers.back().atMs - now, row.lastAfterMs);
        }
        EXPECT_EQ(bytesOf(ask(kReadTwo, now += 60000)), kAnswerOfTwo) << "it struck once";
    }
}

TEST_F(FieldBusTest, FailuresStrikeReadsAlone)
{
    failures.set(Failure::NoAnswer, 0, 1);
    EXPECT_EQ(bytesOf(ask(frame("30305710012C"), 0)), hex("06"));
    EXPECT_EQ(bytesOf(ask(kReadTwo, 3000)), QByteArray());
    EXPECT_EQ(bytesOf(ask(kReadTwo, 6000)), kAnswerOfTwo);
}

TEST_F(FieldBusTest, CombinesFailures)
{
    failures.set(Failure::Short, 0, 1);
    failures.set(Failure::Trailing, 1, 1);
    failures.set(Failure::Late, 1000, 1);
    failures.set(Failure::ByteByByte, 10, 1);
    const auto answers = ask(kReadTwo, 0);
    EXPECT_EQ(bytesOf(answers), hex("2C01AA"));
    EXPECT_EQ(answers.back().atMs, 1060);
}

TEST_F(FieldBusTest, KeepsFigures)
{
    EXPECT_FALSE(statistics.shortestGapMs());
    ask(kReadTwo, 0);
    ask(frame("30315711017F"), 3001);
    ask(hex("30305210023C"), 6500);
    ask(kReadTwo, 9000);
    ASSERT_EQ(statistics.requests.size(), 3u);
    EXPECT_EQ(statistics.shortestGapMs(), 3001);
    EXPECT_EQ(statistics.badChecksums, 1);
    EXPECT_EQ(statistics.strayBytes, 6);
    ASSERT_EQ(statistics.writes().size(), 1u);
    const SeenRequest write = statistics.writes().front();
    EXPECT_EQ(write.atMs, 3001);
    EXPECT_EQ(write.idGrp, 1);
    EXPECT_EQ(write.request, (Request{"01", CommandKind::Write, 0x57, 0x11, 1, hex("7F")}));
}

} // namespace
