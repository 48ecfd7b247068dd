#include "bus/ModemDialogue.h"

#include "platform/CodePage.h"
#include "session/Texts.h"

#include <array>

namespace bus {

namespace {

// What follows "ATH", in order.
constexpr std::array kSetUp{"AT", "ATZ", "ATE0", "AT&D0", "AT&K0"};

} // namespace

void ModemDialogue::raise()
{
    line_.code = ActionCode::ModemSetup;
    commandsSent_ = 1;
    sendEscapeAndHangUp();
}

void ModemDialogue::lower()
{
    line_.code = ActionCode::HangingUp;
    sendEscapeAndHangUp();
}

void ModemDialogue::sendEscapeAndHangUp()
{
    line_.send("+++");
    line_.Delay(kGuardSeconds);
    line_.sendCommand("ATH");
}

void ModemDialogue::receiveSetUpReply()
{
    // Behind the last command anything at all is taken for its answer.
    if (commandsSent_ > int(kSetUp.size())) {
        dial();
    } else if (line_.strReceive.contains("OK")) {
        line_.strReceive.clear();
        line_.tmrAction.start(intervals::kModemCommand);
    }
}

void ModemDialogue::sendNextCommand()
{
    line_.sendCommand(kSetUp.at(std::size_t(commandsSent_ - 1)));
    ++commandsSent_;
}

void ModemDialogue::dial()
{
    line_.code = ActionCode::Dialling;
    line_.tmrAction.stop();
    line_.log(line_.texts(544) + QLatin1Char(' ') + line_.parTrasm.Phone);
    line_.sendCommand("ATD" + platform::encode(line_.parTrasm.Phone, line_.session.CodePage));
}

void ModemDialogue::receiveConnect()
{
    if (line_.strReceive.contains("CONNECT"))
        connectionUp({});
}

void ModemDialogue::receiveHangUp()
{
    if (!line_.strReceive.contains("OK"))
        return;
    line_.strReceive.clear();
    line_.code = ActionCode::Idle;
    line_.tmrConnection.stop();
    connectionDown();
}

} // namespace bus
