#include "dialogs/widgets/ManualPage.h"

#include <QFile>
#include <QPixmap>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace dialogs {

namespace {

constexpr int kMargin = 14;
constexpr int kWidestPicture = 760;

} // namespace

ManualPage::ManualPage(QWidget* parent) : QTextBrowser(parent)
{
    setOpenExternalLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that the pictures know their room
    document()->setDocumentMargin(kMargin);
    setTextInteractionFlags(Qt::TextBrowserInteraction);
    // The way back and forth doesn't pass doSetSource.
    connect(this, &QTextBrowser::historyChanged, this, &ManualPage::drawTables);
    connect(this, &QTextBrowser::historyChanged, this, &ManualPage::turned);
    fitting_.setSingleShot(true);
    connect(&fitting_, &QTimer::timeout, this, &ManualPage::fitPictures);
}

void ManualPage::goTo(const QString& heading, const QString& words)
{
    moveCursor(QTextCursor::Start);
    for (QTextBlock block = document()->begin(); block.isValid() && !heading.isEmpty();
         block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || block.text().simplified() != heading)
            continue;
        QTextCursor cursor(block);
        setTextCursor(cursor);
        find(words.section(u' ', 0, 0, QString::SectionSkipEmpty));
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top() - kMargin);
        return;
    }
}

QVariant ManualPage::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    QPixmap picture(u':' + source().resolved(name).path());
    const int width = std::min({picture.width(), kWidestPicture, room()});
    if (picture.isNull() || width <= 0)
        return picture;
    const qreal sharpness = devicePixelRatioF();
    picture = picture.scaledToWidth(int(width * sharpness), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(sharpness);
    return picture;
}

void ManualPage::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    QTextBrowser::doSetSource(name, type);
    drawTables();
    emit turned();
}

// One thin line between cells that have room.
void ManualPage::drawTables()
{
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(4);
        format.setCellSpacing(0);
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().brush(QPalette::Mid));
        table->setFormat(format);
    }
}

void ManualPage::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    fitting_.start(); // a page that is just being read in must not be read again in between
}

// The pictures are fetched again where the page has become narrower or wider than they are.
void ManualPage::fitPictures()
{
    const int now = std::min(room(), kWidestPicture);
    if (std::exchange(laidOutFor_, now) == now || source().isEmpty())
        return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

int ManualPage::room() const
{
    return viewport()->width() - 2 * kMargin;
}

} // namespace dialogs
