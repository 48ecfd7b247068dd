#include "program/MenuSet.h"

#include "platform/widgets/Icons.h"
#include "session/CommandStates.h"
#include "widgets/FormLanguage.h"

#include <QActionGroup>
#include <QWidget>

namespace program {

using namespace session;
using widgets::kOwnText;
using widgets::tagged;

namespace {

QIcon iconOf(const QString& commandName)
{
    const QString command = commandName.endsWith("Node") ? commandName.chopped(4) : commandName;
    // What carries a mark has no room for a picture beside it.
    for (const ToolbarCommand& button : toolbarCommands()) {
        if (button.key == command && !button.isSeparator() && command != "Tree")
            return platform::icon(button.icon);
    }
    static const std::map<QString, QString> kOthers{
        {"Export", "export"},   {"Import", "import"}, {"Print", "print"},     {"Allarms", "alarm"},
        {"Filter", "filter"},   {"Find", "find"},     {"Pending", "pending"}, {"LineTrace", "line-trace"},
        {"Compare", "compare"}, {"Manual", "manual"}};
    const auto other = kOthers.find(command);
    return other == kOthers.end() ? QIcon() : platform::icon(other->second);
}

QString tagOf(const MenuEntry& entry)
{
    return entry.text == 0 ? QString() : QString::number(entry.text);
}

} // namespace

MenuSet::MenuSet(Place place, QWidget* form, const CommandHandlers& handlers, CommandStates& states)
    : QObject(form), place_(place), states_(states)
{
    for (const MenuEntry& menu : menuBar(place))
        bar_ << makeMenu(menu, form, handlers);
    mnuBus_ = makeMenu({"mnuBus", 0, {}, popupBus(place)}, form, handlers);
    mnuBus_->setDefaultAction(mnuBus_->findChild<QAction*>("mnuBusProperty"));
    connect(&states, &CommandStates::menusChanged, this, [this](Place changed) {
        if (changed == place_)
            refresh();
    });
    refresh();
}

void MenuSet::popup(const QPoint& globalPosition, int level)
{
    states_.EnableDisable_PopupMenu(place_, level);
    mnuBus_->popup(globalPosition);
}

QMenu* MenuSet::makeMenu(const MenuEntry& entry, QWidget* parent, const CommandHandlers& handlers)
{
    auto* menu = tagged(new QMenu(entry.caption, parent), entry.name, tagOf(entry));
    menu->menuAction()->setObjectName(entry.name);
    menu->setProperty(kOwnText, entry.ownText);
    QActionGroup* choices = nullptr;
    for (const MenuEntry& below : entry.entries) {
        if (below.isSeparator()) {
            menu->addSeparator();
            choices = nullptr;
        } else if (!below.entries.empty()) {
            menu->addMenu(makeMenu(below, menu, handlers));
        } else {
            QAction* action =
                tagged(menu->addAction(iconOf(below.command), below.caption), below.name, tagOf(below));
            action->setProperty(kOwnText, below.ownText);
            action->setShortcut(QKeySequence(below.shortcut));
            action->setShortcutVisibleInContextMenu(true);
            if (below.shortcutOnlyShown)
                action->setShortcutContext(Qt::WidgetShortcut);
            if (below.oneOf) {
                choices = choices ? choices : new QActionGroup(menu);
                choices->addAction(action);
            }
            connect(action, &QAction::triggered, menu,
                    [&handlers, command = below.command] { handlers.run(command); });
        }
    }
    return menu;
}

void MenuSet::refresh()
{
    for (QMenu* menu : bar_) {
        const auto enabled = [this](const QString& name) { return states_.menuEnabled(place_, name); };
        menu->menuAction()->setEnabled(enabled(menu->objectName()));
        refreshMenu(*menu, states_, enabled);
    }
    refreshMenu(*mnuBus_, states_,
                [this](const QString& name) { return states_.popupEnabled(place_, name); });
}

void refreshMenu(QMenu& menu, const CommandStates& states, const std::function<bool(const QString&)>& enabled)
{
    for (QAction* action : menu.actions()) {
        const QString name = action->objectName();
        if (action->isSeparator())
            continue;
        // The language is nobody's right and needs no company.
        action->setEnabled(name.startsWith(QLatin1String("mnuLanguage")) || enabled(name));
        action->setCheckable(states.markable(name));
        action->setChecked(states.marked(name));
        if (action->menu())
            refreshMenu(*action->menu(), states, enabled);
    }
}

} // namespace program
