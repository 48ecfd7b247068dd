#pragma once

#include "database/FileCommands.h"

#include <QObject>
#include <QString>

namespace database {

// Carries the open company to the catalogue of the present model: its tables go into a copy of the model,
// which takes its place. Its window is frmUpgrade.
class CompanyUpgrade : public QObject
{
    Q_OBJECT

public:
    explicit CompanyUpgrade(const FileCommands& with) : with_(with) {}

    void Upgrade_Database();

    // The window's two buttons; each ends with finished().
    void cmdUpgrade_Click();
    void cmdCancel_Click();

signals:
    void operationChanged(const QString& operation); // lblOperation
    void tableChanged(const QString& table);         // lblTable
    void progress(int percent);                      // prgUpgrade
    void copyProgress(int percent);                  // of the copy under way
    void animated(bool on);                          // anmUpgrade
    void working();                                  // in the midst of a table, again and again
    void finished();                                 // the window closes

private:
    bool Upgrade();
    void copyModel();
    void moveTables();
    void copyToSafety(const QString& safety);
    void takePlace();
    void begin(int text, int percent, const QString& name = {});
    void copy(const QString& source, const QString& target);
    QString copyOfModel() const;
    bool isAllowed();

    const FileCommands with_;
    bool dialogOk_ = false; // the window was left by its upgrade
};

} // namespace database
