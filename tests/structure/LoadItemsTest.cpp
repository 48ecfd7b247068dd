#include "support/CompanyFixture.h"

#include <QSignalSpy>

using platform::Pointer;
using structure::Structure;

namespace {

class LoadItemsTest : public support::CompanyFixture
{
protected:
    // "text|sub-item 1|sub-item 2|icon" of the item.
    QString shown(const QString& key)
    {
        const structure::ListItem* item = structure.list().item(key);
        return item ? QString("%1|%2|%3|%4").arg(item->text, item->subtext, item->detail).arg(item->icon)
                    : "missing";
    }
    QStringList keys()
    {
        QStringList keys;
        for (int row = 0; row < structure.list().rowCount(); ++row)
            keys << structure.list().keyAt(row);
        return keys;
    }
};

TEST_F(LoadItemsTest, TheRootShowsTheGroupsByName)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("Root");
    EXPECT_EQ(keys(), (QStringList{"1_2", "1_1", "1_3"}));
    EXPECT_EQ(shown("1_1"), "GRP1|0551234567|Market \"North\"|2");
    EXPECT_EQ(shown("1_2"), "ALPHA|||2") << "NULL is shown as nothing";
    EXPECT_EQ(shown("1_3"), "O'Hara||Empty|2");
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "Phone", "Description"}));
    EXPECT_EQ(op.pointer, Pointer::Default);
}

TEST_F(LoadItemsTest, AGroupShowsItsInstruments)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("1_1");
    EXPECT_EQ(keys(), (QStringList{"2_1_2", "2_1_1"}));
    EXPECT_EQ(shown("2_1_1"), "INST11|00|KT100|3");
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "Address", "Description"}));
    structure.Load_Items_ListBus("1_2");
    EXPECT_EQ(shown("2_2_1"), "inst21|||3");
    structure.Load_Items_ListBus("1_3");
    EXPECT_EQ(keys(), QStringList()) << "a group without instruments";
}

TEST_F(LoadItemsTest, AnInstrumentShowsTheGroupsThatHoldParameters)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("2_1_1");
    EXPECT_EQ(keys(), (QStringList{"3_1_1_G01", "3_1_1_G02", "3_1_1_G03"})) << "G04 holds none";
    EXPECT_EQ(shown("3_1_1_G01"), "Measures|||4");
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "", ""}));
}

TEST_F(LoadItemsTest, AParameterGroupShowsValuesByMeaningAndMarksByState)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '12.34' WHERE IDPar = 'P0101';");
    ASSERT_TRUE(connectPlant());
    const std::pair<const char*, const char*> rows[] = {
        {"4_1_1_G01_P0101", "EN T1|12.3 °C||5"},
        {"4_1_1_G01_P0102", "EN T2|--||5"}, // NULL: no unit either
        {"4_1_1_G01_P0103", "EN HUM|45.6 %||5"},
        {"4_1_1_G01_P0105", "EN PR2|1,234||5"}, // no unit in the catalogue
        {"4_1_1_G02_P0201", "EN MOD|On||6"},
        {"4_1_1_G02_P0202", "EN FAN|Full||5"},
        {"4_1_1_G02_P0203", "EN LGT|Dark||7"},
        {"4_1_1_G02_P0204", "EN TXT|ROOM 1||5"},
        {"4_1_1_G03_P0301", "EN DEF|02||5"},
        {"4_1_1_G03_P0302", "EN NGT|02:30||5"},
        {"4_1_1_G03_P0303", "EN RUN|01:02:00||5"},
        {"4_1_2_G11_P1103", "Room's offset|0||7"},
    };
    for (const auto& [key, text] : rows) {
        structure.Load_Items_ListBus(QString(key).section('_', 0, 3).replace(0, 1, "3"));
        EXPECT_EQ(shown(key), text) << key;
        EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "Value", ""}));
    }
}

TEST_F(LoadItemsTest, UnknownValuesShowAPlaceholderByMeaning)
{
    runOnPlant("UPDATE tbParametersUser SET Value = NULL;");
    ASSERT_TRUE(connectPlant());
    const std::pair<const char*, const char*> rows[] = {
        {"4_1_1_G01_P0101", "EN T1|--||5"},     {"4_1_1_G02_P0201", "EN MOD|||6"},
        {"4_1_1_G02_P0204", "EN TXT|||5"},      {"4_1_1_G03_P0301", "EN DEF|--||5"},
        {"4_1_1_G03_P0302", "EN NGT|--.--||5"}, {"4_1_1_G03_P0303", "EN RUN|--.--.--||5"},
    };
    for (const auto& [key, text] : rows) {
        structure.Load_Items_ListBus(QString(key).section('_', 0, 3).replace(0, 1, "3"));
        EXPECT_EQ(shown(key), text) << key;
    }
}

TEST_F(LoadItemsTest, AChoiceOutsideTheCatalogueShowsNothing)
{
    runOnPlant("UPDATE tbParametersUser SET Value = '77' WHERE IDPar = 'P0201';");
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("3_1_1_G02");
    EXPECT_EQ(shown("4_1_1_G02_P0201"), "EN MOD|||6");
    EXPECT_EQ(shown("4_1_1_G02_P0202"), "EN FAN|Full||5");
}

TEST_F(LoadItemsTest, AnUnknownMeaningShowsTheTextOfTheRowBefore)
{
    runOnPlant("INSERT INTO tbParamType VALUES (9, 'COLOUR'); UPDATE tbParam SET mKeyType = 9 WHERE mID IN "
               "('P0104', 'P0101');");
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("3_1_1_G01");
    EXPECT_EQ(shown("4_1_1_G01_P0101"), "EN T1|||5") << "no row before the first";
    EXPECT_EQ(shown("4_1_1_G01_P0104"), "EN PR1|45.6 %||5");
}

