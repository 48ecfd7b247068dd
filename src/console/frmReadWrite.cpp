#include "console/frmReadWrite.h"

#include "bus/StatusPanels.h"
#include "console/Console.h"
#include "console/ConsoleModel.h"
#include "console/widgets/LineDelegate.h"
#include "platform/Guard.h"
#include "platform/widgets/DesktopOperator.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"
#include "widgets/PlainToolTip.h"
#include "widgets/SortHeader.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace console {

using platform::icon;
using widgets::kTag;

namespace {

constexpr int kRefreshMilliseconds = 1000;
constexpr QSize kPanelPicture(16, 16);

void setTag(QObject* object, int tag)
{
    object->setProperty(kTag, QString::number(tag));
}

} // namespace

frmReadWrite::frmReadWrite(const Surroundings& with, const QString& key, QWidget* parent)
    : QDialog(parent), session_(with.session), texts_(with.texts), operator_(with.op), console_(with.console),
      model_(with.model), staMain_(with.panels)
{
    setObjectName("frmReadWrite");
    setTag(this, 274);
    setWindowTitle(session_.AppTitle + "\\Leggi/Scrivi");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(780, 540);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->setMenuBar(makeMenus());
    layout->addWidget(makeToolbar());
    layout->addWidget(makeHeading());
    layout->addWidget(makeList(), 1);
    layout->addWidget(makeConcerns());
    layout->addWidget(makeStatusBar());

    connect(&model_, &ConsoleModel::changed, this, &frmReadWrite::showCommands);
    connect(&model_, &ConsoleModel::changed, this, &frmReadWrite::showActivity);
    connect(&model_, &ConsoleModel::lineAdded, this, &frmReadWrite::selectLine);
    connect(&model_, &ConsoleModel::concernsChanged, this, &frmReadWrite::showConcerns);
    connect(&tmrRefresh_, &QTimer::timeout, this, &frmReadWrite::tmrRefresh_Timer);

    connect(&model_, &ConsoleModel::operationOver, this, &frmReadWrite::tellOperationOver,
            Qt::QueuedConnection);

    console_.load(key);
    console_.groupName();
    showUnwritten();
    widgets::Set_Language(*this, session_, texts_, operator_);
    tmrRefresh_Timer();
    tmrRefresh_.start(kRefreshMilliseconds);
    lvwItems_->setFocus();
}

frmReadWrite::~frmReadWrite() = default;

QMenuBar* frmReadWrite::makeMenus()
{
    auto* bar = new QMenuBar(this);
    mnuFile_ = bar->addMenu(QStringLiteral("File"));
    mnuFile_->setObjectName("mnuFile");
    setTag(mnuFile_, 108);
    mnuConnect_ = addCommand(*mnuFile_, "mnuConnect", 268, nullptr);
    mnuConnect_->setShortcut(Qt::Key_F6);
    connect(mnuConnect_, &QAction::triggered, this, [this] { runSettled(&Console::Connect); });
    mnuDisconnect_ = addCommand(*mnuFile_, "mnuDisconnect", 269, nullptr);
    mnuDisconnect_->setShortcut(Qt::SHIFT | Qt::Key_F6);
    connect(mnuDisconnect_, &QAction::triggered, this, [this] { runSettled(&Console::Disconnect); });
    mnuFile_->addSeparator();
    mnuAutoDisconnect_ = addCommand(*mnuFile_, "mnuAutoDisconnect", 270, &Console::Set_AutoDisconnect);
    mnuAutoDisconnect_->setCheckable(true);
    mnuSimulator_ = addCommand(*mnuFile_, "mnuSimulator", 271, nullptr);
    mnuSimulator_->setCheckable(true);
    connect(mnuSimulator_, &QAction::triggered, this, [this] { console_.Set_Simulator(true); });
    mnuFile_->addSeparator();
    mnuExit_ = addCommand(*mnuFile_, "mnuExit", 83, nullptr);
    connect(mnuExit_, &QAction::triggered, this, &QWidget::close);

    mnuCommands_ = bar->addMenu(QStringLiteral("Commands"));
    mnuCommands_->setObjectName("mnuCommands");
    setTag(mnuCommands_, 116);
    mnuRead_ = addCommand(*mnuCommands_, "mnuRead", 272, &Console::Read_Param);
    mnuWrite_ = addCommand(*mnuCommands_, "mnuWrite", 273, &Console::Write_Param);
    mnuRead_->setShortcut(Qt::Key_F7);
    mnuWrite_->setShortcut(Qt::Key_F8);
    return bar;
}

