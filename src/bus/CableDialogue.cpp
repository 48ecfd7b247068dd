#include "bus/CableDialogue.h"

namespace bus {

void CableDialogue::raise()
{
    line_.code = ActionCode::SimulatorRaising;
    line_.send("RING");
}

void CableDialogue::lower()
{
    line_.code = ActionCode::SimulatorClosing;
    line_.send("+++");
}

void CableDialogue::receiveAnswer()
{
    if (!line_.strReceive.contains("ATA"))
        return;
    line_.tmrTimeOut.stop();
    line_.tmrAction.start(intervals::kFrame);
}

void CableDialogue::sayConnect()
{
    // It ends an attempt whose last word can't be sent.
    line_.tmrTimeOut.start(intervals::kTimeOut);
    connectionUp("CONNECT");
}

void CableDialogue::receiveEnd()
{
    line_.tmrConnection.stop();
    line_.sendCommand("ATH");
    connectionDown();
    line_.code = ActionCode::Idle;
}

} // namespace bus
