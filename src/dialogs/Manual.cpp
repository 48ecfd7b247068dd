#include "dialogs/Manual.h"

#include "session/Session.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <map>

namespace dialogs {

namespace {

constexpr int kExcerptBefore = 30;
constexpr int kExcerptLength = 110;

const QString kFirst = QStringLiteral("01-first-start");

// What a reader sees of a line: no pictures, no addresses, no marks.
QString plain(QString line)
{
    static const QRegularExpression kPicture(R"(!\[[^\]]*\]\([^)]*\))"), kLink(R"(\[([^\]]*)\]\([^)]*\))"),
        kMarks(R"([*`|]|^\s*(#+|[-0-9.]+)\s|-{3,})");
    return line.remove(kPicture).replace(kLink, QStringLiteral("\\1")).remove(kMarks).simplified();
}

bool holdsAll(const QString& text, const QStringList& words)
{
    return std::all_of(words.begin(), words.end(),
                       [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

// The text around the first of the words.
QString excerptOf(const QString& text, const QString& word)
{
    const qsizetype found = std::max<qsizetype>(text.indexOf(word, 0, Qt::CaseInsensitive), 0);
    const qsizetype begin = found <= kExcerptBefore ? 0 : text.lastIndexOf(u' ', found - kExcerptBefore) + 1;
    QString excerpt = text.mid(begin, kExcerptLength);
    if (begin > 0)
        excerpt.prepend(QStringLiteral("... "));
    if (begin + kExcerptLength < text.size())
        excerpt.append(QStringLiteral("..."));
    return excerpt;
}

} // namespace

Manual::Manual(const session::Session& session) : session_(session) {}

QString Manual::folder() const
{
    const QString own = QStringLiteral(":/manual/") + session_.Language.Code.toLower();
    return QFile::exists(own) ? own : QStringLiteral(":/manual/en");
}

QStringList Manual::chapters() const
{
    QStringList names = QDir(folder()).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    names.replaceInStrings(QStringLiteral(".md"), QString());
    return names;
}

QString Manual::text(const QString& chapter) const
{
    QFile file(folder() + u'/' + chapter + QStringLiteral(".md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString Manual::title(const QString& chapter) const
{
    return plain(text(chapter).section(u'\n', 0, 0));
}

QString Manual::address(const QString& chapter) const
{
    return QStringLiteral("qrc") + folder() + u'/' + chapter + QStringLiteral(".md");
}

QString Manual::chapterOf(const QString& window)
{
    static const std::map<QString, QString> kChapters{
        {"frmPresentation", kFirst},
        {"frmLanguage", kFirst},
        {"frmInfo", kFirst},
        {"frmSystemInfo", kFirst},
        {"frmConnection", kFirst},
        {"frmManual", kFirst},
        {"frmVideoProperty", kFirst},
        {"frmMain", "02-plant"},
        {"frmTreeBus", "02-plant"},
        {"frmListBus", "02-plant"},
        {"frmZoom", "02-plant"},
        {"frmFind", "02-plant"},
        {"frmPending", "02-plant"},
        {"frmProperty", "03-editing"},
        {"frmPropertyCopy", "03-editing"},
        {"frmReadWrite", "04-reading-and-writing"},
        {"frmMessage", "05-alarms"},
        {"frmEventViewer", "06-events"},
        {"frmEventFilter", "06-events"},
        {"frmEventText", "06-events"},
        {"frmReadLogFiles", "06-events"},
        {"frmZoomDate", "06-events"},
        {"frmLogInOut", "07-operators"},
        {"frmUsers", "07-operators"},
        {"frmPrinters", "09-printing"},
        {"frmCopy", "10-backup"},
        {"frmUpgrade", "10-backup"},
        {"frmHistory", "12-history"},
        {"frmCompare", "13-compare"},
        {"frmTrace", "14-trace"},
        {"frmSettings", "15-settings"},
        {"messageBox", "16-trouble"},
        {"inputBox", "09-printing"},
    };
    const auto found = kChapters.find(window);
    return found == kChapters.end() ? QString() : found->second;
}

std::vector<Manual::Hit> Manual::search(const QString& sought) const
{
    const QStringList words = sought.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    std::vector<Hit> inHeadings, inTexts;
    for (const QString& chapter : chapters()) {
        static const QRegularExpression kHeading(QStringLiteral("^#+ "), QRegularExpression::MultilineOption);
        for (const QString& section : text(chapter).split(kHeading, Qt::SkipEmptyParts)) {
            const QString heading = plain(section.section(u'\n', 0, 0));
            QStringList lines;
            for (const QString& line : section.section(u'\n', 1).split(u'\n'))
                lines << plain(line);
            const QString body = lines.join(u' ').simplified();
            if (holdsAll(heading, words))
                inHeadings.push_back({chapter, heading, excerptOf(body, words.constFirst())});
            else if (holdsAll(heading + u' ' + body, words))
                inTexts.push_back({chapter, heading, excerptOf(body, words.constFirst())});
        }
    }
    inHeadings.insert(inHeadings.end(), inTexts.begin(), inTexts.end());
    return inHeadings;
}

} // namespace dialogs
