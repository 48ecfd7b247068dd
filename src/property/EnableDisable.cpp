#include "property/PropertyModel.h"

#include "platform/Guard.h"
#include "session/Texts.h"

namespace property {

namespace {

using C = Controls;

const std::initializer_list<Control C::*> kAlways{&C::lblIDPar,  &C::fraVal,   &C::cmdOK,
                                                  &C::cmdCancel, &C::cmdApply, &C::cmdCopy};

} // namespace

void PropertyModel::EnableDisable_Controls()
{
    platform::guarded("frmProperty/EnableDisable_Controls", [&] {
        for (const NamedControl& named : namedControls())
            (controls_.*named.control).visible = false;
        show(kAlways);
        switch (ids_.Level.toInt()) {
        case structure::kGroup:
            show({&C::txtValStr1, &C::txtValStr2, &C::txtValStr3});
            caption(&C::lblVal1, 155);
            caption(&C::lblVal2, 147);
            caption(&C::lblVal3, 6);
            allow({&C::txtValStr1, &C::txtValStr2, &C::txtValStr3}, mayModify());
            break;
        case structure::kInstrument:
            show({&C::txtValStr1, &C::txtValStr2, &C::txtVal3, &C::lblRange3, &C::fraProperties,
                  &C::lblValDescription});
            caption(&C::lblVal1, 155);
            caption(&C::lblVal2, 147);
            caption(&C::lblVal3, 2);
            allow({&C::txtValStr1, &C::txtValStr2, &C::txtVal3}, mayModify());
            break;
        case structure::kParameter:
            showParameter();
            break;
        default: // the root and a parameter group show their totals
            show({&C::lblVal1, &C::lblVal2});
        }
    });
}

void PropertyModel::showParameter()
{
    show({&C::chkDisabled, &C::lblDisabled, &C::fraProperties, &C::lblValDescription, &C::lblMemory,
          &C::lblValMemory, &C::lblAddress, &C::lblValAddress, &C::lblType, &C::lblValType, &C::lblBytes,
          &C::lblValBytes});
    controls_.checked = !Enable_;
    controls_.chkDisabled.enabled = filled_;
    const bool editable = Enable_ && mayModify();

    if (KeyType_ == QLatin1String("STRING")) {
        show({&C::txtValStr1, &C::lblRange2});
        caption(&C::lblVal1, 151);
        allow({&C::txtValStr1}, editable);
    } else if (KeyType_ == QLatin1String("ENUM")) {
        show({&C::cbxValEnum});
        caption(&C::lblVal1, 151);
        allow({&C::cbxValEnum}, editable);
    } else if (KeyType_ == QLatin1String("REAL")) {
        show({&C::txtVal1, &C::lblRange1});
        caption(&C::lblVal1, 151);
        allow({&C::txtVal1}, editable);
    } else if (KeyType_.startsWith(QLatin1String("TIME_H"))) {
        show({&C::txtVal1, &C::txtVal2, &C::txtVal3, &C::lblRange1, &C::lblRange2, &C::lblRange3});
        caption(&C::lblVal1, 152);
        caption(&C::lblVal2, 153);
        caption(&C::lblVal3, 154);
        allow({&C::txtVal1}, editable);
        allow({&C::txtVal2}, editable && KeyType_ != QLatin1String("TIME_H"));
        allow({&C::txtVal3}, editable && KeyType_ == QLatin1String("TIME_HMS"));
    }
}

void PropertyModel::show(std::initializer_list<Control Controls::*> controls)
{
    for (Control Controls::*control : controls)
        (controls_.*control).visible = true;
}

void PropertyModel::caption(Control Controls::*label, int text)
{
    (controls_.*label).visible = true;
    (controls_.*label).text = texts_(text);
}

void PropertyModel::allow(std::initializer_list<Control Controls::*> fields, bool editable)
{
    for (Control Controls::*field : fields)
        (controls_.*field).enabled = editable && filled_;
}

} // namespace property
