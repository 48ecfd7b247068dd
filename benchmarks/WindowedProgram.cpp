#include "WindowedProgram.h"

#include "platform/Guard.h"
#include "session/Configuration.h"
#include "widgets/Look.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTextStream>

namespace {

// What the offscreen platform can't do is no news.
void showFailures(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << message << '\n';
}

int& prepared(int& argc)
{
    qInstallMessageHandler(showFailures);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

} // namespace

OffscreenApplication::OffscreenApplication(int& argc, char** argv) : QApplication(prepared(argc), argv)
{
    setQuitOnLastWindowClosed(false);
    widgets::applyLook(*this);
}

WindowedProgram::WindowedProgram(const QString& company)
    : folder_(QFileInfo(company).absolutePath()), name_(QFileInfo(company).fileName())
{
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    for (const char* below : {"Data", "Data Model", "Log"})
        QDir(home_.path()).mkpath(QLatin1String(below));
    op.atTheGate = [this] {
        program.login().Load();
        program.login().cmdConnect_Click(1, {});
    };
    session.AppPath = home_.path();
    session.Language = session::LanguageSettings::fromIdentifier(QStringLiteral("EN_English_2000"));
    session.DbPath = folder_;
    session.DbName = name_;
    session.LogSet.DelLog = 0;
    session::Write_Configuration(session);
}

void WindowedProgram::connect()
{
    if (!started_) {
        started_ = true;
        program.run();
    } else {
        session.DbName = name_;
        program.database().Connect_Database(session.dbFile());
        program.main().companyConnected();
    }
    QApplication::processEvents();
    if (session.cnDatabase.State() != platform::Connection::Opened)
        qFatal("no connection");
}

void WindowedProgram::disconnect()
{
    program.database().Disconnect_Database();
    QApplication::processEvents();
}

void WindowedProgram::pressInTree(int key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(tree(), &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(tree(), &release);
    QApplication::processEvents();
}

QWidget* WindowedProgram::tree() const
{
    return op.form(QStringLiteral("frmMain"))->findChild<QWidget*>(QStringLiteral("tvwBus"));
}
