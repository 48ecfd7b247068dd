#include "events/frmEventViewer.h"

#include "events/EventViewer.h"
#include "events/widgets/EventView.h"
#include "events/widgets/TimelineStrip.h"
#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"
#include "widgets/PlainToolTip.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace events {

using platform::guarded;

namespace {

constexpr QSize kLargeIcons(32, 32);
constexpr QSize kSmallIcons(16, 16);
constexpr int kPauseMilliseconds = 150;
constexpr int kMostCharacters = 255;
constexpr int kProgressStep =
    4; // the bar paints itself at once, which would cost a fast load more than its reading

} // namespace

frmEventViewer::frmEventViewer(const Surroundings& with)
    : session_(with.session), texts_(with.texts), operator_(with.op), runCommand_(with.runCommand),
      viewer_(with.viewer), tlbMain_(nullptr), txtNarrow_(new QLineEdit(this)),
      timeline_(new TimelineStrip(with.texts, this)), lvwItems_(new EventView(with.viewer.list(), this)),
      prgLoad_(new QProgressBar(this))
{
    setObjectName("frmEventViewer");
    setProperty(widgets::kTag, "227");
    setWindowTitle(session_.AppTitle + QStringLiteral("\\Visualizzatore Eventi"));
    setWindowIcon(platform::icon("event-viewer"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    layOut();
    listen();
    viewer_.load();
    ResetIcon();
    widgets::Set_Language(*this, session_, texts_, operator_);
    viewer_.Read_Log();
}

frmEventViewer::~frmEventViewer()
{
    keepColumnWidths();
    // What the list tells while it is emptied concerns nobody any more.
    viewer_.disconnect(this);
    viewer_.list().disconnect(this);
    viewer_.unload();
}

void frmEventViewer::layOut()
{
    txtNarrow_->setObjectName("txtNarrow");
    txtNarrow_->setClearButtonEnabled(true);
    txtNarrow_->addAction(platform::icon("filter"), QLineEdit::LeadingPosition);
    txtNarrow_->setMaxLength(kMostCharacters);
    timeline_->setObjectName("timeline");
    lvwItems_->setObjectName("lvwItems");
    prgLoad_->setObjectName("prgLoad");
    prgLoad_->setRange(0, 100);
    prgLoad_->setTextVisible(false);
    prgLoad_->setFixedHeight(6);
    // The place stays when the bar hides, so that the list doesn't jump.
    QSizePolicy keep = prgLoad_->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    prgLoad_->setSizePolicy(keep);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->setMenuBar(makeMenus());
    layout->addWidget(makeToolbar());
    layout->addWidget(txtNarrow_);
    layout->addWidget(timeline_);
    layout->addWidget(lvwItems_, 1);
    layout->addWidget(prgLoad_);
    layout->addWidget(makeStatusBar());
    resize(980, 620);
}

QMenuBar* frmEventViewer::makeMenus()
{
    auto* bar = new QMenuBar(this);
    QMenu* file = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuFile", "108");
    mnuRefresh_ = addEntry(*file, "mnuRefresh", "228", [this] { viewer_.Read_Log(); });
    mnuRefresh_->setShortcut(Qt::Key_F5);
    mnuExport_ = addEntry(*file, "mnuExport", "229", [this] { viewer_.Export_List(); });
    mnuPrint_ = addEntry(*file, "mnuPrint", "81", [this] { viewer_.Print_List(); });
    mnuPrint_->setShortcut(QKeySequence::Print);
    file->addSeparator();
    addEntry(*file, "mnuExit", "83", [this] { close(); });

    QMenu* commands = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuCommands", "116");
    mnuCheck_ = addEntry(*commands, "mnuCheck", "230", [this] { viewer_.Check_List(); });
    mnuUncheck_ = addEntry(*commands, "mnuUncheck", "231", [this] { viewer_.UnCheck_List(); });
    commands->addSeparator();
    mnuCopy_ = addEntry(*commands, "mnuCopy", "120", [this] { copyRows(); });
    mnuCopy_->setShortcut(QKeySequence::Copy);
    mnuShow_ = addOwnEntry(*commands, "mnuShow", "event.show", {},
                           [this] { viewer_.Show_Event(lvwItems_->currentIndex().row()); });

    QMenu* view = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuView", "126");
    mnuAllEvents_ = addEntry(*view, "mnuAllEvents", "232", [this] { viewer_.All_Events(); });
    mnuFilterEvents_ = addEntry(*view, "mnuFilterEvents", "233", [this] { viewer_.Filter_Events(); });
    auto* choice = new QActionGroup(view);
    for (QAction* entry : {mnuAllEvents_, mnuFilterEvents_}) {
        entry->setCheckable(true);
        choice->addAction(entry);
    }
    addOwnEntry(*view, "mnuNarrow", "viewer.narrow", QKeySequence::Find, [this] { txtNarrow_->setFocus(); });
    view->addSeparator();
    addEntry(*view, "mnuTlbLargeIcons", "131", [this] { chooseIcons("TlbLargeIcons"); });
    addEntry(*view, "mnuTlbSmallIcons", "132", [this] { chooseIcons("TlbSmallIcons"); });
    return bar;
}

QAction* frmEventViewer::addEntry(QMenu& menu, const char* name, const char* tag,
                                  const std::function<void()>& command)
{
    QAction* entry = widgets::tagged(menu.addAction(QString()), name, tag);
    connect(entry, &QAction::triggered, this, command);
    return entry;
}

QAction* frmEventViewer::addOwnEntry(QMenu& menu, const char* name, const char* text,
                                     const QKeySequence& keys, const std::function<void()>& command)
{
    QAction* entry = addEntry(menu, name, "", command);
    entry->setProperty(widgets::kOwnText, text);
    entry->setShortcut(keys);
    return entry;
}

QToolBar* frmEventViewer::makeToolbar()
{
    tlbMain_ = new QToolBar(this);
    tlbMain_->setObjectName("tlbMain");
    addButton("Refresh", "refresh", "234", mnuRefresh_);
    tlbMain_->addSeparator();
    addButton("Export", "export", "235", mnuExport_);
    addButton("Print", "print", "236", mnuPrint_);
    tlbMain_->addSeparator();
    addButton("Filter", "filter", "237", mnuFilterEvents_);
    tlbMain_->addSeparator();
    addButton("Check", "select-all", "238", mnuCheck_);
    addButton("Uncheck", "unselect-all", "239", mnuUncheck_);
    tlbMain_->addSeparator();
    addButton("Exit", "exit", "56", findChild<QAction*>("mnuExit"));
    return tlbMain_;
}

// A button does what its menu entry does.
void frmEventViewer::addButton(const char* key, const char* icon, const char* tag, QAction* entry)
{
    auto* button = widgets::tagged(new QAction(platform::icon(icon), QString(), tlbMain_), key, tag);
    tlbMain_->addAction(button);
    connect(button, &QAction::triggered, entry, &QAction::trigger);
    connect(entry, &QAction::enabledChanged, button, &QAction::setEnabled);
}

QStatusBar* frmEventViewer::makeStatusBar()
{
    auto* bar = new QStatusBar(this);
    bar->setObjectName("staEventViewer");
    info_ = widgets::tagged(new QLabel(bar), "Info", "207");
    narrowed_ = widgets::tagged(new QLabel(bar), "Narrowed", "");
    unread_ = widgets::tagged(new QLabel(bar), "Unread", "");
    for (QLabel* panel : {info_, narrowed_, unread_}) {
        panel->setTextFormat(Qt::PlainText);
        panel->setContentsMargins(6, 0, 6, 0);
    }
    // A long file name must not hold the window wide.
    unread_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar->addWidget(info_);
    bar->addWidget(narrowed_);
    bar->addWidget(unread_, 1);
    return bar;
}

void frmEventViewer::listen()
{
    typing_.setSingleShot(true);
    typing_.setInterval(kPauseMilliseconds);
    connect(&typing_, &QTimer::timeout, this, &frmEventViewer::narrow);
    connect(txtNarrow_, &QLineEdit::textChanged, &typing_, qOverload<>(&QTimer::start));
    connect(txtNarrow_, &QLineEdit::returnPressed, this, [this] {
        narrow();
        lvwItems_->setFocus();
    });

    connect(timeline_, &TimelineStrip::chosen, this, [this](qint64 from, qint64 to) {
        const Timeline& timeline = timeline_->timeline();
        viewer_.list().setSpan(EventModel::Span{timeline.begin(from), timeline.end(to)});
    });
    connect(timeline_, &TimelineStrip::letGo, this, [this] { viewer_.list().setSpan({}); });

    connect(lvwItems_, &EventView::taken, &viewer_, &EventViewer::Show_Event);
    lvwItems_->setContextMenuPolicy(Qt::ActionsContextMenu);
    lvwItems_->addActions({mnuShow_, mnuCopy_});

    connect(&viewer_, &EventViewer::changed, this, &frmEventViewer::showState);
    connect(&viewer_, &EventViewer::leaveWanted, this, &QDialog::accept);
    connect(&viewer_.list(), &EventModel::rowsChanged, this, &frmEventViewer::showRows);
    connect(&viewer_.list(), &EventModel::sortingChanged, this, &frmEventViewer::showState);
}

void frmEventViewer::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    setColumnWidths();
    lvwItems_->setFocus();
}

// One sixth of the list each, until the operator has made them otherwise.
void frmEventViewer::setColumnWidths()
{
    for (int column = 0; column < kEventColumns; ++column) {
        const int kept = viewer_.columnWidths[std::size_t(column)];
        lvwItems_->header()->resizeSection(column, kept > 0 ? kept : lvwItems_->width() / kEventColumns);
    }
}

void frmEventViewer::keepColumnWidths()
{
    for (int column = 0; column < kEventColumns; ++column)
        viewer_.columnWidths[std::size_t(column)] = lvwItems_->columnWidth(column);
}

// The main window's own command: its toolbar follows as well.
void frmEventViewer::chooseIcons(const QString& command)
{
    runCommand_(command);
    ResetIcon();
}

void frmEventViewer::ResetIcon()
{
    tlbMain_->setIconSize(session_.ToolbarSet.Icons ? kLargeIcons : kSmallIcons);
}

void frmEventViewer::copyRows()
{
    const QString text = viewer_.list().rowsText(lvwItems_->selectedRows());
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void frmEventViewer::narrow()
{
    typing_.stop();
    viewer_.list().setNeedle(txtNarrow_->text());
}

// Escape shows all again before it closes the window.
void frmEventViewer::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || txtNarrow_->text().isEmpty()) {
        QDialog::keyPressEvent(event);
        return;
    }
    txtNarrow_->clear();
    narrow();
    lvwItems_->setFocus();
}

