#pragma once

#include "bus/LinkDialogue.h"

namespace bus {

// "RING", and "CONNECT" three seconds behind the instrument's "ATA".
class CableDialogue : public LinkDialogue
{
public:
    using LinkDialogue::LinkDialogue;

    void raise() override;
    void lower() override;

    void receiveAnswer();
    void sayConnect();
    void receiveEnd();
};

} // namespace bus
