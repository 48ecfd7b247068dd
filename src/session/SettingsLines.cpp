#include "session/SettingsLines.h"

#include "platform/TextFile.h"
#include "platform/Words.h"
#include "session/Int16.h"
#include "session/Session.h"

#include <QDir>
#include <QStringBuilder>
#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace session {

using namespace platform;

namespace {

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

constexpr qint16 kLeast = std::numeric_limits<qint16>::min();
constexpr qint16 kMost = std::numeric_limits<qint16>::max();

// A number outside its range gives the value of a first run.
template <class Record>
Key number(const char* name, Record Session::*record, qint16 Record::*value, qint16 least = kLeast,
           qint16 most = kMost)
{
    return {name, [=](const Session& session) { return QString::number(session.*record.*value); },
            [=](Session& session, const QString& text) {
                const qint16 stored = toInt16(text);
                session.*record.*value = stored < least || stored > most ? Record().*value : stored;
            }};
}

bool isControl(QChar character)
{
    return character < QLatin1Char(' ') && character != QLatin1Char('\t');
}

bool holdsControl(const QString& text)
{
    return std::any_of(text.begin(), text.end(), isControl);
}

// A name may hold what would break its line and every one behind it: such a name isn't remembered.
QString storable(const QString& text)
{
    return holdsControl(text) ? QString() : text;
}

Key text(const char* name, QString Session::*value)
{
    return {name, [=](const Session& session) { return storable(session.*value); },
            [=](Session& session, const QString& text) { session.*value = text; }};
}

Key folder(const char* name, QString Session::*value)
{
    return {
        name, [=](const Session& session) { return QDir::toNativeSeparators(storable(session.*value)); },
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
         {number("View", &Session::ListBusSet, &ListBusSettings::View, -1, 3),
          number("Col1Width", &Session::ListBusSet, &ListBusSettings::Col1Width, -1),
          number("Col2Width", &Session::ListBusSet, &ListBusSettings::Col2Width, -1),
          number("Col3Width", &Session::ListBusSet, &ListBusSettings::Col3Width, -1)}},
        {"[TreeBus]",
         {number("Visible", &Session::TreeBusSet, &TreeBusSettings::Visible),
          number("Width", &Session::TreeBusSet, &TreeBusSettings::Width, -1)}},
        {"[Log]",
         {number("DelLog", &Session::LogSet, &LogSettings::DelLog),
          number("DelLogRuntimeErr", &Session::LogSet, &LogSettings::DelLogRuntimeErr),
          number("DelLogInstErr", &Session::LogSet, &LogSettings::DelLogInstErr),
          number("LogDays", &Session::LogSet, &LogSettings::LogDays, 1, 365)}},
        {"[Database]", {text("Name", &Session::DbName), folder("Path", &Session::DbPath)}},
        {"[Directory]",
         {folder("Backup", &Session::DirBackup), folder("Export", &Session::DirExport),
          folder("Import", &Session::DirImport)}},
        {"[COMPort]",
         {number("Port", &Session::COMPort, &COMPortSettings::Port, 0, 15),
          number("Speed", &Session::COMPort, &COMPortSettings::Speed, 0, 12),
          number("DataBit", &Session::COMPort, &COMPortSettings::DataBit, 0, 3),
          number("Parity", &Session::COMPort, &COMPortSettings::Parity, 0, 4),
          number("StopBit", &Session::COMPort, &COMPortSettings::StopBit, 0, 2),
          number("FlowCtrl", &Session::COMPort, &COMPortSettings::FlowCtrl, 0, 3)}},
    };
    return kLayout;
}

// The lines of a file, one after the other.
class Lines
{
public:
    explicit Lines(const QStringList& lines) : lines_(lines) {}

    bool atEnd() const { return next_ == lines_.size(); }
    const QString& take()
    {
        if (atEnd())
            failInWords(kInputPastEnd, "settings.short");
        const QString& line = lines_[next_++];
        if (holdsControl(line))
            failInWords(errors::kInvalidCall, "settings.notext");
        return line;
    }
    QString takeValue()
    {
        const QString& line = take();
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals < 0)
            failInWords(errors::kInvalidCall, "settings.novalue", {line});
        return line.mid(equals + 1);
    }

private:
    const QStringList& lines_;
    qsizetype next_ = 0;
};

} // namespace

QStringList settingsLines(const Session& session)
{
    QStringList lines;
    for (const Section& section : layout()) {
        lines << section.header;
        for (const Key& key : section.keys)
            lines << QLatin1String(key.name) % QLatin1Char('=') % key.text(session);
    }
    return lines;
}

void takeSettings(const QStringList& lines, Session& session)
{
    Lines ahead(lines);
    while (!ahead.atEnd()) {
        const QString& header = ahead.take();
        const auto section = std::find_if(layout().begin(), layout().end(),
                                          [&](const Section& known) { return known.header == header; });
        if (section == layout().end())
            continue;
        for (const Key& key : section->keys)
            key.take(session, ahead.takeValue());
    }
}

} // namespace session
