#pragma once

#include "session/Forward.h"
#include "structure/Forward.h"

#include <QString>

namespace program {

// What a button of the toolbar acts on: the list's selected item or, with none selected, the tree's selected
// node, by the command's twin and the rules of the tree. A button that would do nothing isn't enabled.
class ToolbarAim
{
public:
    ToolbarAim(const session::Session& session, structure::Structure& structure,
               const session::CommandStates& states)
        : session_(session), structure_(structure), states_(states)
    {
    }

    // The command that the button runs now. With nothing selected at all it is about the root, which stands
    // in the list then.
    QString take(const QString& button);
    bool enabled(const QString& button) const;

private:
    const session::Session& session_;
    structure::Structure& structure_;
    const session::CommandStates& states_;
};

} // namespace program