TEST_F(LoadItemsTest, AParametersKeyChangesOnlyTheMenus)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("3_1_1_G02");
    structure.selectItem("4_1_1_G02_P0201");
    const QStringList before = keys();
    QSignalSpy menus(&structure, &Structure::levelLoaded);
    structure.Load_Items_ListBus("4_1_1_G02_P0201");
    EXPECT_EQ(keys(), before);
    EXPECT_EQ(structure.selectedItem(), "4_1_1_G02_P0201");
    EXPECT_EQ(structure.list().columnCaptions(), (QStringList{"Name", "Value", ""}));
    ASSERT_EQ(menus.count(), 1);
    EXPECT_EQ(menus[0][0], 4);
}

TEST_F(LoadItemsTest, TextsFollowTheLanguage)
{
    setLanguage("RU_Russian_6000");
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("2_1_2");
    EXPECT_EQ(keys(), (QStringList{"3_1_2_G11"})) << "G12 has no Russian row";
    EXPECT_EQ(shown("3_1_2_G11"), "Настройки|||4");
    structure.Load_Items_ListBus("3_1_2_G11");
    EXPECT_EQ(keys(), (QStringList{"4_1_2_G11_P1101", "4_1_2_G11_P1103"})) << "P1102 has no Russian row";
    structure.Load_Items_ListBus("3_1_1_G02");
    EXPECT_EQ(shown("4_1_1_G02_P0201"), "РУ MOD|Вкл||6");
    setLanguage("IT_Italiano_1000");
    structure.Load_Items_ListBus("3_1_1_G02");
    EXPECT_EQ(shown("4_1_1_G02_P0201"), "IT MOD|Acceso||6");
}

TEST_F(LoadItemsTest, AFailureLeavesAnEmptyListAndTheNextLoadWorks)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("Root");
    const QStringList groups = keys();
    session.cnDatabase.Close();
    structure.Load_Items_ListBus("1_1");
    failures.expectOne(platform::errors::kObjectClosed, "Module/Load_Items_ListBus");
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(op.pointer, Pointer::Default);

    session.cnDatabase.Open(session.ConnectionString);
    structure.Load_Items_ListBus("Root");
    EXPECT_EQ(keys(), groups);
}

// The box lets the bus and the operator in: what it finds is a full list, and a file that anybody may write.
TEST_F(LoadItemsTest, ChoicesThatAreNoNumbersAreToldOnceWhenNothingIsOpenAnyMore)
{
    runOnPlant("UPDATE tbParametersUser SET Value = 'on' WHERE IDPar IN ('P0201', 'P0202') AND IDGrp = 1;");
    ASSERT_TRUE(connectPlant());
    QStringList told, shownThen;
    const auto former = platform::setFailureHook([&](const platform::Failure& failure) {
        told << failure.procedure + ": " + failure.description;
        shownThen = keys();
        EXPECT_EQ(op.pointer, Pointer::Default);
        session.cnDatabase.BeginTrans();
        session.cnDatabase.CommitTrans();
        runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar = 'P0204';");
    });
    QSignalSpy menus(&structure, &Structure::levelLoaded);
    structure.Load_Items_ListBus("3_1_1_G02");
    platform::setFailureHook(former);
    EXPECT_EQ(told, QStringList{"Module/Search_ParamEnum: 'on' is not a number."});
    EXPECT_EQ(shownThen.size(), 4);
    EXPECT_EQ(menus.count(), 1);
    EXPECT_EQ(shown("4_1_1_G02_P0202"), "EN FAN|||5");
}

TEST_F(LoadItemsTest, AChoiceThatIsNoNumberIsReportedAndTheRowsBehindItStillCome)
{
    runOnPlant("UPDATE tbParametersUser SET Value = 'on' WHERE IDPar = 'P0201' AND IDGrp = 1;");
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("3_1_1_G02");
    failures.expectOne(platform::errors::kTypeMismatch, "Module/Search_ParamEnum");
    EXPECT_EQ(shown("4_1_1_G02_P0201"), "EN MOD|||6");
    EXPECT_EQ(shown("4_1_1_G02_P0202"), "EN FAN|Full||5");
}

TEST_F(LoadItemsTest, AKeyThatIsNoneFailsAndChangesNothing)
{
    ASSERT_TRUE(connectPlant());
    structure.Load_Items_ListBus("nonsense");
    failures.expectOne(platform::errors::kInvalidCall, "Module/Load_Items_ListBus");
    EXPECT_EQ(keys(), QStringList{"Root"});
}

TEST_F(LoadItemsTest, LooksAChoiceUpByTheWholeNumber)
{
    ASSERT_TRUE(connectPlant());
    const std::pair<const char*, const char*> rows[] = {{"0", "Off"},   {"1", "On"},   {"-1", "Broken"},
                                                        {"0.5", "Off"}, {"1.0", "On"}, {"5", ""}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(structure.Search_ParamEnum("P0201", value), text) << value;
    EXPECT_EQ(structure.Search_ParamEnum("p0201", "1"), "On") << "ids are compared without case";
    EXPECT_EQ(structure.Search_ParamEnum("it's none", "1"), "");
}

TEST_F(LoadItemsTest, AValueThatIsNoChoiceNumberFails)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(structure.Search_ParamEnum("P0201", "32768"), "");
    failures.expectOne(platform::errors::kOverflow, "Module/Search_ParamEnum");
    EXPECT_EQ(structure.Search_ParamEnum("P0201", "on"), "");
    failures.expectOne(platform::errors::kTypeMismatch, "Module/Search_ParamEnum");
}

} // namespace
