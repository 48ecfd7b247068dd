#pragma once

#include "structure/CompanyReader.h"

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace history {

// One stored value on one side. Texts are UTF-8.
struct SideValue
{
    int IDInst = 0;
    std::string IDParGrp, IDPar;
    std::optional<std::string> value;
};

// What an element is compared with.
struct CompareWith
{
    enum class Kind
    {
        Defaults, // of the catalogue, where it has some
        Element,  // another instrument, parameter group or group of the same company
        Company,  // the same element in another company file
        Trace     // in a data trace
    };

    Kind kind = Kind::Defaults;
    QString key = {};  // of the element
    QString file = {}; // of company or trace
};

struct CompareRequest
{
    QString company; // its file
    QString language;
    QString key; // of the element on the left
    CompareWith with;
    // The values of a data trace by its own numbers of the instruments.
    std::function<std::vector<SideValue>(const QString& file)> readTrace;
};

// A parameter on both sides. A side that lacks it is empty.
struct ComparedValue
{
    enum class Outcome
    {
        Same,
        Different,
        OnlyLeft,
        OnlyRight
    };

    QString key; // on the left
    QString parameter;
    QString left, right; // as shown
    Outcome outcome = Outcome::Same;
};

struct ComparedGroup
{
    QString place; // "INST11\\States"
    std::vector<ComparedValue> values;
};

struct Comparison
{
    std::vector<ComparedGroup> groups; // in the order of the plant
    QString left, right;               // what stands on each side
    int compared = 0, different = 0, onlyLeft = 0, onlyRight = 0;
    QString failure; // why the reading broke off; "" if it didn't
};

// Never raises, and changes nothing: other files are opened for reading alone, whatever their catalogue.
Comparison compare(const CompareRequest& request, const structure::StopFlag& stop);

// What an element of the company may be compared with there: keys and names.
struct Comparable
{
    QString key, name;
};
std::vector<Comparable> comparableWith(const QString& company, const QString& key);

} // namespace history
