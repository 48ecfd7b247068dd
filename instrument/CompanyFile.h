#pragma once

#include "instrument/Plant.h"

#include <QStringList>

namespace instrument {

struct CompanyOptions
{
    // Numbers in the memories near to those of the company, but not the same, as in a plant that has been
    // running: the same ones at every load. Choices, times and texts stay as they are.
    bool drift = false;
};

struct Company
{
    Plants plants;        // one for each group
    QStringList warnings; // what the catalogue or a value made impossible, and what was done about it
};

// Reads the groups of a company file and fills the memories of their instruments with the values that the
// company knows. A parameter with an EEPROM command stands in both places. The file is opened for reading
// only and closed again. Throws LoadError when the file is no company.
Company loadCompanyFile(const QString& path, const CompanyOptions& options = {});

} // namespace instrument
