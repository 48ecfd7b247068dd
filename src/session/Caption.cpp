#include "session/Caption.h"

#include "session/Session.h"
#include "session/Texts.h"

namespace session {

QString mainCaption(const Session& session, const Texts& texts)
{
    if (session.DbName.isEmpty())
        return session.AppTitle;
    return session.AppTitle + QStringLiteral(" - ") + texts(156) + QLatin1Char(' ') + session.DbName;
}

} // namespace session
