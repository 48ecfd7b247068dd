#pragma once

#include <QString>
#include <QStringList>
#include <map>

namespace line {

// Every event that was recorded, and what became of it: it waits in a company's table or beside it, or stands
// in a log file, once.
class Ledger
{
public:
    void clear() { *this = {}; }

    // An event happened, with this company open, or with none (0).
    void recorded(int company, const QString& row) { open_[company] << row; }
    // A row came out in a log file; what is wrong with that.
    QString logged(const QString& row);
    // What a company's table holds, when the program ends: of that, what a file has already may come out
    // again, and what none has may be forgotten, for nobody knows any more. What is lost with the program.
    QStringList ended(const std::map<int, QStringList>& tables);
    // A console opened on an idle line and emptied the table from these rows down to those; what it should
    // have kept.
    QStringList emptied(int company, const QStringList& before, const QStringList& left);

    // Whether an event is recorded and not yet in a file.
    bool isOpen(const QString& row) const;
    // Rows that no log file has: of a company with those that no company took.
    QStringList open(int company) const;

    // Something stood in the way: rows may wait beside the table, or stay in it behind their lines.
    bool disturbed = false;

private:
    std::map<int, QStringList> open_;
    std::map<int, QStringList> mayRepeat_; // in the table of a company from a program that has ended
    std::map<int, QStringList> mayGo_;     // the same, without a line
};

} // namespace line
