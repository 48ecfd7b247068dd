#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

namespace session {

// A button of tlbMain. `text` is the offset of its tool tip; a separator has neither text nor icon.
struct ToolbarCommand
{
    QString key;
    int text = 0;
    QString icon = {}; // name in the icon resources
    bool inReducedView = false;
    QString ownText = {}; // name of the tool tip among the own texts, for one without an offset

    bool isSeparator() const { return icon.isEmpty(); }
};

// The buttons in their order.
const std::vector<ToolbarCommand>& toolbarCommands();

// An entry of a menu. `name` is the control's name; "-" is a separator. `text` is the caption's offset, 0 for
// one that is the same in every language and stands in `caption`. An entry with entries of its own opens
// them.
struct MenuEntry
{
    QString name;
    int text = 0;
    QString command = {};
    std::vector<MenuEntry> entries = {};
    QString caption = {};
    bool oneOf = false;
    QString ownText = {}; // name of the caption among the own texts, for one without an offset
    QString shortcut = {};
    bool shortcutOnlyShown = false; // the views listen to the key themselves

    bool isSeparator() const { return name == QLatin1String("-"); }
};

// Which of the two children a menu belongs to: commands on the selected node and on the selected item are
// twins.
enum class Place
{
    Tree,
    List
};

std::vector<MenuEntry> menuBar(Place place);
// The popup mnuBus.
std::vector<MenuEntry> popupBus(Place place);
// The popup mnuTlb of the toolbar.
std::vector<MenuEntry> popupToolbar();

// The procedure behind each command.
class CommandHandlers
{
public:
    void set(const QString& command, std::function<void()> handler)
    {
        handlers_[command] = std::move(handler);
    }
    bool has(const QString& command) const { return handlers_.contains(command); }
    // What is asked before each command, on whatever path it was called.
    void onlyIf(std::function<bool(const QString& command)> permitted) { permitted_ = std::move(permitted); }
    // Runs the command; one that isn't permitted does nothing.
    void run(const QString& command) const;

private:
    std::function<bool(const QString& command)> permitted_;
    std::map<QString, std::function<void()>> handlers_;
};

// The buttons and separators that the complete or the reduced view of the toolbar shows.
QStringList shownButtons(bool completeView);

} // namespace session
