#include "property/PropertyFixture.h"

using property::Control;
using property::Controls;

namespace {

class FillTest : public support::PropertyFixture
{
};

TEST_F(FillTest, TheRootCountsGroupsWithInstrumentsAndAllInstruments)
{
    open("Root");
    EXPECT_EQ(model.Level(), "0");
    EXPECT_EQ(controls().lblIDPar.text, "Root");
    EXPECT_EQ(controls().lblVal1.text, "Total Groups: 2"); // the third one is empty
    EXPECT_EQ(controls().lblVal2.text, "Total Instruments: 3");
    EXPECT_FALSE(controls().cmdCopy.enabled);
    EXPECT_FALSE(controls().cmdApply.enabled);
    EXPECT_FALSE(model.Dirty());
}

TEST_F(FillTest, AGroupWithoutInstrumentsIsNotCounted)
{
    runOnPlant("DELETE FROM tbParametersUser WHERE IDGrp = 2; DELETE FROM tbInstrumentsUser WHERE IDGrp = 2; "
               "DELETE FROM tbGroupsUser WHERE IDGrp = 3;");
    open("Root");
    EXPECT_EQ(controls().lblVal1.text, "Total Groups: 1");
}

TEST_F(FillTest, TotalsAreGroupedByThousands)
{
    runOnPlant("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 1300) "
               "INSERT INTO tbInstrumentsUser SELECT 3, i, 'KT100', 'X', NULL, NULL FROM n;");
    open("Root");
    EXPECT_EQ(controls().lblVal1.text, "Total Groups: 3");
    EXPECT_EQ(controls().lblVal2.text, "Total Instruments: 1,294");
}

TEST_F(FillTest, AGroupShowsNameDescriptionAndPhone)
{
    open("1_1");
    EXPECT_EQ(controls().lblIDPar.text, "GRP_1");
    EXPECT_EQ(controls().txtValStr1.text, "GRP1");
    EXPECT_EQ(controls().txtValStr2.text, "Market \"North\"");
    EXPECT_EQ(controls().txtValStr3.text, "0551234567");
    EXPECT_EQ(controls().txtValStr1.limit, 50);
    EXPECT_EQ(controls().txtValStr2.limit, 255);
    EXPECT_EQ(controls().txtValStr3.limit, 30);
    EXPECT_FALSE(controls().cmdCopy.enabled);
    open("1_2");
    EXPECT_EQ(controls().txtValStr2.text, "");
    EXPECT_EQ(controls().txtValStr3.text, "");
}

TEST_F(FillTest, AnInstrumentShowsItsTypeAndHidesTheFirstCharacterOfItsAddress)
{
    open("2_1_2");
    EXPECT_EQ(controls().lblIDPar.text, "INST_2");
    EXPECT_EQ(controls().txtValStr1.text, "ALPHA");
    EXPECT_EQ(controls().txtValStr2.text, "Second");
    EXPECT_EQ(controls().lblValDescription.text, "KT200 = Showcase");
    EXPECT_EQ(controls().lblValDescription.toolTip, "KT200 = Showcase");
    EXPECT_EQ(controls().txtVal2.text, "2");
    EXPECT_EQ(controls().txtVal3.text, "10");
    EXPECT_EQ(controls().txtVal3.limit, 10);
    EXPECT_EQ(controls().updVal3.Min, 0);
    EXPECT_EQ(controls().updVal3.Max, 15);
    EXPECT_EQ(controls().lblRange3.text, "0-15");
    EXPECT_EQ(model.KeyType(), "REAL");
    EXPECT_EQ(model.DP(), "0");
    EXPECT_FALSE(controls().cmdCopy.enabled);
}

TEST_F(FillTest, AddressesOfAllSorts)
{
    const struct
    {
        const char* stored;
        const char* hidden;
        const char* shown;
    } rows[] = {
        {"NULL", "", "0"}, {"'00'", "0", "0"}, {"'2F'", "2", "15"},   {"'2f'", "2", "15"},
        {"'0'", "0", "0"}, {"''", "", "0"},    {"'2FF'", "2", "255"},
    };
    for (const auto& row : rows) {
        runOnPlant(
            QStringLiteral("UPDATE tbInstrumentsUser SET Address = %1 WHERE IDGrp = 1").arg(row.stored));
        open("2_1_1");
        EXPECT_EQ(controls().txtVal2.text, row.hidden) << row.stored;
        EXPECT_EQ(controls().txtVal3.text, row.shown) << row.stored;
    }
}

TEST_F(FillTest, AnAddressThatIsNotHexadecimalIsReportedAndTheRestStands)
{
    runOnPlant("UPDATE tbInstrumentsUser SET Address = '2G'");
    open("2_1_1");
    failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
    EXPECT_EQ(controls().txtValStr1.text, "INST11");
    EXPECT_EQ(controls().txtVal2.text, "2");
    EXPECT_EQ(controls().txtVal3.text, "");
    EXPECT_EQ(controls().lblRange3.text, "0-15");
    for (const Control* field : {&controls().txtValStr1, &controls().txtValStr2, &controls().txtVal3})
        EXPECT_TRUE(field->enabled);
}

TEST_F(FillTest, AParameterGroupCountsItsParametersAndTheModifiedOnes)
{
    open("3_1_1_G02");
    EXPECT_EQ(controls().lblIDPar.text, "G02");
    EXPECT_EQ(controls().lblVal1.text, "Total Parameters: 4");
    EXPECT_EQ(controls().lblVal2.text, "Parameters Modified: 1"); // the added one is none
    EXPECT_FALSE(controls().cmdCopy.enabled);
}

TEST_F(FillTest, AParameterShowsItsCatalogueDetails)
{
    open("4_1_2_G11_P1101");
    EXPECT_EQ(controls().lblIDPar.text, "P1101");
    EXPECT_EQ(controls().lblValDescription.text, "EN SET");
    EXPECT_EQ(controls().lblValDescription.toolTip, "EN SET");
    EXPECT_EQ(controls().lblValMemory.text, "SETTINGS");
    EXPECT_EQ(controls().lblValAddress.text, "64 - $0040");
    EXPECT_EQ(controls().lblValType.text, "BYTE");
    EXPECT_EQ(controls().lblValBytes.text, "1");
    EXPECT_EQ(model.Unit(), "°C");
    EXPECT_EQ(model.DP(), "0.0");
    EXPECT_EQ(model.IDCopy(), "AA_CC_01");
    EXPECT_TRUE(model.Enable());
}

TEST_F(FillTest, ABankThatIsMissingStaysANumber)
{
    runOnPlant("DELETE FROM tbInstMem WHERE mID = 2");
    open("4_1_2_G11_P1101");
    EXPECT_EQ(controls().lblValMemory.text, "2");
    EXPECT_EQ(controls().txtVal1.text, "4.5");
}

TEST_F(FillTest, ParametersAreFoundInAnyOrder)
{
    for (const char* key : {"4_1_1_G03_P0303", "4_1_1_G01_P0101", "4_1_1_G03_P0301", "4_1_1_G01_P0107"}) {
        open(key);
        EXPECT_NE(controls().lblValMemory.text, "") << key;
        EXPECT_NE(model.KeyType(), "") << key;
    }
}

TEST_F(FillTest, ARealShowsValueAndLimits)
{
    open("4_1_2_G11_P1101");
    EXPECT_EQ(model.KeyType(), "REAL");
    EXPECT_EQ(controls().txtVal1.text, "4.5");
    EXPECT_EQ(controls().txtVal1.limit, 10);
    EXPECT_EQ(controls().updVal1.Min, 0);
    EXPECT_EQ(controls().updVal1.Max, 25);
    EXPECT_EQ(model.LowLimit(), 0);
    EXPECT_EQ(model.HighLimit(), 25);
    EXPECT_EQ(controls().lblRange1.text, "0/25 °C");
    open("4_1_1_G01_P0102");
    EXPECT_EQ(controls().txtVal1.text, ""); // NULL
    EXPECT_EQ(controls().lblRange1.text, "-50/100 °C");
}

TEST_F(FillTest, AStringShowsItsSizeInWords)
{
    open("4_1_1_G02_P0204");
    EXPECT_EQ(controls().txtValStr1.text, "ROOM 1");
    EXPECT_EQ(controls().txtValStr1.limit, 8);
    EXPECT_EQ(controls().lblRange2.text, "Max 8 characters.");
}

TEST_F(FillTest, AnEnumSelectsTheEntryOfItsValue)
{
    open("4_1_1_G02_P0201");
    ASSERT_EQ(controls().entries.size(), 3u);
    EXPECT_EQ(controls().entries[0].text, "Off");
    EXPECT_EQ(controls().entries[1].text, "On");
    EXPECT_EQ(controls().entries[2].text, "Broken");
    EXPECT_EQ(controls().entries[2].value, -1);
    EXPECT_EQ(controls().listIndex, 1);
    EXPECT_EQ(model.catalogue().Load_ParamEnum("P0201", -1), 2);
    EXPECT_EQ(controls().entries.size(), 3u) << "filled anew";
    open("4_1_1_G02_P0202"); // the former filter is gone
    EXPECT_EQ(controls().entries.size(), 2u);
}

TEST_F(FillTest, AnEnumWithAnUnknownValueSelectsNothing)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '7' WHERE IDPar = 'P0201'");
    open("4_1_1_G02_P0201");
    EXPECT_EQ(controls().entries.size(), 3u);
    EXPECT_EQ(controls().listIndex, -1);
}

