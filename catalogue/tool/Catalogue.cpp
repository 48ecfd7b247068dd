#include "catalogue/tool/Catalogue.h"

#include <algorithm>

namespace catalogue {

const Bank* Catalogue::bank(int id) const
{
    const auto found = std::ranges::find(banks, id, &Bank::id);
    return found == banks.end() ? nullptr : &*found;
}

const Eeprom* Catalogue::eeprom(int writeCmd) const
{
    const auto found = std::ranges::find(eeproms, writeCmd, &Eeprom::writeCmd);
    return found == eeproms.end() ? nullptr : &*found;
}

const ChoiceSet* Catalogue::choiceSet(const QString& name) const
{
    const auto found = std::ranges::find(choiceSets, name, &ChoiceSet::name);
    return found == choiceSets.end() ? nullptr : &*found;
}

const Type* Catalogue::type(const QString& tag) const
{
    const auto found = std::ranges::find(types, tag, &Type::tag);
    return found == types.end() ? nullptr : &*found;
}

} // namespace catalogue
