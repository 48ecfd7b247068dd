#pragma once

#include "property/Controls.h"
#include "session/Forward.h"

namespace property {

// The look-up recordsets of the session, as the dialog searches them: always from the first row, whoever left
// them where. Each procedure reports its failure under its own name.
class CatalogueSearch
{
public:
    CatalogueSearch(session::Session& session, Controls& controls) : session_(session), controls_(controls) {}

    // The catalogue's row of a parameter, which rsParam then stands on; its details go into the frame. False
    // when there is none.
    bool Search_Param(const QString& IDPar, QString& Unit, QString& DP, bool& Enable, QString& KeyType,
                      QString& IDCopy);
    // Fills the drop-down list; the index of the value, -1 for none.
    int Load_ParamEnum(const QString& IDPar, qint16 Value);
    // Shows a bank's tag instead of its number.
    bool Search_InstMem(const QString& MemBank);

private:
    session::Session& session_;
    Controls& controls_;
};

} // namespace property
