#include "session/Main.h"

#include "platform/Clock.h"
#include "platform/Guard.h"
#include "session/CommandStates.h"
#include "session/Configuration.h"
#include "session/Helpers.h"
#include "session/Level.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QDir>
#include <QFile>

namespace session {

using platform::Buttons;
using platform::Icon;

namespace {

// Deletes a marker that the installation left; true when it was there. One that stays is told, and the start
// goes on.
bool takeMarker(const QString& path)
{
    if (!Exist_File(path))
        return false;
    platform::guarded("Module/Main", [&path] {
        QFile marker(path);
        if (!marker.remove())
            platform::fail(
                platform::errors::kPermissionDenied,
                QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), marker.errorString()));
    });
    return true;
}

} // namespace

Main::Main(Surroundings surroundings)
    : session_(surroundings.session), texts_(surroundings.texts), operator_(surroundings.op),
      clock_(surroundings.clock), commands_(surroundings.commands),
      services_(std::move(surroundings.services))
{
}

bool Main::run()
{
    bool goOn = true;
    platform::guarded("Module/Main", [&] { goOn = start(); });
    return goOn;
}

bool Main::start()
{
    operator_.showForm("frmPresentation");
    operator_.repaint();
    if (!services_.Read_Configuration()) {
        applyFirstRunDefaults(session_);
        takeFirstRunMarkers();
    }
    platform::awaitRoomInTheDay(clock_, 2);
    Wait_Seconds(clock_, 2);
    operator_.unloadForm("frmPresentation");

    if (services_.anotherInstanceRuns()) {
        operator_.messageBox(texts_(580) + "\r\n" + texts_(581), Buttons::Ok, Icon::Exclamation,
                             session_.AppTitle);
        return false;
    }
    if (services_.folderIsClosed())
        operator_.messageBox(texts_.own("start.closed").arg(QDir::toNativeSeparators(session_.AppPath)),
                             Buttons::Ok, Icon::Exclamation, session_.AppTitle);

    operator_.showForm("frmMain");
    openLastCompany();
    if (left_)
        return false;
    services_.Set_COMPort();
    services_.Open_COMConnection();
    return true;
}

void Main::takeFirstRunMarkers()
{
    if (takeMarker(session_.appFile("Data/Readme_Data.txt")))
        operator_.showFormModal("frmLanguage");
    takeMarker(session_.appFile("Log/Readme_Log.txt"));
}

void Main::openLastCompany()
{
    if (session_.DbPath.isEmpty() || session_.DbName.isEmpty()) {
        operator_.enableForm("frmTreeBus", false);
        operator_.enableForm("frmListBus", false);
        companyLost();
    } else if (services_.Connect_Database(session_.dbFile())) {
        services_.Delete_Log(session_.LogSet.DelLog != 0, false);
        companyConnected();
    } else {
        services_.Disconnect_Database();
        companyLost();
    }
}

void Main::companyConnected()
{
    services_.makeSureOfAnOperator();
    askForLogin();
}

void Main::LogInOut()
{
    platform::guarded("Module/LogInOut", [&] {
        if (session_.DbName.isEmpty()) {
            operator_.messageBox(texts_(rows::kNoCompanyOpen), Buttons::Ok, Icon::Exclamation,
                                 session_.AppTitle);
            return;
        }
        if (!confirmed(texts_(513) + "\r\n" + texts_(514)))
            return;
        operator_.unloadAllForms();
        services_.selectAboveRoot();
        askForLogin();
    });
}

// Nobody works with the open company until the login has let somebody in. Closed without that, it leaves the
// commands closed.
void Main::askForLogin()
{
    session_.CurrentUser = {};
    commands_.EnableDisable_TlbMainButtons(kNoCompany);
    commands_.DisableMainMenu();
    services_.showCaption();
    operator_.showFormModal("frmLogInOut");
}

void Main::loggedIn()
{
    commands_.EnableDisable_TlbMainButtons(kNoSelection);
    commands_.Enable_MainMenu();
    commands_.EnableDisable_MainMenu(kNoSelection);
    services_.applyTreeMenus();
    services_.showCaption();
}

void Main::companyLost()
{
    session_.CurrentUser = {};
    commands_.EnableDisable_TlbMainButtons(kNoCompany);
    commands_.DisableMainMenu();
}

void Main::endProgram()
{
    left_ = true;
    services_.endProgram();
}

void Main::Close_Database()
{
    platform::guarded("Module/Close_Database", [&] {
        if (session_.DbName.isEmpty()) {
            operator_.messageBox(texts_(rows::kNoCompanyOpen), Buttons::Ok, Icon::Exclamation,
                                 session_.AppTitle);
            return;
        }
        if (!confirmed(texts_(503)))
            return;
        services_.Disconnect_Database();
        operator_.unloadAllForms();
        companyLost();
    });
}

void Main::leave()
{
    platform::guarded("frmMain.mnuExit_Click", [&] {
        if (!confirmedLeaving())
            return;
        closingByCode_ = true;
        operator_.unloadForm("frmMain");
    });
}

bool Main::QueryUnload()
{
    bool allowed = true;
    platform::guarded("frmMain.QueryUnload", [&] { allowed = closingByCode_ || confirmedLeaving(); });
    return allowed;
}

void Main::Unload()
{
    left_ = true;
    platform::guarded("frmMain.Unload", [&] {
        operator_.unloadAllForms();
        services_.Write_Configuration();
        services_.Disconnect_Database();
        services_.Close_COMConnection();
    });
}

// A connection that is open would be cut: the question says so in a line of its own.
bool Main::confirmedLeaving()
{
    QString question = texts_(524);
    if (session_.COMPort.Status > kLineIdle)
        question += "\r\n" + texts_.own("exit.connected");
    const int waiting = services_.valuesWaiting();
    return confirmed(question, waiting > 0 ? texts_.own("exit.waiting").arg(waiting) : QString());
}

bool Main::confirmed(const QString& question, const QString& more)
{
    return operator_.ask({.text = question, .more = more, .title = session_.AppTitle}) ==
           platform::answers::kYes;
}

} // namespace session
