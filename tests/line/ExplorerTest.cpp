// All sequences of events, the short ones first.
#include "line/Explorer.h"
#include "line/Environment.h"
#include "line/Walk.h"

#include <gtest/gtest.h>
#include <iostream>

using namespace line;

namespace {

// The graph of what was gone through goes to the file of this name, for docs/line-graph.py.
void keepGraph(const Explorer& explorer)
{
    const QString path = qEnvironmentVariable("CALIDORA_LINE_GRAPH");
    if (path.isEmpty())
        return;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(explorer.graph().join(QLatin1Char('\n')).toUtf8() + '\n');
}

TEST(LineExplorer, EveryOrderOfEvents)
{
    Explorer explorer;
    Explorer::Report report = explorer.explore(fromEnvironment("CALIDORA_LINE_SECONDS", 5), 1000);
    std::cout << report.states << " states, " << report.transitions << " transitions, "
              << (report.whole ? "all there are"
                               : "all sequences of " + std::to_string(report.depth) + " events")
              << std::endl;
    keepGraph(explorer);
    if (!report.violation.isEmpty()) {
        World world;
        const Sequence shortest = shrink(world, report.sequence, report.violation);
        FAIL() << asTest(shortest, report.violation).toStdString();
    }
    EXPECT_GT(report.states, 50);
}

} // namespace
