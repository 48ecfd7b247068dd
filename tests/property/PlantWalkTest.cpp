// Creates, deletes, edits, cuts, pastes, drags, imports, synchronises, resets and thinks better of it, at
// random, with a company that can't be written now and then. After each step tree, list and database are
// compared with a plain plant; at the end the value history is played over the plant of the start.
#include "exchange/Export.h"
#include "exchange/Fields.h"
#include "exchange/Import.h"
#include "history/Recorder.h"
#include "platform/CodePage.h"
#include "platform/VirtualClock.h"
#include "property/PlainPlant.h"
#include "property/PropertyFixture.h"
#include "session/Lookup.h"
#include "structure/PlantClipboard.h"
#include "structure/PlantDrag.h"
#include "structure/PlantEditor.h"
#include "structure/PlantStates.h"
#include "support/ReplayedHistory.h"
#include "values/Display.h"

#include <QStringBuilder>
#include <iostream>
#include <random>

using platform::answers::kNo;
using platform::answers::kYes;
using support::keyOf;
using support::PlainParam;
using support::PlainPlant;

namespace {

class ChosenType : public session::Lookup
{
public:
    QString ShowZoom(const QString&) override { return answer; }
    QString answer;
};

// What is typed into the fields of a parameter and what must come of it: a stored value (none is NULL), or
// the message of a refusal.
struct Typing
{
    const char* IDPar;
    QStringList typed;
    std::optional<QString> stored;
    QString refusal = {};
};

const QString kNotNumeric = "Attention! The imput number is not a valid numeric format.";
const QString kCheck = "Attention! Check the imput numbers.";
const QString kRange = "Attention! The values are out of range.";

QString between(const QString& low, const QString& high)
{
    return u"Attention! The number must be included between " % low % u" and " % high % u'.';
}

const std::vector<Typing> kTypings{
    {"P1101", {"20.2"}, "20.5"},
    {"P1101", {"7,7"}, "8"},
    {"P1101", {"0"}, "0"},
    {"P1101", {"1e3"}, "13"}, // the letter is dropped
    {"P1101", {""}, std::nullopt},
    {"P1101", {"25.1"}, {}, between("0", "25")},
    {"P1101", {"--"}, {}, kNotNumeric},
    {"P1101", {","}, {}, kNotNumeric},
    {"P1102", {"6,5"}, "65"}, // so is the comma of a whole number
    {"P1102", {"60000"}, "60000"},
    {"P1102", {"60001"}, {}, between("0", "60000")},
    {"P1103", {"007"}, "7"},
    {"P1103", {""}, std::nullopt},
    {"P0301", {"23"}, "23:00:00"},
    {"P0301", {"24"}, {}, between("0", "23")},
    {"P0301", {""}, std::nullopt},
    {"P0302", {"2", "30"}, "02:30:00"},
    {"P0302", {"2", ""}, {}, kCheck},
    {"P0302", {"", ""}, std::nullopt},
    {"P0302", {"2", "60"}, {}, kRange},
    {"P0303", {"1", "2", "3"}, "01:02:03"},
    {"P0303", {"", "", ""}, std::nullopt},
    {"P0303", {"", "5", ""}, {}, kCheck},
    {"P0303", {"0", "0", "99"}, {}, kRange},
    {"P0204", {"o'hara"}, "O'HARA"},
    {"P0204", {"50% \"a_b\""}, "50% \"A_B"}, // eight characters
    {"P0204", {"камера"}, "КАМЕРА"},
    {"P0204", {"seven..\U0001F9CA"}, "SEVEN.."}, // no half character
    {"P0204", {""}, std::nullopt},
};

const QStringList kNames{"O'Hara",   "50% \"a_b\"",     "КАМЕРА 1", "\U0001F9CA room",
                         "--; DROP", QString(300, 'x'), "plain",    "1e3"};

constexpr int kMostGroups = 5;
constexpr int kMostInstruments = 4; // that are made in a group

int stepsWanted()
{
    bool told = false;
    const int steps = qEnvironmentVariableIntValue("CALIDORA_WALK_STEPS", &told);
    return told ? steps : 1000;
}

class PlantWalk : public support::PropertyFixture
{
protected:
    PlantWalk()
    {
        runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;"
                   "UPDATE tbParam SET mIDCopy = NULL;");
        // Two families: measures in three blocks, the last of them shorter, and the times.
        const std::pair<const char*, const char*> places[] = {
            {"P0101", "MS.01.01"}, {"P0102", "MS.01.02"}, {"P0103", "MS.02.01"}, {"P0104", "MS.02.02"},
            {"P0105", "MS.03.01"}, {"P0301", "TM.01.01"}, {"P0302", "TM.02.01"}, {"P0303", "TM.03.01"}};
        for (const auto& [IDPar, IDCopy] : places)
            runOnPlant(QStringLiteral("UPDATE tbParam SET mIDCopy = '%1' WHERE mID = '%2';"
                                      "INSERT INTO tbParamCopyLanguage VALUES ('%1', 'EN', 'Block')")
                           .arg(IDCopy, IDPar));
        EXPECT_TRUE(connectPlant());
        session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
        readCatalogue();
        structure.clickNode("Root");
        op.onModal = [this](const QString& form) { inside(form); };
    }

