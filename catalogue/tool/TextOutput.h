#pragma once

#include <QString>

namespace catalogue {

// Replaces a file by this text, UTF-8, in one go; throws std::runtime_error, and leaves the file, when it
// cannot.
void writeText(const QString& target, const QString& text);

} // namespace catalogue
