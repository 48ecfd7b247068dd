#include "database/DamageAdvice.h"
#include "events/ErrorReport.h"
#include "platform/Machine.h"
#include "platform/QtClock.h"
#include "platform/QtSerialPort.h"
#include "platform/Words.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/DesktopOperator.h"
#include "platform/widgets/DesktopPrinters.h"
#include "program/Program.h"
#include "session/Charset.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/Look.h"

#include <QDir>

namespace {

QString applicationFolder()
{
    const QString home = qEnvironmentVariable("CALIDORA_HOME");
    return home.isEmpty() ? QCoreApplication::applicationDirPath() : QDir(home).absolutePath();
}

} // namespace

int main(int argc, char** argv)
{
    platform::Application application(argc, argv);
    QApplication::setApplicationName("Calidora");
    QApplication::setQuitOnLastWindowClosed(false);
    widgets::applyLook(application);

    session::Session session;
    session.AppPath = applicationFolder();
    session::applyMachineLocale(session, platform::localeOfMachine());

    const session::Texts texts(session.Language);
    const platform::Words words = [&texts](const QString& key) { return texts.own(key); };
    platform::setWords(words);
    platform::DesktopOperator op(words);
    platform::QtClock clock;
    platform::QtSerialPort port(session.AppPath);
    const platform::Machine machine;
    events::installFailureHook(session, op, clock, machine);
    database::installDamageAdvice(session, texts);
    platform::DesktopPrinters printers([&texts](const QString& key) { return texts.own(key); });

    program::Program program({session, texts, op, clock, port, printers});
    // The window goes before the loop ends, and what it shows after it.
    QObject::connect(&program, &program::Program::left, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    // A start that failed before its window stood has nothing to wait for.
    return program.run() && op.form("frmMain") ? QApplication::exec() : 0;
}
