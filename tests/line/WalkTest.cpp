// A long walk through all that can happen on the line, drawn by lot.
#include "line/Walk.h"
#include "line/Environment.h"

#include <gtest/gtest.h>
#include <iostream>

using namespace line;

namespace {

// Pieces of so many steps, each from a fresh start, so that a failure is short to begin with.
constexpr int kPiece = 400;

void walk(quint64 seed, int steps)
{
    World world;
    Walk walk(seed);
    int done = 0;
    for (int piece = 0; done < steps; ++piece) {
        world.reset();
        Sequence played;
        const int before = world.steps();
        world.play(World::Source([&](World& w) -> std::optional<Event> {
            if (int(played.size()) >= kPiece)
                return std::nullopt;
            played.push_back(walk.draw(w, w.picture()));
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
    walk(fromEnvironment("CALIDORA_LINE_SEED", 20260314), fromEnvironment("CALIDORA_LINE_STEPS", 20000));
}

TEST(LineWalk, FreshSeed)
{
    const quint64 seed = std::random_device()();
    std::cout << "seed " << seed << std::endl;
    walk(seed, fromEnvironment("CALIDORA_LINE_STEPS", 20000));
}

} // namespace
