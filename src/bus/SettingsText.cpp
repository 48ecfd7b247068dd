#include "bus/SettingsText.h"

#include "session/Session.h"

#include <array>

namespace bus {

namespace {

constexpr std::array kSpeeds{"300",   "600",   "1200",   "2400",   "4800",   "9600",  "19200",
                             "38400", "57600", "115200", "230400", "460800", "921600"};
constexpr std::array kParities{",E", ",O", ",N", ",M", ",S"};
constexpr std::array kDataBits{",5", ",6", ",7", ",8"};
constexpr std::array kStopBits{",1", ",1.5", ",2"};

template <class Table>
QString entry(const Table& table, int index)
{
    return index >= 0 && index < int(table.size()) ? QString::fromLatin1(table[std::size_t(index)])
                                                   : QString();
}

} // namespace

QString settingsText(const session::COMPortSettings& port)
{
    return entry(kSpeeds, port.Speed) + entry(kParities, port.Parity) + entry(kDataBits, port.DataBit) +
           entry(kStopBits, port.StopBit);
}

} // namespace bus
