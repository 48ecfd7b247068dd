#pragma once

#include "support/CompanyFixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <sys/statvfs.h>

namespace support {

// A small file system of its own, in which everything lies that a test makes while this lives.
class SmallFileSystem
{
public:
    SmallFileSystem() : former_(qgetenv("TMPDIR"))
    {
        mounted_ = mount("none", point().constData(), "tmpfs", 0, "size=6m") == 0;
        if (mounted_)
            qputenv("TMPDIR", point());
    }
    ~SmallFileSystem()
    {
        if (former_.isEmpty())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", former_);
        if (mounted_)
            umount2(point().constData(), MNT_DETACH);
    }
    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    bool isMounted() const { return mounted_; }
    qint64 free() const
    {
        struct statvfs state = {};
        return statvfs(point().constData(), &state) == 0 ? qint64(state.f_bavail) * qint64(state.f_frsize)
                                                         : 0;
    }
    // Leaves so many bytes.
    void leave(qint64 bytes)
    {
        filler_.setFileName(folder_.filePath("filler"));
        ASSERT_TRUE(filler_.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'f');
        while (free() > bytes && filler_.write(block) > 0) {
        }
        filler_.close();
    }
    void makeRoom() { filler_.remove(); }

private:
    QByteArray point() const { return QFile::encodeName(folder_.path()); }

    QTemporaryDir folder_;
    QByteArray former_;
    QFile filler_;
    bool mounted_ = false;
};

// What all companies of this program are copied from is made before any of them lies on a small disk.
class AnyCompany : public CompanyFixture
{
    void TestBody() override {}
};

} // namespace support
