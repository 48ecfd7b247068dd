#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>
#include <QStringList>

namespace dialogs {

// The notice that instruments have called in and left alarms.
class frmMessage : public QDialog
{
    Q_OBJECT

public:
    // `calls` are the plants that called, each with its time.
    frmMessage(const session::Session& session, const session::Texts& texts, platform::Operator& op,
               const QStringList& calls = {});
};

} // namespace dialogs
