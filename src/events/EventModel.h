#pragma once

#include "events/CaseFold.h"
#include "events/EventColumn.h"
#include "events/EventStore.h"
#include "events/SortAside.h"
#include "events/Timeline.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <optional>

namespace events {

// The list of events: a row each, with a check box, sorted by a column's texts, narrowed by words and by a
// span of time. It holds a million rows, so what it shows it makes from the store at that moment.
class EventModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role
    {
        ImageRole = Qt::UserRole // the type's number
    };
    struct Span
    {
        Stamp from;
        Stamp to;
        bool operator==(const Span&) const = default;
    };

    // So many events are sorted in no time; more are sorted beside the event loop.
    static constexpr std::size_t kSortedAtOnce = 100'000;
    explicit EventModel(std::size_t sortedAtOnce = kSortedAtOnce) : sortedAtOnce_(sortedAtOnce) {}
    ~EventModel() override { sorting_.giveUp(); }

    // What a load fills; the list follows when it is told.
    EventStore& store() { return store_; }
    // Empties list and store, for texts in this code page; sorting and narrowing stay.
    void clear(int codePage);
    // Shows what has come into the store. While a load goes on the list grows by large steps, since each
    // costs a view the more the longer the list is.
    void grow();
    // The load is over: all is shown, in its order.
    void finish();

    void setWords(const EventWords& words);
    const EventWords& words() const { return words_; }

    // A second call for the same column flips the order.
    void clickColumn(EventColumn column);
    // Whether the rows are still to come into the order that was chosen.
    bool isSorting() const { return sorting_.isBusy(); }
    // Back to the order of the files, for the next load.
    void resetSort();
    int sortColumn() const { return sortColumn_ ? int(*sortColumn_) : -1; }
    bool sortAscending() const { return ascending_; }

    void setNeedle(const QString& text);
    const QString& needle() const { return needle_; }
    void setSpan(const std::optional<Span>& span);
    const std::optional<Span>& shownSpan() const { return span_; }
    bool isNarrowed() const { return !needle_.isEmpty() || span_; }
    // Over what the words let through, whatever the span.
    Timeline timeline() const;

    // Every row that is shown.
    void setAllChecked(bool checked);
    bool isChecked(int row) const { return checked_[shown_[std::size_t(row)]]; }
    void setChecked(const std::vector<int>& rows, bool checked);
    // Of the rows that are shown.
    int checkedCount() const;

    QString text(int row, EventColumn column) const;
    QStringList cells(int row) const;
    // Rows as lines of texts with tabs between them.
    QString rowsText(const std::vector<int>& rows) const;
    int typeAt(int row) const { return store_.type(shown_[std::size_t(row)]); }
    // An event's place in the store, which sorting and narrowing leave as it is.
    quint32 eventAt(int row) const { return shown_[std::size_t(row)]; }
    // -1 when it isn't shown.
    int rowOf(quint32 event) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    // Other rows are shown than before.
    void rowsChanged();
    // A long sort has begun or ended.
    void sortingChanged();

private:
    struct Passes
    {
        bool words : 1;
        bool span : 1;
    };

    void take();
    void judge(quint32 from);
    void judgeSpan(quint32 row);
    bool isShown(quint32 row) const { return passes_[row].words && passes_[row].span; }
    void sortRows();
    void putInOrder(std::vector<quint32> order);
    void showAgain();
    std::vector<quint32> shownOf(const std::vector<quint32>& order) const;
    QString decoded(QByteArrayView bytes) const;

    int codePage_ = 1252;
    CaseFold fold_{codePage_};
    EventStore store_;
    EventWords words_;
    std::optional<EventColumn> sortColumn_;
    bool ascending_ = true;
    QString needle_;
    std::optional<Span> span_;

    std::vector<quint32> order_; // every event that was taken from the store, in the list's order
    std::vector<quint32> shown_; // those of them that are shown
    std::vector<Passes> passes_; // by event
    std::vector<bool> checked_;  // by event

    const std::size_t sortedAtOnce_;
    bool filling_ = false; // what a load fills can't be sorted beside it
    SortAside sorting_;
};

} // namespace events
