#include "tests/catalogue/Published.h"

#include "exchange/ExchangeFixture.h"
#include "exchange/RoundTrip.h"

namespace catalogue {
namespace {

using testing::published;

// The plants of the demo go out as data traces and come in again.
class DemoTraceTest : public exchange::ExchangeFixture
{
};

TEST_F(DemoTraceTest, everyPlantComesInAsItWentOut)
{
    const QString demo = file("Data/Demo.mdb");
    writeCompany(published().demo, published().catalogue, published().model, demo);
    ASSERT_TRUE(connectTo("Demo.mdb"));
    ASSERT_TRUE(logIn(support::kTechnician, "1234"));
    const QStringList groups = support::column(demo, "SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp");
    ASSERT_GE(groups.size(), 2);
    for (const QString& group : groups) {
        session.CodePage = support::column(demo, "SELECT Name || ifnull(Description, '') FROM tbGroupsUser "
                                                 "WHERE IDGrp = " +
                                                     group)
                                   .first()
                                   .contains(QRegularExpression("[А-Яа-я]"))
                               ? 1251
                               : 1252;
        const int copy = support::column(demo, "SELECT Max(IDGrp) + 1 FROM tbGroupsUser").first().toInt();
        structure.clickNode("1_" + group);
        exportTo(file("Data/trace.dat"), exchange::kDataTraceFilter, texts(509));
        op.chooseFile(file("Data/trace.dat"));
        op.expect(texts(509));
        importing.Import_Item();
        EXPECT_EQ(exchange::groupsDiffer(demo, group.toInt(), copy), QString());
    }
}

} // namespace
} // namespace catalogue
