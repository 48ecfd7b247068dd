#include "support/CompanyFixture.h"

using structure::Restore_Item;

namespace {

class RestoreTest : public support::CompanyFixture
{
protected:
    // The rows that are still marked, as "group.instrument.parameter".
    QStringList marked()
    {
        return support::column(plantFile(),
                               "SELECT IDGrp || '.' || IDInst || '.' || IDPar FROM tbParametersUser "
                               "WHERE State <> 0 ORDER BY IDGrp, IDInst, IDPar");
    }
};

const QStringList kAllMarked{"1.1.P0201", "1.1.P0203", "1.2.P1101", "1.2.P1103", "2.1.P1101", "2.1.P1103"};

TEST_F(RestoreTest, ClearsTheMarksBelowTheKey)
{
    const std::pair<const char*, QStringList> rows[] = {
        {"4_1_1_G02_P0201", {"1.1.P0203", "1.2.P1101", "1.2.P1103", "2.1.P1101", "2.1.P1103"}},
        {"3_1_1_G02", {"1.2.P1101", "1.2.P1103", "2.1.P1101", "2.1.P1103"}},
        {"3_1_1_G01", kAllMarked},
        {"2_1_2", {"1.1.P0201", "1.1.P0203", "2.1.P1101", "2.1.P1103"}},
        {"1_2", {"1.1.P0201", "1.1.P0203", "1.2.P1101", "1.2.P1103"}},
        {"1_3", kAllMarked},
        {"Root", {}},
        {"5_1_1_G02_P0201", kAllMarked}, // no statement at all
        {"-1_1", kAllMarked},
    };
    const QString mark = "UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0201', 'P1101'); "
                         "UPDATE tbParametersUser SET State = 2 WHERE IDPar IN ('P0203', 'P1103');";
    ASSERT_TRUE(connectPlant());
    for (const auto& [key, left] : rows) {
        runOnPlant(mark);
        EXPECT_TRUE(Restore_Item(session, op, key)) << key;
        EXPECT_EQ(marked(), left) << key;
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
}

TEST_F(RestoreTest, NeverTouchesAValue)
{
    ASSERT_TRUE(connectPlant());
    const QString values = "SELECT Value FROM tbParametersUser";
    const QStringList before = support::column(plantFile(), values);
    EXPECT_TRUE(Restore_Item(session, op, "Root"));
    EXPECT_EQ(support::column(plantFile(), values), before);
}

TEST_F(RestoreTest, AFailureIsReported)
{
    EXPECT_FALSE(Restore_Item(session, op, "Root")); // nothing is connected
    failures.expectOne(platform::errors::kObjectClosed, "Module/Restore_Item");
    ASSERT_TRUE(connectPlant());
    EXPECT_FALSE(Restore_Item(session, op, "what"));
    failures.expectOne(platform::errors::kInvalidCall, "Module/Restore_Item");
    EXPECT_EQ(marked(), kAllMarked);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

} // namespace
