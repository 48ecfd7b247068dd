// A long walk through all that can happen on the line, drawn by lot.
#include "line/Walk.h"
#include "line/Environment.h"
#include "line/Memory.h"

#include <gtest/gtest.h>
#include <iostream>
#include <set>

using namespace line;

namespace {

// Pieces of so many steps, each from a fresh start, so that a failure is short to begin with.
constexpr int kPiece = 400;

// From where to where the line was seen to go, for docs/line-graph.py.
class Tracks
{
public:
    void step(const Picture& now, Event event)
    {
        const QString node = nameOf(now.code) + '/' + QString::number(now.status);
        if (!node_.isEmpty() && node_ != node)
            ways_.insert(node_ + '\t' + nameOf(event_) + '\t' + node);
        node_ = node;
        event_ = event;
    }
    void restart() { node_.clear(); }
    ~Tracks()
    {
        QFile file(qEnvironmentVariable("CALIDORA_LINE_GRAPH"));
        if (file.fileName().isEmpty() || !file.open(QIODevice::WriteOnly))
            return;
        for (const QString& way : ways_)
            file.write(way.toUtf8() + '\n');
    }

private:
    QString node_;
    Event event_;
    std::set<QString> ways_;
};

void walk(quint64 seed, int steps)
{
    Tracks tracks;
    World world;
    MemoryWatch memory(50, 2048 * 1024);
    Walk walk(seed);
    int done = 0;
    for (int piece = 0; done < steps; ++piece) {
        world.reset();
        memory.look();
        ASSERT_EQ(memory.trouble().toStdString(), "") << "seed " << seed << ", piece " << piece;
        tracks.restart();
        Sequence played;
        const int before = world.steps();
        world.play(World::Source([&](World& w) -> std::optional<Event> {
            if (int(played.size()) >= kPiece)
                return std::nullopt;
            const Picture now = w.picture();
            played.push_back(walk.draw(w, now));
            tracks.step(now, played.back());
            return played.back();
        }));
        if (world.violation().isEmpty())
            world.recover();
        done += world.steps() - before;
        if (!world.violation().isEmpty()) {
            QString violation = world.violation();
            const QString first = violation;
            const Sequence shortest = shrink(world, played, violation);
            FAIL() << "seed " << seed << ", piece " << piece << " of " << kPiece << ": "
                   << first.toStdString() << "\n"
                   << asTest(shortest, violation).toStdString();
        }
    }
}

TEST(LineWalk, FixedSeed)
{
    walk(quint64(fromEnvironment("CALIDORA_LINE_SEED", 20260314)),
         fromEnvironment("CALIDORA_LINE_STEPS", 2000));
}

// Where a number of steps is asked for, as many again on a way that nobody has gone.
TEST(LineWalk, FreshSeed)
{
    const int steps = fromEnvironment("CALIDORA_LINE_STEPS", 0);
    if (steps == 0)
        GTEST_SKIP() << "CALIDORA_LINE_STEPS tells how many";
    const quint64 seed = std::random_device()() & 0x7FFFFFFF;
    std::cout << "seed " << seed << std::endl;
    walk(seed, steps);
}

// CALIDORA_LINE_PLAY="OpenGroup, Connect, soon(SaysOk)": each step of a sequence, to see what leads where.
TEST(LineWalk, OneByOne)
{
    Sequence sequence = sequenceOf(qEnvironmentVariable("CALIDORA_LINE_PLAY"));
    if (sequence.empty())
        GTEST_SKIP() << "CALIDORA_LINE_PLAY tells which";
    World world;
    world.reset();
    world.port().onOutput = [&](const QByteArray& bytes) {
        std::cout << "    sends " << bytes.toPercentEncoding(" ").toStdString() << std::endl;
    };
    std::size_t at = 0;
    world.play(World::Source([&](World& it) -> std::optional<Event> {
        std::cout << it.clock().elapsed() << " ms  " << digest(it.picture()).toStdString();
        if (it.boxes() > 0)
            std::cout << "  \"" << it.lastWords().simplified().toStdString() << '"';
        std::cout << std::endl;
        if (at == sequence.size())
            return std::nullopt;
        std::cout << "  " << nameOf(sequence[at]).toStdString() << std::endl;
        return sequence[at++];
    }));
    world.recover();
    EXPECT_EQ(world.violation().toStdString(), "");
}

} // namespace
