#include "structure/frmPending.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Jump.h"
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
    : structure_(structure), session_(session), texts_(texts), pages_(new QStackedWidget(this)),
      lvwPending_(new ResultView(writes_)), nothing_(new QWidget), lblNothing_(new QLabel(nothing_)),
      lblPending_(new QLabel(this)), cmdRefresh_(new QPushButton(platform::icon("refresh"), {}, this)),
      cmdShow_(new QPushButton(this)), cmdClose_(new QPushButton(this)),
      job_(*this, [this](const PendingWrites& pending) { showWrites(pending); })
{
    setObjectName("frmPending");
    setWindowIcon(platform::icon("pending"));
    layOut();
    listen();
    widgets::Set_Language(*this, session, texts, op);
}

void frmPending::layOut()
{
    lvwPending_->setObjectName("lvwPending");
    lblNothing_->setObjectName("lblNothing");
    lblNothing_->setAlignment(Qt::AlignCenter);
    lblNothing_->setWordWrap(true);
    lblNothing_->setForegroundRole(QPalette::PlaceholderText);
    lblPending_->setObjectName("lblPending");
    lblPending_->setTextFormat(Qt::PlainText);
    lblPending_->setWordWrap(true);
    cmdRefresh_->setObjectName("cmdRefresh");
    cmdShow_->setObjectName("cmdShow");
    cmdClose_->setObjectName("cmdClose");
    for (QPushButton* button : {cmdRefresh_, cmdShow_, cmdClose_})
        button->setAutoDefault(false);

    auto* picture = new QLabel(nothing_);
    picture->setPixmap(platform::icon("param-ok").pixmap(QSize(48, 48), devicePixelRatio()));
    auto* empty = new QVBoxLayout(nothing_);
    empty->addStretch(2);
    empty->addWidget(picture, 0, Qt::AlignHCenter);
    empty->addSpacing(8);
    empty->addWidget(lblNothing_);
    empty->addStretch(3);
    pages_->addWidget(lvwPending_);
    pages_->addWidget(nothing_);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblPending_, 1);
    bottom->addWidget(cmdRefresh_);
    bottom->addWidget(cmdShow_);
    bottom->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(pages_, 1);
    layout->addLayout(bottom);
    resize(680, 460);
}

void frmPending::listen()
{
    connect(lvwPending_, &ResultView::taken, this, &frmPending::take);
    connect(cmdShow_, &QPushButton::clicked, this, [this] { take(lvwPending_->selectedKey()); });
    connect(cmdRefresh_, &QPushButton::clicked, this, &frmPending::refresh);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPending::refresh()
{
    if (session_.DbName.isEmpty())
        return;
    lblPending_->setText(texts_.own("pending.reading"));
    job_.start([file = session_.dbFile(), language = session_.Language.Code](const StopFlag& stop) {
        return readPendingWrites(file, language, stop);
    });
}

void frmPending::showWrites(const PendingWrites& pending)
{
    const QString selected = lvwPending_->selectedKey();
    writes_.setItems(pending.items);
    lvwPending_->select(selected);
    const bool none = pending.items.empty();
    const bool read = pending.failure.isEmpty();
    pages_->setCurrentWidget(none && read ? nothing_ : lvwPending_);
    cmdShow_->setEnabled(!none);
    if (!read)
        lblPending_->setText(pending.failure);
    else
        lblPending_->setText(none ? QString() : texts_.own("pending.count").arg(pending.items.size()));
}

void frmPending::take(const QString& key)
{
    if (!key.isEmpty() && !jumpTo(structure_, key))
        lblPending_->setText(texts_.own("find.gone"));
}

bool frmPending::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        refresh();
    return QDialog::event(event);
}

void frmPending::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    relabel();
    refresh();
}

void frmPending::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own("pending.title"));
    platform::guarded("Module/Set_Language", [this] {
        writes_.setColumnCaptions({texts_(102), texts_(107), texts_.own("find.place")});
    });
    lblNothing_->setText(texts_.own("pending.nothing"));
    cmdRefresh_->setText(texts_.own("pending.refresh"));
    cmdRefresh_->setShortcut(Qt::Key_F5); // a new caption takes the old shortcut away
    cmdShow_->setText(texts_.own("find.show"));
    cmdClose_->setText(texts_.own("find.close"));
}

} // namespace structure
