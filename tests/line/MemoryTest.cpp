// The memory of a program that runs on and on.
#include "line/Memory.h"
#include "line/World.h"

#include <gtest/gtest.h>

using namespace line;
using enum What;

namespace {

TEST(LineMemory, ALeakIsSeen)
{
    std::vector<std::unique_ptr<QByteArray>> kept;
    kept.reserve(100);
    MemoryWatch steady(10, 4096), leaking(10, 4096);
    for (int look = 0; look < 50; ++look) {
        std::make_unique<QByteArray>(1000, 'x');
        steady.look();
    }
    EXPECT_EQ(steady.trouble().toStdString(), "");
    for (int look = 0; look < 50; ++look) {
        kept.push_back(std::make_unique<QByteArray>(1000, 'x'));
        leaking.look();
    }
    EXPECT_NE(leaking.trouble().toStdString(), "");
}

// A day of connections, reads, writes, calls and companies without a restart.
TEST(LineMemory, OneProgramThatRunsOnAndOn)
{
    const Sequence day{
        OpenParameters, Connect,    SaysOk,    DueAction,    SaysOk,    DueAction,    SaysOk,
        DueAction,      SaysOk,     DueAction, SaysOk,       DueAction, SaysOk,       SaysConnect,
        Read,           DueAction,  Answer,    DueAction,    Escape,    Yes,          Write,
        DueAction,      WriteFails, DueAction, Ok,           Escape,    Yes,          DuePolling,
        TwoAnswers,     Disconnect, SaysOk,    CloseConsole, SaysAtd,   FirstBlock,   DueAction,
        Noise,          DueAction,  Ok,        Acknowledge,  Ok,        CloseCompany, Yes,
        OpenCompany,    Ok};
    constexpr int kDays = 120;
    World world;
    world.reset();
    // The trace keeps a hundred thousand events and no more: it is full from the start.
    auto& trace = const_cast<bus::LineTrace&>(world.bus().trace());
    for (int event = 0; event < bus::LineTrace::kMostEvents; ++event)
        trace.sent("AT&K0 and more", bus::ActionCode::Idle);
    MemoryWatch memory(20, 16 * 1024);
    std::size_t at = 0;
    int days = 0;
    world.play(World::Source([&](World&) -> std::optional<Event> {
        if (at == day.size()) {
            at = 0;
            memory.look();
            if (++days == kDays)
                return std::nullopt;
        }
        return day[at++];
    }));
    EXPECT_EQ(world.violation().toStdString(), "");
    EXPECT_EQ(days, kDays);
    EXPECT_EQ(world.picture().status, session::kLineIdle);
    EXPECT_EQ(memory.trouble().toStdString(), "");
}

} // namespace
