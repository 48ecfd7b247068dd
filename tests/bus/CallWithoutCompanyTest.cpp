// An instrument calls while no company is open: nobody is asked anything, and the report goes to the log.
#include "support/BusFixture.h"

using namespace support;
using bus::ActionCode;
using bus::Panel;
namespace images = bus::images;

namespace {

class CallWithoutCompany : public BusFixture
{
protected:
    CallWithoutCompany()
    {
        database.Disconnect_Database();
        mark();
    }
    QStringList alarms() const
    {
        QStringList lines;
        for (const QString& line : logLines()) {
            EXPECT_EQ(line.size(), 378);
            lines << line.left(1) + '/' + line.mid(20, 3).trimmed() + '/' + line.mid(23, 50).trimmed() + '/' +
                         line.mid(73, 50).trimmed() + '/' + descriptionOf(line);
        }
        return lines;
    }
    void takeCall()
    {
        arrives("ATD");
        arrives("<P><U><A><B>");
        clock.run(5000);
        arrives("<P><End>");
        clock.run(5000);
    }
};

TEST_F(CallWithoutCompany, TheReportGoesToTheLogAndIsAnnounced)
{
    takeCall();
    failures.expectNone();
    EXPECT_TRUE(op.boxes.empty());
    EXPECT_EQ(sent(), QStringList({"0 CONNECT", "5000 OK"})) << "nothing holds the answer up";
    EXPECT_EQ(alarms(), QStringList({"2/1/P/U/A", "2/1/P/U/B", "2/1/P//End"}));
    EXPECT_EQ(panels.picture(Panel::Allarm), images::kAlarm);
    EXPECT_EQ(panels.text(Panel::Info), "Attention! Allarms recivied.");
    EXPECT_EQ(status(), 0);
    clock.run(10000);
    EXPECT_GT(op.beeps, 0);
}

TEST_F(CallWithoutCompany, ACallThatNeverConnectsIsInTheLog)
{
    arrives("RING");
    clock.run(63000);
    failures.expectNone();
    EXPECT_EQ(alarms(), QStringList{"3/2///Time out connection! The operation is aborted."});
    EXPECT_EQ(status(), 0);
}

TEST_F(CallWithoutCompany, ACompanyThatIsOpenedBetweenTheBlocksLosesNothing)
{
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(5000);
    ASSERT_TRUE(connectPlant());
    arrives("<P><End>");
    clock.run(5000);
    failures.expectNone();
    EXPECT_EQ(alarms(), QStringList({"2/1/P/U/A", "2/1/P//End"}));
    EXPECT_EQ(events(), QStringList());
}

TEST_F(CallWithoutCompany, ACompanyThatCannotBeOpenedLeavesTheCallAlone)
{
    QObject::connect(&database, &database::Database::aboutToDisconnect, [this] { bus.cutLine(); });
    arrives("ATD");
    arrives("<P><U><A>");
    EXPECT_FALSE(connectTo("Missing.mdb"));
    failures.take();
    database.Disconnect_Database();
    EXPECT_EQ(bus.actionCode(), ActionCode::FirstBlock);
    clock.run(5000);
    arrives("<P><End>");
    clock.run(5000);
    EXPECT_EQ(alarms(), QStringList({"2/1/P/U/A", "2/1/P//End"}));
}

TEST_F(CallWithoutCompany, AProgramThatIsLeftInTheCallKeepsWhatCame)
{
    arrives("ATD");
    arrives("<P><U><A>");
    clock.run(5000);
    arrives("<P><E");
    EXPECT_TRUE(bus.Close_COMConnection());
    EXPECT_EQ(alarms().value(0), "2/1/P/U/A") << "it was answered: nobody tells it again";
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
}

} // namespace
