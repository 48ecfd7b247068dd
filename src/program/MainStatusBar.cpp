#include "program/MainStatusBar.h"

#include "platform/widgets/Icons.h"
#include "platform/widgets/KeyLocks.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QDateTime>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace program {

using namespace session;
using widgets::kTag;
using widgets::tagged;

namespace {

constexpr int kPictureSize = 16;
constexpr int kLongestName = 200;

constexpr std::pair<const char*, bus::Panel> kLinePanels[] = {
    {"COMSet", bus::Panel::COMSet}, {"Info", bus::Panel::Info}, {"Allarm", bus::Panel::Allarm}};

QIcon pictureOfPanel(int image)
{
    return image == bus::images::kRest ? platform::icon("panel-rest") : platform::imageOf(image);
}

} // namespace

MainStatusBar::MainStatusBar(const bus::StatusPanels& panels, const Texts& texts, QWidget* parent)
    : QStatusBar(parent), panels_(panels), texts_(texts)
{
    setObjectName("staMain");
    addPanel("COMSet", 264);
    addPanel("Info", 207, 1);
    addPanel("User", 35);
    addPanel("Model", 0);
    addPanel("Allarm", 290);
    addPanel("Caps", 208);
    addPanel("Num", 209);
    addPanel("Date", 206);
    addPanel("Hour", 205);

    connect(&panels, &bus::StatusPanels::changed, this, &MainStatusBar::showLine);
    connect(&panels, &bus::StatusPanels::tipCleared, this, &MainStatusBar::clearTip);
    nextMinute_.setSingleShot(true);
    connect(&nextMinute_, &QTimer::timeout, this, &MainStatusBar::showTime);
    qApp->installEventFilter(this);
    widgets_["Model"].frame->hide();
    showLine();
    showTime();
}

void MainStatusBar::addPanel(const QString& key, int tag, int stretch)
{
    PanelWidget panel;
    panel.frame = tagged(new QWidget(this), key, tag == 0 ? QString() : QString::number(tag));
    panel.picture = new QLabel(panel.frame);
    panel.text = new QLabel(panel.frame);
    panel.text->setTextFormat(Qt::PlainText);
    panel.text->setObjectName("text");
    panel.text->setTextFormat(Qt::PlainText);
    panel.picture->hide();
    auto* layout = new QHBoxLayout(panel.frame);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(5);
    layout->addWidget(panel.picture);
    layout->addWidget(panel.text, 1);
    addWidget(panel.frame, stretch);
    widgets_[key] = panel;
}

void MainStatusBar::relabel()
{
    widgets_["Caps"].text->setText(texts_.own("panel.caps"));
    widgets_["Num"].text->setText(texts_.own("panel.num"));
    showLocks();
}

bool MainStatusBar::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        if (watched->parent() == this && watched->property(kTag).isValid())
            emit panelDoubleClicked(watched->objectName());
        break;
    case QEvent::KeyRelease:
    case QEvent::ApplicationActivate:
        showLocks();
        break;
    default:
        break;
    }
    return QStatusBar::eventFilter(watched, event);
}

void MainStatusBar::showLine()
{
    for (const auto& [key, panel] : kLinePanels) {
        const PanelWidget& widget = widgets_[key];
        const QIcon picture = pictureOfPanel(panels_.picture(panel));
        widget.picture->setVisible(!picture.isNull());
        widget.picture->setPixmap(picture.pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
        widget.text->setText(panels_.text(panel));
    }
}

void MainStatusBar::clearTip(bus::Panel panel)
{
    for (const auto& [key, shown] : kLinePanels) {
        if (shown == panel)
            widgets_[key].frame->setToolTip({});
    }
}

void MainStatusBar::showUser(const Session& session)
{
    const PanelWidget& panel = widgets_["User"];
    panel.frame->setVisible(!session.DbName.isEmpty());
    const bool somebody = !session.CurrentUser.IDUser.isEmpty();
    panel.picture->setPixmap(platform::icon(somebody ? "users" : "lock")
                                 .pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    panel.picture->show();
    const QString shown = somebody ? session.CurrentUser.Name : texts_.own("panel.nobody");
    panel.text->setText(fontMetrics().elidedText(shown, Qt::ElideRight, kLongestName));
}

void MainStatusBar::showModel(const QString& newer)
{
    const PanelWidget& panel = widgets_["Model"];
    panel.frame->setVisible(!newer.isEmpty());
    if (newer.isEmpty())
        return;
    panel.picture->setPixmap(
        platform::icon("info").pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    panel.picture->show();
    panel.text->setText(texts_.own("panel.model").arg(newer));
    panel.frame->setToolTip(texts_.own("panel.model.tip"));
}

void MainStatusBar::showTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    widgets_["Date"].text->setText(now.toString("dd/MM/yyyy"));
    widgets_["Hour"].text->setText(now.toString("HH:mm"));
    nextMinute_.start(60'000 - int(now.time().msecsSinceStartOfDay() % 60'000));
}

void MainStatusBar::showLocks()
{
    widgets_["Caps"].text->setEnabled(platform::keyLockOn("capslock"));
    widgets_["Num"].text->setEnabled(platform::keyLockOn("numlock"));
}

} // namespace program
