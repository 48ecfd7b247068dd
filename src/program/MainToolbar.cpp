#include "program/MainToolbar.h"

#include "platform/widgets/Icons.h"
#include "program/MenuSet.h"
#include "session/CommandStates.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "widgets/FormLanguage.h"

#include <QContextMenuEvent>
#include <QKeySequence>
#include <QToolButton>
#include <algorithm>
#include <map>

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

struct Look
{
    const char* key;
    const char* icon;
    const char* ownText;
};
constexpr Look kLooks[] = {{"Filter", "filter", "menu.filter"},
                           {"Find", "find", "menu.find"},
                           {"Pending", "pending", "menu.pending"}};

bool isLook(const QString& key)
{
    return std::any_of(std::begin(kLooks), std::end(kLooks),
                       [&](const Look& look) { return key == look.key; });
}

// The keys that stand for a button, as the menus know them.
QString keysOf(const QString& button)
{
    static const std::map<QString, QString> kKeys{
        {"New", "Ins"},          {"Delete", "Del"},    {"Cut", "Ctrl+X"},        {"Copy", "Ctrl+C"},
        {"Paste", "Ctrl+V"},     {"Refresh", "F5"},    {"ReadWrite", "Ctrl+R"},  {"Property", "Return"},
        {"Parent", "Backspace"}, {"Filter", "Ctrl+F"}, {"Find", "Ctrl+Shift+F"}, {"Pending", "Ctrl+Shift+P"}};
    const auto keys = kKeys.find(button);
    return keys == kKeys.end() ? QString() : QKeySequence(keys->second).toString(QKeySequence::NativeText);
}

} // namespace

MainToolbar::MainToolbar(const Session& session, const Texts& texts, const CommandHandlers& handlers,
                         CommandStates& states, structure::Structure& structure, QWidget* parent)
    : QToolBar(parent), session_(session), texts_(texts), handlers_(handlers), states_(states),
      aim_(session, structure, states)
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
        connect(button, &QAction::triggered, this, [this, key = command.key] {
            if (aim_.enabled(key))
                handlers_.run(aim_.take(key));
        });
        widgetForAction(button)->setObjectName(command.key);
        if (command.key == "ReadWrite")
            addLooks();
    }
    makeViewMenu();
    mnuTlb_ = MenuSet::makeMenu({"mnuTlb", 0, {}, popupToolbar()}, this, handlers);
    connect(&states, &CommandStates::buttonsChanged, this, &MainToolbar::refresh);
    connect(&structure, &structure::Structure::itemSelected, this, &MainToolbar::enableButtons);
    connect(&structure, &structure::Structure::nodeSelected, this, &MainToolbar::enableButtons);
    refresh();
}

// What looks through the company, beside the commands of the table.
void MainToolbar::addLooks()
{
    for (const Look& look : kLooks) {
        auto* button = addAction(platform::icon(look.icon), QString());
        button->setObjectName(look.key);
        button->setProperty(widgets::kOwnText, QString(look.ownText));
        connect(button, &QAction::triggered, this, [this, key = QString(look.key)] { handlers_.run(key); });
        widgetForAction(button)->setObjectName(look.key);
    }
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
    for (QAction* button : actions()) {
        const QString keys = keysOf(button->objectName());
        if (keys.isEmpty() || button->text().isEmpty())
            continue;
        button->setToolTip(QStringLiteral("%1 (%2)").arg(button->text().remove('&'), keys));
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
        button->setVisible(shown.contains(key) || isLook(key));
        button->setCheckable(key == "Tree");
        button->setChecked(key == "Tree" && states_.marked(key));
    }
    enableButtons();
    relabel();
    refreshMenu(*mnuTlb_, states_, [](const QString&) { return true; });
}

void MainToolbar::enableButtons()
{
    for (QAction* button : actions()) {
        const QString key = button->objectName();
        button->setEnabled(isLook(key) ? states_.buttonEnabled("Refresh") : aim_.enabled(key));
    }
}

} // namespace program
