#pragma once

#include <QString>

namespace widgets {

// Gives what Qt itself says (the file dialog, its question before a file is replaced, the menu of a text
// field) the words of a language: "IT", "RU"; any other code leaves its own English.
void setToolkitLanguage(const QString& code);

} // namespace widgets
