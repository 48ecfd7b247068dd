#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>

namespace instrument {

enum class CommandKind
{
    Unknown,
    Read,
    Write
};

// Which commands which bus address understands. Nothing on the line tells a read from a write but the command
// itself, so a receiver has to know them before it can tell where a frame ends.
class CommandSet
{
public:
    // `address` is two characters. A command told twice keeps its first kind.
    void add(const QByteArray& address, quint8 command, CommandKind kind);

    // The kind of the three bytes that open a frame: address and command.
    CommandKind kindOf(const QByteArray& opening) const;

    // Whether one or two bytes may grow into the opening of a frame.
    bool mayOpen(const QByteArray& bytes) const;

private:
    QHash<QByteArray, CommandKind> kinds_;
    QSet<QByteArray> beginnings_;
};

} // namespace instrument
