#pragma once

#include "catalogue/tool/Catalogue.h"

#include <QByteArray>

namespace catalogue {

// How an instrument's memory holds the values of a parameter: the catalogue's own reading of it, kept apart
// from the program's, so that each can be checked against the other. A raw value is the number of counts on
// the wire.

// The counts that the bytes of this parameter can hold, first and last.
std::pair<int, int> rawRange(const Parameter& parameter);

// The engineering value of a count, on the parameter's scale, as it reads back from 15 significant digits.
double engineering(const Parameter& parameter, int raw);

// The value as text: a number, or a time for the TIME keys. Up to 15 significant digits.
QString valueText(const Parameter& parameter, int raw);

// The count whose text this is; none when the text isn't on the scale. Not for STRING.
std::optional<int> rawOf(const Parameter& parameter, const QString& value);

// The bytes of a count, as they lie in the bank. Of a bit field: a byte with the field in its place and zeros
// around it.
QByteArray bytesOf(const Parameter& parameter, int raw);

// The text that the bytes decode to; none when a limit rejects it. A text loses its trailing blanks.
std::optional<QString> decoded(const Parameter& parameter, const QByteArray& bytes);

// The wire types that can be written to an instrument under this key.
bool hasEncoder(const Parameter& parameter);

} // namespace catalogue
