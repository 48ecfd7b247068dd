#pragma once

#include "session/CommandRules.h"
#include "session/Commands.h"

#include <QObject>

namespace session {

struct Session;

// Which command may be used now, and which carries a mark. The windows show what stands here; everything
// starts enabled, as a form's controls do.
class CommandStates : public QObject
{
    Q_OBJECT

public:
    explicit CommandStates(Session& session);

    void EnableDisable_TlbMainButtons(int level);
    void EnableDisable_StructureButtons(bool flag);
    void DisableMainMenu();
    void Enable_MainMenu();
    void EnableDisable_MainMenu(int level);
    // For the tree the level of its selected node, for the list that of the node whose children it shows.
    void EnableDisable_Menu(Place place, int level);
    void EnableDisable_PopupMenu(Place place, int level);
    // 0 the reduced view, else the complete one.
    void Set_View_Toolbar(int view);
    // 0 small icons, else large ones.
    void Set_Form_Icons(int icons);
    // The marks follow the session: view of the list, visible tree, look of the toolbar.
    void refreshMarks();

    bool buttonEnabled(const QString& key) const { return stateOf(buttons_, key); }
    bool menuEnabled(Place place, const QString& name) const { return stateOf(menusOf(place), name); }
    bool popupEnabled(Place place, const QString& name) const { return stateOf(popupsOf(place), name); }
    // Whether an entry or button is of the kind that carries a mark, and whether it does.
    bool markable(const QString& name) const;
    bool marked(const QString& name) const;

signals:
    // What the windows show of them is no longer so: states or marks.
    void buttonsChanged();
    void menusChanged(session::Place place);

private:
    static bool stateOf(const EnabledStates& states, const QString& name);
    const EnabledStates& menusOf(Place place) const { return place == Place::Tree ? treeMenus_ : listMenus_; }
    EnabledStates& menusOf(Place place) { return place == Place::Tree ? treeMenus_ : listMenus_; }
    const EnabledStates& popupsOf(Place place) const
    {
        return place == Place::Tree ? treePopup_ : listPopup_;
    }
    EnabledStates& popupsOf(Place place) { return place == Place::Tree ? treePopup_ : listPopup_; }
    void applyToButtons(const EnabledStates& rule);
    void applyToMenus(Place place, const EnabledStates& rule);
    void applyToPopup(Place place, const EnabledStates& rule);
    void setAllMenus(bool enabled);
    Rights rights() const;
    // A company is open and nobody works with it: only the login is left of what needs one.
    bool awaitsLogin() const;

    Session& session_;
    EnabledStates buttons_, treeMenus_, listMenus_, treePopup_, listPopup_;
};

} // namespace session
