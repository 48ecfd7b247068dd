#include "platform/widgets/WindowPlaces.h"

#include "platform/widgets/InsideScreen.h"

#include <QEvent>
#include <QLayout>
#include <QSettings>
#include <QWidget>

namespace platform {

namespace {

// A window whose size is that of its words, or which nobody frames, has no size of its own to keep.
bool isSized(const QWidget& window)
{
    const bool fixed = window.layout() && window.layout()->sizeConstraint() == QLayout::SetFixedSize;
    return !fixed && !(window.windowFlags() & Qt::FramelessWindowHint) &&
           window.minimumSize() != window.maximumSize();
}

} // namespace

void WindowPlaces::keepIn(const QString& file)
{
    file_ = file;
    const QSettings kept(file_, QSettings::IniFormat);
    for (const QString& name : kept.childKeys())
        places_[name] = kept.value(name).toByteArray();
}

void WindowPlaces::look(QWidget& window, const QString& name)
{
    const auto place = places_.constFind(name);
    if (place != places_.constEnd() && isSized(window))
        window.restoreGeometry(*place);
    window.installEventFilter(this);
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event)
{
    auto* window = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && window->isWindow())
        keepInside(*window);
    else if (event->type() == QEvent::Close && window->isVisible())
        keep(*window);
    else if (event->type() == QEvent::Hide && !event->spontaneous())
        keep(*window);
    return false;
}

void WindowPlaces::keep(const QWidget& window)
{
    if (!window.isWindow() || !isSized(window))
        return;
    places_[window.objectName()] = window.saveGeometry();
    if (!file_.isEmpty())
        QSettings(file_, QSettings::IniFormat).setValue(window.objectName(), places_[window.objectName()]);
}

} // namespace platform
