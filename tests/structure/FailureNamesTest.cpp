// Each procedure of the plant reports a failure under its own name.
#include "session/Lookup.h"
#include "structure/PlantEditor.h"
#include "structure/Records.h"
#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

using support::breakDown;
using support::kNoLanguage;
using support::NamedFailure;

namespace {

class NoType : public session::Lookup
{
public:
    QString ShowZoom(const QString&) override { return {}; }
};

// The pointer of a desktop that breaks down at the second hourglass.
class BrokenPointer : public platform::ScriptedOperator
{
public:
    void showPointer(platform::Pointer shape) override
    {
        ScriptedOperator::showPointer(shape);
        if (shape == platform::Pointer::Hourglass && ++hourglasses == 2)
            breakDown();
    }
    int hourglasses = 0;
};

class StructureFailureName : public support::CompanyFixture, public testing::WithParamInterface<int>
{
protected:
    StructureFailureName()
    {
        EXPECT_TRUE(connectPlant());
        structure.clickNode("Root");
        structure.pressItem("1_3");
    }

    NoType lookup;
    structure::PlantEditor editor{{session, texts, op, structure, lookup, {}}};
    BrokenPointer broken;
    const std::vector<NamedFailure> rows{
        {"Module/Delete_Item", [this] { setLanguage(kNoLanguage), editor.Delete_Item(); }},
        {"frmTreeBus/Delete_Node",
         [this] { structure.clickNode("1_3"), setLanguage(kNoLanguage), editor.Delete_Node(); }},
        {"Module/Erase_Item",
         [this] {
             structure::PlantEditor eraser({session, texts, broken, structure, lookup, {}});
             broken.expect(texts(506), platform::answers::kYes);
             eraser.Delete_Item();
         }},
        {"Module/Search_Instrument",
         [this] {
             session.rsInstrument.Close();
             session.rsInstrument.Open("SELECT mID FROM tbInstrument", session.cnDatabase);
             EXPECT_EQ(structure::Records(session, op, structure).Search_Instrument("KT100").mBaseAddr, "");
         }},
        {"Module/Select_Item_ListBus",
         [this] {
             QObject::connect(&structure, &structure::Structure::pathChanged, [] { breakDown(); });
             structure.selectNode("1_1");
             structure.Select_Item_ListBus();
         }},
        {"frmListBus.lvwBus_DblClick", [this] { structure.openItem("1_99"); }},
    };
};

TEST_P(StructureFailureName, IsTheProceduresOwn)
{
    const NamedFailure& row = rows.at(std::size_t(GetParam()));
    row.provoke();
    failures.expectUnder(row.procedure);
}

INSTANTIATE_TEST_SUITE_P(Procedures, StructureFailureName, testing::Range(0, 6));

} // namespace
