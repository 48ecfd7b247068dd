#pragma once

#include "catalogue/tool/Problem.h"

#include <array>
#include <optional>

namespace catalogue {

// The languages of every text, in the order in which a text line holds them.
inline const std::array<QString, 3> kLanguages{"IT", "EN", "RU"};
using Text = std::array<QString, 3>;

// A memory bank: what one bank read fetches. Commands and addresses are bytes on the wire.
struct Bank
{
    int id = 0;
    QString name; // in the sources
    int readCmd = 0;
    int writeCmd = 0;
    int start = 0;
    int size = 0;
    QString tag; // shown to the operator
    Origin origin;
};

// A page of the permanent memory: it holds what stands in one bank, each byte so many places before its
// address as the bank begins behind 0.
struct Eeprom
{
    QString name; // in the sources
    int writeCmd = 0;
    int bank = 0; // Bank::id
    Origin origin;
};

// A straight line from wire counts (low, high) to engineering values (lowValue, highValue).
struct Scale
{
    double low = 0;
    double high = 0;
    double lowValue = 0;
    double highValue = 0;
};

// How a value is shown, edited and laid out on the wire; parameters of one kind differ in place, limits and
// text only.
struct Kind
{
    QString name;
    QString key;                // STRING, ENUM, REAL, TIME_H, TIME_HM, TIME_HMS
    QString wire;               // BYTE, S_BYTE, BIT, BCD, WORD_L, WORD_H, INT_L, INT_H, STRING
    std::optional<Scale> scale; // none for bit fields, which have their own, and for texts
    QString mask;               // "" when not a REAL
    QString unit;               // "" when there is none
    Origin origin;
};

struct Choice
{
    int value = 0;
    Text text;
    Origin origin;
};

struct ChoiceSet
{
    QString name;
    std::vector<Choice> choices;
    Origin origin;
};

// Typical texts that no two instruments share.
inline const QString kItsAddress{"@address"};
inline const QString kItsSerialNumber{"@serial"};

struct Parameter
{
    QString id;
    QString tag;
    QString key;
    QString wire;
    QString mask;
    QString unit;
    // Of a setting, its value in a new instrument; of a reading, a typical one, which the demo scatters by
    // `spread` to either side and no new instrument has. None: not known.
    std::optional<QString> standard;
    double spread = 0;
    int bank = 0; // Bank::id
    int address = 0;
    int writeAddress = 0;
    int writeCmd = 0; // 0: lives in RAM only
    int size = 0;
    int bitFirst = 0;
    int bitCount = 0;
    Scale scale;
    double low = 0;
    double high = 0;
    QString copy; // "" when in no block
    bool editable = false;
    QString choices; // ChoiceSet::name of an ENUM
    Text text;
    Origin origin;
};

struct Group
{
    QString id;
    Text text;
    std::vector<Parameter> parameters;
    Origin origin;
};

struct Type
{
    int id = 0;
    QString tag;
    QString base; // two hexadecimal characters
    int alive = 0;
    bool master = false; // may stand at address "00" and answer the poll
    Text text;
    std::vector<Group> groups;
    Origin origin;
};

// A block of a repeating family, named by the first five characters of its parameters' copy classes.
struct CopyBlock
{
    QString id;
    Text text;
    Origin origin;
};

// A fixed word of the trade: the stems by which it may appear in each language.
struct Term
{
    std::array<QStringList, 3> stems;
    Origin origin;
};

// A word that is not used, though a dictionary offers it.
struct Avoided
{
    size_t language = 0; // of kLanguages
    QString stem;
    QString instead;
    Origin origin;
};

struct Catalogue
{
    QString version;
    std::vector<Bank> banks;
    std::vector<Eeprom> eeproms;
    std::vector<ChoiceSet> choiceSets;
    std::vector<CopyBlock> copyBlocks;
    std::vector<Type> types;
    std::vector<Term> glossary;
    std::vector<Avoided> avoided;

    const Bank* bank(int id) const;                        // null when there is none
    const Eeprom* eeprom(int writeCmd) const;              // null when there is none
    const ChoiceSet* choiceSet(const QString& name) const; // null when there is none
    const Type* type(const QString& tag) const;            // null when there is none
};

} // namespace catalogue
