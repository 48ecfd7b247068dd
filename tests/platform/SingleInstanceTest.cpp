#include "platform/SingleInstance.h"

#include "support/ApplicationFolder.h"

#include <csignal>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

using platform::SingleInstance;

namespace {

// Another process that holds the mark of a folder until it is killed.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& folder)
    {
        int pipeEnds[2];
        if (pipe(pipeEnds) != 0)
            return;
        process_ = fork();
        if (process_ == 0) {
            const SingleInstance instance(folder);
            const char told = instance.anotherIsRunning() ? 'n' : 'y';
            if (write(pipeEnds[1], &told, 1) == 1)
                pause();
            _exit(0);
        }
        char told = 0;
        holds_ = read(pipeEnds[0], &told, 1) == 1 && told == 'y';
        close(pipeEnds[0]);
        close(pipeEnds[1]);
    }
    ~OtherProgram() { killHard(); }

    bool holds() const { return holds_; }
    void killHard()
    {
        if (process_ <= 0)
            return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

private:
    pid_t process_ = 0;
    bool holds_ = false;
};

TEST(SingleInstanceTest, TheSecondInAFolderKnowsOfTheFirst)
{
    const support::ApplicationFolder folder;
    const support::ApplicationFolder otherFolder;
    {
        const SingleInstance first(folder.path());
        EXPECT_FALSE(first.anotherIsRunning());
        EXPECT_TRUE(folder.has("Calidora.lock"));
        EXPECT_TRUE(SingleInstance(folder.path()).anotherIsRunning());
        EXPECT_FALSE(SingleInstance(otherFolder.path()).anotherIsRunning());
    }
    EXPECT_FALSE(SingleInstance(folder.path()).anotherIsRunning());
}

TEST(SingleInstanceTest, AKilledProgramLeavesTheFolderFree)
{
    const support::ApplicationFolder folder;
    OtherProgram other(folder.path());
    ASSERT_TRUE(other.holds());
    EXPECT_TRUE(SingleInstance(folder.path()).anotherIsRunning());
    other.killHard();
    EXPECT_TRUE(folder.has("Calidora.lock"));
    EXPECT_FALSE(SingleInstance(folder.path()).anotherIsRunning());
}

TEST(SingleInstanceTest, AMarkThatIsRubbishOrCantBeMadeStopsNobody)
{
    const support::ApplicationFolder folder;
    // The last two name a living process: here, and on a computer whose folder was copied.
    for (const char* rubbish : {"", "rubbish", "x\ny\nz\n", "1\ncalidora\n\n", "1\ncalidora\nplant-pc-2\n"}) {
        folder.write("Calidora.lock", rubbish);
        const SingleInstance first(folder.path());
        EXPECT_FALSE(first.anotherIsRunning()) << rubbish;
        EXPECT_TRUE(SingleInstance(folder.path()).anotherIsRunning()) << rubbish;
    }
    EXPECT_FALSE(SingleInstance(folder.file("no/such/folder")).anotherIsRunning());
}

TEST(SingleInstanceTest, AFolderThatTakesNoFilesIsKnown)
{
    const support::ApplicationFolder folder;
    const SingleInstance first(folder.path());
    EXPECT_FALSE(first.folderIsClosed());
    EXPECT_FALSE(SingleInstance(folder.path()).folderIsClosed()) << "held by another is not closed";
    // The kernel's own folder takes no file of anybody, not even of the administrator.
    EXPECT_TRUE(SingleInstance("/sys").folderIsClosed());
    EXPECT_FALSE(SingleInstance("/sys").anotherIsRunning());
}

} // namespace
