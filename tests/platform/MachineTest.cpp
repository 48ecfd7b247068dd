#include "platform/Machine.h"

#include "support/ApplicationFolder.h"

#include <map>
#include <optional>

using namespace platform;

namespace {

struct LocaleRow
{
    const char* name;
    int id;
};

class LocaleIdTest : public testing::TestWithParam<LocaleRow>
{
};

TEST_P(LocaleIdTest, NamesTheLocaleByItsWindowsId)
{
    EXPECT_EQ(localeIdOf(GetParam().name), GetParam().id) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Names, LocaleIdTest,
    testing::Values(LocaleRow{"it_IT.UTF-8", 1040}, LocaleRow{"it_IT", 1040}, LocaleRow{"it", 1040},
                    LocaleRow{"it_IT@euro", 1040}, LocaleRow{"it_CH.UTF-8", 2064}, LocaleRow{"it_VA", 1040},
                    LocaleRow{"ru_RU.KOI8-R", 1049}, LocaleRow{"ru_UA", 1049}, LocaleRow{"uk_UA", 1058},
                    LocaleRow{"sr_RS.UTF-8", 3098}, LocaleRow{"sr_RS.UTF-8@latin", 2074},
                    LocaleRow{"zh_TW.BIG5", 1028}, LocaleRow{"zh_SG", 4100}, LocaleRow{"ar_EG", 3073},
                    LocaleRow{"en_GB", 2057}, LocaleRow{"C", 1033}, LocaleRow{"C.UTF-8", 1033},
                    LocaleRow{"POSIX", 1033}, LocaleRow{"", 1033}, LocaleRow{"xx_XX", 1033},
                    LocaleRow{"_IT", 1033}));

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
    const auto idWith = [](const std::map<const char*, const char*>& values) {
        Environment environment(values);
        return localeIdOfMachine();
    };
    EXPECT_EQ(idWith({}), 1033);
    EXPECT_EQ(idWith({{"LANG", "ru_RU.UTF-8"}}), 1049);
    EXPECT_EQ(idWith({{"LANG", "ru_RU.UTF-8"}, {"LC_CTYPE", "el_GR"}}), 1032);
    EXPECT_EQ(idWith({{"LANG", "ru_RU.UTF-8"}, {"LC_CTYPE", "el_GR"}, {"LC_ALL", "it_IT"}}), 1040);
    EXPECT_EQ(idWith({{"LANG", "ru_RU.UTF-8"}, {"LC_ALL", ""}}), 1049);
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

} // namespace
