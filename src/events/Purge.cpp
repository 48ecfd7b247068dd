#include "events/Purge.h"

#include "events/LogFiles.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Words.h"
#include "session/Session.h"

#include <QDir>
#include <algorithm>

namespace events {

using namespace platform;
using namespace session;

namespace {

// Every name closes with fourteen digits and ".log".
constexpr int kTailLength = 18;
constexpr int kDateLength = 8;

// The window that shows the files, closed again on every way out.
class ShownFiles
{
public:
    explicit ShownFiles(Operator& op) : operator_(op)
    {
        operator_.showForm(kForm);
        operator_.repaint();
    }
    ~ShownFiles() { operator_.unloadForm(kForm); }
    ShownFiles(const ShownFiles&) = delete;
    ShownFiles& operator=(const ShownFiles&) = delete;

private:
    const QString kForm = QStringLiteral("frmReadLogFiles");
    Operator& operator_;
};

QDate dateIn(const QString& name)
{
    const QString digits = name.right(kTailLength).left(kDateLength);
    const bool allDigits =
        name.size() >= kTailLength && std::all_of(digits.begin(), digits.end(), [](QChar c) {
            return c >= QLatin1Char('0') && c <= QLatin1Char('9');
        });
    const QDate date = allDigits ? QDate::fromString(digits, QStringLiteral("yyyyMMdd")) : QDate();
    if (!date.isValid())
        failInWords(errors::kTypeMismatch, "log.nodate", {name});
    return date;
}

void deleteFile(const QString& path)
{
    QFile file(path);
    if (!file.remove())
        fail(file.exists() ? errors::kPermissionDenied : errors::kFileNotFound,
             QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), file.errorString()));
}

} // namespace

LogPurge::LogPurge(const Session& session, Operator& op, const Clock& clock)
    : session_(session), operator_(op), clock_(clock)
{
}

void LogPurge::Delete_Log(bool Enabled, bool All)
{
    if (!Enabled)
        return;
    guarded("Module/Delete_Log", [&] {
        BusyPointer busy(operator_);
        ShownFiles shown(operator_);
        visit(logFilesIn(session_.appFile(QStringLiteral("Log"))), All);
    });
}

void LogPurge::visit(const QStringList& names, bool All)
{
    const qsizetype count = names.size();
    for (qsizetype index = 0; index < count; ++index) {
        const QString& name = names[index];
        if (onFile)
            onFile(int((index + 1) * 100 / count),
                   QStringLiteral("(%1/%2) ").arg(index + 1).arg(count) + name);
        if (!isOwnLog(name, session_.ExeName))
            continue;
        if (All || (hasExpired(name) && wanted(name)))
            deleteFile(session_.appFile(QStringLiteral("Log/") + name));
    }
}

bool LogPurge::hasExpired(const QString& name) const
{
    return dateIn(name).daysTo(clock_.now().date()) > session_.LogSet.LogDays;
}

bool LogPurge::wanted(const QString& name) const
{
    const bool report = name.contains(QLatin1String("Error"));
    return (report ? session_.LogSet.DelLogRuntimeErr : session_.LogSet.DelLogInstErr) != 0;
}

} // namespace events
