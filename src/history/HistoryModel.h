#pragma once

#include "history/HistoryPage.h"
#include "session/Forward.h"

#include <QAbstractTableModel>

namespace history {

// The notes of an element as a table, narrowed by what is typed.
class HistoryModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Time,
        Place,
        Parameter,
        Old,
        New,
        Mark,
        Cause,
        Operator,
        kColumns
    };

    explicit HistoryModel(const session::Texts& texts) : texts_(texts) {}

    void setNotes(std::vector<ShownNote> notes);
    // Only notes with the text in any column; "" shows all.
    void setFilter(const QString& text);
    void relabel();

    const ShownNote* noteAt(int row) const; // null beside the rows
    int count() const { return int(notes_.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // What is shown as the lines of a comma separated file.
    QList<QByteArray> lines() const;

private:
    QString cell(const ShownNote& note, int column) const;
    void narrow();

    const session::Texts& texts_;
    std::vector<ShownNote> notes_;
    std::vector<int> shown_; // places in notes_
    QString filter_;
};

// "changed → equal", "not there → added"
QString markWords(const ShownNote& note, const session::Texts& texts);
QString causeWords(values::ValueCause cause, const session::Texts& texts);
QString timeWords(qint64 time);

} // namespace history
