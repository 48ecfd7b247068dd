#pragma once

#include <QWidget>

namespace widgets {

// A pair of small arrows beside a number field; held down, they go on.
class SpinButtons : public QWidget
{
    Q_OBJECT

public:
    explicit SpinButtons(const QString& name, QWidget* parent = nullptr);

signals:
    void stepped(int steps);

private:
    QWidget* makeArrow(const QString& name, Qt::ArrowType arrow, int steps);
};

} // namespace widgets
