#include "structure/frmFind.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Jump.h"
#include "structure/widgets/ResultView.h"
#include "widgets/FormLanguage.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace structure {

namespace {

constexpr int kPauseMilliseconds = 150;

} // namespace

frmFind::frmFind(Structure& structure, session::Session& session, const session::Texts& texts,
                 platform::Operator& op)
    : structure_(structure), session_(session), texts_(texts), txtFind_(new QLineEdit(this)),
      lvwFound_(new ResultView(results_, this)), lblFound_(new QLabel(this)), cmdShow_(new QPushButton(this)),
      cmdClose_(new QPushButton(this)),
      job_(*this, [this](const Findings& findings) { showFindings(findings); })
{
    setObjectName("frmFind");
    setWindowIcon(platform::icon("find"));
    layOut();
    listen();
    widgets::Set_Language(*this, session, texts, op);
}

void frmFind::layOut()
{
    txtFind_->setObjectName("txtFind");
    txtFind_->setClearButtonEnabled(true);
    txtFind_->addAction(platform::icon("find"), QLineEdit::LeadingPosition);
    txtFind_->setMaxLength(255);
    txtFind_->setMinimumHeight(30);
    lvwFound_->setObjectName("lvwFound");
    lblFound_->setObjectName("lblFound");
    lblFound_->setTextFormat(Qt::PlainText);
    lblFound_->setWordWrap(true);
    cmdShow_->setObjectName("cmdShow");
    cmdClose_->setObjectName("cmdClose");
    for (QPushButton* button : {cmdShow_, cmdClose_})
        button->setAutoDefault(false);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblFound_, 1);
    bottom->addWidget(cmdShow_);
    bottom->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(txtFind_);
    layout->addWidget(lvwFound_, 1);
    layout->addLayout(bottom);
    resize(680, 460);
}

void frmFind::listen()
{
    typing_.setSingleShot(true);
    typing_.setInterval(kPauseMilliseconds);
    connect(&typing_, &QTimer::timeout, this, &frmFind::search);
    connect(txtFind_, &QLineEdit::textChanged, this, &frmFind::searchSoon);
    connect(txtFind_, &QLineEdit::returnPressed, this, &frmFind::takeSelected);
    connect(lvwFound_, &ResultView::taken, this, &frmFind::take);
    connect(cmdShow_, &QPushButton::clicked, this, &frmFind::takeSelected);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
    txtFind_->installEventFilter(this);
}

// The search waits for a pause in the typing; the keys never wait for the search.
void frmFind::searchSoon()
{
    job_.cancel();
    takeWhenFound_ = false;
    typing_.start();
    lblFound_->setText(texts_.own(txtFind_->text().isEmpty() ? "find.hint" : "find.searching"));
}

void frmFind::search()
{
    typing_.stop();
    if (txtFind_->text().isEmpty() || session_.DbName.isEmpty()) {
        job_.cancel();
        results_.clear();
        relabel();
        return;
    }
    job_.start([file = session_.dbFile(), language = session_.Language.Code, text = txtFind_->text()](
                   const StopFlag& stop) { return findInPlant(file, language, text, stop); });
}

void frmFind::showFindings(const Findings& findings)
{
    const QString selected = lvwFound_->selectedKey();
    results_.setItems(findings.items);
    lvwFound_->select(selected);
    cmdShow_->setEnabled(results_.itemCount() > 0);
    if (!findings.failure.isEmpty())
        lblFound_->setText(findings.failure);
    else if (findings.items.empty())
        lblFound_->setText(texts_.own("find.nothing"));
    else if (findings.more == 0)
        lblFound_->setText(texts_.own("find.found").arg(findings.items.size()));
    else
        lblFound_->setText(texts_.own("find.more").arg(findings.items.size()).arg(findings.more));
    if (std::exchange(takeWhenFound_, false))
        takeSelected();
}

// Enter may come before the search is through: the first result is taken then.
void frmFind::takeSelected()
{
    if (isSearching()) {
        takeWhenFound_ = true;
        if (typing_.isActive())
            search();
    } else if (const QString key = lvwFound_->selectedKey(); !key.isEmpty()) {
        take(key);
    }
}

void frmFind::take(const QString& key)
{
    if (!jumpTo(structure_, key))
        lblFound_->setText(texts_.own("find.gone"));
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
            QApplication::sendEvent(lvwFound_, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmFind::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    txtFind_->setFocus();
    txtFind_->selectAll();
    // The plant may have changed since it was searched last.
    search();
}

void frmFind::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    relabel();
    if (!txtFind_->text().isEmpty())
        search();
}

void frmFind::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own("find.title"));
    txtFind_->setPlaceholderText(texts_.own("find.placeholder"));
    platform::guarded("Module/Set_Language", [this] {
        results_.setColumnCaptions({texts_(102), texts_(107), texts_.own("find.place")});
    });
    cmdShow_->setText(texts_.own("find.show"));
    cmdShow_->setEnabled(results_.itemCount() > 0);
    cmdClose_->setText(texts_.own("find.close"));
    if (txtFind_->text().isEmpty())
        lblFound_->setText(texts_.own("find.hint"));
}

} // namespace structure
