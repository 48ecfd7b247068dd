#pragma once

#include "session/Forward.h"
#include "structure/NodeKey.h"

namespace structure {

class Structure;

// The statement of the parameter groups of an instrument, of a group's instruments or of all (levels 2, 1 and
// 0 of `below`): IDGrp, IDInst, IDParGrp, Name. It looks for a name once a parameter group, where a join of
// all parameters would do so for each of them, and gives the same rows in the same order.
QString paramGroupsStatement(const KeyParts& below, const QString& languageCode);

// Adds the parameter groups of an instrument, of a group's instruments or of all (levels 2, 1 and 0 of
// `below`) to the tree, as far as it lacks them, and puts those of each instrument in order. Returns how many
// were new.
int addParamGroupNodes(session::Session& session, Structure& structure, const KeyParts& below);

} // namespace structure
