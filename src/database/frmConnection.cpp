#include "database/frmConnection.h"

#include "session/Session.h"
#include "widgets/FormLanguage.h"

#include <QLabel>

namespace database {

frmConnection::frmConnection(const session::Session& session, const session::Texts& texts,
                             platform::Operator& op)
    : ProgressWindow(session.AppTitle, widgets::tagged(new QLabel("-"), "lblConnection", "143"), "prgLoad")
{
    widgets::Set_Language(*this, session, texts, op);
}

} // namespace database
