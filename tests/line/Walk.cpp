#include "line/Walk.h"

namespace line {

using bus::ActionCode;

// What the other side would say, or the operator do, if all went well.
What Walk::helpful(const Picture& now)
{
    using enum What;
    const auto either = [this](What first, What second) { return below(2) == 0 ? first : second; };
    switch (now.code) {
    case ActionCode::Idle:
        if (!now.consoleOpen)
            return now.companyOpen ? kAllEvents[std::size_t(below(6))]
                                   : either(OpenCompany, OpenOtherCompany);
        if (now.status == session::kConnected)
            return below(3) == 0 ? either(Write, Disconnect) : either(Read, DuePolling);
        return below(3) == 0 ? either(Simulator, SaysRing) : Connect;
    case ActionCode::Polling:
        return now.consoleOpen ? either(Read, Write) : either(Answer, OpenGroup);
    case ActionCode::SimulatorRaising:
        return either(SaysAta, DueAction);
    case ActionCode::SimulatorClosing:
        return Return;
    case ActionCode::Reading:
    case ActionCode::Checking:
    case ActionCode::MergingRam:
    case ActionCode::MergingEeprom:
        return either(Answer, DueAction);
    case ActionCode::WritingRam:
    case ActionCode::WritingEeprom:
        return DueAction;
    case ActionCode::ModemSetup:
        return either(SaysOk, DueAction);
    case ActionCode::Dialling:
    case ActionCode::CallAnswering:
        return SaysConnect;
    case ActionCode::HangingUp:
        return SaysOk;
    case ActionCode::CallWaiting:
        return DueAction;
    case ActionCode::FirstBlock:
        return either(FirstBlock, DueAction);
    case ActionCode::SecondBlock:
        return either(EndBlock, DueAction);
    }
    return Second;
}

Event Walk::draw(const World& world, const Picture& now)
{
    using enum What;
    if (world.boxes() > 0 && below(5) < 2)
        return kAllEvents[std::size_t(int(Yes) + below(4))];
    if (below(10) < 5)
        return helpful(now);
    for (int tries = 0; tries < 20; ++tries) {
        const What what = kAllEvents[std::size_t(below(int(kAllEvents.size())))];
        // What takes the company, the port or the program away, or harms the disk, would else happen all the
        // time.
        const bool rare = what == CloseCompany || what == Leave || what == Vanish || what >= Locked ||
                          what == Midnight || what == Settings;
        if (!world.isPossible(what) || (rare && what != Healed && below(6) != 0))
            continue;
        if (isArrival(what) && below(3) == 0)
            return below(2) == 0 ? soon(what) : withTimer(what);
        return what;
    }
    return Second;
}

Sequence shrink(World& world, Sequence sequence, QString& violation)
{
    // The same thing that doesn't hold, whatever the numbers and names in it.
    const auto kindOf = [](QString text) { return text.remove(QRegularExpression("[0-9]+|:.*|\\(.*")); };
    const QString kind = kindOf(violation);
    const auto fails = [&](const Sequence& part) {
        world.reset();
        world.play(part);
        if (world.violation().isEmpty())
            world.recover();
        if (kindOf(world.violation()) != kind)
            return false;
        violation = world.violation();
        return true;
    };
    for (std::size_t piece = std::max<std::size_t>(1, sequence.size() / 2); piece > 0;) {
        bool shorter = false;
        for (std::size_t at = 0; at < sequence.size();) {
            Sequence part = sequence;
            const auto from = part.begin() + std::ptrdiff_t(at);
            part.erase(from, part.begin() + std::ptrdiff_t(std::min(at + piece, part.size())));
            if (fails(part)) {
                sequence = std::move(part);
                shorter = true;
            } else {
                at += piece;
            }
        }
        if (!shorter || piece > 1)
            piece = piece == 1 ? (shorter ? 1 : 0) : piece / 2;
    }
    fails(sequence);
    return sequence;
}

} // namespace line
