#include "catalogue/tool/Source.h"
#include "catalogue/tool/Expression.h"

#include <QDir>
#include <QFile>

namespace catalogue {

namespace {

constexpr int kDeepestInclude = 8;

std::vector<Line> rawLines(const QString& folder, const QString& name, const Origin& asker)
{
    QFile file(QDir(folder).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        refuse(asker, QStringLiteral("\"%1\" cannot be read: %2").arg(name, file.errorString()));
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

class Reader
{
public:
    Reader(QString folder, std::vector<Line>& result) : folder_(std::move(folder)), result_(result) {}

    void readFile(const QString& name, const Origin& asker, Variables& variables, int depth)
    {
        if (depth > kDeepestInclude)
            refuse(asker, QStringLiteral("\"%1\" includes itself").arg(name));
        const std::vector<Line> lines = rawLines(folder_, name, asker);
        readLines(lines, 0, lines.size(), variables, depth);
    }

private:
    void readLines(const std::vector<Line>& lines, size_t from, size_t to, Variables& variables, int depth)
    {
        for (size_t at = from; at < to; ++at) {
            const Line& line = lines[at];
            const QString text = expand(line.text, variables, line.origin);
            const QStringList words = text.simplified().split(' ');
            if (words[0] == "let") {
                const QString name = nameIn(words, line);
                variables[name] = numberIn(words[2], line);
            } else if (words[0] == "include") {
                readFile(words.value(1), line.origin, variables, depth + 1);
            } else if (words[0] == "repeat") {
                const size_t end = endOf(lines, at, to);
                repeat(words, lines, at, end, variables, depth);
                at = end;
            } else if (words[0] == "end") {
                refuse(line.origin, QStringLiteral("\"end\" without \"repeat\""));
            } else {
                result_.push_back({line.origin, text, line.indented});
            }
        }
    }

    void repeat(const QStringList& words, const std::vector<Line>& lines, size_t begin, size_t end,
                const Variables& variables, int depth)
    {
        const QString name = nameIn(words, lines[begin]);
        const QStringList range = words.value(2).split(QStringLiteral(".."));
        if (range.size() != 2)
            refuse(lines[begin].origin, QStringLiteral("a repeat runs over a range such as 1..8"));
        const int last = numberIn(range[1], lines[begin]);
        for (int number = numberIn(range[0], lines[begin]); number <= last; ++number) {
            Variables inside = variables;
            inside[name] = number;
            readLines(lines, begin + 1, end, inside, depth);
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

    static QString nameIn(const QStringList& words, const Line& line)
    {
        const QString name = words.value(1);
        if (words.size() != 3 || name.isEmpty() || !name.front().isLetter())
            refuse(line.origin, QStringLiteral("\"%1\" needs a name and a value").arg(words[0]));
        return name;
    }

    static int numberIn(const QString& text, const Line& line)
    {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (!isNumber)
            refuse(line.origin, QStringLiteral("\"%1\" is not a whole number").arg(text));
        return number;
    }

    QString folder_;
    std::vector<Line>& result_;
};

} // namespace

std::vector<Line> readSource(const QString& folder, const QString& file)
{
    std::vector<Line> result;
    Variables variables;
    Reader(folder, result).readFile(file, {file, 0}, variables, 0);
    return result;
}

} // namespace catalogue
