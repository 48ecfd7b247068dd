// Holds COM1 of an application folder as another program does: says "held" when it has it, lets go at the end
// of its standard input.

#include "platform/QtSerialPort.h"

#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        return 2;
    platform::QtSerialPort port(QString::fromLocal8Bit(argv[1]));
    port.setCommPort(1);
    port.setSettings(QStringLiteral("2400,N,8,1"));
    try {
        port.setPortOpen(true);
    } catch (const platform::RuntimeError& error) {
        std::fputs(error.description.toLocal8Bit().constData(), stderr);
        return 1;
    }
    std::puts("held");
    std::fflush(stdout);
    char byte;
    while (read(STDIN_FILENO, &byte, 1) > 0) {
    }
    return 0;
}
