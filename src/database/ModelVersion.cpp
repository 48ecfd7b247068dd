#include "database/ModelVersion.h"

#include "database/FileChoice.h"
#include "session/Session.h"

#include <QFile>
#include <QVersionNumber>
#include <SQLiteCpp/SQLiteCpp.h>

namespace database {

namespace {

QString versionOf(const QString& model)
{
    try {
        SQLite::Database engine(QFile::encodeName(model).toStdString(), SQLite::OPEN_READONLY);
        return QString::fromStdString(engine.execAndGet("SELECT Version FROM tbInfoDatabase").getString());
    } catch (const SQLite::Exception&) {
        return {}; // a model that is missing or damaged is told when somebody makes a company of it
    }
}

} // namespace

QString newerModel(const session::Session& session)
{
    if (session.DbName.isEmpty())
        return {};
    const QString installed = versionOf(session.appFile(QStringLiteral("Data Model/") + kModelName));
    const auto company = QVersionNumber::fromString(session.DbVersion);
    const bool newer = !company.isNull() && QVersionNumber::fromString(installed) > company;
    return newer ? installed : QString();
}

} // namespace database
