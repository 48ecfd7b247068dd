#include "structure/frmFind.h"

#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/widgets/ResultView.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace structure {

namespace {

constexpr int kPauseMilliseconds = 150;
constexpr int kMostCharacters = 255;

} // namespace

frmFind::frmFind(Structure& structure, session::Session& session, const session::Texts& texts,
                 platform::Operator& op)
    : ResultDialog(structure, session, texts, {"frmFind", "find", "lvwFound", "lblFound", "find.title"}),
      txtFind_(new QLineEdit(this)), job_(*this, [this](const Findings& findings) { showFindings(findings); })
{
    layOut();
    listen();
    widgets::Set_Language(*this, session, texts, op);
}

void frmFind::layOut()
{
    txtFind_->setObjectName("txtFind");
    txtFind_->setClearButtonEnabled(true);
    txtFind_->addAction(platform::icon("find"), QLineEdit::LeadingPosition);
    txtFind_->setMaxLength(kMostCharacters);
    txtFind_->setMinimumHeight(30);
    layout_->insertWidget(0, txtFind_);
    setTabOrder(txtFind_, view_);
}

void frmFind::listen()
{
    typing_.setSingleShot(true);
    typing_.setInterval(kPauseMilliseconds);
    connect(&typing_, &QTimer::timeout, this, &frmFind::search);
    connect(txtFind_, &QLineEdit::textChanged, this, &frmFind::searchSoon);
    connect(txtFind_, &QLineEdit::returnPressed, this, &frmFind::takeSelected);
    connect(cmdShow_, &QPushButton::clicked, this, &frmFind::takeSelected);
    txtFind_->installEventFilter(this);
}

// The search waits for a pause in the typing; the keys never wait for the search.
void frmFind::searchSoon()
{
    job_.cancel();
    takeWhenFound_ = false;
    typing_.start();
    say(texts_.own(txtFind_->text().isEmpty() ? "find.hint" : "find.searching"));
}

void frmFind::search()
{
    typing_.stop();
    if (txtFind_->text().isEmpty() || session_.DbName.isEmpty()) {
        job_.cancel();
        showItems({});
        say(texts_.own("find.hint"));
        return;
    }
    job_.start([file = session_.dbFile(), language = session_.Language.Code, text = txtFind_->text()](
                   const StopFlag& stop) { return findInPlant(file, language, text, stop); });
}

void frmFind::showFindings(const Findings& findings)
{
    showItems(findings.items);
    if (!findings.failure.isEmpty())
        say(findings.failure);
    else if (findings.items.empty())
        say(texts_.own("find.nothing"));
    else if (findings.more == 0)
        say(texts_.own("find.found").arg(findings.items.size()));
    else
        say(texts_.own("find.more").arg(findings.items.size()).arg(findings.more));
    if (std::exchange(takeWhenFound_, false))
        takeSelected();
}

// Enter may come before the search is through: the first result is taken then.
void frmFind::takeSelected()
{
    if (!isSearching()) {
        take(view_->selectedKey());
        return;
    }
    takeWhenFound_ = true;
    if (typing_.isActive())
        search();
}

bool frmFind::eventFilter(QObject* watched, QEvent* event)
{
    // The arrow keys walk through the results while the text keeps the focus.
    if (watched == txtFind_ && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QApplication::sendEvent(view_, event);
            return true;
        default:
            break;
        }
    }
    return ResultDialog::eventFilter(watched, event);
}

void frmFind::showEvent(QShowEvent* event)
{
    ResultDialog::showEvent(event);
    txtFind_->setFocus();
    txtFind_->selectAll();
    // The plant may have changed since it was searched last.
    search();
}

void frmFind::relabel()
{
    ResultDialog::relabel();
    txtFind_->setPlaceholderText(texts_.own("find.placeholder"));
    search(); // values and names follow the language, too
}

} // namespace structure
