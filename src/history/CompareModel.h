#pragma once

#include "history/Compare.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QAbstractItemModel>

namespace platform {
class Printer;
}

namespace history {

// A comparison as a tree of two levels: parameter groups, and below each its parameters with both values.
class CompareModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        Parameter,
        Left,
        Right,
        What,
        kColumns
    };

    explicit CompareModel(const session::Texts& texts) : texts_(texts) {}

    void setComparison(Comparison comparison);
    const Comparison& comparison() const { return comparison_; }
    // Also what is the same on both sides.
    void setAll(bool all);
    void relabel();

    // The parameter's node; "" for a group.
    QString keyAt(const QModelIndex& index) const;
    // Where a parameter is listed; invalid where it isn't.
    QModelIndex indexOf(const QString& key) const;
    // What was counted, as a sentence.
    QString counts() const;
    QStringList headings() const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // What is shown: as the lines of a comma separated file, and on paper.
    QList<QByteArray> lines() const;
    void print(platform::Printer& printer, const QString& title) const;

private:
    struct Group
    {
        std::size_t place; // among all groups
        std::vector<std::size_t> rows;
    };

    void narrow();
    const ComparedGroup& groupOf(const Group& group) const { return comparison_.groups[group.place]; }
    QString cell(const ComparedValue& value, int column) const;
    QString groupWords(const Group& group) const;
    QStringList printedRows() const;

    const session::Texts& texts_;
    Comparison comparison_;
    bool all_ = false;
    std::vector<Group> shown_;
};

} // namespace history
