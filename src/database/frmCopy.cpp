#include "database/frmCopy.h"

#include "session/Session.h"
#include "session/Texts.h"

#include <QLabel>

namespace database {

frmCopy::frmCopy(const session::Session& session, const session::Texts& texts)
    : ProgressWindow(session.AppTitle, new QLabel(texts.own("copy.running")), "prgCopy")
{
}

} // namespace database
