#include "session/Configuration.h"

#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/TextFile.h"
#include "platform/Words.h"
#include "session/Session.h"
#include "session/SettingsLines.h"

#include <QFileInfo>
#include <algorithm>

namespace session {

using namespace platform;

namespace {

// Far beyond what thirty lines can hold, paths included.
constexpr qint64 kLargestConfiguration = 256 * 1024;

QString fileOf(const Session& session)
{
    return session.appFile(session.AppTitle + QStringLiteral(".ini"));
}

void refuseTooLarge(const QString& path)
{
    if (QFileInfo(path).size() > kLargestConfiguration)
        failInWords(errors::kInvalidCall, "settings.large", {path});
}

QStringList linesOfFile(const QString& path, int codePage)
{
    QStringList lines;
    for (TextReader reader(path, codePage); !reader.AtEndOfStream();)
        lines << reader.ReadLine();
    return lines;
}

// A path may hold what the machine's page lacks, and must come back as it was.
int codePageFor(const QStringList& lines, int codePage)
{
    const bool whole = std::all_of(lines.begin(), lines.end(), [=](const QString& line) {
        return decode(encode(line, codePage), codePage) == line;
    });
    return whole ? codePage : kUtf8WithMark;
}

void reportUnseen(int number, const QString& description)
{
    reportFailure({number, description, QStringLiteral("Module/Read_Configuration"), true});
}

} // namespace

bool Read_Configuration(Session& session)
{
    try {
        refuseTooLarge(fileOf(session));
        takeSettings(linesOfFile(fileOf(session), session.CodePage), session);
        return true;
    } catch (const RuntimeError& error) {
        reportUnseen(error.number, error.description);
    } catch (const std::exception& error) {
        reportUnseen(errors::kInternal, QString::fromUtf8(error.what()));
    }
    return false;
}

bool Write_Configuration(const Session& session)
{
    return guarded("Module/Write_Configuration", [&] {
        const QStringList lines = settingsLines(session);
        TextWriter writer(fileOf(session), codePageFor(lines, session.CodePage));
        for (const QString& line : lines)
            writer.WriteLine(line);
        writer.commit();
        return true;
    });
}

void applyFirstRunDefaults(Session& session)
{
    session.DbName.clear();
    session.DbPath = session.appFile(QStringLiteral("Data"));
    session.DbVersion.clear();
    session.DirBackup = session.appFile(QStringLiteral("Data"));
    session.DirExport = session.appFile(QStringLiteral("Log"));
    session.DirImport = session.appFile(QStringLiteral("Data"));
    session.LogSet = {};
    session.ToolbarSet = {};
    session.ListBusSet = {};
    session.TreeBusSet = {};
    session.Language = {};
    session.COMPort = {};
}

} // namespace session
