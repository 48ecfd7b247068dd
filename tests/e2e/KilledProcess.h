#pragma once

#include <QStringList>
#include <random>

// A program that works on and on until it is killed, at a random moment. CALIDORA_SEED repeats a run.
class KilledProcess
{
public:
    KilledProcess();

    // When it is killed: behind so many lines of its output, and some microseconds later, so that any
    // instruction may be its last.
    struct Moment
    {
        int fewestLines, mostLines, mostMicroseconds;
    };

    // The lines that the program told until then. `folder` is its place for temporary files.
    QStringList run(const QString& program, const QStringList& arguments, const QString& folder,
                    const Moment& moment);

private:
    int draw(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }

    std::mt19937 random_;
};
