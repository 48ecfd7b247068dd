#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/Forward.h"

#include <QString>

namespace exchange {

class TraceReader;

// Reads a data trace into the open company as a new group.
class Import
{
public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        structure::Structure& structure;
    };

    explicit Import(const Surroundings& surroundings) : with_(surroundings) {}

    // Asks for a file, and whether to go on where something in it would not import well. All of it comes in
    // or nothing does.
    void Import_Item();

private:
    bool isAgreed(TraceReader& file) const;
    void read(TraceReader& file, int newGrp) const;
    void showGroup(int IDGrp) const;

    Surroundings with_;
};

} // namespace exchange
