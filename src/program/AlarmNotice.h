#pragma once

#include "session/Forward.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <functional>

class QSystemTrayIcon;
class QWidget;

namespace program {

// Tells of alarms that came in: the window asks for attention in the task bar and, while the operator is in
// another program, the desktop shows a notice. A click on it brings the window to the front. A desktop
// without notices goes without.
class AlarmNotice : public QObject
{
    Q_OBJECT

public:
    using Announce = std::function<void(const QString& title, const QString& text)>;

    AlarmNotice(const session::Session& session, const session::Texts& texts);

    // `calls` are the plants that called, each with its time.
    void tell(QWidget& window, const QStringList& calls = {});
    // Another way to show the notice than the desktop's own.
    void announceWith(Announce announce) { announce_ = std::move(announce); }

private:
    void showOnDesktop(const QString& title, const QString& text);
    void bringToFront();

    const session::Session& session_;
    const session::Texts& texts_;
    Announce announce_;
    QPointer<QWidget> window_;
    QSystemTrayIcon* tray_ = nullptr; // made for the first notice
};

} // namespace program
