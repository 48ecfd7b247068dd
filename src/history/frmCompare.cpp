#include "history/frmCompare.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Printer.h"
#include "platform/widgets/Icons.h"
#include "session/Printing.h"
#include "session/SaveLines.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"
#include "widgets/ImageDelegate.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace history {

namespace {

constexpr int kColumnWidths[] = {300, 190, 220};
constexpr int kRowPadding = 2;

} // namespace

frmCompare::frmCompare(const Surroundings& with)
    : with_(with), model_(with.texts), lblElement_(new QLabel(this)), lblWith_(new QLabel(this)),
      cbxWith_(new QComboBox(this)), chkAll_(new QCheckBox(this)), lvwCompare_(new QTreeView(this)),
      lblCount_(new QLabel(this)), cmdShow_(new QPushButton(this)),
      cmdPrint_(new QPushButton(platform::icon("print"), {}, this)),
      cmdSave_(new QPushButton(platform::icon("export"), {}, this)), cmdClose_(new QPushButton(this)),
      job_(*this, [this](const Comparison& comparison) { showComparison(comparison); })
{
    setObjectName("frmCompare");
    setWindowIcon(platform::icon("compare"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    layOut();
    listen();
    widgets::Set_Language(*this, with_.session, with_.texts, with_.op);
}

void frmCompare::layOut()
{
    lblElement_->setObjectName("lblElement");
    lblElement_->setTextFormat(Qt::PlainText);
    QFont bold = lblElement_->font();
    bold.setBold(true);
    lblElement_->setFont(bold);
    lblWith_->setObjectName("lblWith");
    lblWith_->setBuddy(cbxWith_);
    cbxWith_->setObjectName("cbxWith");
    cbxWith_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cbxWith_->setMinimumContentsLength(30);
    chkAll_->setObjectName("chkAll");
    lblCount_->setObjectName("lblCount");
    lblCount_->setTextFormat(Qt::PlainText);
    lblCount_->setWordWrap(true);
    lvwCompare_->setObjectName("lvwCompare");
    lvwCompare_->setModel(&model_);
    lvwCompare_->setUniformRowHeights(true);
    lvwCompare_->setAllColumnsShowFocus(true);
    lvwCompare_->setAlternatingRowColors(true);
    lvwCompare_->setExpandsOnDoubleClick(false);
    auto* delegate = new widgets::ImageDelegate(lvwCompare_);
    delegate->setRowPadding(kRowPadding);
    lvwCompare_->setItemDelegate(delegate);
    lvwCompare_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int column = 0; column < int(std::size(kColumnWidths)); ++column)
        lvwCompare_->header()->resizeSection(column, kColumnWidths[column]);

    auto* head = new QHBoxLayout;
    head->setSpacing(10);
    head->addWidget(lblElement_);
    head->addSpacing(10);
    head->addWidget(lblWith_);
    head->addWidget(cbxWith_, 1);
    auto* counts = new QHBoxLayout;
    counts->addWidget(lblCount_, 1);
    counts->addWidget(chkAll_);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    const std::pair<QPushButton*, const char*> buttons[] = {
        {cmdShow_, "cmdShow"}, {cmdPrint_, "cmdPrint"}, {cmdSave_, "cmdSave"}, {cmdClose_, "cmdClose"}};
    for (const auto& [button, name] : buttons) {
        button->setObjectName(name);
        button->setAutoDefault(false);
        bottom->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addLayout(head);
    layout->addLayout(counts);
    layout->addWidget(lvwCompare_, 1);
    layout->addLayout(bottom);
    resize(900, 580);
}

void frmCompare::listen()
{
    connect(cbxWith_, &QComboBox::activated, this, &frmCompare::choose);
    connect(chkAll_, &QCheckBox::toggled, this, [this](bool all) {
        const QString selected = model_.keyAt(lvwCompare_->currentIndex());
        model_.setAll(all);
        showRows(selected);
    });
    connect(lvwCompare_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmCompare::showCommands);
    connect(lvwCompare_, &QAbstractItemView::activated, this, &frmCompare::take);
    connect(cmdShow_, &QPushButton::clicked, this, &frmCompare::take);
    connect(cmdPrint_, &QPushButton::clicked, this, &frmCompare::print);
    connect(cmdSave_, &QPushButton::clicked, this, &frmCompare::save);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCompare::open(const QString& key)
{
    platform::guarded("frmCompare/Compare_With", [&] {
        key_ = key;
        elements_ = comparableWith(with_.session.dbFile(), key);
        chosen_ = {};
        entry_ = 0;
        model_.setComparison({}); // it was another element's
        showCommands();
        lblElement_->setText(with_.pathOf(key));
        offer();
        refresh();
        cbxWith_->setFocus();
    });
}

// The defaults first, then the company's own, then the two that ask for a file.
void frmCompare::offer()
{
    cbxWith_->clear();
    cbxWith_->addItem(with_.texts.own("compare.defaults"));
    for (const Comparable& element : elements_)
        cbxWith_->addItem(element.name);
    cbxWith_->insertSeparator(cbxWith_->count());
    for (const char* file : {"compare.company", "compare.trace"})
        cbxWith_->addItem(with_.texts.own(file));
    cbxWith_->setCurrentIndex(entry_);
}

void frmCompare::choose(int entry)
{
    CompareWith with;
    const int elements = int(elements_.size());
    if (entry > elements) {
        with.kind = entry == elements + 2 ? CompareWith::Kind::Company : CompareWith::Kind::Trace;
        const std::optional<QString> file = askFile(with.kind);
        if (!file) {
            cbxWith_->setCurrentIndex(entry_);
            return;
        }
        with.file = *file;
    } else if (entry > 0) {
        with.kind = CompareWith::Kind::Element;
        with.key = elements_[std::size_t(entry - 1)].key;
    }
    chosen_ = with;
    entry_ = entry;
    refresh();
}

std::optional<QString> frmCompare::askFile(CompareWith::Kind kind)
{
    const bool company = kind == CompareWith::Kind::Company;
    const QString folder = company ? with_.session.DirBackup : with_.session.DirImport;
    try {
        return with_.op.openFile({with_.texts.own(company ? "compare.company" : "compare.trace"),
                                  company ? with_.texts.own("compare.files") : with_.texts(286),
                                  {},
                                  folder.isEmpty() ? with_.session.DbPath : folder});
    } catch (const platform::RuntimeError&) {
        return std::nullopt; // cancelled
    }
}

void frmCompare::refresh()
{
    if (with_.session.DbName.isEmpty() || key_.isEmpty())
        return;
    lblCount_->setText(with_.texts.own("pending.reading"));
    const CompareRequest request{with_.session.dbFile(), with_.session.Language.Code, key_, chosen_,
                                 with_.readTrace};
    job_.start([request](const structure::StopFlag& stop) { return compare(request, stop); });
}

void frmCompare::showComparison(const Comparison& comparison)
{
    const QString selected = model_.keyAt(lvwCompare_->currentIndex());
    model_.setComparison(comparison);
    showRows(selected);
}

// What was selected stays so where it is still listed.
void frmCompare::showRows(const QString& selected)
{
    lvwCompare_->expandAll();
    for (int group = 0; group < model_.rowCount(); ++group)
        lvwCompare_->setFirstColumnSpanned(group, {}, true);
    const QModelIndex former = model_.indexOf(selected);
    lvwCompare_->setCurrentIndex(former.isValid() ? former : model_.index(0, 0, model_.index(0, 0)));
    const QString& failure = model_.comparison().failure;
    lblCount_->setText(failure.isEmpty() ? model_.counts() : failure);
    showCommands();
}

void frmCompare::showCommands()
{
    cmdShow_->setEnabled(!model_.keyAt(lvwCompare_->currentIndex()).isEmpty());
    cmdPrint_->setEnabled(model_.rowCount() > 0);
    cmdSave_->setEnabled(model_.rowCount() > 0);
}

void frmCompare::take()
{
    const QString key = model_.keyAt(lvwCompare_->currentIndex());
    if (!key.isEmpty() && !with_.show(key))
        lblCount_->setText(with_.texts.own("find.gone"));
}

void frmCompare::save()
{
    platform::guarded("frmCompare/Export_List", [this] {
        auto& [session, texts, op, printing, show, pathOf, readTrace] = with_;
        if (session::saveLines(session, texts, op, texts.own("history.file"), model_.lines()))
            op.messageBox(texts(509), platform::Buttons::Ok, platform::Icon::Information, session.AppTitle);
    });
}

void frmCompare::print()
{
    platform::guarded("frmCompare/Print_List", [this] {
        const QString title = with_.texts.own("compare.title") + ": " + lblElement_->text();
        with_.printing.print({title, platform::Orientation::Landscape,
                              [&](platform::Printer& printer) { model_.print(printer, title); }});
    });
}

void frmCompare::relabel()
{
    const session::Texts& texts = with_.texts;
    setWindowTitle(with_.session.AppTitle + '\\' + texts.own("compare.title"));
    lblWith_->setText(texts.own("compare.with"));
    chkAll_->setText(texts.own("compare.all"));
    cmdShow_->setText(texts.own("find.show"));
    cmdPrint_->setText(texts.own("compare.print"));
    cmdSave_->setText(texts.own("history.save"));
    cmdClose_->setText(texts.own("find.close"));
    cbxWith_->setAccessibleName(texts.own("compare.with"));
    lvwCompare_->setAccessibleName(texts.own("compare.title"));
    if (key_.isEmpty())
        return;
    lblElement_->setText(with_.pathOf(key_));
    offer();
    model_.relabel();
    refresh(); // descriptions are the language's
}

// Whoever comes back may have changed what is compared.
bool frmCompare::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        refresh();
    return QDialog::event(event);
}

void frmCompare::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

} // namespace history