    void walk(unsigned seed, int steps)
    {
        random.seed(seed);
        for (int step = 0; step < steps && !HasFailure(); ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
            takeStep();
            compare();
        }
        EXPECT_EQ(rows("PRAGMA integrity_check", "integrity_check"), QStringList{"ok"});
        expectHistory();
    }
    // It began with a plant that was empty.
    void expectHistory()
    {
        EXPECT_EQ(recorder.failure(), "");
        support::PlantValues played;
        support::replayHistory(plantFile(), played);
        EXPECT_EQ(played, support::valuesOf(plantFile()));
        const QString history = history::historyFileOf(plantFile());
        EXPECT_EQ(support::column(history, "SELECT Count(*) FROM tbNote WHERE Cause = 0"), QStringList{"0"});
    }
    // Edited, copied, pasted, imported, synchronised, reset, created, deleted: a short walk can miss one.
    void expectEveryCause() const
    {
        EXPECT_EQ(support::column(history::historyFileOf(plantFile()),
                                  "SELECT DISTINCT Cause FROM tbNote ORDER BY Cause"),
                  QStringList({"2", "3", "4", "5", "6", "7", "11", "12"}));
    }

    // Steps
    // -----------------------------------------------------------------------------------------------------

    using Step = void (PlantWalk::*)();

    Step drawn()
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

    void takeStep()
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

    void newGroup()
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
    void newInstrument()
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
    void deleteItem()
    {
        structure.clickNode(!plant.groups.empty() && chance(90) ? keyOf(anyGroup()) : structure::kRootKey);
        if (structure.list().rowCount() == 0)
            return;
        structure.pressItem(structure.list().keyAt(below(structure.list().rowCount())));
        confirmRemovalOf(structure.selectedItem());
        editor.Delete_Item();
    }
    void deleteNode()
    {
        structure.clickNode(chance(5) ? structure::kRootKey : anyNamed());
        confirmRemovalOf(structure.selectedNode());
        editor.Delete_Node();
    }
    void confirmRemovalOf(const QString& key)
    {
        const int answer = mostlyYes();
        op.expect(texts(506), answer);
        if (answer != kYes)
            return;
        plant.remove(key);
        held.gone |= held.operation != session::ClipNothing && !plant.contains(held.key);
    }
    // A group or an instrument, opened from the list or from the tree.
    void editNamed()
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
    void editParameter()
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
    void copyBlocks()
    {
        const QStringList sources{"P0101", "P0102", "P0103", "P0104", "P0105", "P0301", "P0302", "P0303"};
        if (!openParameter(sources[below(int(sources.size()))]))
            return;
        dialog = &PlantWalk::pressCopy;
        model.Property_Item();
    }

    // Moving and copying
    // ------------------------------------------------------------------------------------------

    // The clipboard as it must be.
    struct Clip
    {
        int operation = session::ClipNothing;
        QString key = {};
        bool gone = false; // the noted element was deleted
    };

    void cutOrCopy()
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
    void paste()
    {
        const QString target = targetFor(held.key);
        structure.clickNode(target);
        expectPasteInto(target);
        clipboard.Paste_Item();
    }
    void dragAndDrop()
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
    // Mostly one that takes the element.
    QString targetFor(const QString& key)
    {
        if (chance(10) || plant.groups.empty())
            return anyNamed();
        return key.startsWith('1') ? QString(structure::kRootKey) : keyOf(anyGroup());
    }
    void expectPasteInto(const QString& target)
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

