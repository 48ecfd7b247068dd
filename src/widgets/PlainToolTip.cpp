#include "widgets/PlainToolTip.h"

#include <QTextDocument>

namespace widgets {

QString plainToolTip(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<span style='white-space: pre'>%1</span>").arg(text.toHtmlEscaped());
}

} // namespace widgets
