#include "console/LogModel.h"

#include "events/EventLog.h"
#include "platform/Words.h"

#include <algorithm>
#include <numeric>

namespace console {

void LogModel::clear()
{
    beginResetModel();
    lines_.clear();
    lastRow_ = -1;
    sortColumn_ = -1;
    ascending_ = true;
    endResetModel();
}

int LogModel::add(const QString& when, const QString& description, int type)
{
    const Line line{when, description, type};
    auto place = lines_.end();
    if (sortColumn_ >= 0)
        place = std::upper_bound(lines_.begin(), lines_.end(), line,
                                 [this](const Line& a, const Line& b) { return before(a, b); });
    const int row = int(place - lines_.begin());
    beginInsertRows({}, row, row);
    lines_.insert(place, line);
    endInsertRows();
    return lastRow_ = row;
}

void LogModel::annotateLast(const QString& note)
{
    if (lastRow_ < 0)
        return;
    lines_[std::size_t(lastRow_)].note = note;
    const QModelIndex line = index(lastRow_, 1);
    emit dataChanged(line, line);
}

void LogModel::setTypeOfLast(int type)
{
    if (lastRow_ < 0)
        return;
    lines_[std::size_t(lastRow_)].type = type;
    emit dataChanged(index(lastRow_, 0), index(lastRow_, 1));
}

QString LogModel::lastDescription() const
{
    return lastRow_ < 0 ? QString() : lines_[std::size_t(lastRow_)].description;
}

void LogModel::clickColumn(int column)
{
    ascending_ = column != sortColumn_ || !ascending_;
    sortColumn_ = column;
    putInOrder();
    emit headerDataChanged(Qt::Horizontal, 0, 1);
}

// What points at a line, the selection for one, goes with it.
void LogModel::putInOrder()
{
    emit layoutAboutToBeChanged();
    lastRow_ = -1;
    std::vector<int> order(lines_.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [this](int a, int b) { return before(lines_[std::size_t(a)], lines_[std::size_t(b)]); });
    std::vector<Line> sorted;
    std::vector<int> placeOf(order.size());
    for (const int line : order) {
        placeOf[std::size_t(line)] = int(sorted.size());
        sorted.push_back(std::move(lines_[std::size_t(line)]));
    }
    lines_ = std::move(sorted);
    for (const QModelIndex& old : persistentIndexList())
        changePersistentIndex(old, index(placeOf[std::size_t(old.row())], old.column()));
    emit layoutChanged();
}

void LogModel::setColumnCaptions(const QStringList& captions)
{
    captions_ = captions;
    emit headerDataChanged(Qt::Horizontal, 0, 1);
}

QString LogModel::text(int row, int column) const
{
    const Line& line = lines_[std::size_t(row)];
    return column == 0 ? line.when : line.description;
}

int LogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(lines_.size());
}

int LogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant LogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Line& line = lines_[std::size_t(index.row())];
    if (role == TypeRole)
        return line.type;
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return wordsOf(line);
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == 1 && !line.note.isEmpty())
        return QString(line.description + QStringLiteral("   ") + line.note);
    return text(index.row(), index.column());
}

// A line may be longer than its room; the sign in front of it says what its type is.
QString LogModel::wordsOf(const Line& line)
{
    if (line.type < events::kWarning)
        return {};
    const QString type =
        platform::inWords(line.type == events::kError ? "console.line.error" : "console.line.warning");
    return type + u'\n' + line.description + (line.note.isEmpty() ? QString() : u'\n' + line.note);
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= captions_.size())
        return {};
    return captions_[section];
}

bool LogModel::before(const Line& a, const Line& b) const
{
    const QString& left = sortColumn_ == 0 ? a.when : a.description;
    const QString& right = sortColumn_ == 0 ? b.when : b.description;
    const int order = QString::compare(left, right, Qt::CaseInsensitive);
    return ascending_ ? order < 0 : order > 0;
}

} // namespace console
