#include "structure/frmPending.h"

#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/widgets/ResultView.h"
#include "widgets/FormLanguage.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace structure {

frmPending::frmPending(Structure& structure, session::Session& session, const session::Texts& texts,
                       platform::Operator& op)
    : ResultDialog(structure, session, texts,
                   {"frmPending", "pending", "lvwPending", "lblPending", "pending.title"}),
      nothing_(new QWidget), lblNothing_(new QLabel(nothing_)),
      cmdRefresh_(new QPushButton(platform::icon("refresh"), {}, this)),
      job_(*this, [this](const PendingWrites& pending) { showWrites(pending); })
{
    layOut();
    connect(cmdShow_, &QPushButton::clicked, this, [this] { take(view_->selectedKey()); });
    connect(cmdRefresh_, &QPushButton::clicked, this, &frmPending::refresh);
    widgets::Set_Language(*this, session, texts, op);
}

void frmPending::layOut()
{
    lblNothing_->setObjectName("lblNothing");
    lblNothing_->setAlignment(Qt::AlignCenter);
    lblNothing_->setWordWrap(true);
    lblNothing_->setForegroundRole(QPalette::PlaceholderText);
    auto* picture = new QLabel(nothing_);
    picture->setPixmap(platform::icon("param-ok").pixmap(QSize(48, 48), devicePixelRatio()));
    auto* empty = new QVBoxLayout(nothing_);
    empty->addStretch(2);
    empty->addWidget(picture, 0, Qt::AlignHCenter);
    empty->addSpacing(8);
    empty->addWidget(lblNothing_);
    empty->addStretch(3);
    pages_->addWidget(nothing_);

    cmdRefresh_->setObjectName("cmdRefresh");
    cmdRefresh_->setAutoDefault(false);
    bottom_->insertWidget(1, cmdRefresh_);
    setTabOrder(view_, cmdRefresh_);
    setTabOrder(cmdRefresh_, cmdShow_);
}

void frmPending::refresh()
{
    if (session_.DbName.isEmpty())
        return;
    say(texts_.own("pending.reading"));
    job_.start([file = session_.dbFile(), language = session_.Language.Code](const StopFlag& stop) {
        return readPendingWrites(file, language, stop);
    });
}

void frmPending::showWrites(const PendingWrites& pending)
{
    showItems(pending.items);
    const bool none = pending.items.empty();
    const bool read = pending.failure.isEmpty();
    pages_->setCurrentWidget(none && read ? nothing_ : static_cast<QWidget*>(view_));
    if (!read)
        say(pending.failure);
    else
        say(none ? QString() : texts_.own("pending.count").arg(pending.items.size()));
}

bool frmPending::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        refresh();
    return ResultDialog::event(event);
}

void frmPending::relabel()
{
    ResultDialog::relabel();
    lblNothing_->setText(texts_.own("pending.nothing"));
    cmdRefresh_->setText(texts_.own("pending.refresh"));
    cmdRefresh_->setShortcut(Qt::Key_F5); // a new caption takes the old shortcut away
    refresh();
}

} // namespace structure
