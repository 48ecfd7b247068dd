#pragma once

#include "bus/Line.h"

namespace bus {

// The serial port as the operator chose it: its settings, its opening and closing.
class ComPort
{
public:
    explicit ComPort(Line& line) : line_(line) {}

    // Applies COMPort to the port and shows it. False after any failure, also for settings that the port
    // refuses.
    bool Set_COMPort();
    // Opens the port; true when it is open afterwards. A failure shows its box and sets Status -1.
    bool Open_COMConnection();
    bool Close_COMConnection();

private:
    bool failedToOpen(const platform::RuntimeError& error);

    Line& line_;
};

} // namespace bus
