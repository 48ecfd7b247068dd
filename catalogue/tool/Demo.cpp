#include "catalogue/tool/Demo.h"
#include "catalogue/tool/Words.h"

#include <QFileInfo>

namespace catalogue {

namespace {

const QStringList kCompanyColumns{"Company", "Address", "Postcode", "Locality", "Country",
                                  "Phone",   "Fax",     "EMail",    "WEB",      "VATNumber"};

const QStringList kRights{"UpgradeDb", "Settings", "Modify", "EventViewer", "ReadWrite"};

class DemoParser
{
public:
    Demo parse(const std::vector<Line>& lines, Problems& problems)
    {
        for (const Line& line : lines)
            if (!line.unreadable)
                gather(problems, [&] { line.indented ? readDescription(line) : readStatement(line); });
        return std::move(demo_);
    }

private:
    void readStatement(const Line& line)
    {
        const QStringList columns = columnsOf(line.text, line.origin);
        const QString& verb = columns[0];
        description_ = nullptr;
        for (const QString& column : columns)
            refuseTwoAlphabets(column, line);
        if (verb == "company")
            readCompany(columns, line);
        else if (verb == "user")
            readUser(columns, line);
        else if (verb == "plant")
            readPlant(columns, line);
        else if (verb == "instrument")
            readInstrument(columns, line);
        else if (verb == "value" || verb == "changed")
            instrument(line).values.push_back(value(columns, verb == "changed" ? 1 : 0, line));
        else if (verb == "unknown")
            instrument(line).values.push_back({column(columns, 1, 2, line), std::nullopt, 0, line.origin});
        else if (verb == "added")
            instrument(line).values.push_back({column(columns, 1, 2, line), "0", 2, line.origin});
        else if (verb == "holds")
            instrument(line).holds.push_back(value(columns, 0, line));
        else if (verb == "call")
            readCall(columns, line);
        else
            refuse(line.origin, QStringLiteral("\"%1\" means nothing here").arg(verb));
    }

    void readCompany(const QStringList& columns, const Line& line)
    {
        const QString value = column(columns, 2, 3, line);
        if (!kCompanyColumns.contains(columns[1]))
            refuse(line.origin, QStringLiteral("a company has no \"%1\"").arg(columns[1]));
        demo_.company[columns[1]] = value;
    }

    // user 1 "NAME" "password" and any number of rights
    void readUser(const QStringList& columns, const Line& line)
    {
        if (columns.size() < 4)
            refuse(line.origin, QStringLiteral("\"user\" takes at least 3 columns"));
        const QStringList rights = columns.mid(4);
        for (const QString& right : rights) {
            if (!kRights.contains(right))
                refuse(line.origin, QStringLiteral("there is no right \"%1\"").arg(right));
        }
        demo_.users.push_back({columns[1], columns[2], columns[3], rights});
    }

    // plant "NAME" "phone number"
    void readPlant(const QStringList& columns, const Line& line)
    {
        const QString phone = column(columns, 2, 3, line);
        demo_.plants.push_back({columns[1], phone, {}, {}, line.origin});
        description_ = &demo_.plants.back().description;
    }

    // instrument 00 ZG-100 "NAME"
    void readInstrument(const QStringList& columns, const Line& line)
    {
        if (demo_.plants.empty())
            refuse(line.origin, QStringLiteral("an instrument without a plant above it"));
        const QString name = column(columns, 3, 4, line);
        auto& instruments = demo_.plants.back().instruments;
        instruments.push_back({columns[1], columns[2], name, {}, {}, {}, {}, line.origin});
        description_ = &instruments.back().description;
    }

    // call 60 "HIGH TEMPERATURE" "DOOR OPEN"
    void readCall(const QStringList& columns, const Line& line)
    {
        if (columns.size() < 3)
            refuse(line.origin, QStringLiteral("\"call\" takes the seconds and at least one alarm"));
        instrument(line).calls.push_back({wholeNumber(columns[1], line.origin), columns.mid(2)});
    }

    void readDescription(const Line& line)
    {
        if (description_ == nullptr)
            refuse(line.origin, QStringLiteral("a description that belongs to nothing"));
        refuseTwoAlphabets(line.text, line);
        *description_ = line.text;
    }

    static void refuseTwoAlphabets(const QString& text, const Line& line)
    {
        const QStringList words = wordsOfTwoAlphabets(text);
        if (!words.isEmpty())
            refuse(line.origin, QStringLiteral("Latin letters in the Cyrillic word \"%1\"").arg(words[0]));
    }

    DemoInstrument& instrument(const Line& line)
    {
        if (demo_.plants.empty() || demo_.plants.back().instruments.empty())
            refuse(line.origin, QStringLiteral("a value without an instrument above it"));
        return demo_.plants.back().instruments.back();
    }

    static DemoValue value(const QStringList& columns, int state, const Line& line)
    {
        const QString text = column(columns, 2, 3, line);
        return {columns[1], text, state, line.origin};
    }

    static QString column(const QStringList& columns, int index, int count, const Line& line)
    {
        if (columns.size() != count)
            refuse(line.origin, QStringLiteral("\"%1\" takes %2 columns").arg(columns[0]).arg(count - 1));
        return columns[index];
    }

    Demo demo_;
    QString* description_ = nullptr;
};

} // namespace

Demo readDemo(const QString& file)
{
    const QFileInfo info(file);
    Problems problems;
    Demo demo = DemoParser().parse(readSource(info.path(), info.fileName(), problems), problems);
    if (!problems.empty())
        throw Refused(std::move(problems));
    return demo;
}

} // namespace catalogue
