#pragma once

#include <QToolBar>

namespace session {

class CommandHandlers;
class CommandStates;
class Texts;
struct Session;

// tlbMain: the commands' buttons by key, in two sizes and two views, with the popup mnuTlb.
class MainToolbar : public QToolBar
{
    Q_OBJECT

public:
    MainToolbar(const Session& session, const Texts& texts, const CommandHandlers& handlers,
                CommandStates& states, QWidget* parent = nullptr);

    // The words that no Tag brings, in the current language.
    void relabel();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void makeViewMenu();
    void refresh();

    const Session& session_;
    const Texts& texts_;
    const CommandHandlers& handlers_;
    CommandStates& states_;
    QMenu* viewMenu_ = nullptr;
    QMenu* mnuTlb_ = nullptr;
};

} // namespace session
