#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

namespace database {

class Database;

// What the commands that replace a company's file work with. All of it is the caller's.
struct FileCommands
{
    session::Session& session;
    const session::Texts& texts;
    platform::Operator& op;
    const platform::Clock& clock;
    Database& database;
};

} // namespace database
