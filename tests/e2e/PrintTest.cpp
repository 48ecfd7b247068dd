// A page goes through a real print queue: a print server of the test's own behind a socket of its own, a
// queue whose printer is a file.

#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr int kPatienceMs = 30000;

// Takes pages as they come. A queue without any filter would complete its jobs and write nothing to a file.
const char kPpd[] = "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
                    "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"FILE.PPD\"\n"
                    "*Manufacturer: \"Paper\"\n*Product: \"(Paper)\"\n*ModelName: \"Paper\"\n"
                    "*ShortNickName: \"Paper\"\n*NickName: \"Paper\"\n*PSVersion: \"(3010.000) 0\"\n"
                    "*LanguageLevel: \"3\"\n*ColorDevice: False\n*DefaultColorSpace: Gray\n"
                    "*cupsFilter: \"application/pdf 0 gziptoany\"\n"
                    "*OpenUI *PageSize/Media Size: PickOne\n*DefaultPageSize: A4\n"
                    "*PageSize A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n*CloseUI: *PageSize\n"
                    "*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: A4\n"
                    "*PageRegion A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n*CloseUI: *PageRegion\n"
                    "*DefaultImageableArea: A4\n*ImageableArea A4/A4: \"10 10 585 832\"\n"
                    "*DefaultPaperDimension: A4\n*PaperDimension A4/A4: \"595 842\"\n";

class PrintTest : public testing::Test
{
protected:
    ~PrintTest() override
    {
        server_.terminate();
        if (!server_.waitForFinished(kPatienceMs))
            server_.kill();
        server_.waitForFinished();
    }

    QString file(const QString& name) const { return folder_.filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile made(file(name));
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
    }
    // Runs a program against the test's own print server; its exit code, -1 when it did not run.
    int run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CUPS_SERVER", address_);
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("HOME", folder_.path());
        environment.insert("XDG_RUNTIME_DIR", file("runtime"));
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        if (!process.waitForFinished(kPatienceMs))
            return -1;
        output_ = process.readAllStandardOutput();
        words_ = QString::fromUtf8(output_ + process.readAllStandardError());
        return process.exitCode();
    }
    // "" when the server is up with its queue, else why it is not.
    QString missing()
    {
        for (const char* program : {"cupsd", "lpadmin", "pdftotext"}) {
            if (pathOf(program).isEmpty())
                return QStringLiteral("%1 is not installed (cups, cups-client, poppler-utils)").arg(program);
        }
        address_ = file("socket");
        // The server's filters run under another name.
        QFile::setPermissions(folder_.path(), QFile::permissions(folder_.path()) | QFile::ReadOther |
                                                  QFile::ExeOther | QFile::ReadGroup | QFile::ExeGroup);
        for (const char* below : {"spool", "spool/tmp", "cache", "state", "log", "ppd"})
            QDir(folder_.path()).mkpath(below);
        QDir().mkdir(file("runtime"));
        QFile::setPermissions(file("runtime"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        write("cupsd.conf", "Listen " + address_.toUtf8() +
                                "\nBrowsing Off\nDefaultAuthType None\nWebInterface No\n"
                                "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                "<Location /admin>\nOrder allow,deny\nAllow all\n</Location>\n"
                                "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
        const QByteArray root = folder_.path().toUtf8();
        write("cups-files.conf", "FileDevice Yes\nServerRoot " + root + "\nRequestRoot " + root +
                                     "/spool\nTempDir " + root + "/spool/tmp\nCacheDir " + root +
                                     "/cache\nStateDir " + root + "/state\nErrorLog " + root +
                                     "/log/error\nAccessLog " + root + "/log/access\nPageLog " + root +
                                     "/log/page\nSystemGroup root lpadmin\nSandboxing relaxed\n");
        write("paper.ppd", kPpd);
        server_.start(pathOf("cupsd"), {"-f", "-c", file("cupsd.conf"), "-s", file("cups-files.conf")});
        if (!server_.waitForStarted())
            return "cupsd does not start";
        const QStringList queue{"-p", "Paper",          "-E", "-v", "file:" + file("paper.pdf"),
                                "-P", file("paper.ppd")};
        for (int attempt = 0; attempt < 50; ++attempt) {
            if (run(pathOf("lpadmin"), queue) == 0)
                return {};
            if (server_.waitForFinished(100))
                return "cupsd ends at once: " + QString::fromUtf8(server_.readAllStandardError());
        }
        return "the queue can't be made: " + words_;
    }
    static QString pathOf(const QString& program)
    {
        const QString found = QStandardPaths::findExecutable(program);
        return found.isEmpty() ? QStandardPaths::findExecutable(program, {"/usr/sbin", "/sbin"}) : found;
    }

    QTemporaryDir folder_;
    QProcess server_;
    QString address_, words_;
    QByteArray output_;
};

TEST_F(PrintTest, APageComesOutOfTheQueueAsText)
{
    if (const QString reason = missing(); !reason.isEmpty())
        GTEST_SKIP() << "no print queue here: " << qPrintable(reason);
    ASSERT_EQ(run(CALIDORA_PRINTER, {"Paper", "1", "Температура = 12.5 °C"}), 0) << qPrintable(words_);
    QString text;
    for (int look = 0; look < 300 && !text.contains("12.5"); ++look) {
        server_.waitForFinished(100); // the queue takes its time
        run(pathOf("pdftotext"), {"-enc", "UTF-8", file("paper.pdf"), "-"});
        text = QString::fromUtf8(output_);
    }
    EXPECT_EQ(text.trimmed(), "Температура = 12.5 °C");
}

TEST_F(PrintTest, AQueueThatVanishedIsTold)
{
    if (const QString reason = missing(); !reason.isEmpty())
        GTEST_SKIP() << "no print queue here: " << qPrintable(reason);
    ASSERT_EQ(run(pathOf("lpadmin"), {"-x", "Paper"}), 0) << qPrintable(words_);
    EXPECT_EQ(run(CALIDORA_PRINTER, {"Paper", "1", "line"}), 1);
    EXPECT_EQ(words_, "printer.gone Paper");
}

} // namespace
