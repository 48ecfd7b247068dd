#include "catalogue/tool/Catalogue.h"

#include <algorithm>

namespace catalogue {

const Bank* Catalogue::bank(int id) const
{
    const auto found = std::ranges::find(banks, id, &Bank::id);
    return found == banks.end() ? nullptr : &*found;
}

const ChoiceSet* Catalogue::choiceSet(const QString& name) const
{
    const auto found = std::ranges::find(choiceSets, name, &ChoiceSet::name);
    return found == choiceSets.end() ? nullptr : &*found;
}

} // namespace catalogue
