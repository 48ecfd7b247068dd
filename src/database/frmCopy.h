#pragma once

#include "database/widgets/ProgressWindow.h"
#include "session/Forward.h"

namespace database {

// How far the copy of a large database is.
class frmCopy : public ProgressWindow
{
    Q_OBJECT

public:
    frmCopy(const session::Session& session, const session::Texts& texts);
};

} // namespace database
