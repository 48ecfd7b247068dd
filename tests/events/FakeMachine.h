#pragma once

#include "platform/Machine.h"
#include "platform/RuntimeError.h"

// A machine of which everything is known.
class FakeMachine : public platform::Machine
{
public:
    platform::Memory memory() const override { return memoryTold; }
    QString osName() const override { return "Debian GNU/Linux 12 (bookworm)"; }
    QString osRelease() const override { return release; }
    QString cpuName() const override { return cpu; }
    QString desktop() const override { return "XFCE"; }
    platform::FileSystem fileSystemOf(const QString& path) const override
    {
        if (path.startsWith("/absent"))
            platform::fail(platform::errors::kPathNotFound, "No file system.");
        if (path.startsWith("/srv"))
            return {"/srv", 2048, 1024LL * 1234567};
        return {"/", 1024LL * 999 + 1023, 1024LL * 1000};
    }

    platform::Memory memoryTold{16384000, 999, 20000000, 18000000};
    QString release = "6.1.0-18-amd64";
    QString cpu = "Intel(R) Core(TM) i5";
};
