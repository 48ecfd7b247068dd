#pragma once

#include "database/FileCommands.h"
#include "database/FileCopy.h"

#include <QObject>
#include <QString>
#include <optional>

namespace database {

struct ChosenPath;

// The commands that keep a company safe as one file: a backup is a copy of it with the connection closed, a
// restore the copy in the other direction.
class Safekeeping : public QObject
{
    Q_OBJECT

public:
    explicit Safekeeping(const FileCommands& with) : with_(with) {}

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
    QString keptName(const ChosenPath& target) const;
    void refuse(const QString& words);

    const FileCommands with_;
};

// The folder of backups; the data folder when it is gone.
void checkBackupFolder(session::Session& session);

} // namespace database
