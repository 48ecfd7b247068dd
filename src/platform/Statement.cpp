#include "platform/Statement.h"

#include "platform/Connection.h"

#include <cstring>
#include <sqlite3.h>

namespace platform {

void FinalizeStatement::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(const Connection& connection, const QString& sql)
    : connection_(connection), sql_(sql), prepared_(connection.prepare(sql))
{
}

Statement::~Statement()
{
    if (prepared_ && sqlite3_reset(prepared_.get()) == SQLITE_OK)
        connection_.keep(sql_, std::move(prepared_));
}

bool Statement::step()
{
    const int outcome = sqlite3_step(prepared_.get());
    if (outcome != SQLITE_ROW && outcome != SQLITE_DONE)
        connection_.failAs(outcome);
    return outcome == SQLITE_ROW;
}

int Statement::columnCount() const
{
    return sqlite3_column_count(prepared_.get());
}

// The engine names some columns of parenthesised joins "IDGrp:1"; the field is "IDGrp".
QString Statement::columnName(int column) const
{
    const char* name = sqlite3_column_name(prepared_.get(), column);
    return QString::fromUtf8(name, qsizetype(std::strcspn(name, ":")));
}

QVariant Statement::value(int column) const
{
    sqlite3_stmt* const row = prepared_.get();
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return QVariant(qlonglong(sqlite3_column_int64(row, column)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(row, column));
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
        return QVariant(QString::fromUtf8(text, sqlite3_column_bytes(row, column)));
    }
    }
}

} // namespace platform
