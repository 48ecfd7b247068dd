#pragma once

#include "platform/ChangeWatcher.h"

#include <QString>
#include <optional>

namespace values {

// Why a stored value or its mark became another one. The numbers stand in the file of the value history.
enum class ValueCause
{
    Unknown = 0,
    Read = 1,         // from the instrument
    Edited = 2,       // in the property dialog
    Copied = 3,       // from another block of the instrument
    Pasted = 4,       // with its group or instrument
    Imported = 5,     // from a data trace
    Synchronised = 6, // the catalogue has grown
    Reset = 7,        // declared equal to the instrument's
    CheckedOk = 8,    // written, and read back as written
    CheckedError = 9, // written, and read back otherwise
    Cleared = 10,     // lost its mark at the end of a write that it had no part in
    Created = 11,     // with a new instrument
    Deleted = 12,     // with its group or instrument
};

// What a read-back showed of one parameter.
struct CheckedValue
{
    int IDGrp;
    int IDInst;
    QString IDPar;
    QString IDParGrp;
    std::optional<QString> value; // that was written
    bool confirmed;
};

// Says for whom the statements run that follow: while it lives, they change values for that cause.
class Causing : platform::Purpose
{
public:
    Causing(platform::Connection& company, ValueCause cause) : Purpose(company, int(cause)) {}
};

} // namespace values
