#include "platform/Recordset.h"

#include "platform/RuntimeError.h"
#include "platform/Statement.h"

#include <QRegularExpression>
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
                cells_.push_back(statement.value(column));
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

void Recordset::Find(const QString& criterion)
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
    const std::vector<int> none;
    const auto found = index->constFind(wanted);
    const std::vector<int>& rows = found == index->constEnd() ? none : *found;
    const auto hit = std::lower_bound(rows.begin(), rows.end(), current_);
    current_ = hit == rows.end() ? rowCount_ : *hit;
}

const QVariant& Recordset::operator[](const QString& name) const
{
    return field(columnOf(name));
}

const QVariant& Recordset::field(int column) const
{
    if (current_ < 0 || Eof())
        failWithoutRecord();
    return cell(current_, column);
}

QString Recordset::text(const QString& name) const
{
    const QVariant& value = (*this)[name];
    // The two kinds that nearly every field has, without the detour over the conversions.
    switch (value.typeId()) {
    case QMetaType::QString:
        return *static_cast<const QString*>(value.constData());
    case QMetaType::LongLong:
        return QString::number(*static_cast<const qlonglong*>(value.constData()));
    default:
        return value.toString();
    }
}

bool Recordset::hasField(const QString& name) const
{
    return names_.contains(name, Qt::CaseInsensitive);
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

} // namespace platform
