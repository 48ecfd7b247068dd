#pragma once

#include <QString>
#include <QStringList>
#include <exception>
#include <vector>

namespace catalogue {

// Where something stands in the sources, and what led there: which parameter, which pass of a repeat, who
// included the file.
struct Origin
{
    QString file;
    int line = 0;               // 0: the file as a whole
    QString parameter = {};     // its id
    QStringList repeats = {};   // "n = 3", the outer ones first
    QStringList includers = {}; // "types/02-cold-room.txt:177", the nearest first
};

// What is wrong there. text() is the form that editors and people jump to: "file:line: reason (what led
// there)".
struct Problem
{
    Origin origin;
    QString reason;
    int more = 0; // how often the same was found on that line besides: further passes, further includers

    QString text() const;
};

using Problems = std::vector<Problem>;

// In the order of files and lines; what was found on one line several times is told once, with its number.
Problems sorted(Problems problems);

// A source that cannot be understood, or a set of sources that breaks the rules. Never empty.
struct Refused : std::exception
{
    explicit Refused(Problems found);
    const char* what() const noexcept override { return bytes_.constData(); }

    Problems problems;

private:
    QByteArray bytes_;
};

[[noreturn]] inline void refuse(const Origin& origin, const QString& reason)
{
    throw Refused({{origin, reason}});
}

// Runs one step of a longer job; what it refuses joins the others. Whether it went well.
template <typename Step>
bool gather(Problems& problems, Step step)
{
    try {
        step();
        return true;
    } catch (const Refused& refused) {
        problems.insert(problems.end(), refused.problems.begin(), refused.problems.end());
        return false;
    }
}

} // namespace catalogue
