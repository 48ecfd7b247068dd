#include "session/CommandStates.h"

#include "session/Level.h"
#include "session/Session.h"

#include <utility>

namespace session {

namespace {

void collectNames(const std::vector<MenuEntry>& menu, QStringList& names)
{
    for (const MenuEntry& entry : menu) {
        if (!entry.isSeparator())
            names << entry.name;
        collectNames(entry.entries, names);
    }
}

// The view of the list that a mark stands for, or -1.
int viewOfMark(const QString& name)
{
    static const std::vector<QStringList> kMarks{
        {"mnuLargeIcons", "mnuBusLargeIcon", "LargeIcon"},
        {"mnuSmallIcons", "mnuBusSmallIcon", "SmallIcon"},
        {"mnuListIcons", "mnuBusList", "List"},
        {"mnuReportIcons", "mnuBusReport", "Report"},
    };
    for (size_t view = 0; view < kMarks.size(); ++view) {
        if (kMarks[view].contains(name))
            return int(view);
    }
    return -1;
}

// Whether that changed anything. What no rule has named yet is enabled.
bool apply(EnabledStates& states, const EnabledStates& rule)
{
    bool changed = false;
    for (const auto& [name, enabled] : rule) {
        bool& state = states.try_emplace(name, true).first->second;
        changed |= std::exchange(state, enabled) != enabled;
    }
    return changed;
}

// The code of the language that a mark stands for, or "".
QString languageOfMark(const QString& name)
{
    static const QString kStart = QStringLiteral("mnuLanguage");
    return name.startsWith(kStart) ? name.mid(kStart.size()) : QString();
}

} // namespace

CommandStates::CommandStates(Session& session) : session_(session) {}

void CommandStates::EnableDisable_TlbMainButtons(int level)
{
    EnabledStates buttons =
        rules::toolbar(awaitsLogin() ? kNoCompany : level, rights(), session_.TreeBusSet.Visible != 0);
    if (awaitsLogin())
        buttons["Enter"] = true;
    applyToButtons(buttons);
}

void CommandStates::EnableDisable_StructureButtons(bool flag)
{
    const bool enabled = flag && !awaitsLogin();
    applyToButtons({{"Expand", enabled}, {"Collapse", enabled}});
    refreshMarks(); // whether the tree is shown is one
}

void CommandStates::DisableMainMenu()
{
    setAllMenus(false);
    EnabledStates left;
    for (const QString& name : rules::menusWithoutCompany())
        left[name] = true;
    left["mnuEnter"] = awaitsLogin();
    // The line is there with no company, too; one that waits for its operator shows nothing of itself.
    left["mnuLineTrace"] = !awaitsLogin();
    applyToMenus(Place::Tree, left);
    applyToMenus(Place::List, left);
}

void CommandStates::Enable_MainMenu()
{
    if (!awaitsLogin())
        setAllMenus(true);
}

void CommandStates::EnableDisable_MainMenu(int level)
{
    if (!awaitsLogin())
        applyToMenus(Place::List, rules::listMenus(level, rights()));
}

void CommandStates::EnableDisable_Menu(Place place, int level)
{
    if (awaitsLogin())
        return;
    if (place == Place::Tree)
        applyToMenus(Place::Tree, rules::treeMenus(level, rights()));
    else
        EnableDisable_MainMenu(level);
}

void CommandStates::EnableDisable_PopupMenu(Place place, int level)
{
    EnabledStates popup =
        place == Place::Tree ? rules::treePopup(level, rights()) : rules::listPopup(level, rights());
    for (auto& [name, enabled] : popup)
        enabled = enabled && !awaitsLogin();
    applyToPopup(place, popup);
}

void CommandStates::Set_View_Toolbar(int view)
{
    session_.ToolbarSet.View = qint16(view);
    refreshMarks();
}

void CommandStates::Set_Form_Icons(int icons)
{
    session_.ToolbarSet.Icons = qint16(icons);
    refreshMarks();
}

void CommandStates::refreshMarks()
{
    emit buttonsChanged();
    emit menusChanged(Place::Tree);
    emit menusChanged(Place::List);
}

bool CommandStates::markable(const QString& name) const
{
    static const QStringList kLooks{"mnuStructure",     "Tree",
                                    "mnuTlbComplete",   "mnuTlbViewComplete",
                                    "mnuTlbReduced",    "mnuTlbViewReduced",
                                    "mnuTlbLargeIcons", "mnuTlbSmallIcons"};
    return viewOfMark(name) >= 0 || kLooks.contains(name) || !languageOfMark(name).isEmpty();
}

bool CommandStates::marked(const QString& name) const
{
    if (const int view = viewOfMark(name); view >= 0)
        return std::max<int>(session_.ListBusSet.View, 0) == view;
    if (const QString language = languageOfMark(name); !language.isEmpty())
        return session_.Language.Code == language;
    if (name == "mnuStructure" || name == "Tree")
        return session_.TreeBusSet.Visible != 0;
    if (name == "mnuTlbComplete" || name == "mnuTlbViewComplete")
        return session_.ToolbarSet.View != 0;
    if (name == "mnuTlbReduced" || name == "mnuTlbViewReduced")
        return session_.ToolbarSet.View == 0;
    if (name == "mnuTlbLargeIcons")
        return session_.ToolbarSet.Icons != 0;
    if (name == "mnuTlbSmallIcons")
        return session_.ToolbarSet.Icons == 0;
    return false;
}

bool CommandStates::stateOf(const EnabledStates& states, const QString& name)
{
    const auto found = states.find(name);
    return found == states.end() || found->second;
}

void CommandStates::applyToButtons(const EnabledStates& rule)
{
    if (apply(buttons_, rule))
        emit buttonsChanged();
}

void CommandStates::applyToMenus(Place place, const EnabledStates& rule)
{
    if (apply(menusOf(place), rule))
        emit menusChanged(place);
}

void CommandStates::applyToPopup(Place place, const EnabledStates& rule)
{
    if (apply(popupsOf(place), rule))
        emit menusChanged(place);
}

void CommandStates::setAllMenus(bool enabled)
{
    for (const Place place : {Place::Tree, Place::List}) {
        QStringList names;
        collectNames(menuBar(place), names);
        EnabledStates all;
        for (const QString& name : names)
            all[name] = enabled;
        applyToMenus(place, all);
    }
}

Rights CommandStates::rights() const
{
    return Rights::of(session_.CurrentUser);
}

bool CommandStates::awaitsLogin() const
{
    return !session_.DbName.isEmpty() && !rights().loggedIn;
}

} // namespace session
