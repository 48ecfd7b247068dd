#pragma once

#include <QStringList>

// The engine's own shell on the same file: the measure of what its statements cost by themselves.
class Shell
{
public:
    explicit Shell(const QString& file);

    // Milliseconds for the statements, their rows thrown away, without the shell's start.
    double milliseconds(const QStringList& statements) const;

private:
    double run(const QStringList& statements) const;

    QString file_;
    double start_ = 0;
};
