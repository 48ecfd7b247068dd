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
    if (!prepared_ || sqlite3_reset(prepared_.get()) != SQLITE_OK)
        return;
    sqlite3_clear_bindings(prepared_.get());
    connection_.keep(sql_, std::move(prepared_));
}

void Statement::bind(int place, qint64 value)
{
    require(sqlite3_bind_int64(prepared_.get(), place, value));
}

void Statement::bind(int place, const std::optional<QString>& text)
{
    if (!text) {
        require(sqlite3_bind_null(prepared_.get(), place));
        return;
    }
    const QByteArray utf8 = text->toUtf8();
    require(sqlite3_bind_text64(prepared_.get(), place, utf8.constData(), sqlite3_uint64(utf8.size()),
                                SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::reset()
{
    sqlite3_reset(prepared_.get()); // a run that failed has told so at its step
}

void Statement::require(int outcome) const
{
    if (outcome != SQLITE_OK)
        connection_.failAs(outcome);
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

Statement::Kind Statement::kind(int column) const
{
    switch (sqlite3_column_type(prepared_.get(), column)) {
    case SQLITE_NULL:
        return Kind::Null;
    case SQLITE_INTEGER:
        return Kind::Integer;
    case SQLITE_FLOAT:
        return Kind::Real;
    default:
        return Kind::Text;
    }
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(prepared_.get(), column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(prepared_.get(), column);
}

QByteArrayView Statement::text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared_.get(), column));
    return {text, qsizetype(sqlite3_column_bytes(prepared_.get(), column))};
}

} // namespace platform
