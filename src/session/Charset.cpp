#include "session/Charset.h"

#include "platform/CodePage.h"
#include "session/Session.h"

namespace session {

int charsetOfLocale(int localeId)
{
    switch (localeId) {
    case 1025:
    case 2049:
    case 3073:
    case 4097:
    case 5121:
    case 6145:
    case 7169:
    case 8193:
    case 9217:
    case 10241:
    case 11265:
    case 12289:
    case 13313:
    case 14337:
    case 15361:
    case 16385:
        return 178;
    case 1028:
        return 136;
    case 1029:
    case 1038:
    case 1045:
    case 1051:
        return 238;
    case 1032:
        return 161;
    case 1037:
        return 177;
    case 1041:
        return 128;
    case 1042:
        return 129;
    case 1049:
    case 1058:
    case 1059:
    case 1060:
    case 1061:
    case 1062:
    case 1063:
    case 3098:
        return 204;
    case 1054:
        return 222;
    case 1055:
        return 162;
    case 2052:
    case 3076:
    case 4100:
        return 134;
    default:
        return 0;
    }
}

void applyMachineLocale(Session& session, int localeId)
{
    session.Charset = charsetOfLocale(localeId);
    session.CodePage = platform::codePageOf(session.Charset);
}

} // namespace session
