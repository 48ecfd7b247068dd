#include "bus/TraceModel.h"

#include "bus/TraceWords.h"
#include "platform/TextFile.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QDateTime>
#include <algorithm>

namespace bus {

namespace {

const char* const kHeadings[TraceModel::kColumns] = {"trace.time",  "trace.gap",  "trace.direction",
                                                     "trace.bytes", "trace.text", "trace.meaning"};

QDateTime timeOf(const TraceEvent& event)
{
    return QDateTime::fromMSecsSinceEpoch(event.at);
}

QByteArray textLine(const QStringList& cells)
{
    return cells.join('\t').toUtf8() + platform::kSystemLineEnd;
}

} // namespace

TraceModel::TraceModel(const LineTrace& trace, const session::Session& session, const session::Texts& texts)
    : trace_(trace), session_(session), texts_(texts)
{
    follow();
}

void TraceModel::follow()
{
    if (paused_)
        return;
    dropForgotten();
    std::vector<TraceEvent> fresh;
    const auto& events = trace_.events();
    const auto begin = std::lower_bound(events.begin(), events.end(), next_,
                                        [](const TraceEvent& one, qint64 next) { return one.number < next; });
    std::copy_if(begin, events.end(), std::back_inserter(fresh),
                 [this](const TraceEvent& event) { return passes(event); });
    if (!events.empty())
        next_ = events.back().number + 1;
    if (fresh.empty())
        return;
    const int first = int(shown_.size());
    beginInsertRows({}, first, first + int(fresh.size()) - 1);
    shown_.insert(shown_.end(), fresh.begin(), fresh.end());
    endInsertRows();
}

// What the trace doesn't hold any more isn't shown any more.
void TraceModel::dropForgotten()
{
    if (trace_.events().empty())
        return;
    const qint64 oldest = trace_.events().front().number;
    const auto kept = std::find_if(shown_.begin(), shown_.end(),
                                   [oldest](const TraceEvent& event) { return event.number >= oldest; });
    if (kept == shown_.begin())
        return;
    beginRemoveRows({}, 0, int(kept - shown_.begin()) - 1);
    shown_.erase(shown_.begin(), kept);
    endRemoveRows();
}

void TraceModel::setFilter(const QString& text)
{
    if (text == filter_)
        return;
    filter_ = text;
    beginResetModel();
    shown_.clear();
    for (const TraceEvent& event : trace_.events()) {
        if (event.number < next_ && passes(event))
            shown_.push_back(event);
    }
    endResetModel();
}

void TraceModel::setPaused(bool paused)
{
    paused_ = paused;
    follow();
}

void TraceModel::relabel()
{
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
    if (!shown_.empty())
        emit dataChanged(index(0, 0), index(int(shown_.size()) - 1, kColumns - 1));
}

int TraceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

int TraceModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant TraceModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const TraceEvent& event = shown_[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return cell(event, index.column());
    case Qt::ToolTipRole:
        return index.column() == Time ? timeOf(event).toString("dd/MM/yyyy HH:mm:ss.zzz")
                                      : cell(event, index.column());
    case Qt::TextAlignmentRole:
        return int((index.column() == Gap ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case KindRole:
        return int(kindOf(event));
    default:
        return {};
    }
}

QVariant TraceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return texts_.own(kHeadings[section]);
}

QString TraceModel::cell(const TraceEvent& event, int column) const
{
    switch (column) {
    case Time:
        return timeOf(event).toString("HH:mm:ss.zzz");
    case Gap:
        return event.gap < 0 ? QString() : QString::number(double(event.gap) / 1000, 'f', 3);
    case Direction:
        return texts_.own(event.sent ? "trace.sent" : "trace.received");
    case Bytes:
        return hexOf(event.bytes);
    case Plain:
        return plainOf(event, session_.CodePage);
    default:
        return meaningOf(event, texts_);
    }
}

bool TraceModel::passes(const TraceEvent& event) const
{
    if (filter_.isEmpty())
        return true;
    for (int column = 0; column < kColumns; ++column) {
        if (cell(event, column).contains(filter_, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

QList<QByteArray> TraceModel::lines() const
{
    QStringList head;
    for (const char* heading : kHeadings)
        head << texts_.own(heading);
    QList<QByteArray> lines{textLine(head)};
    for (const TraceEvent& event : shown_) {
        QStringList cells{timeOf(event).toString("yyyy-MM-dd HH:mm:ss.zzz")};
        for (int column = Gap; column < kColumns; ++column)
            cells << cell(event, column);
        lines << textLine(cells);
    }
    return lines;
}

} // namespace bus
