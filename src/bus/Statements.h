#pragma once

#include <QString>

namespace bus {

// The program's whole view of a parameter on the bus: a record of these statements holds everything that a
// frame needs. The ids are texts of a node key, "" where the key doesn't reach.

// "AND (...)" pieces for the ids that are there, closing the WHERE.
QString operationFilter(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp,
                        const QString& IDPar);
// All parameters of one bank of one instrument.
QString bankFilter(const QString& IDGrp, const QString& IDInst, const QString& bank);

// One record a parameter, by instrument, parameter group and parameter.
QString parameterStatement(const QString& languageCode, const QString& filter);
// The same for the parameters that are marked as changed, with the EEPROM command and address.
QString writeStatement(const QString& languageCode, const QString& filter);
// One record a memory bank in use by each instrument; mAddr and mSize are the bank's.
QString bankStatement(const QString& languageCode, const QString& filter);

} // namespace bus
