#pragma once

#include "events/Timeline.h"
#include "session/Forward.h"

#include <QWidget>
#include <optional>

namespace events {

// The events of the list as bars by day or hour, stacked by type. Dragging over them chooses a span of time,
// a click outside of it lets it go. By keyboard the arrows move from bar to bar, Shift extends, Enter
// chooses, Escape lets go.
class TimelineStrip : public QWidget
{
    Q_OBJECT

public:
    struct Span
    {
        qint64 from; // units of the timeline, both included
        qint64 to;
        bool operator==(const Span&) const = default;
    };

    explicit TimelineStrip(const session::Texts& texts, QWidget* parent = nullptr);

    void setTimeline(const Timeline& timeline);
    // The span that the list is narrowed to.
    void setChosen(const std::optional<Span>& span);
    const Timeline& timeline() const { return timeline_; }

    // What a place of the strip tells, also to a screen reader.
    QString words(const Span& span) const;
    // The place of a unit's bar, in points.
    QRect place(qint64 unit) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void chosen(qint64 from, qint64 to);
    void letGo();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Column
    {
        int left;
        int right;
        Timeline::Bar bar;
    };

    QRect ground() const;
    qint64 units() const { return timeline_.last() - timeline_.first() + 1; }
    qint64 unitAt(int x) const;
    std::vector<Column> columns() const;
    Span marked() const;
    void moveTo(qint64 unit, bool extend);
    void describe();

    void paintColumn(QPainter& painter, const Column& column, int tallest) const;
    void paintSpan(QPainter& painter, const Span& span, const QColor& colour) const;
    void paintDates(QPainter& painter) const;

    const session::Texts& texts_;
    Timeline timeline_;
    std::optional<Span> chosen_;
    qint64 anchor_ = 0, cursor_ = 0; // of the drag or of the keyboard
    bool dragging_ = false;
    bool wasChosen_ = false; // where the button went down
};

} // namespace events
