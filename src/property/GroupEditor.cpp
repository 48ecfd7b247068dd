#include "property/GroupEditor.h"

#include "platform/Recordset.h"
#include "session/Helpers.h"

namespace property {

namespace {

constexpr int kPhoneLimit = 30;

} // namespace

QString GroupEditor::statement() const
{
    return QStringLiteral("SELECT * FROM tbGroupsUser WHERE (IDGrp = %1);").arg(with_.element.ids.IDGrp);
}

std::optional<platform::RuntimeError> GroupEditor::fill(platform::Recordset& row)
{
    with_.controls.lblIDPar.text = QStringLiteral("GRP_") + with_.element.ids.IDGrp;
    fillNames(row);
    with_.controls.txtValStr3.text = row.text("Phone");
    with_.controls.txtValStr3.limit = kPhoneLimit;
    return {};
}

void GroupEditor::arrange(bool editable)
{
    show({&Controls::txtValStr1, &Controls::txtValStr2, &Controls::txtValStr3});
    caption(&Controls::lblVal1, 155);
    caption(&Controls::lblVal2, 147);
    caption(&Controls::lblVal3, 6);
    allow({&Controls::txtValStr1, &Controls::txtValStr2, &Controls::txtValStr3}, editable);
}

bool GroupEditor::update()
{
    static const QString kStatement =
        QStringLiteral("UPDATE tbGroupsUser SET Name = %1, Description = %2, Phone = %3 WHERE (IDGrp = %4);");
    const Controls& controls = with_.controls;
    write(kStatement.arg(session::Compose_SqlText(controls.txtValStr1.text),
                         session::composeTextOrNull(controls.txtValStr2.text),
                         session::composeTextOrNull(controls.txtValStr3.text), with_.element.ids.IDGrp));
    showSaved(controls.txtValStr3.text, structure::Image::Group);
    return true;
}

} // namespace property