    // A group goes out as a data trace and comes in as another group.
    void bringIn()
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
    // The file can't tell whether a text that fills its field was cut.
    static bool isAskedAbout(const PlainPlant::Group& group)
    {
        const auto fills = [](const QString& name, const QString& description) {
            return name.size() >= 50 || description.size() >= 255;
        };
        bool any = fills(group.name, group.description);
        for (const auto& [_, instrument] : group.instruments)
            any |= fills(instrument.name, instrument.description);
        return any;
    }
    PlainPlant::Group asImported(PlainPlant::Group group) const
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

    // What the instruments lack and how they are marked
    // -----------------------------------------------------------------

    // As if the catalogue had grown: it has what some instrument lacks.
    void loseParameters()
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
    void resync()
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
    void reset()
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
    bool hasNoInstrument(const QString& key)
    {
        bool none = true;
        plant.eachInstrument(key, [&](const PlainPlant::Instrument&) { none = false; });
        return none;
    }
    // Selects an element of the tree there, or one of the items below it in the list; its key is returned.
    QString select(const QString& node)
    {
        structure.clickNode(node);
        fromList = structure.list().rowCount() > 0 && chance(50);
        if (!fromList)
            return node;
        structure.pressItem(structure.list().keyAt(below(structure.list().rowCount())));
        return structure.selectedItem();
    }

    // In the dialogs
    // --------------------------------------------------------------------------------------------

    void inside(const QString& form)
    {
        if (form == "frmPropertyCopy")
            return copyChecked();
        ASSERT_EQ(form, "frmProperty");
        model.load();
        thinksBetter = chance(15);
        if (dialog)
            (this->*dialog)();
    }
    // Name and description; phone or address.
    void rename()
    {
        const bool isGroup = edited.startsWith('1');
        const QString name = kNames[below(int(kNames.size()))], description = chance(30) ? "" : name;
        const QString last = isGroup ? chance(30) ? "" : "055 'x'" : QStringLiteral("%1").arg(below(18));
        const QString refusal = !isGroup && last.toInt() > 15 ? between("0", "15") : QString();
        type("txtValStr1", name);
        type("txtValStr2", description);
        type(isGroup ? "txtValStr3" : "txtVal3", last);
        if (!confirmed(refusal) || thinksBetter)
            return;
        const structure::KeyParts ids = structure::Extract_Key(edited);
        PlainPlant::Group& group = plant.groups[ids.IDGrp.toInt()];
        if (isGroup) {
            group.name = name.toUpper().left(50);
            group.description = description.toUpper().left(255);
            group.phone = last.toUpper();
        } else {
            PlainPlant::Instrument& instrument = group.instruments[ids.IDInst.toInt()];
            instrument.name = name.toUpper().left(50);
            instrument.description = description.toUpper().left(255);
            instrument.address.replace(1, 1, QString::number(last.toInt(), 16).toUpper());
        }
    }
    void retype()
    {
        QStringList fields{"txtVal1", "txtVal2", "txtVal3"};
        if (controls().txtValStr1.visible)
            fields = {"txtValStr1"};
        fields = fields.mid(0, current->typed.size());
        for (int i = 0; i < fields.size(); ++i)
            type(fields[i], current->typed[i]);
        const std::optional<QString> former = instrument().values[parameter].value;
        if (confirmed(current->refusal))
            changeTo(thinksBetter ? savedAgain(former) : current->stored);
    }
    void choose()
    {
        const int entry = below(int(controls().entries.size()));
        model.pickEntry(entry);
        if (chance(70) && confirmed({}))
            changeTo(QString::number(controls().entries[std::size_t(entry)].value));
    }
    void pressCopy() { model.cmdCopy_Click(); }
    void copyChecked()
    {
        copy.load();
        QStringList blocks;
        for (int row = 0; row < copy.rowCount(); ++row) {
            if (!chance(60))
                continue;
            copy.setData(copy.index(row, 0), Qt::Checked, Qt::CheckStateRole);
            blocks << copy.index(row, 0).data().toString();
        }
        int answer = kYes;
        if (blocks.isEmpty())
            op.expect(texts(532));
        else if (blocks.size() > 1)
            op.expect(texts(533) + "\r\n" + texts(534), answer = mostlyYes());
        copy.Copy_Value();
        if (answer == kYes)
            PlainPlant::copyBlock(instrument(), parameter, blocks);
        copy.unload();
    }

