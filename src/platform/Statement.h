#pragma once

#include <QString>
#include <QVariant>
#include <memory>

struct sqlite3_stmt;

namespace platform {

class Connection;

struct FinalizeStatement
{
    void operator()(sqlite3_stmt* statement) const;
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// One run of a statement, row by row. At its end the connection keeps the statement prepared: a look-up that
// is repeated word for word costs its run alone. Every failure is a RuntimeError with the engine's words.
class Statement
{
public:
    Statement(const Connection& connection, const QString& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // On to the next row; false when there is none.
    bool step();

    // Of the row, and after a step() that gave none: a change of the tables shows in them too.
    int columnCount() const;
    QString columnName(int column) const;
    QVariant value(int column) const;

private:
    const Connection& connection_;
    QString sql_;
    PreparedStatement prepared_;
};

} // namespace platform
