#pragma once

// The names of this room that others only pass on.
namespace structure {

class ListModel;
class PlantEditor;
class Records;
class Structure;
class TreeModel;
struct ListItem;

} // namespace structure
