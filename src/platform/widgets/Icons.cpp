#include "platform/widgets/Icons.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

// A resource inside a static library is linked only when somebody asks for it, outside of any namespace.
static void bringInIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace platform {

namespace {

bool darkGround = false;

// The drawing's bytes; on a dark ground its ink is light and its paper dark.
QByteArray drawingOf(const QString& file)
{
    static const std::pair<const char*, const char*> kDarkTwins[] = {
        {"#25364A", "#C9D6E2"}, {"#FBFDFE", "#2A3947"}, {"#F4FAFE", "#E8F1F8"}, {"#D6EAF7", "#1F4560"},
        {"#E6ECF2", "#33424F"}, {"#145E8C", "#8FCDF2"}, {"#B8C4D0", "#5C6E7E"}, {"#1E88C7", "#4BA8DE"},
        {"#FDE9C6", "#5A4520"}, {"#F9DADA", "#5A2A2C"}, {"#D5EFDE", "#24492F"}, {"#8E2323", "#F2A0A0"},
        {"#B8741A", "#F5C374"}, {"#7C8EA3", "#93A5B8"},
    };
    QFile drawing(file);
    if (!drawing.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = drawing.readAll();
    if (darkGround) {
        for (const auto& [light, dark] : kDarkTwins)
            bytes.replace(light, dark);
    }
    return bytes;
}

// An icon drawn from bytes, for those whose file can't be taken as it is.
class DrawnIcon : public QIconEngine
{
public:
    explicit DrawnIcon(const QString& name) : name_(name) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(place,
                            pixmap(place.size() * painter->device()->devicePixelRatioF(), mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QString small = QStringLiteral(":/icons/%1-16.svg").arg(name_);
        const bool asSmall = size.width() <= 16 && QFile::exists(small);
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        QSvgRenderer(drawingOf(asSmall ? small : QStringLiteral(":/icons/%1.svg").arg(name_)))
            .render(&painter, QRectF(drawn.rect()));
        painter.end();
        if (mode == QIcon::Normal)
            return drawn;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }
    QIconEngine* clone() const override { return new DrawnIcon(name_); }

private:
    QString name_;
};

} // namespace

void setDarkGround(bool dark)
{
    darkGround = dark;
}

QIcon icon(const QString& name)
{
    bringInIcons();
    static QHash<QString, QIcon> known, knownOnDark;
    QHash<QString, QIcon>& drawn = darkGround ? knownOnDark : known;
    const auto found = drawn.constFind(name);
    if (found != drawn.constEnd())
        return *found;
    if (darkGround)
        return drawn[name] = QIcon(new DrawnIcon(name));
    QIcon made(QStringLiteral(":/icons/%1.svg").arg(name));
    const QString small = QStringLiteral(":/icons/%1-16.svg").arg(name);
    if (QFile::exists(small))
        made.addFile(small, {16, 16});
    return drawn[name] = made;
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
    QSvgRenderer(drawingOf(QStringLiteral(":/icons/%1.svg").arg(name)))
        .render(&painter, QRectF(drawn.rect()));
    painter.end();
    drawn.setDevicePixelRatio(pixelRatio);
    return drawn;
}

} // namespace platform