TEST_F(FillTest, AnEnumWithoutAValueIsReportedAndItsListStaysEmpty)
{
    runOnPlant("UPDATE tbParametersUser SET Value = NULL WHERE IDPar = 'P0201'");
    open("4_1_1_G02_P0201");
    failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
    EXPECT_TRUE(controls().entries.empty());
    EXPECT_TRUE(controls().cbxValEnum.visible);
    EXPECT_TRUE(controls().cbxValEnum.enabled);
}

TEST_F(FillTest, AnEnumWithoutAValueIsOfferedItsChoicesWhenTheOperatorComesToIt)
{
    for (const char* value : {"NULL", "'on'", "'99999'"}) {
        runOnPlant(QString("UPDATE tbParametersUser SET Value = %1 WHERE IDPar = 'P0201'").arg(value));
        open("4_1_1_G02_P0201");
        EXPECT_EQ(failures.take().size(), 1u) << "told once";
        model.enterField("cbxValEnum");
        model.enterField("cbxValEnum");
        EXPECT_EQ(controls().entries.size(), 3u) << value;
        EXPECT_EQ(controls().listIndex, -1) << value;
        model.pickEntry(1);
        EXPECT_TRUE(model.Update_Item());
        EXPECT_EQ(row("1", "1", "P0201"), "1|1");
    }
    open("4_1_1_G02_P0201");
    model.enterField("cbxValEnum");
    EXPECT_EQ(controls().entries.size(), 3u) << "not twice";
    EXPECT_EQ(controls().listIndex, 1);
    open("4_1_1_G02_P0204");
    model.enterField("cbxValEnum");
    EXPECT_TRUE(controls().entries.empty()) << "a text has no choices";
}

