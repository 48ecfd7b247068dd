#include "events/SystemInfo.h"

#include "platform/Machine.h"

#include <algorithm>
#include <limits>

namespace events {

namespace {

// 32 bits of KB reach to 2 TB; a machine with more says so much.
int clamped(qint64 kiloBytes)
{
    return int(std::min<qint64>(kiloBytes, std::numeric_limits<int>::max()));
}

QString versionOf(const QString& release)
{
    const QString major = release.section(QLatin1Char('.'), 0, 0);
    const QString minor = release.section(QLatin1Char('.'), 1, 1);
    const QString build = release.section(QLatin1Char('.'), 2);
    return QStringLiteral("%1.%2 (Build %3)").arg(major, minor, build);
}

} // namespace

cSystemInfo::cSystemInfo(const platform::Machine& machine) : machine_(machine)
{
    refresh();
}

void cSystemInfo::refresh()
{
    const platform::Memory memory = machine_.memory();
    availableVirtual_ = clamped(memory.availableVirtual);
    totalVirtual_ = clamped(memory.totalVirtual);
    availablePhysical_ = clamped(memory.availablePhysical);
    totalPhysical_ = clamped(memory.totalPhysical);
    osVersion_ = versionOf(machine_.osRelease());
    osName_ = machine_.osName() + QLatin1Char(' ');
    const QString cpu = machine_.cpuName();
    cpuName_ = cpu.isEmpty() ? QStringLiteral("(unknown)") : cpu;
    shellVersion_ = machine_.desktop();
}

} // namespace events
