#pragma once

#include "exchange/ReportLines.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/Forward.h"

namespace exchange {

// The plant as files: three forms of a report, and the data trace that another company can read.
class Export
{
public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        const platform::Clock& clock;
        structure::Structure& structure;
    };

    explicit Export(const Surroundings& surroundings) : with_(surroundings) {}

    // Asks for a file and writes what the tree's selected node holds: the whole company, a group, an
    // instrument. The file stands whole or not at all.
    void Export_Item();

private:
    bool writeChosen(const Selection& selection, const QString& file, int filter) const;
    // False, and no file, when there was nothing to write.
    bool writeReport(const Selection& selection, const QString& file, ReportForm form) const;
    bool writeDataTrace(const QString& IDGrp, const QString& file) const;
    void tell(int text, bool done) const;

    Surroundings with_;
};

} // namespace exchange
