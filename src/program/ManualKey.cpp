#include "program/ManualKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace program {

ManualKey::ManualKey(Show show) : show_(std::move(show))
{
    qApp->installEventFilter(this);
}

bool ManualKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget)
        return false;
    const QString window = widget->window()->objectName();
    if (window != QLatin1String("frmManual"))
        show_(window);
    return true;
}

} // namespace program
