#pragma once

#include "bus/LinkDialogue.h"

namespace bus {

// "+++", "ATH" and the set-up of the modem word by word, then the number. Nothing here retries: a reply that
// never comes ends in the time-out.
class ModemDialogue : public LinkDialogue
{
public:
    using LinkDialogue::LinkDialogue;

    void raise() override;
    void lower() override;

    void receiveSetUpReply();
    void sendNextCommand();
    void receiveConnect();
    void receiveHangUp();

private:
    void sendEscapeAndHangUp();
    void dial();

    int commandsSent_ = 0;
};

} // namespace bus
