#include "structure/ListModel.h"

#include <algorithm>

namespace structure {

namespace {

constexpr int kColumns = 3;

const QString& textOf(const ListItem& item, int column)
{
    switch (column) {
    case 1:
        return item.subtext;
    case 2:
        return item.detail;
    default:
        return item.text;
    }
}

} // namespace

void ListModel::clear()
{
    setItems({});
}

void ListModel::setItems(std::vector<ListItem> items)
{
    beginResetModel();
    rows_.clear();
    rowByKey_.clear();
    nextOrder_ = 0;
    rows_.reserve(items.size());
    rowByKey_.reserve(qsizetype(items.size()));
    for (ListItem& item : items) {
        int& row = rowByKey_[item.key];
        if (rowByKey_.size() == qsizetype(rows_.size())) // nothing new
            continue;
        row = int(rows_.size());
        rows_.push_back({std::move(item), nextOrder_++});
    }
    if (sortColumn_ >= 0)
        sortRows();
    endResetModel();
}

bool ListModel::addItem(const ListItem& item)
{
    if (rowByKey_.contains(item.key))
        return false;
    const Row row{item, nextOrder_++};
    const auto place =
        std::upper_bound(rows_.begin(), rows_.end(), row,
                         [this](const Row& one, const Row& other) { return before(one, other); });
    const int at = int(place - rows_.begin());
    beginInsertRows({}, at, at);
    rows_.insert(place, row);
    reindex(at);
    endInsertRows();
    return true;
}

bool ListModel::removeItem(const QString& key)
{
    const int row = rowOf(key);
    if (row < 0)
        return false;
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    rowByKey_.remove(key);
    reindex(row);
    endRemoveRows();
    return true;
}

bool ListModel::updateItem(const ListItem& item)
{
    const int row = rowOf(item.key);
    if (row < 0)
        return false;
    rows_[row].item = item;
    emit dataChanged(index(row, 0), index(row, kColumns - 1));
    return true;
}

const ListItem* ListModel::item(const QString& key) const
{
    const int row = rowOf(key);
    return row < 0 ? nullptr : &rows_[row].item;
}

QString ListModel::keyAt(int row) const
{
    return row < 0 || row >= int(rows_.size()) ? QString() : rows_[row].item.key;
}

int ListModel::rowOf(const QString& key) const
{
    return rowByKey_.value(key, -1);
}

void ListModel::setColumnCaptions(const QStringList& captions)
{
    captions_ = captions;
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

void ListModel::sortByColumn(int column, bool ascending)
{
    sortColumn_ = column;
    ascending_ = ascending;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList former = persistentIndexList();
    QStringList keys;
    for (const QModelIndex& index : former)
        keys << keyAt(index.row());
    sortRows();
    for (int i = 0; i < former.size(); ++i)
        changePersistentIndex(former[i], index(rowOf(keys[i]), former[i].column()));
    emit layoutChanged({}, VerticalSortHint);
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ListItem& item = rows_[index.row()].item;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(item, index.column());
    case KeyRole:
        return item.key;
    case ImageRole:
        return item.icon;
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kColumns)
        return {};
    if (role == Qt::DisplayRole)
        return captions_.value(section);
    if (role == ImageRole)
        return section != sortColumn_ ? 0 : ascending_ ? 1 : 2;
    return {};
}

// Equal texts keep the order of loading, in either direction.
bool ListModel::before(const Row& one, const Row& other) const
{
    if (sortColumn_ >= 0) {
        const int order =
            textOf(one.item, sortColumn_).compare(textOf(other.item, sortColumn_), Qt::CaseInsensitive);
        if (order != 0)
            return ascending_ ? order < 0 : order > 0;
    }
    return one.order < other.order;
}

void ListModel::sortRows()
{
    std::sort(rows_.begin(), rows_.end(),
              [this](const Row& one, const Row& other) { return before(one, other); });
    reindex(0);
}

void ListModel::reindex(int from)
{
    for (int row = from; row < int(rows_.size()); ++row)
        rowByKey_[rows_[row].item.key] = row;
}

} // namespace structure
