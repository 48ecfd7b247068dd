#include "program/MainToolbar.h"

#include "platform/widgets/Icons.h"
#include "program/MenuSet.h"
#include "session/CommandStates.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QContextMenuEvent>
#include <QToolButton>

namespace program {

using namespace session;
using widgets::tagged;

namespace {

constexpr QSize kLargeIcons(32, 32);
constexpr QSize kSmallIcons(16, 16);

struct ViewEntry
{
    const char* key;
    int text;
};
constexpr ViewEntry kViews[] = {{"LargeIcon", 131}, {"SmallIcon", 132}, {"List", 133}, {"Report", 134}};

} // namespace

MainToolbar::MainToolbar(const Session& session, const Texts& texts, const CommandHandlers& handlers,
                         CommandStates& states, QWidget* parent)
    : QToolBar(parent), session_(session), texts_(texts), handlers_(handlers), states_(states)
{
    setObjectName("tlbMain");
    setMovable(false);
    for (const ToolbarCommand& command : toolbarCommands()) {
        if (command.isSeparator()) {
            addSeparator()->setObjectName(command.key);
            continue;
        }
        QAction* button = tagged(addAction(platform::icon(command.icon), command.key), command.key,
                                 QString::number(command.text));
        if (!command.ownText.isEmpty()) {
            button->setProperty(widgets::kTag, {});
            button->setProperty(widgets::kOwnText, command.ownText);
        }
        connect(button, &QAction::triggered, this, [this, key = command.key] { handlers_.run(key); });
        widgetForAction(button)->setObjectName(command.key);
    }
    makeViewMenu();
    mnuTlb_ = MenuSet::makeMenu({"mnuTlb", 0, {}, popupToolbar()}, this, handlers);
    connect(&states, &CommandStates::buttonsChanged, this, &MainToolbar::refresh);
    refresh();
}

void MainToolbar::makeViewMenu()
{
    auto* button = findChild<QToolButton*>("View");
    viewMenu_ = new QMenu(this);
    viewMenu_->setObjectName("mnuTlbView");
    for (const ViewEntry& view : kViews) {
        QAction* entry = viewMenu_->addAction(QString());
        entry->setObjectName(view.key);
        connect(entry, &QAction::triggered, this, [this, key = QString(view.key)] { handlers_.run(key); });
    }
    button->setMenu(viewMenu_);
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

void MainToolbar::relabel()
{
    // Without words there is nothing to follow; the language step of the form tells it.
    if (!texts_.hasBlock())
        return;
    // The current view carries a bullet, the others the room for one.
    for (const ViewEntry& view : kViews) {
        const QString caption = texts_(view.text);
        viewMenu_->findChild<QAction*>(view.key)->setText(
            (states_.marked(view.key) ? QStringLiteral("\u2022   ") : QStringLiteral("    ")) + caption);
    }
}

void MainToolbar::contextMenuEvent(QContextMenuEvent* event)
{
    mnuTlb_->popup(event->globalPos());
}

void MainToolbar::refresh()
{
    setIconSize(session_.ToolbarSet.Icons != 0 ? kLargeIcons : kSmallIcons);
    const QStringList shown = shownButtons(session_.ToolbarSet.View != 0);
    for (QAction* button : actions()) {
        const QString key = button->objectName();
        button->setVisible(shown.contains(key));
        button->setEnabled(states_.buttonEnabled(key));
        button->setCheckable(key == "Tree");
        button->setChecked(key == "Tree" && states_.marked(key));
    }
    relabel();
    refreshMenu(*mnuTlb_, states_, [](const QString&) { return true; });
}

} // namespace program
