#include "platform/SystemTool.h"

#include "platform/RuntimeError.h"
#include "support/Throws.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace platform;

namespace {

class SystemToolTest : public testing::Test
{
protected:
    SystemToolTest() { qputenv("PATH", folder_.path().toLocal8Bit()); }
    ~SystemToolTest() override { qputenv("PATH", former_); }

    void install(const QString& program)
    {
        QFile file(folder_.filePath(program));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n");
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

private:
    const QByteArray former_ = qgetenv("PATH");
    QTemporaryDir folder_;
};

TEST_F(SystemToolTest, IsTheFirstThatIsInstalled)
{
    EXPECT_EQ(systemTool(), "");
    install("xfce4-taskmanager");
    EXPECT_EQ(systemTool(), "xfce4-taskmanager");
    install("gnome-control-center");
    EXPECT_EQ(systemTool(), "gnome-control-center system") << "with what it is told to show";
    install("kinfocenter");
    EXPECT_EQ(systemTool(), "kinfocenter");
}

TEST_F(SystemToolTest, AProgramThatIsMissingIsTold)
{
    for (const char* command : {"", "nowhere to be found"})
        EXPECT_EQ(support::errorOf([&] { startProgram(command); }), errors::kFileNotFound) << command;
}

} // namespace
