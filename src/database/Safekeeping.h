#pragma once

#include "database/FileCopy.h"

#include <QObject>
#include <QString>
#include <optional>

namespace platform {
class Clock;
class Operator;
} // namespace platform
namespace session {
struct Session;
class Texts;
} // namespace session

namespace database {

class Database;
struct ChosenPath;

// The commands that keep a company safe as one file: a backup is a copy of it with the connection closed, a
// restore the copy in the other direction.
class Safekeeping : public QObject
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        const platform::Clock& clock;
        Database& database;
    };

    explicit Safekeeping(const Surroundings& surroundings);

    void Backup_Database();
    void Restore_Database();
    // An existing target is replaced, whole or not at all. Nobody may have either of the two open.
    bool Copy_Database(const QString& sourceFolder, const QString& sourceName, const QString& targetFolder,
                       const QString& targetName, const CopyOptions& options = {});

signals:
    void copyProgress(int percent); // frmCopy's

private:
    std::optional<ChosenPath> askBackupTarget();
    std::optional<ChosenPath> askRestoreSource();
    std::optional<ChosenPath> askRestoreTarget(const QString& sourceName);
    bool isCompany(const ChosenPath& file);
    void checkBackup(const QString& file, const ChosenPath& target, const QString& company) const;
    void connectRestored(const QString& kept);
    void forget(const QString& kept) const;
    QString keptName(const ChosenPath& target) const;
    void refuse(const QString& words);

    Surroundings with_;
};

// The folder of backups; the data folder when it is gone.
void checkBackupFolder(session::Session& session);

} // namespace database
