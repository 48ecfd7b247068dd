#include "property/PlantWalk.h"
#include "values/Display.h"

#include <QStringBuilder>

namespace walk {

void PlantWalk::compare()
{
    EXPECT_EQ(rows(support::kRowsOfPlant, "Row"), plant.rows());
    QStringList nodes;
    collect(structure.tree().indexOf(structure::kRootKey), nodes);
    nodes.sort();
    EXPECT_EQ(nodes, expectedNodes());
    QStringList items;
    for (int row = 0; row < structure.list().rowCount(); ++row) {
        const structure::ListItem& item = *structure.list().item(structure.list().keyAt(row));
        items << item.key % u'|' % item.text % u'|' % item.subtext.trimmed() % u'|' % item.detail % u'|' %
                     QString::number(item.icon);
    }
    items.sort();
    EXPECT_EQ(items, itemsOf(structure.selectedNode()));
    EXPECT_EQ(structure.path(), structure.tree().fullPathOf(structure.selectedNode()));
    EXPECT_EQ(session.ClipOperation, held.operation);
    EXPECT_EQ(session.ClipKey, held.key);
}

QStringList PlantWalk::expectedNodes() const
{
    QStringList nodes = plant.nodes();
    for (const auto& [number, group] : plant.groups) {
        for (const auto& [place, instrument] : group.instruments) {
            for (const QString& below : instrument.nodes)
                nodes << u'3' % keyOf(number, place).mid(1) % u'_' % below % u'|' % groupCaptions.at(below);
        }
    }
    nodes.sort();
    return nodes;
}

void PlantWalk::collect(const QModelIndex& node, QStringList& nodes)
{
    for (int row = 0; row < structure.tree().rowCount(node); ++row) {
        const QModelIndex child = structure.tree().index(row, 0, node);
        const QString key = structure.tree().keyOf(child);
        nodes << key % u'|' % child.data().toString();
        collect(child, nodes);
    }
}

QStringList PlantWalk::itemsOf(const QString& node)
{
    QStringList items;
    const structure::KeyParts ids = structure::Extract_Key(node);
    const int level = structure::Extract_Level(node);
    if (level == structure::kRoot) {
        for (const auto& [number, group] : plant.groups)
            items << keyOf(number) % u'|' % group.name % u'|' % group.phone.trimmed() % u'|' %
                         group.description % u"|2";
    } else if (level == structure::kGroup) {
        for (const auto& [number, instrument] : plant.groups[ids.IDGrp.toInt()].instruments)
            items << keyOf(ids.IDGrp.toInt(), number) % u'|' % instrument.name % u'|' % instrument.address %
                         u'|' % instrument.description % u"|3";
    } else {
        const PlainPlant::Instrument& instrument =
            plant.groups[ids.IDGrp.toInt()].instruments[ids.IDInst.toInt()];
        std::set<QString> below;
        for (const auto& [IDPar, value] : instrument.values) {
            below.insert(value.param->IDParGrp);
            if (level == structure::kParamGroup && value.param->IDParGrp == ids.IDParGrp)
                items << u'4' % node.mid(1) % u'_' % IDPar % u'|' % value.param->caption % u'|' %
                             shown(value).trimmed() % u"||" % QString::number(value.state + 5);
        }
        if (level == structure::kInstrument) {
            for (const QString& IDParGrp : below)
                items << u'3' % node.mid(1) % u'_' % IDParGrp % u'|' % groupCaptions.at(IDParGrp) % u"|||4";
        }
    }
    items.sort();
    return items;
}

QString PlantWalk::shown(const PlainPlant::Value& value)
{
    const auto choice = [&](const QString& number) { return choices[value.param->IDPar][number]; };
    return values::displayValue(value.value, value.param->KeyType, value.param->mask, value.param->unit,
                                choice, {});
}

} // namespace walk
