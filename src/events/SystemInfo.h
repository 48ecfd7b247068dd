#pragma once

#include "platform/Forward.h"

#include <QString>

namespace events {

// The machine as the failure report tells it. It fills itself when it is made; the sizes are KB.
class cSystemInfo
{
public:
    explicit cSystemInfo(const platform::Machine& machine);

    void refresh();

    int availableVirtualMemory() const { return availableVirtual_; }
    int totalVirtualMemory() const { return totalVirtual_; }
    int availablePhysicalMemory() const { return availablePhysical_; }
    int totalPhysicalMemory() const { return totalPhysical_; }
    // The kernel's release, "6.1 (Build 0-18-amd64)".
    const QString& osVersion() const { return osVersion_; }
    // The distribution's name; it ends in a blank.
    const QString& osName() const { return osName_; }
    // The processor's model, "(unknown)" when the system doesn't tell it.
    const QString& cpuName() const { return cpuName_; }
    // The desktop that stands in for a shell; "" without one.
    const QString& shellVersion() const { return shellVersion_; }

private:
    const platform::Machine& machine_;
    int availableVirtual_ = 0;
    int totalVirtual_ = 0;
    int availablePhysical_ = 0;
    int totalPhysical_ = 0;
    QString osVersion_, osName_, cpuName_, shellVersion_;
};

} // namespace events
