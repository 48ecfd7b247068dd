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
#include <QKeySequence>
#include <QLabel>
#include <algorithm>
#include <cstring>

namespace program {

using namespace session;
using widgets::kTag;
using widgets::tagged;

namespace {

constexpr int kPictureSize = 16;
constexpr int kBellSize = 40;
constexpr int kLongestName = 200;
constexpr int kLeastInfo = 60;
constexpr int kGap = 8;

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
    addPanel("Allarm", 290);
    addPanel("COMSet", 264);
    addPanel("Plant", 0);
    addPanel("Info", 207, 1);
    addPanel("Waiting", 0);
    addPanel("History", 0);
    widgets_["History"].frame->setProperty(kTag, {});
    widgets_["History"].frame->hide();
    addPanel("User", 35);
    addPanel("Model", 0);
    addPanel("Caps", 208);
    addPanel("Num", 209);
    addPanel("Date", 206);
    addPanel("Hour", 205);

    connect(&panels, &bus::StatusPanels::changed, this, &MainStatusBar::showLine);
    connect(&panels, &bus::StatusPanels::changed, this, &MainStatusBar::showPlant, Qt::QueuedConnection);
    connect(&panels, &bus::StatusPanels::tipCleared, this, &MainStatusBar::clearTip);
    nextMinute_.setSingleShot(true);
    connect(&nextMinute_, &QTimer::timeout, this, &MainStatusBar::showTime);
    qApp->installEventFilter(this);
    widgets_["Info"].text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    widgets_["Plant"].frame->hide();
    widgets_["Plant"].picture->setPixmap(
        platform::icon("group").pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    widgets_["Plant"].picture->show();
    widgets_["Waiting"].frame->setCursor(Qt::PointingHandCursor);
    widgets_["Model"].frame->hide();
    showLine();
    showTime();
}

void MainStatusBar::addPanel(const QString& key, int tag, int stretch)
{
    PanelWidget panel;
    panel.frame = tagged(new QWidget(this), key, tag == 0 ? QString() : QString::number(tag));
    panel.frame->setAttribute(Qt::WA_StyledBackground);
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
    widgets_["History"].text->setText(texts_.own("history.broken"));
    showLocks();
    showWaiting(waiting_, unconfirmed_);
    widgets_["Plant"].frame->setToolTip(texts_.own("panel.plant"));
}

bool MainStatusBar::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        if (watched->parent() == this && watched->property(kTag).isValid())
            emit panelDoubleClicked(watched->objectName());
        break;
    case QEvent::MouseButtonRelease:
        if (watched->parent() == this)
            emit panelClicked(watched->objectName());
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
        widget.text->setVisible(panel != bus::Panel::Allarm); // which has a picture and no words
    }
    showBell(panels_.picture(bus::Panel::Allarm) == bus::images::kAlarm);
    fit();
}

// When the line has come to rest: its panels are told before its record and its status.
void MainStatusBar::showPlant()
{
    const QString plant = plant_ ? plant_() : QString();
    widgets_["Plant"].text->setText(fontMetrics().elidedText(plant, Qt::ElideRight, kLongestName));
    fit();
}

// Alarms that wait are to be seen from across the room.
void MainStatusBar::showBell(bool alarms)
{
    const PanelWidget& bell = widgets_["Allarm"];
    const int side = alarms ? kBellSize : kPictureSize;
    const QIcon picture = pictureOfPanel(panels_.picture(bus::Panel::Allarm));
    bell.picture->setPixmap(picture.pixmap(QSize(side, side), devicePixelRatio()));
    bell.frame->setStyleSheet(
        alarms ? QStringLiteral("#Allarm { background: #FFD9D4; border: 2px solid #C8372D; }") : QString());
}

void MainStatusBar::showWaiting(int waiting, int unconfirmed)
{
    waiting_ = waiting;
    unconfirmed_ = unconfirmed;
    const PanelWidget& panel = widgets_["Waiting"];
    const QIcon picture = platform::icon(unconfirmed > 0 ? "badge-unconfirmed" : "param-changed");
    panel.picture->setPixmap(picture.pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    panel.picture->show();
    QStringList words;
    if (waiting > 0)
        words << texts_.own("panel.waiting").arg(waiting);
    if (unconfirmed > 0)
        words << texts_.own("panel.unconfirmed").arg(unconfirmed);
    panel.text->setText(words.join(QStringLiteral(" \u00b7 ")));
    panel.frame->setToolTip(
        texts_.own("panel.waiting.tip").arg(QKeySequence("Ctrl+Shift+P").toString(QKeySequence::NativeText)));
    fit();
}

// Alarms, what the line does and what waits stay to the last.
void MainStatusBar::fit()
{
    widgets_["Plant"].frame->setVisible(!widgets_["Plant"].text->text().isEmpty());
    widgets_["Waiting"].frame->setVisible(waiting_ + unconfirmed_ > 0);
    const QLabel& info = *widgets_["Info"].text;
    int free =
        width() - std::max(2 * kLeastInfo, info.fontMetrics().horizontalAdvance(info.text()) + 3 * kGap);
    for (const char* key : {"Allarm", "Plant", "Waiting"}) {
        if (!widgets_[key].frame->isHidden())
            free -= widgets_[key].frame->sizeHint().width() + kGap;
    }
    for (const char* key : {"COMSet", "User", "Hour", "Date", "Caps", "Num"}) {
        const PanelWidget& panel = widgets_[key];
        const bool wanted = std::strcmp(key, "User") != 0 || user_;
        const int needed = wanted ? panel.frame->sizeHint().width() + kGap : 0;
        panel.frame->setVisible(wanted && needed <= free);
        free -= needed;
    }
}

void MainStatusBar::resizeEvent(QResizeEvent* event)
{
    QStatusBar::resizeEvent(event);
    fit();
}

QSize MainStatusBar::minimumSizeHint() const
{
    return {kLeastInfo, QStatusBar::minimumSizeHint().height()};
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
    user_ = !session.DbName.isEmpty();
    const bool somebody = !session.CurrentUser.IDUser.isEmpty();
    panel.picture->setPixmap(platform::icon(somebody ? "users" : "lock")
                                 .pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    panel.picture->show();
    const QString shown = somebody ? session.CurrentUser.Name : texts_.own("panel.nobody");
    panel.text->setText(fontMetrics().elidedText(shown, Qt::ElideRight, kLongestName));
    fit();
}

void MainStatusBar::showHistory(const QString& failure)
{
    const PanelWidget& panel = widgets_["History"];
    panel.picture->setPixmap(
        platform::icon("warning").pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    panel.picture->show();
    panel.text->setText(texts_.own("history.broken"));
    panel.frame->setToolTip(failure);
    panel.frame->setAccessibleName(texts_.own("history.broken"));
    panel.frame->setAccessibleDescription(failure);
    panel.frame->setVisible(!failure.isEmpty());
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
