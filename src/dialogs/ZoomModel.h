#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

namespace dialogs {

// The rows of the lookup list, each a text and its sub-items, in any number of columns.
class ZoomModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void clear();
    // Replaces columns and rows. Every row has a text for each column; the order of the rows is kept until a
    // sort.
    void setRows(const QStringList& columns, std::vector<QStringList> rows);
    // The row's text, which is its key; "" for no row.
    QString keyAt(int row) const;

    // Sorts by a column without regard to case; the same column again turns the order.
    void clickColumn(int column);
    int sortColumn() const { return sortColumn_; } // -1 for the order of the query
    bool sortAscending() const { return ascending_; }

    // The first row from `first` to before `last` that holds the text in any column, without regard to case;
    // -1 when there is none.
    int find(const QString& text, int first, int last) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<int> sortedOrder() const;

    QStringList columns_;
    std::vector<QStringList> rows_;
    int sortColumn_ = -1;
    bool ascending_ = true;
};

} // namespace dialogs
