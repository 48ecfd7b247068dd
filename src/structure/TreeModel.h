#pragma once

#include "structure/Mark.h"

#include <QAbstractItemModel>
#include <QHash>
#include <functional>
#include <vector>

namespace structure {

// The plant as a tree: root, groups, instruments, parameter groups, each with its node key, caption and
// image. Children stand in the order in which they were added. Column 0 only; KeyRole gives the key,
// ImageRole the image number (level + 1; the root has image 1).
class TreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role
    {
        KeyRole = Qt::UserRole,
        ImageRole,
        PaleRole,
        MarkRole
    };

    explicit TreeModel(QObject* parent = nullptr);
    ~TreeModel() override;

    void clear();
    // Adds nodes without a word to the views between the two calls: a whole company comes in at once.
    void beginBulk();
    void endBulk();
    bool inBulk() const { return bulk_; }

    // False when the parent is missing or the key is there already. The parent "" makes the one root.
    bool addNode(const QString& parentKey, const QString& key, const QString& caption, int image);
    // Removes the node and all below it; false when it is missing.
    bool removeNode(const QString& key);
    bool setCaption(const QString& key, const QString& caption);
    // Sorts the children of a node by caption again, in the order of the company.
    void sortChildren(const QString& key);
    // Sorts them by key.
    void orderChildren(const QString& key);
    // PaleRole is true for this one node; "" for none.
    void setPaleKey(const QString& key);
    // MarkRole is what is set here for a node.
    void setMarks(const Marks& marks);

    bool contains(const QString& key) const;
    QString keyOf(const QModelIndex& index) const;
    QModelIndex indexOf(const QString& key) const;
    QString parentOf(const QString& key) const; // "" for the root
    QString captionOf(const QString& key) const;
    // The captions from the root down, joined with "\".
    QString fullPathOf(const QString& key) const;
    int nodeCount() const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Node
    {
        QString key;
        QString caption;
        int parent;
        int row;
        int image;
        std::vector<int> children;
    };

    int idOf(const QModelIndex& index) const { return index.isValid() ? int(index.internalId()) : kNone; }
    QModelIndex indexOfId(int id) const;
    void renumber(std::vector<int>& siblings, std::size_t from);
    void forget(int id);
    void sortChildren(const QString& key, const std::function<bool(const Node&, const Node&)>& before);

    static constexpr int kNone = -1;

    // A node's place is its id as long as it lives; the place of a removed node stays empty until the next
    // clear().
    std::vector<Node> nodes_;
    QHash<QString, int> idByKey_;
    int root_ = kNone;
    bool bulk_ = false;
    QString paleKey_;
    Marks marks_;
};

} // namespace structure
