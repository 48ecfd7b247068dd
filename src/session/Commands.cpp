#include "session/Commands.h"

namespace session {

const std::vector<ToolbarCommand>& toolbarCommands()
{
    static const std::vector<ToolbarCommand> kCommands{
        {"NewDb", 164, "new-db"},
        {"OpenDb", 165, "open-db"},
        {"CloseDb", 166, "close-db"},
        {"SepDb"},
        {"Tree", 167, "tree"},
        {"Expand", 168, "expand"},
        {"Collapse", 169, "collapse"},
        {"SepTree"},
        {"Parent", 170, "parent", true},
        {"View", 171, "view", true},
        {"SepView", 0, {}, true},
        {"New", 172, "new", true},
        {"Delete", 173, "delete", true},
        {"Cut", 174, "cut", true},
        {"Copy", 175, "copy", true},
        {"Paste", 176, "paste", true},
        {"Refresh", 234, "refresh", true},
        {"Resync", 177, "resync"},
        {"Reset", 178, "reset", true},
        {"Property", 179, "property", true},
        {"History", 0, "history", false, "history.title"},
        {"ReadWrite", 181, "read-write", true},
        {"SepTool", 0, {}, true},
        {"EventViewer", 180, "event-viewer", true},
        {"Settings", 182, "settings"},
        {"Enter", 183, "enter", true},
        {"About", 184, "about", true},
        {"Exit", 45, "exit", true},
    };
    return kCommands;
}

namespace {

const MenuEntry kSeparator{"-"};

// The command on the selected node has a name of its own beside the one on the selected item.
QString twin(Place place, const QString& command)
{
    return place == Place::Tree ? command + QStringLiteral("Node") : command;
}

// The commands on an element. Their keys stand in the menu bar, whose entries tell what is enabled.
std::vector<MenuEntry> itemCommands(Place place, const QString& prefix, bool withKeys)
{
    const auto entry = [&](const QString& name, int text, const QString& command, const QString& key,
                           bool ofTheView = false) {
        return MenuEntry{prefix + name, text, command, {}, {}, false, {}, key, ofTheView || !withKeys};
    };
    const auto ownEntry = [&](const QString& name, const QString& text, const QString& key) {
        return MenuEntry{prefix + name, 0,    twin(place, name),         {}, {},
                         false,         text, withKeys ? key : QString()};
    };
    return {
        entry("New", 117, twin(place, "New"), "Ins", true),
        entry("Delete", 118, twin(place, "Delete"), "Del", true),
        kSeparator,
        entry("Cut", 119, twin(place, "Cut"), "Ctrl+X"),
        entry("Copy", 120, twin(place, "Copy"), "Ctrl+C"),
        entry("Paste", 121, twin(place, "Paste"), "Ctrl+V"),
        kSeparator,
        entry("Refresh", 228, "Refresh", "F5"),
        entry("Resync", 123, twin(place, "Resync"), {}),
        entry("Reset", 122, twin(place, "Reset"), {}),
        kSeparator,
        entry("ReadWrite", 125, twin(place, "ReadWrite"), "Ctrl+R"),
        entry("Property", 124, twin(place, "Property"), place == Place::List ? "Return" : "", true),
        ownEntry("History", "menu.history", "Ctrl+H"),
        ownEntry("Compare", "menu.compare", "Ctrl+Shift+C"),
    };
}

MenuEntry choice(const QString& name, int text, const QString& command)
{
    return {name, text, command, {}, {}, true};
}

// A command of this build's own, whose words are own texts.
MenuEntry own(const QString& name, const QString& text, const QString& command, const QString& shortcut)
{
    return {name, 0, command, {}, {}, false, text, shortcut};
}

// The windows that look through the company.
std::vector<MenuEntry> looks(const QString& prefix, bool withKeys)
{
    std::vector<MenuEntry> entries{own(prefix + "Filter", "menu.filter", "Filter", "Ctrl+F"),
                                   own(prefix + "Find", "menu.find", "Find", "Ctrl+Shift+F"),
                                   own(prefix + "Pending", "menu.pending", "Pending", "Ctrl+Shift+P")};
    for (MenuEntry& entry : entries)
        entry.shortcutOnlyShown = !withKeys;
    return entries;
}

std::vector<MenuEntry> toolbarLook(const QString& complete, const QString& reduced)
{
    return {
        choice(complete, 129, "TlbComplete"),
        choice(reduced, 130, "TlbReduced"),
        kSeparator,
        choice("mnuTlbLargeIcons", 131, "TlbLargeIcons"),
        choice("mnuTlbSmallIcons", 132, "TlbSmallIcons"),
    };
}

MenuEntry viewMenu()
{
    MenuEntry menu{"mnuView",
                   126,
                   {},
                   {{"mnuStructure", 127, "Tree"},
                    {"mnuTlb", 128, {}, toolbarLook("mnuTlbComplete", "mnuTlbReduced")},
                    kSeparator,
                    choice("mnuLargeIcons", 131, "LargeIcon"),
                    choice("mnuSmallIcons", 132, "SmallIcon"),
                    choice("mnuListIcons", 133, "List"),
                    choice("mnuReportIcons", 134, "Report"),
                    kSeparator}};
    for (MenuEntry& entry : looks("mnu", true))
        menu.entries.push_back(std::move(entry));
    menu.entries.push_back(kSeparator);
    MenuEntry languages{"mnuLanguage", 0, {}, {}, {}, false, "menu.language"};
    const std::pair<const char*, const char*> kLanguages[] = {
        {"EN", "&English"}, {"IT", "&Italiano"}, {"RU", "&Русский"}};
    for (const auto& [code, name] : kLanguages)
        languages.entries.push_back(
            {QStringLiteral("mnuLanguage") + code, 0, QStringLiteral("Language") + code, {}, name, true});
    menu.entries.push_back(languages);
    return menu;
}

MenuEntry commandMenu(Place place)
{
    MenuEntry menu{"mnuCommands", 116, {}, itemCommands(place, "mnu", true)};
    menu.entries.push_back(kSeparator);
    menu.entries.push_back({"mnuAllarms", 291, "Allarms"});
    return menu;
}

} // namespace

std::vector<MenuEntry> menuBar(Place place)
{
    return {
        {"mnuFile",
         108,
         {},
         {{"mnuNewDb", 109, "NewDb"},
          {"mnuOpenDb", 110, "OpenDb"},
          {"mnuCloseDb", 111, "CloseDb"},
          kSeparator,
          {"mnuUsers", 112, "Users"},
          {"mnuSettings", 113, "Settings"},
          {"mnuEnter", 114, "Enter"},
          kSeparator,
          {"mnuExport", 229, "Export"},
          own("mnuImport", "menu.import", "Import", ""),
          own("mnuPrint", "menu.print", "Print", "Ctrl+P"),
          kSeparator,
          {"mnuExit", 115, "Exit"}}},
        commandMenu(place),
        viewMenu(),
        {"mnuUtility",
         135,
         {},
         {{"mnuDb",
           136,
           {},
           {{"mnuBackupDb", 137, "BackupDb"},
            {"mnuRestoreDb", 138, "RestoreDb"},
            {"mnuUpgradeDb", 139, "UpgradeDb"}}},
          kSeparator,
          {"mnuEventViewer", 140, "EventViewer"},
          own("mnuLineTrace", "menu.trace", "LineTrace", "Ctrl+Shift+T")}},
        {"mnuHelp",
         0,
         {},
         {own("mnuManual", "menu.manual", "Manual", "F1"), {"mnuAbout", 141, "About"}},
         "&?"},
    };
}

std::vector<MenuEntry> popupBus(Place place)
{
    std::vector<MenuEntry> entries = itemCommands(place, "mnuBus", false);
    if (place == Place::List) {
        const std::vector<MenuEntry> views{
            choice("mnuBusLargeIcon", 131, "LargeIcon"),
            choice("mnuBusSmallIcon", 132, "SmallIcon"),
            choice("mnuBusList", 133, "List"),
            choice("mnuBusReport", 134, "Report"),
            kSeparator,
        };
        entries.insert(entries.begin(), views.begin(), views.end());
    }
    entries.push_back(kSeparator);
    for (MenuEntry& entry : looks("mnuBus", false))
        entries.push_back(std::move(entry));
    return entries;
}

std::vector<MenuEntry> popupToolbar()
{
    return toolbarLook("mnuTlbViewComplete", "mnuTlbViewReduced");
}

void CommandHandlers::run(const QString& command) const
{
    const auto found = handlers_.find(command);
    if (found != handlers_.end() && (!permitted_ || permitted_(command)))
        found->second();
}

QStringList shownButtons(bool completeView)
{
    QStringList shown;
    for (const ToolbarCommand& command : toolbarCommands()) {
        if (completeView || command.inReducedView)
            shown << command.key;
    }
    return shown;
}

} // namespace session
