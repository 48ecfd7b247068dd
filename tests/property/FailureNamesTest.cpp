// Each procedure of the property dialog and its copy reports a failure under its own name.
#include "property/PropertyFixture.h"
#include "support/NamedFailure.h"

using support::breakDown;
using support::kNoLanguage;
using support::NamedFailure;

namespace {

class PropertyFailureName : public support::PropertyFixture, public testing::WithParamInterface<int>
{
protected:
    // The window breaks down when it is told.
    template <class Sender, class Signal>
    void breakAt(Sender& sender, Signal signal)
    {
        QObject::connect(&sender, signal, &sender, [] { breakDown(); });
    }
    void breakForms()
    {
        op.onModal = [](const QString&) { breakDown(); };
    }
    void leave(const QString& field)
    {
        open("4_1_1_G03_P0303");
        model.change(field, "x");
        setLanguage(kNoLanguage);
        EXPECT_FALSE(model.validate(field));
    }
    void openCopy()
    {
        open("4_1_1_G02_P0201");
        copy.load();
    }

    const std::vector<NamedFailure> rows{
        {"Module/Property_Item",
         [this] {
             ASSERT_TRUE(connectPlant());
             structure.clickNode("Root");
             structure.pressItem("1_1");
             breakForms();
             model.Property_Item();
         }},
        {"frmTreeBus/Property_Node",
         [this] {
             ASSERT_TRUE(connectPlant());
             structure.clickNode("1_1");
             breakForms();
             model.Property_Node();
         }},
        {"frmProperty.Load", [this] { breakAt(model, &property::PropertyModel::changed), open("1_1"); }},
        {"frmProperty/EnableDisable_Controls",
         [this] {
             ASSERT_TRUE(connectPlant());
             setLanguage(kNoLanguage);
             open("1_1");
         }},
        {"frmProperty.txtVal1_Validate", [this] { leave("txtVal1"); }},
        {"frmProperty.txtVal2_Validate", [this] { leave("txtVal2"); }},
        {"frmProperty.txtVal3_Validate", [this] { leave("txtVal3"); }},
        {"frmProperty.cmdApply_Click",
         [this] {
             open("1_1");
             model.change("txtValStr1", "NEW");
             breakAt(model, &property::PropertyModel::changed);
             model.cmdApply_Click();
         }},
        {"frmProperty.cmdCopy_Click",
         [this] { open("4_1_1_G02_P0201"), breakForms(), model.cmdCopy_Click(); }},
        {"frmPropertyCopy/Check_List",
         [this] { openCopy(), breakAt(copy, &QAbstractItemModel::dataChanged), copy.Check_List(); }},
        {"frmPropertyCopy/UnCheck_List",
         [this] { openCopy(), breakAt(copy, &QAbstractItemModel::dataChanged), copy.UnCheck_List(); }},
        {"frmReadWrite.Form_Unload", // the copy's own, too
         [this] { openCopy(), breakAt(copy, &QAbstractItemModel::modelReset), copy.unload(); }},
    };
};

TEST_P(PropertyFailureName, IsTheProceduresOwn)
{
    runOnPlant("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P0201';"
               "UPDATE tbParam SET mIDCopy = 'CP.02.01' WHERE mID = 'P0202';"
               "INSERT INTO tbParamCopyLanguage VALUES ('CP.02.01', 'EN', 'Second');");
    const NamedFailure& row = rows.at(std::size_t(GetParam()));
    row.provoke();
    failures.expectUnder(row.procedure);
}

INSTANTIATE_TEST_SUITE_P(Procedures, PropertyFailureName, testing::Range(0, 12));

} // namespace
