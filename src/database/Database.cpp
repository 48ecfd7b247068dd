#include "database/Database.h"

#include "database/FileChoice.h"
#include "database/FileCopy.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QDir>
#include <QFileInfo>

namespace database {

using platform::guarded;

namespace {

const QString kFilter = QStringLiteral("Access (*.mdb)|*.mdb");

} // namespace

Database::Database(session::Session& session, const session::Texts& texts, platform::Operator& op,
                   structure::Structure& structure)
    : session_(session), texts_(texts), operator_(op), structure_(structure)
{
}

void Database::Open_Database()
{
    guarded("Module/Open_Database", [&] {
        if (!isFree())
            return;
        session_.DbPath = startFolder();
        const auto file = chooseFile(session_, texts_, operator_, [&] {
            return operator_.openFile({texts_(185), kFilter, QString(), session_.DbPath});
        });
        if (file && takeName(*file) && openCompany())
            emit connected();
    });
}

void Database::New_Database()
{
    guarded("Module/New_Database", [&] {
        if (!isFree())
            return;
        session_.DbPath = startFolder();
        const auto file = chooseFile(session_, texts_, operator_, [&] {
            return operator_
                .saveFile({texts_(187), kFilter, session_.AppTitle + QStringLiteral(".mdb"), session_.DbPath})
                .name;
        });
        if (!file || !takeName(*file))
            return;
        if (isModelName(session_.DbName)) {
            session_.DbName.clear();
            return;
        }
        if (isModel(session_.dbFile())) {
            session_.DbName.clear();
            operator_.messageBox(texts_.own(QStringLiteral("model.protected")), platform::Buttons::Ok,
                                 platform::Icon::Exclamation, session_.AppTitle);
            return;
        }
        makeCompany();
        if (openCompany()) {
            emit companyMade();
            emit connected();
        }
    });
}

bool Database::isFree()
{
    if (session_.DbName.isEmpty())
        return true;
    operator_.messageBox(texts_(505), platform::Buttons::Ok, platform::Icon::Exclamation, session_.AppTitle);
    return false;
}

QString Database::startFolder() const
{
    return session::Exist_Path(session_.DbPath) ? session_.DbPath : session_.appFile(QStringLiteral("Data"));
}

// False, with no company named, when folder or name is missing.
bool Database::takeName(const ChosenPath& file)
{
    session_.DbPath = file.folder;
    session_.DbName = file.folder.isEmpty() ? QString() : file.name;
    return !session_.DbName.isEmpty();
}

QString Database::modelFile() const
{
    return session_.appFile(QStringLiteral("Data Model/") + kModelName);
}

bool Database::isModel(const QString& file) const
{
    const QString place = QFileInfo(file).canonicalFilePath();
    return !place.isEmpty() && place == QFileInfo(modelFile()).canonicalFilePath();
}

void Database::makeCompany()
{
    const QString model = modelFile();
    try {
        if (!session::Exist_File(model))
            platform::fail(platform::errors::kFileNotFound,
                           texts_.own(QStringLiteral("model.missing")).arg(QDir::toNativeSeparators(model)));
        copyDatabaseFile(model, session_.dbFile());
    } catch (...) {
        session_.DbName.clear(); // no company stands behind the name
        throw;
    }
}

bool Database::openCompany()
{
    if (Connect_Database(session_.dbFile()))
        return true;
    Disconnect_Database();
    emit connectionLost();
    return false;
}

} // namespace database
