#pragma once

#include "exchange/ReportRows.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/Forward.h"

namespace exchange {

// The plant on paper: each group from a page of its own, its instruments with their values.
class PlantPrint
{
public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        const platform::Clock& clock;
        structure::Structure& structure;
        session::Printing& printing;
    };

    explicit PlantPrint(const Surroundings& surroundings) : with_(surroundings) {}

    // Prints what is selected in the list; with nothing selected there, the tree's selected node.
    void Print_Item();

private:
    bool hasRows(const Selection& selection) const;
    void write(const Selection& selection, platform::Printer& printer) const;
    QStringList head(const ReportRow& row) const;
    QString instrumentLine(const ReportRow& row) const;
    QString foot(int page) const;

    Surroundings with_;
};

} // namespace exchange
