#pragma once

#include "program/ToolbarAim.h"
#include "session/Forward.h"

#include <QToolBar>

namespace program {

// tlbMain: the commands' buttons by key, in two sizes and two views, with the popup mnuTlb.
class MainToolbar : public QToolBar
{
    Q_OBJECT

public:
    MainToolbar(const session::Session& session, const session::Texts& texts,
                const session::CommandHandlers& handlers, session::CommandStates& states,
                structure::Structure& structure, QWidget* parent = nullptr);

    // The words that no Tag brings, in the current language.
    void relabel();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void makeViewMenu();
    void addLooks();
    void refresh();
    void enableButtons();

    const session::Session& session_;
    const session::Texts& texts_;
    const session::CommandHandlers& handlers_;
    session::CommandStates& states_;
    ToolbarAim aim_;
    QMenu* viewMenu_ = nullptr;
    QMenu* mnuTlb_ = nullptr;
};

} // namespace program
