#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QStringList>
#include <vector>

namespace structure {

struct ListItem
{
    QString key;
    QString text;    // column 1
    QString subtext; // sub-item 1: phone, address or value
    QString detail;  // sub-item 2: description
    int icon = 0;    // 1 root, 2 group, 3 instrument, 4 parameter group, 5 to 7 parameter by state
};

// The children of the selected tree node as a list of three columns.
class ListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role
    {
        KeyRole = Qt::UserRole,
        ImageRole
    };

    using QAbstractTableModel::QAbstractTableModel;

    void clear();
    // Replaces all items at once; of two with the same key the first stays.
    void setItems(std::vector<ListItem> items);
    bool addItem(const ListItem& item); // false when the key is there already
    bool removeItem(const QString& key);
    bool updateItem(const ListItem& item); // by key
    const ListItem* item(const QString& key) const;
    QString keyAt(int row) const;
    int rowOf(const QString& key) const; // -1 when missing

    void setColumnCaptions(const QStringList& captions); // three
    QStringList columnCaptions() const { return captions_; }

    // Sorted by a column, without regard to case; -1 is the order of loading. It stays in force for what is
    // loaded later. The header's ImageRole is 1 over the column sorted upwards, 2 downwards, else 0.
    void sortByColumn(int column, bool ascending);
    int sortColumn() const { return sortColumn_; }
    bool sortAscending() const { return ascending_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        ListItem item;
        int order; // of loading
    };

    bool before(const Row& one, const Row& other) const;
    void sortRows();
    void reindex(int from);

    std::vector<Row> rows_;
    QHash<QString, int> rowByKey_;
    int nextOrder_ = 0;
    QStringList captions_{QString(), QString(), QString()};
    int sortColumn_ = -1;
    bool ascending_ = true;
};

} // namespace structure
