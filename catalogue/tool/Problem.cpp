#include "catalogue/tool/Problem.h"

#include <algorithm>
#include <tuple>

namespace catalogue {

QString Problem::text() const
{
    QStringList ledThere = origin.parameter.isEmpty() ? QStringList() : QStringList(origin.parameter);
    ledThere += origin.repeats;
    for (const QString& includer : origin.includers)
        ledThere << QStringLiteral("included by ") + includer;
    if (more > 0)
        ledThere << QStringLiteral("and %1 more").arg(more);
    QString text = origin.file;
    if (origin.line > 0)
        text += ':' + QString::number(origin.line);
    text += QStringLiteral(": ") + reason;
    return ledThere.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(ledThere.join(", "));
}

Problems sorted(Problems problems)
{
    const auto place = [](const Problem& problem) {
        return std::tie(problem.origin.file, problem.origin.line);
    };
    std::ranges::stable_sort(problems, {}, place);
    Problems result;
    for (const Problem& problem : problems) {
        const auto same = std::find_if(result.rbegin(), result.rend(), [&](const Problem& told) {
            return place(told) == place(problem) && told.reason == problem.reason;
        });
        if (same == result.rend())
            result.push_back(problem);
        else
            ++same->more;
    }
    return result;
}

Refused::Refused(Problems found) : problems(sorted(std::move(found)))
{
    QStringList lines;
    for (const Problem& problem : problems)
        lines << problem.text();
    bytes_ = lines.join('\n').toUtf8();
}

} // namespace catalogue
