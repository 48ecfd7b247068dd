#include "structure/frmPending.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/widgets/Icons.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Image.h"
#include "structure/Jump.h"
#include "structure/ShownValue.h"
#include "structure/Structure.h"
#include "structure/widgets/ResultView.h"
#include "values/ValueCause.h"
#include "widgets/FormLanguage.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QStackedWidget>

namespace structure {

namespace {

// A write that was not confirmed, among those that are still to come. Its names are today's: the language may
// have changed since.
ListItem unconfirmedItem(const session::Session& session, const session::Texts& texts,
                         const Structure& structure, const UnconfirmedWrite& write)
{
    const KeyParts ids = Extract_Key(write.key);
    const TreeModel& tree = structure.tree();
    const auto captionOf = [&](const QString& key, const QString& former) {
        return tree.contains(key) ? tree.captionOf(key) : former;
    };
    const QString plant = tree.captionOf(groupKey(ids.IDGrp));
    const QString instrument = captionOf(instrumentKey(ids.IDGrp, ids.IDInst), write.instrument);
    const QString group = captionOf(paramGroupKey(ids.IDGrp, ids.IDInst, ids.IDParGrp), write.group);
    const QString found =
        write.found ? shownValue(session, ids.IDPar, write.found) : texts.own("write.failed.unread");
    return {.key = write.key,
            .text = parameterName(session, ids.IDPar, write.name),
            .subtext = shownValue(session, ids.IDPar, write.expected),
            .detail = plant + '\\' + instrument + '\\' + group,
            .icon = int(Image::Parameter),
            .marks = kHoldsUnconfirmed,
            .extra = texts.own("pending.readback").arg(found)};
}

} // namespace

frmPending::frmPending(Structure& structure, session::Session& session, const session::Texts& texts,
                       platform::Operator& op, std::function<void()> readWrite)
    : ResultDialog(structure, session, texts,
                   {"frmPending", "pending", "lvwPending", "lblPending", "pending.title"}, 4),
      operator_(op), readWrite_(std::move(readWrite)), nothing_(new QWidget),
      lblNothing_(new QLabel(nothing_)), cmdRefresh_(new QPushButton(platform::icon("refresh"), {}, this)),
      cmdTakeBack_(new QPushButton(platform::icon("reset"), {}, this)),
      cmdReadWrite_(new QPushButton(platform::icon("read-write"), {}, this)),
      job_(*this, [this](const PendingWrites& pending) { showWrites(pending); })
{
    layOut();
    connect(cmdShow_, &QPushButton::clicked, this, [this] { take(view_->selectedKey()); });
    connect(cmdRefresh_, &QPushButton::clicked, this, &frmPending::refresh);
    connect(cmdTakeBack_, &QPushButton::clicked, this, &frmPending::takeBack);
    connect(cmdReadWrite_, &QPushButton::clicked, this, &frmPending::openConsole);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmPending::enableCommands);
    connect(&structure.memory(), &InstrumentMemory::changed, this, &frmPending::refresh);
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
    cmdTakeBack_->setObjectName("cmdTakeBack");
    cmdReadWrite_->setObjectName("cmdReadWrite");
    QWidget* before = view_;
    for (QPushButton* button : {cmdTakeBack_, cmdReadWrite_, cmdRefresh_}) {
        button->setAutoDefault(false);
        setTabOrder(before, button);
        before = button;
    }
    setTabOrder(before, cmdShow_);
    commands_->addWidget(cmdTakeBack_);
    commands_->addWidget(cmdReadWrite_);
    commands_->addStretch();
    bottom_->insertWidget(1, cmdRefresh_);
    resize(900, 480);
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
    const InstrumentMemory& memory = structure_.memory();
    std::vector<ListItem> items;
    QSet<QString> changedAgain;
    for (const ListItem& item : pending.items)
        changedAgain << item.key;
    for (const auto& [key, write] : memory.unconfirmed()) {
        if (!changedAgain.contains(key))
            items.push_back(unconfirmedItem(session_, texts_, structure_, write));
    }
    for (ListItem item : pending.items) {
        const std::optional<QString> known = memory.valueOf(item.key);
        item.extra =
            known ? shownValue(session_, Extract_Key(item.key).IDPar, known) : texts_.own("pending.unknown");
        item.marks = memory.isUnconfirmed(item.key) ? int(kHoldsUnconfirmed) : 0;
        items.push_back(std::move(item));
    }
    const int unconfirmed = int(memory.unconfirmed().size());
    showItems(items);
    const bool none = items.empty();
    const bool read = pending.failure.isEmpty();
    pages_->setCurrentWidget(none && read ? nothing_ : static_cast<QWidget*>(view_));
    QStringList words;
    if (!read)
        words << pending.failure;
    else if (!pending.items.empty())
        words << texts_.own("pending.count").arg(pending.items.size());
    if (unconfirmed > 0)
        words << texts_.own("pending.unconfirmed").arg(unconfirmed);
    say(words.join('\n'));
    enableCommands();
}

// Only a change can be taken back whose former value somebody knows.
void frmPending::enableCommands()
{
    const QString key = view_->selectedKey();
    const bool selected = !key.isEmpty();
    const ListItem* item = results_.item(key);
    cmdReadWrite_->setEnabled(selected && session::rightOf(session_.CurrentUser.ReadWrite));
    cmdTakeBack_->setEnabled(item && item->icon == int(Image::ParameterChanged) &&
                             structure_.memory().valueOf(key) &&
                             session::rightOf(session_.CurrentUser.Modify));
}

void frmPending::openConsole()
{
    const QString key = view_->selectedKey();
    if (!key.isEmpty() && jumpTo(structure_, key))
        readWrite_();
    else
        say(texts_.own("find.gone"));
}

void frmPending::takeBack()
{
    platform::guarded("frmPending/Take_Back", [&] {
        const ListItem* selected = results_.item(view_->selectedKey());
        if (!selected)
            return;
        const ListItem item = *selected;
        const std::optional<QString> former = structure_.memory().valueOf(item.key);
        const platform::Question question{
            .text = texts_.own("pending.back.ask"),
            .more =
                QStringLiteral("%1\n%2: %3 \u2192 %4").arg(item.detail, item.text, item.subtext, item.extra),
            .title = session_.AppTitle,
            .destroys = true};
        const QString company = session_.dbFile();
        if (!former || operator_.ask(question) != platform::answers::kYes || session_.dbFile() != company)
            return;
        const KeyParts ids = Extract_Key(item.key);
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Edited);
        session_.cnDatabase.Execute(QStringLiteral(R"(UPDATE tbParametersUser SET [Value] = %1, State = 0
                                                      WHERE ((IDGrp = %2) AND (IDInst = %3) AND (IDPar = %4)
                                                         AND (State = 1));)")
                                        .arg(session::composeTextOrNull(*former), ids.IDGrp, ids.IDInst,
                                             session::Compose_SqlText(ids.IDPar)));
        structure_.reloadList();
    });
    refresh();
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
    cmdTakeBack_->setText(texts_.own("pending.back"));
    cmdReadWrite_->setText(texts_.own("pending.readwrite"));
    cmdRefresh_->setShortcut(Qt::Key_F5); // a new caption takes the old shortcut away
    refresh();
}

} // namespace structure
