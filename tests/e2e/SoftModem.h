#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <optional>

namespace e2e {

// Debian's iaxmodem: a modem in software behind a pseudo-terminal, with a telephone line of datagrams on its
// other side.
class SoftModem
{
public:
    static bool isInstalled();

    // The modem appears as the link `device`. Its telephone line is a datagram port of this machine.
    explicit SoftModem(const QString& device);
    ~SoftModem();
    SoftModem(const SoftModem&) = delete;
    SoftModem& operator=(const SoftModem&) = delete;

    bool isReady() const;
    quint16 linePort() const { return linePort_; }

private:
    QTemporaryDir folder_;
    QString device_;
    quint16 linePort_;
    QProcess process_;
};

// Somebody who rings the modem up from a telephone exchange of datagrams on this machine.
class Caller
{
public:
    explicit Caller(quint16 linePort);
    ~Caller();
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    // Asks for a call. A modem that is busy refuses it, and the caller may ask again.
    void ring();
    bool wasRefused();
    // Somebody at the other end has picked up.
    bool wasAnswered();

private:
    void listen();

    int socket_;
    quint16 linePort_;
    quint16 callNumber_ = 0;
    bool refused_ = false;
    bool answered_ = false;
};

} // namespace e2e
