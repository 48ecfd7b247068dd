#include "structure/PlantEditor.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Words.h"
#include "session/Helpers.h"
#include "session/Lookup.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Holdings.h"
#include "structure/Image.h"
#include "structure/Structure.h"

#include <QStringBuilder>
#include <algorithm>

namespace structure {

using platform::guarded;
using session::Compose_SqlText;

namespace {

// The address that an instrument gets from its type: "00" unless the type's own reads as a hexadecimal number
// above 0.
QString addressFrom(const QString& mBaseAddr)
{
    static const QString kDigits = QStringLiteral("0123456789ABCDEFabcdef");
    const auto isDigit = [](QChar character) { return kDigits.contains(character); };
    const auto isZero = [](QChar character) { return character == u'0'; };
    const bool hexadecimal = std::all_of(mBaseAddr.begin(), mBaseAddr.end(), isDigit);
    const bool zero = std::all_of(mBaseAddr.begin(), mBaseAddr.end(), isZero);
    return hexadecimal && !zero ? mBaseAddr : QStringLiteral("00");
}

} // namespace

PlantEditor::PlantEditor(const Surroundings& surroundings)
    : with_(surroundings), records_(with_.session, with_.op, with_.structure)
{
}

// Creating
// ----------------------------------------------------------------------------------------------------------

void PlantEditor::New_Item()
{
    guarded("Module/New_Item", [&] {
        if (!mayModify())
            return;
        const QString node = with_.structure.selectedNode();
        if (node.isEmpty())
            platform::failInWords(platform::errors::kObjectNotSet, "element.none");
        const int level = Extract_Level(node);
        if (level == kRoot)
            newGroup();
        else if (level == kGroup)
            newInstrument(Extract_Key(node).IDGrp);
        if (const QString selected = with_.structure.selectedNode(); !selected.isEmpty())
            with_.structure.Load_Items_ListBus(selected);
    });
}

void PlantEditor::newGroup()
{
    if (with_.op.messageBox(with_.texts(584), platform::Buttons::YesNo, platform::Icon::Question,
                            with_.session.AppTitle) != platform::answers::kYes)
        return;
    const int number = records_.IDMax_Grp();
    if (number == 0)
        return;
    const QString IDGrp = QString::number(number);
    const QString Name = u"GRP" % IDGrp;
    if (!records_.Add_Record_Db(kGroup, IDGrp, {}, {}, Name, {}, {}))
        return;
    with_.structure.Add_Node_TreeBus(kGroup, IDGrp, {}, {}, Name);
    with_.structure.Add_Item_ListBus(kGroup, IDGrp, {}, {}, Name, {}, {}, int(Image::Group));
    with_.editItem(groupKey(IDGrp));
}

void PlantEditor::newInstrument(const QString& IDGrp)
{
    const QString IDItem = chooseType();
    if (IDItem.isEmpty())
        return;
    const int number = records_.IDMax_Inst(IDGrp.toInt());
    if (number == 0)
        return;
    const QString IDInst = QString::number(number);
    const QString Address = addressFrom(records_.Search_Instrument(IDItem).mBaseAddr);
    const QString Name = u"INST" % IDGrp % IDInst;
    const QString& Description = IDItem;
    if (!records_.Add_Record_Db(kInstrument, IDGrp, IDInst, IDItem, Name, Description, Address))
        return;
    with_.structure.Add_Node_TreeBus(kInstrument, IDGrp, IDInst, {}, Name);
    // The company holds the instrument: whatever its catalogue denies, tree and list show it.
    guarded("Module/New_Item", [&] { addParamGroupNodes(IDGrp, IDInst, IDItem); });
    with_.structure.Add_Item_ListBus(kInstrument, IDGrp, IDInst, {}, Name, Description, Address,
                                     int(Image::Instrument));
    with_.editItem(instrumentKey(IDGrp, IDInst));
}

QString PlantEditor::chooseType()
{
    session::ZoomSettings zoom;
    zoom.Caption = QStringLiteral("Items");
    zoom.Connection = with_.session.ConnectionString;
    zoom.Select = QStringLiteral(
                      R"(SELECT tbInstrument.mTag AS %1, tbInstrumentLanguage.mDesc AS %2
                         FROM tbInstrument
                              INNER JOIN tbInstrumentLanguage
                              ON tbInstrument.mTag = tbInstrumentLanguage.mID)")
                      .arg(with_.texts(session::rows::kId), with_.texts(session::rows::kDescription));
    zoom.Where = QStringLiteral("(mTag <> 'ALIEN') AND (mKeyLang = %1)")
                     .arg(Compose_SqlText(with_.session.Language.Code));
    zoom.OrderBy = QStringLiteral("mTag");
    zoom.KeyField = QStringLiteral("mTag");
    with_.lookup.ZoomSet = zoom;
    return with_.lookup.ShowZoom(QStringLiteral("*"));
}

// Every parameter group of the type has its node, also one whose parameters lack a description.
void PlantEditor::addParamGroupNodes(const QString& IDGrp, const QString& IDInst, const QString& IDItem)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParamGroup.mID, tbParamGroupLanguage.mDesc
           FROM (tbInstrument
                 INNER JOIN tbParamGroup ON tbInstrument.mID = tbParamGroup.mKeyInst)
                 INNER JOIN tbParamGroupLanguage ON tbParamGroup.mID = tbParamGroupLanguage.mID
           WHERE ((tbInstrument.mTag = %1) AND (tbParamGroupLanguage.mKeyLang = %2))
           ORDER BY tbParamGroup.mID;)");
    platform::Recordset groups;
    groups.Open(kStatement.arg(Compose_SqlText(IDItem), Compose_SqlText(with_.session.Language.Code)),
                with_.session.cnDatabase);
    for (; !groups.Eof(); groups.MoveNext())
        with_.structure.Add_Node_TreeBus(kParamGroup, IDGrp, IDInst, groups.text("mID"),
                                         groups.text("mDesc"));
}

