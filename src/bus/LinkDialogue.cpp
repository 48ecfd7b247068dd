#include "bus/LinkDialogue.h"

#include "bus/StatusPanels.h"
#include "session/TextRows.h"
#include "session/Texts.h"

namespace bus {

void LinkDialogue::connectionUp(const QByteArray& lastWord)
{
    // A word that can't be sent makes no connection.
    if (!lastWord.isEmpty())
        line_.send(lastWord);
    line_.strReceive.clear();
    line_.code = ActionCode::Idle;
    line_.tmrTimeOut.stop();
    line_.tmrConnection.start(intervals::kConnectionClock);
    line_.log(line_.texts(541));
    line_.EnableDisable_RWMenu(session::kConnected);
    line_.tmrPolling.start(intervals::kPolling);
}

void LinkDialogue::connectionDown()
{
    // Escape may have kept a link that was still being raised, with its time-out.
    line_.tmrTimeOut.stop();
    line_.log(line_.texts(session::rows::kDisconnected));
    line_.log(line_.staMain.text(Panel::Info));
    line_.staMain.setText(Panel::Info, {});
    line_.Reset_ParTrasm();
    line_.flushEvents("frmMain.comCalidora_OnComm");
    line_.EnableDisable_RWMenu(session::kLineIdle);
}

} // namespace bus
