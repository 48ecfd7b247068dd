#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>
#include <QStringList>
#include <functional>

namespace dialogs {

// The notice that instruments have called in and left alarms.
class frmMessage : public QDialog
{
    Q_OBJECT

public:
    // `alarms` are what came in, a line each; `showEvents` opens the event viewer, for who may see it.
    frmMessage(const session::Session& session, const session::Texts& texts, platform::Operator& op,
               const QStringList& alarms = {}, std::function<void()> showEvents = {});
};

} // namespace dialogs
