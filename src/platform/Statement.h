#pragma once

#include <QByteArrayView>
#include <QString>
#include <memory>
#include <optional>

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

    // Gives a "?" of the statement its value, by its place from 1; NULL is none. reset() keeps them.
    void bind(int place, qint64 value);
    void bind(int place, const std::optional<QString>& text);
    // Back before the first row, for another run.
    void reset();

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
    void require(int outcome) const;

    const Connection& connection_;
    QString sql_;
    PreparedStatement prepared_;
};

} // namespace platform
