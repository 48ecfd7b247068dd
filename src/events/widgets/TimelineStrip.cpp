#include "events/widgets/TimelineStrip.h"

#include "events/EventLog.h"
#include "session/Texts.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace events {

namespace {

constexpr int kMargin = 8;
constexpr int kBarsHeight = 44;
constexpr int kLeastBar = 2; // points; a single error among thousands is seen
constexpr int kWidestBar = 40;

// The colours of the types' pictures, lighter on a dark ground.
QColor colourOf(int type, const QPalette& palette)
{
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    switch (type) {
    case kInformation:
        return dark ? QColor("#5FB4E5") : QColor("#1E88C7");
    case kWarning:
        return dark ? QColor("#F5BE66") : QColor("#C2740F");
    default:
        return dark ? QColor("#F27F7F") : QColor("#C93B3B");
    }
}

} // namespace

TimelineStrip::TimelineStrip(const session::Texts& texts, QWidget* parent) : QWidget(parent), texts_(texts)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::CrossCursor);
}

void TimelineStrip::setTimeline(const Timeline& timeline)
{
    timeline_ = timeline;
    dragging_ = false;
    if (!timeline.isEmpty()) {
        cursor_ = std::clamp(cursor_, timeline.first(), timeline.last());
        anchor_ = cursor_;
    }
    setEnabled(!timeline.isEmpty());
    describe();
    update();
}

void TimelineStrip::setChosen(const std::optional<Span>& span)
{
    chosen_ = span;
    update();
}

QSize TimelineStrip::sizeHint() const
{
    return {400, kBarsHeight + fontMetrics().height() + 10};
}

QSize TimelineStrip::minimumSizeHint() const
{
    return {120, sizeHint().height()};
}

QRect TimelineStrip::ground() const
{
    return {kMargin, 4, width() - 2 * kMargin, kBarsHeight};
}

QRect TimelineStrip::place(qint64 unit) const
{
    const QRect all = ground();
    const qint64 at = unit - timeline_.first();
    const int left = all.left() + int(at * all.width() / units());
    const int right = all.left() + int((at + 1) * all.width() / units());
    return {left, all.top(), std::max(right - left, 1), all.height()};
}

qint64 TimelineStrip::unitAt(int x) const
{
    const QRect all = ground();
    const qint64 at = qint64(std::clamp(x - all.left(), 0, all.width() - 1));
    // The first unit whose place holds the point.
    const qint64 unit = timeline_.first() + at * units() / all.width();
    return std::min(place(unit).right() + 1 <= all.left() + at ? unit + 1 : unit, timeline_.last());
}

// Bars that lie closer together than the screen's points share a column.
std::vector<TimelineStrip::Column> TimelineStrip::columns() const
{
    std::vector<Column> columns;
    for (const Timeline::Bar& bar : timeline_.bars()) {
        const QRect place = this->place(bar.unit);
        const int gap = place.width() > 3 ? 1 : 0;
        if (columns.empty() || columns.back().left != place.left()) {
            const int spare = std::max(0, place.width() - kWidestBar) / 2;
            columns.push_back({place.left() + spare, place.right() + 1 - gap - spare, bar});
        } else {
            for (std::size_t type = 0; type < bar.counts.size(); ++type)
                columns.back().bar.counts[type] += bar.counts[type];
        }
    }
    return columns;
}

QString TimelineStrip::words(const Span& span) const
{
    const Timeline::Bar sum = timeline_.sum(span.from, span.to);
    const QString from = timeline_.name(span.from), to = timeline_.name(span.to);
    const QString when = from == to ? from : texts_.own("timeline.span").arg(from, to);
    return texts_.own("timeline.bar").arg(when).arg(sum.counts[1]).arg(sum.counts[2]).arg(sum.counts[3]);
}

TimelineStrip::Span TimelineStrip::marked() const
{
    return {std::min(anchor_, cursor_), std::max(anchor_, cursor_)};
}

void TimelineStrip::describe()
{
    setAccessibleName(texts_.own("timeline.name"));
    setAccessibleDescription(timeline_.isEmpty()
                                 ? texts_.own("timeline.empty")
                                 : words(marked()) + QLatin1Char(' ') + texts_.own("timeline.hint"));
}

// Painting
// ------------------------------------------------------------------------------------------------------------

void TimelineStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    const QRect all = ground();
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(all.left(), all.bottom() + 1, all.right(), all.bottom() + 1);
    if (timeline_.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, texts_.own("timeline.empty"));
        return;
    }
    QColor shade = palette().color(QPalette::Highlight);
    shade.setAlpha(60);
    if (chosen_)
        paintSpan(painter, *chosen_, shade);
    if (dragging_)
        paintSpan(painter, marked(), shade);
    const std::vector<Column> columns = this->columns();
    int tallest = 0;
    for (const Column& column : columns)
        tallest = std::max(tallest, column.bar.total());
    for (const Column& column : columns)
        paintColumn(painter, column, tallest);
    paintDates(painter);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(place(marked().from).united(place(marked().to)).adjusted(-2, -2, 2, 2));
    }
}

void TimelineStrip::paintColumn(QPainter& painter, const Column& column, int tallest) const
{
    int top = ground().bottom() + 1;
    for (const int type : {kInformation, kWarning, kError}) {
        const int count = column.bar.counts[std::size_t(type)];
        if (count == 0)
            continue;
        const int height = std::max(int(qint64(count) * (kBarsHeight - 2 * kLeastBar) / tallest), kLeastBar);
        top -= height;
        painter.fillRect(column.left, top, std::max(column.right - column.left, 1), height,
                         colourOf(type, palette()));
    }
}

void TimelineStrip::paintSpan(QPainter& painter, const Span& span, const QColor& colour) const
{
    painter.fillRect(place(span.from).united(place(span.to)), colour);
}

// The first and the last unit; the chosen one between them, where there is room.
void TimelineStrip::paintDates(QPainter& painter) const
{
    const QRect line(kMargin, ground().bottom() + 3, width() - 2 * kMargin, fontMetrics().height());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(line, Qt::AlignLeft, timeline_.name(timeline_.first()));
    if (units() > 1)
        painter.drawText(line, Qt::AlignRight, timeline_.name(timeline_.last()));
    if (!chosen_ && !dragging_)
        return;
    const QString words = this->words(dragging_ ? marked() : *chosen_);
    const int edge = fontMetrics().horizontalAdvance(timeline_.name(timeline_.last())) + kMargin;
    if (fontMetrics().horizontalAdvance(words) > line.width() - 2 * edge)
        return;
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(line, Qt::AlignHCenter, words);
}

// Gestures
// ------------------------------------------------------------------------------------------------------------

bool TimelineStrip::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || timeline_.isEmpty())
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const qint64 unit = unitAt(help->pos().x());
    QToolTip::showText(help->globalPos(), words({unit, unit}), this);
    return true;
}

void TimelineStrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || timeline_.isEmpty())
        return;
    dragging_ = true;
    moveTo(unitAt(event->pos().x()), false);
    wasChosen_ = chosen_ && cursor_ >= chosen_->from && cursor_ <= chosen_->to;
}

void TimelineStrip::mouseMoveEvent(QMouseEvent* event)
{
    if (dragging_)
        moveTo(unitAt(event->pos().x()), true);
}

void TimelineStrip::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !std::exchange(dragging_, false))
        return;
    update();
    const bool clicked = anchor_ == cursor_;
    if (clicked && chosen_ && !wasChosen_)
        emit letGo();
    else if (!clicked || !chosen_)
        emit chosen(marked().from, marked().to);
}

void TimelineStrip::keyPressEvent(QKeyEvent* event)
{
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveTo(cursor_ - 1, extend);
    case Qt::Key_Right:
        return moveTo(cursor_ + 1, extend);
    case Qt::Key_Home:
        return moveTo(timeline_.first(), extend);
    case Qt::Key_End:
        return moveTo(timeline_.last(), extend);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        emit chosen(marked().from, marked().to);
        return;
    case Qt::Key_Escape:
        if (chosen_) {
            emit letGo();
            return;
        }
        break;
    default:
        break;
    }
    // Escape without a span is the window's.
    QWidget::keyPressEvent(event);
}

void TimelineStrip::moveTo(qint64 unit, bool extend)
{
    cursor_ = std::clamp(unit, timeline_.first(), timeline_.last());
    if (!extend)
        anchor_ = cursor_;
    describe();
    update();
}

void TimelineStrip::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void TimelineStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        describe();
}

} // namespace events
