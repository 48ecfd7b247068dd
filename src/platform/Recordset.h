#pragma once

#include "platform/Statement.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <string>
#include <vector>

namespace platform {

class Connection;

// The rows of one statement, walked with a cursor.
//
// All rows are read when it opens and the statement is finished at once: the walked table may change under
// it, the file may be closed, and nothing outlives the connection. A NULL field is a null QVariant.
class Recordset
{
public:
    enum State
    {
        Closed = 0,
        Opened = 1
    };

    // Fails with the engine's words; a recordset that is open already fails too.
    void Open(const QString& sql, const Connection& connection);
    void Close();
    int State() const { return state_; }

    bool Eof() const { return current_ >= RecordCount(); }
    bool Bof() const { return current_ < 0 || RecordCount() == 0; }
    int RecordCount() const { return filtered_ ? int(filtered_->size()) : rowCount_; }

    // Walking past either end stands on it; moving on from there fails.
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();

    // Moves to the first row, from the current one on, whose column holds the value (no case); stands at the
    // end when there is none. One hash a column, no walk.
    void Find(const QString& column, const QString& value);

    // Shows only the rows whose column holds the value, whatever was shown before, and moves to the first of
    // them.
    void Filter(const QString& column, const QString& value);

    QStringList fieldNames() const { return names_; }
    bool hasField(const QString& name) const;
    // The field of the current record, by name without regard to case. No such field or no record fails.
    QVariant operator[](const QString& name) const;
    // The same by position, for a statement whose columns nobody knows.
    QVariant field(int column) const;
    QString text(const QString& name) const;                        // NULL is the empty text
    std::optional<QString> optionalText(const QString& name) const; // NULL is none
    int number(const QString& name) const { return (*this)[name].toInt(); }

private:
    // A field as the engine gave it. The texts of all lie one behind the other in texts_: thousands of rows
    // are a few blocks of memory.
    struct Cell
    {
        Statement::Kind kind;
        qint32 length; // of a text
        union {
            qint64 integer;
            double real;
            std::size_t begin;
        };
    };

    Cell read(const Statement& row, int column);
    int columnOf(const QString& name) const;
    // The rows whose column holds the value, in their order, whatever the filter.
    const std::vector<int>& rowsWith(const QString& column, const QString& value);
    int rowAt(int place) const { return filtered_ ? (*filtered_)[std::size_t(place)] : place; }
    const Cell& cell(int row, int column) const { return cells_[std::size_t(row) * names_.size() + column]; }
    const Cell& current(int column) const; // of the record on which the cursor stands
    QString textOf(const Cell& cell) const;
    QVariant valueOf(const Cell& cell) const;

    int state_ = Closed;
    int rowCount_ = 0;
    int current_ = 0; // place among the rows shown
    std::optional<std::vector<int>> filtered_;
    QStringList names_;
    std::vector<Cell> cells_;
    std::string texts_;
    QHash<int, QHash<QString, std::vector<int>>> rowsByValue_;
};

} // namespace platform
