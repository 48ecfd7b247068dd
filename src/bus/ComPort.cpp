#include "bus/ComPort.h"

#include "bus/SettingsText.h"
#include "bus/StatusPanels.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/SerialPort.h"
#include "session/Texts.h"

namespace bus {

using platform::guarded;
using platform::RuntimeError;
namespace errors = platform::errors;

bool ComPort::Set_COMPort()
{
    return guarded("Module/Set_COMPort", [&] {
        const session::COMPortSettings& wanted = line_.session.COMPort;
        platform::SerialPort& port = line_.comCalidora;
        const QString settings = settingsText(wanted);
        port.setCommPort(wanted.Port + 1);
        port.setSettings(settings);
        port.setHandshaking(wanted.FlowCtrl);
        line_.staMain.setText(Panel::COMSet, QStringLiteral("COM%1:%2").arg(port.CommPort()).arg(settings));
        return true;
    });
}

bool ComPort::Open_COMConnection()
{
    return guarded("Module/Open_COMConnection", [&] {
        if (line_.comCalidora.PortOpen())
            return true;
        try {
            line_.comCalidora.setPortOpen(true);
        } catch (const RuntimeError& error) {
            return failedToOpen(error);
        }
        opened();
        return true;
    });
}

void ComPort::opened()
{
    lost_ = false;
    line_.staMain.setPicture(Panel::COMSet, images::kPortOpen);
    line_.setStatus(session::kLineIdle);
}

void ComPort::tryLost()
{
    if (!lost_ || line_.comCalidora.PortOpen())
        return;
    try {
        line_.comCalidora.setPortOpen(true);
        opened();
    } catch (const RuntimeError&) {
        // It is still gone, as the caller says.
    }
}

bool ComPort::failedToOpen(const RuntimeError& error)
{
    lost_ = true;
    line_.setStatus(session::kPortClosed);
    line_.staMain.setPicture(Panel::COMSet, images::kPortClosed);
    const bool missing = error.number == errors::kPortNumberInvalid;
    const bool inUse = error.number == errors::kPortOpen || error.number == errors::kPortInUse;
    if (!missing && !inUse)
        throw error;
    line_.op.messageBox(line_.texts(577) + QString::number(line_.session.COMPort.Port + 1) +
                            QLatin1Char(' ') + line_.texts(missing ? 578 : 579),
                        platform::Buttons::Ok, platform::Icon::Exclamation, line_.session.AppTitle);
    return false;
}

bool ComPort::Close_COMConnection()
{
    return guarded("Module/Close_COMConnection", [&] {
        if (line_.comCalidora.PortOpen()) {
            line_.comCalidora.setPortOpen(false);
            line_.staMain.setPicture(Panel::COMSet, images::kPortClosed);
            line_.setStatus(session::kPortClosed);
        }
        return true;
    });
}

} // namespace bus
