#include "instrument/AutoLink.h"

namespace instrument {

void AutoLink::receive(char byte, qint64 nowMs)
{
    const QByteArray word = isTransparent() ? QByteArray() : wordOfTheOtherKind(byte);
    if (word.isEmpty()) {
        current_->receive(byte, nowMs);
        return;
    }
    become(current_ == &modem_ ? static_cast<Link&>(cable_) : modem_);
    for (const char letter : word)
        current_->receive(letter, nowMs);
}

// The word that this byte completes and that only the other kind of link understands; empty when there is
// none.
QByteArray AutoLink::wordOfTheOtherKind(char byte)
{
    const bool rings = ring_.sees(byte);
    const bool escapes = escape_.sees(byte);
    const bool attends = attention_.sees(byte);
    if (current_ == &modem_)
        return rings ? ring_.word() : QByteArray();
    if (escapes)
        return escape_.word();
    return attends && cable_.isIdle() ? attention_.word() : QByteArray();
}

void AutoLink::become(Link& link)
{
    current_->reset();
    current_ = &link;
    current_->reset();
}

void AutoLink::reset()
{
    become(modem_);
    for (WordWatch* watch : {&ring_, &escape_, &attention_})
        watch->reset();
}

} // namespace instrument
