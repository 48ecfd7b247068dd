#include "property/PlantWalk.h"

#include <iostream>

using walk::PlantWalk;

namespace {

int stepsWanted()
{
    bool told = false;
    const int steps = qEnvironmentVariableIntValue("CALIDORA_WALK_STEPS", &told);
    return told ? steps : 1000;
}

TEST_F(PlantWalk, WithAFixedSeed)
{
    walk(20021, stepsWanted());
    expectEveryCause();
}

TEST_F(PlantWalk, WithASeedOfItsOwn)
{
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    walk(seed, stepsWanted());
}

} // namespace
