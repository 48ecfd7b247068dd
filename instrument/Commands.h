#pragma once

#include "instrument/VirtualInstrument.h"

#include <QString>
#include <QStringList>

namespace instrument {

// The commands that steer a virtual instrument while it runs, one a line; each is answered in one line that
// begins with "ok" or "error".
//
//   fail <name> [<amount>] [<count>]   switch a failure on; without a count for good
//   fail none | fail <name> off        switch all failures, or one, off
//   call [<blocks>]                    call in with a report, see reportFromText
//   hangup                             break the connection off
//   link auto|modem|cable              become another kind of link
//   peek <group> <address> <read command> <from> <count>
//   poke <group> <address> <read command> <from> <hex bytes>
//   save <file>                        write plants and memories as a memory file
//   status                             what has been seen of the line
//   quit
class Commands
{
public:
    explicit Commands(VirtualInstrument& instrument) : instrument_(instrument) {}

    QString execute(const QString& line, qint64 nowMs);

    bool quitAsked() const { return quitAsked_; }

private:
    QString fail(const QStringList& words);
    QString call(const QString& text, qint64 nowMs);
    QString link(const QStringList& words);
    QString peek(const QStringList& words);
    QString poke(const QStringList& words);
    QString save(const QString& path);
    QString status() const;
    Memory* memoryOf(const QString& group, const QString& address);

    VirtualInstrument& instrument_;
    bool quitAsked_ = false;
};

// "auto", "modem" or "cable"; nothing for any other word.
std::optional<LinkMode> linkModeFromName(const QString& name);

} // namespace instrument
