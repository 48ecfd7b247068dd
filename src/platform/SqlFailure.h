#pragma once

#include <QString>

namespace SQLite {
class Exception;
}

namespace platform {

// Turns the engine's exception into a RuntimeError: the engine's words, and the file that it speaks of.
[[noreturn]] void failWithSql(const SQLite::Exception& exception, const QString& path);

} // namespace platform
