#include "structure/CompanyReader.h"

#include <limits>

namespace structure {

using platform::Statement;

namespace {

// The next slice begins above the key of the row on which this one stands.
void beginAbove(Statement& next, int keyColumns, const Statement& row)
{
    for (int column = 0; column < keyColumns; ++column) {
        if (row.kind(column) == Statement::Kind::Integer)
            next.bind(column + 1, row.integer(column));
        else
            next.bind(column + 1, textOf(row, column));
    }
}

} // namespace

CompanyReader::CompanyReader(const QString& file)
{
    company_.Open(file, platform::Connection::Access::ReadOnly);
}

void CompanyReader::eachRow(const QString& sql, const Row& take)
{
    Statement statement(company_, sql);
    while (statement.step())
        take(statement);
}

void CompanyReader::eachRowInSlices(const QString& sql, int keyColumns, const StopFlag& stop, const Row& take)
{
    // Two runs of the statement: the keys of the one that ends are bound to the one that begins.
    Statement one(company_, sql);
    Statement other(company_, sql);
    Statement *slice = &one, *next = &other;
    for (int column = 1; column <= keyColumns; ++column)
        slice->bind(column, std::numeric_limits<qint64>::min());
    for (int rows = kRowsInSlice; rows == kRowsInSlice && !stop; std::swap(slice, next)) {
        slice->bind(keyColumns + 1, qint64(kRowsInSlice));
        for (rows = 0; slice->step(); ++rows) {
            take(*slice);
            if (rows + 1 == kRowsInSlice)
                beginAbove(*next, keyColumns, *slice);
        }
        slice->reset();
    }
}

std::string_view bytesOf(const Statement& row, int column)
{
    const QByteArrayView text = row.text(column);
    return {text.data(), std::size_t(text.size())};
}

QString textOf(const Statement& row, int column)
{
    return QString::fromUtf8(row.text(column));
}

std::optional<QString> textOrNull(const Statement& row, int column)
{
    return row.kind(column) == Statement::Kind::Null ? std::nullopt : std::optional(textOf(row, column));
}

} // namespace structure
