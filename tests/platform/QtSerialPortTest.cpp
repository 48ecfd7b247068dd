#include "platform/QtSerialPort.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <stdlib.h>
#include <unistd.h>

using namespace platform;

namespace {

// A device of the machine whose cable ends in the test.
class Device
{
public:
    Device() : end_(posix_openpt(O_RDWR | O_NOCTTY))
    {
        EXPECT_EQ(grantpt(end_), 0);
        EXPECT_EQ(unlockpt(end_), 0);
        name_ = QString::fromLocal8Bit(ptsname(end_));
    }
    ~Device() { pull(); }

    const QString& name() const { return name_; }
    void pull()
    {
        if (end_ >= 0)
            close(std::exchange(end_, -1));
    }

private:
    int end_;
    QString name_;
};

// COM1 is a link where there is one, else a port that the machine has of its own.
class QtSerialPortTest : public testing::Test
{
protected:
    QtSerialPortTest()
    {
        port_.setSettings("9600,N,8,1");
        port_.OnFault = [this](const RuntimeError&) { ++faults_; };
    }
    QString deviceOf(int number) const
    {
        if (number == 1 && QFileInfo(link_).isSymLink())
            return link_;
        return number == 3 ? third_.name() : own_.name();
    }
    void plugIn()
    {
        adapter_.emplace();
        ASSERT_TRUE(QFile::link(adapter_->name(), link_));
    }
    // The adapter goes, and its link with it.
    void pull()
    {
        const int before = faults_;
        adapter_->pull();
        ASSERT_TRUE(QFile::remove(link_));
        while (faults_ == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    // The number of the failure to open COM `number`; 0 when it opens.
    int opens(int number)
    {
        port_.setPortOpen(false);
        port_.setCommPort(number);
        try {
            port_.setPortOpen(true);
        } catch (const RuntimeError& error) {
            EXPECT_FALSE(port_.PortOpen());
            return error.number;
        }
        EXPECT_TRUE(port_.PortOpen());
        return 0;
    }

    int argc_ = 1;
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    QCoreApplication application_{argc_, argv_};
    QTemporaryDir folder_;
    const QString link_ = folder_.filePath("COM1");
    const Device own_, third_;
    std::optional<Device> adapter_;
    int faults_ = 0;
    QtSerialPort port_{[this](int number) { return deviceOf(number); }};
};

TEST_F(QtSerialPortTest, APulledAdapterIsNotTakenForAPortOfTheMachine)
{
    plugIn();
    ASSERT_EQ(opens(1), 0);
    pull();
    EXPECT_FALSE(port_.PortOpen());
    EXPECT_EQ(opens(1), errors::kPortNumberInvalid) << "still away";
    EXPECT_EQ(opens(1), errors::kPortNumberInvalid) << "however often";
    EXPECT_EQ(opens(3), 0) << "another number is another port";
    EXPECT_EQ(opens(1), errors::kPortNumberInvalid) << "and brings the first not back";
    plugIn();
    EXPECT_EQ(opens(1), 0);
}

// The adapter comes back as another device, and somebody makes a link to it where there was none.
TEST_F(QtSerialPortTest, ALinkThatIsMadeForALostPortIsMeant)
{
    Device bare;
    QString device = bare.name();
    QtSerialPort port{[&](int) { return device; }};
    port.setSettings("9600,N,8,1");
    bool lost = false;
    port.OnFault = [&](const RuntimeError&) { lost = true; };
    port.setCommPort(1);
    port.setPortOpen(true);
    bare.pull();
    while (!lost)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    plugIn();
    device = link_;
    port.setPortOpen(true);
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(QtSerialPortTest, WhatWasNeverLostMayBeAnything)
{
    EXPECT_EQ(opens(1), 0) << "the machine's own, as there is no link";
    plugIn();
    EXPECT_EQ(opens(1), 0) << "the link, as it is there now";
    port_.setPortOpen(false);
    ASSERT_TRUE(QFile::remove(link_));
    EXPECT_EQ(opens(1), 0) << "it was closed before it went";
}

TEST_F(QtSerialPortTest, APortThatCameBackCanBeLostOnceMore)
{
    plugIn();
    ASSERT_EQ(opens(1), 0);
    pull();
    plugIn();
    ASSERT_EQ(opens(1), 0);
    port_.setPortOpen(false);
    ASSERT_TRUE(QFile::remove(link_));
    EXPECT_EQ(opens(1), 0) << "what came back and was closed is forgotten";
}

TEST_F(QtSerialPortTest, ANumberWithoutADeviceIsRefused)
{
    QtSerialPort none([](int) { return QString(); });
    none.setSettings("9600,N,8,1");
    EXPECT_THROW(none.setPortOpen(true), RuntimeError);
    EXPECT_FALSE(none.PortOpen());
}

} // namespace
