#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace database {

// Sheets that fly from one store to the other while a copy runs. The copy holds the thread, so a call of
// advance() paints the picture that belongs to the time that has gone by.
class CopyAnimation : public QWidget
{
    Q_OBJECT

public:
    explicit CopyAnimation(QWidget* parent = nullptr);

    void setRunning(bool running);
    bool isRunning() const { return clock_.isValid(); }
    void advance();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QElapsedTimer clock_;
    qint64 painted_ = 0; // when the picture that stands was painted
};

} // namespace database
