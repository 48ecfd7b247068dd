#include "structure/PlantClipboard.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/PlantEditor.h"
#include "structure/Structure.h"

namespace structure {

using platform::Buttons;
using platform::guarded;
using platform::Icon;
using session::ClipCopy;
using session::ClipCut;
using session::ClipNothing;

namespace {

// What can be cut, copied and pasted, as the commands offer it.
bool isMovable(const QString& key)
{
    if (key.isEmpty())
        return false;
    const int level = Extract_Level(key);
    return level == kGroup || level == kInstrument;
}

} // namespace

PlantClipboard::PlantClipboard(const Surroundings& surroundings)
    : with_(surroundings), duplicator_(with_.session, with_.op, with_.structure, with_.editor.records(),
                                       [this](const char* words) { tellStep(words); })
{
    connect(&with_.structure.tree(), &QAbstractItemModel::rowsRemoved, this, [this] {
        const QString& noted = with_.session.ClipKey;
        sourceGone_ |= !noted.isEmpty() && !with_.structure.tree().contains(noted);
    });
}

void PlantClipboard::Cut_Item()
{
    guarded("Module/Cut_Item", [&] { note(ClipCut, with_.structure.selectedItem()); });
}

void PlantClipboard::Copy_Item()
{
    guarded("Module/Copy_Item", [&] { note(ClipCopy, with_.structure.selectedItem()); });
}

void PlantClipboard::Cut_Node()
{
    guarded("frmTreeBus/Cut_Node", [&] { note(ClipCut, with_.structure.selectedNode()); });
}

void PlantClipboard::Copy_Node()
{
    guarded("frmTreeBus/Copy_Node", [&] { note(ClipCopy, with_.structure.selectedNode()); });
}

void PlantClipboard::note(int operation, const QString& key)
{
    if (!isMovable(key) || !session::rightOf(with_.session.CurrentUser.Modify))
        return;
    with_.session.ClipOperation = operation;
    with_.session.ClipKey = key;
    sourceGone_ = false;
    with_.structure.showCut(operation == ClipCut ? key : QString());
}

void PlantClipboard::Paste_Item()
{
    guarded("Module/Paste_Item", [&] {
        const session::Session& session = with_.session;
        const QString node = with_.structure.selectedNode();
        if (session.ClipKey.isEmpty() || session.ClipOperation == ClipNothing || node.isEmpty() ||
            !session::rightOf(session.CurrentUser.Modify))
            return;
        if (sourceGone_) {
            tellSourceGone();
            return;
        }
        if (Extract_Level(node) != Extract_Level(session.ClipKey) - 1) {
            with_.op.messageBox(with_.texts(510), Buttons::Ok, Icon::Exclamation, session.AppTitle);
            return;
        }
        const QString company = session.dbFile();
        const QString key = session.ClipKey;
        if (!confirmed() || session.dbFile() != company || session.ClipKey != key)
            return;
        paste(Extract_Key(key), Extract_Key(node));
    });
}

bool PlantClipboard::confirmed()
{
    const int question = with_.session.ClipOperation == ClipCut ? 507 : 508;
    return with_.op.messageBox(with_.texts(question), Buttons::YesNo, Icon::Question,
                               with_.session.AppTitle) == platform::answers::kYes;
}

void PlantClipboard::paste(const KeyParts& source, const KeyParts& target)
{
    session::Session& session = with_.session;
    const auto kind =
        Extract_Level(session.ClipKey) == kGroup ? Duplicator::kOfGroup : Duplicator::kOfInstrument;
    const bool copied = Duplicate_Item(kind, source.IDGrp, source.IDInst, target.IDGrp);
    const bool cut = session.ClipOperation == ClipCut;
    if (copied && cut && kind == Duplicator::kOfGroup)
        tellStep("job.original");
    const bool both = copied && cut && !with_.editor.Erase_Item(session.ClipKey);
    forget();
    with_.structure.Load_Items_ListBus(with_.structure.selectedNode());
    if (both)
        with_.op.messageBox(with_.texts.own(QStringLiteral("move.both")), Buttons::Ok, Icon::Exclamation,
                            session.AppTitle);
    else if (copied)
        with_.op.messageBox(with_.texts(session::rows::kDone), Buttons::Ok, Icon::Information,
                            session.AppTitle);
}

void PlantClipboard::tellStep(const char* words)
{
    emit stepTold(
        with_.texts.own(QLatin1String(words)).arg(with_.structure.tree().captionOf(with_.session.ClipKey)));
}

void PlantClipboard::tellSourceGone()
{
    forget();
    with_.op.messageBox(with_.texts.own(QStringLiteral("paste.gone")), Buttons::Ok, Icon::Exclamation,
                        with_.session.AppTitle);
}

void PlantClipboard::forget()
{
    with_.session.ClipOperation = ClipNothing;
    with_.session.ClipKey.clear();
    with_.structure.showCut({});
}

} // namespace structure
