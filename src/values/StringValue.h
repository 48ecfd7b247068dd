#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace values {

// The value of a STRING parameter between an instrument's bytes and the text in the database. With the
// language code "RU" the bytes are translated from and to the instruments' character set and stand for code
// page 1251; with any other they go through as they are and stand for `codePage`, the machine's own.

// Trailing blanks are padding and go; blanks alone give the empty text.
QString decodeString(const QByteArray& raw, const QString& languageCode, int codePage);

// Padded with blanks to `size` bytes; NULL (none) is all blanks. A text longer than `size` fails in
// Compose_Str and gives no bytes.
QByteArray encodeString(const std::optional<QString>& value, const QString& languageCode, int codePage,
                        int size);

} // namespace values
