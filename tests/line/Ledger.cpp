#include "line/Ledger.h"

namespace line {

namespace {

// The same row may stand twice on either side.
QStringList without(QStringList rows, const QStringList& taken)
{
    for (const QString& row : taken)
        rows.removeOne(row);
    return rows;
}

} // namespace

QString Ledger::logged(const QString& row)
{
    for (auto* where : {&open_, &mayRepeat_})
        for (auto& [company, rows] : *where)
            if (rows.removeOne(row))
                return {};
    return "a log file has a row that was never recorded, or has it twice: " + row;
}

QStringList Ledger::ended(const std::map<int, QStringList>& tables)
{
    QStringList kept;
    std::map<int, QStringList> stay;
    for (auto& [company, rows] : open_)
        kept << rows;
    for (const auto& [company, table] : tables) {
        mayRepeat_[company] = without(table, kept);
        stay[company] = mayGo_[company] = without(table, mayRepeat_[company]);
        kept = without(kept, stay[company]);
    }
    open_ = stay;
    return kept;
}

QStringList Ledger::emptied(int company, const QStringList& before, const QStringList& left)
{
    QStringList missed;
    for (const QString& row : without(before, left))
        if (open_[company].removeOne(row) && !mayGo_[company].removeOne(row))
            missed << row;
    return missed;
}

bool Ledger::isOpen(const QString& row) const
{
    return std::any_of(open_.begin(), open_.end(),
                       [&](const auto& rows) { return rows.second.contains(row); });
}

QStringList Ledger::open(int company) const
{
    QStringList rows;
    for (const auto& [which, waiting] : open_)
        if (which == 0 || which == company)
            rows << waiting;
    return rows;
}

} // namespace line
