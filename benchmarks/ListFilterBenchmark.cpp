// A key typed into the filter over a long list.

#include "structure/ListModel.h"

#include <benchmark/benchmark.h>

namespace {

std::vector<structure::ListItem> items(int count)
{
    std::vector<structure::ListItem> items;
    for (int i = 0; i < count; ++i)
        items.push_back({QString("4_1_1_G01_P%1").arg(i),
                         QString("Камера %1").arg(i),
                         QString("%1.5 °C").arg(i % 100),
                         {},
                         5 + i % 3});
    return items;
}

void filterByName(benchmark::State& state, const char* text)
{
    structure::ListModel list;
    list.setItems(items(int(state.range(0))));
    for (auto _ : state) {
        list.setFilter(text);
        benchmark::DoNotOptimize(list.rowCount());
        state.PauseTiming();
        list.setFilter({});
        state.ResumeTiming();
    }
}

BENCHMARK_CAPTURE(filterByName, few, "камера 999")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterByName, all, "камера")->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filterByName, none, "zzz")->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
