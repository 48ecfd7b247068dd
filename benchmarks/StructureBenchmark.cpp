#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "structure/ListModel.h"
#include "structure/NodeKey.h"
#include "structure/TreeModel.h"

#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>

using structure::Compose_Key;

namespace {

void extractKey(benchmark::State& state)
{
    const QString key = QStringLiteral("4_12_3_G07_P0815");
    for (auto _ : state)
        benchmark::DoNotOptimize(structure::Extract_Key(key));
}
BENCHMARK(extractKey);

void fillTree(benchmark::State& state)
{
    const int groups = int(state.range(0));
    for (auto _ : state) {
        structure::TreeModel tree;
        tree.beginBulk();
        tree.addNode({}, structure::kRootKey, structure::kRootCaption, 1);
        for (int g = 1; g <= groups; ++g) {
            const QString group = QString::number(g);
            tree.addNode(structure::kRootKey, Compose_Key(2, group, {}, {}), group, 2);
            for (int i = 1; i <= 10; ++i) {
                const QString inst = QString::number(i);
                tree.addNode(Compose_Key(2, group, {}, {}), Compose_Key(3, group, inst, {}), inst, 3);
                for (int p = 1; p <= 8; ++p) {
                    const QString id = QString::number(p);
                    tree.addNode(Compose_Key(3, group, inst, {}), Compose_Key(4, group, inst, id), id, 4);
                }
            }
        }
        tree.endBulk();
        benchmark::DoNotOptimize(tree.nodeCount());
    }
    state.SetItemsProcessed(state.iterations() * groups * 91);
}
BENCHMARK(fillTree)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);

void sortList(benchmark::State& state)
{
    std::vector<structure::ListItem> items;
    for (int i = 0; i < state.range(0); ++i)
        items.push_back({QString::number(i), QString::number(i * 7919 % 10007), {}, {}, 2});
    structure::ListModel list;
    list.setItems(items);
    bool ascending = false;
    for (auto _ : state)
        list.sortByColumn(0, ascending = !ascending);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(sortList)->Arg(100)->Arg(1000);

// One look-up in a catalogue of the size told: the first one makes the hash, the others use it.
void findParameter(benchmark::State& state)
{
    QTemporaryDir folder;
    const QString file = folder.filePath("catalogue.mdb");
    {
        SQLite::Database made(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        made.exec("CREATE TABLE tbParam (mID TEXT, mTag TEXT); INSERT INTO tbParam WITH RECURSIVE n(i) AS "
                  "(SELECT 0 "
                  "UNION ALL SELECT i + 1 FROM n WHERE i < " +
                  std::to_string(state.range(0) - 1) + ") SELECT 'P' || i, 'tag' FROM n");
    }
    platform::Connection connection;
    connection.Open(file);
    platform::Recordset parameters;
    parameters.Open("SELECT * FROM tbParam", connection);
    int i = 0;
    for (auto _ : state) {
        i = int((i + 7919) % state.range(0));
        parameters.MoveFirst();
        parameters.Find(QStringLiteral("mID"), QStringLiteral("p%1").arg(i));
        if (parameters.Eof())
            state.SkipWithError("not found");
    }
}
BENCHMARK(findParameter)->Arg(100)->Arg(10000);

} // namespace
