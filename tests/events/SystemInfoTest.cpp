#include "events/SystemInfo.h"

#include "events/FakeMachine.h"

#include <gtest/gtest.h>
#include <limits>

using events::cSystemInfo;

namespace {

TEST(SystemInfoTest, FillsItselfAndRefreshes)
{
    FakeMachine machine;
    cSystemInfo info(machine);
    EXPECT_EQ(info.totalPhysicalMemory(), 16384000);
    EXPECT_EQ(info.availablePhysicalMemory(), 999);
    EXPECT_EQ(info.totalVirtualMemory(), 20000000);
    EXPECT_EQ(info.availableVirtualMemory(), 18000000);
    EXPECT_EQ(info.osName(), "Debian GNU/Linux 12 (bookworm) ") << "ends in a blank";
    EXPECT_EQ(info.osVersion(), "6.1 (Build 0-18-amd64)");
    EXPECT_EQ(info.cpuName(), "Intel(R) Core(TM) i5");
    EXPECT_EQ(info.shellVersion(), "XFCE");

    machine.memoryTold.availablePhysical = 1000;
    EXPECT_EQ(info.availablePhysicalMemory(), 999);
    info.refresh();
    EXPECT_EQ(info.availablePhysicalMemory(), 1000);
}

TEST(SystemInfoTest, WhatTheMachineDoesNotTellStaysInItsShape)
{
    FakeMachine machine;
    machine.cpu.clear();
    machine.release = "6";
    machine.memoryTold.totalPhysical = std::numeric_limits<qint64>::max();
    const cSystemInfo info(machine);
    EXPECT_EQ(info.cpuName(), "(unknown)");
    EXPECT_EQ(info.osVersion(), "6. (Build )");
    EXPECT_EQ(info.totalPhysicalMemory(), std::numeric_limits<int>::max());
}

TEST(SystemInfoTest, ThisMachineFillsEveryLine)
{
    const platform::Machine machine;
    const cSystemInfo info(machine);
    EXPECT_GT(info.totalPhysicalMemory(), 0);
    EXPECT_TRUE(info.osName().endsWith(' '));
    EXPECT_TRUE(info.osVersion().contains(" (Build "));
    EXPECT_FALSE(info.cpuName().isEmpty());
}

} // namespace
