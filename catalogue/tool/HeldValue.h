#pragma once

#include "catalogue/tool/Catalogue.h"
#include "catalogue/tool/Demo.h"

namespace catalogue {

// Which instrument of a demo it is.
struct Place
{
    int plant = 0;
    int instrument = 0;
    QString address;
};

// A number that is always the same for the same parameter of the same instrument, and has no pattern to the
// eye.
unsigned scatter(const Place& place, const QString& parameter);

// What an instrument of a demo holds where the demo tells nothing: the standard of a setting, the typical
// value of a reading, strayed as far as the catalogue allows. None where the catalogue has none.
std::optional<QString> valueHeld(const Parameter& parameter, const Place& place);

// What the database keeps for a value that the demo tells: a time has its seconds there. None: not known.
std::optional<QString> storedValue(const Parameter& parameter, const DemoValue& value);

} // namespace catalogue
