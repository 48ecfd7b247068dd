// How each window is made, on its first showing.

#include "bus/frmTrace.h"
#include "console/frmReadWrite.h"
#include "database/Database.h"
#include "database/frmConnection.h"
#include "database/frmCopy.h"
#include "database/frmUpgrade.h"
#include "dialogs/frmInfo.h"
#include "dialogs/frmLanguage.h"
#include "dialogs/frmManual.h"
#include "dialogs/frmMessage.h"
#include "dialogs/frmSettings.h"
#include "dialogs/frmZoom.h"
#include "dialogs/frmZoomDate.h"
#include "events/frmEventFilter.h"
#include "events/frmEventText.h"
#include "events/frmEventViewer.h"
#include "events/frmReadLogFiles.h"
#include "exchange/frmPrinters.h"
#include "history/frmCompare.h"
#include "history/frmHistory.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/Program.h"
#include "program/TraceValues.h"
#include "program/frmMain.h"
#include "program/frmPresentation.h"
#include "property/frmProperty.h"
#include "property/frmPropertyCopy.h"
#include "structure/Jump.h"
#include "structure/frmFind.h"
#include "structure/frmListBus.h"
#include "structure/frmPending.h"
#include "structure/frmTreeBus.h"
#include "users/frmLogInOut.h"
#include "users/frmUsers.h"

#include <QShortcut>

namespace program {

void Program::registerForms()
{
    auto& session = with_.session;
    auto& texts = with_.texts;
    auto& op = with_.op;
    auto& clock = with_.clock;
    with_.op.registerForm("frmPresentation", [] { return new frmPresentation; });
    with_.op.registerForm("frmLanguage", [&] { return new dialogs::frmLanguage(session, texts, op); });
    with_.op.registerForm("frmMain", [this] { return makeMainWindow(); });
    with_.op.registerForm("frmMessage", [&, this] {
        return new dialogs::frmMessage(session, texts, op, alarmCalls_, [this] { showEventsOfAlarms(); });
    });
    with_.op.registerForm("frmZoom", [&, this] { return new dialogs::frmZoom(session, texts, op, zoom_); });
    with_.op.registerForm("frmZoomDate", [&] { return new dialogs::frmZoomDate(session, clock); });
    with_.op.registerForm("frmProperty",
                          [&, this] { return new property::frmProperty(session, texts, op, property_); });
    with_.op.registerForm("frmPropertyCopy", [&, this] {
        return new property::frmPropertyCopy(
            {session, texts, op, [this](const QString& command) { handlers_.run(command); }, propertyCopy_});
    });
    with_.op.registerForm("frmReadWrite", [&, this] {
        auto* window = new console::frmReadWrite({session, texts, op, console_, consoleModel_, panels_},
                                                 console_.chosenKey());
        connect(new QShortcut(QKeySequence("Ctrl+Shift+T"), window), &QShortcut::activated, this,
                [this] { handlers_.run("LineTrace"); });
        return window;
    });
    with_.op.registerForm("frmLogInOut",
                          [&, this] { return new users::frmLogInOut(session, texts, op, login_); });
    with_.op.registerForm("frmUsers", [&, this] {
        return new users::frmUsers(
            {session, texts, op, userEditor_, [this](const QString& command) { handlers_.run(command); }});
    });
    with_.op.registerForm("frmSettings",
                          [&, this] { return new dialogs::frmSettings(session, texts, op, settings_); });
    with_.op.registerForm("frmInfo", [&, this] { return new dialogs::frmInfo(session, texts, op, info_); });
    with_.op.registerForm("frmSystemInfo",
                          [&, this] { return new dialogs::frmSystemInfo(session, texts, op, info_); });
    with_.op.registerForm("frmManual", [&] { return new dialogs::frmManual(session, texts, op); });
    with_.op.registerForm("frmConnection", [&] {
        auto* window = new database::frmConnection(session, texts, op);
        connect(&database_, &database::Database::progress, window, &database::frmConnection::showProgress);
        return window;
    });
    with_.op.registerForm("frmCopy", [&] {
        auto* window = new database::frmCopy(session, texts);
        connect(&safekeeping_, &database::Safekeeping::copyProgress, window,
                &database::frmCopy::showProgress);
        return window;
    });
    with_.op.registerForm("frmUpgrade",
                          [&, this] { return new database::frmUpgrade(session, texts, op, upgrade_); });
    with_.op.registerForm("frmFind",
                          [&, this] { return new structure::frmFind(structure_, session, texts, op); });
    with_.op.registerForm("frmPending", [&, this] {
        return new structure::frmPending(structure_, session, texts, op,
                                         [this] { handlers_.run("ReadWrite"); });
    });
    with_.op.registerForm("frmHistory", [&, this] {
        return new history::frmHistory(
            {session, texts, op, clock,
             [this](const QString& key) { return structure::jumpTo(structure_, key); },
             [this](const QString& key, const std::optional<QString>& value) {
                 property_.openWith(key, value);
             },
             [this](const QString& key) { return pathOf(key); }});
    });
    with_.op.registerForm("frmCompare", [&, this] {
        return new history::frmCompare(
            {session, texts, op, printing_,
             [this](const QString& key) { return structure::jumpTo(structure_, key); },
             [this](const QString& key) { return pathOf(key); },
             [page = session.CodePage](const QString& file) { return valuesOfTrace(file, page); }});
    });
    with_.op.registerForm("frmTrace",
                          [&, this] { return new bus::frmTrace(session, texts, op, bus_.trace()); });
    with_.op.registerForm("frmEventViewer", [&, this] {
        return new events::frmEventViewer(
            {session, texts, op, [this](const QString& command) { handlers_.run(command); }, eventViewer_});
    });
    with_.op.registerForm("frmEventFilter",
                          [&, this] { return new events::frmEventFilter(session, texts, op, eventViewer_); });
    with_.op.registerForm("frmEventText",
                          [&, this] { return new events::frmEventText(session, texts, op, eventViewer_); });
    with_.op.registerForm("frmPrinters", [&, this] {
        return new exchange::frmPrinters({session, texts, op, printing_});
    });
    with_.op.registerForm("frmReadLogFiles", [&] { return new events::frmReadLogFiles(session, texts, op); });
}

QWidget* Program::makeMainWindow()
{
    auto* window = new frmMain({with_.session, with_.texts, with_.op, structure_, panels_, handlers_,
                                commands_, drag_, main_, marks_, [this] { return connectedPlant(); }});
    with_.op.adoptForm("frmTreeBus", window->treeBus());
    with_.op.adoptForm("frmListBus", window->listBus());
    connect(&database_, &database::Database::captionChanged, window, &frmMain::showCaption);
    connect(&clipboard_, &structure::PlantClipboard::stepTold, window->listBus(),
            &structure::frmListBus::tellStep);
    connect(&states_, &structure::PlantStates::stepTold, window->listBus(), &structure::frmListBus::tellStep);
    connect(window, &frmMain::closed, this, &Program::left);
    connect(window, &frmMain::languageChanged, this, [this] { bus_.relabel(); });
    window->showHistory(recorder_.failure());
    return window;
}

} // namespace program
