#include "session/CommandRules.h"

#include "session/Level.h"
#include "session/Session.h"

#include <algorithm>
#include <vector>

namespace session {

Rights Rights::of(const UserRecord& user)
{
    return {!user.IDUser.isEmpty(), user.isAdministrator(),    rightOf(user.UpgradeDb),
            rightOf(user.Modify),   rightOf(user.EventViewer), rightOf(user.ReadWrite)};
}

namespace rules {

namespace {

// One line of a table: the names, and a letter for each level from the table's lowest. E enabled, D disabled,
// T while the tree is shown; A for the administrator; M, R, U, V with the right to modify, to read and write,
// to upgrade, to the event viewer. A level above the last letter follows the last letter.
struct Rule
{
    const char* names;
    const char* letters;
};

bool holds(char letter, const Rights& rights, bool treeVisible)
{
    switch (letter) {
    case 'E':
        return true;
    case 'T':
        return treeVisible;
    case 'A':
        return rights.administrator;
    case 'M':
        return rights.modify;
    case 'R':
        return rights.readWrite;
    case 'U':
        return rights.upgradeDb;
    case 'V':
        return rights.eventViewer;
    default:
        return false;
    }
}

EnabledStates evaluate(const std::vector<Rule>& table, int lowestLevel, int level, const Rights& rights,
                       bool treeVisible = true)
{
    EnabledStates states;
    for (const Rule& rule : table) {
        const QString letters = QString::fromLatin1(rule.letters);
        const qsizetype column = std::clamp<qsizetype>(level - lowestLevel, 0, letters.size() - 1);
        const bool enabled = holds(letters[column].toLatin1(), rights, treeVisible);
        for (const QString& name : QString::fromLatin1(rule.names).split(QLatin1Char(' ')))
            states[name] = enabled;
    }
    return states;
}

bool isTreeLevel(int level)
{
    return level >= kNoSelection && level <= kParamGroup;
}

} // namespace

EnabledStates toolbar(int level, const Rights& rights, bool treeVisible)
{
    static const std::vector<Rule> kTable{
        // level:                             -2 -1 0 1 2
        {"Tree View Refresh Property History Enter", "DEEEE"},
        {"Expand Collapse", "DTTTT"},
        {"Settings", "EEEEE"},
        {"EventViewer", "DVVVV"},
        {"Reset", "DMMMM"},
        {"Parent", "DDEEE"},
        {"New Delete Cut Copy Paste", "DDMMD"},
        {"Resync", "DMMMD"},
        {"ReadWrite", "DDRRR"},
    };
    return evaluate(kTable, -2, level, rights, treeVisible);
}

EnabledStates listMenus(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                                         -1 0 1 2
        {"mnuRefresh mnuProperty mnuHistory mnuSettings mnuAllarms", "EEEE"},
        {"mnuUsers", "AAAA"},
        {"mnuUpgradeDb", "UUUU"},
        {"mnuReset mnuImport", "MMMM"},
        {"mnuEventViewer", "VVVV"},
        {"mnuNew mnuDelete mnuCut mnuCopy mnuPaste", "DMMD"},
        {"mnuResync", "MMMD"},
        {"mnuReadWrite", "DRRR"},
        {"mnuCompare", "DEEED"},
    };
    return evaluate(kTable, -1, level, rights);
}

// With no node selected the tree's commands are those of a list without a selection.

EnabledStates treeMenus(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                             -1 0 1 2 3
        {"mnuRefresh mnuProperty mnuHistory mnuSettings", "EEEEE"},
        {"mnuUsers", "AAAAA"},
        {"mnuUpgradeDb", "UUUUU"},
        {"mnuReset mnuImport", "MMMMM"},
        {"mnuEventViewer", "VVVVV"},
        {"mnuNew mnuPaste", "DMMDD"},
        {"mnuDelete mnuCut mnuCopy", "DDMMD"},
        {"mnuResync", "MMMMD"},
        {"mnuReadWrite", "DDRRR"},
        {"mnuCompare", "DDEEE"},
    };
    return isTreeLevel(level) ? evaluate(kTable, kNoSelection, level, rights) : EnabledStates{};
}

EnabledStates treePopup(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                       -1 0 1 2 3
        {"mnuBusRefresh mnuBusProperty mnuBusHistory", "EEEEE"},
        {"mnuBusNew mnuBusPaste", "DMMDD"},
        {"mnuBusDelete mnuBusCut mnuBusCopy", "DDMMD"},
        {"mnuBusResync", "MMMMD"},
        {"mnuBusReset", "MMMMM"},
        {"mnuBusReadWrite", "DDRRR"},
        {"mnuBusCompare", "DDEEE"},
    };
    return isTreeLevel(level) ? evaluate(kTable, kNoSelection, level, rights) : EnabledStates{};
}

EnabledStates listPopup(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                        -1 0 1 2
        {"mnuBusRefresh mnuBusProperty mnuBusHistory", "EEEE"},
        {"mnuBusNew mnuBusDelete mnuBusCut mnuBusCopy mnuBusPaste", "DMMD"},
        {"mnuBusResync", "MMMD"},
        {"mnuBusReset", "MMMM"},
        {"mnuBusReadWrite", "DRRR"},
        {"mnuBusCompare", "DEEED"},
    };
    return evaluate(kTable, -1, level, rights);
}

bool permits(const QString& command, const Rights& rights)
{
    // The command on the selected node is its twin's.
    const QString name = command.endsWith(QLatin1String("Node")) ? command.chopped(4) : command;
    static const std::map<QString, bool Rights::*> kNeeds{
        {"New", &Rights::modify},          {"Delete", &Rights::modify},
        {"Cut", &Rights::modify},          {"Copy", &Rights::modify},
        {"Paste", &Rights::modify},        {"Resync", &Rights::modify},
        {"Reset", &Rights::modify},        {"Import", &Rights::modify},
        {"ReadWrite", &Rights::readWrite}, {"EventViewer", &Rights::eventViewer},
        {"UpgradeDb", &Rights::upgradeDb}, {"Users", &Rights::administrator},
        {"Property", &Rights::loggedIn},   {"Refresh", &Rights::loggedIn},
        {"Parent", &Rights::loggedIn},     {"View", &Rights::loggedIn},
        {"Filter", &Rights::loggedIn},     {"Find", &Rights::loggedIn},
        {"Pending", &Rights::loggedIn},    {"Export", &Rights::loggedIn},
        {"Print", &Rights::loggedIn},      {"BackupDb", &Rights::loggedIn},
        {"History", &Rights::loggedIn},    {"Compare", &Rights::loggedIn},
    };
    const auto need = kNeeds.find(name);
    return need == kNeeds.end() || rights.*need->second;
}

const QStringList& menusWithoutCompany()
{
    static const QStringList kNames{
        "mnuFile",       "mnuNewDb",         "mnuOpenDb",        "mnuCloseDb",    "mnuSettings",
        "mnuExit",       "mnuView",          "mnuStructure",     "mnuTlb",        "mnuTlbComplete",
        "mnuTlbReduced", "mnuTlbLargeIcons", "mnuTlbSmallIcons", "mnuLargeIcons", "mnuSmallIcons",
        "mnuListIcons",  "mnuReportIcons",   "mnuUtility",       "mnuDb",         "mnuRestoreDb",
        "mnuHelp",       "mnuAbout",         "mnuManual",
    };
    return kNames;
}

} // namespace rules

} // namespace session
