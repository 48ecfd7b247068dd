#include "property/PlainPlant.h"

#include "structure/NodeKey.h"

#include <QStringBuilder>
#include <algorithm>

namespace support {

namespace {

constexpr char16_t kBetween = u'|';

QString orNull(const std::optional<QString>& text)
{
    return text.value_or(QStringLiteral("NULL"));
}

// An empty text is stored as NULL, but for names and values.
QString orNull(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("NULL") : text;
}

} // namespace

const char* const kRowsOfPlant =
    "SELECT '1_' || IDGrp || '|' || Name || '|' || IfNull(Description, 'NULL') || '|' || IfNull(Phone, "
    "'NULL') "
    "AS Row FROM tbGroupsUser "
    "UNION ALL SELECT '2_' || IDGrp || '_' || IDInst || '|' || IDItem || '|' || Name || '|' || "
    "IfNull(Description, 'NULL') || '|' || IfNull(Address, 'NULL') FROM tbInstrumentsUser "
    "UNION ALL SELECT '4_' || IDGrp || '_' || IDInst || '_' || IDParGrp || '_' || IDPar || '|' || "
    "IfNull(Value, 'NULL') || '|' || State FROM tbParametersUser";

QString keyOf(int group)
{
    return u"1_" % QString::number(group);
}

QString keyOf(int group, int instrument)
{
    return u"2_" % QString::number(group) % u'_' % QString::number(instrument);
}

int PlainPlant::freeInstrument(int group) const
{
    const auto& instruments = groups.at(group).instruments;
    return instruments.empty() ? 1 : instruments.rbegin()->first + 1;
}

void PlainPlant::remove(const QString& key)
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    if (ids.Level == "1")
        groups.erase(ids.IDGrp.toInt());
    else if (ids.Level == "2")
        groups.at(ids.IDGrp.toInt()).instruments.erase(ids.IDInst.toInt());
}

bool PlainPlant::contains(const QString& key) const
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    const auto group = groups.find(ids.IDGrp.toInt());
    return group != groups.end() &&
           (ids.IDInst.isEmpty() || group->second.instruments.contains(ids.IDInst.toInt()));
}

void PlainPlant::Instrument::showGroups()
{
    for (const auto& [_, value] : values)
        nodes.insert(value.param->IDParGrp);
}

// The tree of a copy is made from its values alone.
QString PlainPlant::copy(const QString& key, int targetGroup)
{
    const auto shown = [](Instrument instrument) {
        instrument.nodes.clear();
        instrument.showGroups();
        return instrument;
    };
    const structure::KeyParts ids = structure::Extract_Key(key);
    Group source = groups.at(ids.IDGrp.toInt());
    if (ids.Level == "1") {
        for (auto& [_, instrument] : source.instruments)
            instrument = shown(instrument);
        const int number = freeGroup();
        groups[number] = source;
        return keyOf(number);
    }
    const int number = freeInstrument(targetGroup);
    groups[targetGroup].instruments[number] = shown(source.instruments.at(ids.IDInst.toInt()));
    return keyOf(targetGroup, number);
}

void PlainPlant::eachInstrument(const QString& key, const std::function<void(Instrument&)>& work)
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    for (auto& [number, group] : groups) {
        if (!ids.IDGrp.isEmpty() && number != ids.IDGrp.toInt())
            continue;
        for (auto& [place, instrument] : group.instruments) {
            if (ids.IDInst.isEmpty() || place == ids.IDInst.toInt())
                work(instrument);
        }
    }
}

int PlainPlant::synchronize(const QString& key, const std::map<QString, std::vector<PlainParam>>& catalogue)
{
    int added = 0;
    eachInstrument(key, [&](Instrument& instrument) {
        for (const PlainParam& param : catalogue.at(instrument.type))
            added += instrument.values.insert({param.IDPar, {&param, QStringLiteral("0"), 2}}).second;
        instrument.showGroups();
    });
    return added;
}

void PlainPlant::reset(const QString& key)
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    eachInstrument(key, [&](Instrument& instrument) {
        for (auto& [IDPar, value] : instrument.values) {
            if ((ids.IDParGrp.isEmpty() || ids.IDParGrp == value.param->IDParGrp) &&
                (ids.IDPar.isEmpty() || ids.IDPar == IDPar))
                value.state = 0;
        }
    });
}

void PlainPlant::copyBlock(Instrument& instrument, const QString& IDPar, const QStringList& blocks)
{
    const auto family = [](const QString& id) { return id.left(2); };
    const auto block = [](const QString& id) { return id.mid(3, 2); };
    const auto place = [](const QString& id) { return id.mid(6, 2); };
    const auto before = instrument.values;
    const QString source = before.at(IDPar).param->IDCopy;
    for (auto& [_, target] : instrument.values) {
        const QString& id = target.param->IDCopy;
        if (id.isEmpty() || family(id) != family(source) || !blocks.contains(block(id)))
            continue;
        for (const auto& [_, candidate] : before) {
            const QString& other = candidate.param->IDCopy;
            if (family(other) != family(source) || block(other) != block(source) || place(other) != place(id))
                continue;
            target.value = candidate.value;
            target.state = 1;
        }
    }
}

QStringList PlainPlant::rows() const
{
    QStringList all;
    for (const auto& [number, group] : groups) {
        all << keyOf(number) % kBetween % group.name % kBetween % orNull(group.description) % kBetween %
                   orNull(group.phone);
        for (const auto& [place, instrument] : group.instruments) {
            const QString key = keyOf(number, place);
            all << key % kBetween % instrument.type % kBetween % instrument.name % kBetween %
                       orNull(instrument.description) % kBetween % orNull(instrument.address);
            for (const auto& [IDPar, value] : instrument.values)
                all << u"4" % key.mid(1) % u'_' % value.param->IDParGrp % u'_' % IDPar % kBetween %
                           orNull(value.value) % kBetween % QString::number(value.state);
        }
    }
    all.sort();
    return all;
}

QStringList PlainPlant::nodes() const
{
    QStringList all;
    for (const auto& [number, group] : groups) {
        all << keyOf(number) % kBetween % group.name;
        for (const auto& [place, instrument] : group.instruments)
            all << keyOf(number, place) % kBetween % instrument.name;
    }
    all.sort();
    return all;
}

} // namespace support
