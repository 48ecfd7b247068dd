#pragma once

#include "structure/CompanyReader.h"

#include <QString>

namespace structure {

// The names above a parameter, read as they are asked for. Whoever asks in the order of the plant asks the
// file once an instrument.
class PlantNames
{
public:
    explicit PlantNames(CompanyReader& company) : company_(company) {}

    struct Names
    {
        QString group, instrument;
    };
    // "" for what is not there any more.
    const Names& above(const QString& IDGrp, const QString& IDInst);

private:
    CompanyReader& company_;
    QString IDGrp_, IDInst_;
    Names names_;
};

} // namespace structure
