#pragma once

#include "history/PlotSteps.h"

#include <QWidget>

namespace history {

// A parameter over time: steps, or a band of states. The value under the pointer stands above it; the arrow
// keys walk from step to step.
class ValuePlot : public QWidget
{
    Q_OBJECT

public:
    explicit ValuePlot(const session::Texts& texts, QWidget* parent = nullptr);

    void setPlot(Plot plot);
    const Plot& plot() const { return plot_; }
    // What stands above the plot at this moment.
    const QString& words() const { return words_; }
    void relabel();
    // Where a time lies, from the left.
    int placeOf(qint64 time) const;

    QSize sizeHint() const override { return {400, 170}; }
    QSize minimumSizeHint() const override { return {200, 130}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect field() const;
    qint64 timeAt(int x) const;
    int heightOf(double number) const;
    void showTime(qint64 time);
    void showLast();
    void paintSteps(QPainter& painter) const;
    void paintBand(QPainter& painter) const;
    void paintFrame(QPainter& painter) const;

    const session::Texts& texts_;
    Plot plot_;
    QString words_;
    std::optional<qint64> shownTime_;
};

} // namespace history
