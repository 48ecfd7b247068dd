#include "session/SettingsLines.h"

#include "platform/TextFile.h"
#include "platform/Words.h"
#include "session/Int16.h"
#include "session/StoredSettings.h"

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
    std::function<QString(const StoredSettings&)> text;
    std::function<void(StoredSettings&, const QString&)> take;
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
Key number(const char* name, Record StoredSettings::*record, qint16 Record::*value, qint16 least = kLeast,
           qint16 most = kMost)
{
    return {name, [=](const StoredSettings& settings) { return QString::number(settings.*record.*value); },
            [=](StoredSettings& settings, const QString& text) {
                const qint16 stored = toInt16(text);
                settings.*record.*value = stored < least || stored > most ? Record().*value : stored;
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

Key text(const char* name, QString StoredSettings::*value)
{
    return {name, [=](const StoredSettings& settings) { return storable(settings.*value); },
            [=](StoredSettings& settings, const QString& text) { settings.*value = text; }};
}

Key folder(const char* name, QString StoredSettings::*value)
{
    return {
        name,
        [=](const StoredSettings& settings) { return QDir::toNativeSeparators(storable(settings.*value)); },
        [=](StoredSettings& settings, const QString& text) {
            settings.*value = QDir::fromNativeSeparators(text);
        }};
}

Key languageIdentifier(const char* name)
{
    return {name, [](const StoredSettings& settings) { return settings.Language.ID; },
            [](StoredSettings& settings, const QString& text) {
                settings.Language = LanguageSettings::fromIdentifier(text);
            }};
}

const std::vector<Section>& layout()
{
    static const std::vector<Section> kLayout{
        {"[Language]", {languageIdentifier("ID")}},
        {"[Toolbar]",
         {number("View", &StoredSettings::ToolbarSet, &ToolbarSettings::View),
          number("Icons", &StoredSettings::ToolbarSet, &ToolbarSettings::Icons)}},
        {"[ListBus]",
         {number("View", &StoredSettings::ListBusSet, &ListBusSettings::View, -1, 3),
          number("Col1Width", &StoredSettings::ListBusSet, &ListBusSettings::Col1Width, -1),
          number("Col2Width", &StoredSettings::ListBusSet, &ListBusSettings::Col2Width, -1),
          number("Col3Width", &StoredSettings::ListBusSet, &ListBusSettings::Col3Width, -1)}},
        {"[TreeBus]",
         {number("Visible", &StoredSettings::TreeBusSet, &TreeBusSettings::Visible),
          number("Width", &StoredSettings::TreeBusSet, &TreeBusSettings::Width, -1)}},
        {"[Log]",
         {number("DelLog", &StoredSettings::LogSet, &LogSettings::DelLog),
          number("DelLogRuntimeErr", &StoredSettings::LogSet, &LogSettings::DelLogRuntimeErr),
          number("DelLogInstErr", &StoredSettings::LogSet, &LogSettings::DelLogInstErr),
          number("LogDays", &StoredSettings::LogSet, &LogSettings::LogDays, 1, 365)}},
        {"[Database]", {text("Name", &StoredSettings::DbName), folder("Path", &StoredSettings::DbPath)}},
        {"[Directory]",
         {folder("Backup", &StoredSettings::DirBackup), folder("Export", &StoredSettings::DirExport),
          folder("Import", &StoredSettings::DirImport)}},
        {"[COMPort]",
         {number("Port", &StoredSettings::COMPort, &COMPortSettings::Port, 0, 15),
          number("Speed", &StoredSettings::COMPort, &COMPortSettings::Speed, 0, 12),
          number("DataBit", &StoredSettings::COMPort, &COMPortSettings::DataBit, 0, 3),
          number("Parity", &StoredSettings::COMPort, &COMPortSettings::Parity, 0, 4),
          number("StopBit", &StoredSettings::COMPort, &COMPortSettings::StopBit, 0, 2),
          number("FlowCtrl", &StoredSettings::COMPort, &COMPortSettings::FlowCtrl, 0, 3)}},
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

QStringList settingsLines(const StoredSettings& settings)
{
    QStringList lines;
    for (const Section& section : layout()) {
        lines << section.header;
        for (const Key& key : section.keys)
            lines << QLatin1String(key.name) % QLatin1Char('=') % key.text(settings);
    }
    return lines;
}

void takeSettings(const QStringList& lines, StoredSettings& settings)
{
    Lines ahead(lines);
    while (!ahead.atEnd()) {
        const QString& header = ahead.take();
        const auto section = std::find_if(layout().begin(), layout().end(),
                                          [&](const Section& known) { return known.header == header; });
        if (section == layout().end())
            continue;
        for (const Key& key : section->keys)
            key.take(settings, ahead.takeValue());
    }
}

} // namespace session
