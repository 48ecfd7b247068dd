#include "program/TraceValues.h"

#include "exchange/TraceReader.h"

namespace program {

std::vector<history::SideValue> valuesOfTrace(const QString& file, int codePage)
{
    std::vector<history::SideValue> values;
    exchange::TraceReader trace(file, codePage);
    int IDInst = 0;
    while (const auto line = trace.next()) {
        if (line->kind() == exchange::TraceKind::Instrument)
            IDInst = (*line)[1].toInt();
        else if (line->kind() == exchange::TraceKind::Parameter)
            values.push_back(
                {IDInst, (*line)[3].toStdString(), (*line)[2].toStdString(), (*line)[4].toStdString()});
    }
    return values;
}

} // namespace program
