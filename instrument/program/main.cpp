#include "Loop.h"

#include "instrument/CompanyFile.h"
#include "instrument/MemoryFile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace instrument;

namespace {

struct Arguments
{
    QString company;
    QString memory;
    QString link;
    QString saveOnExit;
    bool drift = false;
    bool verbose = false;
    Options options;
};

void say(const QString& line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

void complain(const QString& line)
{
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stderr);
}

// Ends the program with a word on standard error when the command line makes no sense.
Arguments argumentsOf(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Plants of virtual instruments on a pseudo-terminal."));
    parser.addHelpOption();
    parser.addOptions({
        {"company", "Take plants and values from a company file.", "file"},
        {"memory", "Take plants and memories from a memory file.", "file"},
        {"home", "Application folder that holds ports/.", "folder", "."},
        {"port", "Name of the port in ports/.", "name", "COM1"},
        {"link", "auto, modem or cable.", "kind", "auto"},
        {"group", "The plant on the cable, and behind any unknown number.", "id"},
        {"speed", "Make the own waits so many times shorter.", "factor", "1"},
        {"drift", "Let the values of a company file differ a little."},
        {"save-on-exit", "Write the memories to a memory file at the end.", "file"},
        {"verbose", "Tell on standard error what happens on the line."},
    });
    parser.process(application);

    const auto refuse = [&](const QString& reason) {
        complain(reason);
        std::exit(2);
    };
    Arguments arguments;
    arguments.company = parser.value("company");
    arguments.memory = parser.value("memory");
    if (arguments.company.isEmpty() == arguments.memory.isEmpty())
        refuse(QStringLiteral("give either --company or --memory"));
    arguments.link = QDir(parser.value("home")).filePath(QStringLiteral("ports/") + parser.value("port"));
    arguments.saveOnExit = parser.value("save-on-exit");
    arguments.drift = parser.isSet("drift");
    arguments.verbose = parser.isSet("verbose");

    const std::optional<LinkMode> link = linkModeFromName(parser.value("link"));
    if (!link)
        refuse(QStringLiteral("a link is auto, modem or cable"));
    arguments.options.link = *link;

    const double speed = parser.value("speed").toDouble();
    if (!(speed > 0))
        refuse(QStringLiteral("the speed is a number above 0"));
    arguments.options.timings = Timings().fasterBy(speed);

    if (parser.isSet("group")) {
        bool isNumber = false;
        arguments.options.group = parser.value("group").toInt(&isNumber);
        if (!isNumber)
            refuse(QStringLiteral("a group is a number"));
    }
    return arguments;
}

Plants plantsOf(const Arguments& arguments)
{
    if (arguments.company.isEmpty())
        return loadMemoryFile(arguments.memory);
    Company company = loadCompanyFile(arguments.company, {arguments.drift});
    for (const QString& warning : company.warnings)
        complain(warning);
    return std::move(company.plants);
}

void run(const Arguments& arguments)
{
    VirtualInstrument instrument(plantsOf(arguments), arguments.options, Loop::now());
    if (arguments.verbose)
        instrument.log = complain;
    {
        Pty pty(arguments.link);
        Loop loop(instrument, pty);
        const QFileInfo link(arguments.link);
        say(QStringLiteral("ready ports/%1 -> %2").arg(link.fileName(), pty.device()));
        loop.run();
    }
    if (!arguments.saveOnExit.isEmpty())
        saveMemoryFile(instrument.plants(), arguments.saveOnExit);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Arguments arguments = argumentsOf(application);
    try {
        run(arguments);
        return 0;
    } catch (const std::exception& error) {
        complain(QString::fromUtf8(error.what()));
        return 1;
    }
}
