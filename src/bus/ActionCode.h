#pragma once

#include <QtGlobal>

namespace bus {

// What the program is doing on the line right now.
enum class ActionCode : qint16
{
    Idle = 0,
    SimulatorRaising = 10,
    SimulatorClosing = 20,
    Reading = 30,
    WritingRam = 40,
    WritingEeprom = 50,
    Checking = 60,
    MergingRam = 70,
    MergingEeprom = 80,
    Polling = 90,
    ModemSetup = 100,
    Dialling = 110,
    HangingUp = 120,
    CallWaiting = 200,
    CallAnswering = 210,
    FirstBlock = 220,
    SecondBlock = 230,
};

// Milliseconds between one step and the next.
namespace intervals {
constexpr int kModemCommand = 2000;
constexpr int kFrame = 3000;
constexpr int kSilence = 5000;
constexpr int kSecondBlock = 15000;
constexpr int kAlarm = 3000;
constexpr int kConnectionClock = 1000;
constexpr int kPolling = 30000;
constexpr int kTimeOut = 60000;
} // namespace intervals

// Seconds of silence around the modem's escape sequence and before a merged byte.
constexpr double kGuardSeconds = 3.0;

} // namespace bus
