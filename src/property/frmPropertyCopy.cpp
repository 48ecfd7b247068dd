#include "property/frmPropertyCopy.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "property/PropertyCopy.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace property {

using platform::guarded;

namespace {

constexpr QSize kLargeIcons(32, 32);
constexpr QSize kSmallIcons(16, 16);

} // namespace

frmPropertyCopy::frmPropertyCopy(const Surroundings& with)
    : session_(with.session), texts_(with.texts), runCommand_(with.runCommand), copy_(with.copy)
{
    setWindowTitle(session_.AppTitle + QStringLiteral("\\Copia Proprietà"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(480, 380);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->setMenuBar(makeMenus());
    layout->addWidget(makeToolbar());
    lblSource_ = new QLabel(this);
    lblSource_->setObjectName("lblSource");
    lblWritten_ = new QLabel(this);
    lblWritten_->setObjectName("lblWritten");
    for (QLabel* label : {lblSource_, lblWritten_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setContentsMargins(10, 6, 10, 6);
    }
    layout->addWidget(lblSource_);
    layout->addWidget(makeList(), 1);
    layout->addWidget(lblWritten_);
    prgLoad_ = new QProgressBar(this);
    prgLoad_->setObjectName("prgLoad");
    prgLoad_->setTextVisible(false);
    prgLoad_->setFixedHeight(6);
    prgLoad_->hide();
    layout->addWidget(prgLoad_);

    connect(&copy_, &PropertyCopy::copied, this, &frmPropertyCopy::showWords);
    connect(&copy_, &PropertyCopy::progress, this, &frmPropertyCopy::showProgress);
    ResetIcon();
    copy_.load();
    widgets::Set_Language(*this, session_, with.texts, with.op);
    lvwItems_->setFocus();
    if (copy_.rowCount() > 0)
        lvwItems_->setCurrentIndex(copy_.index(0, 0));
}

frmPropertyCopy::~frmPropertyCopy()
{
    copy_.unload();
}

QMenuBar* frmPropertyCopy::makeMenus()
{
    auto* bar = new QMenuBar(this);
    QMenu* mnuFile = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuFile", "108");
    mnuExit_ = addEntry(*mnuFile, "mnuExit", "83");
    QMenu* mnuCommands = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuCommands", "116");
    mnuCheck_ = addEntry(*mnuCommands, "mnuCheck", "230");
    mnuUncheck_ = addEntry(*mnuCommands, "mnuUncheck", "231");
    mnuCommands->addSeparator();
    mnuCopy_ = addEntry(*mnuCommands, "mnuCopy", "120");
    QMenu* mnuView = widgets::tagged(bar->addMenu(QStringLiteral("-")), "mnuView", "126");
    QAction* large = addEntry(*mnuView, "mnuTlbLargeIcons", "131");
    QAction* small = addEntry(*mnuView, "mnuTlbSmallIcons", "132");

    connect(mnuCheck_, &QAction::triggered, &copy_, &PropertyCopy::Check_List);
    connect(mnuUncheck_, &QAction::triggered, &copy_, &PropertyCopy::UnCheck_List);
    connect(mnuCopy_, &QAction::triggered, &copy_, &PropertyCopy::Copy_Value);
    connect(mnuExit_, &QAction::triggered, this, &QWidget::close);
    connect(large, &QAction::triggered, this, [this] { chooseIcons(QStringLiteral("TlbLargeIcons")); });
    connect(small, &QAction::triggered, this, [this] { chooseIcons(QStringLiteral("TlbSmallIcons")); });
    return bar;
}

QAction* frmPropertyCopy::addEntry(QMenu& menu, const char* name, const char* tag)
{
    return widgets::tagged(menu.addAction(QString()), name, tag);
}

QToolBar* frmPropertyCopy::makeToolbar()
{
    tlbMain_ = new QToolBar(this);
    tlbMain_->setObjectName("tlbMain");
    addButton("Check", "select-all", "238", mnuCheck_);
    addButton("Uncheck", "unselect-all", "239", mnuUncheck_);
    tlbMain_->addSeparator();
    addButton("Copy", "copy", "175", mnuCopy_);
    tlbMain_->addSeparator();
    addButton("Exit", "exit", "56", mnuExit_);
    return tlbMain_;
}

void frmPropertyCopy::addButton(const char* key, const char* icon, const char* tag, QAction* entry)
{
    auto* button = widgets::tagged(new QAction(platform::icon(icon), QString(), tlbMain_), key, tag);
    tlbMain_->addAction(button);
    connect(button, &QAction::triggered, this,
            [entry] { guarded("frmPropertyCopy.tlbMain_ButtonClick", [entry] { entry->trigger(); }); });
}

QTreeView* frmPropertyCopy::makeList()
{
    lvwItems_ = new QTreeView(this);
    lvwItems_->setObjectName("lvwItems");
    lvwItems_->setModel(&copy_);
    lvwItems_->setRootIsDecorated(false);
    lvwItems_->setUniformRowHeights(true);
    lvwItems_->setAllColumnsShowFocus(true);
    lvwItems_->setFrameShape(QFrame::NoFrame);
    lvwItems_->setStyleSheet("QTreeView::item { padding: 3px 0; }");
    lvwItems_->header()->resizeSection(0, 90);
    return lvwItems_;
}

// From where, and what came of it.
void frmPropertyCopy::showWords()
{
    lblSource_->setText(texts_.own("copy.source").arg(copy_.sourceName()));
    lblWritten_->setText(texts_.own("copy.written").arg(copy_.written()));
    lblWritten_->setVisible(copy_.written() > 0);
}

void frmPropertyCopy::showProgress(int done, int total)
{
    prgLoad_->setRange(0, total);
    prgLoad_->setValue(done);
    prgLoad_->setVisible(done < total);
    prgLoad_->repaint();
}

// The main window's own command: its toolbar follows as well.
void frmPropertyCopy::chooseIcons(const QString& command)
{
    runCommand_(command);
    ResetIcon();
}

void frmPropertyCopy::ResetIcon()
{
    guarded("frmPropertyCopy/ResetIcon",
            [&] { tlbMain_->setIconSize(session_.ToolbarSet.Icons ? kLargeIcons : kSmallIcons); });
}

void frmPropertyCopy::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        copy_.relabel();
        showWords();
    }
    QDialog::changeEvent(event);
}

} // namespace property
