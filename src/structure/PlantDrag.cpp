#include "structure/PlantDrag.h"

#include "session/Session.h"
#include "session/Texts.h"
#include "structure/PlantClipboard.h"
#include "structure/Structure.h"

namespace structure {

PlantDrag::PlantDrag(session::Session& session, const session::Texts& texts, Structure& structure,
                     PlantClipboard& clipboard)
    : session_(session), texts_(texts), structure_(structure), clipboard_(clipboard)
{
    // The plant goes away under the pointer: a company closed, or opened anew.
    connect(&structure.tree(), &QAbstractItemModel::modelReset, this, [this] {
        TreeDragNode_.clear();
        ListDragItem_.clear();
        end();
    });
}

void PlantDrag::press(Source source, const QString& key)
{
    source_ = source;
    TreeDragNode_ = source == FromTree ? key : QString();
    ListDragItem_ = source == FromList ? key : QString();
}

bool PlantDrag::begin(bool control)
{
    const QString key = source_ == FromTree ? TreeDragNode_ : ListDragItem_;
    if (Dragging_ || key.isEmpty() || !session::rightOf(session_.CurrentUser.Modify))
        return false;
    const int level = Extract_Level(key);
    if (level != kGroup && level != kInstrument)
        return false;
    operationBefore_ = session_.ClipOperation;
    keyBefore_ = session_.ClipKey;
    session_.ClipOperation = control ? session::ClipCopy : session::ClipCut;
    dragged_ = key;
    Dragging_ = true;
    emit changed();
    return true;
}

void PlantDrag::over(const QString& node)
{
    if (!Dragging_ || node == target_)
        return;
    target_ = node;
    emit changed();
}

// What it calls reports its failures itself.
void PlantDrag::dropOnTree()
{
    if (!Dragging_)
        return;
    const QString target = target_, key = dragged_;
    if (target == key) {
        cancel();
        return;
    }
    if (target.isEmpty()) {
        session_.ClipOperation = session::ClipNothing;
        session_.ClipKey.clear();
        structure_.showCut({});
        end();
        return;
    }
    clipboard_.note(session_.ClipOperation, key);
    end();
    structure_.clickNode(target);
    // A node that has gone meanwhile takes nothing, and no other takes it instead.
    if (structure_.selectedNode() == target)
        clipboard_.Paste_Item();
}

void PlantDrag::cancel()
{
    if (!Dragging_)
        return;
    session_.ClipOperation = operationBefore_;
    session_.ClipKey = keyBefore_;
    end();
}

void PlantDrag::end()
{
    TreeDragNode_.clear();
    ListDragItem_.clear();
    dragged_.clear();
    target_.clear();
    if (std::exchange(Dragging_, false))
        emit changed();
}

int PlantDrag::image() const
{
    return session_.ClipOperation == session::ClipCopy ? kCopyImage : kMoveImage;
}

bool PlantDrag::fits() const
{
    return !target_.isEmpty() && target_ != dragged_ && Extract_Level(target_) == Extract_Level(dragged_) - 1;
}

QString PlantDrag::hint() const
{
    if (!fits())
        return texts_.own(QStringLiteral("drag.nowhere"));
    const QString key = image() == kCopyImage ? QStringLiteral("drag.copy") : QStringLiteral("drag.move");
    return texts_.own(key).arg(structure_.tree().captionOf(target_));
}

} // namespace structure
