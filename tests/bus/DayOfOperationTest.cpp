// A day on the line: polls around the clock, three calls, ten reads and writes, and everything that goes
// wrong in it.
#include "support/BusFixture.h"

#include <random>

using namespace support;
using bus::ActionCode;
using instrument::Failure;

namespace {

constexpr qint64 kHour = 3600 * 1000;

class DayOfOperationTest : public BusFixture
{
protected:
    DayOfOperationTest()
    {
        const auto toConsole = eventLog.onLine;
        eventLog.onLine = [this, toConsole](const QString& when, const QString& description) {
            expected_ << description;
            toConsole(when, description);
        };
        device_ = &plugIn(instrument::LinkMode::Modem);
    }

    // At most two minutes a step, then the operator's patience is over.
    bool waitPatiently()
    {
        return clock.runUntil([this] { return status() != 2; }, 120000);
    }
    // Dials until the group answers; a link that hangs is cut and dialled anew.
    void connect()
    {
        for (int attempt = 0; attempt < 5 && status() != 1; ++attempt) {
            console.Connect();
            if (!waitPatiently())
                bus.truncateConnection();
        }
        EXPECT_EQ(status(), 1);
    }
    void disconnect()
    {
        console.Disconnect();
        if (!waitPatiently())
            bus.truncateConnection();
        EXPECT_EQ(status(), 0);
    }
    // What a cut may have left behind, a modem in command mode or a poll on the dead line, ends with the next
    // connection that is closed as it should be.
    void tidyLine()
    {
        openConsole("1_1");
        connect();
        disconnect();
        console.unload();
        clock.run(60000);
        EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    }
    void call(int number)
    {
        tidyLine();
        const QByteArray description = "Alarm " + QByteArray::number(number);
        device_->call({"<Market><Room 1><" + description + "><Door>", "<Market><End>"}, clock.elapsed());
        expected_ << description << "Door"
                  << "End";
        clock.run(10000);
        EXPECT_EQ(status(), 2);
        EXPECT_TRUE(clock.runUntil([this] { return status() == 0; }, 2 * kHour));
        EXPECT_EQ(panels.picture(bus::Panel::Allarm), bus::images::kAlarm);
        clock.run(pick(20) * 60000);
        bus.Delete_Allarms();
    }
    // One fault, or none, for the next occasion that offers itself.
    void somethingGoesWrong()
    {
        const std::pair<Failure, qint64> faults[] = {{Failure::NoAnswer, 0},  {Failure::Late, 5000},
                                                     {Failure::Short, 0},     {Failure::ByteByByte, 50},
                                                     {Failure::Trailing, 3},  {Failure::Wrong, 0},
                                                     {Failure::NoCarrier, 0}, {Failure::ModemSilent, 0}};
        const int which = pick(10);
        if (which < 8)
            device_->failures().set(faults[which].first, faults[which].second, 1);
        else
            port.feed("\x7f\x00noise RING\xff");
    }
    // The connection stands open and is kept busy. Where the polls end, as they do behind a lost answer, the
    // operator sees the clock run over a dead line and raises the connection anew.
    void keepConnected(qint64 until)
    {
        connect();
        while (clock.elapsed() < until) {
            if (pick(60) == 0)
                somethingGoesWrong();
            const int before = polls_;
            clock.run(60000);
            countPolls();
            if (polls_ > before && status() == 1)
                continue;
            device_->failures().clearAll();
            if (status() == 1)
                disconnect();
            connect();
        }
    }
    void countPolls()
    {
        for (const auto& sent : port.sent())
            polls_ += sent.bytes == bus.parTrasm().AliveFrame;
        port.forgetSent();
    }
    // Its share of the day on the line, then a read or a write.
    void operate(qint64 until)
    {
        // Nothing can be written to the measures, the last of them.
        const char* const items[] = {"1_1", "2_1_1", "3_1_1_G02", "4_1_1_G02_P0202", "3_1_1_G01"};
        const bool writes = pick(2);
        runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0201', 'P0202', 'P0204')");
        openConsole(items[pick(writes ? 4 : 5)]);
        keepConnected(until);
        somethingGoesWrong();
        if (status() != 1)
            waitPatiently();
        if (status() == 1) {
            writes ? console.Write_Param() : console.Read_Param();
            while (!waitPatiently() && waitsInVain())
                pick(2) ? bus.abandonOperation() : bus.truncateConnection();
        }
        device_->failures().clearAll();
        if (status() == 1)
            disconnect();
        console.unload();
    }
    int pick(int count) { return int(random_() % uint(count)); }

    instrument::VirtualInstrument* device_ = nullptr;
    QStringList expected_; // every event, in the order of the day
    int polls_ = 0;

private:
    // An answer that was asked for and doesn't come; a long operation is left to go on.
    bool waitsInVain()
    {
        const QStringList before = logged();
        clock.run(60000);
        return status() == 2 && logged() == before;
    }
    std::mt19937 random_{20060314};
};

TEST_F(DayOfOperationTest, EndsIdleReachableAndWithEveryEventOnce)
{
    constexpr int kJobs = 10;
    for (int job = 0; job < kJobs; ++job) {
        operate(24 * kHour * (job + 1) / kJobs);
        EXPECT_LE(status(), 0) << job;
        if (job % 5 == 1)
            call(job);
    }
    EXPECT_GE(clock.elapsed(), 24 * kHour);
    EXPECT_GT(polls_, 2000); // one each half a minute, but for the dead lines and the calls
    failures.take();         // garbled alarm blocks and values fail in their own procedures

    call(99);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(status(), 0);

    QStringList written;
    for (const QString& line : logLines())
        written << descriptionOf(line);
    for (QString& description : expected_)
        description = description.trimmed();
    written.sort();
    expected_.sort();
    EXPECT_EQ(written, expected_);
    EXPECT_GT(written.size(), 200);
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(column(plantFile(), "PRAGMA integrity_check"), QStringList{"ok"});
    EXPECT_EQ(column(plantFile(), "PRAGMA foreign_key_check"), QStringList());
}

} // namespace
