#include "session/Configuration.h"

#include "platform/CodePage.h"
#include "platform/Guard.h"
#include "platform/TextFile.h"
#include "session/Int16.h"
#include "session/Session.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <functional>
#include <vector>

namespace session {

using namespace platform;

namespace {

// Far beyond what thirty lines can hold, paths included.
constexpr qint64 kLargestConfiguration = 256 * 1024;

// One key: how its value is written, and how it is taken.
struct Key
{
    const char* name;
    std::function<QString(const Session&)> text;
    std::function<void(Session&, const QString&)> take;
};

struct Section
{
    QString header;
    std::vector<Key> keys;
};

template <class Record>
Key number(const char* name, Record Session::*record, qint16 Record::*value)
{
    return {name, [=](const Session& session) { return QString::number(session.*record.*value); },
            [=](Session& session, const QString& text) { session.*record.*value = toInt16(text); }};
}

Key text(const char* name, QString Session::*value)
{
    return {name, [=](const Session& session) { return session.*value; },
            [=](Session& session, const QString& text) { session.*value = text; }};
}

Key folder(const char* name, QString Session::*value)
{
    return {
        name, [=](const Session& session) { return QDir::toNativeSeparators(session.*value); },
        [=](Session& session, const QString& text) { session.*value = QDir::fromNativeSeparators(text); }};
}

Key languageIdentifier(const char* name)
{
    return {name, [](const Session& session) { return session.Language.ID; },
            [](Session& session, const QString& text) {
                session.Language = LanguageSettings::fromIdentifier(text);
            }};
}

const std::vector<Section>& layout()
{
    static const std::vector<Section> kLayout{
        {"[Language]", {languageIdentifier("ID")}},
        {"[Toolbar]",
         {number("View", &Session::ToolbarSet, &ToolbarSettings::View),
          number("Icons", &Session::ToolbarSet, &ToolbarSettings::Icons)}},
        {"[ListBus]",
         {number("View", &Session::ListBusSet, &ListBusSettings::View),
          number("Col1Width", &Session::ListBusSet, &ListBusSettings::Col1Width),
          number("Col2Width", &Session::ListBusSet, &ListBusSettings::Col2Width),
          number("Col3Width", &Session::ListBusSet, &ListBusSettings::Col3Width)}},
        {"[TreeBus]",
         {number("Visible", &Session::TreeBusSet, &TreeBusSettings::Visible),
          number("Width", &Session::TreeBusSet, &TreeBusSettings::Width)}},
        {"[Log]",
         {number("DelLog", &Session::LogSet, &LogSettings::DelLog),
          number("DelLogRuntimeErr", &Session::LogSet, &LogSettings::DelLogRuntimeErr),
          number("DelLogInstErr", &Session::LogSet, &LogSettings::DelLogInstErr),
          number("LogDays", &Session::LogSet, &LogSettings::LogDays)}},
        {"[Database]", {text("Name", &Session::DbName), folder("Path", &Session::DbPath)}},
        {"[Directory]",
         {folder("Backup", &Session::DirBackup), folder("Export", &Session::DirExport),
          folder("Import", &Session::DirImport)}},
        {"[COMPort]",
         {number("Port", &Session::COMPort, &COMPortSettings::Port),
          number("Speed", &Session::COMPort, &COMPortSettings::Speed),
          number("DataBit", &Session::COMPort, &COMPortSettings::DataBit),
          number("Parity", &Session::COMPort, &COMPortSettings::Parity),
          number("StopBit", &Session::COMPort, &COMPortSettings::StopBit),
          number("FlowCtrl", &Session::COMPort, &COMPortSettings::FlowCtrl)}},
    };
    return kLayout;
}

QString fileOf(const Session& session)
{
    return session.appFile(session.AppTitle + QStringLiteral(".ini"));
}

void refuseTooLarge(const QString& path)
{
    if (QFileInfo(path).size() > kLargestConfiguration)
        fail(errors::kInvalidCall, QStringLiteral("'%1' is too large for a configuration.").arg(path));
}

QString readTextLine(TextReader& reader)
{
    const QString line = reader.ReadLine();
    const bool rubbish = std::any_of(line.begin(), line.end(),
                                     [](QChar c) { return c < QLatin1Char(' ') && c != QLatin1Char('\t'); });
    if (rubbish)
        fail(errors::kInvalidCall, QStringLiteral("The configuration holds something else than text."));
    return line;
}

QString valueOf(const QString& line)
{
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0)
        fail(errors::kInvalidCall,
             QStringLiteral("The line '%1' of the configuration has no value.").arg(line));
    return line.mid(equals + 1);
}

void readSections(TextReader& reader, Session& session)
{
    while (!reader.AtEndOfStream()) {
        const QString line = readTextLine(reader);
        const auto section = std::find_if(layout().begin(), layout().end(),
                                          [&](const Section& known) { return known.header == line; });
        if (section == layout().end())
            continue;
        for (const Key& key : section->keys)
            key.take(session, valueOf(readTextLine(reader)));
    }
}

QStringList linesOf(const Session& session)
{
    QStringList lines;
    for (const Section& section : layout()) {
        lines << section.header;
        for (const Key& key : section.keys)
            lines << QLatin1String(key.name) + QLatin1Char('=') + key.text(session);
    }
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
        TextReader reader(fileOf(session), session.CodePage);
        readSections(reader, session);
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
        const QStringList lines = linesOf(session);
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
