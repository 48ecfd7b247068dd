#pragma once

#include "session/Commands.h"
#include "session/Forward.h"

#include <QList>
#include <QMenu>

namespace program {

// The menus of one child form: its menu bar and its popup, with the controls' names, kept in step with the
// states.
class MenuSet : public QObject
{
    Q_OBJECT

public:
    // The menus are children of `form`, so that they are found under it by name.
    MenuSet(session::Place place, QWidget* form, const session::CommandHandlers& handlers,
            session::CommandStates& states);

    const QList<QMenu*>& bar() const { return bar_; }
    // Shows mnuBus after its rule has been applied.
    void popup(const QPoint& globalPosition, int level);

    // A menu made from entries, with a handler behind each and an icon where the toolbar has one for the
    // command.
    static QMenu* makeMenu(const session::MenuEntry& entry, QWidget* parent,
                           const session::CommandHandlers& handlers);

private:
    void refresh();

    session::Place place_;
    session::CommandStates& states_;
    QList<QMenu*> bar_;
    QMenu* mnuBus_ = nullptr;
};

// Enables and marks every entry of a menu, and of the menus below it.
void refreshMenu(QMenu& menu, const session::CommandStates& states,
                 const std::function<bool(const QString&)>& enabled);

} // namespace program
