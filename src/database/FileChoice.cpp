#include "database/FileChoice.h"

#include "platform/Operator.h"
#include "platform/RuntimeError.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

#include <QDir>
#include <algorithm>

namespace database {

bool isModelName(const QString& name)
{
    return name.compare(kModelName, Qt::CaseInsensitive) == 0;
}

ChosenPath splitPath(const QString& file)
{
    const QString path = QDir::fromNativeSeparators(file);
    const qsizetype separator = path.lastIndexOf(u'/');
    return {path.left(std::max<qsizetype>(separator, 0)), path.mid(separator + 1)};
}

std::optional<ChosenPath> chooseFile(const session::Session& session, const session::Texts& texts,
                                     platform::Operator& op, const std::function<QString()>& ask)
{
    try {
        return splitPath(ask());
    } catch (const platform::RuntimeError& error) {
        if (error.number != platform::errors::kCancelled)
            throw;
        op.messageBox(error.description + QStringLiteral("\r\n") + texts(session::rows::kCancelled),
                      platform::Buttons::Ok, platform::Icon::Exclamation, session.AppTitle);
        return std::nullopt;
    }
}

} // namespace database
