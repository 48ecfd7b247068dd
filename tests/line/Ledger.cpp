#include "line/Ledger.h"

namespace line {

void Ledger::clear()
{
    *this = {};
}

void Ledger::committed()
{
    for (const auto& [company, row] : staged_)
        open_[company] << row;
    staged_.clear();
}

QString Ledger::logged(const QString& row)
{
    lines_ << row;
    owed_.removeOne(row);
    for (auto& [company, rows] : open_)
        if (rows.removeOne(row))
            return {};
    if (keptOutside)
        return {};
    return "a log file has a row that was never recorded, or has it twice: " + row;
}

int Ledger::open(int company) const
{
    const auto rows = open_.find(company);
    return rows == open_.end() ? 0 : int(rows->second.size());
}

bool Ledger::isOpen(const QString& row) const
{
    return std::any_of(open_.begin(), open_.end(),
                       [&](const auto& rows) { return rows.second.contains(row); });
}

} // namespace line
