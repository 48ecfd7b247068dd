#include "e2e/SoftModem.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtEndian>

#include <arpa/inet.h>
#include <grp.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace e2e {

namespace {

// Frames of the exchange, as RFC 5456 tells: types, subclasses and information elements that a call needs.
constexpr uchar kControl = 4;
constexpr uchar kAnswer = 4;
constexpr uchar kSignalling = 6;
constexpr uchar kNew = 1;
constexpr uchar kHangUp = 5;
constexpr uchar kReject = 6;
constexpr uchar kCalledNumber = 1;
constexpr uchar kCallingNumber = 2;
constexpr uchar kCapability = 8;
constexpr uchar kFormat = 9;
constexpr uchar kVersion = 11;
constexpr quint32 kSignedLinear = 64;
constexpr qsizetype kHeaderSize = 12;
constexpr qsizetype kTypeAt = 10;

template <class Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray element(uchar kind, const QByteArray& content)
{
    return QByteArray(1, char(kind)) + char(content.size()) + content;
}

QByteArray newCall(quint16 callNumber)
{
    QByteArray header = bigEndian(quint16(0x8000 | callNumber)); // a full frame
    header += bigEndian(quint16(0));                             // the other side has no number yet
    header += bigEndian(quint32(0));                             // time stamp
    header += QByteArray(2, '\0');                               // sequence numbers
    header += char(kSignalling);
    header += char(kNew);
    return header + element(kVersion, bigEndian(quint16(2))) + element(kCalledNumber, "100") +
           element(kCallingNumber, "0555010110") + element(kCapability, bigEndian(kSignedLinear)) +
           element(kFormat, bigEndian(kSignedLinear));
}

sockaddr_in local(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

quint16 freePort()
{
    const int probe = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = local(0);
    socklen_t size = sizeof address;
    const bool bound = bind(probe, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    close(probe);
    return bound ? ntohs(address.sin_port) : 0;
}

QByteArray ownerOfThisProcess()
{
    return QByteArray(getpwuid(getuid())->pw_name) + ':' + getgrgid(getgid())->gr_name;
}

QString program()
{
    return QStandardPaths::findExecutable(QStringLiteral("iaxmodem"));
}

} // namespace

bool SoftModem::isInstalled()
{
    return !program().isEmpty();
}

SoftModem::SoftModem(const QString& device) : device_(device), linePort_(freePort())
{
    const QString configuration = folder_.filePath(QStringLiteral("modem"));
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly))
        return;
    // Refresh 0: it registers nowhere and waits to be rung up.
    file.write("device " + device.toUtf8() + "\nowner " + ownerOfThisProcess() + "\nmode 660\nport " +
               QByteArray::number(linePort_) +
               "\nrefresh 0\nserver 127.0.0.1\npeername calidora\nsecret none\ncidname Calidora\n"
               "cidnumber 100\ncodec slinear\nnodaemon\n");
    file.close();
    process_.setStandardOutputFile(folder_.filePath(QStringLiteral("modem.out")));
    process_.setStandardErrorFile(folder_.filePath(QStringLiteral("modem.err")));
    // It looks for its configuration by name in a folder of /etc, and takes a path from there as well.
    process_.start(program(), {QStringLiteral("../..") + QFileInfo(configuration).absoluteFilePath()});
}

SoftModem::~SoftModem()
{
    process_.terminate();
    if (!process_.waitForFinished(5000)) {
        process_.kill();
        process_.waitForFinished();
    }
}

bool SoftModem::isReady() const
{
    return process_.state() == QProcess::Running && QFileInfo::exists(device_);
}

Caller::Caller(quint16 linePort)
    : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)), linePort_(linePort)
{
    const sockaddr_in address = local(0);
    bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

Caller::~Caller()
{
    close(socket_);
}

void Caller::ring()
{
    refused_ = false;
    const QByteArray frame = newCall(++callNumber_);
    const sockaddr_in address = local(linePort_);
    sendto(socket_, frame.constData(), std::size_t(frame.size()), 0,
           reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

bool Caller::wasRefused()
{
    listen();
    return refused_;
}

bool Caller::wasAnswered()
{
    listen();
    return answered_;
}

void Caller::listen()
{
    char frame[2048];
    for (;;) {
        const ssize_t size = recv(socket_, frame, sizeof frame, 0);
        if (size < 0)
            return;
        const bool full = size >= kHeaderSize && (frame[0] & 0x80);
        if (!full)
            continue;
        const uchar type = uchar(frame[kTypeAt]), subclass = uchar(frame[kTypeAt + 1]);
        answered_ = answered_ || (type == kControl && subclass == kAnswer);
        refused_ = refused_ || (type == kSignalling && (subclass == kReject || subclass == kHangUp));
    }
}

} // namespace e2e
