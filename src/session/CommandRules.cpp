#include "session/CommandRules.h"

#include "session/Session.h"

#include <algorithm>
#include <vector>

namespace session {

Rights Rights::of(const UserRecord& user)
{
    return {user.isAdministrator(), rightOf(user.UpgradeDb), rightOf(user.Modify), rightOf(user.EventViewer),
            rightOf(user.ReadWrite)};
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
    return level >= 0 && level <= 3;
}

} // namespace

EnabledStates toolbar(int level, const Rights& rights, bool treeVisible)
{
    static const std::vector<Rule> kTable{
        // level:                             -2 -1 0 1 2
        {"Tree View Refresh Property Enter", "DEEEE"},
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
        {"mnuRefresh mnuProperty mnuSettings mnuAllarms", "EEEE"},
        {"mnuUsers", "AAAA"},
        {"mnuUpgradeDb", "UUUU"},
        {"mnuReset mnuImport", "MMMM"},
        {"mnuEventViewer", "VVVV"},
        {"mnuNew mnuDelete mnuCut mnuCopy mnuPaste", "DMMD"},
        {"mnuResync", "MMMD"},
        {"mnuReadWrite", "DRRR"},
    };
    return evaluate(kTable, -1, level, rights);
}

EnabledStates treeMenus(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                              0 1 2 3
        {"mnuRefresh mnuProperty mnuSettings", "EEEE"},
        {"mnuUsers", "AAAA"},
        {"mnuUpgradeDb", "UUUU"},
        {"mnuReset mnuImport", "MMMM"},
        {"mnuEventViewer", "VVVV"},
        {"mnuNew mnuPaste", "MMDD"},
        {"mnuDelete mnuCut mnuCopy", "DMMD"},
        {"mnuResync", "MMMD"},
        {"mnuReadWrite", "DRRR"},
    };
    return isTreeLevel(level) ? evaluate(kTable, 0, level, rights) : EnabledStates{};
}

EnabledStates treePopup(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                        0 1 2 3
        {"mnuBusRefresh mnuBusProperty", "EEEE"},
        {"mnuBusNew mnuBusPaste", "MMDD"},
        {"mnuBusDelete mnuBusCut mnuBusCopy", "DMMD"},
        {"mnuBusResync", "MMMD"},
        {"mnuBusReset", "MMMM"},
        {"mnuBusReadWrite", "DRRR"},
    };
    return isTreeLevel(level) ? evaluate(kTable, 0, level, rights) : EnabledStates{};
}

EnabledStates listPopup(int level, const Rights& rights)
{
    static const std::vector<Rule> kTable{
        // level:                        -1 0 1 2
        {"mnuBusRefresh mnuBusProperty", "EEEE"},
        {"mnuBusNew mnuBusDelete mnuBusCut mnuBusCopy mnuBusPaste", "DMMD"},
        {"mnuBusResync", "MMMD"},
        {"mnuBusReset", "MMMM"},
        {"mnuBusReadWrite", "DRRR"},
    };
    return evaluate(kTable, -1, level, rights);
}

const QStringList& menusWithoutCompany()
{
    static const QStringList kNames{
        "mnuFile",       "mnuNewDb",         "mnuOpenDb",        "mnuCloseDb",    "mnuSettings",
        "mnuExit",       "mnuView",          "mnuStructure",     "mnuTlb",        "mnuTlbComplete",
        "mnuTlbReduced", "mnuTlbLargeIcons", "mnuTlbSmallIcons", "mnuLargeIcons", "mnuSmallIcons",
        "mnuListIcons",  "mnuReportIcons",   "mnuUtility",       "mnuDb",         "mnuRestoreDb",
        "mnuHelp",       "mnuAbout",
    };
    return kNames;
}

} // namespace rules

} // namespace session
