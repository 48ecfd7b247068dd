#include "program/ToolbarAim.h"

#include "session/CommandRules.h"
#include "session/CommandStates.h"
#include "session/Session.h"
#include "structure/Structure.h"

#include <QSet>
#include <QStringBuilder>

namespace program {

using namespace session;

namespace {

// The buttons whose command acts on one element.
bool actsOnElement(const QString& button)
{
    static const QSet<QString> kButtons{"Delete",   "Cut",       "Copy",    "Resync", "Reset",
                                        "Property", "ReadWrite", "History", "Compare"};
    return kButtons.contains(button);
}

} // namespace

QString ToolbarAim::take(const QString& button)
{
    if (actsOnElement(button) && structure_.selectedItem().isEmpty() && structure_.selectedNode().isEmpty())
        structure_.selectItem(structure::kRootKey);
    return actsOnElement(button) && structure_.selectedItem().isEmpty() ? QString(button % u"Node") : button;
}

bool ToolbarAim::enabled(const QString& button) const
{
    if (!states_.buttonEnabled(button))
        return false;
    if (!actsOnElement(button) || !structure_.selectedItem().isEmpty())
        return true;
    if (structure_.selectedNode().isEmpty())
        return structure_.list().item(structure::kRootKey) != nullptr;
    const EnabledStates tree = rules::treeMenus(structure_.levelOfTree(), Rights::of(session_.CurrentUser));
    const auto rule = tree.find(u"mnu" % button);
    return rule != tree.end() && rule->second;
}

} // namespace program
