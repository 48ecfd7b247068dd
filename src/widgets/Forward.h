#pragma once

// The names of this room that others only pass on.
namespace widgets {

class FieldEdit;
class NarrowField;
class SortHeader;
class SpinButtons;
class TextField;

} // namespace widgets
