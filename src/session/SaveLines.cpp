#include "session/SaveLines.h"

#include "platform/Operator.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QDir>
#include <QFileInfo>

namespace session {

bool saveLines(Session& session, const Texts& texts, platform::Operator& op, const QString& filter,
               const QList<QByteArray>& lines)
{
    try {
        const QString file = op.saveFile({texts(248), filter, {}, exportFolder(session)}).name;
        session.DirExport = QDir::toNativeSeparators(QFileInfo(file).path());
        const platform::BusyPointer busy(op);
        platform::TextWriter writer(file, platform::kUtf8WithMark);
        for (const QByteArray& line : lines)
            writer.WriteBytes(line);
        writer.commit();
        return true;
    } catch (const platform::RuntimeError& error) {
        if (error.number != platform::errors::kCancelled)
            throw;
        tellCancelled(session, texts, op);
        return false;
    }
}

} // namespace session
