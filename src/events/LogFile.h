#pragma once

#include <QFile>

namespace events {

// A log file in the making, beside its place until it is brought there. Unlike other files it needn't be
// whole: the lines that a full disk still took are worth more than none.
class LogFile
{
public:
    explicit LogFile(const QString& path);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    // Writes one line, to its last byte; what the disk took of a line that fails is taken back.
    void append(const QByteArray& line);
    // Brings the lines to their place once they are safe on the disk; returns how many these are. A file
    // without lines leaves nothing.
    int putInPlace();

private:
    [[noreturn]] void failWithFile(int number) const;

    QString path_;
    QFile file_;
    int lines_ = 0;
};

} // namespace events