// Deleting
// ----------------------------------------------------------------------------------------------------------

void PlantEditor::Delete_Item()
{
    guarded("Module/Delete_Item", [&] {
        const QString key = with_.structure.selectedItem();
        if (!mayModify() || key.isEmpty() || !deletionConfirmed(key) || key == kRootKey)
            return;
        const int row = with_.structure.list().rowOf(key);
        if (Erase_Item(key))
            selectItemAt(row);
        if (const QString selected = with_.structure.selectedItem(); !selected.isEmpty())
            with_.structure.Select_Node_TreeBus(selected);
        emit with_.structure.listFocusWanted();
    });
}

void PlantEditor::Delete_Node()
{
    guarded("frmTreeBus/Delete_Node", [&] {
        const QString key = with_.structure.selectedNode();
        if (!mayModify() || key.isEmpty() || !deletionConfirmed(key) || key == kRootKey)
            return;
        Erase_Item(key);
        with_.structure.Load_Items_ListBus(with_.structure.selectedNode());
    });
}

bool PlantEditor::mayModify() const
{
    return session::rightOf(with_.session.CurrentUser.Modify);
}

// Told in the question: whoever presses Delete by the keyboard may not look at what is selected.
bool PlantEditor::deletionConfirmed(const QString& key)
{
    const ListItem* shown = with_.structure.list().item(key);
    const QString name = shown ? shown->text : with_.structure.tree().captionOf(key);
    return with_.op.ask({with_.texts(506), toldOf(with_.session, with_.texts, key, name),
                         platform::Icon::Exclamation, with_.session.AppTitle, true}) ==
           platform::answers::kYes;
}

bool PlantEditor::Erase_Item(const QString& key)
{
    return guarded("Module/Erase_Item", [&] {
        if (!records_.Remove_Record_Db(key))
            return false;
        const platform::BusyPointer busy(with_.op);
        with_.structure.Remove_Node_TreeBus(key);
        // The list shows the children of one node; what goes may stand elsewhere.
        if (with_.structure.list().item(key))
            with_.structure.Remove_Item_ListBus(key);
        return true;
    });
}

// The item that moved into the place of a deleted one is selected, so that the keys go on from there.
void PlantEditor::selectItemAt(int row)
{
    const ListModel& list = with_.structure.list();
    with_.structure.selectItem(list.keyAt(std::min(row, list.rowCount() - 1)));
}

} // namespace structure
