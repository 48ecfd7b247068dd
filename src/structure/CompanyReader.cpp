#include "structure/CompanyReader.h"

#include "platform/SqlFailure.h"

#include <QFile>
#include <cstdint>
#include <limits>

namespace structure {

namespace {

constexpr int kBusyMilliseconds = 2000;

SQLite::Database opened(const QString& file)
{
    try {
        return SQLite::Database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READONLY,
                                kBusyMilliseconds);
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file);
    }
}

// The next slice begins above the key of the row on which this one stands.
void beginAbove(SQLite::Statement& next, int keyColumns, SQLite::Statement& row)
{
    for (int column = 0; column < keyColumns; ++column) {
        const SQLite::Column key = row.getColumn(column);
        if (key.isInteger())
            next.bind(column + 1, key.getInt64());
        else
            next.bind(column + 1, key.getString());
    }
}

} // namespace

CompanyReader::CompanyReader(const QString& file) : file_(file), database_(opened(file)) {}

void CompanyReader::eachRow(const QString& sql, const Row& take)
{
    try {
        SQLite::Statement statement(database_, sql.toStdString());
        while (statement.executeStep())
            take(statement);
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file_);
    }
}

void CompanyReader::eachRowInSlices(const QString& sql, int keyColumns, const StopFlag& stop, const Row& take)
{
    try {
        // Two runs of the statement: the keys of the one that ends are bound to the one that begins.
        SQLite::Statement one(database_, sql.toStdString());
        SQLite::Statement other(database_, sql.toStdString());
        SQLite::Statement *slice = &one, *next = &other;
        for (int column = 1; column <= keyColumns; ++column)
            slice->bind(column, std::numeric_limits<std::int64_t>::min());
        for (int rows = kRowsInSlice; rows == kRowsInSlice && !stop; std::swap(slice, next)) {
            slice->bind(keyColumns + 1, kRowsInSlice);
            for (rows = 0; slice->executeStep(); ++rows) {
                take(*slice);
                if (rows + 1 == kRowsInSlice)
                    beginAbove(*next, keyColumns, *slice);
            }
            slice->reset();
        }
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file_);
    }
}

std::string_view bytesOf(SQLite::Statement& row, int column)
{
    const SQLite::Column value = row.getColumn(column);
    const char* text = value.getText();
    return {text, std::size_t(value.getBytes())};
}

QString textOf(SQLite::Statement& row, int column)
{
    const std::string_view bytes = bytesOf(row, column);
    return QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
}

std::optional<QString> textOrNull(SQLite::Statement& row, int column)
{
    return row.isColumnNull(column) ? std::nullopt : std::optional(textOf(row, column));
}

} // namespace structure
