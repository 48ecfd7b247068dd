#include "line/Event.h"

namespace line {

bool isArrival(What what)
{
    return what >= What::Answer && what <= What::EndBlock;
}

QString nameOf(Event event)
{
    static const QStringList kNames{
#define CALIDORA_NAME(name) QStringLiteral(#name),
        CALIDORA_LINE_EVENTS(CALIDORA_NAME)
#undef CALIDORA_NAME
    };
    const QString& name = kNames[int(event.what)];
    switch (event.when) {
    case When::Soon:
        return QStringLiteral("soon(%1)").arg(name);
    case When::WithTimer:
        return QStringLiteral("withTimer(%1)").arg(name);
    default:
        return name;
    }
}

Sequence sequenceOf(const QString& names)
{
    Sequence sequence;
    for (const QString& name : names.split(QLatin1Char(','), Qt::SkipEmptyParts))
        for (const When when : {When::Now, When::Soon, When::WithTimer})
            for (const What what : kAllEvents)
                if (nameOf({what, when}) == name.trimmed())
                    sequence.emplace_back(what, when);
    return sequence;
}

QString asTest(const Sequence& sequence, const QString& violation)
{
    QStringList names;
    for (const Event event : sequence)
        names << nameOf(event);
    return QStringLiteral("// %1\nTEST_F(FoundSequences, GiveThisAName)\n{\n    play({%2});\n}\n")
        .arg(violation, names.join(QStringLiteral(", ")));
}

} // namespace line
