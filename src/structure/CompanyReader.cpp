#include "structure/CompanyReader.h"

#include "platform/SqlFailure.h"

#include <QFile>
#include <algorithm>
#include <vector>

namespace structure {

namespace {

constexpr int kBusyMilliseconds = 2000;
constexpr std::size_t kGroupsInSlice = 20;

SQLite::Database opened(const QString& file)
{
    try {
        return SQLite::Database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READONLY,
                                kBusyMilliseconds);
    } catch (const SQLite::Exception& exception) {
        platform::failWithSql(exception, file);
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

void CompanyReader::eachRowOfPlant(const QString& sql, const StopFlag& stop, const Row& take)
{
    std::vector<int> groups;
    eachRow(QStringLiteral("SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp;"),
            [&](SQLite::Statement& row) { groups.push_back(row.getColumn(0).getInt()); });
    try {
        SQLite::Statement statement(database_, sql.toStdString());
        for (std::size_t first = 0; first < groups.size() && !stop; first += kGroupsInSlice) {
            statement.bind(1, groups[first]);
            statement.bind(2, groups[std::min(first + kGroupsInSlice, groups.size()) - 1]);
            while (statement.executeStep())
                take(statement);
            statement.reset();
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

} // namespace structure
