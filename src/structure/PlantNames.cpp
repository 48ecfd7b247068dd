#include "structure/PlantNames.h"

namespace structure {

const PlantNames::Names& PlantNames::above(const QString& IDGrp, const QString& IDInst)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbGroupsUser.Name, tbInstrumentsUser.Name
           FROM tbInstrumentsUser
                INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp
           WHERE ((tbInstrumentsUser.IDGrp = %1) AND (tbInstrumentsUser.IDInst = %2));)");
    if (IDGrp != IDGrp_ || IDInst != IDInst_) {
        IDGrp_ = IDGrp;
        IDInst_ = IDInst;
        names_ = {};
        company_.eachRow(kStatement.arg(IDGrp, IDInst), [this](const platform::Statement& row) {
            names_ = {textOf(row, 0), textOf(row, 1)};
        });
    }
    return names_;
}

} // namespace structure
