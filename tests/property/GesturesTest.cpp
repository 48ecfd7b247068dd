#include "property/PropertyFixture.h"

namespace {

using property::Control;

class GesturesTest : public support::PropertyFixture
{
};

TEST_F(GesturesTest, PropertyItemOpensOnTheSelectedItemOrNotAtAll)
{
    ASSERT_TRUE(connectPlant());
    op.forms.clear();
    model.Property_Item();
    EXPECT_EQ(op.forms, QStringList());
    structure.clickNode("Root");
    structure.pressItem("1_2");
    model.Property_Item();
    EXPECT_EQ(op.forms.takeLast(), "modal frmProperty");
    model.load();
    EXPECT_EQ(model.IDGrp(), "2");
    model.Property_Node();
    EXPECT_EQ(op.forms.takeLast(), "modal frmProperty");
    model.load();
    EXPECT_EQ(model.Level(), "0");
    EXPECT_EQ(session.ClipKey, "") << "the clipboard is the operator's";
    structure.selectNode({});
    op.forms.clear();
    model.Property_Node();
    EXPECT_EQ(op.forms, QStringList());
}

TEST_F(GesturesTest, EveryChangeMarksTheDialogAndEnablesApply)
{
    const std::function<void()> changes[] = {
        [&] { model.change("txtValStr1", "X"); }, [&] { model.change("txtVal1", "1"); },
        [&] { model.spin("txtVal1", 1); },        [&] { model.pickEntry(0); },
        [&] { model.clickDisabled(true); },
    };
    for (const auto& change : changes) {
        open("4_1_2_G11_P1101");
        EXPECT_FALSE(model.Dirty());
        EXPECT_FALSE(controls().cmdApply.enabled);
        change();
        EXPECT_TRUE(model.Dirty());
        EXPECT_TRUE(controls().cmdApply.enabled);
    }
}

TEST_F(GesturesTest, AnAddressIsTypedByTheRulesOfAWholeNumber)
{
    open("2_1_1");
    for (const char* dropped : {",", ".", "A"})
        EXPECT_EQ(model.keyPress("txtVal3", dropped), std::nullopt) << dropped;
    EXPECT_EQ(op.beeps, 3);
    EXPECT_EQ(model.keyPress("txtVal3", "1"), "1");
}

TEST_F(GesturesTest, EscapePutsTheTextBackOnceThenIsFree)
{
    open("4_1_2_G11_P1101");
    model.enterField("txtVal1");
    EXPECT_EQ(model.SavedText(), "4.5");
    EXPECT_FALSE(model.restore("txtVal1"));
    model.change("txtVal1", "9");
    EXPECT_TRUE(model.restore("txtVal1"));
    EXPECT_EQ(controls().txtVal1.text, "4.5");
    EXPECT_TRUE(model.Dirty());
    EXPECT_FALSE(model.restore("txtVal1"));
}

TEST_F(GesturesTest, KeysGoThroughTheFilterOfTheirField)
{
    open("4_1_2_G11_P1102"); // its mask is "0"
    EXPECT_EQ(model.keyPress("txtVal1", ","), std::nullopt);
    EXPECT_EQ(op.beeps, 1);
    EXPECT_EQ(model.keyPress("txtVal1", "7"), QString("7"));
    EXPECT_EQ(op.beeps, 1);
    open("4_1_2_G11_P1101");
    EXPECT_EQ(model.keyPress("txtVal1", ","), QString(","));
    open("1_1");
    EXPECT_EQ(model.keyPress("txtValStr1", "a"), QString("A"));
    EXPECT_EQ(op.beeps, 1);
}

TEST_F(GesturesTest, TextIsCutToTheLimitAndNeverInsideACharacter)
{
    open("1_1");
    model.change("txtValStr1", QString(10000, 'X'));
    EXPECT_EQ(controls().txtValStr1.text, QString(50, 'X'));
    model.change("txtValStr1", QString(49, 'X') + QStringLiteral("😀"));
    EXPECT_EQ(controls().txtValStr1.text, QString(49, 'X'));
    model.change("txtValStr1", QString(48, 'X') + QStringLiteral("😀"));
    EXPECT_EQ(controls().txtValStr1.text.size(), 50);
    // What a paste brings when the window has cut it: half a pair at the end, or in the middle.
    const QString half = QStringLiteral("😀").left(1), otherHalf = QStringLiteral("😀").mid(1);
    model.change("txtValStr1", QString(49, 'X') + half);
    EXPECT_EQ(controls().txtValStr1.text, QString(49, 'X'));
    model.change("txtValStr1", "A" + half + "B" + otherHalf + "C😀");
    EXPECT_EQ(controls().txtValStr1.text, "ABC😀");
    open("4_1_1_G02_P0204");
    model.change("txtValStr1", half);
    EXPECT_EQ(controls().txtValStr1.text, "");
}

TEST_F(GesturesTest, ASpinThatChangesNothingIsNoChange)
{
    const struct
    {
        const char* key;
        const char* field;
        const char* value; // as the company holds it
        int steps;
        bool changes;
    } rows[] = {
        {"4_1_2_G11_P1101", "txtVal1", "25", 1, false},   {"4_1_2_G11_P1101", "txtVal1", "25", -1, true},
        {"4_1_2_G11_P1101", "txtVal1", "0", -1, false},   {"4_1_2_G11_P1101", "txtVal1", "0", 1, true},
        {"4_1_2_G11_P1101", "txtVal1", "25.0", 1, false}, {"4_1_2_G11_P1101", "txtVal1", "24.5", 1, true},
        {"4_1_2_G11_P1101", "txtVal1", "26", 1, true},
    };
    for (const auto& row : rows) {
        runOnPlant(QString("UPDATE tbParametersUser SET Value = '%1' WHERE IDPar = 'P1101'").arg(row.value));
        open(row.key);
        model.spin(row.field, row.steps);
        EXPECT_EQ(model.Dirty(), row.changes) << row.value << row.steps;
        EXPECT_EQ(controls().cmdApply.enabled, row.changes) << row.value << row.steps;
        if (!row.changes) {
            EXPECT_EQ(controls().txtVal1.text, row.value);
        }
    }
}

TEST_F(GesturesTest, ASpinKnowsNoNumberWithACommaWhereTheMaskGroups)
{
    runOnPlant("UPDATE tbParam SET mDP = '#,##0', mLL = 0, mHL = 9999 WHERE mID = 'P0105'");
    open("4_1_1_G01_P0105");
    model.change("txtVal1", "1,234");
    model.spin("txtVal1", 1);
    EXPECT_EQ(controls().txtVal1.text, "0");
    open("1_1");
    model.spin("txtValStr1", 1);
    EXPECT_FALSE(model.Dirty()) << "no number field";
}

TEST_F(GesturesTest, SpinButtonsStayInTheirRange)
{
    const struct
    {
        const char* key;
        const char* field;
        const char* text;
        int steps;
        const char* result;
    } rows[] = {
        {"4_1_2_G11_P1101", "txtVal1", "4.5", 1, "5.5"}, {"4_1_2_G11_P1101", "txtVal1", "4.5", -1, "3.5"},
        {"4_1_2_G11_P1101", "txtVal1", "24.5", 1, "25"}, {"4_1_2_G11_P1101", "txtVal1", "0", -1, "0"},
        {"4_1_2_G11_P1101", "txtVal1", "99", -1, "25"},  {"4_1_2_G11_P1101", "txtVal1", "", 1, "0"},
        {"4_1_1_G01_P0101", "txtVal1", "--", 1, "5"},    {"4_1_1_G03_P0301", "txtVal1", "23", 1, "23"},
        {"4_1_1_G03_P0302", "txtVal2", "58", 1, "59"},   {"2_1_1", "txtVal3", "15", 1, "15"},
    };
    for (const auto& row : rows) {
        open(row.key);
        model.change(row.field, row.text);
        model.spin(row.field, row.steps);
        const Control& field = QString(row.field) == "txtVal1"   ? controls().txtVal1
                               : QString(row.field) == "txtVal2" ? controls().txtVal2
                                                                 : controls().txtVal3;
        EXPECT_EQ(field.text, row.result) << row.key << row.text;
    }
}

TEST_F(GesturesTest, LeavingAFieldChecksIt)
{
    const QString range = "Attention! The number must be included between ";
    const struct
    {
        const char* key;
        const char* field;
        const char* text;
        QString message; // "" lets the focus go
    } rows[] = {
        {"4_1_2_G11_P1101", "txtVal1", "12,5", ""},
        {"4_1_2_G11_P1101", "txtVal1", "", ""},
        {"4_1_2_G11_P1101", "txtVal1", "1e1", ""},
        {"4_1_2_G11_P1101", "txtVal1", "0", ""},
        {"4_1_2_G11_P1101", "txtVal1", "25", ""},
        {"4_1_2_G11_P1101", "txtVal1", "25.1", range + "0 and 25."},
        {"4_1_2_G11_P1101", "txtVal1", "-0.1", range + "0 and 25."},
        {"4_1_2_G11_P1101", "txtVal1", "1e3", range + "0 and 25."},
        {"4_1_2_G11_P1101", "txtVal1", "--", texts(516)},
        {"4_1_2_G11_P1101", "txtVal1", ",", texts(516)},
        {"4_1_2_G11_P1101", "txtVal1", "１２", texts(516)},
        {"4_1_1_G01_P0101", "txtVal1", "4", range + "5 and 25."},
        {"4_1_1_G03_P0301", "txtVal1", "24", range + "0 and 23."},
        {"4_1_1_G03_P0302", "txtVal2", "60", range + "0 and 59."},
        {"4_1_1_G03_P0303", "txtVal3", "x", texts(516)},
        {"2_1_1", "txtVal3", "16", range + "0 and 15."},
        {"2_1_1", "txtVal3", "", ""},
        {"1_1", "txtValStr1", "", ""},
    };
    for (const auto& row : rows) {
        open(row.key);
        model.change(row.field, row.text);
        if (!row.message.isEmpty())
            op.expect(row.message);
        EXPECT_EQ(model.validate(row.field), row.message.isEmpty()) << row.key << row.text;
        EXPECT_TRUE(op.done()) << row.text;
    }
    for (const auto& box : op.boxes) {
        EXPECT_EQ(box.icon, platform::Icon::Exclamation);
        EXPECT_EQ(box.buttons, platform::Buttons::Ok);
        EXPECT_EQ(box.title, "Calidora");
    }
}

TEST_F(GesturesTest, AListWithoutASelectionKeepsTheFocusInSilence)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '7' WHERE IDPar = 'P0201'");
    open("4_1_1_G02_P0201");
    EXPECT_FALSE(model.validate("cbxValEnum"));
    for (const int choice : {0, 2}) {
        model.pickEntry(choice);
        EXPECT_TRUE(model.validate("cbxValEnum")) << choice;
    }
    EXPECT_TRUE(op.boxes.empty());
}

} // namespace
