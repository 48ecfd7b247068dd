#pragma once

#include <QString>
#include <vector>

namespace property {

// A control of the dialog as the logic knows it. A locked control isn't enabled and takes the background of
// the frame around it; an enabled field is white.
struct Control
{
    bool visible = false;
    bool enabled = true;
    QString text; // caption or content
    QString toolTip;
    int limit = 0;        // characters a field takes; 0 sets no limit
    bool touched = false; // the operator changed the text
};

// The spin buttons beside a field; they are shown and enabled with it.
struct SpinButton
{
    double Min = 0;
    double Max = 0;
};

// One entry of the drop-down list: `value` is its item data.
struct EnumEntry
{
    QString text;
    int value = 0;
};

// Every control of frmProperty under its name.
struct Controls
{
    Control lblIDPar;
    Control lblVal1, lblVal2, lblVal3;
    Control txtValStr1, txtValStr2, txtValStr3;
    Control txtVal1, txtVal2, txtVal3;
    Control lblRange1, lblRange2, lblRange3;
    Control cbxValEnum;
    Control chkDisabled, lblDisabled;
    Control fraProperties, fraVal;
    Control lblValDescription, lblMemory, lblValMemory, lblAddress, lblValAddress, lblType, lblValType,
        lblBytes, lblValBytes;
    Control cmdOK, cmdCancel, cmdApply, cmdCopy;

    SpinButton updVal1, updVal2, updVal3;
    std::vector<EnumEntry> entries; // of cbxValEnum
    int listIndex = -1;             // of cbxValEnum
    bool checked = false;           // chkDisabled
};

struct NamedControl
{
    const char* name;
    Control Controls::*control;
};

// All of them, for what treats them alike.
const std::vector<NamedControl>& namedControls();

// The three number fields with their spin buttons and ranges.
struct NumberField
{
    const char* name;
    Control Controls::*text;
    SpinButton Controls::*spin;
    Control Controls::*range;
};
const std::vector<NumberField>& numberFields();

} // namespace property
