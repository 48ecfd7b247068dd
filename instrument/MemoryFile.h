#pragma once

#include "instrument/Plant.h"

#include <QString>

namespace instrument {

// The readable form of plants and their memories. UTF-8; a line whose first sign is "#" is a comment.
//
//   [plant 1]
//   phone 0211 234567
//   call 3600 : <Plant 1><Unit 2><Alarm A> | <Plant 1><End of report>
//   [instrument 00]
//   bank 82 87 16 4 : 2C 01 FF FF
//   eeprom 69 : FF FF ... 256 of them
//
// A bank tells its read command, its write command ("-": none), its first address and its size, decimal; then
// its bytes, hexadecimal, which go on in lines that begin with a blank. A call tells the seconds after the
// start (see reportFromText for the rest).

// Both throw LoadError. `name` is the file that errors are told under.
Plants loadMemoryFile(const QString& path);
Plants plantsFromText(const QString& text, const QString& name);

QString textFromPlants(const Plants& plants);

// Replaces the file as a whole or leaves it as it was. Throws LoadError.
void saveMemoryFile(const Plants& plants, const QString& path);

} // namespace instrument
