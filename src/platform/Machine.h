#pragma once

#include <QString>
#include <optional>

namespace platform {

// Sizes in KB. What the system doesn't tell is 0.
struct Memory
{
    qint64 totalPhysical = 0;
    qint64 availablePhysical = 0;
    qint64 totalVirtual = 0; // physical memory and swap space
    qint64 availableVirtual = 0;
};

// Sizes in bytes; `free` is what this operator may use.
struct FileSystem
{
    QString mountPoint;
    qint64 free = 0;
    qint64 total = 0;
};

// The computer as its system describes it. A test describes another one.
class Machine
{
public:
    virtual ~Machine() = default;

    virtual Memory memory() const;
    // "Debian GNU/Linux 12 (bookworm)".
    virtual QString osName() const;
    // The kernel's release, "6.1.0-18-amd64".
    virtual QString osRelease() const;
    // The processor's model name; "" when the system doesn't tell it.
    virtual QString cpuName() const;
    // The desktop that the windows live in; "" without one.
    virtual QString desktop() const;
    // The file system that holds the path, or would hold it if the path doesn't exist. None fails.
    virtual FileSystem fileSystemOf(const QString& path) const;

protected:
    // The same as the table of mounts tells it; none where the table lacks it, as inside a container.
    virtual std::optional<FileSystem> mountedFileSystemOf(const QString& path) const;
};

// The name of this machine's locale ("it_IT.UTF-8"), from LC_ALL, LC_CTYPE and LANG: the first that is set.
QString localeOfMachine();

} // namespace platform
