#pragma once

#include <QByteArray>
#include <QString>

namespace instrument {

// A pseudo-terminal in raw mode whose far side is linked under a name, as if a serial device had been plugged
// in.
//
// The far side is kept open here too, so that the program may close and open it as often as it likes without
// this side's seeing a hang-up. What a killed program left on it, its claim to have it alone, is taken back
// as soon as it has gone. Unplugging closes both sides: the program meets a vanished device. The link lives
// as long as this does.
class Pty
{
public:
    // Folders on the way to the link are made; a link that stands there already is replaced, anything else is
    // not. Throws std::system_error.
    explicit Pty(QString link);
    ~Pty();
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    void plugIn();
    void unplug();
    bool isPlugged() const { return master_ >= 0; }

    // For poll(2); -1 while unplugged.
    int descriptor() const { return master_; }
    // For poll(2): readable when somebody has left the far side.
    int departures() const { return watch_; }
    void clearUpBehind();
    QString device() const { return device_; }

    // All that is waiting.
    QByteArray read();
    // What the far side has no room for is lost, as on a line without handshake.
    void write(const QByteArray& bytes);

private:
    void replaceLink();

    QString link_;
    QString device_;
    int master_ = -1;
    int slave_ = -1;
    int watch_;
};

} // namespace instrument
