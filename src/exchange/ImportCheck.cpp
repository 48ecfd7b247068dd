#include "exchange/ImportCheck.h"

#include "platform/Connection.h"
#include "platform/Statement.h"
#include "session/Texts.h"

namespace exchange {

namespace {

constexpr qsizetype kShownOfText = 30;

QSet<QString> namesIn(const platform::Connection& company, const QString& statement)
{
    QSet<QString> names;
    platform::Statement rows(company, statement);
    while (rows.step())
        names << QString::fromUtf8(rows.text(0)).toLower();
    return names;
}

} // namespace

ImportCheck::ImportCheck(const platform::Connection& company, const session::Texts& texts)
    : texts_(texts), types_(namesIn(company, QStringLiteral("SELECT mTag FROM tbInstrument;"))),
      groups_(namesIn(company, QStringLiteral("SELECT mID FROM tbParamGroup;"))),
      parameters_(namesIn(company, QStringLiteral("SELECT mID FROM tbParam;")))
{
}

bool ImportCheck::look(const TraceReader& file, const TraceLine& line)
{
    line_ = file.number();
    if (file.length() != kTraceLength)
        find("import.length", QString::number(file.length()));
    switch (line.kind()) {
    case TraceKind::Group:
        lookAtGroup(line);
        break;
    case TraceKind::Instrument:
        lookAtInstrument(line);
        break;
    case TraceKind::Parameter:
        lookAtParameter(line);
        break;
    case TraceKind::None:
        find("import.skipped");
    }
    return findings_.size() < kMostFindings;
}

void ImportCheck::lookAtGroup(const TraceLine& line)
{
    if (group_)
        find("import.second");
    group_ = true;
    lookForCut(line, {3, 4, 5});
}

void ImportCheck::lookAtInstrument(const TraceLine& line)
{
    if (!group_)
        find("import.nogroup");
    instrument_ = true;
    ofInstrument_.clear();
    if (!types_.contains(line[5].toLower()))
        find("import.type", line[5]);
    lookForCut(line, {3, 4, 6});
}

void ImportCheck::lookAtParameter(const TraceLine& line)
{
    if (!instrument_)
        find("import.noinstrument");
    const QString id = line[2].toLower();
    if (ofInstrument_.contains(id))
        find("import.twice", line[2]);
    ofInstrument_ << id;
    if (!parameters_.contains(id))
        find("import.parameter", line[2]);
    if (!groups_.contains(line[3].toLower()))
        find("import.group", line[3]);
    lookForCut(line, {4});
}

void ImportCheck::lookForCut(const TraceLine& line, std::initializer_list<std::size_t> fields)
{
    for (const std::size_t field : fields) {
        if (line.isFull(field))
            find("import.cut", line[field]);
    }
}

void ImportCheck::find(const QString& words, const QString& detail)
{
    QString text = texts_.own(words);
    if (text.contains("%1"))
        text = text.arg(detail.size() > kShownOfText ? detail.left(kShownOfText) + "..." : detail);
    findings_ << texts_.own("import.line").arg(line_).arg(text);
}

} // namespace exchange
