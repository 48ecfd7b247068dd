#include "platform/Machine.h"

#include "support/ApplicationFolder.h"
#include "support/QtPrinters.h"

#include <map>
#include <optional>

using namespace platform;

namespace {

// Sets the locale's variables for one test and puts the former ones back.
class Environment
{
public:
    explicit Environment(const std::map<const char*, const char*>& values)
    {
        for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
            if (qEnvironmentVariableIsSet(name))
                former_[name] = qgetenv(name);
            qunsetenv(name);
        }
        for (const auto& [name, value] : values)
            qputenv(name, value);
    }
    ~Environment()
    {
        for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
            qunsetenv(name);
        for (const auto& [name, value] : former_)
            qputenv(name.c_str(), value);
    }

private:
    std::map<std::string, QByteArray> former_;
};

TEST(MachineLocaleTest, TheFirstVariableThatIsSetDecides)
{
    const auto nameWith = [](const std::map<const char*, const char*>& values) {
        Environment environment(values);
        return localeOfMachine();
    };
    EXPECT_EQ(nameWith({}), "");
    EXPECT_EQ(nameWith({{"LANG", "ru_RU.UTF-8"}}), "ru_RU.UTF-8");
    EXPECT_EQ(nameWith({{"LANG", "ru_RU.UTF-8"}, {"LC_CTYPE", "el_GR"}}), "el_GR");
    EXPECT_EQ(nameWith({{"LANG", "ru_RU.UTF-8"}, {"LC_CTYPE", "el_GR"}, {"LC_ALL", "it_IT"}}), "it_IT");
    EXPECT_EQ(nameWith({{"LANG", "ru_RU.UTF-8"}, {"LC_ALL", ""}}), "ru_RU.UTF-8");
}

TEST(MachineTest, TellsMemoryThatFitsTogether)
{
    const Memory memory = Machine().memory();
    EXPECT_GT(memory.totalPhysical, 0);
    EXPECT_GT(memory.availablePhysical, 0);
    EXPECT_LE(memory.availablePhysical, memory.totalPhysical);
    EXPECT_GE(memory.totalVirtual, memory.totalPhysical);
    EXPECT_LE(memory.availableVirtual, memory.totalVirtual);
}

TEST(MachineTest, TellsSystemAndProcessorInOneLineEach)
{
    const Machine machine;
    EXPECT_FALSE(machine.osName().isEmpty());
    EXPECT_TRUE(machine.osRelease().contains('.'));
    EXPECT_FALSE(machine.cpuName().contains('\n'));
    EXPECT_EQ(machine.cpuName(), machine.cpuName().trimmed());
}

TEST(MachineTest, AFolderThatDoesNotExistLiesWhereItWouldLie)
{
    const support::ApplicationFolder folder;
    const FileSystem here = Machine().fileSystemOf(folder.path());
    EXPECT_TRUE(folder.path().startsWith(here.mountPoint));
    EXPECT_GT(here.total, 0);
    EXPECT_LE(here.free, here.total);
    EXPECT_EQ(Machine().fileSystemOf(folder.file("no/such/folder")).mountPoint, here.mountPoint);
}

// Inside a container the table of mounts may not name what the folders lie on.
class MachineWithoutMounts : public Machine
{
protected:
    std::optional<FileSystem> mountedFileSystemOf(const QString&) const override { return std::nullopt; }
};

TEST(MachineTest, WithoutATableOfMountsTheFolderItselfIsAsked)
{
    const support::ApplicationFolder folder;
    const FileSystem listed = Machine().fileSystemOf(folder.path());
    for (const QString& path : {folder.path(), folder.file("no/such/folder")}) {
        const FileSystem asked = MachineWithoutMounts().fileSystemOf(path);
        EXPECT_EQ(asked.total, listed.total);
        EXPECT_NEAR(double(asked.free), double(listed.free), double(listed.total) / 100);
        EXPECT_TRUE(folder.path().startsWith(asked.mountPoint)) << asked.mountPoint.toStdString();
        EXPECT_TRUE(asked.mountPoint.startsWith(listed.mountPoint));
    }
    const FileSystem kernel = MachineWithoutMounts().fileSystemOf("/proc/self");
    EXPECT_EQ(kernel.mountPoint, "/proc");
    EXPECT_EQ(MachineWithoutMounts().fileSystemOf("/").mountPoint, "/");
}

} // namespace
