#include "platform/Recordset.h"

#include "platform/RuntimeError.h"
#include "platform/Statement.h"

#include <algorithm>

namespace platform {

namespace {

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
    try {
        Statement statement(connection, sql);
        while (statement.step()) {
            const int columns = statement.columnCount();
            for (int column = 0; column < columns; ++column)
                cells_.push_back(read(statement, column));
            ++rowCount_;
        }
        for (int column = 0; column < statement.columnCount(); ++column)
            names_ << statement.columnName(column);
    } catch (...) {
        Close();
        throw;
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

void Recordset::MoveLast()
{
    current_ = std::max(RecordCount() - 1, 0);
}

void Recordset::Find(const QString& column, const QString& value)
{
    const std::vector<int>& hits = rowsWith(column, value);
    if (!filtered_) {
        const auto hit = std::lower_bound(hits.begin(), hits.end(), current_);
        current_ = hit == hits.end() ? rowCount_ : *hit;
        return;
    }
    current_ = std::max(current_, 0);
    while (!Eof() && !std::binary_search(hits.begin(), hits.end(), rowAt(current_)))
        ++current_;
}

void Recordset::Filter(const QString& column, const QString& value)
{
    filtered_ = rowsWith(column, value);
    current_ = 0;
}

const std::vector<int>& Recordset::rowsWith(const QString& name, const QString& value)
{
    const int column = columnOf(name);
    auto index = rowsByValue_.find(column);
    if (index == rowsByValue_.end()) {
        index = rowsByValue_.insert(column, {});
        for (int row = 0; row < rowCount_; ++row) {
            if (cell(row, column).kind != Statement::Kind::Null) // NULL equals nothing
                (*index)[textOf(cell(row, column)).toCaseFolded()].push_back(row);
        }
    }
    static const std::vector<int> kNone;
    const auto found = index->constFind(value.toCaseFolded());
    return found == index->constEnd() ? kNone : *found;
}

QVariant Recordset::operator[](const QString& name) const
{
    return valueOf(current(columnOf(name)));
}

QVariant Recordset::field(int column) const
{
    return valueOf(current(column));
}

QString Recordset::text(const QString& name) const
{
    return textOf(current(columnOf(name)));
}

std::optional<QString> Recordset::optionalText(const QString& name) const
{
    const Cell& cell = current(columnOf(name));
    return cell.kind == Statement::Kind::Null ? std::nullopt : std::optional(textOf(cell));
}

bool Recordset::hasField(const QString& name) const
{
    return names_.contains(name, Qt::CaseInsensitive);
}

Recordset::Cell Recordset::read(const Statement& row, int column)
{
    Cell cell{row.kind(column), 0, {0}};
    switch (cell.kind) {
    case Statement::Kind::Null:
        break;
    case Statement::Kind::Integer:
        cell.integer = row.integer(column);
        break;
    case Statement::Kind::Real:
        cell.real = row.real(column);
        break;
    case Statement::Kind::Text:
        const QByteArrayView text = row.text(column);
        cell.length = qint32(text.size());
        cell.begin = texts_.size();
        texts_.append(text.data(), std::size_t(text.size()));
    }
    return cell;
}

int Recordset::columnOf(const QString& name) const
{
    qsizetype column = names_.indexOf(name);
    for (qsizetype other = 0; column < 0 && other < names_.size(); ++other) {
        if (names_[other].compare(name, Qt::CaseInsensitive) == 0)
            column = other;
    }
    if (column < 0)
        fail(errors::kItemNotFound, QStringLiteral("Item '%1' cannot be found in the collection.").arg(name));
    return int(column);
}

const Recordset::Cell& Recordset::current(int column) const
{
    if (current_ < 0 || Eof())
        failWithoutRecord();
    return cell(rowAt(current_), column);
}

QString Recordset::textOf(const Cell& cell) const
{
    switch (cell.kind) {
    case Statement::Kind::Text:
        return QString::fromUtf8(texts_.data() + cell.begin, cell.length);
    case Statement::Kind::Integer:
        return QString::number(cell.integer);
    default:
        return valueOf(cell).toString();
    }
}

QVariant Recordset::valueOf(const Cell& cell) const
{
    switch (cell.kind) {
    case Statement::Kind::Null:
        break;
    case Statement::Kind::Integer:
        return QVariant(qlonglong(cell.integer));
    case Statement::Kind::Real:
        return QVariant(cell.real);
    case Statement::Kind::Text:
        return QVariant(textOf(cell));
    }
    return {};
}

} // namespace platform
