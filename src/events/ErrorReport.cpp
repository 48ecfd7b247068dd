#include "events/ErrorReport.h"

#include "events/SystemInfo.h"
#include "platform/Clock.h"
#include "platform/Machine.h"
#include "platform/OneAtATime.h"
#include "platform/Operator.h"
#include "platform/TextFile.h"
#include "session/Session.h"
#include "values/NumberMask.h"

#include <QDir>
#include <QStringList>
#include <optional>

namespace events {

using namespace platform;
using namespace session;

namespace {

constexpr double kBytesInKb = 1024;

QString grouped(qint64 number)
{
    return values::formatMask(QString::number(number), QStringLiteral("#,##0"));
}

// A folder on a network share has no drive of its own.
bool liesOnShare(const QString& path)
{
    return path.startsWith(QLatin1Char('\\')) || path.startsWith(QLatin1String("//"));
}

// The disk under a folder; none on a network share.
std::optional<FileSystem> diskOf(const Machine& machine, const QString& folder)
{
    if (folder.isEmpty() || liesOnShare(folder))
        return std::nullopt;
    return machine.fileSystemOf(folder);
}

QString diskLine(const FileSystem& disk)
{
    return QStringLiteral("Spazio disponibile sull'unità %1 %2 KB di %3 KB")
        .arg(QDir::toNativeSeparators(disk.mountPoint), grouped(qRound64(disk.free / kBytesInKb)),
             grouped(qRound64(disk.total / kBytesInKb)));
}

} // namespace

ErrorReport::ErrorReport(const Session& session, const Clock& clock, const Machine& machine)
    : session_(session), clock_(clock), machine_(machine)
{
}

void ErrorReport::Report_RuntimeError(int Number, const QString& Description,
                                      const QString& Procedure) const noexcept
{
    try {
        TextWriter file(fileName(), session_.CodePage);
        for (const QString& line : lines(Number, Description, Procedure))
            file.WriteLine(line);
        file.commit();
    } catch (...) {
        // A failure of the report costs the report and nothing else.
    }
}

QString ErrorReport::fileName() const
{
    const QString second = clock_.now().toString(QStringLiteral("yyyyMMddHHmmss"));
    return session_.appFile(QStringLiteral("Log/%1_Error_%2.log").arg(session_.ExeName, second));
}

QStringList ErrorReport::lines(int Number, const QString& Description, const QString& Procedure) const
{
    QStringList lines;
    addError(lines, Number, Description, Procedure);
    addProgram(lines);
    addSystem(lines);
    addCompany(lines);
    addUser(lines);
    return lines;
}

void ErrorReport::addError(QStringList& lines, int Number, const QString& Description,
                           const QString& Procedure) const
{
    lines << QStringLiteral("---------------< Informazioni Errore >---------------")
          << QStringLiteral("Errore N°: ") + QString::number(Number)
          << QStringLiteral("Descrizione: ") + Description
          << QStringLiteral("Nome della funzione che ha generato l'errore: ") + Procedure << QString();
}

void ErrorReport::addProgram(QStringList& lines) const
{
    lines << QStringLiteral("---------------< Informazioni %1 >---------------").arg(session_.ExeName)
          << QStringLiteral("Versione programma: " CALIDORA_VERSION)
          << QStringLiteral("Percorso installazione: ") + QDir::toNativeSeparators(session_.AppPath)
          << QString();
}

void ErrorReport::addSystem(QStringList& lines) const
{
    const cSystemInfo system(machine_);
    lines << QStringLiteral("---------------< Informazioni Sistema >---------------")
          << QStringLiteral("Sistema operativo: %1  ver. %2").arg(system.osName(), system.osVersion())
          << QStringLiteral("CPU: ") + system.cpuName()
          << QStringLiteral("RAM totale: %1 KB").arg(grouped(system.totalPhysicalMemory()))
          << QStringLiteral("RAM libera: %1KB").arg(grouped(system.availablePhysicalMemory()));
    addDisks(lines);
    lines << QString();
}

void ErrorReport::addDisks(QStringList& lines) const
{
    QString told;
    for (const QString& folder : {session_.AppPath, session_.DbPath}) {
        const auto disk = diskOf(machine_, folder);
        if (!disk || disk->mountPoint == told)
            continue;
        lines << diskLine(*disk);
        told = disk->mountPoint;
    }
}

void ErrorReport::addCompany(QStringList& lines) const
{
    const auto& company = session_.CompanySet;
    const QString file = session_.DbName.isEmpty() ? QString() : QDir::toNativeSeparators(session_.dbFile());
    lines << QStringLiteral("---------------< Informazioni Società >---------------")
          << QStringLiteral("Percorso e nome del database: ") + file
          << QStringLiteral("Versione database: ") + session_.DbVersion << QString()
          << QStringLiteral("Ragione sociale: ") + company[Company]
          << QStringLiteral("Indirizzo: ") + company[Address]
          << QStringLiteral("C.A.P.: ") + company[Postcode]
          << QStringLiteral("Località: ") + company[Locality]
          << QStringLiteral("Nazione: ") + company[Country] << QStringLiteral("Telefono: ") + company[Phone]
          << QStringLiteral("Fax: ") + company[Fax] << QStringLiteral("E-mail: ") + company[EMail]
          << QStringLiteral("Sito WEB: ") + company[WEB]
          << QStringLiteral("Partita I.V.A.: ") + company[VATNumber] << QString();
}

void ErrorReport::addUser(QStringList& lines) const
{
    const UserRecord& user = session_.CurrentUser;
    lines << QStringLiteral("Operatore connesso: ") + user.Name;
    if (user.isAdministrator() || user.IDUser.isEmpty())
        return;
    lines << QStringLiteral("Telefono: ") + user.Phone << QStringLiteral("Fax: ") + user.Fax
          << QStringLiteral("Cellulare: ") + user.MobilePhone << QStringLiteral("E-mail: ") + user.EMail;
}

namespace {

// A box that can't be shown costs the box: the report follows all the same.
void showBox(Operator& op, const QString& description, const QString& title) noexcept
{
    try {
        op.messageBox(description, Buttons::Ok, Icon::Critical, title);
    } catch (...) {
    }
}

} // namespace

void installFailureHook(const Session& session, Operator& op, const Clock& clock, const Machine& machine)
{
    // While a box stands the program goes on, and may fail again.
    setFailureHook(
        oneAtATime([&session, &op, report = ErrorReport(session, clock, machine)](const Failure& failure) {
            if (!failure.silent)
                showBox(op, failure.description, session.AppTitle);
            report.Report_RuntimeError(failure.number, failure.description, failure.procedure);
        }));
}

} // namespace events
