#include "platform/Recordset.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "platform/SqlFailure.h"

#include <QRegularExpression>
#include <SQLiteCpp/SQLiteCpp.h>
#include <algorithm>
#include <sqlite3.h>

namespace platform {

namespace {

QVariant valueOf(const SQLite::Column& column)
{
    switch (column.getType()) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return QVariant(qlonglong(column.getInt64()));
    case SQLITE_FLOAT:
        return QVariant(column.getDouble());
    default:
        return QVariant(QString::fromUtf8(column.getText(), column.getBytes()));
    }
}

// The engine names some columns of parenthesised joins "IDGrp:1"; the field is "IDGrp".
QString plainName(const char* name)
{
    return QString::fromUtf8(name).section(QLatin1Char(':'), 0, 0);
}

[[noreturn]] void failWithoutRecord()
{
    fail(errors::kNoCurrentRecord,
         QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. "
                        "Requested operation requires a current record."));
}

} // namespace

void Recordset::Open(const QString& sql, const Connection& connection)
{
    if (state_ == Opened)
        fail(errors::kInvalidCall, QStringLiteral("Operation is not allowed when the object is open."));
    SQLite::Database& engine = connection.database();
    try {
        SQLite::Statement statement(engine, sql.toStdString());
        const int columns = statement.getColumnCount();
        for (int i = 0; i < columns; ++i) {
            const QString name = plainName(statement.getColumnName(i));
            names_ << name;
            // As spelt and in small letters: the usual spelling is found at once, any other one too.
            for (const QString& spelling : {name, name.toLower()}) {
                if (!columns_.contains(spelling))
                    columns_.insert(spelling, i);
            }
        }
        while (statement.executeStep()) {
            for (int i = 0; i < columns; ++i)
                cells_.push_back(valueOf(statement.getColumn(i)));
            ++rowCount_;
        }
    } catch (const SQLite::Exception& exception) {
        Close();
        failWithSql(exception, QString::fromStdString(engine.getFilename()));
    }
    current_ = 0;
    state_ = Opened;
}

void Recordset::Close()
{
    *this = Recordset();
}

void Recordset::MoveFirst()
{
    current_ = 0;
}

void Recordset::MoveNext()
{
    if (Eof())
        failWithoutRecord();
    ++current_;
}

void Recordset::MovePrevious()
{
    if (Bof())
        failWithoutRecord();
    --current_;
}

void Recordset::Find(const QString& criterion)
{
    const std::vector<int>& hits = rowsWith(criterion);
    if (!filtered_) {
        const auto hit = std::lower_bound(hits.begin(), hits.end(), current_);
        current_ = hit == hits.end() ? rowCount_ : *hit;
        return;
    }
    current_ = std::max(current_, 0);
    while (!Eof() && !std::binary_search(hits.begin(), hits.end(), rowAt(current_)))
        ++current_;
}

void Recordset::Filter(const QString& criterion)
{
    if (criterion.isEmpty())
        filtered_.reset();
    else
        filtered_ = rowsWith(criterion);
    current_ = 0;
}

const std::vector<int>& Recordset::rowsWith(const QString& criterion)
{
    static const QRegularExpression kForm(QStringLiteral("^\\s*\\[(\\w+)\\]\\s*=\\s*'(.*)'\\s*$"),
                                          QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = kForm.match(criterion);
    if (!match.hasMatch())
        fail(errors::kInvalidCall,
             QStringLiteral("The search criterion '%1' is not understood.").arg(criterion));
    const int column = columnOf(match.captured(1));
    const QString wanted = match.captured(2).replace(QLatin1String("''"), QLatin1String("'")).toCaseFolded();

    auto index = rowsByValue_.find(column);
    if (index == rowsByValue_.end()) {
        index = rowsByValue_.insert(column, {});
        for (int row = 0; row < rowCount_; ++row) {
            if (!cell(row, column).isNull()) // NULL equals nothing
                (*index)[cell(row, column).toString().toCaseFolded()].push_back(row);
        }
    }
    static const std::vector<int> kNone;
    const auto found = index->constFind(wanted);
    return found == index->constEnd() ? kNone : *found;
}

const QVariant& Recordset::operator[](const QString& name) const
{
    const int column = columnOf(name);
    if (current_ < 0 || Eof())
        failWithoutRecord();
    return cell(rowAt(current_), column);
}

int Recordset::columnOf(const QString& name) const
{
    auto found = columns_.constFind(name);
    if (found == columns_.constEnd())
        found = columns_.constFind(name.toLower());
    if (found == columns_.constEnd())
        fail(errors::kItemNotFound, QStringLiteral("Item '%1' cannot be found in the collection.").arg(name));
    return *found;
}

} // namespace platform
