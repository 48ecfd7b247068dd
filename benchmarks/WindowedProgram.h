#pragma once

#include "platform/MemorySerialPort.h"
#include "platform/RecordingPrinters.h"
#include "platform/VirtualClock.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/Program.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QApplication>
#include <QTemporaryDir>

class QWidget;

// The application of a benchmark: nobody sees its windows, which have the program's look, and it tells of
// nothing but failures.
class OffscreenApplication : public QApplication
{
public:
    OffscreenApplication(int& argc, char** argv);
};

// The desktop of a company without operators: its administrator logs in without the window, and every
// question is answered with No.
class BenchmarkDesktop : public platform::DesktopOperator
{
public:
    using DesktopOperator::DesktopOperator;

    int messageBox(const QString&, platform::Buttons, platform::Icon, const QString&) override
    {
        return platform::answers::kNo;
    }
    void showFormModal(const QString& name) override
    {
        if (name == QLatin1String("frmLogInOut"))
            atTheGate();
        else
            DesktopOperator::showFormModal(name);
    }

    std::function<void()> atTheGate;
};

// The whole program with its windows in a fresh application folder, on a company that lies elsewhere. Its
// clock is a virtual one: the splash costs no time. A failure ends the process with its words.
class WindowedProgram
{
    QTemporaryDir home_; // outlives what works in it

public:
    // Nothing is open yet: the first connect() starts the program as a second run does.
    explicit WindowedProgram(const QString& company);

    void connect();
    void disconnect();
    // Sends a key to the tree and lets the windows paint what it changed.
    void pressInTree(int key);

    session::Session session;
    session::Texts texts{session.Language};
    BenchmarkDesktop op{[this](const QString& key) { return texts.own(key); }};
    platform::VirtualClock clock;
    platform::MemorySerialPort port{clock};
    platform::RecordingPrinters printers;
    program::Program program{{session, texts, op, clock, port, printers}};

private:
    QWidget* tree() const;

    QString folder_, name_;
    bool started_ = false;
};