QAction* frmReadWrite::addCommand(QMenu& menu, const char* name, int tag, void (Console::*command)())
{
    QAction* action = menu.addAction(QString());
    action->setObjectName(name);
    setTag(action, tag);
    if (command)
        connect(action, &QAction::triggered, this, [this, command] { (console_.*command)(); });
    return action;
}

void frmReadWrite::runSettled(void (Console::*command)())
{
    if (settling_)
        return;
    settling_ = true;
    const auto run = [this, command] {
        const QPointer<frmReadWrite> window(this);
        QGuiApplication::sync();
        if (!window)
            return;
        settling_ = false;
        if (isVisible())
            (console_.*command)();
        if (window)
            tmrRefresh_Timer();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

QToolBar* frmReadWrite::makeToolbar()
{
    auto* toolbar = new QToolBar(this);
    toolbar->setObjectName("tlbMain");
    const int size = session_.ToolbarSet.Icons ? 32 : 16;
    toolbar->setIconSize({size, size});
    connect_ = addButton(*toolbar, "Connect", "connect", 275, mnuConnect_);
    disconnect_ = addButton(*toolbar, "Disconnect", "disconnect", 276, mnuDisconnect_);
    toolbar->addSeparator();
    autoDisconnect_ = addButton(*toolbar, "AutoDisconnect", "auto-disconnect", 277, mnuAutoDisconnect_);
    simulator_ = addButton(*toolbar, "Simulator", "simulator", 278, mnuSimulator_);
    toolbar->addSeparator();
    read_ = addButton(*toolbar, "Read", "read", 279, mnuRead_);
    write_ = addButton(*toolbar, "Write", "write", 280, mnuWrite_);
    toolbar->addSeparator();
    exit_ = addButton(*toolbar, "Exit", "exit", 56, mnuExit_);
    return toolbar;
}

// A button does what its menu entry does, but is enabled by a rule of its own.
QAction* frmReadWrite::addButton(QToolBar& toolbar, const char* key, const QString& iconName, int tag,
                                 QAction* command)
{
    auto* button = new QAction(icon(iconName), QString(), &toolbar);
    button->setObjectName(key);
    button->setCheckable(command->isCheckable());
    setTag(button, tag);
    toolbar.addAction(button);
    connect(button, &QAction::triggered, command,
            [command] { emit command->triggered(command->isChecked()); });
    return button;
}

QWidget* frmReadWrite::makeHeading()
{
    auto* heading = new QWidget(this);
    heading->setObjectName("heading");
    auto* layout = new QVBoxLayout(heading);
    layout->setContentsMargins(10, 6, 10, 6);
    layout->setSpacing(2);
    lblGroup_ = new QLabel(heading);
    lblGroup_->setObjectName("lblGroup");
    lblGroup_->setTextFormat(Qt::PlainText);
    QFont bold = lblGroup_->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    lblGroup_->setFont(bold);
    lblItem_ = new QLabel(heading);
    lblItem_->setObjectName("lblItem");
    lblItem_->setTextFormat(Qt::PlainText);
    lblActivity_ = new QLabel(heading);
    lblActivity_->setObjectName("lblActivity");
    lblActivity_->setTextFormat(Qt::PlainText);
    lblActivity_->setWordWrap(true);
    prgLoad_ = new QProgressBar(heading);
    prgLoad_->setObjectName("prgLoad");
    prgLoad_->setRange(0, 100);
    prgLoad_->setTextVisible(false);
    prgLoad_->setFixedHeight(10);
    // The place stays when the bar hides, so that the list doesn't jump.
    QSizePolicy keep = prgLoad_->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    prgLoad_->setSizePolicy(keep);
    lblUnwritten_ = new QLabel(heading);
    lblUnwritten_->setObjectName("lblUnwritten");
    lblUnwritten_->hide();
    cmdLeaveOther_ = new QPushButton(icon("disconnect"), QStringLiteral("-"), heading);
    cmdLeaveOther_->setObjectName("cmdLeaveOther");
    setTag(cmdLeaveOther_, 269);
    cmdLeaveOther_->setAutoDefault(false);
    cmdLeaveOther_->hide();
    connect(cmdLeaveOther_, &QPushButton::clicked, mnuDisconnect_, &QAction::trigger);
    auto* activity = new QHBoxLayout;
    activity->addWidget(lblActivity_, 1);
    activity->addWidget(cmdLeaveOther_);
    auto* place = new QHBoxLayout;
    place->setSpacing(10);
    place->addWidget(lblGroup_);
    place->addWidget(lblItem_, 1, Qt::AlignBottom);
    layout->addLayout(place);
    cmdChanged_ = new QPushButton(icon("history"), {}, heading);
    cmdChanged_->setObjectName("cmdChanged");
    cmdChanged_->setAutoDefault(false);
    cmdChanged_->hide();
    connect(cmdChanged_, &QPushButton::clicked, this, [this] { model_.showChanges(); });
    activity->addWidget(cmdChanged_);
    layout->addLayout(activity);
    layout->addWidget(lblUnwritten_);
    layout->addWidget(prgLoad_);
    return heading;
}

QWidget* frmReadWrite::makeList()
{
    lvwItems_ = new QTreeView(this);
    header_ = new widgets::SortHeader(lvwItems_);
    lvwItems_->setObjectName("lvwItems");
    lvwItems_->setModel(&model_.log());
    lvwItems_->setRootIsDecorated(false);
    lvwItems_->setUniformRowHeights(true);
    lvwItems_->setAlternatingRowColors(true);
    lvwItems_->setFrameShape(QFrame::NoFrame);
    lvwItems_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvwItems_->installEventFilter(this);
    lvwItems_->setItemDelegate(new LineDelegate(lvwItems_));
    lvwItems_->setHeader(header_);
    header_->setSectionsClickable(true);
    header_->resizeSection(0, fontMetrics().horizontalAdvance(QStringLiteral("0000/00/00 00:00:00")) + 28);
    connect(header_, &QHeaderView::sectionClicked, this, [this](int column) {
        model_.log().clickColumn(column);
        showSortArrows();
    });
    return lvwItems_;
}

QWidget* frmReadWrite::makeConcerns()
{
    concerns_ = new QWidget(this);
    concerns_->setObjectName("failedChecks");
    auto* layout = new QVBoxLayout(concerns_);
    layout->setContentsMargins(10, 6, 10, 6);
    layout->setSpacing(4);
    auto* line = new QHBoxLayout;
    auto* picture = new QLabel(concerns_);
    picture->setObjectName("concernsSign");
    picture->setPixmap(icon("warning").pixmap(kPanelPicture, devicePixelRatio()));
    lblConcerns_ = new QLabel(concerns_);
    lblConcerns_->setObjectName("lblFailed");
    lblConcerns_->setTextFormat(Qt::PlainText);
    line->addWidget(picture);
    line->addWidget(lblConcerns_, 1);
    lvwConcerns_ = new QListWidget(concerns_);
    lvwConcerns_->setObjectName("lvwFailed");
    connect(lvwConcerns_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { goToFailed(lvwConcerns_->row(item)); });
    lvwConcerns_->setMaximumHeight(fontMetrics().lineSpacing() * 5);
    layout->addLayout(line);
    layout->addWidget(lvwConcerns_);
    concerns_->hide();
    return concerns_;
}

QWidget* frmReadWrite::makeStatusBar()
{
    auto* bar = new QStatusBar(this);
    bar->setObjectName("staReadWrite");
    comSetPicture_ = new QLabel(bar);
    comSetPicture_->setObjectName("COMSetPicture");
    comSetText_ = new QLabel(bar);
    comSetText_->setObjectName("COMSet");
    info_ = new QLabel(bar);
    info_->setObjectName("Info");
    for (QLabel* panel : {comSetText_, info_})
        panel->setTextFormat(Qt::PlainText);
    bar->addWidget(comSetPicture_);
    bar->addWidget(comSetText_);
    bar->addWidget(info_, 1);
    return bar;
}

void frmReadWrite::showCommands()
{
    const ConsoleStates& states = model_.commands();
    mnuFile_->setEnabled(states.mnuFile);
    mnuConnect_->setEnabled(states.mnuConnect);
    mnuDisconnect_->setEnabled(states.mnuDisconnect);
    mnuAutoDisconnect_->setEnabled(states.mnuAutoDisconnect);
    mnuSimulator_->setEnabled(states.mnuSimulator);
    mnuCommands_->setEnabled(states.mnuCommands);
    const Situation situation = console_.situation();
    connect_->setEnabled(states.Connect && !situation.callComesIn);
    cmdLeaveOther_->setVisible(!situation.otherGroup.isEmpty());
    console_.keepSimulator();
    disconnect_->setEnabled(states.Disconnect);
    autoDisconnect_->setEnabled(states.AutoDisconnect);
    simulator_->setEnabled(states.Simulator);
    read_->setEnabled(states.Read);
    write_->setEnabled(states.Write);
    exit_->setEnabled(states.Exit);
    for (QAction* toggle : {mnuAutoDisconnect_, autoDisconnect_})
        toggle->setChecked(model_.autoDisconnectPressed());
    for (QAction* toggle : {mnuSimulator_, simulator_})
        toggle->setChecked(model_.simulatorPressed());
}

void frmReadWrite::showActivity()
{
    lblActivity_->setText(model_.activity(texts_, console_.situation()));
    prgLoad_->setVisible(model_.progressVisible());
    prgLoad_->setValue(model_.shownProgress());
    const std::optional<int> changed = model_.changedValues();
    cmdChanged_->setVisible(changed.has_value());
    cmdChanged_->setEnabled(changed.value_or(0) > 0);
    cmdChanged_->setText(changed.value_or(0) > 0 ? texts_.own("console.changed").arg(*changed)
                                                 : texts_.own("console.changed.none"));
}

// Before a read: it takes what is changed here and not yet written.
void frmReadWrite::showUnwritten()
{
    const int unwritten = console_.unwritten();
    lblUnwritten_->setText(texts_.own("console.replaced.before").arg(unwritten));
    lblUnwritten_->setVisible(unwritten > 0);
}

void frmReadWrite::tellOperationOver()
{
    console_.tellReplaced();
    showUnwritten();
}

// The parameter is shown in the plant behind; a console that may close leaves the operator there.
void frmReadWrite::goToFailed(int row)
{
    if (row >= model_.failedChecks().size())
        return;
    const QString key = model_.failedChecks()[row].check.key;
    const bool free = console_.mayClose();
    if (free && !close())
        return;
    console_.showParameter(key);
}

// Beside the words of the catalogue: what the button is for, and its key.
void frmReadWrite::showHints()
{
    const std::tuple<QAction*, QAction*, QString> hints[] = {
        {connect_, mnuConnect_, {}},
        {disconnect_, mnuDisconnect_, {}},
        {simulator_, mnuSimulator_, texts_.own("console.direct")},
        {read_, mnuRead_, {}},
        {write_, mnuWrite_, {}}};
    for (const auto& [button, entry, words] : hints) {
        QString tip = button->toolTip();
        if (!words.isEmpty())
            tip += '\n' + words;
        if (!entry->shortcut().isEmpty())
            tip += " (" + entry->shortcut().toString(QKeySequence::NativeText) + ')';
        button->setToolTip(tip);
    }
}

void frmReadWrite::showConcerns()
{
    const QList<ConsoleModel::Failed>& failed = model_.failedChecks();
    const QList<ConsoleModel::Doubt>& doubts = model_.doubts();
    QStringList headings;
    if (!failed.isEmpty())
        headings << texts_.own("write.failed.count").arg(failed.size());
    if (!doubts.isEmpty())
        headings << texts_.own("read.doubtful.count").arg(doubts.size());
    lblConcerns_->setText(headings.join(QStringLiteral("  \u00b7  ")));
    lvwConcerns_->clear();
    for (const ConsoleModel::Failed& one : failed)
        lvwConcerns_->addItem(console_.failedCheckWords(one));
    for (const ConsoleModel::Doubt& doubt : doubts)
        lvwConcerns_->addItem(texts_.own("read.doubtful").arg(doubt.item).arg(doubt.bytes));
    // A line may be longer than the window.
    for (int row = 0; row < lvwConcerns_->count(); ++row)
        lvwConcerns_->item(row)->setToolTip(widgets::plainToolTip(lvwConcerns_->item(row)->text()));
    concerns_->setVisible(!headings.isEmpty());
}

void frmReadWrite::showSortArrows()
{
    header_->setArrow(model_.log().sortColumn(), model_.log().sortAscending());
}

void frmReadWrite::selectLine(int row)
{
    const QModelIndex line = model_.log().index(row, 0);
    lvwItems_->setCurrentIndex(line);
    lvwItems_->scrollTo(line);
}

void frmReadWrite::tmrRefresh_Timer()
{
    const QIcon picture = platform::imageOf(staMain_.picture(bus::Panel::COMSet));
    comSetPicture_->setPixmap(picture.pixmap(kPanelPicture, devicePixelRatio()));
    comSetText_->setText(staMain_.text(bus::Panel::COMSet));
    info_->setText(staMain_.text(bus::Panel::Info));
    showCommands();
    showActivity();
}

void frmReadWrite::closeEvent(QCloseEvent* event)
{
    if (!console_.mayClose() && !property(platform::kClosedByProgram).toBool()) {
        event->ignore();
        return;
    }
    console_.unload();
    QDialog::closeEvent(event);
}

void frmReadWrite::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        console_.interrupt();
    else
        QDialog::keyPressEvent(event);
}

bool frmReadWrite::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lvwItems_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        console_.interrupt();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmReadWrite::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        platform::guarded("Module/Set_Language", [this] {
            model_.log().setColumnCaptions(
                {texts_(session::rows::kDate), texts_(session::rows::kDescription)});
        });
        lblGroup_->setText(console_.situation().group);
        lblItem_->setText(console_.itemPath());
        showCommands();
        showActivity();
        showConcerns();
        showUnwritten();
        showHints();
    }
    QDialog::changeEvent(event);
}

} // namespace console
