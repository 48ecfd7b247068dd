#pragma once

#include <QString>
#include <QStringList>
#include <exception>
#include <vector>

namespace catalogue {

// Where something stands in the sources.
struct Origin
{
    QString file;
    int line = 0;
};

// What is wrong there. text() is the form that editors and people jump to: "file:line: reason".
struct Problem
{
    Origin origin;
    QString reason;

    QString text() const
    {
        return QStringLiteral("%1:%2: %3").arg(origin.file, QString::number(origin.line), reason);
    }
};

using Problems = std::vector<Problem>;

// A source that cannot be understood, or a set of sources that breaks the rules. Never empty.
struct Refused : std::exception
{
    explicit Refused(Problems found) : problems(std::move(found))
    {
        QStringList lines;
        for (const Problem& problem : problems)
            lines << problem.text();
        bytes_ = lines.join('\n').toUtf8();
    }
    const char* what() const noexcept override { return bytes_.constData(); }

    Problems problems;

private:
    QByteArray bytes_;
};

[[noreturn]] inline void refuse(const Origin& origin, const QString& reason)
{
    throw Refused({{origin, reason}});
}

} // namespace catalogue
