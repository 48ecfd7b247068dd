#include "property/TotalsEditor.h"

#include "platform/Recordset.h"
#include "session/Helpers.h"
#include "session/Texts.h"
#include "values/NumberMask.h"
#include "values/ParamState.h"

#include <QStringBuilder>

namespace property {

void TotalsEditor::arrange(bool)
{
    show({&Controls::lblVal1, &Controls::lblVal2});
}

QString TotalsEditor::total(int text, int count) const
{
    return with_.texts(text) % u' ' % values::formatMask(QString::number(count), QStringLiteral("#,##0"));
}

QString RootTotals::statement() const
{
    return QStringLiteral(
        "SELECT IDGrp, Count(IDInst) AS CountIDInst FROM tbInstrumentsUser GROUP BY IDGrp;");
}

// A group without instruments has no row here and isn't counted.
std::optional<platform::RuntimeError> RootTotals::fill(platform::Recordset& rows)
{
    with_.controls.lblIDPar.text = structure::kRootKey;
    int instruments = 0;
    for (; !rows.Eof(); rows.MoveNext())
        instruments += rows.number("CountIDInst");
    with_.controls.lblVal1.text = total(157, rows.RecordCount());
    with_.controls.lblVal2.text = total(158, instruments);
    return {};
}

QString ParamGroupTotals::statement() const
{
    const structure::KeyParts& ids = with_.element.ids;
    return QStringLiteral(
               "SELECT * FROM tbParametersUser WHERE ((IDGrp = %1) AND (IDInst = %2) AND (IDParGrp = %3));")
        .arg(ids.IDGrp, ids.IDInst, session::Compose_SqlText(ids.IDParGrp));
}

std::optional<platform::RuntimeError> ParamGroupTotals::fill(platform::Recordset& rows)
{
    with_.controls.lblIDPar.text = with_.element.ids.IDParGrp;
    int modified = 0;
    for (; !rows.Eof(); rows.MoveNext())
        modified += rows.number("State") == int(values::ParamState::Changed);
    with_.controls.lblVal1.text = total(159, rows.RecordCount());
    with_.controls.lblVal2.text = total(160, modified);
    return {};
}

} // namespace property
