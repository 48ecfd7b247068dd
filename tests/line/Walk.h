#pragma once

#include "line/World.h"

#include <random>

namespace line {

// Draws events at random, more often such as bring the line on.
class Walk
{
public:
    explicit Walk(quint64 seed) : random_(seed) {}

    Event draw(const World& world, const Picture& now);

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
    What helpful(const Picture& now);

    std::mt19937_64 random_;
};

// The shortest part of a sequence that still violates, found by leaving out what isn't needed.
Sequence shrink(World& world, Sequence sequence, QString& violation);

} // namespace line
