#pragma once

#include <QString>

#include <stdexcept>

namespace instrument {

// A file that can't be taken as it is: which one, in which line (0: not in any one line), and why.
struct LoadError : std::runtime_error
{
    LoadError(const QString& file_, int line_, const QString& reason_)
        : std::runtime_error((line_ > 0 ? QStringLiteral("%1:%2: %3").arg(file_).arg(line_).arg(reason_)
                                        : QStringLiteral("%1: %2").arg(file_, reason_))
                                 .toStdString()),
          file(file_), line(line_), reason(reason_)
    {
    }

    QString file;
    int line = 0;
    QString reason;
};

} // namespace instrument
