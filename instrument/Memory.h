#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace instrument {

// A run of memory with commands of its own. Bytes never written are 0xFF, as in a fresh chip.
struct Bank
{
    quint8 readCommand = 0;
    std::optional<quint8> writeCommand; // absent: the bank can only be read
    int startAddress = 0;               // 0 to 255
    QByteArray bytes;                   // as many as the bank is large; start and size together at most 256

    bool holds(int address) const { return address >= startAddress && address < startAddress + bytes.size(); }
    bool operator==(const Bank&) const = default;
};

// The memory of one instrument: banks that are read and written, and EEPROM areas that are only written.
class Memory
{
public:
    static constexpr int kEepromSize = 256;

    // Fails, and says why, when the bank leaves the addresses 0 to 255 or overlaps one with the same read
    // command.
    std::optional<QString> addBank(Bank bank);

    // An area of 256 bytes behind a write command; the bytes are kept as told, or all 0xFF.
    void addEeprom(quint8 writeCommand, QByteArray bytes = QByteArray(kEepromSize, char(0xFF)));

    // The bytes from an address on; those beyond the bank's end read as 0xFF. Nothing when no bank with this
    // command holds the first of them.
    std::optional<QByteArray> read(quint8 readCommand, int address, int length) const;

    // Puts the bytes into the bank that holds the address, or else into the command's EEPROM area; what would
    // lie beyond the end is dropped. False when the command leads nowhere.
    bool write(quint8 writeCommand, int address, const QByteArray& bytes);

    // Puts the bytes where a read command finds them, whether or not any command may write there. False:
    // nowhere.
    bool set(quint8 readCommand, int address, const QByteArray& bytes);

    // One byte as a write command sees it; 0xFF where nothing is.
    quint8 byteBehind(quint8 writeCommand, int address) const;

    const std::vector<Bank>& banks() const { return banks_; }
    const std::map<quint8, QByteArray>& eeproms() const { return eeproms_; }

    bool operator==(const Memory&) const = default;

private:
    std::optional<std::size_t> bankRead(quint8 readCommand, int address) const;

    // Where a write command reaches: a bank, or the command's EEPROM area when no bank is told.
    struct Spot
    {
        std::optional<std::size_t> bank;
        qsizetype position = 0;
    };
    std::optional<Spot> spotBehind(quint8 writeCommand, int address) const;

    std::vector<Bank> banks_;
    std::map<quint8, QByteArray> eeproms_;
};

} // namespace instrument
