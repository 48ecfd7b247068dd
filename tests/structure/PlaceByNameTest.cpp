#include "structure/PlaceByName.h"

#include "session/Session.h"
#include "support/CompanyFixture.h"

#include <gmock/gmock.h>

using structure::placeByName;

namespace {

struct Row
{
    QString equipment, instrument, key;
};

class PlaceByNameTest : public support::CompanyFixture, public testing::WithParamInterface<Row>
{
};

TEST_P(PlaceByNameTest, FindsInstrumentThenEquipmentThenInstrumentElsewhere)
{
    connectPlant();
    EXPECT_EQ(placeByName(session, GetParam().equipment, GetParam().instrument), GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(Names, PlaceByNameTest,
                         testing::Values(Row{"GRP1", "INST11", "2_1_1"}, Row{"grp1", "inst11", "2_1_1"},
                                         Row{"GRP1", "ALPHA", "2_1_2"}, // an instrument named like a group
                                         Row{"ALPHA", "", "1_2"}, Row{"ALPHA", "INST21", "2_2_1"},
                                         Row{"ALPHA", "INST11", "1_2"}, // the instrument has gone elsewhere
                                         Row{"GONE", "INST11", "2_1_1"}, Row{"", "INST21", "2_2_1"},
                                         Row{"O'Hara", "GONE", "1_3"}, Row{"GONE", "GONE", ""},
                                         Row{"", "", ""}, Row{"GRP", "", ""}));

TEST_F(PlaceByNameTest, ComparesNamesAsALogHoldsThem)
{
    connectPlant();
    session.cnDatabase.Execute("UPDATE tbGroupsUser SET Name = 'КОТЁЛ 1' WHERE IDGrp = 3;");
    EXPECT_EQ(placeByName(session, "????? 1", ""), "1_3");
    EXPECT_EQ(placeByName(session, "КОТЁЛ 1", ""), "");
    session.CodePage = 1251;
    EXPECT_EQ(placeByName(session, "котёл 1", ""), "1_3");
    session.cnDatabase.Execute(QStringLiteral("UPDATE tbInstrumentsUser SET Name = '%1' WHERE IDGrp = 2;")
                                   .arg(QString(50, 'x') + "cut"));
    EXPECT_EQ(placeByName(session, "", QString(50, 'x')), "2_2_1");
}

TEST_F(PlaceByNameTest, WithoutACompanyThereIsNoPlace)
{
    EXPECT_EQ(placeByName(session, "GRP1", "INST11"), "");
}

} // namespace
