#pragma once

#include "bus/LineTrace.h"
#include "session/Forward.h"

#include <QAbstractTableModel>
#include <deque>

namespace bus {

// The trace as a table, oldest event first. It follows the line when it is told to, narrowed by a filter;
// paused it stands still while the trace goes on.
class TraceModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Time,
        Gap,
        Direction,
        Bytes,
        Plain,
        Meaning,
        kColumns
    };
    static constexpr int KindRole = Qt::UserRole;

    TraceModel(const LineTrace& trace, const session::Session& session, const session::Texts& texts);

    // Takes in what has happened on the line since the last time.
    void follow();
    // Only events with the text in any column; "" shows all.
    void setFilter(const QString& text);
    void setPaused(bool paused);
    bool isPaused() const { return paused_; }
    const QString& filter() const { return filter_; }
    // The language has changed.
    void relabel();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // What the table shows as a text, UTF-8: headings, then an event a line, with tabs and the date.
    QList<QByteArray> lines() const;

private:
    QString cell(const TraceEvent& event, int column) const;
    bool passes(const TraceEvent& event) const;
    void dropForgotten();

    const LineTrace& trace_;
    const session::Session& session_;
    const session::Texts& texts_;
    std::deque<TraceEvent> shown_;
    qint64 next_ = 0; // number of the first event that hasn't been looked at
    QString filter_;
    bool paused_ = false;
};

} // namespace bus
