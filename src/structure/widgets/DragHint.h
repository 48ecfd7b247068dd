#pragma once

#include <QFrame>

class QIcon;
class QLabel;

namespace structure {

// Goes beside the pointer during a drag: a picture of what it is, and in words what a drop would do.
class DragHint : public QFrame
{
    Q_OBJECT

public:
    explicit DragHint(QWidget* parent);

    void tell(const QIcon& icon, const QString& words, const QPoint& globalPosition);
    void goTo(const QPoint& globalPosition);

private:
    QLabel* picture_;
    QLabel* words_;
};

} // namespace structure
