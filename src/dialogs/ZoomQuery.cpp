#include "dialogs/ZoomQuery.h"

#include "session/Helpers.h"

#include <QStringBuilder>

namespace dialogs {

namespace {

QString patternOf(const QString& Value)
{
    const QString typed = Value.chopped(1);
    const bool anywhere = typed.startsWith(u'*');
    return anywhere ? QString(u'%' % typed.mid(1) % u'%') : QString(typed % u'%');
}

} // namespace

QString zoomQuery(const session::ZoomSettings& zoom)
{
    const QString field = zoom.Value.endsWith(u'@') ? zoom.NameField : zoom.KeyField;
    const QString condition =
        u'(' % field.trimmed() % u" LIKE " % session::Compose_SqlText(patternOf(zoom.Value)) % u')';
    QString query = zoom.Select;
    if (zoom.Where.isEmpty())
        query += u" WHERE (" % condition % u')';
    else
        query += u" WHERE (" % zoom.Where % u" AND " % condition % u')';
    if (!zoom.GroupBy.isEmpty())
        query += u" GROUP BY " % zoom.GroupBy;
    if (!zoom.OrderBy.isEmpty())
        query += u" ORDER BY " % zoom.OrderBy;
    return query;
}

} // namespace dialogs
