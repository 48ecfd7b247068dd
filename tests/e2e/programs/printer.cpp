// Prints a page on a printer of the machine: calidora-e2e-printer <printer> <copies> <line>

#include "platform/widgets/DesktopPrinters.h"

#include "platform/RuntimeError.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (argc != 4)
        return 2;
    const QString line = QString::fromUtf8(argv[3]);
    platform::DesktopPrinters printers([](const QString& key) { return key + " %1"; });
    try {
        printers.print({"Plant", platform::Orientation::Portrait,
                        [&line](platform::Printer& paper) {
                            paper.setFont("Courier New");
                            paper.setFontSize(9);
                            paper.printLine(line);
                        }},
                       {QString::fromUtf8(argv[1]), QByteArray(argv[2]).toInt()});
    } catch (const platform::RuntimeError& error) {
        std::fputs(error.description.toUtf8().constData(), stderr);
        return 1;
    }
    return 0;
}
