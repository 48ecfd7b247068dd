#include "session/StoredSettings.h"

#include "platform/RuntimeError.h"

namespace session {

LanguageSettings LanguageSettings::fromIdentifier(const QString& identifier)
{
    const qsizetype second = identifier.indexOf(QLatin1Char('_'), 3);
    if (second < 0)
        platform::fail(platform::errors::kInvalidCall,
                       QStringLiteral("The language identifier '%1' is not valid.").arg(identifier));
    LanguageSettings language;
    language.ID = identifier;
    language.Code = identifier.left(2);
    language.Name = identifier.mid(3, second - 3);
    language.Base = identifier.mid(second + 1);
    return language;
}

} // namespace session
