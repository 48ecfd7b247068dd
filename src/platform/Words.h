#pragma once

#include "platform/RuntimeError.h"

#include <QStringList>
#include <functional>

namespace platform {

// A text in the operator's language by its name ("file.locked").
using Words = std::function<QString(const QString& name)>;

// Gives the failures that arise down here, where no language is known, their words. Returns the former ones,
// so that a test can put them back. Without any a failure tells the name and its values.
Words setWords(Words words);

// The text of that name, its places %1 and %2 filled with the values.
QString inWords(const char* name, const QStringList& values = {});

[[noreturn]] void failInWords(int number, const char* name, const QStringList& values = {});

} // namespace platform
