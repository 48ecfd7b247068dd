#include "structure/ListModel.h"

#include "structure/Image.h"

#include <algorithm>
#include <optional>

namespace structure {

namespace {

const QString& textOf(const ListItem& item, int column)
{
    switch (column) {
    case 1:
        return item.subtext;
    case 2:
        return item.detail;
    case 3:
        return item.extra;
    default:
        return item.text;
    }
}

// The number that a cell begins with, "1,234.5 bar" or "-4"; none when it is a part of a word, a time or an
// address such as "0A".
std::optional<double> numberOf(const QString& cell)
{
    QString digits;
    qsizetype at = 0;
    for (; at < cell.size(); ++at) {
        const QChar character = cell[at];
        const bool sign = character == u'-' && at == 0;
        if (sign || character == u'.' || (character >= u'0' && character <= u'9'))
            digits += character;
        else if (character != u',' || digits.isEmpty())
            break;
    }
    if (digits.isEmpty() || (at < cell.size() && cell[at] != u' '))
        return std::nullopt;
    bool isNumber = false;
    const double number = digits.toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

// Numbers by their size and in front of words, empty cells in front of both; words without regard to case.
int compareCells(const QString& one, const QString& other)
{
    const std::optional<double> first = numberOf(one);
    const std::optional<double> second = numberOf(other);
    if (first && second && *first != *second)
        return *first < *second ? -1 : 1;
    if (first.has_value() != second.has_value() && !one.isEmpty() && !other.isEmpty())
        return first ? -1 : 1;
    return one.compare(other, Qt::CaseInsensitive);
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
            emit dataChanged(index(row, 0), index(row, columns_ - 1), {PaleRole});
    }
}

void ListModel::setMarks(const Marks& marks)
{
    if (marks == marks_)
        return;
    marks_ = marks;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {MarkRole});
}

bool ListModel::updateItem(const ListItem& item)
{
    const int place = placeByKey_.value(item.key, -1);
    if (place < 0)
        return false;
    items_[place].item = item;
    if (const int row = items_[place].row; row != kHidden)
        emit dataChanged(index(row, 0), index(row, columns_ - 1));
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
    if (text == filter_)
        return;
    beginResetModel();
    filter_ = text;
    words_.clear();
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts))
        words_.emplace_back(word, Qt::CaseInsensitive);
    applyFilter();
    endResetModel();
    emit filterChanged();
}

bool ListModel::passes(const ListItem& item) const
{
    bool ofItsOwn = words_.empty();
    for (const QStringMatcher& word : words_) {
        bool own = false;
        for (int column = 0; column < columns_ && !own; ++column)
            own = word.indexIn(textOf(item, column)) >= 0;
        if (!own && word.indexIn(place_) < 0)
            return false;
        ofItsOwn = ofItsOwn || own;
    }
    return ofItsOwn;
}

void ListModel::applyFilter()
{
    // A text that stands somewhere as a whole is meant as one; else each of its words is looked for.
    const QStringMatcher whole(filter_, Qt::CaseInsensitive);
    const auto holdsWhole = [&](const ListItem& item) {
        for (int column = 0; column < columns_; ++column) {
            if (whole.indexIn(textOf(item, column)) >= 0)
                return true;
        }
        return false;
    };
    bool found = false;
    for (Item& each : items_) {
        each.row = filter_.isEmpty() || holdsWhole(each.item) ? 0 : kHidden;
        found = found || each.row != kHidden;
    }
    for (Item& each : items_) {
        if (!found && passes(each.item))
            each.row = 0;
    }
    numberRows();
}

void ListModel::setColumnCaptions(const QStringList& captions)
{
    captions_ = captions;
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
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
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(places_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns_;
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
    case MarkRole:
        return item.marks | marks_.value(item.key);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return index.column() == 0 ? wordsOf(item.marks | marks_.value(item.key), item.icon) : QString();
    case ValueRole:
        return item.icon >= int(Image::Parameter) ? item.subtext : QString();
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns_)
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
        const int order = compareCells(textOf(one.item, sortColumn_), textOf(other.item, sortColumn_));
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
