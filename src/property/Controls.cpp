#include "property/Controls.h"

namespace property {

const std::vector<NamedControl>& namedControls()
{
    static const std::vector<NamedControl> kControls{
        {"lblIDPar", &Controls::lblIDPar},
        {"lblVal1", &Controls::lblVal1},
        {"lblVal2", &Controls::lblVal2},
        {"lblVal3", &Controls::lblVal3},
        {"txtValStr1", &Controls::txtValStr1},
        {"txtValStr2", &Controls::txtValStr2},
        {"txtValStr3", &Controls::txtValStr3},
        {"txtVal1", &Controls::txtVal1},
        {"txtVal2", &Controls::txtVal2},
        {"txtVal3", &Controls::txtVal3},
        {"lblRange1", &Controls::lblRange1},
        {"lblRange2", &Controls::lblRange2},
        {"lblRange3", &Controls::lblRange3},
        {"cbxValEnum", &Controls::cbxValEnum},
        {"chkDisabled", &Controls::chkDisabled},
        {"lblDisabled", &Controls::lblDisabled},
        {"fraProperties", &Controls::fraProperties},
        {"fraVal", &Controls::fraVal},
        {"lblValDescription", &Controls::lblValDescription},
        {"lblMemory", &Controls::lblMemory},
        {"lblValMemory", &Controls::lblValMemory},
        {"lblAddress", &Controls::lblAddress},
        {"lblValAddress", &Controls::lblValAddress},
        {"lblType", &Controls::lblType},
        {"lblValType", &Controls::lblValType},
        {"lblBytes", &Controls::lblBytes},
        {"lblValBytes", &Controls::lblValBytes},
        {"cmdOK", &Controls::cmdOK},
        {"cmdCancel", &Controls::cmdCancel},
        {"cmdApply", &Controls::cmdApply},
        {"cmdCopy", &Controls::cmdCopy},
    };
    return kControls;
}

const std::vector<NumberField>& numberFields()
{
    static const std::vector<NumberField> kFields{
        {"txtVal1", &Controls::txtVal1, &Controls::updVal1, &Controls::lblRange1},
        {"txtVal2", &Controls::txtVal2, &Controls::updVal2, &Controls::lblRange2},
        {"txtVal3", &Controls::txtVal3, &Controls::updVal3, &Controls::lblRange3},
    };
    return kFields;
}

} // namespace property
