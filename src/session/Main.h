#pragma once

#include "platform/Forward.h"
#include "platform/Operator.h"

#include <QString>
#include <functional>

namespace session {

class CommandStates;
class Texts;
struct Session;

// What the entry procedure has others do, as verbs. Each ends in its own guard and tells whether it went
// well.
struct MainServices
{
    std::function<bool()> Read_Configuration;
    std::function<bool()> Write_Configuration;
    // Whether another instance of the program runs with this application folder.
    std::function<bool()> anotherInstanceRuns;
    // Whether the application folder takes no files.
    std::function<bool()> folderIsClosed = [] { return false; };
    std::function<bool(const QString& path)> Connect_Database;
    std::function<void()> Disconnect_Database;
    std::function<void(bool enabled, bool all)> Delete_Log;
    std::function<bool()> Set_COMPort;
    std::function<bool()> Open_COMConnection;
    std::function<bool()> Close_COMConnection;
    // Gives a company that has no operator at all its built-in one.
    std::function<void()> makeSureOfAnOperator;
    // Selects the root of the tree, and walks up from it.
    std::function<void()> selectAboveRoot;
    // The tree's menus by its selected node.
    std::function<void()> applyTreeMenus;
    std::function<void()> showCaption;
    // The process ends, whatever windows stand.
    std::function<void()> endProgram;
    // Values of the open company that are changed and not yet written.
    std::function<int()> valuesWaiting = [] { return 0; };
};

// The program's beginning and end: start-up in its order, the company commands of the File menu that close,
// the one question before leaving.
class Main
{
public:
    struct Surroundings
    {
        Session& session;
        const Texts& texts;
        platform::Operator& op;
        platform::Clock& clock;
        CommandStates& commands;
        MainServices services;
    };

    explicit Main(Surroundings surroundings);

    // The start. False when the process is to end at once: another instance runs, or the operator has left
    // already in a window of the start.
    bool run();

    // A company has been connected: nobody works with it before the login.
    void companyConnected();
    // No company is open any more.
    void companyLost();
    // mnuEnter and the toolbar's "Enter": another operator, or none.
    void LogInOut();
    // The login let an operator in.
    void loggedIn();
    // The login's own Exit: at once, without a question.
    void endProgram();
    void Close_Database();

    // mnuExit and the toolbar's "Exit": asks, and unloads the main window by code.
    void leave();
    // The main window is asked to close; false refuses. A close by code passes with no question.
    bool QueryUnload();
    // The main window goes: windows, configuration, company, port, in this order.
    void Unload();

private:
    void takeFirstRunMarkers();
    bool start();
    void openLastCompany();
    void askForLogin();
    bool confirmedLeaving();
    bool confirmed(const QString& question, const QString& more = {});

    Session& session_;
    const Texts& texts_;
    platform::Operator& operator_;
    platform::Clock& clock_;
    CommandStates& commands_;
    MainServices services_;
    bool closingByCode_ = false;
    bool left_ = false;
};

} // namespace session
