#pragma once

#include "catalogue/tool/Catalogue.h"
#include "catalogue/tool/Demo.h"

namespace catalogue {

// Writes what the instruments of a demo company hold, for the virtual instrument; whatever an operator has
// added to it or changed since is part of it. Readings lie near what the
// company has, settings mostly equal it; what is changed in the company and not yet written still has its
// standard value here, what is not known there is known here, and what the demo says an instrument "holds",
// it holds.
//   [plant 1]
//   phone <number>
//   call <seconds> : <its report>
//   [instrument 00]
//   bank <read command> <write command> <first address> <size> : <bytes in hexadecimal>
//    <more bytes>
//   eeprom <write command> : <256 bytes>
void writeMemory(const Demo& demo, const Catalogue& catalogue, const QString& company, const QString& target);

} // namespace catalogue
