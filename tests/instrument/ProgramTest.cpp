#include "instrument/MemoryFile.h"

#include "Bench.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

using namespace instrument;

namespace {

constexpr int kPatienceMs = 20000;

// The far side of the program's port, as another program opens it.
class Port
{
public:
    explicit Port(const QString& path) : file_(open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    ~Port() { close(file_); }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;

    bool isOpen() const { return file_ >= 0; }

    // Says something and listens until the answer is as long as the one expected, or until patience ends.
    QByteArray say(const QByteArray& bytes, const QByteArray& expected)
    {
        EXPECT_EQ(write(file_, bytes.constData(), std::size_t(bytes.size())), bytes.size());
        return listen(expected.size());
    }

    QByteArray listen(qsizetype size)
    {
        QByteArray heard;
        const QDeadlineTimer patience(kPatienceMs);
        while (heard.size() < size && !patience.hasExpired()) {
            pollfd source{file_, POLLIN, 0};
            char byte = 0;
            if (poll(&source, 1, 100) > 0 && read(file_, &byte, 1) == 1)
                heard += byte;
        }
        return heard;
    }

    // Whether the device has vanished: nothing can be written to it any more.
    bool vanishes()
    {
        const QDeadlineTimer patience(kPatienceMs);
        while (!patience.hasExpired()) {
            pollfd source{file_, 0, 0};
            if (poll(&source, 1, 100) > 0 && (source.revents & POLLHUP))
                return true;
        }
        return false;
    }

private:
    int file_;
};

class ProgramTest : public testing::Test
{
protected:
    void SetUp() override
    {
        saveMemoryFile({smallPlant()}, folder.filePath(QStringLiteral("plants.txt")));
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    }

    void TearDown() override
    {
        process.kill();
        process.waitForFinished(kPatienceMs);
    }

    QString start(const QStringList& more = {})
    {
        process.start(QStringLiteral(CALIDORA_INSTRUMENT),
                      QStringList{"--memory", folder.filePath("plants.txt"), "--home", folder.path(), "--speed", "10"} +
                          more);
        return line();
    }

    QString line()
    {
        const QDeadlineTimer patience(kPatienceMs);
        while (!process.canReadLine() && !patience.hasExpired() && process.state() != QProcess::NotRunning)
            process.waitForReadyRead(100);
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    QString command(const char* text)
    {
        process.write(QByteArray(text) + '\n');
        process.waitForBytesWritten(kPatienceMs);
        return line();
    }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
    QTemporaryDir folder;
    QString link = folder.filePath(QStringLiteral("ports/COM1"));
    QProcess process;
};

TEST_F(ProgramTest, StandsUnderItsNameAndAnswers)
{
    ASSERT_EQ(start(), QStringLiteral("ready ports/COM1 -> ") + QFile::symLinkTarget(link));
    for (int round = 0; round < 2; ++round) {
        Port port(link);
        ASSERT_TRUE(port.isOpen()) << "the program may open it again and again";
        EXPECT_EQ(port.say("RING", "ATA\r"), "ATA\r");
        EXPECT_EQ(port.say("CONNECT" + kReadTwo, kAnswerOfTwo), kAnswerOfTwo);
        EXPECT_EQ(port.say("+++", "\r"), "\r");
        EXPECT_EQ(port.say("ATH\r+++", "OK\r\n"), "OK\r\n");
    }
    EXPECT_TRUE(command("status").startsWith(QStringLiteral("ok group=- requests=2 ")));
}

TEST_F(ProgramTest, CallsInOnCommand)
{
    start({"--link", "cable"});
    Port port(link);
    EXPECT_EQ(command("call <P><U><A> | <P><E>"), QStringLiteral("ok"));
    EXPECT_EQ(port.listen(4), "ATD\r");
    EXPECT_EQ(port.say("CONNECT", "<P><U><A>"), "<P><U><A>");
    EXPECT_EQ(port.say("OK", "<P><E>"), "<P><E>");
}

TEST_F(ProgramTest, VanishesAndComesBack)
{
    start();
    {
        Port port(link);
        EXPECT_EQ(command("fail gone"), QStringLiteral("ok gone for good"));
        EXPECT_TRUE(port.vanishes());
        EXPECT_FALSE(Port(link).isOpen());
    }
    EXPECT_EQ(command("fail gone off"), QStringLiteral("ok"));
    command("status");
    Port port(link);
    ASSERT_TRUE(port.isOpen());
    EXPECT_EQ(port.say("RING", "ATA\r"), "ATA\r");
}

TEST_F(ProgramTest, LeavesNoLinkAndSavesTheMemories)
{
    const QString saved = folder.filePath(QStringLiteral("saved.txt"));
    start({"--save-on-exit", saved});
    EXPECT_EQ(command("poke 1 00 82 16 7F"), QStringLiteral("ok"));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(kPatienceMs));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_FALSE(QFileInfo(link).isSymLink());
    Plant expected = smallPlant();
    expected.instruments["00"].set(0x52, 0x10, hex("7F"));
    EXPECT_EQ(loadMemoryFile(saved), Plants{expected});
}

TEST_F(ProgramTest, QuitsOnCommand)
{
    start();
    EXPECT_EQ(command("quit"), QStringLiteral("ok"));
    ASSERT_TRUE(process.waitForFinished(kPatienceMs));
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(ProgramTest, ReplacesALinkAndNothingElse)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("ports")));
    ASSERT_TRUE(QFile::link(QStringLiteral("nowhere"), link));
    EXPECT_TRUE(start().startsWith(QStringLiteral("ready ")));
    command("quit");
    process.waitForFinished(kPatienceMs);

    QFile file(link);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    process.setProcessChannelMode(QProcess::SeparateChannels);
    EXPECT_EQ(start(), QString());
    ASSERT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(kPatienceMs));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("ports/COM1"));
    EXPECT_TRUE(QFileInfo(link).isFile());
}

TEST_F(ProgramTest, RefusesACommandLineThatMakesNoSense)
{
    const QString memory = folder.filePath(QStringLiteral("plants.txt"));
    const QStringList rows[] = {{},
                                {"--memory", memory, "--company", memory},
                                {"--memory", memory, "--link", "rope"},
                                {"--memory", memory, "--speed", "0"},
                                {"--memory", memory, "--group", "one"}};
    process.setProcessChannelMode(QProcess::SeparateChannels);
    for (const QStringList& arguments : rows) {
        process.start(QStringLiteral(CALIDORA_INSTRUMENT), arguments);
        ASSERT_TRUE(process.waitForFinished(kPatienceMs));
        EXPECT_EQ(process.exitCode(), 2) << arguments.join(' ').toStdString();
        EXPECT_FALSE(process.readAllStandardError().isEmpty());
    }
}

} // namespace
