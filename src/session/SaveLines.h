#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace session {

// Asks for a file and writes a list into it, UTF-8 with its mark; true when it stands. The lines have their
// ends. A cancel is told, any other failure comes out as RuntimeError.
bool saveLines(Session& session, const Texts& texts, platform::Operator& op, const QString& filter,
               const QList<QByteArray>& lines);

} // namespace session
