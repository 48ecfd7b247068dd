#include "platform/widgets/Icons.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

// A resource inside a static library is linked only when somebody asks for it, outside of any namespace.
static void bringInIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace platform {

QIcon icon(const QString& name)
{
    bringInIcons();
    static QHash<QString, QIcon> known;
    const auto found = known.constFind(name);
    if (found != known.constEnd())
        return *found;
    QIcon made(QStringLiteral(":/icons/%1.svg").arg(name));
    const QString small = QStringLiteral(":/icons/%1-16.svg").arg(name);
    if (QFile::exists(small))
        made.addFile(small, {16, 16});
    return known[name] = made;
}

QIcon imageOf(int number)
{
    static const QHash<int, QString> kNames{
        {1, "root"},         {2, "group"},         {3, "instrument"},  {4, "param-group"},
        {5, "param-ok"},     {6, "param-changed"}, {7, "param-added"}, {25, "port-open"},
        {26, "port-closed"}, {27, "port-busy"},    {28, "alarm"},
    };
    const QString name = kNames.value(number);
    return name.isEmpty() ? QIcon() : icon(name);
}

QPixmap picture(const QString& name, const QSize& points, double pixelRatio)
{
    bringInIcons();
    QPixmap drawn(points * pixelRatio);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    QSvgRenderer(QStringLiteral(":/icons/%1.svg").arg(name)).render(&painter, QRectF(drawn.rect()));
    painter.end();
    drawn.setDevicePixelRatio(pixelRatio);
    return drawn;
}

} // namespace platform
