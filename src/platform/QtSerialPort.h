#pragma once

#include "platform/SerialPort.h"

#include <QObject>
#include <QSerialPort>

namespace platform {

// The machine's serial port.
class QtSerialPort : public QObject, public SerialPort
{
    Q_OBJECT

public:
    // `applicationPath` is the folder that may hold ports/COMn.
    explicit QtSerialPort(QString applicationPath);

    bool PortOpen() const override { return port_.isOpen(); }
    void setPortOpen(bool open) override;
    void Output(const QByteArray& bytes) override;
    QByteArray Input() override;

private:
    void open();
    void onError(QSerialPort::SerialPortError error);

    QString applicationPath_;
    QSerialPort port_;
};

} // namespace platform
