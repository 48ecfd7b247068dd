// A value of old comes into the field of the dialog, and nowhere else.
#include "property/PropertyFixture.h"

namespace {

class TakeOver : public support::PropertyFixture
{
protected:
    TakeOver()
    {
        EXPECT_TRUE(connectPlant());
        op.onModal = [this](const QString&) {
            model.load();
            if (inside)
                inside();
        };
    }
    QString stored(const QString& IDPar) const
    {
        return support::column(
            plantFile(),
            "SELECT IfNull(Value, '-') || State FROM tbParametersUser WHERE IDGrp = 1 AND IDPar = '" + IDPar +
                "'")[0];
    }

    std::function<void()> inside;
};

TEST_F(TakeOver, StandsInTheFieldUntilItIsSaved)
{
    inside = [&] {
        EXPECT_EQ(controls().txtVal1.text, "9");
        EXPECT_TRUE(model.Dirty());
        EXPECT_TRUE(controls().cmdApply.enabled);
        EXPECT_TRUE(controls().txtVal1.enabled);
        EXPECT_EQ(stored("P1102"), "3000");
    };
    model.openWith("4_1_2_G11_P1102", QString("9"));
    EXPECT_EQ(stored("P1102"), "3000") << "the dialog was left";
    inside = [&] { EXPECT_TRUE(model.cmdOK_Click()); };
    model.openWith("4_1_2_G11_P1102", QString("9"));
    EXPECT_EQ(stored("P1102"), "91");
    inside = [&] {
        EXPECT_EQ(controls().txtVal1.text, "9");
        EXPECT_FALSE(model.Dirty());
    };
    model.open("4_1_2_G11_P1102");
}

TEST_F(TakeOver, OfEachKind)
{
    inside = [&] { EXPECT_TRUE(model.cmdOK_Click()); };
    model.openWith("4_1_1_G02_P0201", QString("0"));
    EXPECT_EQ(stored("P0201"), "01");
    model.openWith("4_1_1_G02_P0204", QString("HALL"));
    EXPECT_EQ(stored("P0204"), "HALL1");
    model.openWith("4_1_1_G03_P0302", QString("10:30:00"));
    EXPECT_EQ(stored("P0302"), "10:30:001");
    model.openWith("4_1_2_G11_P1103", std::nullopt);
    EXPECT_EQ(stored("P1103"), "-1");
}

TEST_F(TakeOver, WhatTheFieldCantShowIsToldAndNothingIsTaken)
{
    inside = [&] { EXPECT_FALSE(model.Dirty()); };
    model.openWith("4_1_1_G02_P0201", std::nullopt);
    failures.expectUnder("frmProperty/Take_Over");
}

TEST_F(TakeOver, WhereNothingMayBeEditedNothingIsTaken)
{
    inside = [&] {
        EXPECT_EQ(controls().txtVal1.text, "12.3");
        EXPECT_FALSE(model.Dirty());
    };
    model.openWith("4_1_1_G01_P0101", QString("5")); // can only be read
    inside = [&] {
        EXPECT_EQ(controls().txtVal1.text, "300");
        EXPECT_FALSE(model.Dirty());
    };
    setRight("Modify", "0");
    model.openWith("4_1_2_G11_P1102", QString("9"));
    inside = [&] { EXPECT_FALSE(model.Dirty()); };
    setRight("Modify", "-1");
    model.openWith("2_1_1", QString("9")); // no parameter
}

} // namespace
