#include "structure/TreeModel.h"

#include "structure/NameOrder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace structure {

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent) {}

TreeModel::~TreeModel() = default;

void TreeModel::clear()
{
    if (!bulk_)
        beginResetModel();
    nodes_.clear();
    idByKey_.clear();
    root_ = kNone;
    if (!bulk_)
        endResetModel();
}

void TreeModel::beginBulk()
{
    beginResetModel();
    bulk_ = true;
}

void TreeModel::endBulk()
{
    bulk_ = false;
    endResetModel();
}

bool TreeModel::addNode(const QString& parentKey, const QString& key, const QString& caption, int image)
{
    const bool isRoot = parentKey.isEmpty();
    const int parent = isRoot ? kNone : idByKey_.value(parentKey, kNone);
    if (isRoot ? root_ != kNone : parent == kNone)
        return false;
    const int id = int(nodes_.size());
    if (idByKey_.contains(key))
        return false;

    const int row = isRoot ? 0 : int(nodes_[parent].children.size());
    if (!bulk_)
        beginInsertRows(indexOfId(parent), row, row);
    nodes_.push_back({key, caption, parent, row, image, {}});
    idByKey_.insert(key, id);
    if (isRoot)
        root_ = id;
    else
        nodes_[parent].children.push_back(id);
    if (!bulk_)
        endInsertRows();
    return true;
}

bool TreeModel::removeNode(const QString& key)
{
    const int id = idByKey_.value(key, kNone);
    if (id == kNone)
        return false;
    const int parent = nodes_[id].parent;
    const int row = nodes_[id].row;
    if (!bulk_)
        beginRemoveRows(indexOfId(parent), row, row);
    if (parent == kNone) {
        root_ = kNone;
    } else {
        std::vector<int>& siblings = nodes_[parent].children;
        siblings.erase(siblings.begin() + row);
        renumber(siblings, row);
    }
    forget(id);
    if (!bulk_)
        endRemoveRows();
    return true;
}

bool TreeModel::setCaption(const QString& key, const QString& caption)
{
    const int id = idByKey_.value(key, kNone);
    if (id == kNone)
        return false;
    nodes_[id].caption = caption;
    if (!bulk_)
        emit dataChanged(indexOfId(id), indexOfId(id), {Qt::DisplayRole});
    return true;
}

void TreeModel::sortChildren(const QString& key)
{
    sortChildren(
        key, [](const Node& one, const Node& other) { return compareNames(one.caption, other.caption) < 0; });
}

void TreeModel::orderChildren(const QString& key)
{
    sortChildren(key, [](const Node& one, const Node& other) { return one.key < other.key; });
}

void TreeModel::sortChildren(const QString& key, const std::function<bool(const Node&, const Node&)>& before)
{
    const int id = idByKey_.value(key, kNone);
    if (id == kNone)
        return;
    std::vector<int>& children = nodes_[id].children;
    const auto inOrder = [&](int one, int other) { return before(nodes_[one], nodes_[other]); };
    if (std::is_sorted(children.begin(), children.end(), inOrder))
        return;
    std::optional<QList<QPersistentModelIndex>> parents;
    if (!bulk_) {
        parents = {QPersistentModelIndex(indexOfId(id))};
        emit layoutAboutToBeChanged(*parents, VerticalSortHint);
    }
    std::stable_sort(children.begin(), children.end(), inOrder);
    renumber(children, 0);
    if (!bulk_) {
        for (const QModelIndex& index : persistentIndexList())
            changePersistentIndex(index, indexOfId(idOf(index)));
        emit layoutChanged(*parents, VerticalSortHint);
    }
}

void TreeModel::setPaleKey(const QString& key)
{
    for (const QString& changed : {std::exchange(paleKey_, key), key}) {
        if (const QModelIndex index = indexOf(changed); index.isValid())
            emit dataChanged(index, index, {PaleRole});
    }
}

void TreeModel::setMarks(const Marks& marks)
{
    const Marks former = std::exchange(marks_, marks);
    for (const Marks* keys : std::initializer_list<const Marks*>{&former, &marks_}) {
        for (auto mark = keys->constBegin(); mark != keys->constEnd(); ++mark) {
            const QModelIndex node = indexOf(mark.key());
            if (!bulk_ && node.isValid() && former.value(mark.key()) != marks_.value(mark.key()))
                emit dataChanged(node, node, {MarkRole});
        }
    }
}

bool TreeModel::contains(const QString& key) const
{
    return idByKey_.contains(key);
}

QString TreeModel::keyOf(const QModelIndex& index) const
{
    const int id = idOf(index);
    return id == kNone ? QString() : nodes_[id].key;
}

QModelIndex TreeModel::indexOf(const QString& key) const
{
    return indexOfId(idByKey_.value(key, kNone));
}

QString TreeModel::parentOf(const QString& key) const
{
    const int id = idByKey_.value(key, kNone);
    return id == kNone || nodes_[id].parent == kNone ? QString() : nodes_[nodes_[id].parent].key;
}

QString TreeModel::captionOf(const QString& key) const
{
    const int id = idByKey_.value(key, kNone);
    return id == kNone ? QString() : nodes_[id].caption;
}

QString TreeModel::fullPathOf(const QString& key) const
{
    QStringList captions;
    for (int id = idByKey_.value(key, kNone); id != kNone; id = nodes_[id].parent)
        captions.prepend(nodes_[id].caption);
    return captions.join(u'\\');
}

int TreeModel::nodeCount() const
{
    return int(idByKey_.size());
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    const int id = parent.isValid() ? nodes_[idOf(parent)].children[row] : root_;
    return createIndex(row, 0, quintptr(id));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const
{
    return child.isValid() ? indexOfId(nodes_[idOf(child)].parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return root_ == kNone ? 0 : 1;
    return int(nodes_[idOf(parent)].children.size());
}

int TreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Node& node = nodes_[idOf(index)];
    switch (role) {
    case Qt::DisplayRole:
        return node.caption;
    case KeyRole:
        return node.key;
    case ImageRole:
        return node.image;
    case PaleRole:
        return node.key == paleKey_;
    case MarkRole:
        return marks_.value(node.key);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return wordsOf(marks_.value(node.key), node.image);
    default:
        return {};
    }
}

QModelIndex TreeModel::indexOfId(int id) const
{
    return id == kNone ? QModelIndex() : createIndex(nodes_[id].row, 0, quintptr(id));
}

void TreeModel::renumber(std::vector<int>& siblings, std::size_t from)
{
    for (std::size_t row = from; row < siblings.size(); ++row)
        nodes_[siblings[row]].row = int(row);
}

// Without recursion: the places of a whole plant may go at once.
void TreeModel::forget(int id)
{
    std::vector<int> pending{id};
    while (!pending.empty()) {
        Node& node = nodes_[pending.back()];
        pending.pop_back();
        pending.insert(pending.end(), node.children.begin(), node.children.end());
        idByKey_.remove(node.key);
        node = {{}, {}, kNone, 0, 0, {}};
    }
}

} // namespace structure
