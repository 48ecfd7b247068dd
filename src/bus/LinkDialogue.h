#pragma once

#include "bus/Line.h"

namespace bus {

// The way to a group: the words that raise a connection and those that end it. Over a modem the program
// commands it; on a direct cable it plays the modem itself.
class LinkDialogue
{
public:
    explicit LinkDialogue(Line& line) : line_(line) {}
    virtual ~LinkDialogue() = default;
    LinkDialogue(const LinkDialogue&) = delete;
    LinkDialogue& operator=(const LinkDialogue&) = delete;

    virtual void raise() = 0;
    virtual void lower() = 0;

protected:
    // The connection stands: its clock and its poll begin.
    void connectionUp(const QByteArray& lastWord);
    // The connection has ended, with its events in their log.
    void connectionDown();

    Line& line_;
};

} // namespace bus
