#pragma once

#include "e2e/window/Drawn.h"
#include "e2e/window/FarEnd.h"
#include "platform/QtSerialPort.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/Program.h"

#include <QDialog>
#include <QEventLoop>
#include <QTimer>

namespace window {

// The machine's serial port, which counts what came over it.
class CountingPort : public platform::QtSerialPort
{
public:
    using QtSerialPort::QtSerialPort;
    QByteArray Input() override
    {
        const QByteArray bytes = QtSerialPort::Input();
        came += bytes.size();
        return bytes;
    }
    qint64 came = 0;
};

// Real windows and boxes; it tells when one opens that holds up what is behind it, and when it has closed.
class WatchedDesktop : public platform::DesktopOperator
{
public:
    using DesktopOperator::DesktopOperator;

    int messageBox(const QString& text, platform::Buttons buttons, platform::Icon icon,
                   const QString& title) override;
    int ask(const platform::Question& question) override;
    void showFormModal(const QString& name) override;
    void beep() override {}

    std::function<void()> onOpens, onClosed;
    // Logs in, in place of its window.
    std::function<void()> atTheGate;
    int boxes = 0;
};

// Plays a drawn sequence on the program's windows and its line, and looks before each step whether all is as
// it was when the sequence was drawn. A box that comes up holds the step that brought it; the hand goes on.
class Hand : public QObject
{
public:
    struct Place
    {
        program::Program& program;
        session::Session& session;
        WatchedDesktop& desktop;
        platform::VirtualClock& clock;
        CountingPort& port;
        FarEnd& far;
    };
    explicit Hand(const Place& place);

    // What was seen that is not as drawn; "" for nothing.
    QString play(const Drawn& drawn);

private:
    void step();
    void perform(const Step& step);
    void open(const QString& key);
    void press(const char* button);
    void answer(line::What what);
    void giveUp();
    void settle();
    Shown shown();
    QDialog* console() const;
    QAction* button(const char* name) const;

    Place with_;
    const Drawn* drawn_ = nullptr;
    std::size_t at_ = 0;
    QString trouble_;
    QTimer next_;
    QEventLoop loop_;
    std::vector<bool> busy_{false}; // of each level of windows: whether a step is at work there
    bool closing_ = false;          // a window has its answer and has not yet gone
    qint64 said_ = 0;
};

} // namespace window
