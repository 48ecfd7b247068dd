#include "session/Caption.h"

#include "session/Session.h"
#include "session/Texts.h"

#include <QStringBuilder>

namespace session {

QString mainCaption(const Session& session, const Texts& texts)
{
    QString caption = session.AppTitle;
    if (!session.DbName.isEmpty())
        caption += u" - " % texts(156) % u' ' % session.DbName;
    if (!session.DbName.isEmpty() && !session.CurrentUser.IDUser.isEmpty())
        caption += u" - " % texts(59) % u' ' % session.CurrentUser.Name;
    return caption;
}

} // namespace session
