#include "support/CompanyFixture.h"

#include <gmock/gmock.h>

using platform::Recordset;
using testing::ElementsAre;

namespace {

class ConnectTest : public support::CompanyFixture
{
protected:
    ConnectTest()
    {
        QObject::connect(&database, &database::Database::progress,
                         [this](int percent) { percents << percent; });
        QObject::connect(&database, &database::Database::captionChanged,
                         [this](const QString& caption) { captions << caption; });
    }

    QList<int> percents;
    QStringList captions;
};

TEST_F(ConnectTest, TellsItsProgressInElevenths)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(percents, (QList<int>{11, 22, 33, 44, 55, 66, 77, 88, 100}));
}

TEST_F(ConnectTest, OpensTheFiveLookUpRecordsetsAndLeavesRsWorkClosed)
{
    ASSERT_TRUE(connectPlant());
    EXPECT_EQ(session.rsInstrument.RecordCount(), 3);
    EXPECT_EQ(session.rsParam.RecordCount(), 18);
    EXPECT_EQ(session.rsParamEnum.RecordCount(), 7);
    EXPECT_EQ(session.rsInstMem.RecordCount(), 2);
    EXPECT_EQ(session.rsUsers.State(), int(Recordset::Opened));
    EXPECT_EQ(session.rsUsers.RecordCount(), 0);
    EXPECT_EQ(session.rsWork.State(), int(Recordset::Closed));
    EXPECT_EQ(session.ConnectionString, "Provider=Microsoft.Jet.OLEDB.4.0;Data Source = " + plantFile());

    session.rsParam.Find("[mID] = 'p0202'");
    EXPECT_EQ(session.rsParam.text("KeyType"), "ENUM");
    EXPECT_EQ(session.rsParam.text("Des"), "EN FAN");
}

} // namespace
