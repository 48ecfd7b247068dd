#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

namespace console {

// The live list of the console: date and description, a line for each event.
class LogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void clear();
    enum Role
    {
        TypeRole = Qt::UserRole // an event's type
    };

    // Appends a line; in a sorted list it goes to its place. Returns its row.
    int add(const QString& when, const QString& description, int type = 1);
    // Words beside the line that came last: they are shown, and are no part of it.
    void annotateLast(const QString& note);
    QString lastDescription() const;
    void setTypeOfLast(int type);
    // A second call for the same column flips the order.
    void clickColumn(int column);
    void setColumnCaptions(const QStringList& captions);

    int sortColumn() const { return sortColumn_; } // -1 the order of arrival
    bool sortAscending() const { return ascending_; }
    QString text(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Line
    {
        QString when;
        QString description;
        int type = 1;
        QString note = {};
    };
    static QString wordsOf(const Line& line);
    void putInOrder();
    bool before(const Line& a, const Line& b) const;

    std::vector<Line> lines_;
    QStringList captions_{QString(), QString()};
    int lastRow_ = -1; // of the line that came last, until the list is sorted anew
    int sortColumn_ = -1;
    bool ascending_ = true;
};

} // namespace console
