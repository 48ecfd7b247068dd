#include "program/AlarmNotice.h"

#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QApplication>
#include <QSystemTrayIcon>
#include <QWidget>
#include <QWindow>

namespace program {

using namespace session;

AlarmNotice::AlarmNotice(const Session& session, const Texts& texts)
    : session_(session), texts_(texts),
      announce_([this](const QString& title, const QString& text) { showOnDesktop(title, text); })
{
    // The icon stands in the tray only as long as its notice has not been seen.
    connect(qApp, &QApplication::focusWindowChanged, this, [this](QWindow* now) {
        if (now && tray_)
            tray_->hide();
    });
}

void AlarmNotice::tell(QWidget& window, const QStringList& calls)
{
    window_ = &window;
    QApplication::alert(&window);
    const bool inBackground = QApplication::activeWindow() == nullptr;
    if (inBackground)
        announce_(session_.AppTitle,
                  (QStringList{texts_(session::rows::kAlarmsReceived)} + calls + QStringList{texts_(585)})
                      .join('\n'));
}

void AlarmNotice::showOnDesktop(const QString& title, const QString& text)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages())
        return;
    if (!tray_) {
        tray_ = new QSystemTrayIcon(platform::icon("alarm"), this);
        connect(tray_, &QSystemTrayIcon::messageClicked, this, &AlarmNotice::bringToFront);
        connect(tray_, &QSystemTrayIcon::activated, this, &AlarmNotice::bringToFront);
    }
    tray_->setToolTip(title);
    tray_->show();
    tray_->showMessage(title, text, platform::icon("alarm"));
}

void AlarmNotice::bringToFront()
{
    if (!window_)
        return;
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->raise();
    window_->activateWindow();
}

} // namespace program
