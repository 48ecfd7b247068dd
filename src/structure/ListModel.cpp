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
    items_.clear();
    placeByKey_.clear();
    nextOrder_ = 0;
    items_.reserve(items.size());
    placeByKey_.reserve(qsizetype(items.size()));
    for (ListItem& item : items) {
        int& place = placeByKey_[item.key];
        if (placeByKey_.size() == qsizetype(items_.size())) // the key was there already
            continue;
        place = int(items_.size());
        items_.push_back({std::move(item), nextOrder_++, kHidden});
    }
    if (sortColumn_ >= 0)
        sortItems();
    applyFilter();
    endResetModel();
}

bool ListModel::addItem(const ListItem& item)
{
    if (placeByKey_.contains(item.key))
        return false;
    const Item added{item, nextOrder_++, 0};
    const auto place =
        std::upper_bound(items_.begin(), items_.end(), added,
                         [this](const Item& one, const Item& other) { return before(one, other); });
    const int at = int(place - items_.begin());
    const int row = int(std::lower_bound(places_.begin(), places_.end(), at) - places_.begin());
    beginInsertRows({}, row, row);
    items_.insert(place, added);
    numberPlaces(at);
    numberRows();
    endInsertRows();
    return true;
}

bool ListModel::removeItem(const QString& key)
{
    const int place = placeByKey_.value(key, -1);
    if (place < 0)
        return false;
    const int row = items_[place].row;
    if (row != kHidden)
        beginRemoveRows({}, row, row);
    items_.erase(items_.begin() + place);
    placeByKey_.remove(key);
    numberPlaces(place);
    numberRows();
    if (row != kHidden)
        endRemoveRows();
    return true;
}

void ListModel::setPaleKey(const QString& key)
{
    for (const QString& changed : {std::exchange(paleKey_, key), key}) {
        if (const int row = rowOf(changed); row >= 0)
            emit dataChanged(index(row, 0), index(row, kColumns - 1), {PaleRole});
    }
}

bool ListModel::updateItem(const ListItem& item)
{
    const int place = placeByKey_.value(item.key, -1);
    if (place < 0)
        return false;
    items_[place].item = item;
    if (const int row = items_[place].row; row != kHidden)
        emit dataChanged(index(row, 0), index(row, kColumns - 1));
    return true;
}

const ListItem* ListModel::item(const QString& key) const
{
    const int place = placeByKey_.value(key, -1);
    return place < 0 ? nullptr : &items_[place].item;
}

QString ListModel::keyAt(int row) const
{
    return row < 0 || row >= int(places_.size()) ? QString() : items_[places_[row]].item.key;
}

int ListModel::rowOf(const QString& key) const
{
    const int place = placeByKey_.value(key, -1);
    return place < 0 ? -1 : items_[place].row;
}

void ListModel::setFilter(const QString& text)
{
    if (text == filter())
        return;
    beginResetModel();
    matcher_.setPattern(text);
    applyFilter();
    endResetModel();
    emit filterChanged();
}

bool ListModel::passes(const ListItem& item) const
{
    for (int column = 0; column < kColumns; ++column) {
        if (matcher_.indexIn(textOf(item, column)) >= 0)
            return true;
    }
    return false;
}

void ListModel::applyFilter()
{
    const bool all = filter().isEmpty();
    for (Item& each : items_)
        each.row = all || passes(each.item) ? 0 : kHidden;
    numberRows();
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
    sortItems();
    numberRows();
    for (int i = 0; i < former.size(); ++i)
        changePersistentIndex(former[i], index(rowOf(keys[i]), former[i].column()));
    emit layoutChanged({}, VerticalSortHint);
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(places_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ListItem& item = items_[places_[index.row()]].item;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(item, index.column());
    case KeyRole:
        return item.key;
    case ImageRole:
        return item.icon;
    case PaleRole:
        return item.key == paleKey_;
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
bool ListModel::before(const Item& one, const Item& other) const
{
    if (sortColumn_ >= 0) {
        const int order =
            textOf(one.item, sortColumn_).compare(textOf(other.item, sortColumn_), Qt::CaseInsensitive);
        if (order != 0)
            return ascending_ ? order < 0 : order > 0;
    }
    return one.order < other.order;
}

void ListModel::sortItems()
{
    std::sort(items_.begin(), items_.end(),
              [this](const Item& one, const Item& other) { return before(one, other); });
    numberPlaces(0);
}

void ListModel::numberPlaces(int from)
{
    for (int place = from; place < int(items_.size()); ++place)
        placeByKey_[items_[place].item.key] = place;
}

// The rows of what is not hidden, from the top down.
void ListModel::numberRows()
{
    places_.clear();
    places_.reserve(items_.size());
    for (int place = 0; place < int(items_.size()); ++place) {
        if (items_[place].row == kHidden)
            continue;
        items_[place].row = int(places_.size());
        places_.push_back(place);
    }
}

} // namespace structure
