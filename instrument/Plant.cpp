#include "instrument/Plant.h"

namespace instrument {

CommandSet Plant::commands() const
{
    CommandSet commands;
    for (const auto& [address, memory] : instruments) {
        for (const Bank& bank : memory.banks()) {
            commands.add(address, bank.readCommand, CommandKind::Read);
            if (bank.writeCommand)
                commands.add(address, *bank.writeCommand, CommandKind::Write);
        }
        for (const auto& [writeCommand, bytes] : memory.eeproms())
            commands.add(address, writeCommand, CommandKind::Write);
    }
    return commands;
}

} // namespace instrument
