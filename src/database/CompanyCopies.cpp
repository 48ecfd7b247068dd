#include "database/CompanyCopies.h"

#include "session/Session.h"
#include "session/Texts.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace database {

namespace {

const QString kTimeFormat = QStringLiteral("yyyyMMddHHmmss");
const QString kReplaced = QStringLiteral("_replaced");

QString folderOf(const QString& file)
{
    return QFileInfo(file).path();
}

// "<base>_<time>.bak"
QString stamped(const QString& base, const QDateTime& time)
{
    return base + u'_' + timeStamp(time) + QStringLiteral(".bak");
}

QString companyBase(const QString& company)
{
    return baseName(QFileInfo(company).fileName());
}

// The files of a folder that are named so, the oldest first.
QStringList stampedFiles(const QString& folder, const QString& base)
{
    const QRegularExpression name(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(base) + "_\\d{14}\\.bak"));
    const QDir files(folder);
    QStringList found;
    for (const QString& file : files.entryList(QDir::Files, QDir::Name)) {
        if (name.match(file).hasMatch())
            found << files.filePath(file);
    }
    return found;
}

// A menu's caption without the mark of its key.
QString caption(const QString& text)
{
    return QString(text).remove(u'&').remove(QStringLiteral("..."));
}

} // namespace

QString baseName(const QString& companyName)
{
    const qsizetype ending = companyName.indexOf(QLatin1String(".mdb"), 0, Qt::CaseInsensitive);
    return ending < 0 ? companyName : companyName.left(ending);
}

QString timeStamp(const QDateTime& time)
{
    return time.toString(kTimeFormat);
}

QString safetyFolder(const QString& company)
{
    return folderOf(company) + QStringLiteral("/Safety");
}

QString safetyName(const QString& company, const QDateTime& time)
{
    return safetyFolder(company) + u'/' + stamped(companyBase(company), time);
}

QStringList safetyCopies(const QString& company)
{
    return stampedFiles(safetyFolder(company), companyBase(company));
}

QDateTime timeOfSafetyCopy(const QString& copy)
{
    return QDateTime::fromString(QFileInfo(copy).completeBaseName().right(kTimeFormat.size()), kTimeFormat);
}

QString replacedName(const QString& company, const QDateTime& time)
{
    QDateTime at = time;
    const auto name = [&] {
        return folderOf(company) + u'/' + stamped(companyBase(company) + kReplaced, at);
    };
    while (QFile::exists(name()))
        at = at.addSecs(1);
    return name();
}

QString newestCopy(const QString& company, const session::Session& session)
{
    QStringList copies = safetyCopies(company);
    copies << stampedFiles(folderOf(company), companyBase(company) + kReplaced);
    const QString backup = session.DirBackup + u'/' + companyBase(company) + QStringLiteral(".bak");
    if (QFileInfo(backup).isFile())
        copies << backup;
    const auto newest =
        std::max_element(copies.begin(), copies.end(), [](const auto& one, const auto& other) {
            return QFileInfo(one).lastModified() < QFileInfo(other).lastModified();
        });
    return newest == copies.end() ? QString() : *newest;
}

QString adviceFor(const QString& company, const session::Session& session, const session::Texts& texts)
{
    const QString copy = newestCopy(company, session);
    if (copy.isEmpty())
        return texts.own(QStringLiteral("damage.nocopy"));
    const QString command =
        QStringList{caption(texts(135)), caption(texts(136)), caption(texts(138))}.join(" > ");
    return texts.own(QStringLiteral("damage.copy"))
        .arg(QDir::toNativeSeparators(copy), QFileInfo(copy).lastModified().toString("dd/MM/yyyy HH:mm"),
             command);
}

} // namespace database
