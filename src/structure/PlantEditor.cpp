#include "structure/PlantEditor.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Lookup.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "structure/WorkRecordset.h"

#include <QStringBuilder>
#include <algorithm>

namespace structure {

using platform::guarded;
using session::Compose_SqlText;

namespace {

constexpr int kGroupIcon = 2;
constexpr int kInstrumentIcon = 3;

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
            platform::fail(platform::errors::kObjectNotSet, QStringLiteral("No element is selected."));
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
    session::Session& session = with_.session;
    session.strMsg = with_.texts(584);
    session.Answer = with_.op.messageBox(session.strMsg, platform::Buttons::YesNo, platform::Icon::Question,
                                         session.AppTitle);
    if (session.Answer != platform::answers::kYes)
        return;
    const int number = records_.IDMax_Grp();
    if (number == 0)
        return;
    const QString IDGrp = QString::number(number);
    const QString Name = u"GRP" % IDGrp;
    if (!records_.Add_Record_Db(kGroup, IDGrp, {}, {}, Name, {}, {}))
        return;
    with_.structure.Add_Node_TreeBus(kGroup, IDGrp, {}, {}, Name);
    with_.structure.Add_Item_ListBus(kGroup, IDGrp, {}, {}, Name, {}, {}, kGroupIcon);
    editNewItem(u"1_" % IDGrp);
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
                                     kInstrumentIcon);
    editNewItem(u"2_" % IDGrp % u'_' % IDInst);
}

QString PlantEditor::chooseType()
{
    session::ZoomSettings zoom;
    zoom.Caption = QStringLiteral("Items");
    zoom.Connection = with_.session.ConnectionString;
    zoom.Select = u"SELECT tbInstrument.mTag AS " % with_.texts(101) % u", tbInstrumentLanguage.mDesc AS " %
                  with_.texts(103) %
                  u" FROM tbInstrument INNER JOIN tbInstrumentLanguage "
                  u"ON tbInstrument.mTag = tbInstrumentLanguage.mID";
    zoom.Where = u"(mTag <> 'ALIEN') AND (mKeyLang = " % Compose_SqlText(with_.session.Language.Code) % u')';
    zoom.OrderBy = QStringLiteral("mTag");
    zoom.KeyField = QStringLiteral("mTag");
    with_.lookup.ZoomSet = zoom;
    return with_.lookup.ShowZoom(QStringLiteral("*"));
}

// Every parameter group of the type has its node, also one whose parameters lack a description.
void PlantEditor::addParamGroupNodes(const QString& IDGrp, const QString& IDInst, const QString& IDItem)
{
    with_.session.strSQL =
        u"SELECT tbParamGroup.mID, tbParamGroupLanguage.mDesc FROM (tbInstrument INNER JOIN tbParamGroup "
        u"ON tbInstrument.mID = tbParamGroup.mKeyInst) INNER JOIN tbParamGroupLanguage "
        u"ON tbParamGroup.mID = tbParamGroupLanguage.mID WHERE ((tbInstrument.mTag = " %
        Compose_SqlText(IDItem) % u") AND (tbParamGroupLanguage.mKeyLang = " %
        Compose_SqlText(with_.session.Language.Code) % u")) ORDER BY tbParamGroup.mID;";
    for (WorkRecordset groups(with_.session); !groups->Eof(); groups->MoveNext())
        with_.structure.Add_Node_TreeBus(kParamGroup, IDGrp, IDInst, groups->text("mID"),
                                         groups->text("mDesc"));
}

void PlantEditor::editNewItem(const QString& key)
{
    with_.session.ClipKey = key;
    with_.op.showFormModal(QStringLiteral("frmProperty"));
}

// Deleting
// ----------------------------------------------------------------------------------------------------------

void PlantEditor::Delete_Item()
{
    guarded("Module/Delete_Item", [&] {
        const QString key = with_.structure.selectedItem();
        if (!mayModify() || key.isEmpty() || !deletionConfirmed() || key == kRootKey)
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
        if (!mayModify() || key.isEmpty() || !deletionConfirmed() || key == kRootKey)
            return;
        Erase_Item(key);
        with_.structure.Load_Items_ListBus(with_.structure.selectedNode());
    });
}

bool PlantEditor::mayModify() const
{
    return session::rightOf(with_.session.CurrentUser.Modify);
}

bool PlantEditor::deletionConfirmed()
{
    session::Session& session = with_.session;
    session.strMsg = with_.texts(506);
    session.Answer = with_.op.messageBox(session.strMsg, platform::Buttons::YesNo,
                                         platform::Icon::Exclamation, session.AppTitle);
    return session.Answer == platform::answers::kYes;
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
