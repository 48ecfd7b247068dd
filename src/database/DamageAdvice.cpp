#include "database/DamageAdvice.h"

#include "database/CompanyCopies.h"
#include "platform/Guard.h"
#include "session/Session.h"
#include "session/Texts.h"

namespace database {

void installDamageAdvice(const session::Session& session, const session::Texts& texts)
{
    const platform::FailureHook former = platform::setFailureHook({});
    platform::setFailureHook([&session, &texts, former](platform::Failure failure) {
        // A file that has no copy may never have been a company.
        if (failure.number == platform::errors::kDamaged && !session.DbName.isEmpty() &&
            !newestCopy(session.dbFile(), session).isEmpty())
            failure.description += "\r\n" + adviceFor(session.dbFile(), session, texts);
        if (former)
            former(failure);
    });
}

} // namespace database
