#include "e2e/RealLine.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

using namespace e2e;
using bus::ActionCode;

namespace {

// The far end of the program's port, in the test's own hand.
class FarEnd
{
public:
    explicit FarEnd(const QString& link) : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        EXPECT_EQ(grantpt(master_), 0);
        EXPECT_EQ(unlockpt(master_), 0);
        termios settings{};
        tcgetattr(master_, &settings);
        cfmakeraw(&settings);
        tcsetattr(master_, TCSANOW, &settings);
        EXPECT_TRUE(QFile::link(QString::fromLocal8Bit(ptsname(master_)), link));
    }
    ~FarEnd() { ::close(master_); }
    FarEnd(const FarEnd&) = delete;
    FarEnd& operator=(const FarEnd&) = delete;

    void say(const QByteArray& bytes) const
    {
        EXPECT_EQ(::write(master_, bytes.constData(), std::size_t(bytes.size())), bytes.size());
    }

private:
    int master_;
};

class WaitingBytesTest : public RealLine
{
protected:
    QStringList events() const
    {
        return support::column(plantFile(), QStringLiteral("SELECT Description FROM tbEvent"));
    }
};

// The program blocks, as in a beep, over the moment at which the block of an alarm call is due to be over,
// and the block comes meanwhile: real clock, real port, the event loop as it is.
TEST_F(WaitingBytesTest, ABlockThatComesWhileTheProgramBlocksIsNotLost)
{
    const FarEnd instrument(portLink());
    ASSERT_TRUE(open());
    instrument.say("ATD\r");
    ASSERT_TRUE(waitFor(ActionCode::FirstBlock));
    QTimer::singleShot(bus::intervals::kSilence - 500, Qt::PreciseTimer, [&] {
        instrument.say("<P><U><A><B>");
        clock.block(1.0);
    });
    ASSERT_TRUE(waitFor(ActionCode::SecondBlock));
    EXPECT_EQ(events(), QStringList({"A", "B"}));
}

TEST_F(WaitingBytesTest, MoreThanTheInputBufferHoldsComesWhole)
{
    const FarEnd instrument(portLink());
    ASSERT_TRUE(open());
    instrument.say("ATD\r");
    ASSERT_TRUE(waitFor(ActionCode::FirstBlock));
    QByteArray report = "<P><U>";
    for (int alarm = 0; alarm < 300; ++alarm)
        report += "<Alarm " + QByteArray::number(alarm) + '>';
    QTimer::singleShot(bus::intervals::kSilence - 500, Qt::PreciseTimer, [&] {
        instrument.say(report);
        clock.block(1.0);
    });
    ASSERT_TRUE(waitFor(ActionCode::SecondBlock));
    EXPECT_EQ(events().size(), 300);
    EXPECT_EQ(events().value(299), "Alarm 299");
}

// The event loop has seen the bytes come, and before it hands them over something else reads them: the notice
// that is still on its way finds nothing, and the port is as good as before.
TEST_F(WaitingBytesTest, ANoticeOfBytesThatWereReadMeanwhileIsNoFault)
{
    const FarEnd instrument(portLink());
    ASSERT_TRUE(open());
    QByteArray arrived;
    port.OnComm = [&] { arrived += port.Input(); };
    QCoreApplication::processEvents();

    QByteArray taken;
    instrument.say("OK");
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { taken += port.Input(); }, Qt::QueuedConnection);
    for (int round = 0; round < 10; ++round)
        QCoreApplication::processEvents();
    EXPECT_EQ(taken, "OK");
    EXPECT_TRUE(port.PortOpen());

    instrument.say("RING");
    EXPECT_TRUE(waitUntil([&] { return arrived == "RING"; })) << arrived.constData();
}

} // namespace
