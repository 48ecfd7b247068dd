#include "platform/widgets/EscapeKey.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>

namespace platform {

namespace {

// Stands before every object of the program for as long as it lives.
class InputSink : public QObject
{
public:
    InputSink() { QApplication::instance()->installEventFilter(this); }

    bool escape() const { return escape_; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // no shortcut takes the key away
            event->accept();
            return true;
        case QEvent::KeyPress:
            escape_ = escape_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
            return true;
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        case QEvent::Close: // the window's close box
            event->ignore();
            return true;
        default:
            return false;
        }
    }

private:
    bool escape_ = false;
};

} // namespace

bool takeEscape()
{
    InputSink sink;
    QApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
    return sink.escape();
}

} // namespace platform
