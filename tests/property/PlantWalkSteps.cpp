#include "property/PlantWalk.h"

#include <QStringBuilder>

namespace walk {

PlantWalk::Step PlantWalk::drawn()
{
    // Out of a hundred steps so many are of that kind.
    static constexpr std::pair<int, Step> kSteps[] = {
        {6, &PlantWalk::newGroup},    {11, &PlantWalk::newInstrument}, {7, &PlantWalk::deleteItem},
        {4, &PlantWalk::deleteNode},  {12, &PlantWalk::editNamed},     {17, &PlantWalk::editParameter},
        {8, &PlantWalk::copyBlocks},  {7, &PlantWalk::cutOrCopy},      {8, &PlantWalk::paste},
        {6, &PlantWalk::dragAndDrop}, {3, &PlantWalk::loseParameters}, {5, &PlantWalk::resync},
        {3, &PlantWalk::reset},       {3, &PlantWalk::bringIn}};
    int lot = below(100);
    for (const auto& [share, step] : kSteps) {
        if ((lot -= share) < 0)
            return step;
    }
    return &PlantWalk::paste;
}

void PlantWalk::takeStep()
{
    broken = chance(10);
    session.cnDatabase.Execute(broken ? "PRAGMA query_only=ON;" : "PRAGMA query_only=OFF;");
    const PlainPlant before = plant;
    const Clip heldBefore = held;
    (this->*drawn())();
    const auto reported = failures.take();
    EXPECT_LE(reported.size(), broken ? 1u : 0u) << reported.front().description.toStdString();
    if (!reported.empty()) {
        plant = before;
        held = pasting ? Clip() : heldBefore;
    }
    pasting = false;
    session.cnDatabase.Execute("PRAGMA query_only=OFF;");
    EXPECT_TRUE(op.done());
    op.boxes.clear();
    op.forms.clear();
}

void PlantWalk::newGroup()
{
    if (int(plant.groups.size()) >= kMostGroups)
        return;
    structure.clickNode("Root");
    const int answer = mostlyYes();
    op.expect(texts(584), answer);
    const int number = plant.freeGroup();
    if (answer == kYes)
        plant.groups[number].name = u"GRP" % QString::number(number);
    dialog = chance(50) ? &PlantWalk::rename : nullptr;
    edited = keyOf(number);
    editor.New_Item();
}

void PlantWalk::newInstrument()
{
    if (plant.groups.empty())
        return;
    const int group = anyGroup();
    if (int(plant.groups[group].instruments.size()) >= kMostInstruments)
        return;
    structure.clickNode(keyOf(group));
    lookup.answer = QStringList{"", "KT100", "KT200"}[below(3)];
    const int number = plant.freeInstrument(group);
    if (!lookup.answer.isEmpty()) {
        PlainPlant::Instrument& created = plant.groups[group].instruments[number];
        created = {lookup.answer,
                   u"INST" % QString::number(group) % QString::number(number),
                   lookup.answer,
                   lookup.answer == "KT100" ? "10" : "2A",
                   {}};
        for (const PlainParam& param : catalogue[lookup.answer])
            created.values[param.IDPar] = {&param, param.value};
        created.nodes = typeGroups[lookup.answer];
    }
    dialog = chance(50) ? &PlantWalk::rename : nullptr;
    edited = keyOf(group, number);
    editor.New_Item();
}

void PlantWalk::deleteItem()
{
    structure.clickNode(!plant.groups.empty() && chance(90) ? keyOf(anyGroup()) : structure::kRootKey);
    if (structure.list().rowCount() == 0)
        return;
    structure.pressItem(structure.list().keyAt(below(structure.list().rowCount())));
    confirmRemovalOf(structure.selectedItem());
    editor.Delete_Item();
}

void PlantWalk::deleteNode()
{
    structure.clickNode(chance(5) ? structure::kRootKey : anyNamed());
    confirmRemovalOf(structure.selectedNode());
    editor.Delete_Node();
}

void PlantWalk::confirmRemovalOf(const QString& key)
{
    const int answer = mostlyYes();
    op.expect(texts(506), answer);
    if (answer != kYes)
        return;
    plant.remove(key);
    held.gone |= held.operation != session::ClipNothing && !plant.contains(held.key);
}

void PlantWalk::editNamed()
{
    const QString key = anyNamed();
    if (key == structure::kRootKey)
        return;
    dialog = &PlantWalk::rename;
    edited = key;
    if (chance(50)) {
        structure.clickNode(key);
        model.Property_Node();
        return;
    }
    structure.clickNode(key.startsWith('1') ? structure::kRootKey
                                            : keyOf(structure::Extract_Key(key).IDGrp.toInt()));
    structure.pressItem(key);
    model.Property_Item();
}

void PlantWalk::editParameter()
{
    const Typing& typing = kTypings[std::size_t(below(int(kTypings.size())))];
    const bool choose = chance(20);
    const QStringList choices{"P0201", "P0202", "P0203"};
    if (!openParameter(choose ? choices[below(3)] : typing.IDPar))
        return;
    if (choose) {
        dialog = &PlantWalk::choose;
    } else {
        current = &typing;
        dialog = &PlantWalk::retype;
    }
    model.Property_Item();
}

void PlantWalk::copyBlocks()
{
    const QStringList sources{"P0101", "P0102", "P0103", "P0104", "P0105", "P0301", "P0302", "P0303"};
    if (!openParameter(sources[below(int(sources.size()))]))
        return;
    dialog = &PlantWalk::pressCopy;
    model.Property_Item();
}

} // namespace walk