TEST_F(FillTest, TimesFillTheirFields)
{
    const struct
    {
        const char* key;
        QStringList filled, empty, ranges;
        QList<int> limits;
    } rows[] = {
        {"4_1_1_G03_P0301", {"2", "0", "0"}, {"", "0", "0"}, {"0-23", "0-59", "0-59"}, {2, 0, 0}},
        {"4_1_1_G03_P0302", {"2", "30", "0"}, {"", "", "0"}, {"0-23", "0-59", ""}, {2, 2, 0}},
        {"4_1_1_G03_P0303", {"1", "2", "0"}, {"", "", ""}, {"0-23", "0-59", "0-59"}, {2, 2, 2}},
    };
    const auto each = [&](auto read) {
        return QStringList{read(&Controls::txtVal1), read(&Controls::txtVal2), read(&Controls::txtVal3)};
    };
    const auto textOf = [&](Control Controls::*field) { return (controls().*field).text; };
    for (const auto& row : rows) {
        open(row.key);
        EXPECT_EQ(each(textOf), row.filled) << row.key;
        EXPECT_EQ(
            (QStringList{controls().lblRange1.text, controls().lblRange2.text, controls().lblRange3.text}),
            row.ranges)
            << row.key;
        EXPECT_EQ((QList<int>{controls().txtVal1.limit, controls().txtVal2.limit, controls().txtVal3.limit}),
                  row.limits)
            << row.key;
        EXPECT_EQ(controls().updVal1.Max, 23);
    }
    runOnPlant("UPDATE tbParametersUser SET Value = NULL WHERE IDParGrp = 'G03'");
    for (const auto& row : rows) {
        open(row.key);
        EXPECT_EQ(each(textOf), row.empty) << row.key;
    }
}

