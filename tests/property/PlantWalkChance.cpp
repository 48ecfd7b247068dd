#include "property/PlantWalk.h"

#include <QStringBuilder>

namespace walk {

QString PlantWalk::anyNamed()
{
    if (plant.groups.empty())
        return structure::kRootKey;
    const int group = anyGroup();
    const auto& instruments = plant.groups[group].instruments;
    if (instruments.empty() || chance(20))
        return keyOf(group);
    return keyOf(group, std::next(instruments.begin(), below(int(instruments.size())))->first);
}

QString PlantWalk::anyParamGroup()
{
    const QString key = anyNamed();
    if (!key.startsWith('2'))
        return key;
    edited = key;
    const auto& nodes = instrument().nodes;
    if (nodes.empty())
        return key;
    return u'3' % key.mid(1) % u'_' % *std::next(nodes.begin(), below(int(nodes.size())));
}

QString PlantWalk::aboveOf(const QString& key)
{
    return key.startsWith('1') ? QString(structure::kRootKey)
                               : keyOf(structure::Extract_Key(key).IDGrp.toInt());
}

bool PlantWalk::openParameter(const QString& IDPar)
{
    std::vector<QString> owners;
    for (const auto& [number, group] : plant.groups) {
        for (const auto& [place, instrument] : group.instruments) {
            const auto value = instrument.values.find(IDPar);
            if (value != instrument.values.end())
                owners.push_back(keyOf(number, place));
        }
    }
    if (owners.empty())
        return false;
    edited = owners[std::size_t(below(int(owners.size())))];
    parameter = IDPar;
    const QString group = u'3' % edited.mid(1) % u'_' % instrument().values[IDPar].param->IDParGrp;
    structure.clickNode(group);
    structure.pressItem(u'4' % group.mid(1) % u'_' % IDPar);
    return true;
}

PlainPlant::Instrument& PlantWalk::instrument()
{
    const structure::KeyParts ids = structure::Extract_Key(edited);
    return plant.groups[ids.IDGrp.toInt()].instruments[ids.IDInst.toInt()];
}

QString PlantWalk::textOf(const QString& field) const
{
    for (const property::NamedControl& named : property::namedControls()) {
        if (field == QLatin1String(named.name))
            return (controls().*named.control).text;
    }
    return {};
}

} // namespace walk
