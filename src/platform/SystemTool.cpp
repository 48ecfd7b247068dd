#include "platform/SystemTool.h"

#include "platform/RuntimeError.h"

#include <QProcess>
#include <QStandardPaths>

namespace platform {

QString systemTool()
{
    static const QStringList kTools{"kinfocenter",
                                    "hardinfo2",
                                    "hardinfo",
                                    "gnome-control-center system",
                                    "mate-system-monitor",
                                    "gnome-system-monitor",
                                    "xfce4-taskmanager",
                                    "msinfo32"};
    for (const QString& tool : kTools) {
        if (!QStandardPaths::findExecutable(tool.section(u' ', 0, 0)).isEmpty())
            return tool;
    }
    return {};
}

void startProgram(const QString& commandLine)
{
    QStringList arguments = QProcess::splitCommand(commandLine);
    const QString program = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (program.isEmpty() || !QProcess::startDetached(program, arguments))
        fail(errors::kFileNotFound, QStringLiteral("%1 can't be started.").arg(commandLine));
}

} // namespace platform
