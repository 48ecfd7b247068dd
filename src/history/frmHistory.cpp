#include "history/frmHistory.h"

#include "history/widgets/ValuePlot.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/widgets/Icons.h"
#include "session/SaveLines.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/NodeKey.h"
#include "widgets/FormLanguage.h"
#include "widgets/ImageDelegate.h"
#include "widgets/NarrowField.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDateTime>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace history {

namespace {

constexpr int kColumnWidths[] = {140, 190, 145, 90, 90, 160, 175};
constexpr int kRowPadding = 2;

} // namespace

frmHistory::frmHistory(const Surroundings& with)
    : with_(with), model_(with.texts), lblElement_(new QLabel(this)),
      txtNarrow_(new widgets::NarrowField(this)), chkLast_(new QCheckBox(this)),
      chkFailed_(new QCheckBox(this)), lvwHistory_(new QTreeView(this)),
      plot_(new ValuePlot(with.texts, this)), lblCount_(new QLabel(this)),
      cmdTakeOver_(new QPushButton(this)), cmdShow_(new QPushButton(this)),
      cmdSave_(new QPushButton(platform::icon("export"), {}, this)), cmdClose_(new QPushButton(this)),
      job_(*this, [this](const HistoryPage& page) { showPage(page); })
{
    setObjectName("frmHistory");
    setWindowIcon(platform::icon("history"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    layOut();
    listen();
    widgets::Set_Language(*this, with_.session, with_.texts, with_.op);
}

void frmHistory::layOut()
{
    lblElement_->setObjectName("lblElement");
    lblElement_->setTextFormat(Qt::PlainText);
    lblElement_->setWordWrap(true);
    QFont bold = lblElement_->font();
    bold.setBold(true);
    lblElement_->setFont(bold);
    chkLast_->setObjectName("chkLast");
    chkFailed_->setObjectName("chkFailed");
    lvwHistory_->setObjectName("lvwHistory");
    lvwHistory_->setModel(&model_);
    lvwHistory_->setRootIsDecorated(false);
    lvwHistory_->setItemsExpandable(false);
    lvwHistory_->setUniformRowHeights(true);
    lvwHistory_->setAllColumnsShowFocus(true);
    lvwHistory_->setAlternatingRowColors(true);
    auto* delegate = new widgets::ImageDelegate(lvwHistory_);
    delegate->setRowPadding(kRowPadding);
    lvwHistory_->setItemDelegate(delegate);
    lvwHistory_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int column = 0; column < int(std::size(kColumnWidths)); ++column)
        lvwHistory_->header()->resizeSection(column, kColumnWidths[column]);
    plot_->setObjectName("plot");
    lblCount_->setObjectName("lblCount");
    lblCount_->setTextFormat(Qt::PlainText);
    lblCount_->setWordWrap(true);
    const std::pair<QPushButton*, const char*> buttons[] = {
        {cmdTakeOver_, "cmdTakeOver"}, {cmdShow_, "cmdShow"}, {cmdSave_, "cmdSave"}, {cmdClose_, "cmdClose"}};
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblCount_, 1);
    for (const auto& [button, name] : buttons) {
        button->setObjectName(name);
        button->setAutoDefault(false);
        bottom->addWidget(button);
    }
    auto* narrowing = new QHBoxLayout;
    narrowing->setSpacing(12);
    narrowing->addWidget(txtNarrow_, 1);
    narrowing->addWidget(chkLast_);
    narrowing->addWidget(chkFailed_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(lblElement_);
    layout->addLayout(narrowing);
    layout->addWidget(lvwHistory_, 1);
    layout->addWidget(plot_);
    layout->addLayout(bottom);
    resize(1120, 640);
}

void frmHistory::listen()
{
    connect(txtNarrow_, &widgets::NarrowField::listWanted, lvwHistory_, qOverload<>(&QWidget::setFocus));
    connect(txtNarrow_, &widgets::NarrowField::narrowed, this, &frmHistory::narrow);
    for (QCheckBox* box : {chkLast_, chkFailed_}) {
        connect(box, &QCheckBox::clicked, this, [this] {
            operation_.reset();
            showHeading();
            refresh();
        });
    }
    connect(lvwHistory_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmHistory::showCommands);
    connect(lvwHistory_, &QAbstractItemView::activated, this, [this] { cmdShow_->click(); });
    connect(cmdTakeOver_, &QPushButton::clicked, this, [this] {
        if (const ShownNote* note = current(); note && cmdTakeOver_->isEnabled())
            with_.takeOver(note->key, note->newState ? note->newValue : note->oldValue);
    });
    connect(cmdShow_, &QPushButton::clicked, this, [this] {
        if (const ShownNote* note = current(); note && !with_.show(note->key))
            lblCount_->setText(with_.texts.own("find.gone"));
    });
    connect(cmdSave_, &QPushButton::clicked, this, &frmHistory::save);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmHistory::open(const QString& key, std::optional<qint64> operation)
{
    const bool other = key != key_;
    key_ = key;
    operation_ = operation;
    if (other || operation) {
        chkLast_->setChecked(false);
        chkFailed_->setChecked(false);
        txtNarrow_->clear();
        model_.setNotes({});
        narrow();
    }
    showHeading();
    refresh();
}

bool frmHistory::isOneParameter() const
{
    return structure::Extract_Level(key_) == structure::kParameter;
}

void frmHistory::refresh()
{
    if (with_.session.DbName.isEmpty() || key_.isEmpty())
        return;
    lblCount_->setText(with_.texts.own("pending.reading"));
    const PageRequest request{with_.session.dbFile(), with_.session.Language.Code, key_,
                              chkLast_->isChecked(),  chkFailed_->isChecked(),     operation_};
    job_.start([request](const structure::StopFlag& stop) { return readHistory(request, stop); });
}

void frmHistory::showPage(const HistoryPage& page)
{
    const ShownNote* before = current();
    const qint64 number = before ? before->number : -1;
    if (isOneParameter() && !chkFailed_->isChecked() && !chkLast_->isChecked() && !operation_)
        plot_->setPlot(plotOf(page, with_.clock.now().toMSecsSinceEpoch()));
    else
        plot_->setPlot({});
    plot_->setVisible(plot_->plot().form != Plot::Form::None);
    page_ = page;
    page_.notes.clear();
    model_.setNotes(page.notes);
    int row = 0;
    for (int i = 0; i < model_.rowCount(); ++i) {
        if (model_.noteAt(i)->number == number)
            row = i;
    }
    lvwHistory_->setCurrentIndex(model_.index(row, 0));
    lvwHistory_->setColumnHidden(HistoryModel::Place, isOneParameter());
    lvwHistory_->setColumnHidden(HistoryModel::Parameter, isOneParameter());
    showCommands();
    showCount();
}

void frmHistory::showHeading()
{
    const QString path = key_.isEmpty() ? QString() : with_.pathOf(key_);
    lblElement_->setText(operation_ ? with_.texts.own("history.operation").arg(path) : path);
}

void frmHistory::showCount()
{
    const QString count = with_.texts.own("history.count").arg(model_.rowCount());
    if (!page_.failure.isEmpty())
        lblCount_->setText(page_.failure);
    else if (model_.count() == 0)
        lblCount_->setText(with_.texts.own(operation_ ? "history.same" : "history.none"));
    else if (page_.more)
        lblCount_->setText(with_.texts.own("history.more").arg(model_.rowCount()));
    else
        lblCount_->setText(count);
}

void frmHistory::showCommands()
{
    const ShownNote* note = current();
    cmdShow_->setEnabled(note);
    cmdSave_->setEnabled(model_.rowCount() > 0);
    cmdTakeOver_->setEnabled(note && session::rightOf(with_.session.CurrentUser.Modify));
}

const ShownNote* frmHistory::current() const
{
    return model_.noteAt(lvwHistory_->currentIndex().row());
}

void frmHistory::narrow()
{
    txtNarrow_->settle();
    model_.setFilter(txtNarrow_->text());
    lvwHistory_->setCurrentIndex(model_.index(0, 0));
    showCommands();
    showCount();
}

void frmHistory::save()
{
    platform::guarded("frmHistory/Export_List", [this] {
        auto& [session, texts, op, clock, show, takeOver, pathOf] = with_;
        if (session::saveLines(session, texts, op, texts.own("history.file"), model_.lines()))
            op.messageBox(texts(509), platform::Buttons::Ok, platform::Icon::Information, session.AppTitle);
    });
}

void frmHistory::relabel()
{
    const session::Texts& texts = with_.texts;
    setWindowTitle(with_.session.AppTitle + '\\' + texts.own("history.title"));
    txtNarrow_->setPlaceholderText(texts.own("history.filter"));
    txtNarrow_->setAccessibleName(texts.own("history.filter"));
    lvwHistory_->setAccessibleName(texts.own("history.title"));
    chkLast_->setText(texts.own("history.last"));
    chkFailed_->setText(texts.own("history.failed"));
    cmdTakeOver_->setText(texts.own("history.take"));
    cmdTakeOver_->setToolTip(texts.own("history.take.tip"));
    cmdShow_->setText(texts.own("find.show"));
    cmdSave_->setText(texts.own("history.save"));
    cmdClose_->setText(texts.own("find.close"));
    plot_->relabel();
    model_.relabel();
    showHeading();
    refresh();
}

void frmHistory::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

bool frmHistory::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        refresh();
    return QDialog::event(event);
}

} // namespace history
