#include "structure/PlantEditor.h"

#include "session/Lookup.h"
#include "support/CompanyFixture.h"

#include <QStringBuilder>
#include <iostream>
#include <map>
#include <random>

namespace {

class ChosenType : public session::Lookup
{
public:
    QString ShowZoom(const QString&) override { return answer; }
    QString answer;
};

// The plant as the test believes it to be: per group the numbers of its instruments with their types.
using Plant = std::map<int, std::map<int, QString>>;

// Creates and deletes at random, with a read-only company now and then. After each step tree, list and
// database are compared with the plain plant.
class PlantWalk : public support::CompanyFixture
{
protected:
    PlantWalk()
    {
        runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;");
        connectPlant();
        session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
        structure.clickNode("Root");
    }

    void walk(unsigned seed, int steps)
    {
        random.seed(seed);
        for (int step = 0; step < steps && !HasFailure(); ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
            takeStep();
            compare();
        }
    }

    // Steps
    // -----------------------------------------------------------------------------------------------------

    void takeStep()
    {
        const bool broken = chance(20);
        session.cnDatabase.Execute(broken ? "PRAGMA query_only=ON;" : "PRAGMA query_only=OFF;");
        const Plant before = plant;
        switch (below(5)) {
        case 0:
            newGroup();
            break;
        case 1:
        case 2:
            newInstrument();
            break;
        case 3:
            deleteItem();
            break;
        default:
            deleteNode();
        }
        if (broken && !failures.take().empty())
            plant = before;
        session.cnDatabase.Execute("PRAGMA query_only=OFF;");
    }
    void newGroup()
    {
        structure.clickNode("Root");
        op.expect(texts(584), answer());
        editor.New_Item();
        if (session.Answer == platform::answers::kYes)
            plant[plant.empty() ? 1 : plant.rbegin()->first + 1];
    }
    void newInstrument()
    {
        if (plant.empty())
            return;
        const int group = anyGroup();
        structure.clickNode(keyOf(group));
        static const QStringList kTypes{"", "KT100", "KT200"};
        lookup.answer = kTypes[below(3)];
        editor.New_Item();
        std::map<int, QString>& instruments = plant[group];
        if (!lookup.answer.isEmpty())
            instruments[instruments.empty() ? 1 : instruments.rbegin()->first + 1] = lookup.answer;
    }
    void deleteItem()
    {
        const bool inGroup = !plant.empty() && chance(70);
        structure.clickNode(inGroup ? keyOf(anyGroup()) : structure::kRootKey);
        const int items = structure.list().rowCount();
        if (items == 0)
            return;
        structure.pressItem(structure.list().keyAt(below(items)));
        const QString key = structure.selectedItem();
        op.expect(texts(506), answer());
        editor.Delete_Item();
        forget(key);
    }
    void deleteNode()
    {
        const int group = plant.empty() ? 0 : anyGroup();
        QString key = group == 0 ? structure::kRootKey : keyOf(group);
        if (group != 0 && !plant[group].empty() && chance(80))
            key = keyOf(group, std::next(plant[group].begin(), below(int(plant[group].size())))->first);
        structure.clickNode(key);
        op.expect(texts(506), answer());
        editor.Delete_Node();
        forget(key);
    }
    void forget(const QString& key)
    {
        if (session.Answer != platform::answers::kYes)
            return;
        const structure::KeyParts ids = structure::Extract_Key(key);
        if (ids.Level == "1")
            plant.erase(ids.IDGrp.toInt());
        else if (ids.Level == "2")
            plant[ids.IDGrp.toInt()].erase(ids.IDInst.toInt());
    }

    // Comparison
    // ------------------------------------------------------------------------------------------------

    void compare()
    {
        QStringList expected, nodes, items;
        for (const auto& [group, instruments] : plant) {
            expected << keyOf(group);
            for (const auto& [instrument, type] : instruments)
                expected << keyOf(group, instrument) % u' ' % type;
        }
        expected.sort();
        EXPECT_EQ(rows("SELECT '1_' || IDGrp AS Row FROM tbGroupsUser UNION ALL SELECT '2_' || IDGrp || '_' "
                       "|| IDInst || ' ' || IDItem FROM tbInstrumentsUser"),
                  expected);
        for (QString& key : expected)
            key = key.section(' ', 0, 0);
        collect(structure.tree().indexOf(structure::kRootKey), nodes);
        nodes.sort();
        EXPECT_EQ(nodes, expected);
        compareList();
        EXPECT_EQ(rows("SELECT Count(*) AS Row FROM tbParametersUser"),
                  QStringList{QString::number(parameters())});
        EXPECT_EQ(structure.path(), structure.tree().fullPathOf(structure.selectedNode()));
    }
    void compareList()
    {
        const QString node = structure.selectedNode();
        const int level = structure::Extract_Level(node);
        std::size_t expected = plant.size();
        if (level == structure::kGroup)
            expected = plant[structure::Extract_Key(node).IDGrp.toInt()].size();
        if (level == structure::kInstrument)
            return;
        ASSERT_EQ(structure.list().rowCount(), int(expected)) << node.toStdString();
        for (int row = 0; row < structure.list().rowCount(); ++row)
            EXPECT_TRUE(structure.tree().contains(structure.list().keyAt(row)));
    }
    // Groups and instruments of the tree; their parameter groups are the catalogue's.
    void collect(const QModelIndex& node, QStringList& keys)
    {
        for (int row = 0; row < structure.tree().rowCount(node); ++row) {
            const QModelIndex child = structure.tree().index(row, 0, node);
            const QString key = structure.tree().keyOf(child);
            if (structure::Extract_Level(key) > structure::kInstrument)
                continue;
            keys << key;
            collect(child, keys);
        }
    }
    int parameters() const
    {
        constexpr int kOfKT100 = 14, kOfKT200 = 4;
        int count = 0;
        for (const auto& [group, instruments] : plant) {
            for (const auto& [instrument, type] : instruments)
                count += type == "KT100" ? kOfKT100 : kOfKT200;
        }
        return count;
    }
    QStringList rows(const QString& sql)
    {
        platform::Recordset records;
        QStringList texts;
        for (records.Open(sql, session.cnDatabase); !records.Eof(); records.MoveNext())
            texts << records.text("Row");
        texts.sort();
        return texts;
    }

    // Chance
    // ----------------------------------------------------------------------------------------------------

    int below(int limit) { return int(random() % unsigned(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    int answer() { return chance(85) ? platform::answers::kYes : platform::answers::kNo; }
    int anyGroup() { return std::next(plant.begin(), below(int(plant.size())))->first; }
    static QString keyOf(int group) { return u"1_" % QString::number(group); }
    static QString keyOf(int group, int instrument)
    {
        return u"2_" % QString::number(group) % u'_' % QString::number(instrument);
    }

    Plant plant;
    ChosenType lookup;
    structure::PlantEditor editor{{session, texts, op, structure, lookup}};
    std::mt19937 random;
};

int stepsWanted()
{
    bool told = false;
    const int steps = qEnvironmentVariableIntValue("CALIDORA_WALK_STEPS", &told);
    return told ? steps : 1000;
}

TEST_F(PlantWalk, WithAFixedSeed)
{
    walk(20021, stepsWanted());
}

TEST_F(PlantWalk, WithASeedOfItsOwn)
{
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    walk(seed, stepsWanted());
}

} // namespace
