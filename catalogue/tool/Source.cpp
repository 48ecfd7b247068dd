#include "catalogue/tool/Source.h"
#include "catalogue/tool/Expression.h"

#include <QDir>
#include <QFile>
#include <QSet>

namespace catalogue {

namespace {

constexpr qsizetype kDeepestInclude = 8;

// What a line of a file is read with: the names known there and what led there.
struct Surroundings
{
    Variables& variables;
    QStringList repeats;
    QStringList includers;

    Origin at(Origin origin) const
    {
        origin.repeats = repeats;
        origin.includers = includers;
        return origin;
    }
};

class Reader
{
public:
    Reader(QString folder, std::vector<Line>& result, Problems& problems)
        : folder_(std::move(folder)), result_(result), problems_(problems)
    {
    }

    // shownAs is what a refusal calls the file.
    void readFile(const QString& name, const QString& shownAs, const Origin& asker,
                  const Surroundings& surroundings)
    {
        if (surroundings.includers.size() > kDeepestInclude)
            refuse(asker, QStringLiteral("\"%1\" includes itself").arg(name));
        const std::vector<Line> lines = rawLines(name, shownAs, asker);
        readLines(lines, 0, lines.size(), surroundings);
    }

private:
    std::vector<Line> rawLines(const QString& name, const QString& shownAs, const Origin& asker) const
    {
        QFile file(QDir(folder_).filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            refuse(asker, QStringLiteral("\"%1\" cannot be read: %2").arg(shownAs, file.errorString()));
        std::vector<Line> lines;
        int number = 0;
        for (const QString& text : QString::fromUtf8(file.readAll()).split('\n')) {
            ++number;
            const QString trimmed = text.trimmed();
            if (!trimmed.isEmpty() && !trimmed.startsWith('#'))
                lines.push_back({{name, number}, trimmed, text.front().isSpace()});
        }
        return lines;
    }

    void readLines(const std::vector<Line>& lines, size_t from, size_t to, const Surroundings& surroundings)
    {
        for (size_t at = from; at < to; ++at) {
            size_t last = at; // of what is read now: a repeat reaches to its end
            Problems found;
            if (lines[at].text.startsWith(QStringLiteral("repeat ")) &&
                !gather(found, [&] { last = endOf(lines, at, to); }))
                last = to;
            if (found.empty())
                gather(found, [&] { readLine(lines, at, last, surroundings); });
            if (!found.empty())
                result_.push_back({surroundings.at(lines[at].origin), {}, lines[at].indented, true});
            for (const Problem& problem : found)
                tell(problem, surroundings);
            at = last;
        }
    }

    void readLine(const std::vector<Line>& lines, size_t at, size_t last, const Surroundings& surroundings)
    {
        const Line& line = lines[at];
        const Origin origin = surroundings.at(line.origin);
        const QString text = expand(line.text, surroundings.variables, origin);
        const QStringList words = text.simplified().split(' ');
        if (words[0] == "let") {
            const QString name = nameIn(words, origin);
            surroundings.variables[name] = numberIn(words[2], origin);
        } else if (words[0] == "include") {
            Surroundings inside{surroundings.variables, surroundings.repeats, surroundings.includers};
            inside.includers.prepend(QStringLiteral("%1:%2").arg(origin.file).arg(origin.line));
            readFile(words.value(1), words.value(1), origin, inside);
        } else if (words[0] == "repeat") {
            repeat(words, lines, at, last, surroundings);
        } else if (words[0] == "end") {
            refuse(origin, QStringLiteral("\"end\" without \"repeat\""));
        } else {
            result_.push_back({origin, text, line.indented});
        }
    }

    void repeat(const QStringList& words, const std::vector<Line>& lines, size_t begin, size_t end,
                const Surroundings& surroundings)
    {
        const Origin origin = surroundings.at(lines[begin].origin);
        const QString name = nameIn(words, origin);
        const QStringList range = words.value(2).split(QStringLiteral(".."));
        if (range.size() != 2)
            refuse(origin, QStringLiteral("a repeat runs over a range such as 1..8"));
        const int last = numberIn(range[1], origin);
        for (int number = numberIn(range[0], origin); number <= last; ++number) {
            Variables variables = surroundings.variables;
            variables[name] = number;
            Surroundings inside{variables, surroundings.repeats, surroundings.includers};
            inside.repeats << QStringLiteral("%1 = %2").arg(name).arg(number);
            readLines(lines, begin + 1, end, inside);
        }
    }

    static size_t endOf(const std::vector<Line>& lines, size_t begin, size_t to)
    {
        int open = 0;
        for (size_t at = begin; at < to; ++at) {
            if (lines[at].text.startsWith(QStringLiteral("repeat ")))
                ++open;
            else if (lines[at].text == "end" && --open == 0)
                return at;
        }
        refuse(lines[begin].origin, QStringLiteral("a \"repeat\" that nothing ends"));
    }

    static QString nameIn(const QStringList& words, const Origin& origin)
    {
        const QString name = words.value(1);
        if (words.size() != 3 || name.isEmpty() || !name.front().isLetter())
            refuse(origin, QStringLiteral("\"%1\" needs a name and a value").arg(words[0]));
        return name;
    }

    static int numberIn(const QString& text, const Origin& origin)
    {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (!isNumber)
            refuse(origin, QStringLiteral("\"%1\" is not a whole number").arg(text));
        return number;
    }

    // A name that a file needs and nobody gave it fails on every line: it is told once for each that includes
    // the file.
    void tell(const Problem& problem, const Surroundings& surroundings)
    {
        const QStringList key = QStringList{problem.origin.file, problem.reason} + surroundings.includers;
        if (!told_.contains(key))
            problems_.push_back(problem);
        told_.insert(key);
    }

    QString folder_;
    std::vector<Line>& result_;
    Problems& problems_;
    QSet<QStringList> told_;
};

} // namespace

std::vector<Line> readSource(const QString& folder, const QString& file, Problems& problems)
{
    std::vector<Line> result;
    Variables variables;
    gather(problems, [&] {
        Reader(folder, result, problems)
            .readFile(file, QDir(folder).filePath(file), {file}, {variables, {}, {}});
    });
    return result;
}

} // namespace catalogue
