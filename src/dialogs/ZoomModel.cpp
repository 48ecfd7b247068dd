#include "dialogs/ZoomModel.h"

#include <algorithm>
#include <numeric>

namespace dialogs {

void ZoomModel::clear()
{
    setRows({}, {});
}

void ZoomModel::setRows(const QStringList& columns, std::vector<QStringList> rows)
{
    beginResetModel();
    columns_ = columns;
    rows_ = std::move(rows);
    sortColumn_ = -1;
    ascending_ = true;
    endResetModel();
}

QString ZoomModel::keyAt(int row) const
{
    return row < 0 || row >= int(rows_.size()) ? QString() : rows_[row].value(0);
}

void ZoomModel::clickColumn(int column)
{
    ascending_ = column == sortColumn_ ? !ascending_ : true;
    sortColumn_ = column;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<int> order = sortedOrder();
    std::vector<int> placeOf(order.size());
    std::vector<QStringList> sorted;
    sorted.reserve(order.size());
    for (int former : order) {
        placeOf[former] = int(sorted.size());
        sorted.push_back(std::move(rows_[former]));
    }
    rows_ = std::move(sorted);
    for (const QModelIndex& former : persistentIndexList())
        changePersistentIndex(former, index(placeOf[former.row()], former.column()));
    emit layoutChanged({}, VerticalSortHint);
}

std::vector<int> ZoomModel::sortedOrder() const
{
    std::vector<int> order(rows_.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [this](int one, int other) {
        const int comparison =
            rows_[one][sortColumn_].compare(rows_[other][sortColumn_], Qt::CaseInsensitive);
        return ascending_ ? comparison < 0 : comparison > 0;
    });
    return order;
}

int ZoomModel::find(const QString& text, int first, int last) const
{
    const auto holds = [&](const QStringList& row) {
        return std::any_of(row.begin(), row.end(),
                           [&](const QString& cell) { return cell.contains(text, Qt::CaseInsensitive); });
    };
    const auto end = rows_.begin() + last;
    const auto found = std::find_if(rows_.begin() + first, end, holds);
    return found == end ? -1 : int(found - rows_.begin());
}

int ZoomModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int ZoomModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns_.size());
}

QVariant ZoomModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return rows_[index.row()][index.column()];
}

QVariant ZoomModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return columns_.value(section);
}

} // namespace dialogs
