#pragma once

#include "exchange/DataTrace.h"
#include "platform/Statement.h"

namespace exchange {

// The rows of a new group, line by line. Instruments are numbered afresh, and a parameter belongs to the
// instrument above it. What the company can't take fails.
class ImportRows
{
public:
    ImportRows(const platform::Connection& company, int newGrp);

    void add(const TraceLine& line);

private:
    void run(platform::Statement& statement);

    qint64 newGrp_;
    qint64 newInst_ = 0;
    platform::Statement group_, instrument_, parameter_;
};

} // namespace exchange
