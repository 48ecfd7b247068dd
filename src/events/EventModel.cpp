#include "events/EventModel.h"

#include "events/EventSort.h"
#include "events/Narrowing.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <numeric>

namespace events {

namespace {

// How many times as long the list has to be before it grows in a view.
constexpr std::size_t kGrowth = 16;

QString dateText(Stamp stamp)
{
    const auto text = sortableText(stamp);
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

} // namespace

void EventModel::clear(int codePage)
{
    sorting_.giveUp();
    filling_ = true;
    beginResetModel();
    codePage_ = codePage;
    fold_ = CaseFold(codePage);
    store_.clear();
    order_ = {};
    shown_ = {};
    passes_ = {};
    checked_ = {};
    endResetModel();
    emit rowsChanged();
}

void EventModel::grow()
{
    if (store_.size() >= kGrowth * order_.size())
        take();
}

void EventModel::finish()
{
    filling_ = false;
    take();
    if (sortColumn_)
        sortRows();
}

void EventModel::take()
{
    const auto known = quint32(order_.size());
    if (known == store_.size())
        return;
    order_.resize(store_.size());
    std::iota(order_.begin() + known, order_.end(), known);
    checked_.resize(store_.size());
    passes_.resize(store_.size());
    judge(known);
    const auto count =
        std::count_if(order_.begin() + known, order_.end(), [this](quint32 event) { return isShown(event); });
    if (count > 0) {
        beginInsertRows({}, rowCount(), rowCount() + int(count) - 1);
        std::copy_if(order_.begin() + known, order_.end(), std::back_inserter(shown_),
                     [this](quint32 event) { return isShown(event); });
        endInsertRows();
    }
    emit rowsChanged();
}

void EventModel::judge(quint32 from)
{
    if (!isNarrowed()) {
        std::fill(passes_.begin() + from, passes_.end(), Passes{true, true});
        return;
    }
    const Narrowing narrowing(needle_, words_, fold_, codePage_);
    for (quint32 event = from; event < passes_.size(); ++event) {
        passes_[event].words = needle_.isEmpty() || narrowing.shows(store_.at(event));
        judgeSpan(event);
    }
}

void EventModel::judgeSpan(quint32 event)
{
    const Stamp when = store_.when(event);
    passes_[event].span = !span_ || (when >= span_->from && when <= span_->to);
}

void EventModel::setWords(const EventWords& words)
{
    words_ = words;
    judge(0);
    showAgain();
    emit headerDataChanged(Qt::Horizontal, 0, kEventColumns - 1);
}

void EventModel::clickColumn(EventColumn column)
{
    ascending_ = column != sortColumn_ || !ascending_;
    sortColumn_ = column;
    sortRows();
}

void EventModel::resetSort()
{
    sorting_.giveUp();
    sortColumn_.reset();
    ascending_ = true;
}

void EventModel::sortRows()
{
    const auto work = [this, by = EventOrder{words_, fold_, *sortColumn_, ascending_}](
                          std::vector<quint32>& rows, const std::atomic<bool>& stop) {
        sortEvents(rows, store_, by, stop);
    };
    sorting_.giveUp();
    if (filling_ || order_.size() <= sortedAtOnce_) {
        std::vector<quint32> order = order_;
        work(order, false);
        putInOrder(std::move(order));
        return;
    }
    sorting_.begin(order_, work, [this](std::vector<quint32> order) { putInOrder(std::move(order)); });
    emit sortingChanged();
}

void EventModel::putInOrder(std::vector<quint32> order)
{
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<quint32> events;
    for (const QModelIndex& index : before)
        events.push_back(eventAt(index.row()));

    order_ = std::move(order);
    shown_ = shownOf(order_);

    if (!before.isEmpty()) {
        std::vector<int> rows(store_.size(), -1);
        for (std::size_t row = 0; row < shown_.size(); ++row)
            rows[shown_[row]] = int(row);
        QModelIndexList after;
        for (qsizetype i = 0; i < before.size(); ++i)
            after << index(rows[events[std::size_t(i)]], before[i].column());
        changePersistentIndexList(before, after);
    }
    emit layoutChanged();
    emit sortingChanged();
}

std::vector<quint32> EventModel::shownOf(const std::vector<quint32>& order) const
{
    std::vector<quint32> shown;
    shown.reserve(order.size());
    std::copy_if(order.begin(), order.end(), std::back_inserter(shown),
                 [this](quint32 event) { return isShown(event); });
    return shown;
}

void EventModel::setNeedle(const QString& text)
{
    if (text == needle_)
        return;
    needle_ = text;
    judge(0);
    showAgain();
}

void EventModel::setSpan(const std::optional<Span>& span)
{
    if (span == span_)
        return;
    span_ = span;
    for (quint32 event = 0; event < passes_.size(); ++event)
        judgeSpan(event);
    showAgain();
}

void EventModel::showAgain()
{
    beginResetModel();
    shown_ = shownOf(order_);
    endResetModel();
    emit rowsChanged();
}

Timeline EventModel::timeline() const
{
    return Timeline::of([this](auto&& take) {
        for (quint32 event = 0; event < passes_.size(); ++event) {
            if (passes_[event].words)
                take(store_.when(event), store_.type(event));
        }
    });
}

void EventModel::setAllChecked(bool checked)
{
    for (const quint32 event : shown_)
        checked_[event] = checked;
    if (!shown_.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
}

void EventModel::setChecked(const std::vector<int>& rows, bool checked)
{
    for (const int row : rows)
        checked_[eventAt(row)] = checked;
    if (!rows.empty())
        emit dataChanged(index(rows.front(), 0), index(rows.back(), 0), {Qt::CheckStateRole});
}

int EventModel::checkedCount() const
{
    return int(
        std::count_if(shown_.begin(), shown_.end(), [this](quint32 event) { return checked_[event]; }));
}

QString EventModel::text(int row, EventColumn column) const
{
    const StoredEvent event = store_.at(eventAt(row));
    switch (column) {
    case EventColumn::Type:
        return words_.types[std::size_t(event.type)];
    case EventColumn::Date:
        return event.when == kNoStamp ? decoded(event.dateText) : dateText(event.when);
    case EventColumn::Source:
        return words_.sources[std::size_t(event.source)];
    case EventColumn::Equipment:
        return decoded(event.equipment);
    case EventColumn::Instrument:
        return decoded(event.instrument);
    case EventColumn::Description:
        return decoded(event.description);
    }
    return {};
}

QStringList EventModel::cells(int row) const
{
    QStringList cells;
    for (int column = 0; column < kEventColumns; ++column)
        cells << text(row, EventColumn(column));
    return cells;
}

QString EventModel::rowsText(const std::vector<int>& rows) const
{
    QStringList lines;
    for (const int row : rows)
        lines << cells(row).join(QLatin1Char('\t'));
    return lines.join(QLatin1Char('\n'));
}

QString EventModel::decoded(QByteArrayView bytes) const
{
    return platform::decode(bytes.toByteArray(), codePage_);
}

int EventModel::rowOf(quint32 event) const
{
    const auto found = std::find(shown_.begin(), shown_.end(), event);
    return found == shown_.end() ? -1 : int(found - shown_.begin());
}

int EventModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

int EventModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kEventColumns;
}

// A view asks for the index and the flags of every row whenever it lays them out.
QModelIndex EventModel::index(int row, int column, const QModelIndex& parent) const
{
    const bool exists = row >= 0 && row < rowCount(parent) && column >= 0 && column < kEventColumns;
    return exists ? createIndex(row, column) : QModelIndex();
}

Qt::ItemFlags EventModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant EventModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return text(index.row(), EventColumn(index.column()));
    if (index.column() != 0)
        return {};
    if (role == Qt::CheckStateRole)
        return isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    return role == ImageRole ? QVariant(typeAt(index.row())) : QVariant();
}

bool EventModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole)
        return false;
    checked_[eventAt(index.row())] = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {role});
    return true;
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kEventColumns)
        return {};
    return words_.headings[std::size_t(section)];
}

} // namespace events
