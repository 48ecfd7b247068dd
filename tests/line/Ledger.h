#pragma once

#include <QString>
#include <QStringList>
#include <map>

namespace line {

// Every event that was recorded, and where it is: in a company's table, or in a log file, once.
class Ledger
{
public:
    void clear();

    // A row came into a company's table; it counts when its transaction stands.
    void recorded(int company, const QString& row) { staged_.emplace_back(company, row); }
    void committed();
    void rolledBack() { staged_.clear(); }
    // An alarm whose block was answered.
    void owe(const QString& row) { owed_ << row; }
    // The table of a company was emptied without a log file, as is meant when a console opens on an idle
    // line.
    void dropped(int company) { open_[company].clear(); }
    // A row came out in a log file; what is wrong with that.
    QString logged(const QString& row);

    // Rows of a company that no log file has; what the table holds must be these.
    int open(int company) const;
    const QStringList& owed() const { return owed_; }
    bool isOpen(const QString& row) const;
    const QStringList& lines() const { return lines_; }
    // With no company open, or none that takes it, a row waits outside of any table.
    bool keptOutside = false;
    bool logWasGone = false;

private:
    std::vector<std::pair<int, QString>> staged_;
    std::map<int, QStringList> open_;
    QStringList owed_;
    QStringList lines_;
};

} // namespace line