    // Types into a field; somebody who thinks better of it presses Escape there.
    void type(const QString& field, const QString& text)
    {
        const QString before = textOf(field);
        model.enterField(field);
        QString typed;
        for (qsizetype i = 0; i < text.size(); ++i) {
            QString character(text[i]);
            if (text[i].isHighSurrogate())
                character += text[++i];
            typed += model.keyPress(field, character).value_or(QString());
        }
        model.change(field, typed);
        if (!thinksBetter)
            return;
        model.restore(field);
        EXPECT_EQ(textOf(field), before) << field.toStdString();
    }
    // OK, Apply or Cancel. True when the change was saved, as far as the company takes it.
    bool confirmed(QString refusal)
    {
        const int how = below(10);
        if (thinksBetter)
            refusal.clear();
        if (how == 0)
            return false;
        if (!refusal.isEmpty())
            op.expect(refusal);
        if (how < 4) {
            model.cmdApply_Click();
            EXPECT_TRUE(refusal.isEmpty() || model.Dirty());
        } else {
            const bool closes = model.cmdOK_Click();
            EXPECT_FALSE(closes && !refusal.isEmpty());
        }
        return refusal.isEmpty();
    }
    // A value that is saved as it was opened: a time keeps what its fields show, midnight for the bare "0" of
    // a synchronisation.
    std::optional<QString> savedAgain(const std::optional<QString>& value)
    {
        const QString KeyType = instrument().values[parameter].param->KeyType;
        if (value == QStringLiteral("0") && KeyType.startsWith("TIME"))
            return QStringLiteral("00:00:00");
        if (value && KeyType == "TIME_H")
            return value->left(3) % u"00:00";
        if (value && KeyType == "TIME_HM")
            return value->left(6) % u"00";
        return value;
    }
    void changeTo(const std::optional<QString>& value)
    {
        PlainPlant::Value& changed = instrument().values[parameter];
        changed.value = value;
        changed.state = 1;
    }

    // Comparison
    // ------------------------------------------------------------------------------------------------