void frmEventViewer::showState()
{
    for (QAction* entry : {mnuExport_, mnuPrint_, mnuCheck_, mnuUncheck_})
        entry->setEnabled(!viewer_.isLoading());
    const std::optional<int> progress = viewer_.progress();
    prgLoad_->setVisible(progress.has_value());
    prgLoad_->setValue(progress.value_or(0) / kProgressStep * kProgressStep);
    (viewer_.isFiltered() ? mnuFilterEvents_ : mnuAllEvents_)->setChecked(true);
    info_->setText(viewer_.info());
    narrowed_->setText(viewer_.narrowed());
    unread_->setText(viewer_.unread());
    unread_->setToolTip(widgets::plainToolTip(viewer_.unreadReasons()));
}

void frmEventViewer::showRows()
{
    timeline_->setTimeline(viewer_.list().timeline());
    std::optional<TimelineStrip::Span> chosen;
    if (const auto& span = viewer_.list().shownSpan())
        chosen = TimelineStrip::Span{timeline_->timeline().unitOf(span->from),
                                     timeline_->timeline().unitOf(span->to)};
    timeline_->setChosen(chosen);
    lvwItems_->setEmptyText(texts_.own(viewer_.list().isNarrowed() ? "filter.nothing"
                                       : viewer_.isFiltered()      ? "viewer.empty.filter"
                                                                   : "viewer.empty"));
    showState();
}

void frmEventViewer::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

void frmEventViewer::relabel()
{
    guarded("Module/Set_Language", [this] { viewer_.relabel(); });
    txtNarrow_->setPlaceholderText(texts_.own("filter.hint"));
    txtNarrow_->setAccessibleName(texts_.own("viewer.narrow").remove('&'));
    lvwItems_->setAccessibleName(windowTitle());
    QEvent changed(QEvent::LanguageChange);
    QApplication::sendEvent(timeline_, &changed);
    showRows();
}

} // namespace events
