// Sequences drawn at random, played in the program's own windows on a pseudo-terminal: what the operator and
// the far end see on the way, and what the company holds at the end, is what the line in memory says.
#include "e2e/window/Hand.h"
#include "events/ErrorReport.h"
#include "line/Environment.h"
#include "platform/RecordingPrinters.h"
#include "session/Configuration.h"
#include "support/CompanyFixture.h"

#include <QDir>
#include <gmock/gmock.h>
#include <iostream>
#include <random>

using namespace window;

namespace {

constexpr int kSteps = 25;

// The whole program on a company like that of the world.
class Desk : public support::CompanyFixture
{
public:
    Desk()
    {
        support::runSql(plantFile(), line::kWorldPlant);
        QDir().mkpath(file("ports"));
        far_.emplace(file("ports/COM1"));
        desktop_.atTheGate = [this] {
            users::Login& login = program_.login();
            login.Load();
            int entry = 1;
            while (login.entries().at(std::size_t(entry)).IDUser != support::kTechnician)
                ++entry;
            login.cmdConnect_Click(entry, {});
        };
        former_ = platform::setFailureHook({});
        events::installFailureHook(session, desktop_, clock_, machine_);
    }
    ~Desk() override { platform::setFailureHook(former_); }

    QString play(const Drawn& drawn)
    {
        Hand hand({program_, session, desktop_, clock_, port_, *far_});
        session.DbName = "Plant.mdb";
        session.COMPort = {};
        session::Write_Configuration(session);
        if (!program_.run())
            return "the program doesn't start";
        const QString trouble = hand.play(drawn);
        if (!trouble.isEmpty())
            return trouble;
        const QStringList company = contentOf(session.cnDatabase);
        for (int row = 0; row < std::max(company.size(), drawn.company.size()); ++row)
            if (company.value(row) != drawn.company.value(row))
                return QStringLiteral("the company at the end:\n  drawn: %1\n  seen:  %2")
                    .arg(drawn.company.value(row), company.value(row));
        return {};
    }
    void TestBody() override {}

private:
    platform::FailureHook former_;
    WatchedDesktop desktop_{[this](const QString& key) { return texts.own(key); }};
    platform::VirtualClock clock_;
    CountingPort port_{session.AppPath};
    platform::Machine machine_;
    platform::RecordingPrinters printers_;
    std::optional<FarEnd> far_;
    program::Program program_{{session, texts, desktop_, clock_, port_, printers_}};
};

// The world goes before the program comes: both want to be told of failures.
Drawn drawn(quint64 seed, int steps)
{
    line::World world;
    return draw(world, seed, steps);
}

void playInWindows(quint64 seed)
{
    const Drawn drawn = ::drawn(seed, kSteps);
    ASSERT_EQ(drawn.violation.toStdString(), "") << "seed " << seed;
    Desk desk;
    EXPECT_EQ(desk.play(drawn).toStdString(), "")
        << "CALIDORA_LINE_SEED=" << seed << '\n'
        << line::asTest(drawn.sequence(), "seen in the window").toStdString();
}

TEST(DrawnSequences, EndInTheirWindowsAsTheyDoInMemory)
{
    const int many = line::fromEnvironment("CALIDORA_LINE_SEQUENCES", 20);
    quint64 seed =
        quint64(line::fromEnvironment("CALIDORA_LINE_SEED", int(std::random_device()() & 0x7FFFFFF)));
    std::cout << "seeds from " << seed << " on" << std::endl;
    for (int played = 0; played < many && !testing::Test::HasFailure(); ++played)
        playInWindows(seed++);
}

std::string playedTamperedWith(const std::function<void(Drawn&)>& change)
{
    Drawn drawn = ::drawn(100, 6);
    change(drawn);
    Desk desk;
    return desk.play(drawn).toStdString();
}

TEST(DrawnSequences, WhatIsNotAsDrawnIsSeen)
{
    EXPECT_EQ(playedTamperedWith([](Drawn&) {}), "");
    EXPECT_THAT(playedTamperedWith([](Drawn& drawn) { drawn.steps[3].before.status = session::kPortClosed; }),
                testing::HasSubstr("before step 4, "));
    EXPECT_THAT(playedTamperedWith([](Drawn& drawn) { drawn.end.sent += "+++"; }),
                testing::HasSubstr("the end:"));
    EXPECT_THAT(playedTamperedWith([](Drawn& drawn) { drawn.company[0] += '1'; }),
                testing::HasSubstr("the company at the end:"));
}

} // namespace
