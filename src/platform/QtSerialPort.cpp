#include "platform/QtSerialPort.h"

#include "platform/Ports.h"
#include "platform/Words.h"

#include <QFileInfo>
#include <QSocketNotifier>

namespace platform {

namespace {

constexpr qint64 kInputBuffer = 1024;

// Qt's enumerators stand in another order than the handshaking values: map by name.
QSerialPort::FlowControl flowControlOf(int handshaking)
{
    switch (handshaking) {
    case 1:
        return QSerialPort::SoftwareControl;
    case 2:
    case 3:
        return QSerialPort::HardwareControl;
    default:
        return QSerialPort::NoFlowControl;
    }
}

QSerialPort::Parity parityOf(char letter)
{
    switch (letter) {
    case 'E':
        return QSerialPort::EvenParity;
    case 'O':
        return QSerialPort::OddParity;
    case 'M':
        return QSerialPort::MarkParity;
    case 'S':
        return QSerialPort::SpaceParity;
    default:
        return QSerialPort::NoParity;
    }
}

QSerialPort::StopBits stopBitsOf(const QString& text)
{
    if (text == QLatin1String("1.5"))
        return QSerialPort::OneAndHalfStop;
    return text == QLatin1String("2") ? QSerialPort::TwoStop : QSerialPort::OneStop;
}

QString groupOf(const QString& device)
{
    const QString group = QFileInfo(device).group();
    return group.isEmpty() ? QStringLiteral("dialout") : group;
}

[[noreturn]] void failToOpen(const QSerialPort& port)
{
    const QString words = port.errorString();
    switch (port.error()) {
    case QSerialPort::DeviceNotFoundError:
        fail(errors::kPortNumberInvalid, QStringLiteral("Invalid port number"));
    case QSerialPort::PermissionError:
        if (words.contains(QLatin1String("lock"), Qt::CaseInsensitive) ||
            words.contains(QLatin1String("busy"), Qt::CaseInsensitive))
            fail(errors::kPortOpen, QStringLiteral("Port already open"));
        failInWords(errors::kPermissionDenied, "port.denied", {port.portName(), groupOf(port.portName())});
    default:
        fail(errors::kDeviceIo, QStringLiteral("%1: %2").arg(port.portName(), words));
    }
}

// The event loop may have taken notice of bytes that have since been read: the port would look for them, find
// nothing and take that for a device that is gone.
void forgetNotices(const QSerialPort& port)
{
    for (QSocketNotifier* notifier : port.findChildren<QSocketNotifier*>()) {
        if (notifier->type() != QSocketNotifier::Read || !notifier->isEnabled())
            continue;
        notifier->setEnabled(false);
        notifier->setEnabled(true);
    }
}

} // namespace

QtSerialPort::QtSerialPort(const QString& applicationPath)
    : QtSerialPort([applicationPath](int number) { return deviceOfPort(applicationPath, number); })
{
}

QtSerialPort::QtSerialPort(Devices devices) : devices_(std::move(devices))
{
    // The output buffer has no size of its own here: each output is flushed.
    port_.setReadBufferSize(kInputBuffer);
    // Queued: a message box opened inside a slot of readyRead would stop readyRead until it closes.
    connect(
        &port_, &QSerialPort::readyRead, this,
        [this] {
            if (OnComm && port_.bytesAvailable() > 0)
                OnComm();
        },
        Qt::QueuedConnection);
    connect(&port_, &QSerialPort::errorOccurred, this, &QtSerialPort::onError, Qt::QueuedConnection);
}

void QtSerialPort::setPortOpen(bool wanted)
{
    if (wanted && !port_.isOpen())
        open();
    else if (!wanted)
        port_.close();
}

void QtSerialPort::open()
{
    const QString device = devices_(CommPort());
    // Where the link of a pulled adapter went with it, the number would mean another port of the machine. A
    // link that was made since is meant.
    const auto lost = lost_.find(CommPort());
    const bool another = lost != lost_.end() && lost->second != device && !QFileInfo(device).isSymLink();
    if (device.isEmpty() || another)
        fail(errors::kPortNumberInvalid, QStringLiteral("Invalid port number"));
    const LineSettings line = LineSettings::parse(Settings());
    // All parameters before the opening: some combinations are refused on an open port.
    port_.setPortName(device);
    port_.setBaudRate(line.speed);
    port_.setParity(parityOf(line.parity));
    port_.setDataBits(QSerialPort::DataBits(line.dataBits));
    port_.setStopBits(stopBitsOf(line.stopBits));
    port_.setFlowControl(flowControlOf(Handshaking()));
    const bool opened = port_.open(QIODevice::ReadWrite);
    if (!opened)
        failToOpen(port_);
    device_ = device;
    lost_.erase(CommPort());
}

void QtSerialPort::Output(const QByteArray& bytes)
{
    if (!port_.isOpen())
        failInWords(errors::kDeviceIo, "port.closed");
    const bool written = port_.write(bytes) == bytes.size();
    // Without the flush the bytes would leave only when the event loop runs again, behind a Delay.
    port_.flush();
    if (!written)
        fail(errors::kDeviceIo, QStringLiteral("%1: %2").arg(port_.portName(), port_.errorString()));
}

QByteArray QtSerialPort::Input()
{
    if (!port_.isOpen())
        return {};
    // What lies with the machine's driver comes over, too: a tick that follows a wait asks before the event
    // loop has had a look at the port.
    QByteArray bytes = port_.readAll();
    while (port_.waitForReadyRead(0))
        bytes += port_.readAll();
    forgetNotices(port_);
    return bytes;
}

void QtSerialPort::onError(QSerialPort::SerialPortError error)
{
    const bool gone = error == QSerialPort::ResourceError || error == QSerialPort::ReadError ||
                      error == QSerialPort::WriteError;
    if (!gone || !port_.isOpen())
        return;
    // A vanished device repeats its error without end and stays open: close it at the first one.
    port_.close();
    lost_[CommPort()] = device_;
    if (OnFault)
        OnFault(RuntimeError(errors::kDeviceIo, inWords("port.vanished")));
}

} // namespace platform
