#include "dialogs/frmManual.h"

#include "dialogs/widgets/ManualPage.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>

namespace dialogs {

namespace {

constexpr int kChapterRole = Qt::UserRole;
constexpr int kHeadingRole = Qt::UserRole + 1;

QToolButton* button(QWidget* parent, const QString& name, const QString& icon, const QKeySequence& keys)
{
    auto* made = new QToolButton(parent);
    made->setObjectName(name);
    made->setIcon(platform::icon(icon));
    made->setShortcut(keys);
    made->setAutoRaise(true);
    return made;
}

} // namespace

frmManual::frmManual(const session::Session& session, const session::Texts& texts, platform::Operator& op)
    : session_(session), texts_(texts), manual_(session),
      cmdBack_(button(this, "cmdBack", "previous", QKeySequence(Qt::ALT | Qt::Key_Left))),
      cmdForward_(button(this, "cmdForward", "next", QKeySequence(Qt::ALT | Qt::Key_Right))),
      txtFind_(new QLineEdit(this)), lvwChapters_(new QListWidget(this)), txtPage_(new ManualPage(this))
{
    setObjectName("frmManual");
    layOut();
    listen();
    widgets::Set_Language(*this, session, texts, op);
    showChapter(manual_.chapters().value(0));
}

void frmManual::layOut()
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    txtFind_->setObjectName("txtFind");
    txtFind_->setClearButtonEnabled(true);
    txtFind_->addAction(platform::icon("find"), QLineEdit::LeadingPosition);
    lvwChapters_->setObjectName("lvwChapters");
    lvwChapters_->setWordWrap(true);
    lvwChapters_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtPage_->setObjectName("txtPage");

    auto* contents = new QWidget(this);
    auto* left = new QVBoxLayout(contents);
    left->setContentsMargins({});
    auto* row = new QHBoxLayout;
    row->addWidget(cmdBack_);
    row->addWidget(cmdForward_);
    row->addWidget(txtFind_, 1);
    left->addLayout(row);
    left->addWidget(lvwChapters_, 1);

    auto* halves = new QSplitter(this);
    halves->setObjectName("halves");
    halves->setChildrenCollapsible(false);
    halves->addWidget(contents);
    halves->addWidget(txtPage_);
    halves->setStretchFactor(1, 1);
    halves->setSizes({270, 730});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(halves);
    setTabOrder(txtFind_, lvwChapters_);
    setTabOrder(lvwChapters_, txtPage_);
    resize(1000, 680);
}

void frmManual::listen()
{
    connect(txtFind_, &QLineEdit::textChanged, this, &frmManual::search);
    connect(txtFind_, &QLineEdit::returnPressed, this, [this] {
        if (lvwChapters_->count() > 0)
            lvwChapters_->setCurrentRow(std::max(lvwChapters_->currentRow(), 0));
        lvwChapters_->setFocus();
    });
    connect(lvwChapters_, &QListWidget::currentItemChanged, this, &frmManual::open);
    connect(lvwChapters_, &QListWidget::itemActivated, txtPage_, [this] { txtPage_->setFocus(); });
    connect(txtPage_, &ManualPage::turned, this, &frmManual::follow);
    connect(cmdBack_, &QToolButton::clicked, txtPage_, &QTextBrowser::backward);
    connect(cmdForward_, &QToolButton::clicked, txtPage_, &QTextBrowser::forward);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, txtFind_, [this] {
        txtFind_->setFocus();
        txtFind_->selectAll();
    });
    cmdBack_->setEnabled(false);
    cmdForward_->setEnabled(false);
}

void frmManual::showChapter(const QString& chapter)
{
    txtFind_->clear();
    txtPage_->setSource(QUrl(manual_.address(chapter)), QTextDocument::MarkdownResource);
    follow();
}

void frmManual::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

void frmManual::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own("manual.title"));
    txtFind_->setPlaceholderText(texts_.own("manual.find"));
    txtFind_->setAccessibleName(texts_.own("manual.find"));
    lvwChapters_->setAccessibleName(texts_.own("manual.chapters"));
    txtPage_->setAccessibleName(texts_.own("manual.page"));
    cmdBack_->setToolTip(texts_.own("manual.back"));
    cmdBack_->setAccessibleName(texts_.own("manual.back"));
    cmdForward_->setToolTip(texts_.own("manual.forward"));
    cmdForward_->setAccessibleName(texts_.own("manual.forward"));
    const QString shown = QFileInfo(txtPage_->source().path()).completeBaseName();
    txtFind_->clear();
    fillChapters();
    if (!shown.isEmpty())
        showChapter(shown);
}

void frmManual::fillChapters()
{
    const QSignalBlocker quiet(lvwChapters_);
    lvwChapters_->clear();
    for (const QString& chapter : manual_.chapters()) {
        auto* item = new QListWidgetItem(manual_.title(chapter), lvwChapters_);
        item->setData(kChapterRole, chapter);
    }
    follow();
}

// As one types: the sections that hold the words, in place of the chapters.
void frmManual::search(const QString& words)
{
    if (words.trimmed().isEmpty()) {
        fillChapters();
        return;
    }
    const QSignalBlocker quiet(lvwChapters_);
    lvwChapters_->clear();
    for (const Manual::Hit& hit : manual_.search(words)) {
        auto* item = new QListWidgetItem(hit.heading + u'\n' + hit.excerpt, lvwChapters_);
        item->setData(kChapterRole, hit.chapter);
        item->setData(kHeadingRole, hit.heading);
    }
    if (lvwChapters_->count() == 0)
        (new QListWidgetItem(texts_.own("manual.nothing"), lvwChapters_))->setFlags(Qt::NoItemFlags);
}

void frmManual::open(const QListWidgetItem* item)
{
    const QString chapter = item ? item->data(kChapterRole).toString() : QString();
    if (chapter.isEmpty())
        return;
    txtPage_->setSource(QUrl(manual_.address(chapter)), QTextDocument::MarkdownResource);
    txtPage_->goTo(item->data(kHeadingRole).toString(), txtFind_->text());
}

// The list of chapters goes with the page that is shown.
void frmManual::follow()
{
    cmdBack_->setEnabled(txtPage_->isBackwardAvailable());
    cmdForward_->setEnabled(txtPage_->isForwardAvailable());
    if (!txtFind_->text().trimmed().isEmpty())
        return;
    const QSignalBlocker quiet(lvwChapters_);
    const QString shown = QFileInfo(txtPage_->source().path()).completeBaseName();
    for (int row = 0; row < lvwChapters_->count(); ++row) {
        if (lvwChapters_->item(row)->data(kChapterRole).toString() == shown)
            lvwChapters_->setCurrentRow(row);
    }
}

} // namespace dialogs
