#pragma once

#include "platform/SerialPort.h"

#include <QObject>
#include <QSerialPort>
#include <functional>
#include <map>

namespace platform {

// The machine's serial port.
class QtSerialPort : public QObject, public SerialPort
{
    Q_OBJECT

public:
    // The device behind a port's number; "" for none.
    using Devices = std::function<QString(int number)>;

    // `applicationPath` is the folder that may hold ports/COMn.
    explicit QtSerialPort(const QString& applicationPath);
    explicit QtSerialPort(Devices devices);

    bool PortOpen() const override { return port_.isOpen(); }
    void setPortOpen(bool open) override;
    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;

private:
    void open();
    void onError(QSerialPort::SerialPortError error);

    Devices devices_;
    QSerialPort port_;
    QString device_; // that the port was opened on last
    // What broke while it was open, by number, until it is opened again.
    std::map<int, QString> lost_;
};

} // namespace platform
