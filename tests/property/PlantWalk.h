#pragma once

#include "exchange/Export.h"
#include "exchange/Import.h"
#include "history/Recorder.h"
#include "platform/VirtualClock.h"
#include "property/PlainPlant.h"
#include "property/PropertyFixture.h"
#include "session/Lookup.h"
#include "structure/PlantClipboard.h"
#include "structure/PlantDrag.h"
#include "structure/PlantEditor.h"
#include "structure/PlantStates.h"

#include <random>

// Creates, deletes, edits, cuts, pastes, drags, imports, synchronises, resets and thinks better of it, at
// random, with a company that can't be written now and then. After each step tree, list and database are
// compared with a plain plant; at the end the value history is played over the plant of the start.
namespace walk {

using platform::answers::kNo;
using platform::answers::kYes;
using support::keyOf;
using support::PlainParam;
using support::PlainPlant;

constexpr int kMostGroups = 5;
constexpr int kMostInstruments = 4; // that are made in a group

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

extern const std::vector<Typing> kTypings;
// What is told of a number outside of its limits.
QString between(const QString& low, const QString& high);

class PlantWalk : public support::PropertyFixture
{
protected:
    PlantWalk();

    void walk(unsigned seed, int steps);
    // It began with a plant that was empty.
    void expectHistory();
    // Edited, copied, pasted, imported, synchronised, reset, created, deleted: a short walk can miss one.
    void expectEveryCause() const;

    // Steps
    // -----------------------------------------------------------------------------------------------------

    using Step = void (PlantWalk::*)();

    Step drawn();

    void takeStep();

    void newGroup();
    void newInstrument();
    void deleteItem();
    void deleteNode();
    void confirmRemovalOf(const QString& key);
    // A group or an instrument, opened from the list or from the tree.
    void editNamed();
    void editParameter();
    void copyBlocks();

    // Moving and copying
    // ------------------------------------------------------------------------------------------

    // The clipboard as it must be.
    struct Clip
    {
        int operation = session::ClipNothing;
        QString key = {};
        bool gone = false; // the noted element was deleted
    };

    void cutOrCopy();
    void paste();
    void dragAndDrop();
    // Mostly one that takes the element.
    QString targetFor(const QString& key);
    void expectPasteInto(const QString& target);

    // A group goes out as a data trace and comes in as another group.
    void bringIn();
    // The file can't tell whether a text that fills its field was cut.
    static bool isAskedAbout(const PlainPlant::Group& group);
    PlainPlant::Group asImported(PlainPlant::Group group) const;

    // What the instruments lack and how they are marked
    // -----------------------------------------------------------------

    // As if the catalogue had grown: it has what some instrument lacks.
    void loseParameters();
    void resync();
    void reset();
    bool hasNoInstrument(const QString& key);
    // Selects an element of the tree there, or one of the items below it in the list; its key is returned.
    QString select(const QString& node);

    // In the dialogs
    // --------------------------------------------------------------------------------------------

    void inside(const QString& form);
    // Name and description; phone or address.
    void rename();
    void retype();
    void choose();
    void pressCopy() { model.cmdCopy_Click(); }
    void copyChecked();

    // Types into a field; somebody who thinks better of it presses Escape there.
    void type(const QString& field, const QString& text);
    // OK, Apply or Cancel. True when the change was saved, as far as the company takes it.
    bool confirmed(QString refusal);
    // A value that is saved as it was opened: a time keeps what its fields show, midnight for the bare "0" of
    // a synchronisation.
    std::optional<QString> savedAgain(const std::optional<QString>& value);
    void changeTo(const std::optional<QString>& value);

    // Comparison
    // ------------------------------------------------------------------------------------------------

    void compare();
    QStringList expectedNodes() const;
    void collect(const QModelIndex& node, QStringList& nodes);
    QStringList itemsOf(const QString& node);
    QString shown(const PlainPlant::Value& value);

    // The company
    // -----------------------------------------------------------------------------------------------

    QStringList rows(const QString& sql, const QString& field);
    void readCatalogue();

    // Chance
    // ----------------------------------------------------------------------------------------------------

    int below(int limit) { return int(random() % unsigned(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    int mostlyYes() { return chance(85) ? kYes : kNo; }
    int anyGroup() { return std::next(plant.groups.begin(), below(int(plant.groups.size())))->first; }
    // A group, or more often an instrument of it; the root where there is none.
    QString anyNamed();
    // A parameter group of the tree; the root where there is none.
    QString anyParamGroup();
    static QString aboveOf(const QString& key);
    // Walks to the parameter of some instrument that has it, and presses its item.
    bool openParameter(const QString& IDPar);
    PlainPlant::Instrument& instrument();
    QString textOf(const QString& field) const;

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

} // namespace walk
