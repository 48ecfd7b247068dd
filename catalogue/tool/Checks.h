#pragma once

#include "catalogue/tool/Catalogue.h"

namespace catalogue {

// Everything that is wrong with a catalogue that could be parsed, in the order of the sources; empty when it
// may be published. One family of rules a function, one file each.
Problems problemsOf(const Catalogue& catalogue);

void checkNames(const Catalogue& catalogue, Problems& problems);      // ids, tags, type codes
void checkTexts(const Catalogue& catalogue, Problems& problems);      // languages, lengths, the glossary
void checkParameters(const Catalogue& catalogue, Problems& problems); // keys, scales, limits, standard values
void checkMemory(const Catalogue& catalogue, Problems& problems); // banks, places, overlaps, the alive poll
void checkCopies(const Catalogue& catalogue, Problems& problems); // copy classes and their blocks

// Calls visit(type, group, parameter) for every parameter.
template <typename Visit>
void forEachParameter(const Catalogue& catalogue, Visit visit)
{
    for (const Type& type : catalogue.types)
        for (const Group& group : type.groups)
            for (const Parameter& parameter : group.parameters)
                visit(type, group, parameter);
}

} // namespace catalogue
