#pragma once

// The names of this room that others only pass on.
namespace structure {

class ListModel;
class PlantDrag;
class PlantEditor;
class PlantMarks;
class Records;
class Structure;
class TreeModel;
class frmListBus;
class frmTreeBus;
struct ListItem;

} // namespace structure
