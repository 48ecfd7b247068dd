#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

namespace dialogs {

// The notice that instruments have called in and left alarms.
class frmMessage : public QDialog
{
    Q_OBJECT

public:
    frmMessage(const session::Session& session, const session::Texts& texts, platform::Operator& op);
};

} // namespace dialogs
