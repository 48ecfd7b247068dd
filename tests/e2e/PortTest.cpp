#include "dialogs/Settings.h"
#include "e2e/RealLine.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace e2e;
using bus::ActionCode;

namespace {

// Another program that talks on its standard streams. It is gone with this object.
class Neighbour
{
public:
    Neighbour(const char* program, const QStringList& arguments)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QLatin1String(program), arguments);
    }
    ~Neighbour()
    {
        process_.kill();
        process_.waitForFinished();
    }

    QString line()
    {
        while (!process_.canReadLine() && process_.waitForReadyRead(kPatienceMs)) {
        }
        return QString::fromUtf8(process_.readLine()).trimmed();
    }
    QString ask(const char* command)
    {
        process_.write(QByteArray(command) + '\n');
        return line();
    }
    void endInput()
    {
        process_.closeWriteChannel();
        process_.waitForFinished(kPatienceMs);
    }

private:
    QProcess process_;
};

// Looks at a device from a descriptor of its own.
class Onlooker
{
public:
    explicit Onlooker(const QString& device)
        : file_(::open(device.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
    }
    ~Onlooker() { ::close(file_); }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    // Whether some program has claimed to have the device alone.
    bool seesAClaim() const
    {
        int claimed = 0;
        return ioctl(file_, TIOCGEXCL, &claimed) == 0 && claimed != 0;
    }

private:
    int file_;
};

class PortTest : public RealLine
{
protected:
    std::unique_ptr<Neighbour> instrument()
    {
        auto neighbour =
            std::make_unique<Neighbour>(CALIDORA_INSTRUMENT, QStringList{"--company", plantFile(), "--home",
                                                                         session.AppPath, "--link", "cable"});
        EXPECT_TRUE(neighbour->line().startsWith("ready "));
        return neighbour;
    }
    void connectOverCable()
    {
        openConsole("3_1_1_G01");
        console.Set_Simulator(true);
        console.Connect();
        ASSERT_TRUE(waitUntil([this] { return status() == 1; }));
    }
};

TEST_F(PortTest, SaysThatAPortIsMissing)
{
    ASSERT_TRUE(QFile::link("nowhere", portLink()));
    op.expect("Port COM1 does not exist.");
    EXPECT_FALSE(open());
    EXPECT_EQ(status(), -1);
    EXPECT_EQ(panels.picture(bus::Panel::COMSet), bus::images::kPortClosed);
}

TEST_F(PortTest, SaysThatAnotherProgramHoldsThePort)
{
    const auto device = instrument();
    {
        Neighbour holder(CALIDORA_HOLDER, {session.AppPath});
        ASSERT_EQ(holder.line(), "held");
        op.expect("Port COM1 is olready opened by another application.");
        EXPECT_FALSE(open());
        EXPECT_EQ(status(), -1);
        holder.endInput();
    }
    EXPECT_TRUE(open()) << "free again";
    EXPECT_EQ(status(), 0);
}

// The settings' own test of the line: the window stays, and what it was set to before stands again.
TEST_F(PortTest, TheSettingsTellOfAPortThatAnotherProgramHolds)
{
    const auto device = instrument();
    session.COMPort.Port = 4;
    dialogs::Settings::Verbs verbs;
    verbs.Set_COMPort = [this] { return bus.Set_COMPort(); };
    verbs.Open_COMConnection = [this] { return bus.Open_COMConnection(); };
    verbs.Close_COMConnection = [this] { return bus.Close_COMConnection(); };
    dialogs::Settings settings({session, texts, op, verbs});
    settings.Load();
    settings.setPortIndex(0, 0);
    {
        Neighbour holder(CALIDORA_HOLDER, {session.AppPath});
        ASSERT_EQ(holder.line(), "held");
        op.expect("Port COM1 is olready opened by another application.");
        settings.cmdTest_Click();
        EXPECT_TRUE(op.done());
        EXPECT_EQ(session.COMPort.Port, 4);
        EXPECT_EQ(settings.portIndex(0), 0);
        EXPECT_FALSE(port.PortOpen());
        holder.endInput();
    }
    op.expect(texts(576));
    settings.cmdTest_Click();
    EXPECT_EQ(op.boxes.back().icon, platform::Icon::Information);
    EXPECT_EQ(session.COMPort.Port, 4);
    EXPECT_FALSE(port.PortOpen()) << "a test leaves the port closed";
}

TEST_F(PortTest, TakesAPortThatAKilledProgramLeftBehind)
{
    const auto device = instrument();
    const Onlooker onlooker(portLink());
    {
        Neighbour holder(CALIDORA_HOLDER, {session.AppPath});
        ASSERT_EQ(holder.line(), "held");
        EXPECT_TRUE(onlooker.seesAClaim());
    }
    EXPECT_TRUE(waitUntil([&] { return !onlooker.seesAClaim(); }))
        << "the dead program still claims the device";
    EXPECT_TRUE(open());
    EXPECT_EQ(status(), 0);
}

TEST_F(PortTest, ReadsAndGoesOnWhenThePortVanishes)
{
    const auto device = instrument();
    ASSERT_TRUE(open());
    connectOverCable();
    console.Read_Param();
    ASSERT_TRUE(waitUntil([this] { return logged().contains("Parameter value: 12.3"); }));

    EXPECT_EQ(device->ask("fail gone"), "ok gone for good");
    ASSERT_TRUE(waitUntil([this] { return status() == -1; }));
    failures.expectOne(platform::errors::kDeviceIo, "frmMain.comCalidora_OnComm");
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(bus.actionCode(), ActionCode::Idle);
    EXPECT_EQ(panels.picture(bus::Panel::COMSet), bus::images::kPortClosed);
    EXPECT_EQ(QDir(file("Log")).entryList(QDir::Files).size(), 1) << "what was logged is kept";

    EXPECT_EQ(device->ask("fail gone off"), "ok");
    device->ask("status");
    ASSERT_TRUE(open()) << "plugged in again";
    connectOverCable();
}

} // namespace
