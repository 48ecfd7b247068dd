#include "history/widgets/ValuePlot.h"

#include "history/HistoryModel.h"
#include "session/Texts.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace history {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 6;
constexpr double kLine = 2;
constexpr int kDarkGround = 128;

// A band's states, each of a colour of its own that text can be read on, in either palette.
QColor colourOfState(int place, bool dark)
{
    static constexpr int kHues[] = {205, 35, 140, 280, 0, 60, 320, 175};
    const int hue = kHues[std::size_t(place) % std::size(kHues)];
    return dark ? QColor::fromHsl(hue, 110, 75) : QColor::fromHsl(hue, 150, 205);
}

} // namespace

ValuePlot::ValuePlot(const session::Texts& texts, QWidget* parent) : QWidget(parent), texts_(texts)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValuePlot::setPlot(Plot plot)
{
    plot_ = std::move(plot);
    relabel();
}

void ValuePlot::relabel()
{
    setAccessibleName(texts_.own("history.plot"));
    setAccessibleDescription(plot_.inWords(texts_));
    showLast();
}

// With nothing pointed at: what the value is now.
void ValuePlot::showLast()
{
    shownTime_.reset();
    words_ = plot_.isEmpty() ? texts_.own("history.plot.none") : stepWords(plot_.steps.back(), texts_);
    update();
}

void ValuePlot::showTime(qint64 time)
{
    if (plot_.isEmpty())
        return;
    shownTime_ = time;
    words_ = stepWords(plot_.at(time), texts_);
    QAccessibleValueChangeEvent told(this, words_);
    QAccessible::updateAccessibility(&told);
    update();
}

QRect ValuePlot::field() const
{
    const int line = fontMetrics().height();
    int left = kMargin;
    if (const auto span = plot_.span(); span && plot_.form == Plot::Form::Steps) {
        for (const PlotStep& step : plot_.steps) {
            if (step.number == span->first || step.number == span->second)
                left = std::max(left, kMargin + kGap + fontMetrics().horizontalAdvance(step.shown));
        }
    }
    return {QPoint(left, kMargin + line + kGap),
            QPoint(width() - kMargin - 1, height() - kMargin - line - kGap)};
}

int ValuePlot::placeOf(qint64 time) const
{
    const QRect area = field();
    const double whole = double(plot_.to() - plot_.from());
    return area.left() + int(double(time - plot_.from()) / whole * area.width());
}

qint64 ValuePlot::timeAt(int x) const
{
    const QRect area = field();
    const double part = double(x - area.left()) / std::max(area.width(), 1);
    return plot_.from() + qint64(std::clamp(part, 0.0, 1.0) * double(plot_.to() - plot_.from()));
}

int ValuePlot::heightOf(double number) const
{
    const QRect area = field();
    const auto [low, high] = *plot_.span();
    const double part = high > low ? (number - low) / (high - low) : 0.5;
    return area.bottom() - kGap - int(part * (area.height() - 2 * kGap));
}

void ValuePlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    const QRect head(kMargin, kMargin, width() - 2 * kMargin, fontMetrics().height());
    painter.drawText(head, Qt::AlignLeft, fontMetrics().elidedText(words_, Qt::ElideRight, head.width()));
    if (!plot_.isEmpty()) {
        if (plot_.form == Plot::Form::Band)
            paintBand(painter);
        else
            paintSteps(painter);
        paintFrame(painter);
    }
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ValuePlot::paintSteps(QPainter& painter) const
{
    const auto span = plot_.span();
    if (!span)
        return;
    const QRect area = field();
    const QColor line = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(QPen(line, kLine));
    std::optional<int> before;
    for (const PlotStep& step : plot_.steps) {
        if (!step.number) {
            before.reset();
            continue;
        }
        const int left = placeOf(step.from), right = placeOf(step.to), y = heightOf(*step.number);
        if (before)
            painter.drawLine(left, *before, left, y);
        painter.drawLine(left, y, right, y);
        before = y;
    }
    painter.setPen(palette().color(QPalette::Text));
    for (const double end : {span->first, span->second}) {
        const auto step = std::find_if(plot_.steps.begin(), plot_.steps.end(),
                                       [end](const PlotStep& one) { return one.number == end; });
        const int y = heightOf(end);
        painter.drawText(QRect(0, y - fontMetrics().height() / 2, area.left() - kGap, fontMetrics().height()),
                         Qt::AlignRight | Qt::AlignVCenter, step->shown);
    }
}

void ValuePlot::paintBand(QPainter& painter) const
{
    const QRect area = field().adjusted(0, kGap, 0, -kGap);
    const bool dark = palette().color(QPalette::Base).lightness() < kDarkGround;
    QStringList states;
    for (const PlotStep& step : plot_.steps) {
        if (!states.contains(step.shown))
            states << step.shown;
        const int left = placeOf(step.from), right = std::max(placeOf(step.to), left + 1);
        const QRect part(left, area.top(), right - left, area.height());
        if (step.shown.isEmpty())
            continue; // it wasn't there
        painter.fillRect(part, colourOfState(int(states.indexOf(step.shown)), dark));
        painter.setPen(palette().color(QPalette::Base));
        painter.drawLine(part.topLeft(), part.bottomLeft());
        painter.setPen(palette().color(QPalette::Text));
        if (fontMetrics().horizontalAdvance(step.shown) + kGap <= part.width())
            painter.drawText(part, Qt::AlignCenter, step.shown);
    }
}

void ValuePlot::paintFrame(QPainter& painter) const
{
    const QRect area = field();
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    if (shownTime_) {
        painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
        const int x = placeOf(*shownTime_);
        painter.drawLine(x, area.top(), x, area.bottom());
    }
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect foot(area.left(), area.bottom() + kGap / 2, area.width(), fontMetrics().height());
    painter.drawText(foot, Qt::AlignLeft, timeWords(plot_.from()));
    painter.drawText(foot, Qt::AlignRight, timeWords(plot_.to()));
}

void ValuePlot::mouseMoveEvent(QMouseEvent* event)
{
    if (!plot_.isEmpty())
        showTime(timeAt(int(event->position().x())));
}

void ValuePlot::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    showLast();
}

void ValuePlot::keyPressEvent(QKeyEvent* event)
{
    if (plot_.isEmpty())
        return QWidget::keyPressEvent(event);
    const auto& steps = plot_.steps;
    const qint64 time = shownTime_.value_or(plot_.to());
    auto step = std::find_if(steps.begin(), steps.end(),
                             [&](const PlotStep& one) { return &one == &plot_.at(time); });
    switch (event->key()) {
    case Qt::Key_Left:
        return showTime(step == steps.begin() ? step->from : (step - 1)->from);
    case Qt::Key_Right:
        return showTime(step + 1 == steps.end() ? step->from : (step + 1)->from);
    case Qt::Key_Home:
        return showTime(steps.front().from);
    case Qt::Key_End:
        return showTime(steps.back().from);
    default:
        QWidget::keyPressEvent(event);
    }
}

void ValuePlot::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ValuePlot::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    showLast();
}

} // namespace history
