#pragma once

#include <QByteArrayView>
#include <QString>
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
    enum class Kind : qint32
    {
        Null,
        Integer,
        Real,
        Text
    };

    Statement(const Connection& connection, const QString& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // On to the next row; false when there is none.
    bool step();

    // Of the row, and after a step() that gave none: a change of the tables shows in them too.
    int columnCount() const;
    QString columnName(int column) const;

    // A field of the row: its kind, and its content as that kind. A text is UTF-8 and lives until the next
    // step.
    Kind kind(int column) const;
    qint64 integer(int column) const;
    double real(int column) const;
    QByteArrayView text(int column) const;

private:
    const Connection& connection_;
    QString sql_;
    PreparedStatement prepared_;
};

} // namespace platform