    void compare()
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
    QStringList expectedNodes() const
    {
        QStringList nodes = plant.nodes();
        for (const auto& [number, group] : plant.groups) {
            for (const auto& [place, instrument] : group.instruments) {
                for (const QString& below : instrument.nodes)
                    nodes << u'3' % keyOf(number, place).mid(1) % u'_' % below % u'|' %
                                 groupCaptions.at(below);
            }
        }
        nodes.sort();
        return nodes;
    }
    void collect(const QModelIndex& node, QStringList& nodes)
    {
        for (int row = 0; row < structure.tree().rowCount(node); ++row) {
            const QModelIndex child = structure.tree().index(row, 0, node);
            const QString key = structure.tree().keyOf(child);
            nodes << key % u'|' % child.data().toString();
            collect(child, nodes);
        }
    }
    QStringList itemsOf(const QString& node)
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
                items << keyOf(ids.IDGrp.toInt(), number) % u'|' % instrument.name % u'|' %
                             instrument.address % u'|' % instrument.description % u"|3";
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
                    items << u'3' % node.mid(1) % u'_' % IDParGrp % u'|' % groupCaptions.at(IDParGrp) %
                                 u"|||4";
            }
        }
        items.sort();
        return items;
    }
    QString shown(const PlainPlant::Value& value)
    {
        const auto choice = [&](const QString& number) { return choices[value.param->IDPar][number]; };
        return values::displayValue(value.value, value.param->KeyType, value.param->mask, value.param->unit,
                                    choice, {});
    }

    // The company
    // -----------------------------------------------------------------------------------------------

    QStringList rows(const QString& sql, const QString& field)
    {
        platform::Recordset records;
        QStringList texts;
        for (records.Open(sql, session.cnDatabase); !records.Eof(); records.MoveNext())
            texts << records.text(field);
        texts.sort();
        return texts;
    }
    void readCatalogue()
    {
        platform::Recordset row;
        row.Open("SELECT tbInstrument.mTag AS Type, tbParam.*, tbParamType.mTag AS KeyType, "
                 "tbParamLanguage.mDesc AS Des FROM tbInstrument, tbParamGroup, tbParam, tbParamType, "
                 "tbParamLanguage WHERE tbInstrument.mID = tbParamGroup.mKeyInst AND "
                 "tbParamGroup.mID = tbParam.mKeyParGroup AND tbParam.mKeyType = tbParamType.mID AND "
                 "tbParam.mID = tbParamLanguage.mID AND tbParamLanguage.mKeyLang = 'EN' ORDER BY tbParam.mID",
                 session.cnDatabase);
        for (; !row.Eof(); row.MoveNext())
            catalogue[row.text("Type")].push_back({row.text("mKeyParGroup"), row.text("mID"), row.text("Des"),
                                                   row.text("KeyType"), row.text("mDP"), row.text("mIDCopy"),
                                                   row.optionalText("mUnit"), row.optionalText("mDftValue")});
        row.Close();
        row.Open("SELECT tbInstrument.mTag AS Type, tbParamGroup.mID, mDesc FROM tbInstrument, tbParamGroup, "
                 "tbParamGroupLanguage WHERE tbInstrument.mID = mKeyInst AND tbParamGroup.mID = "
                 "tbParamGroupLanguage.mID AND mKeyLang = 'EN'",
                 session.cnDatabase);
        for (; !row.Eof(); row.MoveNext()) {
            typeGroups[row.text("Type")].insert(row.text("mID"));
            groupCaptions[row.text("mID")] = row.text("mDesc");
        }
        row.Close();
        row.Open("SELECT mKeyParam, mValue, mDesc FROM tbParamEnum INNER JOIN tbParamEnumLanguage ON "
                 "tbParamEnum.mID = tbParamEnumLanguage.mID WHERE mKeyLang = 'EN'",
                 session.cnDatabase);
        for (; !row.Eof(); row.MoveNext())
            choices[row.text("mKeyParam")][row.text("mValue")] = row.text("mDesc");
    }

    // Chance
    // ----------------------------------------------------------------------------------------------------

    int below(int limit) { return int(random() % unsigned(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    int mostlyYes() { return chance(85) ? kYes : kNo; }
    int anyGroup() { return std::next(plant.groups.begin(), below(int(plant.groups.size())))->first; }
    // A group, or more often an instrument of it; the root where there is none.
    QString anyNamed()
    {
        if (plant.groups.empty())
            return structure::kRootKey;
        const int group = anyGroup();
        const auto& instruments = plant.groups[group].instruments;
        if (instruments.empty() || chance(20))
            return keyOf(group);
        return keyOf(group, std::next(instruments.begin(), below(int(instruments.size())))->first);
    }
    // A parameter group of the tree; the root where there is none.
    QString anyParamGroup()
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
    static QString aboveOf(const QString& key)
    {
        return key.startsWith('1') ? QString(structure::kRootKey)
                                   : keyOf(structure::Extract_Key(key).IDGrp.toInt());
    }
    // Walks to the parameter of some instrument that has it, and presses its item.
    bool openParameter(const QString& IDPar)
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
    PlainPlant::Instrument& instrument()
    {
        const structure::KeyParts ids = structure::Extract_Key(edited);
        return plant.groups[ids.IDGrp.toInt()].instruments[ids.IDInst.toInt()];
    }
    QString textOf(const QString& field) const
    {
        for (const property::NamedControl& named : property::namedControls()) {
            if (field == QLatin1String(named.name))
                return (controls().*named.control).text;
        }
        return {};
    }

    platform::VirtualClock clock;
    history::Recorder recorder{session, clock};
    PlainPlant plant;
    std::map<QString, std::vector<PlainParam>> catalogue;  // by type
    std::map<QString, std::set<QString>> typeGroups;       // by type: ids of its parameter groups
    std::map<QString, QString> groupCaptions;              // by id
    std::map<QString, std::map<QString, QString>> choices; // by parameter and value
    ChosenType lookup;
    structure::PlantEditor editor{
        {session, texts, op, structure, lookup, [this](const QString& key) { model.open(key); }}};
    structure::PlantClipboard clipboard{{session, texts, op, structure, editor}};
    structure::PlantStates states{session, texts, op, structure};
    structure::PlantDrag drag{session, texts, structure, clipboard};
    exchange::Export exporting{{session, texts, op, clock, structure}};
    exchange::Import importing{{session, texts, op, structure}};
    std::mt19937 random;

    bool broken = false;  // the company can't be written in this step
    Clip held;            // what the clipboard must hold
    bool pasting = false; // the operator has agreed to a paste in this step
    bool fromList = false;
    void (PlantWalk::*dialog)() = nullptr; // what is done in the property dialog
    bool thinksBetter = false;             // presses Escape in each field
    QString edited;                        // key of the group or instrument
    QString parameter;                     // IDPar
    const Typing* current = nullptr;
};

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
