#include "instrument/Memory.h"

#include <algorithm>

namespace instrument {

namespace {

constexpr int kAddressSpace = 256;

void overlay(QByteArray& target, qsizetype position, const QByteArray& bytes)
{
    const qsizetype count = std::min(bytes.size(), target.size() - position);
    std::copy_n(bytes.begin(), std::max<qsizetype>(count, 0), target.begin() + position);
}

} // namespace

std::optional<QString> Memory::addBank(Bank bank)
{
    const int end = bank.startAddress + int(bank.bytes.size());
    if (bank.startAddress < 0 || bank.bytes.isEmpty() || end > kAddressSpace)
        return QStringLiteral("a bank of %1 bytes from address %2 doesn't fit into the addresses 0 to 255")
            .arg(bank.bytes.size())
            .arg(bank.startAddress);
    for (const Bank& other : banks_) {
        const int otherEnd = other.startAddress + int(other.bytes.size());
        if (other.readCommand == bank.readCommand && bank.startAddress < otherEnd && other.startAddress < end)
            return QStringLiteral("two banks with read command %1 overlap").arg(bank.readCommand);
    }
    banks_.push_back(std::move(bank));
    return std::nullopt;
}

void Memory::addEeprom(quint8 writeCommand, QByteArray bytes)
{
    bytes.resize(kEepromSize);
    eeproms_.emplace(writeCommand, std::move(bytes));
}

std::optional<QByteArray> Memory::read(quint8 readCommand, int address, int length) const
{
    const std::optional<std::size_t> bank = bankRead(readCommand, address);
    if (!bank)
        return std::nullopt;
    const QByteArray& bytes = banks_[*bank].bytes;
    return bytes.mid(address - banks_[*bank].startAddress, length).leftJustified(length, char(0xFF));
}

bool Memory::set(quint8 readCommand, int address, const QByteArray& bytes)
{
    const std::optional<std::size_t> bank = bankRead(readCommand, address);
    if (bank)
        overlay(banks_[*bank].bytes, address - banks_[*bank].startAddress, bytes);
    return bank.has_value();
}

bool Memory::write(quint8 writeCommand, int address, const QByteArray& bytes)
{
    const std::optional<Spot> spot = spotBehind(writeCommand, address);
    if (!spot)
        return false;
    overlay(spot->bank ? banks_[*spot->bank].bytes : eeproms_[writeCommand], spot->position, bytes);
    return true;
}

quint8 Memory::byteBehind(quint8 writeCommand, int address) const
{
    const std::optional<Spot> spot = spotBehind(writeCommand, address);
    if (!spot)
        return 0xFF;
    return quint8((spot->bank ? banks_[*spot->bank].bytes : eeproms_.at(writeCommand))[spot->position]);
}

std::optional<std::size_t> Memory::bankRead(quint8 readCommand, int address) const
{
    for (std::size_t i = 0; i < banks_.size(); ++i)
        if (banks_[i].readCommand == readCommand && banks_[i].holds(address))
            return i;
    return std::nullopt;
}

std::optional<Memory::Spot> Memory::spotBehind(quint8 writeCommand, int address) const
{
    for (std::size_t i = 0; i < banks_.size(); ++i)
        if (banks_[i].writeCommand == writeCommand && banks_[i].holds(address))
            return Spot{i, address - banks_[i].startAddress};
    if (eeproms_.contains(writeCommand) && address >= 0 && address < kEepromSize)
        return Spot{std::nullopt, address};
    return std::nullopt;
}

} // namespace instrument
