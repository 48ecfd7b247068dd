#include "catalogue/tool/TextOutput.h"

#include <QSaveFile>
#include <stdexcept>

namespace catalogue {

void writeText(const QString& target, const QString& text)
{
    QSaveFile file(target);
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        throw std::runtime_error((target + ": " + file.errorString()).toStdString());
}

} // namespace catalogue