TEST_F(FillTest, AValueThatIsNoTimeOfDayIsReportedAndTheFieldsStayEmpty)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '24:00:00' WHERE IDPar = 'P0302'");
    open("4_1_1_G03_P0302");
    failures.expectOne(platform::errors::kTypeMismatch, "frmProperty/FillControls_Item");
    for (const Control* field : {&controls().txtVal1, &controls().txtVal2}) {
        EXPECT_EQ(field->text, "");
        EXPECT_TRUE(field->visible);
        EXPECT_TRUE(field->enabled) << "the bad value can be repaired";
    }
    EXPECT_EQ(controls().txtVal3.text, "0");
    EXPECT_FALSE(controls().txtVal3.enabled);
    EXPECT_EQ(controls().txtVal1.limit, 2);
}

// A parameter that a synchronisation added has the value "0", whatever it means.
TEST_F(FillTest, TheZeroOfASynchronisationIsMidnight)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '0', State = 2 WHERE IDParGrp = 'G03'");
    for (const char* key : {"4_1_1_G03_P0301", "4_1_1_G03_P0302", "4_1_1_G03_P0303"}) {
        open(key);
        for (const Control* field : {&controls().txtVal1, &controls().txtVal2, &controls().txtVal3})
            EXPECT_EQ(field->text, "0") << key;
        EXPECT_TRUE(controls().txtVal1.enabled) << key;
    }
    EXPECT_EQ(support::column(plantFile(),
                              "SELECT DISTINCT Value FROM tbParametersUser WHERE IDParGrp = 'G03' "
                              "AND State = 2"),
              QStringList{"0"})
        << "looking at it changes nothing";
}

// What is told is told in the operator's language.
TEST_F(FillTest, WhatCanNotBeShownIsToldInTheLanguageOfTheProgram)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '24:00:00' WHERE IDPar = 'P0302';"
               "UPDATE tbInstrumentsUser SET Address = '0Z' WHERE IDInst = 2;");
    const std::pair<const char*, QStringList> rows[] = {
        {"EN_English_2000", {"'24:00:00' is not a time of day.", "'0Z' is not a hexadecimal address."}},
        {"IT_Italiano_1000",
         {"'24:00:00' non \u00e8 un orario.", "'0Z' non \u00e8 un indirizzo esadecimale."}},
        {"RU_Russian_6000",
         {QStringLiteral("\u00ab24:00:00\u00bb \u2014 \u043d\u0435 \u0432\u0440\u0435\u043c\u044f "
                         "\u0441\u0443\u0442\u043e\u043a."),
          QStringLiteral("\u00ab0Z\u00bb \u2014 \u043d\u0435 "
                         "\u0448\u0435\u0441\u0442\u043d\u0430\u0434\u0446\u0430\u0442\u0435\u0440\u0438"
                         "\u0447\u043d\u044b\u0439 \u0430\u0434\u0440\u0435\u0441.")}}};
    for (const auto& [language, words] : rows) {
        setLanguage(language);
        QStringList told;
        for (const char* key : {"4_1_1_G03_P0302", "2_1_2"}) {
            open(key);
            for (const auto& failure : failures.take())
                told << failure.description;
        }
        EXPECT_EQ(told, words) << language;
    }
}

// Cut to its field it would be another number.
TEST_F(FillTest, ANumberLongerThanItsFieldStandsThereWholeAndIsLocked)
{
    const std::pair<const char*, bool> rows[] = {
        {"1.23456789", true}, {"1.234567891", false}, {"-0.123456789012345", false}, {"12345678.9", true}};
    for (const auto& [value, editable] : rows) {
        runOnPlant(QString("UPDATE tbParametersUser SET Value = '%1' WHERE IDPar = 'P1101'").arg(value));
        open("4_1_2_G11_P1101");
        EXPECT_EQ(controls().txtVal1.text, value);
        EXPECT_EQ(controls().txtVal1.enabled, editable) << value;
        EXPECT_EQ(controls().txtVal1.limit, 10);
    }
}

