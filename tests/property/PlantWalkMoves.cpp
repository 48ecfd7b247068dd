#include "exchange/Fields.h"
#include "platform/CodePage.h"
#include "property/PlantWalk.h"

#include <QStringBuilder>

namespace walk {

void PlantWalk::cutOrCopy()
{
    const QString key = chance(90) ? anyNamed() : anyParamGroup();
    const bool movable = key.startsWith('1') || key.startsWith('2'), cut = chance(50);
    if (movable)
        held = {cut ? session::ClipCut : session::ClipCopy, key};
    if (movable && chance(50)) {
        structure.clickNode(aboveOf(key));
        structure.pressItem(key);
        cut ? clipboard.Cut_Item() : clipboard.Copy_Item();
    } else {
        structure.clickNode(key);
        cut ? clipboard.Cut_Node() : clipboard.Copy_Node();
    }
}

void PlantWalk::paste()
{
    const QString target = targetFor(held.key);
    structure.clickNode(target);
    expectPasteInto(target);
    clipboard.Paste_Item();
}

void PlantWalk::dragAndDrop()
{
    const QString key = anyNamed();
    if (key == structure::kRootKey)
        return;
    const bool control = chance(50);
    structure.clickNode(chance(50) ? key : aboveOf(key));
    drag.press(structure.selectedNode() == key ? structure::PlantDrag::FromTree
                                               : structure::PlantDrag::FromList,
               key);
    EXPECT_TRUE(drag.begin(control));
    const QString target = chance(10) ? QString() : chance(10) ? key : targetFor(key);
    drag.over(target);
    if (chance(10))
        return drag.cancel();
    if (target.isEmpty())
        held = {};
    else if (target != key) {
        held = {control ? session::ClipCopy : session::ClipCut, key};
        expectPasteInto(target);
    }
    drag.dropOnTree();
}

QString PlantWalk::targetFor(const QString& key)
{
    if (chance(10) || plant.groups.empty())
        return anyNamed();
    return key.startsWith('1') ? QString(structure::kRootKey) : keyOf(anyGroup());
}

void PlantWalk::expectPasteInto(const QString& target)
{
    if (held.operation == session::ClipNothing)
        return;
    const Clip source = held;
    if (source.gone) {
        held = {};
        return op.expect(texts.own("paste.gone"));
    }
    if (structure::Extract_Level(target) != structure::Extract_Level(source.key) - 1)
        return op.expect(texts(510));
    const bool cut = source.operation == session::ClipCut;
    const int group = structure::Extract_Key(target).IDGrp.toInt();
    const bool full = source.key.startsWith('1')
                          ? int(plant.groups.size()) >= kMostGroups
                          : int(plant.groups[group].instruments.size()) >= kMostInstruments;
    const int answer = full && !cut ? kNo : mostlyYes();
    op.expect(texts(cut ? 507 : 508), answer);
    if (answer == kNo)
        return;
    held = {};
    pasting = true;
    plant.copy(source.key, group);
    if (cut)
        plant.remove(source.key);
    if (!broken)
        op.expect(texts(509));
}

void PlantWalk::bringIn()
{
    if (plant.groups.empty() || int(plant.groups.size()) >= kMostGroups)
        return;
    const int group = anyGroup();
    if (isAskedAbout(plant.groups[group]))
        return;
    structure.clickNode(keyOf(group));
    const QString trace = file("Data/Group.dat");
    op.chooseFile(trace, 3);
    op.expect(texts(509));
    exporting.Export_Item();
    structure.clickNode(chance(50) ? QString(structure::kRootKey) : anyNamed());
    plant.groups[plant.freeGroup()] = asImported(plant.groups[group]);
    op.chooseFile(trace);
    if (!broken)
        op.expect(texts(509));
    importing.Import_Item();
}

bool PlantWalk::isAskedAbout(const PlainPlant::Group& group)
{
    const auto fills = [](const QString& name, const QString& description) {
        return name.size() >= 50 || description.size() >= 255;
    };
    bool any = fills(group.name, group.description);
    for (const auto& [_, instrument] : group.instruments)
        any |= fills(instrument.name, instrument.description);
    return any;
}

PlainPlant::Group PlantWalk::asImported(PlainPlant::Group group) const
{
    const auto traced = [&](const QString& text) {
        return platform::decode(exchange::trimmedField(text, session.CodePage), session.CodePage);
    };
    for (QString* text : {&group.name, &group.description, &group.phone})
        *text = traced(*text);
    std::map<int, PlainPlant::Instrument> instruments;
    for (auto& [_, instrument] : group.instruments) {
        for (QString* text : {&instrument.name, &instrument.description, &instrument.address})
            *text = traced(*text);
        for (auto& [_, value] : instrument.values) {
            value.state = 0;
            value.value = traced(value.value.value_or(QString()));
            if (value.value->isEmpty())
                value.value.reset();
        }
        instrument.nodes.clear();
        instrument.showGroups();
        instruments[int(instruments.size()) + 1] = instrument;
    }
    group.instruments = instruments;
    return group;
}

void PlantWalk::loseParameters()
{
    const QString key = anyNamed();
    if (broken || !key.startsWith('2'))
        return;
    edited = key;
    const structure::KeyParts ids = structure::Extract_Key(key);
    auto& values = instrument().values;
    const values::Causing causing(session.cnDatabase, values::ValueCause::Deleted);
    for (auto value = values.begin(); value != values.end();) {
        if (!chance(30)) {
            ++value;
            continue;
        }
        session.cnDatabase.Execute(QStringLiteral("DELETE FROM tbParametersUser WHERE IDGrp = %1 AND "
                                                  "IDInst = %2 AND IDPar = '%3'")
                                       .arg(ids.IDGrp, ids.IDInst, value->first));
        value = values.erase(value);
    }
    structure.clickNode(keyOf(ids.IDGrp.toInt()));
}

void PlantWalk::resync()
{
    const QString key = select(chance(70) ? anyNamed() : anyParamGroup());
    const int answer = mostlyYes();
    op.expect(texts(511), answer);
    if (answer == kYes) {
        const int added = plant.synchronize(key, catalogue);
        if (!broken || hasNoInstrument(key))
            op.expect(texts(509) % u"\r\n" % texts.own("resync.added").arg(added));
    }
    fromList ? states.Resync_Item() : states.Resync_Node();
}

void PlantWalk::reset()
{
    const QString key = select(chance(50) ? anyNamed() : anyParamGroup());
    const int answer = mostlyYes();
    op.expect(texts(512), answer);
    if (answer == kYes) {
        plant.reset(key);
        if (!broken)
            op.expect(texts(509));
    }
    fromList ? states.Reset_Item() : states.Reset_Node();
}

bool PlantWalk::hasNoInstrument(const QString& key)
{
    bool none = true;
    plant.eachInstrument(key, [&](const PlainPlant::Instrument&) { none = false; });
    return none;
}

QString PlantWalk::select(const QString& node)
{
    structure.clickNode(node);
    fromList = structure.list().rowCount() > 0 && chance(50);
    if (!fromList)
        return node;
    structure.pressItem(structure.list().keyAt(below(structure.list().rowCount())));
    return structure.selectedItem();
}

} // namespace walk
