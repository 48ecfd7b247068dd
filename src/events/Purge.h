#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QStringList>
#include <functional>

namespace events {

// The deleting of old log files and failure reports. While it works "frmReadLogFiles" stands open and shows
// each file in turn.
class LogPurge
{
public:
    LogPurge(const session::Session& session, platform::Operator& op, const platform::Clock& clock);

    // Without `All`: the files older than LogDays, each kind only when its own flag is set. With `All`: every
    // log file and report of this program, whatever the flags. Files of other names stay untouched.
    void Delete_Log(bool Enabled, bool All);

    // Each file before it is looked at: the percentage done, and "(n/count) name".
    std::function<void(int percent, const QString& shown)> onFile;

private:
    void visit(const QStringList& names, bool All);
    bool hasExpired(const QString& name) const;
    bool wanted(const QString& name) const;

    const session::Session& session_;
    platform::Operator& operator_;
    const platform::Clock& clock_;
};

} // namespace events