TEST_F(FillTest, TheCataloguesWordsFollowTheLanguage)
{
    setLanguage("RU_Russian_6000");
    open("2_1_2");
    EXPECT_EQ(controls().lblValDescription.text, "KT200 = Витрина");
    open("4_1_1_G02_P0201");
    ASSERT_EQ(controls().entries.size(), 3u);
    QStringList entries;
    for (const property::EnumEntry& entry : controls().entries)
        entries << entry.text;
    entries.sort();
    EXPECT_EQ(entries, (QStringList{"Вкл", "Выкл", "Неисправен"}));
}

TEST_F(FillTest, EachFieldOfATimeHasItsRange)
{
    open("4_1_1_G03_P0301");
    EXPECT_EQ(controls().lblValAddress.text, "74 - $004A");
    open("4_1_1_G03_P0302");
    EXPECT_EQ(controls().updVal1.Max, 23);
    EXPECT_EQ(controls().updVal2.Max, 59);
    open("4_1_1_G03_P0303");
    for (const auto& spin : {controls().updVal2, controls().updVal3}) {
        EXPECT_EQ(spin.Min, 0);
        EXPECT_EQ(spin.Max, 59);
    }
}

TEST_F(FillTest, ACatalogueRowThatVanishedLeavesTheRestEmpty)
{
    runOnPlant("DELETE FROM tbParamLanguage WHERE mID = 'P1101'");
    open("4_1_2_G11_P1101");
    failures.expectOne(platform::errors::kNoCurrentRecord, "frmProperty/FillControls_Item");
    EXPECT_EQ(controls().lblIDPar.text, "P1101");
    EXPECT_EQ(model.KeyType(), "");
    EXPECT_EQ(controls().txtVal1.text, "");
    EXPECT_FALSE(controls().txtVal1.visible);
    EXPECT_FALSE(controls().chkDisabled.enabled);
}

// Without its description an instrument can't be shown, so it can't be edited either.
TEST_F(FillTest, ATypeThatVanishedLocksItsInstrument)
{
    runOnPlant("DELETE FROM tbInstrumentLanguage WHERE mID = 'KT200'");
    open("2_1_2");
    failures.expectOne(platform::errors::kNoCurrentRecord, "frmProperty/FillControls_Item");
    for (const auto field :
         {&property::Controls::txtValStr1, &property::Controls::txtValStr2, &property::Controls::txtVal3}) {
        EXPECT_TRUE((controls().*field).visible);
        EXPECT_FALSE((controls().*field).enabled);
    }
}

TEST_F(FillTest, AnElementThatVanishedIsToldAndLeavesTheControlsAsTheyAre)
{
    for (const char* key : {"4_1_2_G11_P9999", "1_99", "2_1_99"}) {
        open(key);
        failures.expectOne(platform::errors::kNoCurrentRecord, "frmProperty/FillControls_Item");
        EXPECT_EQ(controls().lblIDPar.text, "") << key;
        EXPECT_EQ(controls().txtValStr1.text, "") << key;
        EXPECT_FALSE(controls().cmdCopy.enabled) << key;
    }
}

TEST_F(FillTest, WhatOnlyCountsMayBeEmpty)
{
    runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser;");
    for (const char* key : {"Root", "3_1_1_G04"}) {
        open(key);
        EXPECT_EQ(controls().lblVal1.text, "") << key;
        EXPECT_TRUE(controls().lblVal1.visible) << key;
        EXPECT_FALSE(controls().cmdCopy.enabled) << key;
    }
}

TEST_F(FillTest, ALostConnectionIsReportedByEachProcedure)
{
    model.open("1_1");
    model.load();
    failures.expectOne(platform::errors::kObjectClosed, "frmProperty/FillControls_Item");
    QString unit, mask, keyType, copyId;
    bool enable = false;
    EXPECT_FALSE(model.catalogue().Search_Param("P1101", unit, mask, enable, keyType, copyId));
    failures.expectOne(platform::errors::kItemNotFound, "frmProperty/Search_Param");
    EXPECT_EQ(model.catalogue().Load_ParamEnum("P0201", 1), -1);
    failures.expectOne(platform::errors::kItemNotFound, "frmProperty/Load_ParamEnum");
    EXPECT_FALSE(model.catalogue().Search_InstMem("1"));
    failures.expectOne(platform::errors::kItemNotFound, "frmProperty/Search_InstMem");
}

} // namespace
