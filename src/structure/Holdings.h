#pragma once

#include "session/Forward.h"

#include <QString>

namespace structure {

// What stands below an element of the plant, itself included when it is a parameter.
struct Holdings
{
    int instruments = 0;
    int parameters = 0;
    int changed = 0; // of the parameters: changed here and not yet written
};

Holdings holdingsOf(const session::Session& session, const QString& key);

// What a question about an element tells of it: its name, what it holds, and what is not yet written.
QString toldOf(const session::Session& session, const session::Texts& texts, const QString& key,
               const QString& name);

} // namespace structure
