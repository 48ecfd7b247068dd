#include "dialogs/frmMessage.h"

#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <utility>

namespace dialogs {

namespace {

constexpr qsizetype kAlarmsShown = 8;

// The last alarms; that there are more is told by dots above them.
QStringList shortened(const QStringList& alarms)
{
    if (alarms.size() <= kAlarmsShown)
        return alarms;
    return QStringList{QStringLiteral("...")} + alarms.mid(alarms.size() - kAlarmsShown);
}

} // namespace

frmMessage::frmMessage(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                       const QStringList& alarms, std::function<void()> showEvents)
{
    setWindowTitle(session.AppTitle);
    auto* imgMsg = new QLabel(this);
    imgMsg->setObjectName("imgMsg");
    imgMsg->setPixmap(platform::icon("alarm").pixmap(QSize(48, 48), devicePixelRatio()));
    auto* lblMsg = widgets::tagged(new QLabel("-", this), "lblMsg", "582");
    auto* lblMsgDetail = widgets::tagged(new QLabel("-", this), "lblMsgDetail", "585");
    QFont strong = lblMsg->font();
    strong.setBold(true);
    lblMsg->setFont(strong);
    auto* lblCalls = new QLabel(shortened(alarms).join('\n'), this);
    lblCalls->setObjectName("lblCalls");
    lblCalls->setTextFormat(Qt::PlainText);
    lblCalls->setVisible(!alarms.isEmpty());
    auto* cmdOK = widgets::tagged(new QPushButton("-", this), "cmdOK", "13");
    cmdOK->setDefault(true);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setHorizontalSpacing(16);
    layout->addWidget(imgMsg, 0, 0, 3, 1, Qt::AlignTop);
    layout->addWidget(lblMsg, 0, 1);
    layout->addWidget(lblCalls, 1, 1);
    layout->addWidget(lblMsgDetail, 2, 1);
    auto* cmdEvents = new QPushButton(platform::icon("event-viewer"), texts.own("alarm.events"), this);
    cmdEvents->setObjectName("cmdEvents");
    cmdEvents->setAutoDefault(false);
    cmdEvents->setVisible(showEvents && session::rightOf(session.CurrentUser.EventViewer));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdEvents);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    layout->addLayout(buttons, 3, 0, 1, 2, Qt::AlignBottom);
    layout->setRowMinimumHeight(3, 44);
    layout->setColumnStretch(1, 1);
    // The window is as large as its words.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdEvents, &QPushButton::clicked, this, [this, show = std::move(showEvents)] {
        accept();
        show();
    });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    widgets::Set_Language(*this, session, texts, op);
}

} // namespace dialogs
