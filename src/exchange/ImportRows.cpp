#include "exchange/ImportRows.h"

#include "platform/Connection.h"

namespace exchange {

namespace {

std::optional<QString> orNull(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

ImportRows::ImportRows(const platform::Connection& company, int newGrp)
    : newGrp_(newGrp),
      group_(company, QStringLiteral(
                          "INSERT INTO tbGroupsUser (IDGrp, Name, Description, Phone) VALUES(?, ?, ?, ?);")),
      instrument_(company,
                  QStringLiteral("INSERT INTO tbInstrumentsUser (IDGrp, IDInst, IDItem, Name, Description, "
                                 "Address) VALUES(?, ?, ?, ?, ?, ?);")),
      parameter_(company,
                 QStringLiteral("INSERT INTO tbParametersUser (IDGrp, IDInst, IDPar, IDParGrp, [Value], "
                                "State) VALUES(?, ?, ?, ?, ?, 0);"))
{
}

void ImportRows::add(const TraceLine& line)
{
    switch (line.kind()) {
    case TraceKind::Group:
        group_.bind(1, newGrp_);
        group_.bind(2, std::optional(line[3]));
        group_.bind(3, orNull(line[4]));
        group_.bind(4, orNull(line[5]));
        run(group_);
        break;
    case TraceKind::Instrument:
        instrument_.bind(1, newGrp_);
        instrument_.bind(2, ++newInst_);
        instrument_.bind(3, std::optional(line[5]));
        instrument_.bind(4, std::optional(line[3]));
        instrument_.bind(5, orNull(line[4]));
        instrument_.bind(6, orNull(line[6]));
        run(instrument_);
        break;
    case TraceKind::Parameter:
        parameter_.bind(1, newGrp_);
        parameter_.bind(2, newInst_);
        parameter_.bind(3, std::optional(line[2]));
        parameter_.bind(4, std::optional(line[3]));
        parameter_.bind(5, orNull(line[4]));
        run(parameter_);
        break;
    case TraceKind::None:
        break;
    }
}

void ImportRows::run(platform::Statement& statement)
{
    statement.step();
    statement.reset();
}

} // namespace exchange
