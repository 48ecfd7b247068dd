#pragma once

#include "structure/Mark.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QStringList>
#include <QStringMatcher>
#include <vector>

namespace structure {

struct ListItem
{
    QString key;
    QString text;       // column 1
    QString subtext;    // sub-item 1: phone, address or value
    QString detail;     // sub-item 2: description
    int icon = 0;       // 1 root, 2 group, 3 instrument, 4 parameter group, 5 to 7 parameter by state
    int marks = 0;      // its own, beside those that are set for its key
    QString extra = {}; // the fourth column, where there is one
};

// The children of the selected tree node as a list of three columns. A filter narrows what is shown: rows are
// those shown, while an item that the filter hides is still found, changed and removed by its key.
class ListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role
    {
        KeyRole = Qt::UserRole,
        ImageRole,
        PaleRole,
        MarkRole,
        ValueRole // of a parameter; "" for any other item
    };

    explicit ListModel(int columns = 3) : columns_(columns) {}

    void clear();
    // Replaces all items at once; of two with the same key the first stays.
    void setItems(std::vector<ListItem> items);
    // False when the key is there already. What is added under a filter shows until the filter changes.
    bool addItem(const ListItem& item);
    bool removeItem(const QString& key);
    bool updateItem(const ListItem& item); // by key
    // PaleRole is true for this one item; "" for none.
    void setPaleKey(const QString& key);
    // MarkRole is what is set here for an item, beside the item's own.
    void setMarks(const Marks& marks);
    const ListItem* item(const QString& key) const;
    QString keyAt(int row) const;
    int rowOf(const QString& key) const;                 // -1 when missing or hidden
    int itemCount() const { return int(items_.size()); } // hidden ones among them

    // Shows only the items that hold every word of the text, in any case: one of them at least in a column of
    // their own, the others there or in the place that they all have in common. "" shows all.
    void setFilter(const QString& text);
    const QString& filter() const { return filter_; }
    void setPlace(const QString& place) { place_ = place; }

    void setColumnCaptions(const QStringList& captions); // one a column
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

signals:
    void filterChanged();

private:
    static constexpr int kHidden = -1;

    struct Item
    {
        ListItem item;
        int order; // of loading
        int row;   // where it is shown, or kHidden
    };

    bool before(const Item& one, const Item& other) const;
    bool passes(const ListItem& item) const;
    void applyFilter();
    void sortItems();
    void numberPlaces(int from);
    void numberRows();

    const int columns_;
    std::vector<Item> items_; // in the order of the list
    QHash<QString, int> placeByKey_;
    std::vector<int> places_; // of the items shown, by row
    QString filter_, place_;
    std::vector<QStringMatcher> words_; // of the filter
    int nextOrder_ = 0;
    QStringList captions_{QString(), QString(), QString()};
    QString paleKey_;
    Marks marks_;
    int sortColumn_ = -1;
    bool ascending_ = true;
};

} // namespace structure
