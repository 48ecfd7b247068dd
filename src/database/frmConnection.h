#pragma once

#include "database/widgets/ProgressWindow.h"
#include "platform/Forward.h"
#include "session/Forward.h"

namespace database {

// How far a connect has come.
class frmConnection : public ProgressWindow
{
    Q_OBJECT

public:
    frmConnection(const session::Session& session, const session::Texts& texts, platform::Operator& op);
};

} // namespace database
